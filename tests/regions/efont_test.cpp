// EFont on a real file mapping and the real font key: a file is refused
// when its numbers don't fit it, a hit writes the selected index where a
// second mapping sees it, and fonts are found by their TrueType names.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "ravicli.h"
#include "zvopt32.h"

namespace {

const char kFontKeyPath[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Fonts";

std::string TempFile(const char* name)
{
    char folder[MAX_PATH] = {};
    GetTempPathA(sizeof folder, folder);
    return std::string(folder) + "efont" + std::to_string(GetCurrentProcessId()) + "_" + name;
}

std::string WriteRegionFile(const char* name, std::int32_t count, std::int32_t selected, const std::vector<RECTS>& regions)
{
    std::string path = TempFile(name);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&count), 4);
    file.write(reinterpret_cast<const char*>(&selected), 4);
    file.write(reinterpret_cast<const char*>(regions.data()), std::streamsize(regions.size() * sizeof(RECTS)));
    return path;
}

// A font of the test's own in the font key, and its position there.
int InstallTestFont(const char* valueName)
{
    HKEY key = nullptr;
    if (RegCreateKeyA(HKEY_LOCAL_MACHINE, kFontKeyPath, &key) != ERROR_SUCCESS) return -1;
    RegSetValueExA(key, valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>("test.ttf"), 9);
    int position = -1;
    for (DWORD i = 0; position < 0; ++i) {
        char name[256];
        DWORD size = sizeof name;
        if (RegEnumValueA(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        if (std::string(name) == valueName) position = int(i);
    }
    RegCloseKey(key);
    return position;
}

// A view that shows the source 1:1 from the device's origin.
taghueyinfo View()
{
    taghueyinfo info = {};
    info.source = RECT{0, 0, 400, 300};
    info.device = RECT{0, 0, 400, 300};
    return info;
}

// Which numbers are refused is proved on the check itself; here, that EFont
// applies it and that FMap's own failures reach the same status.
TEST(EFont, RefusesAFileWhoseNumbersDoNotFitItAndShowsNoRegion)
{
    std::string many = WriteRegionFile("many.rgn", 3, -1, {{10, 10, 50, 30, 0, 0}, {20, 40, 90, 60, 0, 0}});
    EFont regions(many.data());
    EXPECT_EQ(regions.status, -1022);
    EXPECT_EQ(regions.rectCount, 0);
    taghueyinfo info = View();
    EXPECT_EQ(regions.TextRectHit(&info, 20, 20), 0);
    char text[256] = "";
    MsgLib messages;
    EXPECT_STREQ(messages.GetMessageA(regions.status, text), "The region file names more regions than it holds");

    std::string missing = TempFile("absent.rgn");
    EXPECT_EQ(EFont(missing.data()).status, -202);
    std::string empty = TempFile("empty.rgn");
    std::ofstream(empty, std::ios::binary | std::ios::trunc).close();
    EXPECT_EQ(EFont(empty.data()).status, -1020);  // nothing to map: no header
}

TEST(EFont, AHitWritesTheSelectedIndexWhereASecondMappingSeesIt)
{
    int position = InstallTestFont("Zavrinsans (TrueType)");
    ASSERT_GE(position, 0);
    std::vector<RECTS> regions = {{10, 10, 50, 30, 0, 0}, {20, 40, 90, 60, short(position), 0}};
    std::string path = WriteRegionFile("hit.rgn", 2, 0, regions);
    EFont first(path.data());
    ASSERT_EQ(first.status, 0);
    FMap second(path.data(), 0, 0);
    ASSERT_EQ(second.status, 0);
    auto selected = [&] { return *reinterpret_cast<std::int32_t*>(second.data + 4); };
    EXPECT_EQ(selected(), -1);  // construction clears the selection

    taghueyinfo info = View();
    ASSERT_EQ(first.TextRectHit(&info, 90, 60), 1);  // the second's bottom right corner
    EXPECT_EQ(selected(), 1);
    EXPECT_STREQ(first.GetResults()->oldFont, "Zavrinsans");
    EXPECT_STREQ(first.GetResults()->newFont, "Zavrinsans");
    EXPECT_EQ(first.GetFontHeight(123.0f), 40);

    EXPECT_EQ(first.TextRectHit(&info, 200, 200), 0);  // a miss ends the selection, not the file's index
    EXPECT_EQ(first.current, nullptr);
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(first.GetFontHeight(0.0f), 0);
}

TEST(EFont, NewFontsAreFoundByTheirTrueTypeNameInTheFontKey)
{
    ASSERT_GE(InstallTestFont("Zavrinsans (TrueType)"), 0);
    ASSERT_GE(InstallTestFont("Zavrin Serif (TrueType)"), 0);
    std::string path = WriteRegionFile("fonts.rgn", 0, -1, {});
    EFont regions(path.data());
    EXPECT_EQ(regions.SetNewFont(const_cast<char*>("zavrinsans ")), 1);  // a one-word name's blank is cut
    EXPECT_EQ(regions.SetNewFont(const_cast<char*>("Zavrin Serif")), 1);
    EXPECT_EQ(regions.SetNewFont(const_cast<char*>("Zavrin Serif ")), 0);  // a blank inside keeps the last one
    EXPECT_STREQ(regions.GetResults()->newFont, "Zavrin Serif ");
    std::string longName(120, 'x');
    EXPECT_EQ(regions.SetNewFont(longName.data()), 0);
    EXPECT_EQ(std::string(regions.GetResults()->newFont), longName.substr(0, 99));
}

// Frames invert what lies below them: drawn twice, the picture is as it was.
TEST(EFont, AFrameDrawnTwiceLeavesThePictureAsItWas)
{
    std::vector<RECTS> regions = {{10, 10, 50, 30, 0, 0}};
    std::string path = WriteRegionFile("draw.rgn", 1, -1, regions);
    EFont font(path.data());
    HDC screen = GetDC(nullptr);
    HDC dc = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 64, 48);
    ReleaseDC(nullptr, screen);
    HGDIOBJ old = SelectObject(dc, bitmap);
    PatBlt(dc, 0, 0, 64, 48, WHITENESS);
    SetMapMode(dc, MM_LOMETRIC);  // the host's mapping is put aside and back
    SetViewportOrgEx(dc, 3, 4, nullptr);
    taghueyinfo info = View();
    font.DrawAllRects(dc, &info);
    EXPECT_EQ(GetMapMode(dc), MM_LOMETRIC);
    POINT origin = {};
    GetViewportOrgEx(dc, &origin);
    EXPECT_EQ(origin.x, 3);
    SetMapMode(dc, MM_TEXT);
    SetViewportOrgEx(dc, 0, 0, nullptr);
    EXPECT_EQ(GetPixel(dc, 30, 10), RGB(0, 0, 0));   // on the top edge, in device units
    EXPECT_EQ(GetPixel(dc, 30, 20), RGB(255, 255, 255));
    font.DrawAllRects(dc, &info);
    EXPECT_EQ(GetPixel(dc, 30, 10), RGB(255, 255, 255));
    SelectObject(dc, old);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

}  // namespace
