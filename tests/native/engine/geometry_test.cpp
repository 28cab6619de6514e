#include "engine_test_util.h"
#include "raster_kernels.h"

using namespace ravi;
using test::FillRgb;
using test::MakeOrDie;

namespace {

// A 5 x 3 image, all 0 but for one marked pixel.
Image Marked(int bits, int32_t x, int32_t y)
{
    Image image = MakeOrDie(5, 3, bits);
    image.SetPixelValue(x, y, bits <= 8 ? 1 : 0x123456);
    return image;
}

// Where the single marked pixel is now; (-1, -1) when there are several.
std::pair<int32_t, int32_t> FindMark(const Image& image)
{
    std::pair<int32_t, int32_t> at{-1, -1};
    int found = 0;
    for (int32_t y = 0; y < image.Height(); ++y)
        for (int32_t x = 0; x < image.Width(); ++x)
            if (image.PixelValue(x, y) != 0) {
                at = {x, y};
                ++found;
            }
    return found == 1 ? at : std::pair<int32_t, int32_t>{-1, -1};
}

}  // namespace

TEST(Rotate, QuarterTurnsAndFlipsMoveAPixelExactly)
{
    struct Case {
        int angle, flipV, flipH;
        int32_t w, h, x, y;  // size and mark after, for a mark at (1, 0) of 5 x 3
    };
    const Case cases[] = {
        // Angles count counter-clockwise: 90 takes the top row to the left column.
        {90, 0, 0, 3, 5, 0, 3}, {180, 0, 0, 5, 3, 3, 2}, {-90, 0, 0, 3, 5, 2, 1},
        {0, 1, 0, 5, 3, 1, 2},  {0, 0, 1, 5, 3, 3, 0},   {90, 0, 1, 3, 5, 2, 3},
    };
    for (int bits : test::kDepths) {
        for (const Case& c : cases) {
            Image image = Marked(bits, 1, 0);
            ASSERT_EQ(Rotate(image, c.angle, c.flipV, c.flipH), 0);
            EXPECT_EQ(image.Bits(), bits);
            EXPECT_EQ(image.Width(), c.w) << bits << " " << c.angle;
            EXPECT_EQ(image.Height(), c.h);
            EXPECT_EQ(FindMark(image), std::make_pair(c.x, c.y)) << bits << " " << c.angle << c.flipV << c.flipH;
        }
    }
}

TEST(Rotate, AnyAngleGrowsTheCanvasAndFillsCorners)
{
    for (int bits : {8, 24}) {
        Image image = MakeOrDie(100, 60, bits);
        FillRgb(image, 0x3366CC);
        ASSERT_EQ(Rotate(image, 33, 0, 0, 0xFFFFFF), 0);
        int32_t w = 0, h = 0;
        RotatedSize(100, 60, 33, &w, &h);
        EXPECT_EQ(image.Width(), w);
        EXPECT_EQ(image.Height(), h);
        EXPECT_EQ(w, 117);  // 100 cos 33 + 60 sin 33
        EXPECT_EQ(h, 105);
        EXPECT_GE(image.Bits(), 24);
        EXPECT_EQ(image.PixelRgb(w / 2, h / 2), 0x3366CCu);
        EXPECT_EQ(image.PixelRgb(0, 0), 0xFFFFFFu);
    }
    Image wide = MakeOrDie(65000, 1, 24);
    EXPECT_EQ(Rotate(wide, 45, 0, 0), kEngineNoMemory);  // 45962 x 45962 is too much
    EXPECT_EQ(wide.Width(), 65000);
}

TEST(Resize, NearestKeepsDepthAndPicksPixels)
{
    for (int bits : test::kDepths) {
        Image image = MakeOrDie(4, 4, bits);
        // Columns 2 and 3 marked: a half of 4 x 4 becomes a half of 2 x 2.
        for (int32_t y = 0; y < 4; ++y)
            for (int32_t x = 2; x < 4; ++x)
                image.SetPixelValue(x, y, bits <= 8 ? 1 : 0xFFFFFF);
        ASSERT_EQ(Resize(image, 2, 2, 0), 0);
        EXPECT_EQ(image.Bits(), bits);
        EXPECT_EQ(image.PixelValue(0, 0), 0u);
        EXPECT_NE(image.PixelValue(1, 1), 0u);
    }
}

TEST(Resize, SmoothAveragesWhenShrinkingAndInterpolatesWhenGrowing)
{
    // A checkerboard of black and white shrinks to grey, not to one of them.
    Image board = MakeOrDie(8, 8, 24);
    for (int32_t y = 0; y < 8; ++y)
        for (int32_t x = 0; x < 8; ++x)
            board.SetPixelValue(x, y, ((x + y) & 1) ? 0xFFFFFF : 0);
    Image nearest = board;
    ASSERT_EQ(Resize(board, 1, 1, 1), 0);
    EXPECT_NEAR(int(board.PixelRgb(0, 0) & 0xFF), 128, 1);
    ASSERT_EQ(Resize(nearest, 1, 1, 0), 0);
    uint32_t n = nearest.PixelRgb(0, 0);
    EXPECT_TRUE(n == 0 || n == 0xFFFFFF);

    // Two pixels 0 and 200 grow into a ramp that only rises.
    Image ramp = MakeOrDie(2, 1, 8);
    ramp.SetPixelValue(1, 0, 200);
    ASSERT_EQ(Resize(ramp, 10, 1, 1), 0);
    EXPECT_EQ(ramp.Bits(), 8);  // grey ramp images stay 8 bits
    for (int32_t x = 1; x < 10; ++x)
        EXPECT_GE(ramp.PixelValue(x, 0), ramp.PixelValue(x - 1, 0));
    EXPECT_GT(ramp.PixelValue(5, 0), 50u);

    // A palette image is smoothed in true colour.
    Image pal = MakeOrDie(4, 4, 4);
    ASSERT_EQ(Resize(pal, 3, 3, 1), 0);
    EXPECT_EQ(pal.Bits(), 24);
    EXPECT_EQ(Resize(pal, 0, 3, 1), kEngineBadSize);
}

TEST(NewImages, RowPaddingIsAlwaysClear)
{
    // New images skip clearing the pixels an operation writes anyway; the
    // bytes past the last pixel of each row must still be 0, or a section
    // would carry stale memory.
    auto paddingClear = [](const Image& im) {
        const size_t used = (size_t(im.Width()) * size_t(im.Bits()) + 7) / 8;
        for (int32_t y = 0; y < im.Height(); ++y)
            for (size_t i = used; i < im.Stride(); ++i)
                if (im.Row(y)[i] != 0)
                    return false;
        return true;
    };
    for (int bits : test::kDepths) {
        Image image = MakeOrDie(7, 5, bits);
        FillRgb(image, 0xFFFFFF);
        Image turned = image, any = image, sized = image, reduced = image, grey = image, bw = image;
        ASSERT_EQ(Rotate(turned, 90, 0, 1), 0);
        ASSERT_EQ(Rotate(any, 33, 0, 0), 0);
        ASSERT_EQ(Resize(sized, 9, 3, 1), 0);
        ASSERT_EQ(Reduce(reduced, ReduceParamsFromScript(4, kReduceDiffuse, 1, 0)), 0);
        ASSERT_EQ(Grayize(grey), 0);
        ASSERT_EQ(Blackize(bw), 0);
        for (const Image* im : {&turned, &any, &sized, &reduced, &grey, &bw})
            EXPECT_TRUE(paddingClear(*im)) << bits << " " << im->Bits();
    }
}
