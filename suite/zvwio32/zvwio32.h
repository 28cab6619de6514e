// ZVWIO32: tag access with the chain rules, control binding, format helpers
// over the registry, and small text and number helpers.
#pragma once

#include <windows.h>

#include "okaio32.h"

#ifdef ZVWIO32_BUILD
#define ZVWIO32_API __declspec(dllexport)
#else
#define ZVWIO32_API __declspec(dllimport)
#endif

class OKAMOD;

// --- Tag access. Reads and writes through a set go to its deepest child;
// reads fall back through the ancestors. Keys longer than 255 characters
// are cut, values longer than 4095; a null or empty key is refused (a
// negative result, nothing written); a null set reads as empty. Numbers read
// from text that isn't a number are 0.
ZVWIO32_API char* ZvGetTag(TagSet* tags, const char* key);  // null when absent
ZVWIO32_API int ZvGetIntTag(TagSet* tags, const char* key);
ZVWIO32_API double ZvGetFloatTag(TagSet* tags, const char* key);
ZVWIO32_API short ZvSetTag(TagSet* tags, const char* key, const char* value);  // "" removes
ZVWIO32_API short ZvSetIntTag(TagSet* tags, const char* key, int value);
// The number as decimal text with at most `digits` places (10 at most),
// trailing zeros dropped: 32 keeps all that matters, 4 gives 1.2346.
ZVWIO32_API short ZvSetFloatTag(TagSet* tags, const char* key, double value, int digits);
ZVWIO32_API short ZvSetGlobalTag(TagSet* tags, const char* key, const char* value);  // into the root
ZVWIO32_API short ZvSetGlobalIntTag(TagSet* tags, const char* key, int value);
// A search over the keys that begin with prefix (case ignored; "" gives
// all); the caller deletes it. Null for a null set.
ZVWIO32_API TagSearch* ZvOpenTagSearch(TagSet* tags, const char* prefix);
ZVWIO32_API char* ZvTagSearch(TagSearch* search);  // next key without the prefix, or null

// --- Control binding. Arguments go ids first, then the key's parts, bounds
// and module, and the set last (only `valid` after it), as the dialogs call
// them. The key is prefix + name (either may be null). A control that the
// dialog lacks is passed over: nothing is shown, nothing stored, no
// complaint. The Retrieve functions with `valid` leave a value
// that is no number or lies outside min..max unstored, clear *valid, and
// tell the user with a message box that names the label's caption and the
// bounds, then put the focus on the control. Only the first bad value of a
// retrieval is told: a call that finds *valid already 0 tells nothing. An
// empty edit stores the removal of the tag and is no error. A disabled edit
// is stored when its value is good and otherwise left alone silently, since
// the user could not correct it.
ZVWIO32_API void DisplayCheckBoxTag(HWND dialog, int control, const char* prefix, const char* name, TagSet* tags);
// Stores "ON" or "OFF"; gives 1 when the box is checked, else 0.
ZVWIO32_API int RetrieveCheckBoxTag(HWND dialog, int control, const char* prefix, const char* name, TagSet* tags);
// Checks the button at the position of the tag's value in the list (case
// ignored; the first button when the tag is absent or unknown) and gives its
// id, or 0 when there is no such button.
ZVWIO32_API int DisplayRadioButtonTag(HWND dialog, int first, int last, int valuesId, const char* prefix,
                                       const char* name, HINSTANCE module, TagSet* tags);
ZVWIO32_API void RetrieveRadioButtonTag(HWND dialog, int first, int last, int valuesId, const char* prefix,
                                        const char* name, HINSTANCE module, TagSet* tags);
// Fills a combo or list box with the shown texts of shownId and selects the
// entry whose value (of valuesId, or the shown text itself when valuesId is
// 0) equals the tag, case ignored; entry 0 when none does. A list with no
// entries is disabled together with its label.
ZVWIO32_API void LoadList(HWND dialog, int list, int label, int shownId, int valuesId, const char* prefix,
                          const char* name, HINSTANCE module, TagSet* tags);
// Stores the value that belongs to the selection (the selected text itself
// when valuesId is 0) and gives it (a buffer of the library's that stays
// valid until the next call), or null.
ZVWIO32_API char* RetrieveList(HWND dialog, int list, int valuesId, const char* prefix, const char* name,
                               HINSTANCE module, TagSet* tags);
// Sets the bar's range and position and the edit's text from the tag.
ZVWIO32_API void DisplayTrackBarTag(HWND dialog, int trackBar, int edit, const char* prefix, const char* name,
                                    int min, int max, TagSet* tags);
ZVWIO32_API void RetrieveTrackBarTag(HWND dialog, int trackBar, int edit, int label, const char* prefix,
                                     const char* name, int min, int max, TagSet* tags, int* valid);
