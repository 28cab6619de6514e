// The colour changes page and the colour picker driven as a user drives
// them: a deleted pair leaves the global tags when the page is left, the
// pairs left change the host's image as DoOptions changes a copy, and a
// cancelled colour dialog changes nothing.
#include "image_page_test.h"

using namespace imagepages;

namespace {

class EditColorsPage : public ImagePageTest {};

TEST_F(EditColorsPage, ADeletedPairLeavesAndTheRestChangeTheImage)
{
    ZvSetTag(&tags, "RGBFF0000", "00FF00");
    ZvSetTag(&tags, "RGB0000FF", "FFFFFF");
    int rowHeight = 0, rowsLeft = -1;
    d.WaitControl(IDC_EDC_LIST).ExpectEnabled(IDC_EDC_MODIFY, true).Screenshot("edit_colors_page");
    // Row 0 is the pair of blue, in the order of the keys.
    d.Click(IDC_EDC_DELETE).Do([&](HWND sheet) {
        HWND list = DialogDriver::FindControl(sheet, IDC_EDC_LIST);
        rowsLeft = static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0));
        rowHeight = static_cast<int>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
    });
    d.SetCheck(IDC_EDC_APPLY, true).PressOk();
    EXPECT_EQ(Run(DoEditColorsDlg, 0), 1);
    EXPECT_EQ(rowsLeft, 1);
    EXPECT_EQ(rowHeight, 30);
    EXPECT_EQ(Tag("RGB0000FF"), "");
    EXPECT_EQ(Tag("RGBFF0000"), "00FF00");
    ExpectImageIsDoOptionsOf({{"RGBFF0000", "00FF00"}, {"BMPBMPAPPLYCOLORS", "ON"}});
}

TEST_F(EditColorsPage, ACancelledColourDialogGivesTheColourItStartedOn)
{
    IRGB in = {12, 34, 56}, out = {0, 0, 0};
    d.WaitWindow("Color").PressCancel();
    const INT_PTR chosen = d.Run([&] {
        return static_cast<INT_PTR>(DoColorDlg(nullptr, &tags, const_cast<char*>("Zavrin"), nullptr, &formats,
                                               const_cast<char*>("BMP"), const_cast<char*>("BMP"), 0, &in, &out));
    });
    EXPECT_EQ(chosen, 0);
    EXPECT_EQ(out.red, 12);
    EXPECT_EQ(out.green, 34);
    EXPECT_EQ(out.blue, 56);
}

}  // namespace
