// The size model of the output pages: the numbers behind the edits, apart
// from any window.
#include <gtest/gtest.h>

#include <cstring>

#include "bounded_text.h"
#include "output_size.h"

namespace {

zv::OutputSizeState Record(const char* units, double width, double height, double dpi = 300.0)
{
    zv::OutputSizeState s{};
    zv::CopyBounded(s.units, units);
    zv::CopyBounded(s.lastUnits, units);
    s.roundStep = zv::RoundStepFor(units);
    s.horzRes = s.vertRes = dpi;
    s.width = width;
    s.height = height;
    s.aspect = 1.0;
    s.pixelWidth = zv::ToPixels(width, units, dpi);
    s.pixelHeight = zv::ToPixels(height, units, dpi);
    return s;
}

TEST(PitchToResolution, RoundsUpAndKeepsThreeHundredForItsOwnPitch)
{
    EXPECT_EQ(zv::PitchToResolution(846), 300);  // 254000 / 846 = 300.2 rounds up to 301
    EXPECT_EQ(zv::PitchToResolution(847), 300);
    EXPECT_EQ(zv::PitchToResolution(0), 300);
    EXPECT_EQ(zv::PitchToResolution(2540), 100);
    EXPECT_EQ(zv::PitchToResolution(2539), 101);
    EXPECT_EQ(zv::PitchToResolution(423), 601);  // only 301 is taken back
    EXPECT_EQ(zv::PitchToResolution(1), 254000);
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

TEST(Link, OneFormulaInEveryUnitAndOneToOneInMultiples)
{
    EXPECT_DOUBLE_EQ(zv::LinkedHeight(4.0, 2.0, false), 2.0);
    EXPECT_DOUBLE_EQ(zv::LinkedWidth(2.0, 2.0, false), 4.0);
    EXPECT_DOUBLE_EQ(zv::LinkedHeight(2.0, 2.0, true), 2.0);
    EXPECT_DOUBLE_EQ(zv::LinkedWidth(3.0, 0.5, true), 3.0);
    // 640 x 480 pixels at 300 x 150 dpi: 2.133 by 3.2 inches.
    EXPECT_DOUBLE_EQ(zv::PhysicalAspect(640, 480, 300, 150), (640.0 / 300) / (480.0 / 150));
    EXPECT_EQ(zv::PhysicalAspect(640, 0, 300, 300), 0.0);
}

TEST(UnitChange, PixelsRoundOnlyInTheTextAndTheRecordKeepsTheFraction)
{
    zv::OutputSizeState s = Record("IN", 2.0 / 3.0, 1.0);
    ASSERT_TRUE(zv::ChangeRecordUnits(s, "PIX"));
    EXPECT_DOUBLE_EQ(s.width, 200.0);
    EXPECT_DOUBLE_EQ(s.roundStep, 1.0);
    EXPECT_STREQ(s.lastUnits, "PIX");
    ASSERT_TRUE(zv::ChangeRecordUnits(s, "CM"));
    EXPECT_NEAR(s.width, 2.0 / 3.0 * 2.54, 1e-12);
    EXPECT_DOUBLE_EQ(s.roundStep, 0.01);
    EXPECT_FALSE(zv::ChangeRecordUnits(s, "cm"));  // same unit in another case
}

TEST(UnitChange, LeavingMultiplesStartsFromThePixelsLastKnown)
{
    zv::OutputSizeState s = Record("IN", 2.0, 1.0);  // 600 x 300 pixels
    ASSERT_TRUE(zv::ChangeRecordUnits(s, "MULT"));
    // Multiples of no reference: nothing to convert to; the page types 2.
    s.width = s.height = 2.0;
    ASSERT_TRUE(zv::ChangeRecordUnits(s, "IN"));
    EXPECT_DOUBLE_EQ(s.width, 2.0);
    EXPECT_DOUBLE_EQ(s.height, 1.0);
    EXPECT_STREQ(s.lastUnits, "IN");
}

TEST(UnitChange, ASizeNotSetStaysZero)
{
    zv::OutputSizeState s = Record("IN", 0.0, 3.0);
    ASSERT_TRUE(zv::ChangeRecordUnits(s, "PICA"));
    EXPECT_EQ(s.width, 0.0);
    EXPECT_DOUBLE_EQ(s.height, 18.0);
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

TEST(Resolution, ZeroMeansThreeHundredAndANegativeStays)
{
    EXPECT_EQ(zv::ResolutionOrDefault(0.0), 300.0);
    EXPECT_EQ(zv::ResolutionOrDefault(-5.0), -5.0);
    EXPECT_EQ(zv::ResolutionOrDefault(72.0), 72.0);
}

}  // namespace
