// The TIFF page's choice in the written file, in one piece: a user picks a
// flavour on the destination's sheet and presses OK, the host converts with
// the tags the sheet left (FilterOptions, DoOptions) and saves. The native
// check of the same run (check_page_files.sh) reads the file with libtiff
// and ImageMagick.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "format_page_ids.h"
#include "host_dialogs.h"
#include "output_ids.h"
#include "ravicli.h"

namespace zvtest {
namespace {

using PageToFile = DestSheetTest;

// A picture whose three channels differ everywhere, so that a plane or a
// tile out of place shows.
void Paint(Dewey& image, long width, long height)
{
    ASSERT_EQ(image.CreateRaster(width, height, 24), 0);
    BITMAPINFOHEADER* dib = image.GetDib();
    unsigned char* bits = reinterpret_cast<unsigned char*>(dib + 1);
    const long stride = (width * 3 + 3) & ~3L;
    for (long y = 0; y < height; ++y)
        for (long x = 0; x < width; ++x) {
            unsigned char* p = bits + y * stride + x * 3;
            p[0] = static_cast<unsigned char>(x * 5);
            p[1] = static_cast<unsigned char>(y * 7);
            p[2] = static_cast<unsigned char>(255 - x - y);
        }
}

TEST_F(PageToFile, TheTiffFlavourChosenOnThePageLaysOutTheWrittenFile)
{
    const std::string folder = ZV_PAGE_FILES;
    // The check must never read a file of an earlier run.
    DeleteFileA((folder + "\\tiff_flavour.tif").c_str());
    Dewey image;
    Paint(image, 40, 30);
    ASSERT_EQ(image.Save((folder + "\\tiff_flavour_source.bmp").c_str()), 0);

    // A custom flavour that asks for tiles, separate planes and LZW with
    // differencing: none of it is the writer's default.
    Set("TIF_Tiled", "COMP=5;PHOTO=2;BPS=8;SPP=3;FILL=1;PLANAR=2;PRED=2;TILES=16x16");
    d.WaitControl(IDC_OUT_FLAVOR).PickCombo(IDC_OUT_FLAVOR, "Tiled").PressOk();
    ASSERT_EQ(Run(IDD_TIF_OUT, "TIF", 2, &image), 1);

    TagSet engine;
    engine.SetPath("zvtests\\PageToFile\\Engine", 1);
    FilterOptions(&image, &tags, &engine, "BMP", "TIF");
    ASSERT_EQ(DoOptions(&image, &tags, "BMP", "TIF", &formats), 0);
    ASSERT_EQ(image.Save((folder + "\\tiff_flavour.tif").c_str()), 0);
}

}  // namespace
}  // namespace zvtest
