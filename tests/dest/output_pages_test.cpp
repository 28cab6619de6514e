// The raster, vector and 3D output pages in a destination's sheet, driven
// as a user drives them: what the edits show while typing, what is enabled,
// and what the tags hold when the sheet has closed.
#include <gtest/gtest.h>

#include <string>

#include "host_dialogs.h"
#include "output_ids.h"
#include "ravicli.h"

namespace zvtest {
namespace {

constexpr unsigned short kRaster = IDD_RASTER_OUT;
constexpr unsigned short kVector = IDD_VECTOR_OUT;
constexpr unsigned short kEntity = IDD_ENTITY_OUT;

// Entries of the units list.
const std::string kInches = "Inches", kCentimeters = "Centimeters", kPixels = "Pixels", kMultiples = "Multiples";

// 600 x 300 pixels; the horizontal pitch 846 and the vertical 847 both
// stand for 300 dpi, so the picture is twice as wide as high.
struct WideImage : Dewey {
    WideImage()
    {
        CreateRaster(600, 300, 24);
        GetDib()->biXPelsPerMeter = 11820;  // 846 tenths of a micron per pixel
        GetDib()->biYPelsPerMeter = 11806;  // 847
    }
};

using OutputPages = DestSheetTest;

// ------------------------------------------------------------ the link

TEST_F(OutputPages, TypingAWidthFillsTheHeightThroughTheImagesAspect)
{
    WideImage image;
    // No size in the tags: the edits start empty, but the image's ratio
    // links the first number typed.
    d.WaitControl(IDC_OUT_WIDTH).ExpectText(IDC_OUT_WIDTH, "").ExpectText(IDC_OUT_ASPECT, "1");
    d.Type(IDC_OUT_WIDTH, "4").ExpectText(IDC_OUT_HEIGHT, "2");
    d.Type(IDC_OUT_HEIGHT, "3").ExpectText(IDC_OUT_WIDTH, "6");
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2, &image), 1);
    EXPECT_EQ(Tag("BMPW"), "6");
    EXPECT_EQ(Tag("BMPH"), "3");
    EXPECT_EQ(Tag("BMPUNITS"), "IN");
    EXPECT_EQ(Tag("BMPSCALING"), "Fit in Frame");
    EXPECT_EQ(Tag("BMPDISTORT"), "OFF");
}

TEST_F(OutputPages, DistortingModesLeaveTheOtherSideAloneAndFitInWidthStillFollows)
{
    Set("BMPW", "2");
    Set("BMPH", "2");
    d.WaitControl(IDC_OUT_WIDTH).PickCombo(IDC_OUT_SCALING, "Distort to Frame");
    d.ExpectEnabled(IDC_OUT_ASPECT, false).ExpectText(IDC_OUT_ASPECT, "");
    d.Type(IDC_OUT_WIDTH, "5").ExpectText(IDC_OUT_HEIGHT, "2");
    d.PickCombo(IDC_OUT_SCALING, "Fit in Width").ExpectEnabled(IDC_OUT_HEIGHT, false);
    d.ExpectText(IDC_OUT_ASPECT, "1");
    d.Type(IDC_OUT_WIDTH, "3").ExpectText(IDC_OUT_HEIGHT, "3");
    d.PickCombo(IDC_OUT_SCALING, "Distort to Frame").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPDISTORT"), "ON");
    EXPECT_EQ(Tag("BMPW"), "3");
    EXPECT_EQ(Tag("BMPH"), "3");
}

