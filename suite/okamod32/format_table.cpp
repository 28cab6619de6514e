#include "format_table.h"

#include <cctype>
#include <cstring>

namespace zvfmt {
namespace {

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r')) text.remove_suffix(1);
    return text;
}

std::vector<std::string_view> SplitBar(std::string_view line)
{
    std::vector<std::string_view> fields;
    for (;;) {
        std::size_t bar = line.find('|');
        fields.push_back(Trim(line.substr(0, bar)));
        if (bar == std::string_view::npos) break;
        line.remove_prefix(bar + 1);
    }
    return fields;
}

// Extensions and keys are plain letters and digits, so that they can stand
// in tag keys and file patterns without quoting.
bool IsExtText(std::string_view text, std::size_t maxLength)
{
    if (text.empty() || text.size() > maxLength) return false;
    for (char c : text)
        if (!std::isalnum(static_cast<unsigned char>(c))) return false;
    return true;
}

std::string Upper(std::string_view text)
{
    std::string out(text);
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

std::vector<std::string> NonEmptyItems(std::string_view text)
{
    std::vector<std::string> items;
    for (std::string& item : SplitTilde(text))
        if (!Trim(item).empty()) items.emplace_back(Trim(item));
    return items;
}

bool ParseType(std::string_view text, int& type)
{
    if (text.size() != 1) return false;
    switch (text[0]) {
    case '0': case '1': case '2': case '3': case '5': case '6':
        type = text[0] - '0';
        return true;
    default:
        return false;
    }
}

bool ParseAccess(std::string_view text, bool& readable, bool& writable)
{
    std::string access = Upper(text);
    if (access == "-") { readable = writable = false; return true; }
    if (access == "R") { readable = true; writable = false; return true; }
    if (access == "W") { readable = false; writable = true; return true; }
    if (access == "RW") { readable = writable = true; return true; }
    return false;
}

int FindKey(const FormatTable& table, std::string_view key)
{
    for (std::size_t i = 0; i < table.formats.size(); ++i)
        if (EqualNoCase(table.formats[i].key, key)) return static_cast<int>(i);
    return -1;
}

// Gives an empty text when the line is taken, else why it is not.
std::string ParseLine(FormatTable& table, std::string_view line)
{
    std::vector<std::string_view> fields = SplitBar(line);
    if (EqualNoCase(fields[0], "DEFAULT-DEPTHS")) {
        if (fields.size() != 2) return "DEFAULT-DEPTHS takes one field";
        table.defaultDepths = NonEmptyItems(fields[1]);
        return {};
    }
    if (!IsExtText(fields[0], 8)) return "bad extension";
    if (fields.size() < 2 || !IsExtText(fields[1], 3)) return "bad internal extension";
    std::string ext = Upper(fields[0]);
    std::string key = Upper(fields[1]);
    if (FindFormat(table, ext.c_str()) >= 0) return "extension given twice";

    if (fields.size() == 2) {
        int owner = FindKey(table, key);
        if (owner < 0) return "another extension of an unknown format";
        table.formats[owner].aliases.push_back(ext);
        return {};
    }
    if (fields.size() != 7) return "a format line has seven fields";
    if (FindKey(table, key) >= 0) return "internal extension given twice";
    FormatRecord record;
    record.ext = ext;
    record.key = key;
    if (!ParseType(fields[2], record.type)) return "bad type";
    if (!ParseAccess(fields[3], record.readable, record.writable)) return "bad access";
    if (fields[4].empty()) return "no name";
    record.name = std::string(fields[4]);
    record.flavours = NonEmptyItems(fields[5]);
    record.depths = NonEmptyItems(fields[6]);
    table.formats.push_back(std::move(record));
    return {};
}

}  // namespace

bool EqualNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

std::vector<std::string> SplitTilde(std::string_view text)
{
    std::vector<std::string> items;
    if (text.empty()) return items;
    for (;;) {
        std::size_t tilde = text.find('~');
        items.emplace_back(text.substr(0, tilde));
        if (tilde == std::string_view::npos) break;
        text.remove_prefix(tilde + 1);
        if (text.empty()) break;  // a closing "~" adds no item
    }
    return items;
}

FormatTable ParseFormatTable(std::string_view text)
{
    FormatTable table;
    int lineNumber = 0;
    while (!text.empty()) {
        std::size_t end = text.find('\n');
        std::string_view line = Trim(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++lineNumber;
        if (line.empty() || line.front() == ';') continue;
        std::string why = ParseLine(table, line);
        if (!why.empty()) table.errors.push_back("line " + std::to_string(lineNumber) + ": " + why);
    }
    return table;
}

int FindFormat(const FormatTable& table, const char* ext)
{
    if (ext == nullptr) return -1;
    if (*ext == '.') ++ext;
    std::size_t length = std::strlen(ext);
    if (length == 0 || length > 8) return -1;
    std::string_view wanted(ext, length);
    for (std::size_t i = 0; i < table.formats.size(); ++i) {
        const FormatRecord& format = table.formats[i];
        if (EqualNoCase(format.ext, wanted)) return static_cast<int>(i);
        for (const std::string& alias : format.aliases)
            if (EqualNoCase(alias, wanted)) return static_cast<int>(i);
    }
    // An internal extension names its format too, so that a key can be
    // looked up again (a key is what most callers hold).
    return FindKey(table, wanted);
}

void UnknownInternalExt(const char* ext, char* out)
{
    std::size_t n = 0;
    if (ext != nullptr) {
        if (*ext == '.') ++ext;
        for (; n < 3 && ext[n] != '\0'; ++n)
            out[n] = static_cast<char>(std::toupper(static_cast<unsigned char>(ext[n])));
    }
    out[n] = '\0';
}

}  // namespace zvfmt