// WM_HSCROLL or WM_VSCROLL of a track bar shown by DisplayTrackBarTag: writes
// its position into its edit and gives 1; 0 for any other sender.
ZVWIO32_API int HandleTrackBarScroll(HWND dialog, WPARAM wParam, LPARAM lParam);
// An absent tag leaves the edit empty.
ZVWIO32_API void DisplayEditIntTag(HWND dialog, int edit, const char* prefix, const char* name, TagSet* tags);
ZVWIO32_API void RetrieveEditIntTag(HWND dialog, int edit, int label, const char* prefix, const char* name,
                                    int min, int max, TagSet* tags, int* valid);
// A value of 0 leaves the edit empty. Both give the value: the one shown,
// or the one read (the tag's, when the dialog lacks the edit).
ZVWIO32_API double DisplayEditFloatTag(HWND dialog, int edit, const char* prefix, const char* name, TagSet* tags);
ZVWIO32_API double RetrieveEditFloatTag(HWND dialog, int edit, int label, const char* prefix, const char* name,
                                        double min, double max, TagSet* tags, int* valid);

// --- String lists: string table entries with "~" between the items; an
// entry that ends in "~" goes on in the entry of the next id. Items are
// written into item (up to size bytes, cut). GetListItem gives the item's
// length, or -1 (and the empty text) when there is no such item.
// GetListIndex compares without regard to case.
ZVWIO32_API int GetListItem(int id, int index, HINSTANCE module, char* item, int size);
ZVWIO32_API int GetListIndex(int id, const char* text, HINSTANCE module);  // -1 when absent

// --- Text and numbers.
// text must hold 12 bytes for an int or a long, 32 for a double (which gets
// at most six places, trailing zeros dropped).
ZVWIO32_API void IntToString(int value, char* text);
ZVWIO32_API void LongToString(long value, char* text);
ZVWIO32_API void DoubleToString(char* text, double value);
ZVWIO32_API int StringToInt(const char* text);  // non-numeric text reads as 0
ZVWIO32_API long StringToLong(const char* text);
ZVWIO32_API double StringToDouble(const char* text);
ZVWIO32_API char* StrChrFirst(const char* text, int character);
ZVWIO32_API char* StrChrLast(const char* text, int character);
// Substrings, leading numbers and commas. The forms with a size take the
// size of the buffer in bytes right after it: what does not fit is cut, the
// result always ends in a zero, and nothing is written past the buffer (a
// size of 0 or less writes nothing). The forms without a size write all that
// the input gives; the most that each writes is told with it, and the
// buffer must hold that much. The library's own callers use the forms with
// a size.
//
// At most count characters of text from start on: min(count, strlen(text) -
// start) characters and the zero, so at most count + 1 bytes; only the zero
// when start lies outside text or count is 0 or less. Gives out.
ZVWIO32_API char* StrSubstring(char* out, const char* text, int start, int count);
ZVWIO32_API char* StrSubstring(char* out, int size, const char* text, int start, int count);
// The decimal number that text begins with ("-12.5e3"), whole or at most
// count characters of it, and the zero: at most strlen(text) + 1
// bytes, or count + 1 with a count; only the zero when text does not begin
// with a number. Gives out.
ZVWIO32_API char* StrCopyNum(char* out, const char* text);
ZVWIO32_API char* StrCopyNum(char* out, const char* text, int count);
ZVWIO32_API char* StrCopyNum(char* out, int size, const char* text, int count);
// "1234567" becomes "1,234,567" in place; a sign and a fraction stay. A text
// of n characters (n > 0) grows to at most n + (n - 1) / 3 characters and
// the zero: "1234567" takes 10 bytes.
ZVWIO32_API void InsertCommas(char* text);
ZVWIO32_API void InsertCommas(char* text, int size);
// The decimal text of value with its commas: at most 15 bytes, those of
// "-2,147,483,648" and the zero.
ZVWIO32_API void InsertCommas(long value, char* text);
ZVWIO32_API void InsertCommas(long value, char* text, int size);
// Splits a path; each part (may be null) gets at most MAX_PATH bytes; the
// extension comes without its dot.
ZVWIO32_API void ZvSplitPath(const char* path, char* dir, char* name, char* ext);
ZVWIO32_API int ZvCanReadFile(const char* path);
ZVWIO32_API HCURSOR ZvSetCursor(LPCSTR cursorId);
// Shows cursor now (window names where the work goes on); gives the old one.
ZVWIO32_API HCURSOR ZvSetCursor(HWND window, HCURSOR cursor);
ZVWIO32_API int ZvWaitForInput(HWND control);  // 0 while more input waits
ZVWIO32_API void ZvYield();
// Draws one half of a spin button for WM_DRAWITEM: up 1 the upper arrow, 0
// the lower; pushed and disabled states as the item says. Gives 1.
ZVWIO32_API int DrawSpinControl(const DRAWITEMSTRUCT* item, int up);
inline int DrawSpinControl(LPARAM drawItem, int up)
{
    return DrawSpinControl(reinterpret_cast<const DRAWITEMSTRUCT*>(drawItem), up);
}

