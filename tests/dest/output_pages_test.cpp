// The raster, vector and 3D output pages in a destination's sheet, driven
// as a user drives them: what the edits show while typing, what is enabled,
// and what the tags hold when the sheet has closed.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "core_test_support.h"
#include "dialog_driver.h"
#include "okamod32.h"
#include "output_ids.h"
#include "seam_recorder.h"
#include "zvopt32.h"

using coretest::StoredSet;
using zvtest::DialogDriver;

namespace {

constexpr unsigned short kRaster = IDD_RASTER_OUT;
constexpr unsigned short kVector = IDD_VECTOR_OUT;
constexpr unsigned short kEntity = IDD_ENTITY_OUT;

// Indexes of the units list.
constexpr int kInches = 0, kCentimeters = 1, kPixels = 3, kMultiples = 4;

// 600 x 300 pixels; the horizontal pitch 846 and the vertical 847 both
// stand for 300 dpi, so the picture is twice as wide as high.
Dewey* WideImage()
{
    Dewey* image = new Dewey;
    image->CreateRaster(600, 300, 24);
    BITMAPINFOHEADER* header = image->GetDib();
    header->biXPelsPerMeter = 11820;  // 846 tenths of a micron per pixel
    header->biYPelsPerMeter = 11806;  // 847
    return image;
}

struct OutputPages : ::testing::Test {
    OKAMOD* formats = new OKAMOD(nullptr);
    StoredSet tags{"dest"};
    zvtest::SeamRecorder seams;
    DialogDriver d;

    ~OutputPages() override { delete formats; }

    int Run(unsigned short dlgId, const char* destExt, short operation, Dewey* image = nullptr,
            const char* srcExt = "BMP", short srcType = 1)
    {
        return static_cast<int>(d.Run([&] {
            return static_cast<INT_PTR>(DoDestOptionsDlg(nullptr, dlgId, tags.tags, "Zavrin", nullptr, formats,
                                                         srcExt, destExt, operation, srcType, image));
        }));
    }
    // Reads a tag while the sheet runs: through the host's set, which
    // reads its child first.
    DialogDriver& ExpectTagNow(const char* key, const std::string& value)
    {
        return d.Do([this, key, value](HWND) { EXPECT_EQ(tags.Get(key), value) << key; });
    }
};

// ------------------------------------------------------------ the link

TEST_F(OutputPages, TypingAWidthFillsTheHeightThroughTheImagesAspect)
{
    Dewey* image = WideImage();
    // No size in the tags: the edits start empty, but the image's ratio
    // links the first number typed.
    d.WaitControl(IDC_OUT_WIDTH).ExpectText(IDC_OUT_WIDTH, "").ExpectText(IDC_OUT_ASPECT, "1");
    d.Type(IDC_OUT_WIDTH, "4").ExpectText(IDC_OUT_HEIGHT, "2");
    d.Type(IDC_OUT_HEIGHT, "3").ExpectText(IDC_OUT_WIDTH, "6");
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2, image), 1);
    EXPECT_EQ(tags.Get("BMPW"), "6");
    EXPECT_EQ(tags.Get("BMPH"), "3");
    EXPECT_EQ(tags.Get("BMPUNITS"), "IN");
    EXPECT_EQ(tags.Get("BMPSCALING"), "Fit in Frame");
    EXPECT_EQ(tags.Get("BMPDISTORT"), "OFF");
    delete image;
}

TEST_F(OutputPages, DistortingModesLeaveTheOtherSideAloneAndFitInWidthStillFollows)
{
    tags.Set("BMPW", "2");
    tags.Set("BMPH", "2");
    d.WaitControl(IDC_OUT_WIDTH).PickCombo(IDC_OUT_SCALING, "Distort to Frame");
    d.ExpectEnabled(IDC_OUT_ASPECT, false).ExpectText(IDC_OUT_ASPECT, "");
    d.Type(IDC_OUT_WIDTH, "5").ExpectText(IDC_OUT_HEIGHT, "2");
    d.PickCombo(IDC_OUT_SCALING, "Fit in Width").ExpectEnabled(IDC_OUT_HEIGHT, false);
    d.ExpectText(IDC_OUT_ASPECT, "1");
    d.Type(IDC_OUT_WIDTH, "3").ExpectText(IDC_OUT_HEIGHT, "3");
    d.PickCombo(IDC_OUT_SCALING, "Distort to Frame").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 1);
    EXPECT_EQ(tags.Get("BMPDISTORT"), "ON");
    EXPECT_EQ(tags.Get("BMPW"), "3");
    EXPECT_EQ(tags.Get("BMPH"), "3");
}

