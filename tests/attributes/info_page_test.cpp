// The image attributes page as a host opens it: the template by the source,
// the facts of a raster file and its view, and the listing of a TIFF file,
// whole or as far as a damaged one could be read.
#include <gtest/gtest.h>

#include <fstream>

#include "engine_test_support.h"
#include "host_dialogs.h"
#include "resource_ids.h"
#include "tiff_bytes.h"

namespace {

using zvtest::DialogDriver;

class Properties : public ::testing::Test {
protected:
    int Run(const char* ext, std::string path, Dewey* image = nullptr)
    {
        return int(d.Run([&] {
            return INT_PTR(DoPropertiesDlg(nullptr, &tags, "Zavrin", nullptr, &formats, ext, ext, 0, image, &view,
                                           path.data()));
        }));
    }
    std::string Text(int id) { return DialogDriver::TextOf(GetDlgItem(page, id)); }
    DialogDriver& Open()
    {
        return d.WaitWindow("Properties").WaitControl(IDC_INFO_NAME).Do([&](HWND sheet) {
            page = GetParent(DialogDriver::FindControl(sheet, IDC_INFO_NAME));
        });
    }
    std::string WriteFile(const char* name, const std::vector<std::uint8_t>& bytes)
    {
        std::string path = enginetest::TempPath(name);
        std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return path;
    }

    zvtest::SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    RECT view = {0, 0, 32, 24};
    DialogDriver d;
    HWND page = nullptr;
};

TEST_F(Properties, ARasterFileShowsItsFactsAndThoseOfItsView)
{
    Dewey picture;
    ASSERT_EQ(enginetest::MakeQuadrants(picture, 64, 48), 0);
    std::string path = enginetest::TempPath("facts.bmp");
    ASSERT_EQ(picture.Save(path.c_str()), 0);
    std::string listing;
    Open().Screenshot("properties_raster").Do([&](HWND) {
        EXPECT_EQ(Text(IDC_INFO_NAME), path);
        EXPECT_EQ(Text(IDC_INFO_TYPE), "Windows Bitmap (Raster)");
        EXPECT_EQ(Text(IDC_INFO_SIZE), "9,270");
        EXPECT_NE(Text(IDC_INFO_DATE), "Unknown");
        EXPECT_EQ(Text(IDC_INFO_FILEINFO), "64 W x 48 H x 16,777,216 Colors");
        EXPECT_EQ(Text(IDC_INFO_VIEWINFO), "32 W x 24 H x 16,777,216 Colors");  // a true colour display
        EXPECT_EQ(GetDlgItem(page, IDC_INFO_LISTING), nullptr);
    }).PressOk();
    EXPECT_EQ(Run("BMP", path, &picture), 1);
}

TEST_F(Properties, AVectorFileHasNoRasterFactsAndAMissingFileIsUnknown)
{
    Open().Screenshot("properties_vector").Do([&](HWND) {
        EXPECT_EQ(Text(IDC_INFO_TYPE), "Windows Metafile (Metafile)");
        EXPECT_EQ(Text(IDC_INFO_DATE), "Unknown");
        EXPECT_EQ(Text(IDC_INFO_SIZE), "Unknown");
        EXPECT_EQ(GetDlgItem(page, IDC_INFO_FILEINFO), nullptr);
    }).PressOk();
    EXPECT_EQ(Run("WMF", enginetest::TempPath("absent.wmf")), 1);
}

TEST_F(Properties, ATiffFileIsListedInTheFixedFontAsFarAsItCanBeRead)
{
    std::string whole = WriteFile("pages.tif", zvtest::TwoPageTiff());
    std::string listing;
    auto listed = [&] { return !(listing = Text(IDC_INFO_LISTING)).empty(); };
    Open().WaitUntil("the listing filled", listed).Screenshot("properties_tiff").Do([&](HWND) {
        EXPECT_EQ(Text(IDC_INFO_FILEINFO), "0 W x 0 H x 1 Colors");  // no image given
        HFONT font = reinterpret_cast<HFONT>(SendDlgItemMessageA(page, IDC_INFO_LISTING, WM_GETFONT, 0, 0));
        LOGFONTA face = {};
        GetObjectA(font, sizeof face, &face);
        EXPECT_STREQ(face.lfFaceName, "Courier New");
    }).PressOk();
    EXPECT_EQ(Run("TIF", whole), 1);
    EXPECT_NE(listing.find("2 IFDs"), std::string::npos) << listing;
    EXPECT_NE(listing.find("IFD 1 at offset 134"), std::string::npos);

    std::vector<std::uint8_t> bytes = zvtest::TwoPageTiff();
    bytes.resize(bytes.size() - 20);
    std::string damaged = WriteFile("cut.tif", bytes);
    listing.clear();
    Open().WaitUntil("the listing filled", listed).PressOk();
    EXPECT_EQ(Run("TIF", damaged), 1);
    EXPECT_NE(listing.find("IFD 0 at offset 8"), std::string::npos) << listing;
    EXPECT_EQ(listing.find("IFD 1 at"), std::string::npos);
    EXPECT_NE(listing.find("Stopped after 1 IFD"), std::string::npos);
    EXPECT_NE(listing.find("\r\nEnd of file encountered\r\n"), std::string::npos) << listing;
}

}  // namespace
