// The image adjustment pages. Each does all its work in WindowProc; with
// operation 0 its OnOK changes the host's image as the page's tags say, and
// with any other operation the change stays in the tags.
#pragma once

#include <windows.h>

#include "toolkit.h"

// "Rotation Options": an angle in whole degrees, counted clockwise, and two
// flips, with a dial and a live thumbnail.
class CRotatePropPage : public CPropertyPage {
public:
    CRotatePropPage();
    ~CRotatePropPage() override;  // frees the thumbnails
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;
};

// "Contrast and Brightness": contrast, brightness and gamma from -100 to
// 100, or histogram equalisation in their place; a live thumbnail with an
// image, the intensity curve of the three values without one.
class CAdjColorsPropPage : public CPropertyPage {
public:
    CAdjColorsPropPage();
    ~CAdjColorsPropPage() override;  // frees the thumbnails
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;
};

// "Reduce/Expand Colors": the depth of the output as a number of colours,
// the reduction method, the screen frequency of halftoning and palette
// optimisation. The depth tag holds the list's form while the page is open.
class CNumColorsPropPage : public CPropertyPage {
public:
    CNumColorsPropPage();
    ~CNumColorsPropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;
};

struct IRGB;

// "Color Changes": the pairs "RGB"+RRGGBB of the global tags as rows of two
// swatches; a row's new colour can be changed, a row deleted, the list
// cleared. The pairs reach the global set when the page loses activation.
class CEditColorsPropPage : public CPropertyPage {
public:
    CEditColorsPropPage();
    ~CEditColorsPropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;
};

// The system's colour dialog starting on `in`, with `in` and fifteen greys
// as its custom colours; `out` gets the colour chosen, or `in` on Cancel.
// Non-zero for OK.
BOOL PickColor(HWND owner, IRGB* in, IRGB* out);
