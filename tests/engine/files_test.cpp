// Files: every raster format written and read back with its pixels and its
// resolution, metafiles through GDI, and files that are not images.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "engine_test_support.h"
#include "okaio32.h"

using namespace enginetest;

namespace {

struct FormatCase {
    const char* ext;
    int tolerance;  // JPEG loses a little
    bool keepsResolution;
};

// Saves `original` to a temporary file of this name, opens it into `copy`
// and takes the file away again; gives the file's path.
std::string ReadBack(Dewey& original, const std::string& name, Dewey& copy)
{
    std::string path = TempPath(name.c_str());
    EXPECT_EQ(original.Save(path.c_str()), 0) << name;
    EXPECT_EQ(copy.Open(path.c_str()), 0) << name;
    DeleteFileA(path.c_str());
    return path;
}

class RasterFile : public ::testing::TestWithParam<FormatCase> {};

TEST_P(RasterFile, WritesAndReadsBackPixelsAndResolution)
{
    const FormatCase& format = GetParam();
    Dewey original;
    ASSERT_EQ(MakeQuadrants(original, 32, 24), 0);
    // 300 dots per inch: 11811 pixels a metre, 847 tenths of a micron a dot.
    original.GetDib()->biXPelsPerMeter = 11811;
    original.GetDib()->biYPelsPerMeter = 11811;
    Dewey copy;
    const std::string path = ReadBack(original, std::string("round.") + format.ext, copy);
    long w = 0, h = 0;
    short xRes = 0, yRes = 0;
    copy.GetInfo(&w, &h, &xRes, &yRes, nullptr);
    EXPECT_EQ(w, 32);
    EXPECT_EQ(h, 24);
    EXPECT_TRUE(copy.IsRaster());
    EXPECT_TRUE(Near(Rgb(copy, 4, 4), 0xFF0000, format.tolerance)) << format.ext << std::hex << Rgb(copy, 4, 4);
    EXPECT_TRUE(Near(Rgb(copy, 27, 4), 0x00FF00, format.tolerance)) << format.ext;
    EXPECT_TRUE(Near(Rgb(copy, 4, 19), 0x0000FF, format.tolerance)) << format.ext;
    EXPECT_TRUE(Near(Rgb(copy, 27, 19), 0xFFFFFF, format.tolerance)) << format.ext;
    if (format.keepsResolution) {
        EXPECT_NEAR(xRes, 847, 2) << format.ext;
        EXPECT_NEAR(yRes, 847, 2) << format.ext;
    }
    char file[516] = {};
    copy.GetFileName(file);
    EXPECT_EQ(std::string(file), path);
}

INSTANTIATE_TEST_SUITE_P(Formats, RasterFile,
                         ::testing::Values(FormatCase{"bmp", 0, true}, FormatCase{"png", 0, true},
                                           FormatCase{"jpg", 40, true}, FormatCase{"gif", 0, false},
                                           FormatCase{"tif", 0, true}, FormatCase{"ico", 0, false}),
                         [](const auto& info) { return std::string(info.param.ext); });

TEST(Files, KeepsPaletteDepthsAndWritesLargeIconsAsPng)
{
    for (const char* ext : {"bmp", "png", "tif"}) {
        for (short bits : {1, 8}) {
            Dewey original, copy;
            ASSERT_EQ(original.CreateRaster(17, 9, bits), 0);
            ReadBack(original, std::string("depth.") + ext, copy);
            EXPECT_EQ(Shape(copy), "17 x 9, " + std::to_string(bits)) << ext;
            EXPECT_EQ(Rgb(copy, 16, 8), 0xFFFFFFu) << ext << bits;
        }
    }
    Dewey icon, copy;
    ASSERT_EQ(MakeQuadrants(icon, 300, 260), 0);
    ReadBack(icon, "large.ico", copy);
    EXPECT_EQ(Shape(copy), "300 x 260, 32");
    EXPECT_EQ(Rgb(copy, 299, 0), 0x00FF00u);
}

TEST(Files, ReadsMetafilesAsVectorsAndWritesThemBack)
{
    std::string emfPath = TempPath("pair.emf");
    ASSERT_TRUE(WriteTwoColourMetafile(emfPath, 60, 30));
    Dewey vector;
    ASSERT_EQ(vector.Open(emfPath.c_str()), 0);
    EXPECT_FALSE(vector.IsRaster());
    for (const char* ext : {"wmf", "emf"}) {
        Dewey copy;
        ReadBack(vector, std::string("again.") + ext, copy);
        EXPECT_FALSE(copy.IsRaster());
        ASSERT_EQ(copy.Rasterize(60, 30, 24), 0) << ext;
        EXPECT_TRUE(Near(Rgb(copy, 10, 15), 0xFF0000, 8)) << ext << std::hex << Rgb(copy, 10, 15);
        EXPECT_TRUE(Near(Rgb(copy, 50, 15), 0x0000FF, 8)) << ext;
    }
    DeleteFileA(emfPath.c_str());

    // A vector saved to a raster format is drawn at its own size, and a
    // raster saved to a metafile comes back as a vector.
    Dewey drawn, raster, held;
    ReadBack(vector, "drawn.png", drawn);
    EXPECT_TRUE(drawn.IsRaster());
    EXPECT_TRUE(Near(Rgb(drawn, 5, 5), 0xFF0000, 8));
    ASSERT_EQ(MakeQuadrants(raster, 20, 20), 0);
    ReadBack(raster, "raster.emf", held);
    EXPECT_FALSE(held.IsRaster());
    ASSERT_EQ(held.Rasterize(20, 20, 24), 0);
    EXPECT_TRUE(Near(Rgb(held, 2, 2), 0xFF0000, 8));
    EXPECT_TRUE(Near(Rgb(held, 17, 17), 0xFFFFFF, 8));
}

TEST(Files, RefusesWhatIsNotAnImageAndKeepsTheDocument)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 8, 8), 0);
    std::string text = TempPath("words.png");
    FILE* file = std::fopen(text.c_str(), "wb");
    std::fputs("these are words, not pixels\n", file);
    std::fclose(file);
    EXPECT_EQ(document.Open(text.c_str()), ravi::kEngineFileFormat);
    std::string fakeEmf = TempPath("words.emf");
    CopyFileA(text.c_str(), fakeEmf.c_str(), FALSE);
    EXPECT_EQ(document.Open(fakeEmf.c_str()), ravi::kEngineFileFormat);
    EXPECT_EQ(document.Open(TempPath("missing.bmp").c_str()), ravi::kEngineFileOpen);
    EXPECT_EQ(document.Save(TempPath("picture.xyz").c_str()), ravi::kEngineCannotWrite);
    EXPECT_TRUE(document.IsRaster());
    EXPECT_EQ(Rgb(document, 0, 0), 0xFF0000u);
    DeleteFileA(text.c_str());
    DeleteFileA(fakeEmf.c_str());
}

}  // namespace
