// Records the library's calls of WinHelpA, MessageBeep and MessageBoxA
// through its seam table, so that a test can assert on them; a message box
// is answered with its first button (IDOK, IDYES, IDRETRY, IDABORT). One
// recorder at a time; it installs itself when made and puts the platform's
// calls back when it goes.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "zvopt32.h"

namespace zvtest {

struct WinHelpCall {
    HWND window;
    std::string file;
    UINT command;
    ULONG_PTR data;
    // For HELP_WM_HELP and HELP_CONTEXTMENU, data points to pairs of
    // control id and help id ending in 0, 0; they are copied here.
    std::vector<DWORD> idPairs;
};

struct MessageBoxCall {
    HWND owner;
    std::string text;
    std::string caption;
    UINT type;
};

class SeamRecorder {
public:
    SeamRecorder();
    ~SeamRecorder();
    SeamRecorder(const SeamRecorder&) = delete;
    SeamRecorder& operator=(const SeamRecorder&) = delete;

    std::vector<WinHelpCall> helpCalls;
    std::vector<UINT> beeps;
    std::vector<MessageBoxCall> messageBoxes;

private:
    static BOOL WINAPI WinHelp(HWND window, LPCSTR file, UINT command, ULONG_PTR data);
    static BOOL WINAPI Beep(UINT type);
    static int WINAPI Box(HWND owner, LPCSTR text, LPCSTR caption, UINT type);

    ZvPlatformSeams table_ = {};
};

}  // namespace zvtest
