// What a dialog entry puts into the option context: the help file and the
// window that help opens over, the source and destination with their keys,
// the preview's starting values and the thumbnails.
#include <gtest/gtest.h>

#include "frame_test_support.h"
#include "ravicli.h"
#include "seam_recorder.h"

namespace {

using frametest::LibraryFolder;

class OptionContextInit : public ::testing::Test {
protected:
    OptionContext* o = CurrentOptionContext();
    OKAMOD formats{nullptr};
    TagSet tags;

    void Init(const char* helpFile, const char* srcExt, const char* destExt, short operation, short srcType = 0,
              OKAMOD* registry = reinterpret_cast<OKAMOD*>(1))
    {
        if (registry == reinterpret_cast<OKAMOD*>(1))
            registry = &formats;
        InitOptionContext(nullptr, &tags, "Host", helpFile, registry, srcExt, destExt, operation, srcType, nullptr,
                          0);
    }
};

TEST_F(OptionContextInit, HelpFileIsTheHostsOnlyWhenItCanBeRead)
{
    std::string beside = LibraryFolder() + "ZAVRIN.HLP";
    Init(nullptr, "BMP", "TIF", 2);
    EXPECT_EQ(std::string(o->helpFile), beside);
    EXPECT_EQ(std::string(o->moduleDir) + "\\", LibraryFolder());

    Init("C:\\no\\such\\folder\\HOST.HLP", "BMP", "TIF", 2);
    EXPECT_EQ(std::string(o->helpFile), beside);

    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, sizeof path);  // any file that can be read
    Init(path, "BMP", "TIF", 2);
    EXPECT_STREQ(o->helpFile, path);

