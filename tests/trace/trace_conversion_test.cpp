// A conversion that traces, end to end: zvconv replays the stored trace
// tags of samples/trace.tags on a PNG and writes an EMF drawing.
#include <windows.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "child_process.h"
#include "engine_test_support.h"
#include "host_dialogs.h"

namespace zvtest {
namespace {

bool Disc(int x, int y)
{
    return std::hypot(x + 0.5 - 30, y + 0.5 - 20) < 14;
}

TEST(TraceConversion, ZvconvTracesAPngIntoAnEmfDrawing)
{
    const std::string png = TempFolder() + "\\tracesource.png", emf = TempFolder() + "\\traced.emf";
    {
        Dewey source;
        ASSERT_EQ(source.CreateRaster(60, 40, 24), 0);
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 60; ++x)
                enginetest::SetRgb(source, x, y, Disc(x, y) ? 0x0000FF : 0xFFFFFF);
        ASSERT_EQ(source.Save(png.c_str()), 0);
    }
    DeleteFileA(emf.c_str());
    PROCESS_INFORMATION process = {};
    const std::string exe = LibraryFolder() + "\\zvconv.exe";
    ASSERT_TRUE(StartProcess(exe.c_str(), "zvconv \"" + png + "\" \"" + emf + "\" " + ZV_TRACE_TAGS, &process));
    EXPECT_EQ(FinishProcess(process), 0u);

    Dewey drawing;
    ASSERT_EQ(drawing.Open(emf.c_str()), 0);
    EXPECT_FALSE(drawing.IsRaster());
    ASSERT_EQ(drawing.Rasterize(60, 40, 24), 0);
    int differ = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            differ += (enginetest::Rgb(drawing, x, y) == 0x0000FF) != Disc(x, y);
    EXPECT_LE(differ, 45);  // of about 616 disc pixels, on a rim of about 88
    DeleteFileA(png.c_str());
    DeleteFileA(emf.c_str());
}

}  // namespace
}  // namespace zvtest
