// The rotation page driven as a user drives it: the thumbnail after a turn
// is the engine's turn of the pristine thumbnail, and OK with
// operation 0 turns the host's image as DoOptions turns a fresh copy.
#include "image_page_test.h"

using namespace imagepages;

namespace {

class RotatePage : public ImagePageTest {};

bool ThumbnailIsTheBaseTurned(short engineAngle, short flipV, short flipH)
{
    return ThumbnailIs([=](Dewey& fresh) { fresh.Rotate(engineAngle, flipV, flipH); });
}

// The dial's angle from a cursor point is proved natively; under Wine the
// display's cursor reads back late, so the field, which the dial writes and
// every redraw reads, is where the angle is set here.
TEST_F(RotatePage, TheAngleAndTheFlipsTurnTheThumbnailAsTheEngineTurnsTheBase)
{
    d.WaitControl(IDC_ROT_ANGLE).SetText(IDC_ROT_ANGLE, "180");
    // The user's clockwise 180 is the engine's 360 - 180.
    d.WaitUntil("the thumbnail turned by 180", [] { return ThumbnailIsTheBaseTurned(180, 0, 0); });
    d.SetText(IDC_ROT_ANGLE, "90");
    d.SetCheck(IDC_ROT_FLIPH, true);
    d.WaitUntil("the thumbnail turned by 90 and flipped", [] { return ThumbnailIsTheBaseTurned(270, 0, 1); });
    d.Screenshot("rotate_page");
    d.PressCancel();
    EXPECT_EQ(Run(DoRotateDlg, 2), 0);
    EXPECT_EQ(enginetest::Shape(image), "64 x 48, 24") << "Cancel leaves the image";
}

TEST_F(RotatePage, OkWithOperationZeroTurnsTheImageAsDoOptionsTurnsACopy)
{
    // 450 is folded to 90 as it is typed. The field's handler lets pending
    // messages run, so the next step may come while typing goes on: it
    // waits for the folded text rather than looking once.
    d.WaitControl(IDC_ROT_ANGLE).Type(IDC_ROT_ANGLE, "450");
    WaitText(d, IDC_ROT_ANGLE, "90");
    d.SetCheck(IDC_ROT_FLIPV, true).PressOk();
    EXPECT_EQ(Run(DoRotateDlg, 0), 1);
    EXPECT_EQ(Tag("~~~ROT"), "");
    EXPECT_EQ(Tag("BMP~~~FLIPV"), "");

    EXPECT_EQ(enginetest::Shape(image), "48 x 64, 24");
    ExpectImageIsDoOptionsOf({{"BMPROT", "90"}, {"BMPBMPFLIPV", "ON"}});
}

TEST_F(RotatePage, OtherOperationsKeepTheTurnInTheTagsAndLeaveTheImage)
{
    // A stored angle opens only for an output with a destination.
    ZvSetTag(&tags, "BMPROT", "45.7");
    d.WaitControl(IDC_ROT_ANGLE).ExpectText(IDC_ROT_ANGLE, "45");
    d.Click(IDC_ROT_SPIN_UP).ExpectText(IDC_ROT_ANGLE, "46").PressOk();
    EXPECT_EQ(Run(DoRotateDlg, 3), 1);
    EXPECT_EQ(std::stod(Tag("BMPROT")), 46.0);
    EXPECT_EQ(enginetest::Shape(image), "64 x 48, 24");
}

}  // namespace
