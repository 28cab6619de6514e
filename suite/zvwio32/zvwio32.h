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
// reads fall back through the ancestors. Keys longer than 63 characters are
// cut; a null or empty key is refused.
ZVWIO32_API char* ZvGetTag(TagSet* tags, const char* key);  // null when absent
ZVWIO32_API int ZvGetIntTag(TagSet* tags, const char* key);
ZVWIO32_API double ZvGetFloatTag(TagSet* tags, const char* key);
ZVWIO32_API short ZvSetTag(TagSet* tags, const char* key, const char* value);  // "" removes
ZVWIO32_API short ZvSetIntTag(TagSet* tags, const char* key, int value);
ZVWIO32_API short ZvSetFloatTag(TagSet* tags, const char* key, double value, int digits);
ZVWIO32_API short ZvSetGlobalTag(TagSet* tags, const char* key, const char* value);  // into the root
ZVWIO32_API short ZvSetGlobalIntTag(TagSet* tags, const char* key, int value);
ZVWIO32_API TagSearch* ZvOpenTagSearch(TagSet* tags, const char* prefix);
ZVWIO32_API char* ZvTagSearch(TagSearch* search);  // next key without the prefix, or null

// --- Control binding. The key is prefix + name.
ZVWIO32_API void DisplayCheckBoxTag(HWND dialog, int control, const char* prefix, const char* name, TagSet* tags);
ZVWIO32_API void RetrieveCheckBoxTag(HWND dialog, int control, const char* prefix, const char* name, TagSet* tags);
ZVWIO32_API void DisplayRadioButtonTag(HWND dialog, int first, int last, const char* prefix, const char* name,
                                       TagSet* tags, int valuesId, HINSTANCE module);
ZVWIO32_API void RetrieveRadioButtonTag(HWND dialog, int first, int last, const char* prefix, const char* name,
                                        TagSet* tags, int valuesId, HINSTANCE module);
ZVWIO32_API void LoadList(HWND dialog, int list, int label, const char* prefix, const char* name, TagSet* tags,
                          int shownId, int valuesId, HINSTANCE module);
// Stores the value that belongs to the selection and gives it (a buffer of
// the library's that stays valid until the next call), or null.
ZVWIO32_API char* RetrieveList(HWND dialog, int list, const char* prefix, const char* name, TagSet* tags,
                               int valuesId, HINSTANCE module);
ZVWIO32_API void DisplayTrackBarTag(HWND dialog, int trackBar, int edit, const char* prefix, const char* name,
                                    TagSet* tags, int min, int max);
ZVWIO32_API void RetrieveTrackBarTag(HWND dialog, int trackBar, int edit, int label, const char* prefix,
                                     const char* name, TagSet* tags, int min, int max, int* valid);
ZVWIO32_API int HandleTrackBarScroll(HWND dialog, WPARAM wParam, LPARAM lParam);
ZVWIO32_API void DisplayEditIntTag(HWND dialog, int edit, const char* prefix, const char* name, TagSet* tags);
ZVWIO32_API void RetrieveEditIntTag(HWND dialog, int edit, int label, const char* prefix, const char* name,
                                    TagSet* tags, int min, int max, int* valid);
ZVWIO32_API double DisplayEditFloatTag(HWND dialog, int edit, const char* prefix, const char* name, TagSet* tags);
ZVWIO32_API double RetrieveEditFloatTag(HWND dialog, int edit, int label, const char* prefix, const char* name,
                                        TagSet* tags, double min, double max, int* valid);

// --- String lists: string table entries with "~" between the items; an
// entry that ends in "~" goes on in the next entry. Items are written into
// item (up to size bytes, cut).
ZVWIO32_API int GetListItem(int id, int index, HINSTANCE module, char* item, int size);
ZVWIO32_API int GetListIndex(int id, const char* text, HINSTANCE module);  // -1 when absent

// --- Text and numbers.
ZVWIO32_API void IntToString(int value, char* text);
ZVWIO32_API void LongToString(long value, char* text);
ZVWIO32_API void DoubleToString(char* text, double value);
ZVWIO32_API int StringToInt(const char* text);  // non-numeric text reads as 0
ZVWIO32_API long StringToLong(const char* text);
ZVWIO32_API double StringToDouble(const char* text);
ZVWIO32_API char* StrChrFirst(const char* text, int character);
ZVWIO32_API char* StrChrLast(const char* text, int character);
ZVWIO32_API char* StrSubstring(char* out, const char* text, int start, int count);
ZVWIO32_API char* StrCopyNum(char* out, const char* text);  // the leading number of text
// Splits a path; each part (may be null) gets at most MAX_PATH bytes; the
// extension comes without its dot.
ZVWIO32_API void ZvSplitPath(const char* path, char* dir, char* name, char* ext);
ZVWIO32_API int ZvCanReadFile(const char* path);
ZVWIO32_API HCURSOR ZvSetCursor(LPCSTR cursorId);
ZVWIO32_API int ZvWaitForInput(HWND control);  // 0 while more input waits
ZVWIO32_API void ZvYield();

ZVWIO32_API double DivideDouble(double numerator, double denominator);  // 0 for a zero denominator
ZVWIO32_API double RoundOff(double value, int digits);
// Converts value from one unit ("IN", "CM", "PICA", "PIX", "MULT") to
// another; dpi serves "PIX", reference (a length in pixels) serves "MULT".
ZVWIO32_API double ConvertUnits(double value, const char* from, const char* to, double dpi, double reference);
ZVWIO32_API void GetRotatedSize(double angle, double width, double height, double* newWidth, double* newHeight);
// The new pixel size that the destination's size tags ask for, 0 when none.
ZVWIO32_API int CalculateResize(TagSet* tags, const char* destKey, long width, long height, long* newWidth,
                                long* newHeight);
// Rewrite the destination's resolution tags in dots per inch, or in tenths
// of a micron per dot (254000 divided by the value, either way).
ZVWIO32_API void ResolutionToDPI(TagSet* tags, const char* destKey);
ZVWIO32_API void ResolutionToDeciMicrons(TagSet* tags, const char* destKey);
ZVWIO32_API COLORREF GetColorRefFromTextRGB(const char* text);  // "RRGGBB"
ZVWIO32_API void GetTextHexRGB(COLORREF color, char* text);     // 7 bytes
ZVWIO32_API long GetNumColors(HWND window);
ZVWIO32_API HDC GetPrinterDC(const char* name);
ZVWIO32_API void InsertCommas(char* text);  // "1234567" becomes "1,234,567" in place
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
