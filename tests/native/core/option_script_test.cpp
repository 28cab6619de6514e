#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <map>
#include <string>

#include "fake_script_host.h"

using zvtest::FakeScriptHost;

namespace {

std::string Script(FakeScriptHost& host, const char* src = "BMP", const char* dest = "TIF")
{
    EXPECT_EQ(zv::WriteOptionScript(host, src, dest), host.error);
    return host.Script();
}

TEST(OptionScript, WorkedExampleByteForByte)
{
    FakeScriptHost host;
    host.tags.tags = {{"BMPTIFCONTRAST", "10"}, {"BMPTIFBRIGHT", "-5"}, {"TIFROT", "90"},
                      {"BMPTIFFLIPV", "ON"},    {"BMPTIFSMOOTH", "ON"}, {"TIFDEP", "8"},
                      {"BMPTIFCPROC", "DIFF"},  {"BMPTIFOPAL", "ON"},   {"TIFSFREQ", "60"}};
    host.resizeResult = 1;
    host.resizeWidth = 640;
    host.resizeHeight = 480;
    EXPECT_EQ(Script(host), "Gamma 10 -5 0\n\rRotate 270 1 0\n\rResize 640 480 1\n\rReduce 8 2 256 4234\n\r");
    // One write per word, number, blank and line end: never a whole line.
    EXPECT_EQ(host.pieces.size(), 8u + 8u + 8u + 10u);
    EXPECT_EQ(host.pieces[0], "Gamma");
    EXPECT_EQ(host.pieces[1], " ");
    EXPECT_EQ(host.pieces[7], "\n\r");
}

TEST(OptionScript, NoTagsGiveNoWritesAndTheFileErrorIsTheResult)
{
    FakeScriptHost host;
    EXPECT_EQ(Script(host), "");
    EXPECT_TRUE(host.pieces.empty());
    FakeScriptHost failing;
    failing.tags.tags = {{"BMPTIFINV", "on"}};
    failing.error = -3;
    EXPECT_EQ(Script(failing), "Invert\n\r");
}

// The lines that tags make, row by row. The host holds a 640 x 480 raster
// unless a row says otherwise, and a resize happens only where a row gives
// its size.
TEST(OptionScript, TagsMakeTheirLines)
{
    struct Case {
        std::map<std::string, std::string> tags;
        const char* expected;
        const char* src = "BMP";
        const char* dest = "TIF";
        int raster = 1;
        long width = 640, height = 480;
        long resizeWidth = 0, resizeHeight = 0;
    };
    const Case cases[] = {
        // Colour work in its order; pairs whose key or value is no colour are left out.
        {.tags = {{"BMPTIFREVBW", "ON"}, {"BMPTIFAPPLYCOLORS", "On"}, {"RGBFF0000", "0000FF"},
                  {"RGB00FF00", "DELETE"}, {"RGB12", "345678"}, {"RGBXYZXYZ", "000000"}, {"BMPTIFCOG", "Black"},
                  {"BMPTIFGAMMA", "1"}, {"BMPTIFINV", "ON"}, {"BMPTIFHIST", "ON"}},
         .expected = "ReverseBW\n\rChangeColor 255 16711680\n\rBlackize\n\rGamma 0 0 1\n\rInvert\n\rEqualize\n\r"},
        // COG is tested by its first letter, with case.
        {.tags = {{"BMPTIFCOG", "b"}}, .expected = ""},
        // Rotation counts the other way, and only under the destination's key.
        {.tags = {{"TIFROT", "360"}}, .expected = ""},
        {.tags = {{"BMPTIFROT", "90"}, {"BMPTIFFLIPH", "ON"}}, .expected = "Rotate 0 0 1\n\r"},
        // A vector to a raster halves large sides together, after a rotation
        // has given its size; a resize rasterizes first.
        {.expected = "Rasterize 800 800 8\n\r", .src = "CGM", .dest = "BMP", .raster = 0, .width = 800, .height = 800},
        {.expected = "Rasterize 400 50 8\n\r", .src = "CGM", .dest = "BMP", .raster = 0, .width = 801, .height = 100},
        {.expected = "", .src = "CGM", .dest = "DXF", .raster = 0},
        {.tags = {{"BMPROT", "90"}},
         .expected = "Rotate 270 0 0\n\rRasterize 450 850 8\n\r", .src = "CGM", .dest = "BMP", .raster = 0,
         .width = 1700, .height = 900},
        {.expected = "Rasterize 300 200 8\n\rResize 300 200 0\n\r", .src = "CGM", .dest = "BMP", .raster = 0,
         .resizeWidth = 300, .resizeHeight = 200},
        // Reduce: method, optimised palette and screen.
        {.tags = {{"TIFDEP", "4"}, {"BMPTIFCPROC", "snap"}, {"BMPTIFOPAL", "ON"}, {"TIFSFREQ", "100"}},
         .expected = "Reduce 4 3 16 2540\n\r"},
        // Extreme numbers do not overflow.
        {.tags = {{"TIFDEP", "-2147483648"}, {"BMPTIFOPAL", "ON"}, {"TIFSFREQ", "2147483647"}, {"TIFROT", "-2147483648"}},
         .expected = "Rotate -2147483288 0 0\n\rReduce -2147483648 3 1 1\n\r"},
        // Trace lines only from a raster to a vector, with the method's own numbers.
        {.tags = {{"WMFRVFORCE", "R"}}, .expected = "", .dest = "WMF"},
        {.tags = {{"WMFRVFORCE", "v"}}, .expected = "PrepRaster 0 0 16\n\rVectorize 0 0 0 0 0 0\n\r", .dest = "WMF"},
        {.tags = {{"FAXDXFTRACE", "CTR"}, {"FAXDXFCTRUNDITHER", "3x3"}, {"FAXDXFCTRSPECKREM", "L"},
                  {"FAXDXFCTRMAXCOLORS", "0"}, {"FAXDXFCTRGENTOL", "6"}, {"FAXDXFCTRBEZGEN", "on"},
                  {"FAXDXFCTRARCGEN", "1"}, {"FAXDXFCTRR2VFW", "4"}, {"FAXDXFUNDITHER", "2x2"}},
         .expected = "PrepRaster 2 3 16\n\rVectorize 1 6 1 0 4 0\n\r", .src = "FAX", .dest = "DXF"},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const Case& c = cases[i];
        SCOPED_TRACE(testing::Message() << "row " << i);
        FakeScriptHost host;
        host.tags.tags = c.tags;
        host.raster = c.raster;
        host.width = c.width;
        host.height = c.height;
        host.resizeResult = c.resizeWidth != 0;
        host.resizeWidth = c.resizeWidth;
        host.resizeHeight = c.resizeHeight;
        const std::string script = Script(host, c.src, c.dest);
        EXPECT_EQ(script, c.expected);
        EXPECT_EQ(host.tags.OpenSearches(), 0u);
        // The tracer is called with the numbers that the trace lines give.
        std::string traced;
        for (const std::string& call : host.calls)
            if (call.rfind("PrepRaster", 0) == 0 || call.rfind("Vectorize", 0) == 0)
                traced += call + "\n\r";
        EXPECT_EQ(traced, script.substr(std::min(script.find("PrepRaster"), script.size())));
    }
}

TEST(OptionScript, PrinterDestinationSkipsGeometryInAnyCase)
{
    FakeScriptHost host;
    host.raster = 0;
    host.resizeResult = 1;
    host.resizeWidth = 10;
    host.resizeHeight = 10;
    host.tags.tags = {{"BMPpRnSMOOTH", "ON"}, {"BMPPRNSMOOTH", "ON"}};
    EXPECT_EQ(Script(host, "BMP", "pRn"), "");
    EXPECT_FALSE(host.tags.WasRead("BMPpRnSMOOTH"));
    EXPECT_TRUE(host.calls.empty());
}

TEST(OptionScript, WithoutADepthTheReduceTagsAreNotRead)
{
    FakeScriptHost none;
    none.tags.tags = {{"BMPTIFCPROC", "SNAP"}, {"BMPTIFOPAL", "ON"}, {"TIFSFREQ", "60"}};
    EXPECT_EQ(Script(none), "");
    EXPECT_FALSE(none.tags.WasRead("BMPTIFCPROC"));
    EXPECT_FALSE(none.tags.WasRead("BMPTIFOPAL"));
    EXPECT_FALSE(none.tags.WasRead("TIFSFREQ"));
}

TEST(TraceNumbers, DefaultsAndUnknownValues)
{
    zvtest::MemoryTags tags{{"BMPWMFOTLUNDITHER", "9x9"}};
    zvtest::TraceLists lists;
    EXPECT_EQ(zv::TraceGetMaxColors(tags, "BMPWMF"), 16);
    // Only a tag that reads as 0 gets the default; a count that merely
    // narrows to 0 in the short result is passed on as it narrows.
    tags.tags["BMPWMFMAXCOLORS"] = "65536";
    EXPECT_EQ(zv::TraceGetMaxColors(tags, "BMPWMF"), 0);
    tags.tags["BMPWMFMAXCOLORS"] = "0";
    EXPECT_EQ(zv::TraceGetMaxColors(tags, "BMPWMF"), 16);
    tags.tags.erase("BMPWMFMAXCOLORS");
    tags.tags["BMPWMFTRACE"] = "ctr";
    EXPECT_EQ(zv::TraceGetMethod(tags, "BMPWMF"), 1);
    tags.tags["BMPWMFTRACE"] = "OTL";
    EXPECT_EQ(zv::TraceGetUndither(tags, lists, "BMPWMF"), 0);

    char key[zv::kKeySize];
    zv::TraceMakeTag(tags, "BMPWMF", "GENTOL", key);
    EXPECT_STREQ(key, "BMPWMFOTLGENTOL");
    tags.tags["BMPWMFTRACE"] = std::string(500, 'M');
    zv::TraceMakeTag(tags, "BMPWMF", "GENTOL", key);
    EXPECT_EQ(std::strlen(key), 63u);
}

}  // namespace
