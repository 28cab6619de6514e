// The warnings list as a host sees it: the engine's warnings of several
// dialog entries gather in one modeless dialog that outlives them, sorted
// by text, and Save... writes the lines the list shows.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine_test_support.h"
#include "host_dialogs.h"
#include "output_ids.h"
#include "ravicli.h"

namespace {

using zvtest::DialogDriver;

constexpr int kList = 4900;
constexpr int kSave = 4901;

std::vector<std::string> Lines(HWND dialog)
{
    std::vector<std::string> lines;
    HWND list = GetDlgItem(dialog, kList);
    LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        char line[512] = "";
        SendMessageA(list, LB_GETTEXT, WPARAM(i), reinterpret_cast<LPARAM>(line));
        lines.push_back(line);
    }
    return lines;
}

HWND WarningsWindow() { return FindWindowA(nullptr, "Warnings"); }

// The host's own loop, which serves the modeless list, until it closes.
INT_PTR ServeUntilClosed(HWND dialog)
{
    MSG message;
    while (IsWindow(dialog) && GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageA(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    return 0;
}

class Warnings : public zvtest::DestSheetTest {
protected:
    HWND host = CreateWindowA("STATIC", "Zavrin Host", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr, nullptr,
                              nullptr, nullptr);
    Warnings() { RavicliSetWarningHandler(DoWarning, host); }
    ~Warnings() override
    {
        RavicliSetWarningHandler(nullptr, nullptr);
        if (HWND dialog = WarningsWindow()) DestroyWindow(dialog);
        DestroyWindow(host);
    }

    // A raster output sheet of the host, cancelled after action ran in it.
    void RunEntry(std::function<void()> action)
    {
        DialogDriver entry;
        entry.LeaveOpen("Warnings");
        // The list comes up over the sheet: the sheet is named, so that
        // Cancel goes to it.
        entry.WaitControl(IDC_OUT_WIDTH).Do([&](HWND) { action(); }).WaitWindow("BMP Processing Options").PressCancel();
        entry.Run([&] {
            return INT_PTR(DoDestOptionsDlg(host, IDD_RASTER_OUT, &tags, "Zavrin", nullptr, &formats, "BMP", "BMP",
                                            2, 1, nullptr));
        });
    }
};

TEST_F(Warnings, TwoEntriesFillOneSortedListThatOutlivesThemAndSavesWhatItShows)
{
    // Inside the first sheet the engine writes a GIF of a true colour
    // picture; inside the second the host has a warning of its own.
    Dewey picture;
    ASSERT_EQ(enginetest::MakeQuadrants(picture, 16, 16), 0);
    std::string gif = enginetest::TempPath("warned.gif");
    RunEntry([&] { EXPECT_EQ(picture.Save(gif.c_str()), 0); });
    HWND dialog = WarningsWindow();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(IsWindowVisible(dialog));
    RunEntry([&] { DoWarning(host, 12); });

    ASSERT_EQ(WarningsWindow(), dialog);
    std::vector<std::string> shown = Lines(dialog);
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0], "12 Warning (code 12)");  // by text, not by arrival
    EXPECT_EQ(shown[1], "4151 The colours were reduced to 256 for this format");

    std::string saved = zvtest::TempFolder() + "\\zvwarn_test.txt";
    DeleteFileA(saved.c_str());
    DialogDriver user;
    user.WaitWindow("Warnings").Screenshot("warnings").Click(kSave);
    user.WaitWindow("Save As");
    zvtest::TypeName(user, saved);
    user.PressOk().WaitUntil("the file written", [&] { return GetFileAttributesA(saved.c_str()) != INVALID_FILE_ATTRIBUTES; });
    user.WaitWindow("Warnings").Click(IDOK);
    user.Run([&] { return ServeUntilClosed(dialog); });

    std::ifstream file(saved, std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    EXPECT_EQ(bytes.str(), shown[0] + "\r\n" + shown[1] + "\r\n");

    // Closed, the list starts again with the next warning alone.
    EXPECT_EQ(WarningsWindow(), nullptr);
    EXPECT_EQ(DoWarning(host, 3), 1);
    EXPECT_EQ(Lines(WarningsWindow()), std::vector<std::string>{"3 Warning (code 3)"});
}

}  // namespace
