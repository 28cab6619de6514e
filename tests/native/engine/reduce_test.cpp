#include <set>

#include "engine_test_util.h"
#include "raster_kernels.h"

using namespace ravi;
using test::FillRgb;
using test::MakeOrDie;

namespace {

// A colourful 24-bit picture: red across, green down, blue mixed.
Image Colourful(int32_t w, int32_t h)
{
    Image image = MakeOrDie(w, h, 24);
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x)
            image.SetPixelValue(x, y, uint32_t(x * 255 / (w - 1)) << 16 | uint32_t(y * 255 / (h - 1)) << 8 |
                                          uint32_t((x * 7 + y * 13) & 255));
    return image;
}

double MeanGrey(const Image& image)
{
    double sum = 0;
    for (int32_t y = 0; y < image.Height(); ++y)
        for (int32_t x = 0; x < image.Width(); ++x)
            sum += image.PixelRgb(x, y) & 0xFF;
    return sum / (double(image.Width()) * image.Height());
}

std::set<uint32_t> TableColours(const Image& image, int entries)
{
    std::set<uint32_t> colours;
    for (int i = 0; i < entries; ++i) {
        const RgbQuad& q = image.Table()[i];
        colours.insert(uint32_t(q.red) << 16 | uint32_t(q.green) << 8 | q.blue);
    }
    return colours;
}

}  // namespace

TEST(Reduce, OptimisedPaletteHasTheSizeAskedFor)
{
    for (int method = 0; method <= 3; ++method) {
        Image image = Colourful(64, 64);
        ASSERT_EQ(Reduce(image, ReduceParamsFromScript(8, method, 256, 0)), 0);
        EXPECT_EQ(image.Bits(), 8);
        EXPECT_EQ(TableColours(image, 256).size(), 256u) << method;
    }
    Image fewer = Colourful(64, 64);
    ASSERT_EQ(Reduce(fewer, ReduceParamsFromScript(8, kReduceSnap, 40, 0)), 0);
    EXPECT_EQ(TableColours(fewer, 40).size(), 40u);
}

TEST(Reduce, EveryMethodKeepsTheMeanBrightnessOfGrey)
{
    for (int method = 0; method <= 3; ++method) {
        for (int grey : {40, 100, 200}) {
            Image image = MakeOrDie(96, 96, 24);
            FillRgb(image, uint32_t(grey) * 0x010101);
            ASSERT_EQ(Reduce(image, ReduceParamsFromScript(1, method, 0, 0)), 0);
            EXPECT_EQ(image.Bits(), 1);
            if (method == kReduceSnap)
                EXPECT_EQ(MeanGrey(image), grey < 128 ? 0.0 : 255.0);
            else
                EXPECT_NEAR(MeanGrey(image), grey, method == kReduceDiffuse ? 3 : 12) << method << " " << grey;
        }
    }
}

TEST(Reduce, SnapFindsTheNearestFixedColour)
{
    Image image = MakeOrDie(4, 1, 24);
    image.SetPixelValue(0, 0, 0xFF0000);
    image.SetPixelValue(1, 0, 0x00FF00);
    image.SetPixelValue(2, 0, 0x030000);
    image.SetPixelValue(3, 0, 0xF0F0F0);
    ASSERT_EQ(Reduce(image, ReduceParamsFromScript(8, kReduceSnap, 0, 0)), 0);
    EXPECT_EQ(image.PixelRgb(0, 0), 0xFF0000u);
    EXPECT_EQ(image.PixelRgb(2, 0), 0x000000u);
    uint32_t light = image.PixelRgb(3, 0);
    EXPECT_EQ(light, (light & 0xFF) * 0x010101u);  // a grey of the palette
    EXPECT_GT(light & 0xFF, 0xE0u);
}

TEST(Reduce, DepthsAboveEightKeepTrueColourWithFewerLevels)
{
    Image image = Colourful(32, 32);
    ASSERT_EQ(Reduce(image, ReduceParamsFromScript(16, kReduceSnap, 0, 0)), 0);
    EXPECT_EQ(image.Bits(), 24);
    std::set<uint32_t> reds, greens;
    for (int32_t x = 0; x < 32; ++x) {
        reds.insert(image.PixelRgb(x, 0) >> 16);
        greens.insert((image.PixelRgb(0, x) >> 8) & 0xFF);
    }
    EXPECT_LE(reds.size(), 32u);
    EXPECT_GT(reds.size(), 16u);
    EXPECT_EQ(greens.size(), 32u);  // six bits of green keep all 32 rows apart
    EXPECT_EQ(Reduce(image, ReduceParamsFromScript(25, 0, 0, 0)), kEngineBadArgument);
}

TEST(Reduce, HalftoneCellFollowsTheScreen)
{
    // 300 dots per inch and 50 lines per inch: cells of 6 pixels, so the
    // pattern repeats every 6 pixels on a flat grey.
    for (long lpi : {50L, 100L}) {
        Image image = MakeOrDie(48, 48, 24);
        image.Header()->xPelsPerMeter = 11811;
        FillRgb(image, 0x808080);
        ASSERT_EQ(Reduce(image, ReduceParamsFromCall(1, kReduceHalftone, 0, lpi)), 0);
        const int32_t cell = int32_t(300 / lpi);
        for (int32_t y = 0; y < 48 - cell; ++y)
            for (int32_t x = 0; x < 48 - cell; ++x)
                ASSERT_EQ(image.PixelValue(x, y), image.PixelValue(x + cell, y + cell)) << lpi;
        EXPECT_NEAR(MeanGrey(image), 128, 20);
    }
}

