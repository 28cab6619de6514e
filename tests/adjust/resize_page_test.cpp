// The resize page driven as a user drives it: it opens at the image's own
// size in pixels, the link keeps the proportions, a display mode fits the
// screen, and OK resizes the host's image as the engine resizes a copy.
#include "image_page_test.h"
#include "output_ids.h"

using namespace imagepages;

namespace {

class ResizePage : public ImagePageTest {
protected:
    void ExpectImageIsResizedCopy(long width, long height)
    {
        Dewey copy;
        ASSERT_EQ(enginetest::MakeQuadrants(copy, 64, 48), 0);
        ASSERT_EQ(copy.Resize(width, height, 0), 0);
        EXPECT_EQ(enginetest::DibBytes(&image), enginetest::DibBytes(&copy));
    }
};

TEST_F(ResizePage, OpensAtTheImagesSizeAndOkResizesIt)
{
    // A size left from another image is not this one's.
    ZvSetTag(&tags, "~~~W", "500");
    d.WaitControl(IDC_OUT_WIDTH).ExpectText(IDC_OUT_WIDTH, "64").ExpectText(IDC_OUT_HEIGHT, "48");
    d.ExpectEnabled(IDC_OUT_HORZRES, false);
    d.Type(IDC_OUT_WIDTH, "32").ExpectText(IDC_OUT_HEIGHT, "24").Screenshot("resize_page").PressOk();
    EXPECT_EQ(Run(DoResizeDlg, 2), 1);
    EXPECT_EQ(enginetest::Shape(image), "32 x 24, 24");
    ExpectImageIsResizedCopy(32, 24);
    EXPECT_EQ(Tag("~~~W"), "");
}

TEST_F(ResizePage, FitInDisplayFillsTheScreenWithTheImagesProportions)
{
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN), screenHeight = GetSystemMetrics(SM_CYSCREEN);
    // 4:3 on the screen: the side that limits stays, the other follows.
    long width = screenWidth, height = screenWidth * 3 / 4;
    if (height > screenHeight) {
        height = screenHeight;
        width = screenHeight * 4 / 3;
    }
    d.WaitControl(IDC_OUT_SCALING).PickCombo(IDC_OUT_SCALING, "Fit in Display");
    WaitText(d, IDC_OUT_WIDTH, std::to_string(width));
    d.ExpectText(IDC_OUT_HEIGHT, std::to_string(height)).PressOk();
    EXPECT_EQ(Run(DoResizeDlg, 0), 1);
    EXPECT_EQ(enginetest::Shape(image), std::to_string(width) + " x " + std::to_string(height) + ", 24");
}

}  // namespace
