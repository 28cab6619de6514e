// The suite's format table as plain data, and the rules that read it. This
// part needs no windows.h: the registry DLL feeds it the text of its table
// resource, and the native tests feed it the same file.
//
// The table is text, one line per entry; blank lines and lines that begin
// with ";" are ignored. A format line has seven fields separated by "|":
//
//   EXT|KEY|TYPE|ACCESS|NAME|FLAVOURS|DEPTHS
//
//   EXT       the main file extension, 1 to 8 letters or digits
//   KEY       the internal extension that tag keys use, 1 to 3 letters or digits
//   TYPE      0 none, 1 raster, 2 vector, 3 metafile, 5 fax, 6 3D entity
//   ACCESS    "R" readable, "W" writable, "RW" both, "-" neither
//   NAME      the name shown to the user
//   FLAVOURS  the built-in flavour names, "~" between them; may be empty
//   DEPTHS    the entries of the colour depth list, "~" between them, as the
//             list shows them; may be empty (no depth to choose)
//
// A line of two fields, "EXT|KEY", names another file extension of the
// format whose KEY it gives; that format must stand above it. One line
//
//   DEFAULT-DEPTHS|entries
//
// gives the depth list for keys that name no format.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct FormatRecord {
    std::string ext;   // main file extension, upper case
    std::string key;   // internal extension, upper case
    int type = 0;
    bool readable = false;
    bool writable = false;
    std::string name;
    std::vector<std::string> flavours;
    std::vector<std::string> depths;
    std::vector<std::string> aliases;  // further file extensions, upper case
};

struct FormatTable {
    std::vector<FormatRecord> formats;
    std::vector<std::string> defaultDepths;
    std::vector<std::string> errors;  // "line N: why" for each line left out
};

namespace zvfmt {

// Reads the table text. Lines in error are left out and noted in errors;
// the rest of the table still counts.
FormatTable ParseFormatTable(std::string_view text);

// The row of a format, found by its extension, another extension of it, or
// its internal extension, without regard to case and to one leading ".".
// -1 for null, empty or unknown text.
int FindFormat(const FormatTable& table, const char* ext);

// What an extension that names no format becomes as an internal extension:
// the text itself without a leading ".", upper case, cut to three
// characters, so that keys built from it keep their shape. out holds 4 bytes.
void UnknownInternalExt(const char* ext, char* out);

// Splits "a~b~c" into its items; empty items are kept except a trailing one.
std::vector<std::string> SplitTilde(std::string_view text);

bool EqualNoCase(std::string_view a, std::string_view b);

}  // namespace zvfmt
