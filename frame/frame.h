// The dialog frame inside the library: what it reads of the dialog in hand,
// and the procedures behind the source dialog numbers.
#pragma once

#include <windows.h>

#include "frame_tables.h"

// The help file, the host's window and the operation of the dialog in hand.
// Until the option context holds them, these give what a freshly loaded
// library has: "ZAVRIN.HLP" beside the library, no window, operation 0.
const char* CurrentHelpFile();
HWND CurrentParentWindow();
short CurrentOperation();

// The dialog procedure of a source dialog, or null when it has none.
DLGPROC SourceDialogProcedure(zv::SourceDialogProc which);
