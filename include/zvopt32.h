// ZVOPT32: the options library of the Zavrin graphics suite.
// This is the header a host includes to call the library.
#pragma once

#include <windows.h>

#ifdef ZVOPT32_BUILD
#define ZVOPT32_API __declspec(dllexport)
#else
#define ZVOPT32_API __declspec(dllimport)
#endif

// The three platform calls whose real versions leave the process or block
// where no caller can answer them. A host (or a test) may replace them; any
// null member, or a null table, means the platform's own call.
struct ZvPlatformSeams {
    BOOL(WINAPI* winHelp)(HWND window, LPCSTR helpFile, UINT command, ULONG_PTR data);
    BOOL(WINAPI* messageBeep)(UINT type);
    int(WINAPI* messageBox)(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
};

extern "C" {

// Installs a table of replacements; null restores the platform's calls.
ZVOPT32_API void ZvSetPlatformSeams(const ZvPlatformSeams* seams);

}  // extern "C"

// ---- Dialog frame: the dialog that belongs to a format, and context help.
extern "C" {

// The first page of a destination's option sheet, the number that
// DoDestOptionsDlg takes, or 0 when the destination has no options. destKey
// is the internal extension. Needs no dialog running.
ZVOPT32_API unsigned short GetDestDlgId(const char* destKey, short destType, short srcType);

// The dialog of a source format, the number that DoSrcOptionsDlg takes, with
// its procedure in *dlgProc; 0 and null when the format has none. "CUT"
// gives 1 and null: CUTSrcDlg runs that one. wantInputOptions 0 means no
// dialog for a format without one of its own. Reads the operation of the
// last dialog.
ZVOPT32_API unsigned short GetSrcDlgId(const char* srcExt, DLGPROC* dlgProc, short srcType, int wantInputOptions);

// Help of every dialog and page. WM_COMMAND with IDHELP (9) in the low word
// opens the topic given in lParam; WM_HELP and WM_CONTEXTMENU open the
// pop-up help of the control they name. Other messages are ignored.
ZVOPT32_API void ShowContextHelp(UINT message, WPARAM wParam, LPARAM lParam);

}  // extern "C"
