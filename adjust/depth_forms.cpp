#include "depth_forms.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <strings.h>

namespace zv {

namespace {

void Put(char* out, std::size_t size, const char* text)
{
    if (size == 0)
        return;
    std::snprintf(out, size, "%s", text);
}

bool SameNoCase(const char* a, const char* b)
{
    return a != nullptr && strcasecmp(a, b) == 0;
}

}  // namespace

int BitsOfColours(long colours)
{
    int bits = 0;
    for (unsigned long c = static_cast<unsigned long>(colours); c > 1; c /= 2)
        ++bits;
    return bits;
}

void DepthTagToList(const char* stored, bool bitsNamed, const char* bitSuffix, char* out, std::size_t size)
{
    char text[64] = {};
    if (bitsNamed) {
        std::snprintf(text, sizeof text, "%s%s", stored, bitSuffix);
    } else {
        const long bits = std::strtol(stored, nullptr, 10);
        // Beyond 62 bits no number of colours is meant: the tag goes.
        const long long colours = bits <= 0 ? 1 : bits > 62 ? 0 : 1ll << bits;
        std::snprintf(text, sizeof text, "%lld", colours);
    }
    Put(out, size, std::strcmp(text, "0") == 0 ? "" : text);
}

void DepthListToTag(const char* shown, bool bitsNamed, char* out, std::size_t size)
{
    char text[32] = {};
    if (bitsNamed) {
        const long bits = std::strtol(shown, nullptr, 10);
        if (bits != 0)
            std::snprintf(text, sizeof text, "%ld", bits);
    } else {
        const long colours = std::strtol(shown, nullptr, 10);
        if (colours != 0)
            std::snprintf(text, sizeof text, "%d", BitsOfColours(colours));
    }
    Put(out, size, text);
}

int DepthListEntry(long current, bool inPlace)
{
    for (int i = 0; i < kDepthListCount; ++i)
        if (kDepthListColours[i] == current)
            return i + 1;
    if (inPlace && current > kDepthListColours[kDepthListCount - 1])
        return kDepthListCount;
    return 0;
}

int ReductionMethod(const char* value)
{
    if (SameNoCase(value, "HALF"))
        return 0;
    if (SameNoCase(value, "SNAP"))
        return 1;
    if (SameNoCase(value, "DIFF"))
        return 2;
    return 3;
}

}  // namespace zv
