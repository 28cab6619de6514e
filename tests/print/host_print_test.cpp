// The proof that printing lands the image where the tags put it: the host's
// File > Print runs the print dialog (and, for the corner, its options
// sheet), then prints on the PDF printer. Each test leaves, beside the
// printed page's name, the box in printer dots that the tags ask for; the
// native check of the same run renders the PDF with pdftoppm and finds the
// image there (check_printed_pages.py).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <utility>

#include "child_process.h"
#include "print_ids.h"
#include "print_road.h"
#include "print_test_support.h"

namespace zvtest {
namespace {

constexpr double kDpi = 300.0, kMargin = 0.25;

// An image of width x height pixels, its left half black and its right half
// grey, so that the rendered page shows which way it was turned.
std::string WriteHalvedImage(const char* name, long width, long height)
{
    Dewey image;
    EXPECT_EQ(image.CreateRaster(width, height, 24), 0);
    BITMAPINFOHEADER* dib = image.GetDib();
    unsigned char* bits = reinterpret_cast<unsigned char*>(dib + 1);
    const long stride = (width * 3 + 3) & ~3L;
    for (long y = 0; y < height; ++y)
        for (long x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c)
                bits[y * stride + x * 3 + c] = x < width / 2 ? 0 : 128;
    std::string path = TempFolder() + "\\" + name + ".bmp";
    EXPECT_EQ(image.Save(path.c_str()), 0);
    return path;
}

long Dots(double inches)
{
    return std::lround(inches * kDpi);
}

struct HostPrint : PrintTest {
    // Prints through the host's print road and writes what the native
    // check is to find: the box on the sheet in dots and the dark side.
    void PrintAndExpect(const std::string& imagePath, const char* name, const char* darkSide)
    {
        Print(imagePath, name);
        Expect(name, darkSide);
    }
    void Print(const std::string& imagePath, const char* name)
    {
        Dewey image;
        ASSERT_EQ(image.Open(imagePath.c_str()), 0);
        const std::string doc = std::string("zvprint-") + name;
        const int result = static_cast<int>(d.Run([&] {
            return static_cast<INT_PTR>(
                PrintFromHost(nullptr, &tags, &formats, &image, imagePath.c_str(), doc.c_str()));
        }));
        ASSERT_EQ(result, 1);
    }
    void Expect(const char* name, const char* darkSide)
    {
        const std::string doc = std::string("zvprint-") + name;
        ASSERT_EQ(Tag("PRNUNITS"), "IN");
        const double left = kMargin + Number("PRTLEFT"), top = kMargin + Number("PRTTOP");
        const std::string expect = std::string(ZV_PRINT_CHECKS) + "\\" + doc + ".expect";
        FILE* file = std::fopen(expect.c_str(), "w");
        ASSERT_NE(file, nullptr) << expect;
        std::fprintf(file, "%ld %ld %ld %ld %s\n", Dots(left), Dots(top), Dots(left + Number("PRNW")),
                     Dots(top + Number("PRNH")), darkSide);
        std::fclose(file);
    }
};

TEST_F(HostPrint, ACentredImageLandsInTheBoxOfThePrintDialogsFit)
{
    ZV_REQUIRE_PRINTER();
    const std::string path = WriteHalvedImage("centred", 300, 600);
    ZvSetTag(&tags, "PRNW", "4");  // the last fit, the box of this one
    ZvSetTag(&tags, "PRNH", "4");
    d.WaitWindow("Print").WaitControl(IDC_PRINT_PRINTER_LIST).PressOk();
    PrintAndExpect(path, "centred", "left");
    EXPECT_NEAR(Number("PRNW"), 2.0, 1e-9);
    EXPECT_NEAR(Number("PRNH"), 4.0, 1e-9);
}

TEST_F(HostPrint, AnImageMovedToTheCornerOnTheOptionsPageLandsThere)
{
    ZV_REQUIRE_PRINTER();
    const std::string path = WriteHalvedImage("corner", 600, 300);
    ZvSetTag(&tags, "PRNW", "3");
    ZvSetTag(&tags, "PRNH", "3");
    d.WaitWindow("Print").WaitControl(IDC_PRINT_PRINTER_LIST).Click(IDC_PRINT_OPTIONS);
    d.WaitControl(IDC_PRN_LEFT).Type(IDC_PRN_LEFT, "0").Type(IDC_PRN_TOP, "0").PressOk();
    PrintAndExpect(path, "corner", "left");
    EXPECT_EQ(Tag("PRTLEFT"), "0");
    EXPECT_EQ(Tag("PRTTOP"), "0");
}

TEST_F(HostPrint, ARotatedImageIsTurnedAndFitsTheTurnedBox)
{
    ZV_REQUIRE_PRINTER();
    const std::string path = WriteHalvedImage("rotated", 600, 300);
    ZvSetTag(&tags, "PRNROT", "90");  // as the Rotate page of the sheet leaves it
    ZvSetTag(&tags, "PRNW", "4");
    ZvSetTag(&tags, "PRNH", "4");
    d.WaitWindow("Print").WaitControl(IDC_PRINT_PRINTER_LIST).PressOk();
    // A quarter turn: the black left half lies on top or at the bottom.
    PrintAndExpect(path, "rotated", "turned");
    EXPECT_NEAR(Number("PRNW"), 2.0, 1e-9);
    EXPECT_NEAR(Number("PRNH"), 4.0, 1e-9);
}

TEST_F(HostPrint, ZvconvPrintsABatchWithTheStoredOptionsOfATagFile)
{
    ZV_REQUIRE_PRINTER();
    const std::string image = WriteHalvedImage("zvprint-batch", 600, 300);
    const std::string tagFile = TempFolder() + "\\zvprint-batch.tags";
    FILE* file = std::fopen(tagFile.c_str(), "w");
    ASSERT_NE(file, nullptr);
    std::fputs("PRNUNITS=IN\nPRTLEFT=1\nPRTTOP=2\nPRNW=3\nPRNH=1.5\n", file);
    std::fclose(file);
    const std::string exe = LibraryFolder() + "\\zvconv.exe";
    PROCESS_INFORMATION process = {};
    ASSERT_TRUE(StartProcess(exe.c_str(), "zvconv --print \"" + tagFile + "\" \"" + image + "\"", &process));
    EXPECT_EQ(FinishProcess(process), 0u);
    for (auto [key, value] : {std::pair{"PRNUNITS", "IN"}, std::pair{"PRTLEFT", "1"}, std::pair{"PRTTOP", "2"},
                              std::pair{"PRNW", "3"}, std::pair{"PRNH", "1.5"}})
        ZvSetTag(&tags, key, value);
    Expect("batch", "left");
}

}  // namespace
}  // namespace zvtest
