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

TEST(ContextHelp, F1OnAControlHandsTheViewerTheWholeTable)
{
    // The control under F1: 1601, a contrast control of the adjust page.
    zvtest::SeamRecorder recorder;
    HWND contrast = reinterpret_cast<HWND>(0x1601);
    HELPINFO info = {sizeof info, HELPINFO_WINDOW, 1601, contrast, 0, {0, 0}};
    ShowContextHelp(WM_HELP, 0, reinterpret_cast<LPARAM>(&info));

    ASSERT_EQ(recorder.helpCalls.size(), 1u);
    const zvtest::WinHelpCall& call = recorder.helpCalls[0];
    EXPECT_EQ(call.window, contrast);
    EXPECT_EQ(call.command, static_cast<UINT>(HELP_WM_HELP));
    EXPECT_EQ(call.file, HelpFileBesideLibrary());
    // The recorder stops at the closing pair of zeros: 204 pairs before it.
    ASSERT_EQ(call.idPairs.size(), static_cast<size_t>(2 * 204));
    EXPECT_EQ(ContextOf(call.idPairs, 1601), 1221u);
}

TEST(ContextHelp, OtherMessagesAndCommandsCallNothing)
{
    zvtest::SeamRecorder recorder;
    ShowContextHelp(WM_COMMAND, IDOK, zv::kHelpAdjColorsPage);
    ShowContextHelp(WM_COMMAND, MAKEWPARAM(1601, BN_CLICKED), 0);
    ShowContextHelp(WM_KEYDOWN, VK_F1, 0);
    ShowContextHelp(WM_NOTIFY, 0, 0);
    ShowContextHelp(WM_HELP, 0, 0);  // no HELPINFO: nothing to point at
    EXPECT_TRUE(recorder.helpCalls.empty());
}

}  // namespace
