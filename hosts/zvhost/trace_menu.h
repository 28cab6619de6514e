// The host's Image > Trace: the trace options of the library's dialog, then
// the image in hand traced into a drawing, which File > Save As writes.
#pragma once

#include <windows.h>

// Adds "Trace..." to the Image menu of the window's menu bar (made when
// there is none yet).
void AddTraceMenu(HWND window);
// Handles the command; false for any other command.
bool OnTraceCommand(HWND window, WORD command);
