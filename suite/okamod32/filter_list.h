// File type lists for the file dialogs, built from the format table. No
// windows.h here: the Windows side loads the label text and hands the
// packed list to the dialog.
//
// A packed list is one allocation: an array of 2n+1 pointers, then the text
// block that they point into. Element 2i is the name of entry i and 2i+1 its
// pattern; each text ends in a zero and the block in a second one, so that
// element 0 serves as the lpstrFilter of a file dialog. Element 2n is null.
// One free of the array gives all of it back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "format_table.h"

namespace zvfmt {

struct FilterEntry {
    std::string name;
    std::string pattern;  // "*.ext", or several joined by ";"
};

enum class FilterKind { Source, Dest, Any };

// 'S' or 's' source formats, 'D' or 'd' destination formats, anything else
// every format of the table.
FilterKind KindFromLetter(int kind);

// One entry per format of the kind, in table order, named "Name (*.ext)".
// A source entry lists every extension of its format, so that the dialog
// shows all of its files; a destination entry has the main extension alone,
// since a file is written under one name and callers read the extension
// behind the pattern's first ".". rasterOnly keeps types 1 and 5 only.
std::vector<FilterEntry> FormatEntries(const FormatTable* table, FilterKind kind, bool rasterOnly);

// A host's own choice of formats: extensions (a "*." in front is allowed)
// separated by ";", ",", "~", "|" or blanks, kept in the order given. Words
// that name no format of the kind, and repeats, are passed over. When no
// word names one, the list is that of FormatEntries, so that any text gives
// a usable list.
std::vector<FilterEntry> CustomEntries(const FormatTable* table, FilterKind kind, const char* text);

// Adds the entry of a caller's label, such as "Known formats (...)" or
// "All files (*.*)". A "(...)" in the label is filled with the patterns of
// the entries, and that entry shows the files of all of them; a label with
// patterns of its own in brackets keeps them; a label without brackets gets
// the joined patterns as its pattern. A source list has this entry first, so
// that the open dialog starts on it; every other list has it last, so that
// entry i of a destination list is format i.
void AddLabelEntry(std::vector<FilterEntry>& entries, std::string_view label, FilterKind kind);

// Pairs from a string table list "name~pattern~name~pattern"; an item
// without its partner is dropped.
std::vector<FilterEntry> ParseFilterText(std::string_view text);

// Packs the entries as told above; alloc must give zeroed memory or null.
// An empty list packs as one null element. Null when alloc fails.
char** PackFilterList(const std::vector<FilterEntry>& entries, void* (*alloc)(unsigned long));

// A null-ended array of texts in one allocation, as PackFilterList.
char** PackTextList(const std::vector<std::string>& texts, void* (*alloc)(unsigned long));

// The patterns in the last bracket pair of a file type list entry, such as
// "TIFF (*.tif;*.tiff)": "*.tif", "*.tiff".
std::vector<std::string> PatternsOfItem(std::string_view item);

// The extension of an entry: that of its first pattern, without "*.";
// empty when the pattern has no plain extension ("*.*").
std::string ExtOfItem(std::string_view item);

// The entry of a list whose patterns hold "*."+ext, without regard to case;
// -1 when none does. An entry that names the extension earlier in its
// patterns wins, then the one with fewer patterns, so that a format's own
// entry wins over an all-formats entry that holds it too.
int FindItemForExt(const std::vector<std::string>& items, const char* ext);

}  // namespace zvfmt
