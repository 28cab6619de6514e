// Operations through the document: it keeps one step of history and serves
// vectors as well. How each operation changes pixels is checked on the kernels.
#include <gtest/gtest.h>

#include "engine_test_support.h"

using namespace enginetest;

namespace {

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
    EXPECT_EQ(Shape(document), "20 x 40, 8");
    // Red turned to cyan and, turning counter-clockwise, went from the left
    // to the bottom; blue turned to yellow above.
    EXPECT_TRUE(Near(Rgb(document, 10, 35), 0x00FFFF, 24)) << std::hex << Rgb(document, 10, 35);
    EXPECT_TRUE(Near(Rgb(document, 10, 5), 0xFFFF00, 24)) << std::hex << Rgb(document, 10, 5);
    // Rasterizing is one change: undo gives the vector back.
    ASSERT_EQ(document.UndoRedo(), 0);
    EXPECT_FALSE(document.IsRaster());
    DeleteFileA(path.c_str());
}

}  // namespace
