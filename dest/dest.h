// The destination option pages: the size logic that the output pages share,
// and the generic raster, vector and 3D pages.
#pragma once

#include <windows.h>

#include "option_core.h"
#include "output_ids.h"
#include "output_size.h"
#include "frame.h"
#include "preview.h"
#include "toolkit.h"

// --- The shared size logic. Every routine takes the page's dialog and
// addresses its controls by the fixed numbers of output_ids.h; a control
// that a template lacks is simply passed over.

// Fills the shared controls from the tags (from the page's WM_INITDIALOG,
// with the page's record already in place, since the edits it writes call
// back through OnOutputCommand).
void InitOutputPage(HWND dialog, zv::OutputSizeState* state);
// Every WM_COMMAND of a page goes here first. 1 when the control was one
// of the shared ones.
int OnOutputCommand(HWND dialog, WPARAM wParam, LPARAM lParam, zv::OutputSizeState* state);
// Writes the shared controls into the tags, at PSN_KILLACTIVE. Sets
// pageValid; a bad value clears it.
void RetrieveOutputPage(HWND dialog, zv::OutputSizeState* state);

double OnWidthChange(HWND dialog, WPARAM wParam, zv::OutputSizeState* state);
double OnHeightChange(HWND dialog, WPARAM wParam, zv::OutputSizeState* state);
double OnHorzResChange(HWND dialog, WPARAM wParam, zv::OutputSizeState* state);
double OnVertResChange(HWND dialog, WPARAM wParam, zv::OutputSizeState* state);
void OnUnitsChange(HWND dialog, WPARAM wParam, zv::OutputSizeState* state);
void UpdateScalingControls(HWND dialog);
void UpdateResolutionControls(HWND dialog);
int OnGrayscaleClick(HWND dialog);
int OnAllBlackClick(HWND dialog);
// In "MULT" a size given on one side only holds for both sides.
void CopyMultiplesSize(HWND dialog);
// The keys of an output page for the operation in hand: destKey becomes
// "CLP" for the clipboard and "~~~" for anything but a conversion to a file
// (2) or a kept key (6); prefix gets source + destKey as a key, and
// keyPrefix as much of it as its room holds.
void MakeOutputKeys(char* keyPrefix, std::size_t keyPrefixSize, char (&prefix)[zv::kKeySize]);
// The destination's extension and a blank in front of the window's caption,
// as a conversion to a file shows it.
void PutDestinationInCaption(HWND window);
// Tells the user that the page's record could not be had, and ends it.
void ReportPageOutOfMemory(HWND dialog);

// The help topic of every output page.
constexpr unsigned long kOutputPagesHelp = 1400;
// The help that every output page gives: the sheet's Help button and F1
// open the pages' topic, a right click the control's pop-up. True, with the
// page's answer, for a message it took.
bool AnswerOutputPageHelp(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* answer);
// The same for any page with its own topic.
bool AnswerPageHelp(UINT message, WPARAM wParam, LPARAM lParam, unsigned long topic, LRESULT* answer);

// --- The pages. Each does all its work in WindowProc; OnOK and OnCancel
// are the base's.

class CRasterOutPropPage : public CPropertyPage {
public:
    CRasterOutPropPage();
    ~CRasterOutPropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;

private:
    zv::OutputSizeState* m_state;
};

class CVectorOutPropPage : public CPropertyPage {
public:
    CVectorOutPropPage();
    ~CVectorOutPropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;

private:
    void InitPage();
    void OnUnitChange();
    void Retrieve();

    double m_width;
    double m_height;
    char m_keyPrefix[8];
};

class CEntityOutPropPage : public CPropertyPage {
public:
    CEntityOutPropPage();
    ~CEntityOutPropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;

private:
    void InitPage();
    zv::OutputSizeState* m_state;
};

// "Resize Options": the size logic on a page of its own for the image in
// hand, with the two modes that fit the display; OK resizes the image.
class CResizePropPage : public CPropertyPage {
public:
    CResizePropPage();
    ~CResizePropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;

private:
    void InitPage();
    void FitDisplay(bool widthOnly);
    zv::OutputSizeState* m_state;
};
