// Small text, number, file and device helpers.
#include <climits>
#include <cstdio>
#include <cstring>
#include <string>

#include "portable/zvw_portable.h"
#include "zvwio32.h"

ZVWIO32_API void IntToString(int value, char* text)
{
    if (text)
        std::snprintf(text, 12, "%d", value);
}

ZVWIO32_API void LongToString(long value, char* text)
{
    if (text)
        std::snprintf(text, 12, "%ld", value);
}

ZVWIO32_API void DoubleToString(char* text, double value)
{
    zvw::CopyText(text, 32, zvw::FormatDouble(value, 6).c_str());
}

ZVWIO32_API int StringToInt(const char* text)
{
    const long v = zvw::ParseLong(text);
    return v > INT_MAX ? INT_MAX : (v < INT_MIN ? INT_MIN : static_cast<int>(v));
}

ZVWIO32_API long StringToLong(const char* text)
{
    return zvw::ParseLong(text);
}

ZVWIO32_API double StringToDouble(const char* text)
{
    return zvw::ParseDouble(text);
}

ZVWIO32_API char* StrChrFirst(const char* text, int character)
{
    return text ? const_cast<char*>(std::strchr(text, character)) : nullptr;
}

ZVWIO32_API char* StrChrLast(const char* text, int character)
{
    return text ? const_cast<char*>(std::strrchr(text, character)) : nullptr;
}

namespace {

// What the form of InsertCommas without a size may fill: the commas of the
// longest long, "-2,147,483,648", take 15 bytes with the zero.
constexpr std::size_t kCommasOfLongSize = 16;

// A caller's size or count as the portable forms take it: none for 0 or
// less.
std::size_t Room(int size)
{
    return size > 0 ? static_cast<std::size_t>(size) : 0;
}

// The room that the forms without a size need for count characters and the
// zero: what they write, and what their callers must give.
std::size_t RoomFor(int count)
{
    return Room(count) + 1;
}

}  // namespace

ZVWIO32_API char* StrSubstring(char* out, int size, const char* text, int start, int count)
{
    zvw::CopySubstring(out, Room(size), text, start, count);
    return out;
}

ZVWIO32_API char* StrSubstring(char* out, const char* text, int start, int count)
{
    zvw::CopySubstring(out, RoomFor(count), text, start, count);
    return out;
}

ZVWIO32_API char* StrCopyNum(char* out, int size, const char* text, int count)
{
    zvw::CopyLeadingNumber(out, Room(size), text, Room(count));
    return out;
}

ZVWIO32_API char* StrCopyNum(char* out, const char* text, int count)
{
    zvw::CopyLeadingNumber(out, RoomFor(count), text, Room(count));
    return out;
}

ZVWIO32_API char* StrCopyNum(char* out, const char* text)
{
    // The number is a part of text, so the text's own length bounds it.
    const std::size_t room = text ? std::strlen(text) + 1 : 1;
    zvw::CopyLeadingNumber(out, room, text, room - 1);
    return out;
}

ZVWIO32_API void ZvSplitPath(const char* path, char* dir, char* name, char* ext)
{
    zvw::SplitPath(path, dir, name, ext, MAX_PATH);
}

ZVWIO32_API int ZvCanReadFile(const char* path)
{
    if (!path || !*path)
        return 0;
    HANDLE h = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return 0;
    CloseHandle(h);
    return 1;
}

ZVWIO32_API HCURSOR ZvSetCursor(LPCSTR cursorId)
{
    return SetCursor(LoadCursorA(nullptr, cursorId));
}

ZVWIO32_API HCURSOR ZvSetCursor(HWND window, HCURSOR cursor)
{
    // Only the cursor itself changes: a window's class cursor is shared by
    // every window of its class (all dialogs, all edits), so it is left be;
    // the caller puts the arrow back when its work is done.
    (void)window;
    return SetCursor(cursor);
}

ZVWIO32_API int ZvWaitForInput(HWND control)
{
    (void)control;
    // Keys and clicks that wait in the queue will change the field again at
    // once; a slow redraw for this change would be thrown away.
    return HIWORD(GetQueueStatus(QS_KEY | QS_MOUSEBUTTON)) ? 0 : 1;
}

