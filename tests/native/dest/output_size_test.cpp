// The size model of the output pages, apart from any window: the rules
// that the driven page tests reach only in part. The link and the changes
// of unit are tested on the pages themselves.
#include <gtest/gtest.h>

#include "output_size.h"

namespace {

TEST(PitchToResolution, RoundsUpAndKeepsThreeHundredForItsOwnPitch)
{
    EXPECT_EQ(zv::PitchToResolution(846), 300);  // 254000 / 846 = 300.2 rounds up to 301
    EXPECT_EQ(zv::PitchToResolution(0), 300);
    EXPECT_EQ(zv::PitchToResolution(2539), 101);
    EXPECT_EQ(zv::PitchToResolution(423), 601);  // only 301 is taken back
}

TEST(ScalingRules, DistortingModesUnlinkAndWriteDistort)
{
    for (int mode = 0; mode < zv::kScalingModeCount; ++mode) {
        const zv::ScalingRule& rule = zv::ScalingRuleOf(mode);
        EXPECT_EQ(rule.distort, mode == 3 || mode == 4) << mode;
        EXPECT_EQ(rule.linked, !rule.distort) << mode;
        // The aspect edit shows the tag exactly when the user may edit it.
        EXPECT_EQ(rule.aspectShown, rule.aspectEnabled) << mode;
    }
    EXPECT_FALSE(zv::ScalingRuleOf(1).heightEnabled);
    EXPECT_FALSE(zv::ScalingRuleOf(2).widthEnabled);
    EXPECT_FALSE(zv::ScalingRuleOf(4).widthEnabled || zv::ScalingRuleOf(4).heightEnabled);
    // No selection behaves as the first entry.
    EXPECT_EQ(&zv::ScalingRuleOf(-1), &zv::ScalingRuleOf(0));
    EXPECT_STREQ(zv::ScalingModeText(7), "Fit in Display Width");
}

TEST(Bounds, OnePixelIsTheLeastForTheImageInHand)
{
    const zv::SizeBounds file = zv::OutputSizeBounds("IN", 300.0, false);
    EXPECT_EQ(file.min, 0.0);
    EXPECT_NEAR(file.max, 999999.99 / 300.0, 1e-9);
    const zv::SizeBounds inHand = zv::OutputSizeBounds("IN", 300.0, true);
    EXPECT_NEAR(inHand.min, 1.0 / 300.0, 1e-12);
    EXPECT_DOUBLE_EQ(zv::OutputSizeBounds("PIX", 72.0, true).min, 1.0);
    const zv::SizeBounds multiples = zv::OutputSizeBounds("mult", 300.0, true);
    EXPECT_EQ(multiples.min, 0.0);
    EXPECT_EQ(multiples.max, 100.0);
}

}  // namespace
