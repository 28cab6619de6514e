// The library's own module handle, the place its dialogs and strings load
// from, and the library's start and end.
#pragma once

#include <windows.h>

#include "bounded_text.h"

HINSTANCE LibraryModule();
void KeepLibraryModule(HINSTANCE module);

// The library's folder, without the final backslash; false, and the folder
// empty, when the path can't be had.
bool LibraryFolder(char (&folder)[zv::kPathSize]);

// The start: the module handle kept and the option context made; false
// when the record can't be had, and the library must not load. The end:
// the thumbnails and the record given back. The DLL's entry point calls
// them; a program that links the library's objects calls them itself.
bool AttachLibrary(HINSTANCE module);
void DetachLibrary();