    // A dialog's topic opens over the host's window, from that file.
    zvtest::SeamRecorder recorder;
    HWND host = CreateWindowA("STATIC", "host", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    InitOptionContext(host, &tags, "Host", path, &formats, "BMP", "TIF", 2, 0, nullptr, 0);
    ShowContextHelp(WM_COMMAND, IDHELP, 1220);
    DestroyWindow(host);
    ASSERT_EQ(recorder.helpCalls.size(), 1u);
    EXPECT_EQ(recorder.helpCalls[0].window, host);
    EXPECT_EQ(recorder.helpCalls[0].file, path);
}

TEST_F(OptionContextInit, DestinationKeysFollowTheOperation)
{
    Init(nullptr, "BMP", "TIF", 2);
    EXPECT_STREQ(o->destExt, "TIF");
    EXPECT_STREQ(o->destKey, "TIF");
    EXPECT_EQ(o->destType, 1);
    EXPECT_EQ(o->printFlag, 1);

    // No destination: the last one stays, and the key is the operation's.
    Init(nullptr, "BMP", nullptr, 0);
    EXPECT_STREQ(o->destExt, "TIF");
    EXPECT_STREQ(o->destKey, "~~~");
    EXPECT_EQ(o->destType, 1);
    EXPECT_EQ(o->printFlag, 0);
    EXPECT_STREQ(o->translatedKey, "~~~");

    // The internal extension of an internal extension is itself.
    Init(nullptr, "BMP", "TIFF", 3);
    EXPECT_STREQ(o->destExt, "TIFF");
    EXPECT_STREQ(o->destKey, "TIF");

    Init(nullptr, "BMP", "TIF", 5);
    EXPECT_STREQ(o->destKey, "CLP");
    Init(nullptr, "BMP", "TIF", 1);
    EXPECT_STREQ(o->destKey, "~~~");

    char prefix[64];
    Init(nullptr, "BMP", "TIF", 2);
    MakeKeyPrefix(prefix);
    EXPECT_STREQ(prefix, "BMPTIF");
}

TEST_F(OptionContextInit, AMetafileDestinationMayBeForcedToOneKind)
{
    Init(nullptr, "BMP", "WMF", 2);
    EXPECT_EQ(o->destType, 3);
    ZvSetTag(&tags, "WMFRVFORCE", "r");
    Init(nullptr, "BMP", "WMF", 2);
    EXPECT_EQ(o->destType, 1);
    ZvSetTag(&tags, "WMFRVFORCE", "V");
    Init(nullptr, "BMP", "WMF", 2);
    EXPECT_EQ(o->destType, 2);
    // Only a metafile is forced.
    ZvSetTag(&tags, "TIFRVFORCE", "V");
    Init(nullptr, "BMP", "TIF", 2);
    EXPECT_EQ(o->destType, 1);
}

TEST_F(OptionContextInit, SourceTypeComesFromTheRegistryOrDefaults)
{
    // The first dialog of the process brings no registry: a raster source.
    Init(nullptr, "WMF", nullptr, 0, 0, nullptr);
    EXPECT_EQ(o->srcType, 1);
    EXPECT_STREQ(o->srcExt, "WMF");

    Init(nullptr, "WMF", nullptr, 0);
    EXPECT_EQ(o->srcType, 3);
    Init(nullptr, "WMF", nullptr, 0, 2);
    EXPECT_EQ(o->srcType, 2);
}

TEST_F(OptionContextInit, PreviewStartsFromTheTagsOfTheKeyPrefix)
{
    ZvSetTag(&tags, "TIFROT", "90");
    ZvSetTag(&tags, "BMPTIFFLIPV", "on");
    ZvSetTag(&tags, "BMPTIFFLIPH", "OFF");
    ZvSetTag(&tags, "BMPTIFHIST", "ON");
    ZvSetTag(&tags, "BMPTIFCONTRAST", "-15");
    ZvSetTag(&tags, "BMPTIFGAMMA", "40");
    o->previewInvert = 1;
    Init(nullptr, "BMP", "TIF", 2);
    EXPECT_FLOAT_EQ(o->previewRotation, 90.0f);
    EXPECT_EQ(o->previewFlipV, 1);
    EXPECT_EQ(o->previewFlipH, 0);
    EXPECT_EQ(o->previewHist, 1);
    EXPECT_EQ(o->previewContrast, -15);
    EXPECT_EQ(o->previewBright, 0);
    EXPECT_EQ(o->previewGamma, 40);
    EXPECT_EQ(o->previewInvert, 0);
}

struct ThumbCase {
    long width, height, thumbWidth, thumbHeight;
};

TEST(Thumbnails, FitInto256By256WithTheLongerSideAtTheLimit)
{
    OptionContext* o = CurrentOptionContext();
    OKAMOD formats(nullptr);
    TagSet tags;
    for (ThumbCase c : {ThumbCase{1000, 500, 256, 128}, ThumbCase{500, 1000, 128, 256}, ThumbCase{100, 100, 256, 256}}) {
        SCOPED_TRACE(c.width);
        Dewey image;
        ASSERT_EQ(image.CreateRaster(c.width, c.height, 24), 0);
        InitOptionContext(nullptr, &tags, "Host", nullptr, &formats, "BMP", "TIF", 2, 0, &image, 1);
        ASSERT_NE(o->previewDewey, nullptr);
        ASSERT_NE(o->previewBase, nullptr);
        EXPECT_EQ(o->sourceDewey, &image);
        for (Dewey* thumb : {o->previewDewey, o->previewBase}) {
            long w = 0, h = 0;
            thumb->GetInfo(&w, &h, nullptr, nullptr, nullptr);
            EXPECT_EQ(w, c.thumbWidth);
            EXPECT_EQ(h, c.thumbHeight);
        }
        // The source itself is never touched.
        long w = 0, h = 0;
        image.GetInfo(&w, &h, nullptr, nullptr, nullptr);
        EXPECT_EQ(w, c.width);

        // Thumbnails in hand are kept; a null source makes none.
        Dewey* shown = o->previewDewey;
        MakePreviews(&image, 64, 64);
        EXPECT_EQ(o->previewDewey, shown);
        FreePreviews();
        MakePreviews(nullptr, 256, 256);
        EXPECT_EQ(o->previewDewey, nullptr);
        EXPECT_EQ(o->previewBase, nullptr);
    }
}

}  // namespace
