// The one page of the "Properties" sheet: facts about an image and its
// file, and for a TIFF file the listing of its structure. It changes
// nothing.
#pragma once

#include <windows.h>

#include "resource_ids.h"
#include "toolkit.h"

class CInfoPropPage : public CPropertyPage {
public:
    // DoPropertiesDlg puts the page on the template of the source first.
    CInfoPropPage() : CPropertyPage(IDD_INFO_RASTER) {}
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnInitDialog();
    void FillListing();
};