ZVWIO32_API double DivideDouble(double numerator, double denominator);  // 0 for a zero denominator
// The nearest multiple of step (0.01, 1.0, ...); a step of 0 or less leaves
// the value as it is.
ZVWIO32_API double RoundOff(double value, double step);
// Converts value from one unit ("IN", "CM", "PICA", "PIX", "MULT"; case
// ignored; unknown or null counts as "IN") to another; dpi serves "PIX",
// reference (a length in inches: the size of one multiple) serves "MULT".
// A zero dpi or reference gives 0 where it would divide.
ZVWIO32_API double ConvertUnits(const char* from, const char* to, double value, double dpi, double reference);
ZVWIO32_API void GetRotatedSize(double angle, double width, double height, double* newWidth, double* newHeight);
// The new pixel size that the destination's size tags ask for: 1 and the
// size, or 0 when none is asked for. The modes are told in docs/tags.md.
ZVWIO32_API int CalculateResize(TagSet* tags, const char* destKey, long width, long height, long* newWidth,
                                long* newHeight);
// Rewrite the destination's resolution tags in dots per inch, or in tenths
// of a micron per dot (254000 divided by the value, either way). The set
// chain remembers (in a note) that the tags are in dots per inch, so a second
// ResolutionToDPI leaves them alone, ResolutionToDeciMicrons acts only after
// ResolutionToDPI, and CalculateResize reads them in the right unit.
ZVWIO32_API void ResolutionToDPI(TagSet* tags, const char* destKey);
ZVWIO32_API void ResolutionToDeciMicrons(TagSet* tags, const char* destKey);
ZVWIO32_API COLORREF GetColorRefFromTextRGB(const char* text);  // "RRGGBB"; null gives 0
ZVWIO32_API void GetTextHexRGB(COLORREF color, char* text);     // 7 bytes
ZVWIO32_API long GetNumColors(HWND window);  // of the display; 16777216 for true colour
// A device context of the named printer, or of the default printer for a
// null or empty name; null when there is none. The caller deletes it.
ZVWIO32_API HDC GetPrinterDC(const char* name);
// The file's size (-1 when it can't be read) and its date and time of last
// change as local text into date (64 bytes; empty when there is none).
ZVWIO32_API long GetFileDateAndSize(const char* path, char* date);

// --- Format helpers over the registry (OKAMOD of okamod32).
ZVWIO32_API HKEY ZvGetIndex(OKAMOD* formats, const char* ext);
ZVWIO32_API char* ZvGetInternalExt(OKAMOD* formats, const char* ext);
ZVWIO32_API char* ZvGetName(OKAMOD* formats, HKEY index);
ZVWIO32_API int ZvIsModRaster(OKAMOD* formats, const char* ext);
ZVWIO32_API char** ZvGetAllExtensions(OKAMOD* formats);
ZVWIO32_API void ZvFreeAllExtensions(OKAMOD* formats, char** list);
// A file dialog's list: an array of pointers into one block that holds the
// pairs of name and pattern, each text ended by a zero and the block by two.
// Element 2i is the name of entry i and 2i+1 its pattern, so element 0 also
// serves as lpstrFilter. The array ends in null. kind is 'S' for source
// formats and 'D' for destination formats.
ZVWIO32_API char** ZvCreateFilterList(OKAMOD* formats, HINSTANCE module, int kind, int stringId, int flag);
ZVWIO32_API char** ZvCreateCustomList(OKAMOD* formats, HINSTANCE module, int kind, int stringId, const char* text);
ZVWIO32_API void ZvDeleteFilterList(OKAMOD* formats, char** list);
ZVWIO32_API char** LoadFilterList(HINSTANCE module, int stringId, int* count);
ZVWIO32_API void FreeFilterList(char** list);
ZVWIO32_API int GetFormatIndex(HWND dialog, int listId, const char* ext);  // -1 when absent
ZVWIO32_API int GetIndexExt(HWND dialog, int listId, int index, char* ext);
ZVWIO32_API void ZvLoadFlavorsList(OKAMOD* formats, HWND dialog, int listId, int labelId, const char* key,
                                   TagSet* tags);
ZVWIO32_API void ZvRetrieveFlavorsList(OKAMOD* formats, HWND dialog, int listId, const char* key, TagSet* tags);
