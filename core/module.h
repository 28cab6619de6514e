// The library's own module handle: the place its dialogs and strings load from.
#pragma once

#include <windows.h>

HINSTANCE LibraryModule();
