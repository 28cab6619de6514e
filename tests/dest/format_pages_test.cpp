// The pages of single formats (TIFF with its custom flavours, GIF, ICO,
// JPEG, EPS, fax) in a destination's sheet, driven as a user drives them;
// what the tags hold when the sheet has closed.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "format_page_ids.h"
#include "host_dialogs.h"
#include "output_ids.h"

namespace zvtest {
namespace {

using FormatPages = DestSheetTest;

// A flavour definition as other parts of the suite leave it.
class FlavourKey {
public:
    FlavourKey(const char* name, const char* definition)
        : path_(std::string("Zavrin.Image\\Formats\\TIF\\Flavors\\") + name)
    {
        RegSetValueA(HKEY_CLASSES_ROOT, path_.c_str(), REG_SZ, definition, 0);
    }
    ~FlavourKey() { RegDeleteKeyA(HKEY_CLASSES_ROOT, path_.c_str()); }

private:
    std::string path_;
};

std::vector<std::string> ComboItems(HWND sheet, int id)
{
    HWND combo = DialogDriver::FindControl(sheet, id);
    std::vector<std::string> items;
    int count = static_cast<int>(SendMessageA(combo, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        char text[256] = {};
        SendMessageA(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
        items.push_back(text);
    }
    return items;
}

int ComboSelection(HWND sheet, int id)
{
    return static_cast<int>(SendMessageA(DialogDriver::FindControl(sheet, id), CB_GETCURSEL, 0, 0));
}

// A small RGB TIFF, LZW with a predictor, in strips of two rows, in the
// sample folder (the file dialog's current folder).
std::string WriteSample(const std::string& name, bool valid = true)
{
    static const unsigned char kTiff[] = {
        0x49, 0x49, 0x2a, 0x00, 0x08, 0x00, 0x00, 0x00, 0x0c, 0x00, 0x00, 0x01, 0x03, 0x00, 0x01, 0x00, 0x00, 0x00,
        0x04, 0x00, 0x00, 0x00, 0x01, 0x01, 0x03, 0x00, 0x01, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x02, 0x01,
        0x03, 0x00, 0x03, 0x00, 0x00, 0x00, 0x9e, 0x00, 0x00, 0x00, 0x03, 0x01, 0x03, 0x00, 0x01, 0x00, 0x00, 0x00,
        0x05, 0x00, 0x00, 0x00, 0x06, 0x01, 0x03, 0x00, 0x01, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x11, 0x01,
        0x04, 0x00, 0x01, 0x00, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00, 0x15, 0x01, 0x03, 0x00, 0x01, 0x00, 0x00, 0x00,
        0x03, 0x00, 0x00, 0x00, 0x16, 0x01, 0x03, 0x00, 0x01, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x17, 0x01,
        0x04, 0x00, 0x01, 0x00, 0x00, 0x00, 0x18, 0x00, 0x00, 0x00, 0x1a, 0x01, 0x05, 0x00, 0x01, 0x00, 0x00, 0x00,
        0xa4, 0x00, 0x00, 0x00, 0x1c, 0x01, 0x03, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x3d, 0x01,
        0x03, 0x00, 0x01, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x08, 0x00, 0x08, 0x00,
        0x08, 0x00, 0x48, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00};
    std::string path = TempFolder() + "\\" + name;
    std::ofstream out(path, std::ios::binary);
    if (valid)
        out.write(reinterpret_cast<const char*>(kTiff), sizeof kTiff);
    else
        out << "not a TIFF at all";
    return path;
}

constexpr char kSampleType[] = "COMP=5;PHOTO=2;BPS=8;SPP=3;FILL=1;PLANAR=1;PRED=2;STRIPS=2";
constexpr int kFileName = 1152;
constexpr int kFlavorName = 3501;

// ------------------------------------------------------------------ TIFF

TEST_F(FormatPages, TiffListsBuiltInThenCustomFlavoursAndStoresWhatEachKindStores)
{
    FlavourKey ami("Ami", "COMP=1;PHOTO=2");
    Set("TIF_Zeta", "COMP=4");
    Set("TIF_Alpha", "COMP=32773");
    // A stale flavour name selects the first entry.
    Set("TIFFLAV", "Gone");
    d.WaitControl(IDC_OUT_FLAVOR).Do([](HWND sheet) {
        auto items = ComboItems(sheet, IDC_OUT_FLAVOR);
        ASSERT_GE(items.size(), 3u);
        EXPECT_EQ(items[items.size() - 2], "Alpha");
        EXPECT_EQ(items.back(), "Zeta");
        EXPECT_EQ(items[0], "Standard");
        EXPECT_EQ(ComboSelection(sheet, IDC_OUT_FLAVOR), 0);
    });
    d.Screenshot("tif_out_page").PickCombo(IDC_OUT_FLAVOR, "Zeta").PressOk();
    EXPECT_EQ(Run(IDD_TIF_OUT, "TIF"), 1);
    EXPECT_EQ(Tag("TIFTYPE"), "COMP=4");
    EXPECT_EQ(Tag("TIFFLAV"), "Gone");

    // A stored custom name is selected again; a built-in one sets both tags.
    Set("TIFFLAV", "zeta");
    d.WaitControl(IDC_OUT_FLAVOR).Do([](HWND sheet) {
        EXPECT_EQ(ComboItems(sheet, IDC_OUT_FLAVOR)[ComboSelection(sheet, IDC_OUT_FLAVOR)], "Zeta");
    });
    d.PickCombo(IDC_OUT_FLAVOR, "Ami").PressOk();
    EXPECT_EQ(Run(IDD_TIF_OUT, "TIF"), 1);
    EXPECT_EQ(Tag("TIFFLAV"), "Ami");
    EXPECT_EQ(Tag("TIFTYPE"), "COMP=1;PHOTO=2");
}

TEST_F(FormatPages, ACustomFlavourComesFromANamedSampleAndABadSampleAddsNothing)
{
    WriteSample("sample.tif");
    WriteSample("broken.tif", false);
    SetCurrentDirectoryA(TempFolder().c_str());
    Set("OPENDIR", TempFolder().c_str());

    d.WaitControl(IDC_TIF_CUSTOM).Click(IDC_TIF_CUSTOM).WaitWindow("Custom TIFF");
    // A pattern filters the list and opens no name dialog.
    d.Type(kFileName, "*.tif").PressOk().WaitHandled().Screenshot("tiff_custom_dialog");
    d.Do([](HWND) { EXPECT_EQ(FindWindowA(nullptr, "TIFF Custom Flavors"), nullptr); });
    d.Type(kFileName, "broken.tif").PressOk().WaitWindow("TIFF Custom Flavors").Type(kFlavorName, "Broken");
    d.PressOk().WaitControl(IDC_TIF_CUSTOM).Click(IDC_TIF_CUSTOM).WaitWindow("Custom TIFF");
    d.Type(kFileName, "sample.tif").PressOk().WaitWindow("TIFF Custom Flavors").Type(kFlavorName, "Mine").PressOk();
    d.WaitControl(IDC_OUT_FLAVOR).Do([](HWND sheet) {
        auto items = ComboItems(sheet, IDC_OUT_FLAVOR);
        EXPECT_EQ(items[ComboSelection(sheet, IDC_OUT_FLAVOR)], "Mine");
        EXPECT_EQ(std::count(items.begin(), items.end(), "Broken"), 0);
    });
    d.PressOk();
    EXPECT_EQ(Run(IDD_TIF_OUT, "TIF"), 1);
    ASSERT_EQ(seams.messageBoxes.size(), 1u);
    EXPECT_EQ(seams.messageBoxes[0].text, "Invalid TIFF file.");
    EXPECT_EQ(seams.messageBoxes[0].caption, "Zavrin");
    EXPECT_EQ(seams.messageBoxes[0].type, static_cast<UINT>(MB_ICONHAND));
    EXPECT_EQ(Tag("TIF_Broken"), "<absent>");
    EXPECT_EQ(Tag("TIF_Mine"), kSampleType);
    EXPECT_EQ(Tag("TIFFLAV"), "Mine");
    EXPECT_EQ(Tag("TIFTYPE"), kSampleType);
}

// ------------------------------------------------------- GIF, ICO, JPEG

TEST_F(FormatPages, GifWritesInterlaceAndTransparencyAndCarriesMultiPage)
{
    Set("GIFMPAGE", "ON");
    d.WaitControl(IDC_GIF_INTERLACE).ExpectChecked(IDC_GIF_TRANS_NONE, true).Do([](HWND sheet) {
        EXPECT_FALSE(IsWindowVisible(DialogDriver::FindControl(sheet, IDC_GIF_MPAGE)));
    });
    d.SetCheck(IDC_GIF_INTERLACE, true).Click(IDC_GIF_TRANS_WHITE).Screenshot("gif_out_page").PressOk();
    EXPECT_EQ(Run(IDD_GIF_OUT, "GIF"), 1);
    EXPECT_EQ(Tag("GIFINT"), "ON");
    EXPECT_EQ(Tag("GIFTRANS"), "WHITE");
    EXPECT_EQ(Tag("GIFMPAGE"), "ON");
}

TEST_F(FormatPages, IconSizeBecomesThePixelSizeAndDefaultsToThirtyTwo)
{
    d.WaitControl(IDC_ICO_SIZE).Do([this](HWND sheet) {
        EXPECT_EQ(Tag("ICOSIZE"), "32 x 32");
        EXPECT_EQ(ComboItems(sheet, IDC_ICO_SIZE)[ComboSelection(sheet, IDC_ICO_SIZE)], "32 x 32");
    });
    d.PickCombo(IDC_ICO_SIZE, "48 x 48").Screenshot("ico_out_page").PressOk();
    EXPECT_EQ(Run(IDD_ICO_OUT, "ICO"), 1);
    EXPECT_EQ(Tag("ICOSIZE"), "48 x 48");
    EXPECT_EQ(Tag("ICOW"), "48");
    EXPECT_EQ(Tag("ICOH"), "48");
    EXPECT_EQ(Tag("ICOUNITS"), "PIX");
}

TEST_F(FormatPages, JpegQualityStartsAtTwentyAndAValueOutOfRangeKeepsThePage)
{
    std::string told;
    d.WaitControl(IDC_JPG_QUALITY).ExpectText(IDC_JPG_QUALITY, "20").Do([this](HWND sheet) {
        EXPECT_EQ(Tag("JPGQ"), "20");
        EXPECT_EQ(SendMessageA(DialogDriver::FindControl(sheet, IDC_JPG_QUALITY_BAR), TBM_GETPOS, 0, 0), 20);
    });
    d.Type(IDC_JPG_QUALITY, "300").Do([](HWND sheet) {
        // The edit moves the bar at once; the bar stops at its end.
        EXPECT_EQ(SendMessageA(DialogDriver::FindControl(sheet, IDC_JPG_QUALITY_BAR), TBM_GETPOS, 0, 0), 255);
    });
    d.PressOk().AnswerMessageBox(IDOK, "Quality", &told);
    d.ExpectPage(0).Type(IDC_JPG_QUALITY, "75").Screenshot("jpg_out_page").PressOk();
    EXPECT_EQ(Run(IDD_JPG_OUT, "JPG"), 1);
    EXPECT_EQ(Tag("JPGQ"), "75");
}

// ------------------------------------------------------------------- EPS

TEST_F(FormatPages, EpsOffersByTheSourceAndKeepsGrayReplacementAsAFraction)
{
    // A raster source: RGB without a model tag, gray replacement off until
    // CMYK is chosen; the fraction shows as a percentage.
    Set("EPSUCR", "0.25");
    d.WaitControl(IDC_EPS_UCR).ExpectChecked(IDC_EPS_RGB, true).ExpectEnabled(IDC_EPS_UCR, false);
    d.ExpectText(IDC_EPS_UCR, "25").ExpectEnabled(IDC_VEC_CURVE, false).Do([](HWND sheet) {
        char caption[128] = {};
        GetWindowTextA(PropSheet_GetCurrentPageHwnd(sheet), caption, sizeof caption);
        EXPECT_STREQ(caption, "EPS Raster Processing Options");
    });
    d.Screenshot("eps_out_page_raster").Click(IDC_EPS_CMYK).ExpectEnabled(IDC_EPS_UCR, true);
    d.Type(IDC_EPS_UCR, "40").PickCombo(IDC_EPS_VIEW, "Fine Color TIFF").SetCheck(IDC_EPS_FORMFEED, true).PressOk();
    EXPECT_EQ(Run(IDD_EPS_OUT, "EPS"), 1);
    EXPECT_EQ(Tag("EPSMODEL"), "CMYK");
    EXPECT_EQ(Tag("EPSUCR"), "0.4");
    EXPECT_EQ(Tag("EPSEMBVIEW"), "FINECOLOR");
    EXPECT_EQ(Tag("EPSFF"), "ON");

    // A vector source: always CMYK, never smoothed, curves offered.
    Set("EPSMODEL", "RGB");
    d.WaitControl(IDC_EPS_UCR).ExpectChecked(IDC_EPS_CMYK, true).ExpectEnabled(IDC_EPS_RGB, false);
    d.ExpectEnabled(IDC_EPS_UCR, true).ExpectEnabled(IDC_OUT_SMOOTH, false).ExpectEnabled(IDC_VEC_CURVE, true);
    d.Type(IDC_EPS_UCR, "101").Screenshot("eps_out_page_vector").PressOk().AnswerMessageBox(IDOK, "Gray");
    d.ExpectPage(0).Type(IDC_EPS_UCR, "100").PickCombo(IDC_VEC_CURVE, "Coarse").PressOk();
    EXPECT_EQ(Run(IDD_EPS_OUT, "EPS", 2, nullptr, "CGM", 2), 1);
    EXPECT_EQ(Tag("EPSMODEL"), "CMYK");
    EXPECT_EQ(Tag("EPSUCR"), "1");
    EXPECT_EQ(Tag("EPSCURVE"), "Coarse");

    // A metafile source: the model is free again, curves offered.
    d.WaitControl(IDC_EPS_UCR).ExpectEnabled(IDC_EPS_RGB, true).ExpectEnabled(IDC_VEC_CURVE, true);
    d.Screenshot("eps_out_page_metafile").PressOk();
    EXPECT_EQ(Run(IDD_EPS_OUT, "EPS", 2, nullptr, "WMF", 3), 1);
}

// ------------------------------------------------------------------- fax

TEST_F(FormatPages, FaxResolutionsRescaleAPixelHeightAndAreStoredAsPitches)
{
    // A DCX without a choice opens on Fine; pixel heights follow the button.
    Set("DCXUNITS", "PIX");
    d.WaitControl(IDC_FAX_FINE).ExpectChecked(IDC_FAX_FINE, true).Type(IDC_OUT_HEIGHT, "1960");
    d.Click(IDC_FAX_COARSE).ExpectText(IDC_OUT_HEIGHT, "980");
    d.Click(IDC_FAX_FINE).ExpectText(IDC_OUT_HEIGHT, "1960").Click(IDC_FAX_COARSE);
    // The horizontal offset may be negative down to -150, the vertical not.
    d.Type(IDC_FAX_HOFF, "-151").PressOk().AnswerMessageBox(IDOK, "Horizontal");
    d.Type(IDC_FAX_HOFF, "-150").Type(IDC_FAX_VOFF, "-1").PressOk().AnswerMessageBox(IDOK, "Vertical");
    d.Type(IDC_FAX_VOFF, "150").SetCheck(IDC_FAX_MPAGE, true).Screenshot("fax_out_page").PressOk();
    EXPECT_EQ(Run(IDD_FAX_OUT, "DCX"), 1);
    EXPECT_EQ(Tag("DCXCF"), "3207");
    EXPECT_EQ(Tag("DCXHOFF"), "-150");
    EXPECT_EQ(Tag("DCXVOFF"), "150");
    EXPECT_EQ(Tag("DCXMPAGE"), "ON");
    EXPECT_EQ(Tag("DCXHR"), "1245");
    EXPECT_EQ(Tag("DCXVR"), "2592");

    // The stored choice wins over the kind; a kind of the host's other
    // than DCX and SCI opens on Coarse, and its tags carry its name.
    d.WaitControl(IDC_FAX_FINE).ExpectChecked(IDC_FAX_COARSE, true).PressCancel();
    EXPECT_EQ(Run(IDD_FAX_OUT, "DCX"), 0);
    Set("FAXTYPE", "ZFX");
    d.WaitControl(IDC_FAX_FINE).ExpectChecked(IDC_FAX_COARSE, true).Click(IDC_FAX_FINE).PressOk();
    EXPECT_EQ(Run(IDD_FAX_OUT, "SCI"), 1);
    EXPECT_EQ(Tag("ZFXCF"), "3206");
    EXPECT_EQ(Tag("SCIVR"), "1296");
    EXPECT_EQ(Tag("SCIHR"), "1245");
}

}  // namespace
}  // namespace zvtest
