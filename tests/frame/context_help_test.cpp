// Context help as the dialogs ask for it: every call of the help viewer is
// recorded through the library's seam, with a copy of the control table as
// it was at the moment of the call.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "frame_tables.h"
#include "zvopt32.h"

namespace {

struct HelpCall {
    HWND window;
    std::string file;
    UINT command;
    ULONG_PTR data;
    std::vector<DWORD> table;  // up to and with the closing pair of zeros
};

std::vector<HelpCall> g_calls;

BOOL WINAPI RecordWinHelp(HWND window, LPCSTR file, UINT command, ULONG_PTR data)
{
    HelpCall call{window, file ? file : "", command, data, {}};
    if (command == HELP_WM_HELP || command == HELP_CONTEXTMENU) {
        // The table lives on the caller's stack: copy it now. The bound only
        // keeps a table without its end from running on.
        const DWORD* words = reinterpret_cast<const DWORD*>(data);
        for (size_t i = 0; i < 2000; i += 2) {
            call.table.push_back(words[i]);
            call.table.push_back(words[i + 1]);
            if (words[i] == 0 && words[i + 1] == 0)
                break;
        }
    }
    g_calls.push_back(std::move(call));
    return TRUE;
}

std::string HelpFileBesideLibrary()
{
    char path[MAX_PATH] = {};
    GetModuleFileNameA(GetModuleHandleA("ZVOPT32.dll"), path, sizeof path);
    std::string text = path;
    return text.substr(0, text.rfind('\\') + 1) + "ZAVRIN.HLP";
}

DWORD ContextOf(const std::vector<DWORD>& table, DWORD control)
{
    for (size_t i = 0; i + 1 < table.size(); i += 2)
        if (table[i] == control)
            return table[i + 1];
    return 0xFFFFFFFF;
}

// A window with two controls of the table: 1601, a contrast control of the
// adjust page, and 1611, one of the six controls without a topic.
class ContextHelp : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_calls.clear();
        ZvPlatformSeams seams = {};
        seams.winHelp = &RecordWinHelp;
        ZvSetPlatformSeams(&seams);
        dialog_ = CreateWindowA("STATIC", "Contrast and Brightness", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                                nullptr, nullptr, nullptr);
        contrast_ = CreateWindowA("BUTTON", "Contrast", WS_CHILD, 10, 10, 80, 20, dialog_,
                                  reinterpret_cast<HMENU>(1601), nullptr, nullptr);
        untitled_ = CreateWindowA("BUTTON", "", WS_CHILD, 10, 40, 80, 20, dialog_,
                                  reinterpret_cast<HMENU>(1611), nullptr, nullptr);
        ASSERT_TRUE(contrast_ && untitled_);
    }

    void TearDown() override
    {
        DestroyWindow(dialog_);
        ZvSetPlatformSeams(nullptr);
    }

    HWND dialog_ = nullptr;
    HWND contrast_ = nullptr;
    HWND untitled_ = nullptr;
};

TEST_F(ContextHelp, F1OnAControlHandsTheViewerTheWholeTable)
{
    HELPINFO info = {};
    info.cbSize = sizeof info;
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = 1601;
    info.hItemHandle = contrast_;
    ShowContextHelp(WM_HELP, 0, reinterpret_cast<LPARAM>(&info));

    ASSERT_EQ(g_calls.size(), 1u);
    const HelpCall& call = g_calls[0];
    EXPECT_EQ(call.window, contrast_);
    EXPECT_EQ(call.command, static_cast<UINT>(HELP_WM_HELP));
    EXPECT_EQ(call.file, HelpFileBesideLibrary());
    ASSERT_EQ(call.table.size(), static_cast<size_t>(2 * 204 + 2));
    EXPECT_EQ(call.table[408], 0u);
    EXPECT_EQ(call.table[409], 0u);
    EXPECT_EQ(ContextOf(call.table, 1601), 1221u);
}

TEST_F(ContextHelp, RightClickGivesThePopUpOfTheControlUnderIt)
{
    ShowContextHelp(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(untitled_), MAKELPARAM(20, 50));

    ASSERT_EQ(g_calls.size(), 1u);
    const HelpCall& call = g_calls[0];
    EXPECT_EQ(call.window, untitled_);
    EXPECT_EQ(call.command, static_cast<UINT>(HELP_CONTEXTMENU));
    EXPECT_EQ(call.table.size(), static_cast<size_t>(2 * 204 + 2));
    // A control without a topic is in the table with 0: the viewer shows nothing.
    EXPECT_EQ(ContextOf(call.table, 1611), 0u);
}

TEST_F(ContextHelp, HelpButtonOpensTheTopicOfTheWholeDialog)
{
    ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, BN_CLICKED), zv::kHelpAdjColorsPage);
    ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpOutputPages);

    ASSERT_EQ(g_calls.size(), 2u);
    EXPECT_EQ(g_calls[0].command, static_cast<UINT>(HELP_CONTEXT));
    EXPECT_EQ(g_calls[0].data, 1220u);
    EXPECT_EQ(g_calls[0].file, HelpFileBesideLibrary());
    EXPECT_EQ(g_calls[1].data, 1400u);
}

TEST_F(ContextHelp, OtherMessagesAndCommandsCallNothing)
{
    ShowContextHelp(WM_COMMAND, IDOK, zv::kHelpAdjColorsPage);
    ShowContextHelp(WM_COMMAND, MAKEWPARAM(1601, BN_CLICKED), 0);
    ShowContextHelp(WM_KEYDOWN, VK_F1, 0);
    ShowContextHelp(WM_NOTIFY, 0, 0);
    ShowContextHelp(WM_HELP, 0, 0);  // no HELPINFO: nothing to point at
    EXPECT_TRUE(g_calls.empty());
}

}  // namespace
