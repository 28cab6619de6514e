// What the pages take from the dialog frame and the previews, until those
// land: then this header gives way to theirs.
#pragma once

#include <windows.h>

void HideApplyButton(HWND page);
int SetPreviewFlags(int reverseBW, int invert, int bvis, int grayize, int blackize);
