// Tracing in a document: a raster becomes a drawing that saves as a
// metafile and draws back close to its source; a second trace of the same
// drawing, as a script after DoOptions' direct calls gives it, finds the
// work done; an overlay keeps the raster under the vectors.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "engine_test_support.h"
#include "okaio32.h"

using namespace enginetest;

namespace {

constexpr uint32_t kBlack = 0x000000, kWhite = 0xFFFFFF;

// A black disc and a bar five pixels wide on white, 60 x 40.
bool Ink(int x, int y)
{
    return std::hypot(x + 0.5 - 18, y + 0.5 - 20) < 12 || (x >= 36 && x < 56 && y >= 10 && y < 15);
}

void DrawSample(Dewey& document)
{
    ASSERT_EQ(document.CreateRaster(60, 40, 24), 0);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            SetRgb(document, x, y, Ink(x, y) ? kBlack : kWhite);
}

int InkedPixels(Dewey& document)
{
    int inked = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            inked += Rgb(document, x, y) == kBlack;
    return inked;
}

int DifferingPixels(Dewey& document)
{
    int differ = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            differ += (Rgb(document, x, y) == kBlack) != Ink(x, y);
    return differ;
}

TEST(Trace, ARasterBecomesADrawingThatSavesAsAMetafileAndDrawsBackClose)
{
    for (const char* ext : {"emf", "wmf"}) {
        Dewey document;
        DrawSample(document);
        ASSERT_EQ(document.PrepRaster(0, 0, 2), 0);
        ASSERT_EQ(document.Vectorize(0, 3, 1, 0, 0, 0), 0);
        EXPECT_FALSE(document.IsRaster());
        // The script's own lines after the direct calls.
        EXPECT_EQ(document.PrepRaster(0, 0, 2), 0);
        EXPECT_EQ(document.Vectorize(0, 3, 1, 0, 0, 0), 0);

        const std::string path = TempPath((std::string("traced.") + ext).c_str());
        ASSERT_EQ(document.Save(path.c_str()), 0);
        Dewey copy;
        ASSERT_EQ(copy.Open(path.c_str()), 0) << ext;
        DeleteFileA(path.c_str());
        EXPECT_FALSE(copy.IsRaster());
        ASSERT_EQ(copy.Rasterize(60, 40, 24), 0) << ext;
        // 561 inked pixels, on edges of about 150.
        EXPECT_LE(DifferingPixels(copy), 50) << ext;
    }
    Dewey undone;
    DrawSample(undone);
    EXPECT_EQ(undone.Vectorize(0, 3, 0, 0, 0, 1), ravi::kEngineBadArgument);
}

TEST(Trace, AnOverlayKeepsTheRasterUnderTheCentreLines)
{
    char path[64];
    std::snprintf(path, sizeof path, "enginetest\\trace%lu", GetCurrentProcessId());
    int inked[2] = {};
    for (int overlay = 0; overlay < 2; ++overlay) {
        TagSet options;
        ASSERT_EQ(options.SetPath(path, 1), 0);
        options.Set("TRACEVIEW", overlay ? "OVERLAY" : "NEW");
        Dewey document;
        DrawSample(document);
        ASSERT_EQ(document.RefreshOptions(path), 0);
        ASSERT_EQ(document.PrepRaster(0, 0, 2), 0);
        ASSERT_EQ(document.Vectorize(1, 3, 0, 0, 1, 0), 0);  // lines one pixel wide
        ASSERT_EQ(document.Rasterize(60, 40, 24), 0);
        inked[overlay] = InkedPixels(document);
    }
    RegDeleteTreeA(HKEY_CURRENT_USER, (std::string("Software\\Zavrin\\Tags\\") + path).c_str());
    EXPECT_LT(inked[0], 120);  // the centre lines alone
    EXPECT_GE(inked[1], 530);  // the raster still under them (561, less the rounding of the frame)
}

}  // namespace
