#include "seam_recorder.h"

#include <gtest/gtest.h>

namespace zvtest {

namespace {

SeamRecorder* g_recorder = nullptr;

// The first button of each kind of message box, by MB_OK, MB_OKCANCEL, ...
int FirstButton(UINT type)
{
    constexpr int kFirst[] = {IDOK, IDOK, IDABORT, IDYES, IDYES, IDRETRY, IDCANCEL};
    UINT kind = type & MB_TYPEMASK;
    return kind < sizeof kFirst / sizeof kFirst[0] ? kFirst[kind] : IDOK;
}

}  // namespace

SeamRecorder::SeamRecorder()
{
    if (g_recorder)
        ADD_FAILURE() << "a SeamRecorder is already installed";
    g_recorder = this;
    table_.winHelp = &SeamRecorder::WinHelp;
    table_.messageBeep = &SeamRecorder::Beep;
    table_.messageBox = &SeamRecorder::Box;
    ZvSetPlatformSeams(&table_);
}

SeamRecorder::~SeamRecorder()
{
    ZvSetPlatformSeams(nullptr);
    if (g_recorder == this)
        g_recorder = nullptr;
}

BOOL WINAPI SeamRecorder::WinHelp(HWND window, LPCSTR file, UINT command, ULONG_PTR data)
{
    WinHelpCall call = {window, file ? file : "", command, data, {}};
    if ((command == HELP_WM_HELP || command == HELP_CONTEXTMENU) && data) {
        // Bounded: a table without its end marker is a fault the test sees.
        const DWORD* ids = reinterpret_cast<const DWORD*>(data);
        for (int i = 0; i < 512 && (ids[i] || ids[i + 1]); i += 2) {
            call.idPairs.push_back(ids[i]);
            call.idPairs.push_back(ids[i + 1]);
        }
    }
    if (g_recorder)
        g_recorder->helpCalls.push_back(std::move(call));
    return TRUE;
}

BOOL WINAPI SeamRecorder::Beep(UINT type)
{
    if (g_recorder)
        g_recorder->beeps.push_back(type);
    return TRUE;
}

int WINAPI SeamRecorder::Box(HWND owner, LPCSTR text, LPCSTR caption, UINT type)
{
    if (g_recorder)
        g_recorder->messageBoxes.push_back({owner, text ? text : "", caption ? caption : "", type});
    return FirstButton(type);
}

}  // namespace zvtest
