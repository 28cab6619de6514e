// Every call of WinHelpA, MessageBeep and MessageBoxA in the library goes
// through these three functions, so that a host can take them over.
#pragma once

#include "zvopt32.h"

BOOL SeamWinHelp(HWND window, LPCSTR helpFile, UINT command, ULONG_PTR data);
BOOL SeamMessageBeep(UINT type);
int SeamMessageBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
