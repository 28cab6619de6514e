// The intensity curve: the diagonal at 0, 0, 0; never falling, always in its
// box; each value bending it its own way.
#include <gtest/gtest.h>

#include <vector>

#include "gamma_curve.h"

namespace {

std::vector<unsigned char> Curve(int count, int gamma, int contrast, int bright)
{
    std::vector<unsigned char> table(static_cast<std::size_t>(count) + 1, 0xEE);  // a guard byte
    EXPECT_EQ(zvcvt::FillGammaTable(count, gamma, contrast, bright, table.data()), 0);
    EXPECT_EQ(table.back(), 0xEE) << "wrote past count";
    table.pop_back();
    return table;
}

TEST(GammaCurve, ZeroValuesGiveTheDiagonalCutAtAByte)
{
    for (int count : {1, 2, 48, 256, 600}) {
        auto table = Curve(count, 0, 0, 0);
        for (int x = 0; x < count; ++x) ASSERT_EQ(table[x], x < 255 ? x : 255) << "count " << count;
    }
}

TEST(GammaCurve, NeverFallsAndStaysInTheBox)
{
    const int values[] = {-250, -100, -60, -1, 0, 1, 50, 99, 100, 250};
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
    EXPECT_GT(Curve(101, 0, 0, 40)[50], base[50]);
    auto gamma = Curve(101, 60, 0, 0);
    EXPECT_GT(gamma[25], base[25]);
    EXPECT_EQ(gamma[0], 0);  // gamma keeps the ends
    EXPECT_EQ(gamma[100], 100);
    auto steep = Curve(101, 0, 60, 0);
    EXPECT_LT(steep[25], base[25]);
    EXPECT_GT(steep[75], base[75]);
    EXPECT_EQ(steep[50], 50);  // contrast turns about the middle
}

TEST(GammaCurve, BadArgumentsWriteNothing)
{
    unsigned char one = 7;
    EXPECT_EQ(zvcvt::FillGammaTable(0, 0, 0, 0, nullptr), 0);
    EXPECT_LT(zvcvt::FillGammaTable(-5, 0, 0, 0, &one), 0);
    EXPECT_LT(zvcvt::FillGammaTable(3, 0, 0, 0, nullptr), 0);
    EXPECT_EQ(one, 7);
}

}  // namespace
