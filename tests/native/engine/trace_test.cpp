// The tracer on small drawn pictures: the shape of what it finds, how close
// the drawing comes back to the source, and pictures at the edges of what
// it takes.
#include <gtest/gtest.h>

#include <cmath>

#include "engine_codes.h"
#include "engine_test_util.h"
#include "tracer.h"

namespace ravi {
namespace {

using test::MakeOrDie;

constexpr uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000;

// A 24-bit picture of white with black where paint says so.
template <class Paint>
Image Picture(int32_t w, int32_t h, Paint paint)
{
    Image image = MakeOrDie(w, h, 24);
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x)
            image.SetPixelValue(x, y, paint(x, y) ? kBlack : kWhite);
    return image;
}

Drawing Trace(const Image& image, int method, int genTol = 3, bool bezier = false, bool arcs = false)
{
    Drawing drawing;
    TraceParams params;
    params.method = method;
    params.genTol = genTol;
    params.bezier = bezier;
    params.arcs = arcs;
    EXPECT_EQ(TraceImage(image, params, &drawing), 0);
    return drawing;
}

int DifferingPixels(const Image& source, const Drawing& drawing)
{
    Image back;
    EXPECT_EQ(RasterizeDrawing(drawing, &back), 0);
    int differ = 0;
    for (int32_t y = 0; y < source.Height(); ++y)
        for (int32_t x = 0; x < source.Width(); ++x)
            differ += source.PixelRgb(x, y) != back.PixelRgb(x, y);
    return differ;
}

TEST(Tracer, AFilledSquareIsOneClosedPathOfFourCorners)
{
    const Image square = Picture(12, 12, [](int x, int y) { return x >= 2 && x < 8 && y >= 3 && y < 9; });
    const Drawing drawing = Trace(square, kTraceOutline, 16);
    EXPECT_EQ(drawing.background, kWhite);
    ASSERT_EQ(drawing.paths.size(), 1u);
    const TracedPath& path = drawing.paths[0];
    EXPECT_TRUE(path.closed);
    EXPECT_FALSE(path.hole);
    ASSERT_EQ(path.segments.size(), 4u);
    EXPECT_EQ(path.start.x, 2);
    EXPECT_EQ(path.start.y, 3);
    EXPECT_EQ(path.segments[0].end.x, 8);  // clockwise on the screen: east first
    EXPECT_EQ(path.segments[1].end.y, 9);
    EXPECT_EQ(path.segments[3].end.x, 2);
    EXPECT_EQ(path.segments[3].end.y, 3);
    EXPECT_EQ(DifferingPixels(square, drawing), 0);
}

TEST(Tracer, ARingIsAnOuterPathAndAHoleThatFillBackExactly)
{
    const Image ring = Picture(20, 20, [](int x, int y) {
        const bool outer = x >= 2 && x < 18 && y >= 2 && y < 18, inner = x >= 6 && x < 14 && y >= 6 && y < 14;
        return outer && !inner;
    });
    const Drawing drawing = Trace(ring, kTraceOutline, 0);
    ASSERT_EQ(drawing.paths.size(), 2u);
    EXPECT_FALSE(drawing.paths[0].hole);
    EXPECT_TRUE(drawing.paths[1].hole);
    EXPECT_EQ(DifferingPixels(ring, drawing), 0);
}

TEST(Tracer, AOnePixelDiagonalIsOneCentreLineOfItsWidth)
{
    const Image diagonal = Picture(16, 16, [](int x, int y) { return x == y && x >= 2 && x < 14; });
    const Drawing drawing = Trace(diagonal, kTraceCenterline);
    ASSERT_EQ(drawing.paths.size(), 1u);
    const TracedPath& line = drawing.paths[0];
    EXPECT_FALSE(line.closed);
    EXPECT_EQ(line.width, 1.0);
    ASSERT_EQ(line.segments.size(), 1u);
    EXPECT_EQ(std::fmin(line.start.x, line.segments[0].end.x), 2.5);
    EXPECT_EQ(std::fmax(line.start.x, line.segments[0].end.x), 13.5);
    EXPECT_EQ(DifferingPixels(diagonal, drawing), 0);
}

// A disc of radius 20 and a ring three pixels wide: curves and arcs keep
// the picture within a stated number of pixels, with a handful of nodes
// where the pixel edges turn at every step.
TEST(Tracer, CurvesAndArcsComeBackCloseToTheSource)
{
    const Image disc = Picture(64, 64, [](int x, int y) { return std::hypot(x + 0.5 - 32, y + 0.5 - 32) < 20; });
    const Drawing curved = Trace(disc, kTraceOutline, 3, true);
    EXPECT_LE(curved.NodeCount(), 16u);
    EXPECT_LE(DifferingPixels(disc, curved), 30);  // of 1257 pixels, on a rim of 126
    bool cubic = false;
    for (const Segment& s : curved.paths[0].segments)
        cubic |= s.kind == SegmentKind::kCubic;
    EXPECT_TRUE(cubic);

    const Image circle = Picture(64, 64, [](int x, int y) {
        const double r = std::hypot(x + 0.5 - 32, y + 0.5 - 32);
        return r >= 18.5 && r < 21.5;
    });
    const Drawing arcs = Trace(circle, kTraceCenterline, 3, false, true);
    ASSERT_GE(arcs.paths.size(), 1u);
    bool arc = false;
    for (const TracedPath& path : arcs.paths) {
        EXPECT_EQ(path.width, 3.0);
        for (const Segment& s : path.segments)
            arc |= s.kind == SegmentKind::kArc;
    }
    EXPECT_TRUE(arc);
    EXPECT_LE(arcs.NodeCount(), 4u);
    EXPECT_LE(DifferingPixels(circle, arcs), 100);  // of 376 pixels
}

TEST(Tracer, TinyEmptyAndManyColouredPicturesTraceWithoutHarm)
{
    for (int method : {kTraceOutline, kTraceCenterline}) {
        const Image dot = MakeOrDie(1, 1, 1);
        EXPECT_EQ(Trace(dot, method).paths.size(), 0u);
        const Image blank = Picture(9, 7, [](int, int) { return false; });
        EXPECT_EQ(Trace(blank, method).paths.size(), 0u);

        Image many = MakeOrDie(16, 16, 8);
        for (int i = 0; i < 256; ++i) {
            many.Table()[i] = {uint8_t(i), uint8_t(255 - i), uint8_t(i * 7), 0};
            many.SetPixelValue(i % 16, i / 16, uint32_t(i));
        }
        const Drawing drawing = Trace(many, method, 0);
        EXPECT_EQ(drawing.paths.size(), 255u);  // one colour is the background
        if (method == kTraceOutline)
            EXPECT_EQ(DifferingPixels(many, drawing), 0);
    }
    Drawing drawing;
    EXPECT_EQ(TraceImage(Image(), TraceParams(), &drawing), kEngineNoImage);
}

TEST(TracePreparation, UnditherMeltsADitherAndSpeckRemovalGoesBySize)
{
    Image checker = Picture(16, 16, [](int x, int y) { return (x + y) % 2 == 0; });
    ASSERT_EQ(PrepareForTrace(checker, 1, 0, 2), 0);
    EXPECT_EQ(checker.Bits(), 8);
    for (int32_t y = 0; y < 16; ++y)
        for (int32_t x = 0; x < 16; ++x)
            EXPECT_EQ(checker.PixelRgb(x, y), checker.PixelRgb(0, 0));

    auto specks = [] {
        return Picture(40, 20, [](int x, int y) { return (x == 3 && y == 3) || (x >= 10 && x < 13 && y >= 10 && y < 13); });
    };
    Image small = specks(), medium = specks();
    ASSERT_EQ(PrepareForTrace(small, 0, 1, 16), 0);
    ASSERT_EQ(PrepareForTrace(medium, 0, 2, 16), 0);
    EXPECT_EQ(small.PixelRgb(3, 3), kWhite);
    EXPECT_EQ(small.PixelRgb(11, 11), kBlack);
    EXPECT_EQ(medium.PixelRgb(11, 11), kWhite);

    Image many = MakeOrDie(16, 16, 24);
    for (int i = 0; i < 256; ++i)
        many.SetPixelValue(i % 16, i / 16, uint32_t(i * 0x010101));
    ASSERT_EQ(PrepareForTrace(many, 3, 3, 4), 0);
    EXPECT_LE(Trace(many, kTraceOutline).paths.size(), 16u);
    EXPECT_EQ(PrepareForTrace(many, 4, 0, 4), kEngineBadArgument);
}

}  // namespace
}  // namespace ravi
