// The print dialog on the PDF printer (A4, 300 dpi): "Options..." ends it
// with 2 and a DC, another printer picked in the list refits the image, and
// Cancel still leaves the fit in the tags.
#include <gtest/gtest.h>

#include "print_ids.h"
#include "print_test_support.h"

namespace zvtest {
namespace {

constexpr double kA4Width = 2479.0 / 300.0, kA4Height = 3508.0 / 300.0;

TEST_F(PrintTest, OptionsEndsTheDialogWithTwoAndLeavesTheFitInInches)
{
    ZV_REQUIRE_PRINTER();
    Dewey image;
    ASSERT_EQ(image.CreateRaster(1000, 500, 24), 0);
    d.WaitWindow("Print").WaitControl(IDC_PRINT_PRINTER_LIST).Screenshot("print_dialog");
    d.Click(IDC_PRINT_OPTIONS);
    EXPECT_EQ(PrinterDlg(&image), 2);
    // Options ends the dialog as OK does: the record holds the printer's DC.
    ASSERT_NE(print.hDC, nullptr);
    EXPECT_EQ(GetDeviceCaps(print.hDC, LOGPIXELSX), 300);
    // Twice as wide as high: the width fills the sheet, and the image is
    // centred on the sheet less its margins.
    EXPECT_EQ(Tag("PRNUNITS"), "IN");
    EXPECT_EQ(Tag("PRNHR"), "300");
    EXPECT_EQ(Tag("PRNVR"), "300");
    EXPECT_NEAR(Number("PRNW"), kA4Width, 1e-6);
    EXPECT_NEAR(Number("PRNH"), kA4Width / 2, 1e-6);
    EXPECT_NEAR(Number("PRTLEFT"), -0.25, 1e-6);
    EXPECT_NEAR(Number("PRTTOP"), (kA4Height - 0.5 - kA4Width / 2) / 2, 1e-6);
    EXPECT_EQ(Tag("BMP~~~CPROC"), "HALF");
}

TEST_F(PrintTest, AnotherPrinterRefitsHelpAnswersAndCancelStillFits)
{
    ZV_REQUIRE_PRINTER();
    Dewey image;
    ASSERT_EQ(image.CreateRaster(1000, 500, 24), 0);
    d.WaitWindow("Print").WaitControl(IDC_PRINT_PRINTER_LIST);
    // The last fit is the box of the next: a 2 inch square.
    d.Do([&](HWND) {
        ZvSetTag(&tags, "PRNW", "2");
        ZvSetTag(&tags, "PRNH", "2");
    });
    d.PickCombo(IDC_PRINT_PRINTER_LIST, DefaultPrinter());
    d.WaitUntil("the image refitted into 2 x 2", [&] { return Tag("PRNH") == "1"; });
    d.PressHelp().WaitUntil("the dialog's help", [&] { return seams.helpCalls.size() == 1; });
    d.ContextMenu(IDC_PRINT_OPTIONS).WaitUntil("the button's help", [&] { return seams.helpCalls.size() == 2; });
    d.PressCancel();
    EXPECT_EQ(PrinterDlg(&image), 0);
    EXPECT_EQ(Tag("PRNW"), "2");
    EXPECT_EQ(Tag("PRNH"), "1");
    ASSERT_EQ(seams.helpCalls.size(), 2u);
    EXPECT_EQ(seams.helpCalls[0].command, static_cast<UINT>(HELP_CONTEXT));
    EXPECT_EQ(seams.helpCalls[0].data, 1042u);
    EXPECT_EQ(seams.helpCalls[1].command, static_cast<UINT>(HELP_CONTEXTMENU));
    ASSERT_GE(seams.helpCalls[1].idPairs.size(), 2u);
    EXPECT_EQ(seams.helpCalls[1].idPairs[0], DWORD(IDC_PRINT_OPTIONS));
    EXPECT_EQ(seams.helpCalls[1].idPairs[1], 1050u);
}

}  // namespace
}  // namespace zvtest
