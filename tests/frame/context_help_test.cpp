// Context help as the dialogs ask for it: every call of the help viewer is
// recorded through the library's seam, with a copy of the control table as
// it was at the moment of the call (up to its closing pair of zeros). The
// Help button and the right click are driven on the sheets.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame_tables.h"
#include "seam_recorder.h"
#include "zvopt32.h"

namespace {

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

// A window with a control of the table: 1601, a contrast control of the
// adjust page.
class ContextHelp : public ::testing::Test {
protected:
    void SetUp() override
    {
        dialog_ = CreateWindowA("STATIC", "Contrast and Brightness", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                                nullptr, nullptr, nullptr);
        contrast_ = CreateWindowA("BUTTON", "Contrast", WS_CHILD, 10, 10, 80, 20, dialog_,
                                  reinterpret_cast<HMENU>(1601), nullptr, nullptr);
        ASSERT_NE(contrast_, nullptr);
    }

    void TearDown() override
    {
        DestroyWindow(dialog_);
    }

    zvtest::SeamRecorder recorder;
    const std::vector<zvtest::WinHelpCall>& calls = recorder.helpCalls;

    HWND dialog_ = nullptr;
    HWND contrast_ = nullptr;
};

TEST_F(ContextHelp, F1OnAControlHandsTheViewerTheWholeTable)
{
    HELPINFO info = {};
    info.cbSize = sizeof info;
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = 1601;
    info.hItemHandle = contrast_;
    ShowContextHelp(WM_HELP, 0, reinterpret_cast<LPARAM>(&info));

    ASSERT_EQ(calls.size(), 1u);
    const zvtest::WinHelpCall& call = calls[0];
    EXPECT_EQ(call.window, contrast_);
    EXPECT_EQ(call.command, static_cast<UINT>(HELP_WM_HELP));
    EXPECT_EQ(call.file, HelpFileBesideLibrary());
    // The recorder stops at the closing pair of zeros: 204 pairs before it.
    ASSERT_EQ(call.idPairs.size(), static_cast<size_t>(2 * 204));
    EXPECT_EQ(ContextOf(call.idPairs, 1601), 1221u);
}

TEST_F(ContextHelp, OtherMessagesAndCommandsCallNothing)
{
    ShowContextHelp(WM_COMMAND, IDOK, zv::kHelpAdjColorsPage);
    ShowContextHelp(WM_COMMAND, MAKEWPARAM(1601, BN_CLICKED), 0);
    ShowContextHelp(WM_KEYDOWN, VK_F1, 0);
    ShowContextHelp(WM_NOTIFY, 0, 0);
    ShowContextHelp(WM_HELP, 0, 0);  // no HELPINFO: nothing to point at
    EXPECT_TRUE(calls.empty());
}

}  // namespace