TEST_F(OutputPages, MultiplesLinkOneToOneAndLeavingThemRestoresTheRealSize)
{
    Dewey* image = WideImage();
    d.WaitControl(IDC_OUT_WIDTH).Type(IDC_OUT_WIDTH, "3").ExpectText(IDC_OUT_HEIGHT, "1.5");
    d.PickCombo(IDC_OUT_UNITS, kMultiples);
    d.ExpectEnabled(IDC_OUT_ASPECT, false).ExpectText(IDC_OUT_ASPECT, "");
    d.Type(IDC_OUT_WIDTH, "2").ExpectText(IDC_OUT_HEIGHT, "2");
    // Back to inches from the pixels last known, not from the 2.
    d.PickCombo(IDC_OUT_UNITS, kInches).ExpectText(IDC_OUT_WIDTH, "3").ExpectText(IDC_OUT_HEIGHT, "1.5");
    d.PickCombo(IDC_OUT_UNITS, kMultiples).Type(IDC_OUT_WIDTH, "2").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2, image), 1);
    EXPECT_EQ(tags.Get("BMPUNITS"), "MULT");
    EXPECT_EQ(tags.Get("BMPW"), "2");
    EXPECT_EQ(tags.Get("BMPH"), "2");
    EXPECT_EQ(tags.Get("BMPA"), "<absent>");
    delete image;
}

TEST_F(OutputPages, PixelsDisableTheResolutionsAndShowWholeNumbersOverAnExactRecord)
{
    tags.Set("BMPHR", "25400");  // 10 dpi, in tenths of a micron between dialogs
    tags.Set("BMPVR", "25400");
    d.WaitControl(IDC_OUT_WIDTH).ExpectText(IDC_OUT_HORZRES, "10");
    ExpectTagNow("BMPHR", "10");  // dots per inch while the page lives
    d.Type(IDC_OUT_WIDTH, "1.26").ExpectText(IDC_OUT_HEIGHT, "1.26");
    d.PickCombo(IDC_OUT_UNITS, kPixels);
    d.ExpectEnabled(IDC_OUT_HORZRES, false).ExpectEnabled(IDC_OUT_VERTRES_LABEL, false);
    d.ExpectText(IDC_OUT_WIDTH, "13").ExpectText(IDC_OUT_HEIGHT, "13");
    // The record kept 12.6 pixels: inches come back as typed, not as 1.3.
    d.PickCombo(IDC_OUT_UNITS, kInches).ExpectEnabled(IDC_OUT_HORZRES, true);
    d.ExpectText(IDC_OUT_WIDTH, "1.26");
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 1);
    EXPECT_EQ(tags.Get("BMPHR"), "25400");  // tenths of a micron again after the sheet
    EXPECT_EQ(tags.Get("BMPW"), "1.26");
}

TEST_F(OutputPages, ASizeNotSetStaysEmptyInEveryUnit)
{
    d.WaitControl(IDC_OUT_WIDTH).PickCombo(IDC_OUT_UNITS, kCentimeters);
    d.ExpectText(IDC_OUT_WIDTH, "").ExpectText(IDC_OUT_HEIGHT, "").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 1);
    EXPECT_EQ(tags.Get("BMPUNITS"), "CM");
    EXPECT_EQ(tags.Get("BMPW"), "0");
}

// ------------------------------------------------------- the retrieval