TEST_F(OutputPages, MultiplesLinkOneToOneAndLeavingThemRestoresTheRealSize)
{
    WideImage image;
    d.WaitControl(IDC_OUT_WIDTH).Type(IDC_OUT_WIDTH, "3").ExpectText(IDC_OUT_HEIGHT, "1.5");
    d.PickCombo(IDC_OUT_UNITS, kMultiples);
    d.ExpectEnabled(IDC_OUT_ASPECT, false).ExpectText(IDC_OUT_ASPECT, "");
    d.Type(IDC_OUT_WIDTH, "2").ExpectText(IDC_OUT_HEIGHT, "2");
    // Back to inches from the pixels last known, not from the 2.
    d.PickCombo(IDC_OUT_UNITS, kInches).ExpectText(IDC_OUT_WIDTH, "3").ExpectText(IDC_OUT_HEIGHT, "1.5");
    d.PickCombo(IDC_OUT_UNITS, kMultiples).Type(IDC_OUT_WIDTH, "2").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP", 2, &image), 1);
    EXPECT_EQ(Tag("BMPUNITS"), "MULT");
    EXPECT_EQ(Tag("BMPW"), "2");
    EXPECT_EQ(Tag("BMPH"), "2");
    EXPECT_EQ(Tag("BMPA"), "<absent>");
}

TEST_F(OutputPages, PixelsDisableTheResolutionsAndShowWholeNumbersOverAnExactRecord)
{
    Set("BMPHR", "25400");  // 10 dpi, in tenths of a micron between dialogs
    Set("BMPVR", "25400");
    d.WaitControl(IDC_OUT_WIDTH).ExpectText(IDC_OUT_HORZRES, "10");
    d.Do([this](HWND) { EXPECT_EQ(Tag("BMPHR"), "10"); });  // dots per inch while the page lives
    d.Type(IDC_OUT_WIDTH, "1.26").ExpectText(IDC_OUT_HEIGHT, "1.26");
    d.PickCombo(IDC_OUT_UNITS, kPixels);
    d.ExpectEnabled(IDC_OUT_HORZRES, false).ExpectEnabled(IDC_OUT_VERTRES_LABEL, false);
    d.ExpectText(IDC_OUT_WIDTH, "13").ExpectText(IDC_OUT_HEIGHT, "13");
    // The record kept 12.6 pixels: inches come back as typed, not as 1.3.
    d.PickCombo(IDC_OUT_UNITS, kInches).ExpectEnabled(IDC_OUT_HORZRES, true);
    d.ExpectText(IDC_OUT_WIDTH, "1.26");
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPHR"), "25400");  // tenths of a micron again after the sheet
    EXPECT_EQ(Tag("BMPW"), "1.26");
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
    EXPECT_EQ(Tag("~~~W"), "0.5");

    d.WaitControl(IDC_OUT_WIDTH).Type(IDC_OUT_WIDTH, "0.001").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPW"), "0.001");
}

TEST_F(OutputPages, AnEmptyResolutionCountsAsThreeHundredAndAZeroSwitchesItOff)
{
    Set("BMPXRES", "OFF");
    Set("BMPHR", "2540");
    d.WaitControl(IDC_OUT_HORZRES).SetText(IDC_OUT_HORZRES, "0").SetText(IDC_OUT_VERTRES, "").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPXRES"), "OFF");
    EXPECT_EQ(Tag("BMPYRES"), "<absent>");
    EXPECT_EQ(Tag("BMPHR"), "0");

    // Switched off shows as "0" at the next opening; emptied, it counts as
    // 300 dpi: one inch is 300 pixels.
    d.WaitControl(IDC_OUT_HORZRES).ExpectText(IDC_OUT_HORZRES, "0").ExpectText(IDC_OUT_VERTRES, "");
    d.Type(IDC_OUT_HEIGHT, "1");
    d.PickCombo(IDC_OUT_UNITS, kPixels).ExpectText(IDC_OUT_HEIGHT, "300");
    d.PickCombo(IDC_OUT_UNITS, kInches).SetText(IDC_OUT_HORZRES, "").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPXRES"), "<absent>");
    EXPECT_EQ(Tag("BMPHR"), "<absent>");
}

