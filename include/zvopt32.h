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
