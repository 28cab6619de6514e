// Codes that OKACVT32 gives, and where the texts of codes stand in its
// string table. No windows.h: the mapping is tested natively.
//
// String ids of the texts:
//   code -1 .. -9999   (errors)    20000 + (-code), so -1007 is 21007
//   code  0 .. 9999    (warnings)  30000 + code,    so warning 12 is 30012
// Any other code, and a code whose string is missing, gets a generic text
// with its number.
#pragma once

namespace zvcvt {

constexpr short kCvtInvalidParameter = -1001;

constexpr int kErrorBase = 20000;
constexpr int kWarningBase = 30000;

// The string id of a code's text, or 0 when the code has no place.
constexpr int MessageStringId(int code)
{
    if (code < 0 && code >= -9999) return kErrorBase - code;
    if (code >= 0 && code <= 9999) return kWarningBase + code;
    return 0;
}

}  // namespace zvcvt
