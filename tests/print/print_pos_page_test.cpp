// The print position page in the sheet of DoPrintPosDlg, on the PDF
// printer's A4 sheet (7.8 x 11.2 inches inside the margins): the rectangle
// dragged by mouse messages, Center and Zoom to page, and the tags that OK
// leaves and Cancel doesn't.
#include <gtest/gtest.h>

#include "print_ids.h"
#include "print_test_support.h"

namespace zvtest {
namespace {

constexpr double kA4WidthInSteps = 2479.0 / 300.0 / 0.1;
constexpr double kA4HeightInSteps = 3508.0 / 300.0 / 0.1;

// A rectangle of 4 x 2 inches, centred: left 1.9, top 4.6.
struct PrintPosPage : PrintTest {
    PrintPosPage()
    {
        ZvSetTag(&tags, "PRNUNITS", "IN");
        ZvSetTag(&tags, "PRNW", "4");
        ZvSetTag(&tags, "PRNH", "2");
        image.CreateRaster(400, 200, 24);
    }
    Dewey image;
};

HWND PageOf(HWND sheet)
{
    return PropSheet_GetCurrentPageHwnd(sheet);
}

// Presses the left button inside the rectangle of the picture, moves by
// (stepsX, stepsY) whole steps and a little less than one more, and lets go.
void DragBody(HWND sheet, int stepsX, int stepsY)
{
    HWND page = PageOf(sheet);
    HWND picture = GetDlgItem(page, IDC_PRN_PAGE_PORTRAIT);
    RECT r;
    GetClientRect(picture, &r);
    const int perStepX = static_cast<int>(r.right / kA4WidthInSteps);
    const int perStepY = static_cast<int>(r.bottom / kA4HeightInSteps);
    POINT p = {static_cast<int>((1.9 + 2.0) / 7.8 * r.right), static_cast<int>((4.6 + 1.0) / 11.2 * r.bottom)};
    MapWindowPoints(picture, page, &p, 1);
    SendMessageA(page, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(p.x, p.y));
    const int dx = stepsX * perStepX + perStepX - 1, dy = stepsY * perStepY + perStepY - 1;
    SendMessageA(page, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(p.x + dx, p.y + dy));
    SendMessageA(page, WM_LBUTTONUP, 0, MAKELPARAM(p.x + dx, p.y + dy));
}

TEST_F(PrintPosPage, ADragMovesTheRectangleInStepsTheFieldsFollowAndOkWritesTheTags)
{
    ZV_REQUIRE_PRINTER();
    d.WaitControl(IDC_PRN_LEFT).ExpectText(IDC_PRN_LEFT, "1.9").ExpectText(IDC_PRN_TOP, "4.6");
    d.ExpectText(IDC_PRN_WIDTH, "4").ExpectText(IDC_PRN_HEIGHT, "2");
    d.WaitHandled().Screenshot("print_options");
    d.Do([](HWND sheet) { DragBody(sheet, 3, 2); }).WaitHandled();
    d.ExpectText(IDC_PRN_LEFT, "2.2").ExpectText(IDC_PRN_TOP, "4.8").ExpectText(IDC_PRN_WIDTH, "4");
    d.PressOk();
    EXPECT_EQ(PrintPosDlg(&image), 1);
    EXPECT_EQ(Tag("PRTLEFT"), "2.2");
    EXPECT_EQ(Tag("PRTTOP"), "4.8");
    EXPECT_EQ(Tag("PRNW"), "4");
    EXPECT_EQ(Tag("PRNH"), "2");
    EXPECT_EQ(Tag("PRNA"), "1");
    EXPECT_EQ(Tag("PRNUNITS"), "IN");
}

TEST_F(PrintPosPage, ZoomFillsTheWidthCenterCentresAndCancelLeavesTheTags)
{
    ZV_REQUIRE_PRINTER();
    d.WaitControl(IDC_PRN_LEFT).Do([](HWND sheet) { DragBody(sheet, 5, 5); }).WaitHandled();
    d.ExpectText(IDC_PRN_LEFT, "2.4");
    d.Click(IDC_PRN_CENTER).ExpectText(IDC_PRN_LEFT, "1.9");
    d.Click(IDC_PRN_ZOOM).ExpectText(IDC_PRN_WIDTH, "7.8").ExpectText(IDC_PRN_HEIGHT, "3.9");
    d.ExpectText(IDC_PRN_LEFT, "0").PressCancel();
    EXPECT_EQ(PrintPosDlg(&image), 0);
    EXPECT_EQ(Tag("PRNW"), "4");
    EXPECT_EQ(Tag("PRTLEFT"), "<absent>");
}

TEST_F(PrintPosPage, ATooWideSizeTakesTheRoomLeftAndAnotherUnitConvertsTheValues)
{
    ZV_REQUIRE_PRINTER();
    // Wider than the page: the field shows the room beside left instead.
    d.WaitControl(IDC_PRN_WIDTH).Type(IDC_PRN_WIDTH, "9").ExpectText(IDC_PRN_WIDTH, "5.9");
    // Leaving the field for the combo box keeps 5.9 inches; every field
    // then shows centimetres.
    d.PickCombo(IDC_PRN_UNITS, "Centimeters").ExpectText(IDC_PRN_LEFT, "4.8").ExpectText(IDC_PRN_WIDTH, "15");
    d.PressOk();
    EXPECT_EQ(PrintPosDlg(&image), 1);
    EXPECT_EQ(Tag("PRNUNITS"), "CM");
    EXPECT_EQ(Tag("PRTLEFT"), "4.826");
    EXPECT_EQ(Tag("PRNW"), "14.986");
}

}  // namespace
}  // namespace zvtest
