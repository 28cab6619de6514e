// Operations through the document: the kernels change the pixels, the
// document keeps one step of history and serves vectors as well.
#include <gtest/gtest.h>

#include <set>

#include "engine_test_support.h"

using namespace enginetest;

namespace {

TEST(Operations, RotateMovesAKnownColourWhereItShouldGo)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 40, 20), 0);
    // Red is top left; a quarter turn clockwise puts it top right.
    ASSERT_EQ(document.Rotate(90, 0, 0), 0);
    long w = 0, h = 0;
    document.GetInfo(&w, &h, nullptr, nullptr, nullptr);
    EXPECT_EQ(w, 20);
    EXPECT_EQ(h, 40);
    EXPECT_EQ(Rgb(document, 19, 0), 0xFF0000u);
    EXPECT_EQ(Rgb(document, 0, 0), 0x0000FFu);
    // A flip left to right on top brings red back to the left.
    ASSERT_EQ(document.Rotate(0, 0, 1), 0);
    EXPECT_EQ(Rgb(document, 0, 0), 0xFF0000u);
    EXPECT_EQ(document.Rotate(90, 2, 0), ravi::kEngineBadArgument);

    // Any other angle turns onto a canvas that holds the whole picture.
    Dewey square;
    ASSERT_EQ(MakeQuadrants(square, 20, 20), 0);
    ASSERT_EQ(square.Rotate(45, 0, 0), 0);
    square.GetInfo(&w, &h, nullptr, nullptr, nullptr);
    EXPECT_NEAR(w, 28, 1);
    EXPECT_NEAR(h, 28, 1);
}

TEST(Operations, UndoRedoTakesTheLastChangeBackAndAgain)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 8, 8), 0);
    EXPECT_EQ(document.UndoRedo(), kRavicliNothingToUndo);
    ASSERT_EQ(document.Invert(), 0);
    EXPECT_EQ(Rgb(document, 0, 0), 0x00FFFFu);
    ASSERT_EQ(document.UndoRedo(), 0);
    EXPECT_EQ(Rgb(document, 0, 0), 0xFF0000u);
    ASSERT_EQ(document.UndoRedo(), 0);
    EXPECT_EQ(Rgb(document, 0, 0), 0x00FFFFu);

    // A failed operation is no change: history stays as it was.
    EXPECT_EQ(document.Gamma(101, 0, 0), ravi::kEngineBadArgument);
    ASSERT_EQ(document.UndoRedo(), 0);
    EXPECT_EQ(Rgb(document, 0, 0), 0xFF0000u);
}

TEST(Operations, ChangeColorTakesRedInTheLowByte)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 8, 8), 0);
    IRGB red = {255, 0, 0}, yellow = {255, 255, 0};
    ASSERT_EQ(document.ChangeColor(&red, &yellow), 0);
    EXPECT_EQ(Rgb(document, 0, 0), 0xFFFF00u);
    EXPECT_EQ(Rgb(document, 7, 0), 0x00FF00u);
}

TEST(Operations, ReduceGivesThePaletteSizeAskedFor)
{
    Dewey document;
    ASSERT_EQ(document.CreateRaster(64, 64, 24), 0);
    for (int x = 0; x < 64; ++x)
        for (int y = 0; y < 64; ++y) SetRgb(document, x, y, (uint32_t(x * 4) << 16) | (uint32_t(y * 4) << 8) | 0x40);
    ASSERT_EQ(document.Reduce(4, 2, 1, 0), 0);
    short bits = 0;
    document.GetInfo(nullptr, nullptr, nullptr, nullptr, &bits);
    EXPECT_EQ(bits, 4);
    std::set<uint32_t> colours;
    for (int x = 0; x < 64; ++x)
        for (int y = 0; y < 64; ++y) colours.insert(Rgb(document, x, y));
    EXPECT_LE(colours.size(), 16u);
    EXPECT_GT(colours.size(), 4u) << "an optimised palette uses its room";
    EXPECT_EQ(document.Reduce(4, 7, 0, 0), ravi::kEngineBadArgument);
}

TEST(Operations, ColourWorkOnEveryDepth)
{
    for (short bits : {1, 4, 8, 24, 32}) {
        Dewey document;
        ASSERT_EQ(document.CreateRaster(9, 9, bits), 0);
        ASSERT_EQ(document.Invert(), 0) << bits;
        EXPECT_EQ(Rgb(document, 4, 4), 0x000000u) << bits;
        ASSERT_EQ(document.ReverseBW(), 0) << bits;
        EXPECT_EQ(Rgb(document, 4, 4), 0xFFFFFFu) << bits;
        // How each spreads or maps the pixels is checked on the kernels.
        EXPECT_EQ(document.Equalize(), 0) << bits;
        EXPECT_EQ(document.Grayize(), 0) << bits;
        EXPECT_EQ(document.Blackize(), 0) << bits;
        EXPECT_EQ(document.Gamma(20, -10, 30), 0) << bits;
        EXPECT_EQ(document.Resize(5, 3, 1), 0) << bits;
    }
}

TEST(Operations, VectorsTakeColourAndGeometryAndBecomeRasters)
{
    std::string path = TempPath("ops.emf");
    ASSERT_TRUE(WriteTwoColourMetafile(path, 40, 20));
    Dewey document;
    ASSERT_EQ(document.Open(path.c_str()), 0);
    ASSERT_EQ(document.Invert(), 0);
    EXPECT_FALSE(document.IsRaster()) << "colour work keeps a vector a vector";
    ASSERT_EQ(document.Rotate(90, 0, 0), 0);
    long w = 0, h = 0;
    document.GetInfo(&w, &h, nullptr, nullptr, nullptr);
    EXPECT_NEAR(w, 20, 1);
    EXPECT_NEAR(h, 40, 1);
    EXPECT_EQ(document.Equalize(), ravi::kEngineNotSupported);
    ASSERT_EQ(document.Rasterize(20, 40, 8), 0);
    EXPECT_TRUE(document.IsRaster());
    short bits = 0;
    document.GetInfo(nullptr, nullptr, nullptr, nullptr, &bits);
    EXPECT_EQ(bits, 8);
    // Red turned to cyan and went to the top; blue turned to yellow below.
    EXPECT_TRUE(Near(Rgb(document, 10, 5), 0x00FFFF, 24)) << std::hex << Rgb(document, 10, 5);
    EXPECT_TRUE(Near(Rgb(document, 10, 35), 0xFFFF00, 24)) << std::hex << Rgb(document, 10, 35);
    // Rasterizing is one change: undo gives the vector back.
    ASSERT_EQ(document.UndoRedo(), 0);
    EXPECT_FALSE(document.IsRaster());
    DeleteFileA(path.c_str());
}

TEST(Operations, TracingIsNotInThisEngine)
{
    Dewey document;
    ASSERT_EQ(document.CreateRaster(4, 4, 1), 0);
    EXPECT_EQ(document.PrepRaster(0, 0, 16), kRavicliNotAvailable);
    EXPECT_EQ(document.Vectorize(0, 1, 0, 0, 1, 0), kRavicliNotAvailable);
    EXPECT_EQ(document.RefreshOptions("Software\\Zavrin\\Options"), 0);
}

}  // namespace