TEST_F(OutputPages, AWidthBelowOnePixelIsRefusedOnlyForTheImageInHand)
{
    std::string told;
    d.WaitControl(IDC_OUT_WIDTH).Type(IDC_OUT_WIDTH, "0.001").PressOk();
    d.AnswerMessageBox(IDOK, "Maximum width", &told);
    d.ExpectPage(0).Type(IDC_OUT_WIDTH, "0.5").PressOk();
    EXPECT_EQ(Run(kRaster, nullptr, 0), 1);
    EXPECT_NE(told.find("must be a number"), std::string::npos) << told;
    EXPECT_EQ(tags.Get("~~~W"), "0.5");

    DialogDriver again;
    again.WaitControl(IDC_OUT_WIDTH).Type(IDC_OUT_WIDTH, "0.001").PressOk();
    const int result = static_cast<int>(again.Run([&] {
        return static_cast<INT_PTR>(
            DoDestOptionsDlg(nullptr, kRaster, tags.tags, "Zavrin", nullptr, formats, "BMP", "BMP", 2, 1, nullptr));
    }));
    EXPECT_EQ(result, 1);
    EXPECT_EQ(tags.Get("BMPW"), "0.001");
}

TEST_F(OutputPages, AnEmptyResolutionCountsAsThreeHundredAndAZeroSwitchesItOff)
{
    tags.Set("BMPXRES", "OFF");
    tags.Set("BMPHR", "2540");
    d.WaitControl(IDC_OUT_HORZRES).SetText(IDC_OUT_HORZRES, "0").SetText(IDC_OUT_VERTRES, "").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 1);
    EXPECT_EQ(tags.Get("BMPXRES"), "OFF");
    EXPECT_EQ(tags.Get("BMPYRES"), "<absent>");
    EXPECT_EQ(tags.Get("BMPHR"), "0");

    // Switched off shows as "0" at the next opening; emptied, it counts as
    // 300 dpi: one inch is 300 pixels.
    DialogDriver again;
    again.WaitControl(IDC_OUT_HORZRES).ExpectText(IDC_OUT_HORZRES, "0").ExpectText(IDC_OUT_VERTRES, "");
    again.Type(IDC_OUT_HEIGHT, "1");
    again.PickCombo(IDC_OUT_UNITS, kPixels).ExpectText(IDC_OUT_HEIGHT, "300");
    again.PickCombo(IDC_OUT_UNITS, kInches).SetText(IDC_OUT_HORZRES, "").PressOk();
    const int result = static_cast<int>(again.Run([&] {
        return static_cast<INT_PTR>(
            DoDestOptionsDlg(nullptr, kRaster, tags.tags, "Zavrin", nullptr, formats, "BMP", "BMP", 2, 1, nullptr));
    }));
    EXPECT_EQ(result, 1);
    EXPECT_EQ(tags.Get("BMPXRES"), "<absent>");
    EXPECT_EQ(tags.Get("BMPHR"), "<absent>");
}

TEST_F(OutputPages, ScalableBitmapsHaveNoResolution)
{
    d.WaitControl(IDC_OUT_FLAVOR).ExpectEnabled(IDC_OUT_HORZRES, true);
    d.PickCombo(IDC_OUT_FLAVOR, "Scalable");
    d.ExpectEnabled(IDC_OUT_HORZRES, false).ExpectEnabled(IDC_OUT_VERTRES, false);
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 1);
    EXPECT_EQ(tags.Get("BMPFLAV"), "Scalable");
    EXPECT_EQ(tags.Get("BMPXRES"), "OFF");
    EXPECT_EQ(tags.Get("BMPYRES"), "OFF");
}

TEST_F(OutputPages, AMacintoshPictureOffersNoSize)
{
    d.WaitControl(IDC_OUT_WIDTH);
    for (int id : {IDC_OUT_WIDTH, IDC_OUT_WIDTH_LABEL, IDC_OUT_HEIGHT, IDC_OUT_HEIGHT_LABEL, IDC_OUT_SCALING,
                   IDC_OUT_SCALING_LABEL, IDC_OUT_UNITS, IDC_OUT_UNITS_LABEL, IDC_OUT_HORZRES,
                   IDC_OUT_HORZRES_LABEL, IDC_OUT_VERTRES, IDC_OUT_VERTRES_LABEL})
        d.ExpectEnabled(id, false);
    d.ExpectEnabled(IDC_OUT_SMOOTH, true).PressCancel();
    EXPECT_EQ(Run(kRaster, "MAC", 2), 0);
}

// ------------------------------------------------- metafiles and switches