ZVWIO32_API void ZvYield()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        if (msg.message == WM_QUIT) {
            // The loop that owns the thread must still see it.
            PostQuitMessage(static_cast<int>(msg.wParam));
            return;
        }
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
}

ZVWIO32_API int DrawSpinControl(const DRAWITEMSTRUCT* item, int up)
{
    if (!item)
        return 0;
    RECT r = item->rcItem;
    UINT state = up ? DFCS_SCROLLUP : DFCS_SCROLLDOWN;
    if (item->itemState & ODS_SELECTED)
        state |= DFCS_PUSHED;
    if (item->itemState & ODS_DISABLED)
        state |= DFCS_INACTIVE;
    DrawFrameControl(item->hDC, &r, DFC_SCROLL, state);
    return 1;
}

ZVWIO32_API double DivideDouble(double numerator, double denominator)
{
    return zvw::Divide(numerator, denominator);
}

ZVWIO32_API double RoundOff(double value, double step)
{
    return zvw::RoundToStep(value, step);
}

ZVWIO32_API double ConvertUnits(const char* from, const char* to, double value, double dpi, double reference)
{
    return zvw::Convert(from, to, value, dpi, reference);
}

ZVWIO32_API void GetRotatedSize(double angle, double width, double height, double* newWidth, double* newHeight)
{
    zvw::RotatedSize(angle, width, height, newWidth, newHeight);
}

ZVWIO32_API COLORREF GetColorRefFromTextRGB(const char* text)
{
    const std::uint32_t v = zvw::ParseHexRgb(text);
    return RGB((v >> 16) & 0xFF, (v >> 8) & 0xFF, v & 0xFF);
}

ZVWIO32_API void GetTextHexRGB(COLORREF color, char* text)
{
    if (text)
        zvw::FormatHexRgb(GetRValue(color), GetGValue(color), GetBValue(color), text);
}

ZVWIO32_API long GetNumColors(HWND window)
{
    HDC dc = GetDC(window);
    if (!dc)
        return 0;
    const int bits = GetDeviceCaps(dc, BITSPIXEL) * GetDeviceCaps(dc, PLANES);
    ReleaseDC(window, dc);
    if (bits >= 24)
        return 16777216L;
    if (bits <= 0)
        return 0;
    return 1L << bits;
}

ZVWIO32_API HDC GetPrinterDC(const char* name)
{
    char device[256] = {};
    if (name && *name) {
        zvw::CopyText(device, sizeof device, name);
    } else {
        // "device" of [windows] reads "name,driver,port"; the name is first.
        char line[512] = {};
        GetProfileStringA("windows", "device", "", line, sizeof line);
        if (char* comma = std::strchr(line, ','))
            *comma = 0;
        zvw::CopyText(device, sizeof device, line);
    }
    if (!*device)
        return nullptr;
    return CreateDCA("WINSPOOL", device, nullptr, nullptr);
}

ZVWIO32_API void InsertCommas(char* text, int size)
{
    zvw::InsertCommas(text, Room(size));
}

ZVWIO32_API void InsertCommas(char* text)
{
    if (text)
        zvw::InsertCommas(text, zvw::CommasRoom(std::strlen(text)));
}

ZVWIO32_API void InsertCommas(long value, char* text, int size)
{
    zvw::FormatWithCommas(value, text, Room(size));
}

ZVWIO32_API void InsertCommas(long value, char* text)
{
    zvw::FormatWithCommas(value, text, kCommasOfLongSize);
}

ZVWIO32_API long GetFileDateAndSize(const char* path, char* date)
{
    if (date)
        date[0] = 0;
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!path || !GetFileAttributesExA(path, GetFileExInfoStandard, &data))
        return -1;
    if (date) {
        FILETIME local = {};
        SYSTEMTIME st = {};
        if (FileTimeToLocalFileTime(&data.ftLastWriteTime, &local) && FileTimeToSystemTime(&local, &st)) {
            char day[64] = {}, time[64] = {};
            GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &st, nullptr, day, sizeof day);
            GetTimeFormatA(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &st, nullptr, time, sizeof time);
            std::string text = std::string(day) + " " + time;
            zvw::CopyText(date, 64, text.c_str());
        }
    }
    if (data.nFileSizeHigh != 0 || data.nFileSizeLow > static_cast<DWORD>(LONG_MAX))
        return LONG_MAX;
    return static_cast<long>(data.nFileSizeLow);
}
