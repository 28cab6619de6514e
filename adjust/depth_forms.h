// The two forms of the depth tag "DEP" and the rules of the number of
// colours page, apart from any window. At rest the tag holds bits per
// pixel; while the page is open it holds what the list shows: a number of
// colours, or for a destination whose depths are named by bits ("TGA") the
// bits followed by " - Bit".
#pragma once

#include <cstddef>

namespace zv {

// The numbers of colours of the page's own list, after "Same" (entry 0).
constexpr long kDepthListColours[] = {2, 8, 16, 32, 64, 128, 256, 512, 4096, 32768, 65536, 262144, 2097152, 16777216};
constexpr int kDepthListCount = static_cast<int>(sizeof kDepthListColours / sizeof kDepthListColours[0]);

// The list's form of a stored value; the empty text when the tag must go.
void DepthTagToList(const char* stored, bool bitsNamed, const char* bitSuffix, char* out, std::size_t size);
// The stored form of the list's text; the empty text when the tag must go
// ("Same", or no number).
void DepthListToTag(const char* shown, bool bitsNamed, char* out, std::size_t size);
// The entry of the page's own list (0 "Same", then kDepthListColours) that
// shows `current` colours. A number that isn't there selects "Same", but
// when the image itself is changed one above the last selects the last.
int DepthListEntry(long current, bool inPlace);
// The engine's number of a reduction method: "HALF" 0, "SNAP" 1, "DIFF" 2,
// "DITH" 3, case ignored; anything else, or none, is 3.
int ReductionMethod(const char* value);
// The bits of a number of colours: how often it halves before it reaches 1.
int BitsOfColours(long colours);

}  // namespace zv
