// The number of colours page driven as a user drives it: the depth tag
// opens in the list's form and closes in bits, the screen frequency follows
// halftoning, and OK with operation 0 reduces the host's image as DoOptions
// reduces a fresh copy.
#include "image_page_test.h"

using namespace imagepages;

namespace {

class NumColorsPage : public ImagePageTest {};

std::string SelectedDepth(HWND sheet)
{
    HWND list = DialogDriver::FindControl(sheet, IDC_NUM_LIST);
    const LRESULT selected = SendMessageA(list, LB_GETCURSEL, 0, 0);
    char text[64] = {};
    if (selected != LB_ERR && SendMessageA(list, LB_GETTEXTLEN, selected, 0) < LRESULT(sizeof text))
        SendMessageA(list, LB_GETTEXT, selected, reinterpret_cast<LPARAM>(text));
    return text;
}

TEST_F(NumColorsPage, TheDepthShowsAsColoursAndIsStoredAsBits)
{
    ZvSetTag(&tags, "BMPDEP", "8");
    std::string opened, whileOpen;
    d.WaitControl(IDC_NUM_LIST).Do([&](HWND sheet) {
        opened = SelectedDepth(sheet);
        whileOpen = Tag("BMPDEP");
    });
    d.ExpectEnabled(IDC_NUM_SFREQ, false).Click(IDC_NUM_HALFTONE).ExpectEnabled(IDC_NUM_SFREQ, true);
    d.SetText(IDC_NUM_SFREQ, "85").PickList(IDC_NUM_LIST, "2 (Black and White)").Screenshot("num_colors_page");
    d.PressOk();
    EXPECT_EQ(Run(DoNumColorsDlg, 3), 1);
    EXPECT_EQ(opened, "256");
    EXPECT_EQ(whileOpen, "256") << "the tag holds the list's form while the page is open";
    EXPECT_EQ(Tag("BMPDEP"), "1");
    EXPECT_EQ(Tag("BMPSFREQ"), "85");
    EXPECT_EQ(Tag("BMPBMPCPROC"), "HALF");
}

TEST_F(NumColorsPage, OkWithOperationZeroReducesTheImageAsDoOptionsReducesACopy)
{
    d.WaitControl(IDC_NUM_LIST).PickList(IDC_NUM_LIST, "16").Click(IDC_NUM_DIFFUSE).PressOk();
    EXPECT_EQ(Run(DoNumColorsDlg, 0), 1);
    EXPECT_EQ(enginetest::Shape(image), "64 x 48, 4");
    ExpectImageIsDoOptionsOf({{"BMPDEP", "4"}, {"BMPBMPCPROC", "DIFF"}});
}

}  // namespace
