#include <set>

#include "engine_test_util.h"
#include "raster_kernels.h"

using namespace ravi;
using test::MakeOrDie;

namespace {

// Left half one colour, right half the other.
Image TwoColours(int bits, uint32_t left, uint32_t right)
{
    Image image = MakeOrDie(6, 3, bits);
    if (bits <= 8) {
        image.Table()[0] = {uint8_t(left), uint8_t(left >> 8), uint8_t(left >> 16), 0};
        image.Table()[1] = {uint8_t(right), uint8_t(right >> 8), uint8_t(right >> 16), 0};
    }
    for (int32_t y = 0; y < 3; ++y)
        for (int32_t x = 0; x < 6; ++x)
            image.SetPixelValue(x, y, bits <= 8 ? (x >= 3) : (x >= 3 ? right : left));
    return image;
}

}  // namespace

TEST(Kernels, InvertReverseBWAndChangeColorOnEveryDepth)
{
    for (int bits : test::kDepths) {
        Image image = TwoColours(bits, 0x000000, 0x204060);
        ASSERT_EQ(Invert(image), 0);
        EXPECT_EQ(image.PixelRgb(0, 0), 0xFFFFFFu) << bits;
        EXPECT_EQ(image.PixelRgb(5, 2), 0xDFBF9Fu) << bits;
        // White goes back to black; the other colour is no black or white.
        ASSERT_EQ(ReverseBW(image), 0);
        EXPECT_EQ(image.PixelRgb(0, 0), 0x000000u) << bits;
        EXPECT_EQ(image.PixelRgb(5, 2), 0xDFBF9Fu) << bits;
        // ChangeColor takes COLORREFs, red in the low byte: 0x9FBFDF is the
        // colour 0xDFBF9F.
        ASSERT_EQ(ChangeColor(image, 0x9FBFDF, 0x0000FF), 0);
        EXPECT_EQ(image.PixelRgb(5, 2), 0xFF0000u) << bits;
        EXPECT_EQ(image.PixelRgb(0, 0), 0x000000u) << bits;
        EXPECT_EQ(image.Bits(), bits);
    }
}

TEST(Kernels, GrayizeAndBlackize)
{
    for (int bits : test::kDepths) {
        Image image = TwoColours(bits, 0xFF0000, 0x30F0F0);
        Image bw = image;
        ASSERT_EQ(Grayize(image), 0);
        EXPECT_EQ(image.Bits(), bits > 8 ? 8 : bits);
        uint32_t c = image.PixelRgb(1, 1);
        EXPECT_EQ(c, (c & 0xFF) * 0x010101u) << bits;
        EXPECT_NEAR(int(c & 0xFF), 76, 1) << bits;  // luminance of pure red

        ASSERT_EQ(Blackize(bw), 0);
        EXPECT_EQ(bw.Bits(), 1);
        EXPECT_EQ(bw.PixelRgb(0, 0), 0x000000u) << bits;  // red is dark
        EXPECT_EQ(bw.PixelRgb(4, 0), 0xFFFFFFu) << bits;  // light cyan is light
    }
}

TEST(Kernels, EqualizeSpreadsANarrowHistogram)
{
    // 32 grey levels 100..131, equally often.
    Image image = MakeOrDie(32, 8, 8);
    for (int32_t y = 0; y < 8; ++y)
        for (int32_t x = 0; x < 32; ++x)
            image.SetPixelValue(x, y, uint32_t(100 + x));
    Image rgb = image;
    ASSERT_EQ(ConvertDepth(rgb, 24), 0);
    for (Image* im : {&image, &rgb}) {
        ASSERT_EQ(Equalize(*im), 0);
        std::set<uint32_t> levels;
        for (int32_t x = 0; x < 32; ++x)
            levels.insert(im->PixelRgb(x, 0) & 0xFF);
        EXPECT_EQ(levels.size(), 32u);
        EXPECT_EQ(*levels.begin(), 0u);
        EXPECT_EQ(*levels.rbegin(), 255u);
        // Flat: equal shares of pixels give equal steps.
        EXPECT_NEAR(int(im->PixelRgb(16, 0) & 0xFF), 132, 1);  // 16 of 31 steps
    }
    // Two greys, on every depth, go to the two ends.
    for (int bits : test::kDepths) {
        Image two = TwoColours(bits, 0x646464, 0x787878);
        ASSERT_EQ(Equalize(two), 0);
        EXPECT_EQ(two.PixelRgb(0, 0), 0x000000u) << bits;
        EXPECT_EQ(two.PixelRgb(5, 0), 0xFFFFFFu) << bits;
    }
}

TEST(Kernels, GammaContrastAndBrightness)
{
    for (int bits : {8, 24}) {
        Image image = TwoColours(bits, 0x404040, 0xC0C0C0);
        Image flat = image;
        ASSERT_EQ(Gamma(flat, -100, 0, 0), 0);
        EXPECT_EQ(flat.PixelRgb(0, 0), flat.PixelRgb(5, 0));
        Image bright = image;
        ASSERT_EQ(Gamma(bright, 0, 50, 0), 0);
        EXPECT_GT(bright.PixelRgb(0, 0) & 0xFF, 0x40u);
        Image lifted = image;
        ASSERT_EQ(Gamma(lifted, 0, 0, 50), 0);
        EXPECT_GT(lifted.PixelRgb(0, 0) & 0xFF, 0x40u);
        EXPECT_LT(lifted.PixelRgb(0, 0) & 0xFF, 0xC0u);
    }
    // The table that a curve is drawn from rises and is the identity at 0.
    uint8_t table[256];
    GammaTable(0, 0, 0, table);
    EXPECT_EQ(table[77], 77);
    GammaTable(30, -20, 40, table);
    for (int v = 1; v < 256; ++v)
        ASSERT_GE(table[v], table[v - 1]);
    Image image = MakeOrDie(2, 2, 24);
    EXPECT_EQ(Gamma(image, 0, 0, -101), kEngineBadArgument);
}