TEST_F(OutputPages, AMetafileDestinationShowsItsCurveAndStrokeChoices)
{
    d.WaitControl(IDC_VEC_CURVE);
    d.Do([](HWND sheet) {
        EXPECT_EQ(DialogDriver::TextOf(sheet), "WMF Metafile Processing Options");
        for (int id : {IDC_VEC_CURVE, IDC_VEC_CURVE_LABEL, IDC_VEC_STROKE_FONTS, IDC_VEC_STROKE_LINES,
                       IDC_VEC_STROKE_GRADIENTS})
            EXPECT_TRUE(IsWindowVisible(DialogDriver::FindControl(sheet, id))) << id;
    });
    d.PickCombo(IDC_VEC_CURVE, "Coarse").SetCheck(IDC_VEC_STROKE_FONTS, true).Screenshot("metafile_out_page");
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "WMF", 2), 1);
    EXPECT_EQ(tags.Get("WMFCRV"), "2");
    EXPECT_EQ(tags.Get("WMFSTK"), "ON");
    EXPECT_EQ(tags.Get("BMPWMFSTKLINE"), "OFF");
    EXPECT_EQ(tags.Get("WMFSTKGRAD"), "OFF");
}

TEST_F(OutputPages, ARasterDestinationKeepsThemHiddenAndUnwritten)
{
    d.WaitControl(IDC_OUT_WIDTH).Do([](HWND sheet) {
        EXPECT_EQ(DialogDriver::TextOf(sheet), "PCX Processing Options");
        HWND curve = DialogDriver::FindControl(sheet, IDC_VEC_CURVE);
        EXPECT_TRUE(curve != nullptr && !IsWindowVisible(curve));
    });
    d.ExpectEnabled(IDOK, true).Screenshot("raster_out_page").PressOk();
    EXPECT_EQ(Run(kRaster, "PCX", 2), 1);
    for (const char* key : {"PCXCRV", "PCXSTK", "BMPPCXSTKLINE", "PCXSTKGRAD"})
        EXPECT_EQ(tags.Get(key), "<absent>") << key;
}

TEST_F(OutputPages, GrayscaleAndAllBlackExcludeEachOther)
{
    tags.Set("BMPBMPCOG", "B");
    d.WaitControl(IDC_OUT_GRAYSCALE).ExpectChecked(IDC_OUT_ALLBLACK, true);
    d.Click(IDC_OUT_GRAYSCALE).ExpectChecked(IDC_OUT_ALLBLACK, false).PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 1);
    EXPECT_EQ(tags.Get("BMPBMPCOG"), "G");
}

struct CompressCase {
    unsigned short dlgId;
    const char* destExt;
    int box;
    bool enabled;
};

TEST_F(OutputPages, CompressIsOfferedOnlyWhereTheFormatCompresses)
{
    const CompressCase cases[] = {
        {kRaster, "PCL", IDC_OUT_COMPRESS, true},  {kRaster, "OGF", IDC_OUT_COMPRESS, true},
        {kRaster, "BMP", IDC_OUT_COMPRESS, false}, {kVector, "OGF", IDC_VEC_COMPRESS, true},
        {kVector, "CGM", IDC_VEC_COMPRESS, false}, {kVector, "PCL", IDC_VEC_COMPRESS, false},
    };
    for (const CompressCase& c : cases) {
        DialogDriver run;
        // A stored switch still shows on a disabled box.
        tags.Set((std::string(c.destExt) + "COMP").c_str(), "ON");
        run.WaitControl(c.box).ExpectEnabled(c.box, c.enabled).ExpectChecked(c.box, true).PressCancel();
        run.Run([&] {
            return static_cast<INT_PTR>(DoDestOptionsDlg(nullptr, c.dlgId, tags.tags, "Zavrin", nullptr, formats,
                                                         "BMP", c.destExt, 2, 1, nullptr));
        });
        EXPECT_FALSE(run.Failed()) << c.destExt << " on " << c.dlgId;
    }
}