TEST_F(OutputPages, ScalableBitmapsHaveNoResolutionAndMacintoshPicturesNoSize)
{
    d.WaitControl(IDC_OUT_FLAVOR).ExpectEnabled(IDC_OUT_HORZRES, true);
    d.PickCombo(IDC_OUT_FLAVOR, "Scalable");
    d.ExpectEnabled(IDC_OUT_HORZRES, false).ExpectEnabled(IDC_OUT_VERTRES, false);
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPFLAV"), "Scalable");
    EXPECT_EQ(Tag("BMPXRES"), "OFF");
    EXPECT_EQ(Tag("BMPYRES"), "OFF");

    d.WaitControl(IDC_OUT_WIDTH);
    for (int id : {IDC_OUT_WIDTH, IDC_OUT_HEIGHT_LABEL, IDC_OUT_SCALING, IDC_OUT_UNITS, IDC_OUT_VERTRES})
        d.ExpectEnabled(id, false);
    d.ExpectEnabled(IDC_OUT_SMOOTH, true).PressCancel();
    EXPECT_EQ(Run(kRaster, "MAC"), 0);
}

// ------------------------------------------------- metafiles and switches

TEST_F(OutputPages, OnlyAMetafileDestinationShowsAndWritesItsCurveAndStrokeChoices)
{
    d.WaitControl(IDC_VEC_CURVE).Do([](HWND sheet) {
        EXPECT_EQ(DialogDriver::TextOf(sheet), "WMF Metafile Processing Options");
        for (int id : {IDC_VEC_CURVE_LABEL, IDC_VEC_STROKE_FONTS, IDC_VEC_STROKE_LINES, IDC_VEC_STROKE_GRADIENTS})
            EXPECT_TRUE(IsWindowVisible(DialogDriver::FindControl(sheet, id))) << id;
    });
    d.PickCombo(IDC_VEC_CURVE, "Coarse").SetCheck(IDC_VEC_STROKE_FONTS, true).Screenshot("metafile_out_page");
    d.PressOk();
    EXPECT_EQ(Run(kRaster, "WMF"), 1);
    EXPECT_EQ(Tag("WMFCRV"), "2");
    EXPECT_EQ(Tag("WMFSTK"), "ON");
    EXPECT_EQ(Tag("BMPWMFSTKLINE"), "OFF");
    EXPECT_EQ(Tag("WMFSTKGRAD"), "OFF");

    d.WaitControl(IDC_OUT_WIDTH).Do([](HWND sheet) {
        EXPECT_EQ(DialogDriver::TextOf(sheet), "PCX Processing Options");
        EXPECT_FALSE(IsWindowVisible(DialogDriver::FindControl(sheet, IDC_VEC_CURVE)));
    });
    d.Screenshot("raster_out_page").PressOk();
    EXPECT_EQ(Run(kRaster, "PCX"), 1);
    for (const char* key : {"PCXCRV", "PCXSTK", "BMPPCXSTKLINE", "PCXSTKGRAD"})
        EXPECT_EQ(Tag(key), "<absent>") << key;
}

TEST_F(OutputPages, GrayscaleAndAllBlackExcludeEachOther)
{
    Set("BMPBMPCOG", "B");
    d.WaitControl(IDC_OUT_GRAYSCALE).ExpectChecked(IDC_OUT_ALLBLACK, true);
    d.Click(IDC_OUT_GRAYSCALE).ExpectChecked(IDC_OUT_ALLBLACK, false).PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPBMPCOG"), "G");
}

TEST_F(OutputPages, CompressIsOfferedOnlyWhereTheFormatCompresses)
{
    struct Case {
        unsigned short page;
        const char* destExt;
        int box;
        bool enabled;
    };
    for (const Case& c : {Case{kRaster, "PCL", IDC_OUT_COMPRESS, true}, Case{kRaster, "BMP", IDC_OUT_COMPRESS, false},
                          Case{kVector, "OGF", IDC_VEC_COMPRESS, true},
                          Case{kVector, "CGM", IDC_VEC_COMPRESS, false}}) {
        // A stored switch still shows on a disabled box.
        Set((std::string(c.destExt) + "COMP").c_str(), "ON");
        d.WaitControl(c.box).ExpectEnabled(c.box, c.enabled).ExpectChecked(c.box, true).PressCancel();
        Run(c.page, c.destExt);
    }
}

