// The contrast and brightness page driven as a user drives it: each settled
// change shows the engine's own work on a fresh clone of the pristine
// thumbnail, a thumb being dragged starts no image work, OK with operation 0
// adjusts the host's image as DoOptions adjusts a fresh copy, and without an
// image the page draws the intensity curve.
#include "image_page_test.h"

#include <commctrl.h>

using namespace imagepages;

namespace {

class AdjColorsPage : public ImagePageTest {};

HWND PageOf(HWND sheet)
{
    return GetParent(DialogDriver::FindControl(sheet, IDC_ADJ_CONTRAST));
}

TEST_F(AdjColorsPage, SettledChangesShowTheEnginesWorkOnTheBase)
{
    OptionContext* o = CurrentOptionContext();
    d.WaitControl(IDC_ADJ_PREVIEW).Do([&](HWND sheet) {
        HWND page = PageOf(sheet);
        HWND bar = GetDlgItem(page, IDC_ADJ_CONTRAST);
        // The thumb is dragged: the bar holds the capture while it moves.
        SetCapture(bar);
        SendMessageA(bar, TBM_SETPOS, TRUE, 40);
        SendMessageA(page, WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, 40), reinterpret_cast<LPARAM>(bar));
    });
    d.WaitHandled().ExpectText(IDC_ADJ_CONTRAST_EDIT, "40");
    d.Do([&](HWND sheet) {
        EXPECT_EQ(o->previewContrast, 0) << "no image work while the thumb is dragged";
        ReleaseCapture();
        HWND page = PageOf(sheet);
        SendMessageA(page, WM_HSCROLL, MAKEWPARAM(TB_ENDTRACK, 0),
                     reinterpret_cast<LPARAM>(GetDlgItem(page, IDC_ADJ_CONTRAST)));
    });
    d.WaitUntil("contrast 40 shown", [] { return ThumbnailIs([](Dewey& f) { f.Gamma(40, 0, 0); }); });
    d.SetText(IDC_ADJ_GAMMA_EDIT, "-30");
    d.WaitUntil("gamma -30 shown", [] { return ThumbnailIs([](Dewey& f) { f.Gamma(40, 0, -30); }); });
    d.Screenshot("adj_colors_page");
    // Equalisation stands in place of the three values, and leaves them.
    d.SetCheck(IDC_ADJ_HIST, true).ExpectEnabled(IDC_ADJ_CONTRAST, false);
    d.WaitUntil("equalised", [] { return ThumbnailIs([](Dewey& f) { f.Equalize(); }); });
    d.SetCheck(IDC_ADJ_HIST, false);
    d.WaitUntil("the values back", [&] {
        return o->previewHist == 0 && o->previewGamma == -30 && ThumbnailIs([](Dewey& f) { f.Gamma(40, 0, -30); });
    });
    d.PressOk();
    EXPECT_EQ(Run(DoAdjColorsDlg, 2), 1);
    EXPECT_EQ(Tag("BMPBMPCONTRAST"), "40");
    EXPECT_EQ(Tag("BMPBMPGAMMA"), "-30");
    EXPECT_EQ(Tag("BMPBMPHIST"), "OFF");
    EXPECT_EQ(enginetest::Shape(image), "64 x 48, 24");
}

TEST_F(AdjColorsPage, OkWithOperationZeroAdjustsTheImageAsDoOptionsAdjustsACopy)
{
    d.WaitControl(IDC_ADJ_CONTRAST_EDIT).SetText(IDC_ADJ_CONTRAST_EDIT, "30").SetText(IDC_ADJ_BRIGHT_EDIT, "-20");
    d.PressOk();
    EXPECT_EQ(Run(DoAdjColorsDlg, 0), 1);
    // The values are spent on the image: the script of these tags writes none.
    EXPECT_EQ(Tag("BMP~~~CONTRAST"), "0");
    EXPECT_EQ(Tag("BMP~~~BRIGHT"), "0");
    ExpectImageIsDoOptionsOf({{"BMPBMPCONTRAST", "30"}, {"BMPBMPBRIGHT", "-20"}});
}

TEST_F(AdjColorsPage, WithoutAnImageThePageDrawsTheIntensityCurve)
{
    int blackInMiddleColumn = 0;
    d.WaitControl(IDC_ADJ_CURVE).Do([](HWND sheet) {
        EXPECT_EQ(DialogDriver::FindControl(sheet, IDC_ADJ_PREVIEW), nullptr);
        EXPECT_EQ(DialogDriver::FindControl(sheet, IDC_ADJ_PREVIEW_FRAME), nullptr);
    });
    d.SetText(IDC_ADJ_CONTRAST_EDIT, "50").WaitHandled();
    d.Do([&](HWND sheet) {
        HWND box = DialogDriver::FindControl(sheet, IDC_ADJ_CURVE);
        RECT r = {};
        GetClientRect(box, &r);
        HDC dc = GetDC(box);
        for (int y = 1; y < r.bottom - 1; ++y)
            blackInMiddleColumn += GetPixel(dc, r.right / 2, y) == RGB(0, 0, 0) ? 1 : 0;
        ReleaseDC(box, dc);
    });
    d.Screenshot("adj_colors_curve").PressCancel();
    EXPECT_EQ(Run(DoAdjColorsDlg, 2, false), 0);
    EXPECT_GT(blackInMiddleColumn, 0) << "the curve crosses the middle of the box";
}

}  // namespace