TEST_F(OutputPages, HelpOpensTheTopicOfTheOutputPagesAndAClickTheControlsOwn)
{
    d.WaitControl(IDC_OUT_WIDTH).SendHelp(IDC_OUT_WIDTH).PressHelp().ContextMenu(IDC_OUT_SMOOTH).Pause(200);
    d.PressCancel();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 0);
    ASSERT_EQ(seams.helpCalls.size(), 3u);
    for (int i : {0, 1}) {
        EXPECT_EQ(seams.helpCalls[i].command, static_cast<UINT>(HELP_CONTEXT));
        EXPECT_EQ(seams.helpCalls[i].data, 1400u);
    }
    EXPECT_EQ(seams.helpCalls[2].command, static_cast<UINT>(HELP_CONTEXTMENU));
}

// ------------------------------------------------------ OK and Cancel

TEST_F(OutputPages, ResolutionsNobodyChangedKeepTheirTextThroughThePage)
{
    // 846 and 847 tenths of a micron show as 300.236407 and 299.881936 dpi,
    // and the way back through either text would not give them again.
    tags.Set("BMPHR", "846");
    tags.Set("BMPVR", "847");
    d.WaitControl(IDC_OUT_WIDTH).ExpectText(IDC_OUT_HORZRES, "300.236407").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 1);
    EXPECT_EQ(tags.Get("BMPHR"), "846");
    EXPECT_EQ(tags.Get("BMPVR"), "847");
}

TEST_F(OutputPages, OkWithThePageNeverLeftWritesItsTagsAndCancelNothing)
{
    d.WaitControl(IDC_OUT_WIDTH).PressCancel();
    EXPECT_EQ(Run(kRaster, "BMP", 2), 0);
    TagSearch* search = ZvOpenTagSearch(tags.tags, "");
    EXPECT_EQ(ZvTagSearch(search), nullptr) << "Cancel left a tag behind";
    delete search;

    DialogDriver ok;
    ok.WaitControl(IDC_OUT_WIDTH).SetCheck(IDC_OUT_MEMORIZE, true).PressOk();
    ok.Run([&] {
        return static_cast<INT_PTR>(
            DoDestOptionsDlg(nullptr, kRaster, tags.tags, "Zavrin", nullptr, formats, "BMP", "BMP", 2, 1, nullptr));
    });
    EXPECT_EQ(tags.Get("BMPUNITS"), "IN");
    EXPECT_EQ(tags.Get("BMPSCALING"), "Fit in Frame");
    EXPECT_EQ(tags.Get("BMPA"), "1");
    EXPECT_EQ(tags.Get("BMPBMPCOG"), "C");
    EXPECT_EQ(tags.Get("MEMORIZE"), "ON");
}

// ------------------------------------------------------ the vector page

TEST_F(OutputPages, TheVectorPageRoundsAtEachChangeOfUnit)
{
    tags.Set("CGMW", "1.234");
    d.WaitControl(IDC_VEC_WIDTH).ExpectText(IDC_VEC_WIDTH, "1.234").ExpectText(IDC_VEC_HEIGHT, "");
    d.PickCombo(IDC_VEC_UNITS, kCentimeters).ExpectText(IDC_VEC_WIDTH, "3.13");
    d.PickCombo(IDC_VEC_UNITS, kInches).ExpectText(IDC_VEC_WIDTH, "1.23");
    // No link: the height stays as it is.
    d.Type(IDC_VEC_HEIGHT, "7").ExpectText(IDC_VEC_WIDTH, "1.23");
    d.Screenshot("vector_out_page").PressOk();
    EXPECT_EQ(Run(kVector, "CGM", 2, nullptr, "WMF", 3), 1);
    EXPECT_EQ(tags.Get("CGMW"), "1.23");
    EXPECT_EQ(tags.Get("CGMH"), "7");
    EXPECT_EQ(tags.Get("CGMUNITS"), "IN");
}

// ------------------------------------------------------ the 3D page

TEST_F(OutputPages, TheEntityPageWritesNoSizeOfItsOwn)
{
    d.WaitControl(IDC_OUT_UNITS).PickCombo(IDC_OUT_UNITS, kCentimeters);
    d.Screenshot("entity_out_page").PressOk();
    EXPECT_EQ(Run(kEntity, "DXF", 2, nullptr, "DXF", 6), 1);
    EXPECT_EQ(tags.Get("DXFUNITS"), "CM");
    EXPECT_EQ(tags.Get("DXFDISTORT"), "OFF");
    EXPECT_EQ(tags.Get("DXFW"), "<absent>");
    EXPECT_EQ(tags.Get("DXFH"), "<absent>");
}

