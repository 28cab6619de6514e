// The fonts of the system's font key, by their position among its values:
// a region's font index counts that position.
#pragma once

#include <cstddef>

// HKEY_LOCAL_MACHINE\...\Fonts, whose value names are a font's name and,
// for TrueType fonts, " (TrueType)".
extern const char kFontKey[];

// The position of the first value that begins with name + " (TrueType)",
// without regard to case; a single trailing blank of a one-word name is
// dropped first. -1 when there is none or the key can't be read.
int FindFontIndex(const char* name);
// The name of the value at index without " (TrueType)", in out (size
// bytes); null, and out as it was, when the key or the value can't be read.
char* GetFontNameAt(int index, char* out, std::size_t size);
