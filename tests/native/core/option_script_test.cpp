#include <gtest/gtest.h>

#include <cstring>
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

TEST(OptionScript, ColourWorkInItsOrder)
{
    FakeScriptHost host;
    host.tags.tags = {{"BMPTIFREVBW", "ON"},      {"BMPTIFAPPLYCOLORS", "On"}, {"RGBFF0000", "0000FF"},
                      {"RGB00FF00", "DELETE"},    {"RGB12", "345678"},          {"RGBXYZXYZ", "000000"},
                      {"BMPTIFCOG", "Black"},     {"BMPTIFGAMMA", "1"},         {"BMPTIFINV", "ON"},
                      {"BMPTIFHIST", "ON"}};
    EXPECT_EQ(Script(host),
              "ReverseBW\n\rChangeColor 255 16711680\n\rBlackize\n\rGamma 0 0 1\n\rInvert\n\rEqualize\n\r");
    EXPECT_EQ(host.tags.OpenSearches(), 0u);
}

TEST(OptionScript, CogIsTestedByItsFirstLetterWithCase)
{
    FakeScriptHost host;
    host.tags.tags = {{"BMPTIFCOG", "b"}};
    EXPECT_EQ(Script(host), "");
}

TEST(OptionScript, RotationCountsTheOtherWayAndOnlyUnderTheDestination)
{
    FakeScriptHost full;
    full.tags.tags = {{"TIFROT", "360"}};
    EXPECT_EQ(Script(full), "");
    FakeScriptHost wrongKey;
    wrongKey.tags.tags = {{"BMPTIFROT", "90"}, {"BMPTIFFLIPH", "ON"}};
    EXPECT_EQ(Script(wrongKey), "Rotate 0 0 1\n\r");
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

TEST(OptionScript, VectorToRasterHalvesLargeSidesTogether)
{
    struct Case {
        long w, h;
        const char* line;
    } cases[] = {{800, 800, "Rasterize 800 800 8\n\r"}, {801, 100, "Rasterize 400 50 8\n\r"}};
    for (const Case& c : cases) {
        FakeScriptHost host;
        host.raster = 0;
        host.width = c.w;
        host.height = c.h;
        EXPECT_EQ(Script(host, "CGM", "BMP"), c.line);
    }
    FakeScriptHost toVector;
    toVector.raster = 0;
    EXPECT_EQ(Script(toVector, "CGM", "DXF"), "");
}

TEST(OptionScript, RotatedVectorTakesItsSizeFromTheRotationBeforeHalving)
{
    FakeScriptHost host;
    host.raster = 0;
    host.width = 1700;
    host.height = 900;
    host.tags.tags = {{"BMPROT", "90"}};
    EXPECT_EQ(Script(host, "CGM", "BMP"), "Rotate 270 0 0\n\rRasterize 450 850 8\n\r");
}

TEST(OptionScript, ResizeOfAVectorImageRasterizesFirst)
{
    FakeScriptHost host;
    host.raster = 0;
    host.resizeResult = 1;
    host.resizeWidth = 300;
    host.resizeHeight = 200;
    EXPECT_EQ(Script(host, "CGM", "BMP"), "Rasterize 300 200 8\n\rResize 300 200 0\n\r");
}

TEST(OptionScript, ReduceMethodPaletteAndScreen)
{
    FakeScriptHost snap;
    snap.tags.tags = {{"TIFDEP", "4"}, {"BMPTIFCPROC", "snap"}, {"BMPTIFOPAL", "ON"}, {"TIFSFREQ", "100"}};
    EXPECT_EQ(Script(snap), "Reduce 4 3 16 2540\n\r");
    FakeScriptHost none;
    none.tags.tags = {{"BMPTIFCPROC", "SNAP"}, {"BMPTIFOPAL", "ON"}, {"TIFSFREQ", "60"}};
    EXPECT_EQ(Script(none), "");
    EXPECT_FALSE(none.tags.WasRead("BMPTIFCPROC"));
    EXPECT_FALSE(none.tags.WasRead("BMPTIFOPAL"));
    EXPECT_FALSE(none.tags.WasRead("TIFSFREQ"));
}

TEST(OptionScript, ExtremeNumbersDoNotOverflow)
{
    FakeScriptHost host;
    host.tags.tags = {{"TIFDEP", "-2147483648"}, {"BMPTIFOPAL", "ON"}, {"TIFSFREQ", "2147483647"},
                      {"TIFROT", "-2147483648"}};
    EXPECT_EQ(Script(host), "Rotate -2147483288 0 0\n\rReduce -2147483648 3 1 1\n\r");
}

TEST(OptionScript, TraceLinesOnlyFromRasterToVector)
{
    FakeScriptHost toMeta;
    toMeta.tags.tags = {{"WMFRVFORCE", "R"}};
    EXPECT_EQ(Script(toMeta, "BMP", "WMF"), "");
    FakeScriptHost vector;
    vector.raster = 0;
    EXPECT_EQ(Script(vector, "CGM", "DXF"), "");

    FakeScriptHost forced;
    forced.tags.tags = {{"WMFRVFORCE", "v"}};
    EXPECT_EQ(Script(forced, "BMP", "WMF"), "PrepRaster 0 0 16\n\rVectorize 0 0 0 0 0 0\n\r");
    EXPECT_EQ(forced.calls.back(), "Vectorize 0 0 0 0 0 0");
}

TEST(OptionScript, TraceNumbersComeFromTheMethodsOwnTags)
{
    FakeScriptHost host;
    host.tags.tags = {{"FAXDXFTRACE", "CTR"},       {"FAXDXFCTRUNDITHER", "3x3"}, {"FAXDXFCTRSPECKREM", "L"},
                      {"FAXDXFCTRMAXCOLORS", "0"},  {"FAXDXFCTRGENTOL", "6"},     {"FAXDXFCTRBEZGEN", "on"},
                      {"FAXDXFCTRARCGEN", "1"},     {"FAXDXFCTRR2VFW", "4"},      {"FAXDXFUNDITHER", "2x2"}};
    EXPECT_EQ(Script(host, "FAX", "DXF"), "PrepRaster 2 3 16\n\rVectorize 1 6 1 0 4 0\n\r");
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