// --------------------------------------------- what the tags ask of an image

struct ResizeCase {
    const char* mode;
    std::function<void(DialogDriver&)> type;
    long width, height;
};

// The size that DoOptions gives a 600 x 300 image (300 dpi) from the tags
// that the page left, one scaling mode after another.
TEST_F(OutputPages, TheTagsThePageLeavesResizeTheImageAsTheModeSays)
{
    const ResizeCase cases[] = {
        {"Fit in Frame", [](DialogDriver& r) { r.Type(IDC_OUT_WIDTH, "4"); }, 1200, 600},
        {"Fit in Width", [](DialogDriver& r) { r.Type(IDC_OUT_WIDTH, "3"); }, 900, 450},
        {"Fit in Height", [](DialogDriver& r) { r.Type(IDC_OUT_HEIGHT, "3"); }, 1800, 900},
        {"Distort to Frame", [](DialogDriver& r) { r.Type(IDC_OUT_WIDTH, "4").Type(IDC_OUT_HEIGHT, "3"); }, 1200, 900},
        {"Distort Aspect Ratio", [](DialogDriver& r) { r.Type(IDC_OUT_ASPECT, "2"); }, 1200, 300},
        {"Maintain Aspect Ratio", [](DialogDriver& r) { r.Type(IDC_OUT_WIDTH, "1"); }, 300, 150},
    };
    for (const ResizeCase& c : cases) {
        Dewey* source = WideImage();
        DialogDriver run;
        run.WaitControl(IDC_OUT_SCALING).PickCombo(IDC_OUT_SCALING, c.mode);
        c.type(run);
        run.PressOk();
        const int result = static_cast<int>(run.Run([&] {
            return static_cast<INT_PTR>(DoDestOptionsDlg(nullptr, kRaster, tags.tags, "Zavrin", nullptr, formats,
                                                         "BMP", "PCX", 2, 1, source));
        }));
        ASSERT_EQ(result, 1) << c.mode;
        Dewey* image = WideImage();
        EXPECT_EQ(DoOptions(image, tags.tags, "BMP", "PCX", formats), 0) << c.mode;
        long w = 0, h = 0;
        image->GetInfo(&w, &h, nullptr, nullptr, nullptr);
        EXPECT_EQ(w, c.width) << c.mode;
        EXPECT_EQ(h, c.height) << c.mode;
        delete image;
        delete source;
    }
}

TEST_F(OutputPages, TheDisplayModesOfTheImageInHandResizeAsTheirFrames)
{
    d.WaitControl(IDC_OUT_SCALING).PickCombo(IDC_OUT_SCALING, "Fit in Display");
    d.Type(IDC_OUT_WIDTH, "4").Type(IDC_OUT_HEIGHT, "1").PressOk();
    Dewey* image = WideImage();
    EXPECT_EQ(Run(kRaster, nullptr, 0, image), 1);
    long w = 0, h = 0;
    EXPECT_EQ(CalculateResize(tags.tags, "~~~", 600, 300, &w, &h), 1);
    EXPECT_EQ(w, 600);  // 4 x 1 inches linked to 2 x 1: the frame is 600 x 300
    EXPECT_EQ(h, 300);

    DialogDriver again;
    again.WaitControl(IDC_OUT_SCALING).PickCombo(IDC_OUT_SCALING, "Fit in Display Width");
    again.ExpectEnabled(IDC_OUT_HEIGHT, false).Type(IDC_OUT_WIDTH, "1").PressOk();
    again.Run([&] {
        return static_cast<INT_PTR>(
            DoDestOptionsDlg(nullptr, kRaster, tags.tags, "Zavrin", nullptr, formats, "BMP", nullptr, 0, 1, image));
    });
    EXPECT_EQ(CalculateResize(tags.tags, "~~~", 600, 300, &w, &h), 1);
    EXPECT_EQ(w, 300);
    EXPECT_EQ(h, 150);
    delete image;
}

}  // namespace
