// Printing inside the library: the fit of the print dialog and the print
// position page. The numbers are in print_geometry.h.
#pragma once

#include <windows.h>

#include "print_geometry.h"
#include "toolkit.h"

// The printer's dots per inch and whole sheet; zeros for a null DC.
zv::PrinterSheet PrinterSheetOf(HDC dc);

// Fits the image of the context to the printer's paper and writes the fit
// into the tags, in inches. dialog is the running print dialog, whose list
// names the printer, or null for the default printer.
void ComputePrintLayout(HWND dialog);

// The print position page, "Print Options". Its working record lives while
// its window does; only one such page exists at a time.
class CPrintPosPropPage : public CPropertyPage {
public:
    CPrintPosPropPage();
    ~CPrintPosPropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;
};
