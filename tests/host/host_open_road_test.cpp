// The host's open road as a user takes it: File > Open, the Options button
// of a CUT picture choosing its palette file and its scaling, and a PCX
// picture. The engine then holds the colours that the files and the chosen
// palette give, and the host shows each picture as its scaling says.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "engine_test_support.h"
#include "host_dialogs.h"
#include "ravicli.h"
#include "save_road.h"
#include "source_file_bytes.h"
#include "source_ids.h"

namespace {

using zvtest::Bytes;

void WriteFile(const std::string& path, const Bytes& bytes)
{
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
}

// Runs of the indices 1, 2 and 3 (3, 2 and 3 pixels) on each of 4 lines.
const std::vector<Bytes> kCutLines(4, Bytes{0x83, 1, 0x82, 2, 0x83, 3, 0});

TEST(HostOpenRoad, ACutWithItsChosenPaletteAndAPcxOpenInTheirColours)
{
    const std::string folder = zvtest::TempFolder() + "\\openroad";
    CreateDirectoryA(folder.c_str(), nullptr);
    WriteFile(folder + "\\pic.cut", zvtest::CutPicture(8, kCutLines));
    // The palette of the picture's name, which the dialog offers first,
    // and another one that the user chooses instead.
    WriteFile(folder + "\\pic.pal", zvtest::CutPaletteFile({{0, 0, 0}, {9, 9, 9}, {9, 9, 9}, {9, 9, 9}}));
    WriteFile(folder + "\\warm.pal", zvtest::CutPaletteFile({{0, 0, 0}, {63, 0, 0}, {63, 32, 0}, {63, 63, 0}}, 63));
    // A 24-bit PCX of 3 x 2: red, green, 102030 over three blues; each
    // line its red, green and blue planes of 4 bytes.
    const Bytes rgb = {0xC1, 0xFF, 0, 0x10, 0, 0, 0xC1, 0xFF, 0x20, 0, 0, 0, 0x30, 0,  // the first line
                       0xC8, 0, 0xC3, 0xFF, 0};                                       // the second
    WriteFile(folder + "\\pic.pcx", zvtest::PcxPicture(8, 3, 3, 2, 4, rgb));
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Zavrin\\Tags\\zvhost");
    ZvSetTag(HostTags(), "OPENDIR", folder.c_str());
    HWND window = CreateWindowA("STATIC", "Zavrin Host", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr, nullptr,
                                nullptr, nullptr);
    AddFileMenu(window);

    zvtest::DialogDriver open;
    open.WaitWindow("Open").WaitControl(zvtest::kTypeList);
    TypeName(open, "pic.cut").Click(zvtest::kOptions);
    open.WaitWindow("CUT Open File").ExpectText(1152, "pic.pal").Click(IDC_SRC_SCALE_OFF);
    open.Type(1152, folder + "\\warm.pal").PressOk();
    open.WaitWindow("Open").WaitControl(zvtest::kTypeList);
    TypeName(open, "pic.cut").PressOk();
    open.Run([&] { return INT_PTR(OnFileCommand(window, 100)); });
    EXPECT_EQ(zvtest::TagOf(HostTags(), "CUTIPAL"), folder + "\\warm.pal");
    ASSERT_NE(HostImage(), nullptr);
    EXPECT_EQ(enginetest::Shape(*HostImage()), "8 x 4, 8");
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 0, 0), 0xFF0000u);
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 4, 2), 0xFF8200u);
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 7, 3), 0xFFFF00u);
    // Scaling off: the picture at its own size in the corner.
    RECT source, shown;
    ASSERT_TRUE(ImageView(window, &source, &shown));
    EXPECT_EQ(zvtest::TagOf(HostTags(), "CUTSCALE"), "OFF");
    EXPECT_EQ(shown.right - shown.left, 8);
    EXPECT_EQ(shown.bottom - shown.top, 4);

    // With no palette chosen, the one of the picture's name beside it.
    ZvSetTag(HostTags(), "CUTIPAL", "");
    ASSERT_TRUE(OpenImageFile(window, (folder + "\\pic.cut").c_str()));
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 0, 0), 0x090909u);

    zvtest::DialogDriver pcx;
    pcx.WaitWindow("Open").WaitControl(zvtest::kTypeList);
    TypeName(pcx, "pic.pcx").PressOk();
    pcx.Run([&] { return INT_PTR(OnFileCommand(window, 100)); });
    EXPECT_EQ(zvtest::DialogDriver::TextOf(window), "Zavrin Host - " + folder + "\\pic.pcx - 3 x 2, 24 bits");
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 0, 0), 0xFF0000u);
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 1, 0), 0x00FF00u);
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 2, 0), 0x102030u);
    EXPECT_EQ(enginetest::Rgb(*HostImage(), 2, 1), 0x0000FFu);
    // No choice stored for PCX: fitted to the window.
    ASSERT_TRUE(ImageView(window, &source, &shown));
    EXPECT_GT(shown.right - shown.left, 100);

    CloseFileMenu();
    DestroyWindow(window);
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Zavrin\\Tags\\zvhost");
}

}  // namespace
