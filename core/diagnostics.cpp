#include "diagnostics.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>

namespace {

constexpr char kSwitch[] = "ZVOPT32_DIAGNOSTICS";
constexpr char kPrefix[] = "ZVOPT32: ";
constexpr int kLineSize = 512;

// Read at every call, so that a host may switch it on and off while it
// runs; the lines come from entries, never from a loop over pixels.
bool Enabled()
{
    char value[8] = {};
    DWORD length = GetEnvironmentVariableA(kSwitch, value, sizeof value);
    return length != 0 && !(length == 1 && value[0] == '0');
}

}  // namespace

void Diagnostic(const char* format, ...)
{
    if (!Enabled())
        return;
    char line[kLineSize];
    constexpr int kPrefixLength = sizeof kPrefix - 1;
    std::snprintf(line, sizeof line, "%s", kPrefix);
    va_list args;
    va_start(args, format);
    // One byte stays free for the line end.
    int written = std::vsnprintf(line + kPrefixLength, sizeof line - kPrefixLength - 1, format, args);
    va_end(args);
    int end = kPrefixLength + (written < 0 ? 0 : written);
    if (end > kLineSize - 2)
        end = kLineSize - 2;
    line[end] = '\n';
    line[end + 1] = '\0';
    OutputDebugStringA(line);
}