TEST_F(OutputPages, HelpOpensTheTopicOfTheOutputPagesAndAClickTheControlsOwn)
{
    d.WaitControl(IDC_OUT_WIDTH).SendHelp(IDC_OUT_WIDTH).PressHelp().ContextMenu(IDC_OUT_SMOOTH);
    d.WaitUntil("three help calls", [this] { return seams.helpCalls.size() == 3; }).PressCancel();
    EXPECT_EQ(Run(kRaster, "BMP"), 0);
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
    Set("BMPHR", "846");
    Set("BMPVR", "847");
    d.WaitControl(IDC_OUT_WIDTH).ExpectText(IDC_OUT_HORZRES, "300.236407").PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPHR"), "846");
    EXPECT_EQ(Tag("BMPVR"), "847");
}

TEST_F(OutputPages, OkWithThePageNeverLeftWritesItsTagsAndCancelNothing)
{
    d.WaitControl(IDC_OUT_WIDTH).PickCombo(IDC_OUT_UNITS, kCentimeters).PressCancel();
    EXPECT_EQ(Run(kRaster, "BMP"), 0);
    TagSearch* search = ZvOpenTagSearch(&tags, "");
    EXPECT_EQ(ZvTagSearch(search), nullptr) << "Cancel left a tag behind";
    delete search;

    // A size not set stays empty in every unit.
    d.WaitControl(IDC_OUT_WIDTH).PickCombo(IDC_OUT_UNITS, kCentimeters).ExpectText(IDC_OUT_WIDTH, "");
    d.SetCheck(IDC_OUT_MEMORIZE, true).PressOk();
    EXPECT_EQ(Run(kRaster, "BMP"), 1);
    EXPECT_EQ(Tag("BMPUNITS"), "CM");
    EXPECT_EQ(Tag("BMPW"), "0");
    EXPECT_EQ(Tag("BMPSCALING"), "Fit in Frame");
    EXPECT_EQ(Tag("BMPA"), "1");
    EXPECT_EQ(Tag("BMPBMPCOG"), "C");
    EXPECT_EQ(Tag("MEMORIZE"), "ON");
}

// ------------------------------------------------ the vector and 3D pages

TEST_F(OutputPages, TheVectorPageRoundsAtEachChangeOfUnit)
{
    Set("CGMW", "1.234");
    d.WaitControl(IDC_VEC_WIDTH).ExpectText(IDC_VEC_WIDTH, "1.234").ExpectText(IDC_VEC_HEIGHT, "");
    d.PickCombo(IDC_VEC_UNITS, kCentimeters).ExpectText(IDC_VEC_WIDTH, "3.13");
    d.PickCombo(IDC_VEC_UNITS, kInches).ExpectText(IDC_VEC_WIDTH, "1.23");
    // No link: the height stays as it is.
    d.Type(IDC_VEC_HEIGHT, "7").ExpectText(IDC_VEC_WIDTH, "1.23");
    d.Screenshot("vector_out_page").PressOk();
    EXPECT_EQ(Run(kVector, "CGM", 2, nullptr, "WMF", 3), 1);
    EXPECT_EQ(Tag("CGMW"), "1.23");
    EXPECT_EQ(Tag("CGMH"), "7");
    EXPECT_EQ(Tag("CGMUNITS"), "IN");
}

TEST_F(OutputPages, TheEntityPageWritesNoSizeOfItsOwn)
{
    d.WaitControl(IDC_OUT_UNITS).PickCombo(IDC_OUT_UNITS, kCentimeters);
    d.Screenshot("entity_out_page").PressOk();
    EXPECT_EQ(Run(kEntity, "DXF", 2, nullptr, "DXF", 6), 1);
    EXPECT_EQ(Tag("DXFUNITS"), "CM");
    EXPECT_EQ(Tag("DXFDISTORT"), "OFF");
    EXPECT_EQ(Tag("DXFW"), "<absent>");
}

}  // namespace
}  // namespace zvtest
