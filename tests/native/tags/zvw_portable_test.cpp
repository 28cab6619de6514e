// ZVWIO32's arithmetic and text rules: units, rounding, rotated sizes, the
// resize of each scaling mode, numbers from text, paths, colours, lists.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "portable/zvw_portable.h"

namespace {

TEST(Units, RoundTripsThroughEveryUnitComeBack)
{
    const char* units[] = {"IN", "CM", "PICA", "PIX", "MULT"};
    for (const char* from : units) {
        for (const char* to : units) {
            const double there = zvw::Convert(from, to, 3.25, 300.0, 2.0);
            EXPECT_NEAR(zvw::Convert(to, from, there, 300.0, 2.0), 3.25, 1e-9) << from << " -> " << to;
        }
    }
    EXPECT_DOUBLE_EQ(zvw::Convert("in", "pica", 2.0, 0.0, 0.0), 12.0);
    // One multiple is the reference length in inches.
    EXPECT_DOUBLE_EQ(zvw::Convert("IN", "MULT", 4.0, 0.0, 8.0), 0.5);
    EXPECT_DOUBLE_EQ(zvw::Convert("MULT", "PIX", 1.5, 100.0, 2.0), 300.0);
}

TEST(Units, ZeroResolutionOrReferenceGivesZeroAndUnknownUnitsAreInches)
{
    EXPECT_EQ(zvw::Convert("PIX", "IN", 5.0, 0.0, 0.0), 0.0);
    EXPECT_EQ(zvw::Convert("IN", "MULT", 5.0, 300.0, 0.0), 0.0);
    EXPECT_DOUBLE_EQ(zvw::Convert(nullptr, "CM", 1.0, 0.0, 0.0), 2.54);
    EXPECT_DOUBLE_EQ(zvw::Convert("FURLONG", "CM", 1.0, 0.0, 0.0), 2.54);
    EXPECT_EQ(zvw::Divide(1.0, 0.0), 0.0);
}

TEST(Rounding, RoundsToTheStepWithoutBinaryNoise)
{
    EXPECT_DOUBLE_EQ(zvw::RoundToStep(8.499, 0.01), 8.5);
    EXPECT_EQ(zvw::FormatDouble(zvw::RoundToStep(2.0 / 3.0, 0.01), 10), "0.67");
    EXPECT_DOUBLE_EQ(zvw::RoundToStep(-2.345, 0.01), -2.35);
    EXPECT_DOUBLE_EQ(zvw::RoundToStep(7.3, 0.0), 7.3);
    EXPECT_EQ(zvw::FormatDouble(zvw::RoundToStep(-0.001, 0.01), 6), "0");
}

TEST(Rotation, RightAnglesAreExactAndOthersBound)
{
    double w = 0, h = 0;
    zvw::RotatedSize(270.0, 640.0, 480.0, &w, &h);
    EXPECT_EQ(w, 480.0);
    EXPECT_EQ(h, 640.0);
    zvw::RotatedSize(540.0, 640.0, 480.0, &w, &h);
    EXPECT_EQ(w, 640.0);
    EXPECT_EQ(h, 480.0);
    zvw::RotatedSize(45.0, 100.0, 100.0, &w, &h);
    EXPECT_NEAR(w, 141.4213562, 1e-6);
    EXPECT_NEAR(h, 141.4213562, 1e-6);
}

struct Sized {
    int result;
    long w, h;
};

Sized Resize(zvw::ScalingMode mode, double w, double h, const char* units = "PIX", double aspect = 0.0,
             long iw = 1600, long ih = 1200, double dpi = 0.0)
{
    zvw::ResizeRequest rq;
    rq.mode = mode;
    rq.width = w;
    rq.height = h;
    rq.units = units;
    rq.aspect = aspect;
    rq.horzDpi = rq.vertDpi = dpi;
    Sized s{};
    s.result = zvw::ComputeResize(rq, iw, ih, &s.w, &s.h);
    return s;
}

void ExpectSize(const Sized& s, long w, long h)
{
    EXPECT_EQ(s.result, 1);
    EXPECT_EQ(s.w, w);
    EXPECT_EQ(s.h, h);
}

TEST(Resize, EachScalingModeOnA1600By1200Image)
{
    using namespace zvw;
    ExpectSize(Resize(kFitInFrame, 800, 800), 800, 600);    // the width rules
    ExpectSize(Resize(kFitInFrame, 800, 300), 400, 300);    // the height rules
    ExpectSize(Resize(kFitInFrame, 3200, 0), 3200, 2400);   // frames enlarge too
    ExpectSize(Resize(kFitInFrame, 800, 800, "PIX", 2.0), 800, 300);  // distortion factor on the width
    ExpectSize(Resize(kFitInWidth, 800, 50), 800, 600);
    ExpectSize(Resize(kFitInHeight, 50, 300), 400, 300);
    ExpectSize(Resize(kDistortToFrame, 800, 800, "PIX", 3.0), 800, 800);
    ExpectSize(Resize(kDistortToFrame, 800, 0), 800, 1200);
    ExpectSize(Resize(kDistortAspect, 10, 10, "PIX", 0.5), 800, 1200);
    ExpectSize(Resize(kMaintainAspect, 0, 300, "PIX", 2.0), 400, 300);
    ExpectSize(Resize(kFitInDisplay, 1024, 768), 1024, 768);
    ExpectSize(Resize(kFitInDisplayWidth, 1024, 0), 1024, 768);
}

TEST(Resize, NothingAskedGivesZero)
{
    using namespace zvw;
    EXPECT_EQ(Resize(kFitInFrame, 0, 0).result, 0);
    EXPECT_EQ(Resize(kFitInWidth, 0, 600).result, 0);
    EXPECT_EQ(Resize(kFitInHeight, 800, 0).result, 0);
    EXPECT_EQ(Resize(kDistortAspect, 800, 600, "PIX", 1.0).result, 0);
    EXPECT_EQ(Resize(kMaintainAspect, 0, 0).result, 0);
    EXPECT_EQ(Resize(kFitInFrame, 800, 600, "PIX", 0.0, 0, 0).result, 0);  // no image, no ratio
    ExpectSize(Resize(kDistortToFrame, 800, 600, "PIX", 0.0, 0, 0), 800, 600);
}

TEST(Resize, UnitsAndBounds)
{
    using namespace zvw;
    ExpectSize(Resize(kDistortToFrame, 8.0, 2.54, "IN", 0.0, 1600, 1200, 100.0), 800, 254);
    ExpectSize(Resize(kDistortToFrame, 2.54, 0.0, "CM", 0.0, 1600, 1200, 0.0), 300, 1200);  // 0 dpi counts as 300
    ExpectSize(Resize(kMaintainAspect, 0.5, 0.5, "MULT"), 800, 600);
    ExpectSize(Resize(kDistortToFrame, 99999, 0.2), 32767, 1);
}

TEST(Resize, ScalingTextsAreReadWithoutCase)
{
    EXPECT_EQ(zvw::ScalingModeOf("fit in display width", false), zvw::kFitInDisplayWidth);
    EXPECT_EQ(zvw::ScalingModeOf("Maintain Aspect Ratio", true), zvw::kMaintainAspect);
    EXPECT_EQ(zvw::ScalingModeOf(nullptr, true), zvw::kDistortToFrame);
    EXPECT_EQ(zvw::ScalingModeOf("Stretch", false), zvw::kFitInFrame);
}

TEST(NumberText, LenientAndStrictReading)
{
    EXPECT_EQ(zvw::ParseLong("  -42xyz"), -42);
    EXPECT_EQ(zvw::ParseLong("0x1A"), 0);
    EXPECT_EQ(zvw::ParseLong(nullptr), 0);
    EXPECT_GT(zvw::ParseLong("99999999999999"), 0);  // clamped, not wrapped
    EXPECT_DOUBLE_EQ(zvw::ParseDouble(".5"), 0.5);
    EXPECT_EQ(zvw::ParseDouble("inf"), 0.0);
    EXPECT_EQ(zvw::ParseDouble("nan"), 0.0);
    EXPECT_EQ(zvw::ParseDouble("-"), 0.0);

    long l = 0;
    double d = 0;
    EXPECT_TRUE(zvw::ParseLongStrict(" 12 ", &l));
    EXPECT_EQ(l, 12);
    EXPECT_FALSE(zvw::ParseLongStrict("12abc", &l));
    EXPECT_FALSE(zvw::ParseLongStrict("", &l));
    EXPECT_TRUE(zvw::ParseDoubleStrict("-3.25", &d));
    EXPECT_EQ(d, -3.25);
    EXPECT_FALSE(zvw::ParseDoubleStrict("3.25in", &d));
    EXPECT_FALSE(zvw::ParseDoubleStrict("0x10", &d));
}

TEST(NumberText, WritingNumbers)
{
    EXPECT_EQ(zvw::FormatDouble(254000.0 / 846.6666666666666, 32), "300");
    EXPECT_EQ(zvw::FormatDouble(-0.0, 32), "0");
    EXPECT_EQ(zvw::FormatDouble(1.23456789, 4), "1.2346");
    EXPECT_EQ(zvw::FormatDouble(1e300, 6), "1e+300");
    EXPECT_EQ(zvw::WithCommas("1234567"), "1,234,567");
    EXPECT_EQ(zvw::WithCommas("-1234"), "-1,234");
    EXPECT_EQ(zvw::WithCommas("1234.5678"), "1,234.5678");
    EXPECT_EQ(zvw::LeadingNumber("12~34", 99), "12");
    EXPECT_EQ(zvw::LeadingNumber("123456", 2), "12");
    EXPECT_EQ(zvw::LeadingNumber("x1", 5), "");
}

// Each buffer below has exactly the size passed, so that the sanitizer sees
// any write past it.
TEST(NumberText, BoundedFormsCutToTheBufferAndStayTerminated)
{
    char four[4];
    zvw::CopySubstring(four, sizeof four, "abcdefgh", 2, 5);
    EXPECT_STREQ(four, "cde");
    const std::string shortText = "abc";  // on the heap: a read past its end is seen
    zvw::CopySubstring(four, sizeof four, shortText.c_str(), 5, 2);
    EXPECT_STREQ(four, "");
    zvw::CopyLeadingNumber(four, sizeof four, "-12345x", 99);
    EXPECT_STREQ(four, "-12");

    char exact[10] = "1234567";
    ASSERT_EQ(zvw::CommasRoom(7), sizeof exact);
    zvw::InsertCommas(exact, sizeof exact);
    EXPECT_STREQ(exact, "1,234,567");
    char unterminated[4] = {'1', '2', '3', '4'};
    zvw::InsertCommas(unterminated, sizeof unterminated);
    EXPECT_STREQ(unterminated, "1,2");

    char longest[15];
    zvw::FormatWithCommas(-2147483647L - 1, longest, sizeof longest);
    EXPECT_STREQ(longest, "-2,147,483,648");
    char eight[8];
    zvw::FormatWithCommas(-2147483647L - 1, eight, sizeof eight);
    EXPECT_STREQ(eight, "-2,147,");

    char untouched = 'x';
    zvw::CopySubstring(&untouched, 0, "abc", 0, 1);
    zvw::InsertCommas(&untouched, 0);
    EXPECT_EQ(untouched, 'x');
}

TEST(Paths, SplitIntoDirectoryNameAndExtension)
{
    char dir[16], name[16], ext[16];
    zvw::SplitPath("C:\\img\\photo.tif", dir, name, ext, sizeof dir);
    EXPECT_STREQ(dir, "C:\\img\\");
    EXPECT_STREQ(name, "photo");
    EXPECT_STREQ(ext, "tif");
    zvw::SplitPath("archive.tar.gz", dir, name, ext, sizeof dir);
    EXPECT_STREQ(dir, "");
    EXPECT_STREQ(name, "archive.tar");
    EXPECT_STREQ(ext, "gz");
    zvw::SplitPath("C:\\dir.d\\README", nullptr, name, ext, sizeof name);
    EXPECT_STREQ(name, "README");
    EXPECT_STREQ(ext, "");
    // A long path is cut to the room of each part, never written past it.
    const std::string longDir = std::string("C:\\") + std::string(40, 'd') + "\\n.e";
    zvw::SplitPath(longDir.c_str(), dir, name, ext, sizeof dir);
    EXPECT_EQ(std::strlen(dir), sizeof dir - 1);
    EXPECT_STREQ(name, "n");
    zvw::SplitPath(nullptr, dir, name, ext, sizeof dir);
    EXPECT_STREQ(dir, "");
}

TEST(Colours, HexTextBothWays)
{
    EXPECT_EQ(zvw::ParseHexRgb("ff8000"), 0xFF8000u);
    EXPECT_EQ(zvw::ParseHexRgb("not a colour"), 0u);
    EXPECT_EQ(zvw::ParseHexRgb(nullptr), 0u);
    char text[7];
    zvw::FormatHexRgb(0xFF, 0x80, 0x0, text);
    EXPECT_STREQ(text, "FF8000");
}

TEST(Lists, EntriesThatEndInTildeGoOn)
{
    std::vector<std::string> items;
    EXPECT_TRUE(zvw::AppendListEntry("Inches~Centimeters~", items));
    EXPECT_TRUE(zvw::AppendListEntry("Picas~", items));
    EXPECT_FALSE(zvw::AppendListEntry("Pixels~Multiples", items));
    EXPECT_EQ(items, (std::vector<std::string>{"Inches", "Centimeters", "Picas", "Pixels", "Multiples"}));
    items.clear();
    EXPECT_FALSE(zvw::AppendListEntry("0~~4x4", items));
    EXPECT_EQ(items, (std::vector<std::string>{"0", "", "4x4"}));
    EXPECT_FALSE(zvw::AppendListEntry("", items));
}

}  // namespace
