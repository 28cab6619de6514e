// The target application tables: runs of string table entries that name a
// receiving program and the tags that suit it. Free of the platform, so that
// the grammar is tested and fuzzed natively; the dialog supplies the strings.
#pragma once

#include <cstddef>
#include <string_view>

namespace zv {

// First string of each table. Raster sources (types 1 and 5) have their
// own; every other source type shares the vector table.
constexpr int kRasterAppTable = 15100;
constexpr int kVectorAppTable = 15200;
int TargetAppTableFor(short srcType);

// Each string of a table is read into room for this many characters.
constexpr std::size_t kTableStringRoom = 255;

// Loads string `id` into text (room for size bytes, zero-ended); false when
// the string doesn't exist.
using TableStringLoader = bool (*)(void* context, int id, char* text, std::size_t size);
// Called for every entry with at least one character; false stops the walk.
using TableEntryVisitor = bool (*)(void* context, std::string_view entry);

enum class TableEnd { kRegular, kMissingString, kStopped };

// Walks the table from firstId: a string ending in "~" goes on in the next
// one, any other string is the last. A missing string also ends the table.
TableEnd WalkTargetAppTable(int firstId, TableStringLoader load, void* loadContext, TableEntryVisitor visit,
                            void* visitContext);

// The application's name of an entry: the text up to the first "|".
std::string_view TargetAppName(std::string_view entry);

// One KEY=VALUE field of an entry. A key that holds "?" is a key with a
// source prefix: what stands behind its last "?" goes behind srcExt.
struct TargetAppField {
    char key[64];
    char value[256];
};

// Reads the next field behind `rest` (the entry after its name, or what an
// earlier call left). Gives false when there is none; fields without "=" or
// with an empty key are skipped, since they name no tag.
bool NextTargetAppField(std::string_view& rest, const char* srcExt, TargetAppField& field);

}  // namespace zv
