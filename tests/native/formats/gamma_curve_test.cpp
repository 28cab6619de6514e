#include <gtest/gtest.h>

#include <vector>

#include "gamma_curve.h"
#include "message_codes.h"

namespace {

std::vector<unsigned char> Curve(int count, int gamma, int contrast, int bright)
{
    std::vector<unsigned char> table(static_cast<std::size_t>(count) + 1, 0xEE);  // one guard byte
    EXPECT_EQ(zvcvt::FillGammaTable(count, gamma, contrast, bright, table.data()), 0);
    EXPECT_EQ(table.back(), 0xEE) << "wrote past count";
    table.pop_back();
    return table;
}

TEST(GammaCurve, ZeroValuesGiveTheDiagonal)
{
    for (int count : {1, 2, 48, 100, 256}) {
        auto table = Curve(count, 0, 0, 0);
        for (int x = 0; x < count; ++x) ASSERT_EQ(table[x], x) << "count " << count;
    }
}

TEST(GammaCurve, NeverFallsAndStaysInTheBox)
{
    const int values[] = {-100, -60, -1, 0, 1, 50, 99, 100, -250, 250};
    for (int g : values)
        for (int c : values)
            for (int b : values) {
                auto table = Curve(73, g, c, b);
                for (int x = 1; x < 73; ++x) ASSERT_GE(table[x], table[x - 1]) << g << " " << c << " " << b;
                for (unsigned char h : table) ASSERT_LE(h, 72);
            }
}

TEST(GammaCurve, EachValueBendsTheWayItSays)
{
    auto base = Curve(101, 0, 0, 0);
    auto lighter = Curve(101, 0, 0, 40);
    auto darker = Curve(101, 0, 0, -40);
    auto gammaUp = Curve(101, 60, 0, 0);
    auto steep = Curve(101, 0, 60, 0);
    EXPECT_GT(lighter[50], base[50]);
    EXPECT_LT(darker[50], base[50]);
    EXPECT_GT(gammaUp[25], base[25]);
    EXPECT_EQ(gammaUp[0], 0);      // gamma keeps the ends
    EXPECT_EQ(gammaUp[100], 100);
    EXPECT_LT(steep[25], base[25]);
    EXPECT_GT(steep[75], base[75]);
    EXPECT_EQ(steep[50], 50);      // contrast turns about the middle
    auto flat = Curve(101, 0, -100, 0);
    EXPECT_EQ(flat.front(), flat.back());
    auto white = Curve(101, 0, 0, 100);
    EXPECT_EQ(white.front(), 100);
}

TEST(GammaCurve, WideBoxesAreCutAtWhatAByteHolds)
{
    auto table = Curve(600, 0, 0, 0);
    EXPECT_EQ(table[200], 200);
    EXPECT_EQ(table[599], 255);
}

TEST(GammaCurve, BadArguments)
{
    unsigned char one = 7;
    EXPECT_EQ(zvcvt::FillGammaTable(0, 0, 0, 0, nullptr), 0);
    EXPECT_EQ(zvcvt::FillGammaTable(-5, 0, 0, 0, &one), zvcvt::kCvtInvalidParameter);
    EXPECT_EQ(zvcvt::FillGammaTable(3, 0, 0, 0, nullptr), zvcvt::kCvtInvalidParameter);
    EXPECT_EQ(one, 7);
}

TEST(MessageCodes, IdsOfErrorsAndWarnings)
{
    EXPECT_EQ(zvcvt::MessageStringId(-1007), 21007);
    EXPECT_EQ(zvcvt::MessageStringId(-250), 20250);
    EXPECT_EQ(zvcvt::MessageStringId(12), 30012);
    EXPECT_EQ(zvcvt::MessageStringId(-10000), 0);
    EXPECT_EQ(zvcvt::MessageStringId(-32768), 0);
    EXPECT_EQ(zvcvt::MessageStringId(10000), 0);
}

}  // namespace
