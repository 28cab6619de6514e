#include "filter_list.h"

#include <cctype>
#include <cstring>

namespace zvfmt {
namespace {

// Patterns are upper case, as the extensions of the format table are: the
// extension that a type entry gives a typed name (NOTES becoming NOTES.GIF)
// and the type tags that the dialogs store then read as the table has them.
std::string Upper(std::string_view text)
{
    std::string out(text);
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

bool Wanted(const FormatRecord& format, FilterKind kind, bool rasterOnly)
{
    if (rasterOnly && format.type != 1 && format.type != 5) return false;
    switch (kind) {
    case FilterKind::Source: return format.readable;
    case FilterKind::Dest: return format.writable;
    case FilterKind::Any: return true;
    }
    return false;
}

FilterEntry EntryOf(const FormatRecord& format, FilterKind kind)
{
    FilterEntry entry;
    entry.pattern = "*." + Upper(format.ext);
    if (kind != FilterKind::Dest)
        for (const std::string& alias : format.aliases) entry.pattern += ";*." + Upper(alias);
    entry.name = format.name + " (" + entry.pattern + ")";
    return entry;
}

std::string JoinedPatterns(const std::vector<FilterEntry>& entries)
{
    std::string joined;
    for (const FilterEntry& entry : entries) {
        if (!joined.empty()) joined += ';';
        joined += entry.pattern;
    }
    return joined;
}

bool IsSeparator(char c)
{
    return c == ';' || c == ',' || c == '~' || c == '|' || c == ' ' || c == '\t';
}

}  // namespace

FilterKind KindFromLetter(int kind)
{
    if (kind == 'S' || kind == 's') return FilterKind::Source;
    if (kind == 'D' || kind == 'd') return FilterKind::Dest;
    return FilterKind::Any;
}

std::vector<FilterEntry> FormatEntries(const FormatTable* table, FilterKind kind, bool rasterOnly)
{
    std::vector<FilterEntry> entries;
    if (table == nullptr) return entries;
    for (const FormatRecord& format : table->formats)
        if (Wanted(format, kind, rasterOnly)) entries.push_back(EntryOf(format, kind));
    return entries;
}

std::vector<FilterEntry> CustomEntries(const FormatTable* table, FilterKind kind, const char* text)
{
    std::vector<FilterEntry> entries;
    if (table == nullptr) return entries;
    std::vector<int> taken;
    std::string_view rest = text != nullptr ? text : "";
    while (!rest.empty()) {
        while (!rest.empty() && IsSeparator(rest.front())) rest.remove_prefix(1);
        std::size_t length = 0;
        while (length < rest.size() && !IsSeparator(rest[length])) ++length;
        std::string word(rest.substr(0, length));
        rest.remove_prefix(length);
        if (word.empty()) continue;
        const char* ext = word.c_str();
        if (ext[0] == '*') ++ext;  // "*.bmp" names BMP as "bmp" does
        int row = FindFormat(*table, ext);
        if (row < 0 || !Wanted(table->formats[row], kind, false)) continue;
        bool repeated = false;
        for (int t : taken) repeated = repeated || t == row;
        if (repeated) continue;
        taken.push_back(row);
        entries.push_back(EntryOf(table->formats[row], kind));
    }
    if (entries.empty()) return FormatEntries(table, kind, false);
    return entries;
}

void AddLabelEntry(std::vector<FilterEntry>& entries, std::string_view label, FilterKind kind)
{
    FilterEntry entry;
    std::string joined = JoinedPatterns(entries);
    std::size_t open = label.rfind('(');
    std::size_t close = open == std::string_view::npos ? open : label.find(')', open);
    if (close == std::string_view::npos) {
        entry.name = std::string(label);
        entry.pattern = joined;
    } else {
        std::string_view inside = label.substr(open + 1, close - open - 1);
        if (inside == "...") {
            entry.name = std::string(label.substr(0, open + 1)) + joined + std::string(label.substr(close));
            entry.pattern = joined;
        } else {
            entry.name = std::string(label);
            entry.pattern = std::string(inside);
        }
    }
    // A dialog drops an entry whose pattern is empty, and every later one with it.
    if (entry.pattern.empty()) entry.pattern = "*.*";
    if (kind == FilterKind::Source)
        entries.insert(entries.begin(), std::move(entry));
    else
        entries.push_back(std::move(entry));
}

std::vector<FilterEntry> ParseFilterText(std::string_view text)
{
    std::vector<FilterEntry> entries;
    std::vector<std::string> items = SplitTilde(text);
    for (std::size_t i = 0; i + 1 < items.size(); i += 2) entries.push_back({items[i], items[i + 1]});
    return entries;
}

char** PackFilterList(const std::vector<FilterEntry>& entries, void* (*alloc)(unsigned long))
{
    std::vector<std::string> texts;
    for (const FilterEntry& entry : entries) {
        texts.push_back(entry.name);
        texts.push_back(entry.pattern);
    }
    return PackTextList(texts, alloc);
}

char** PackTextList(const std::vector<std::string>& texts, void* (*alloc)(unsigned long))
{
    std::size_t pointers = (texts.size() + 1) * sizeof(char*);
    std::size_t bytes = 1;  // the closing zero of the block
    for (const std::string& text : texts) bytes += text.size() + 1;
    if (alloc == nullptr || pointers + bytes > 0x7fffffffu) return nullptr;
    void* memory = alloc(static_cast<unsigned long>(pointers + bytes));
    if (memory == nullptr) return nullptr;
    char** list = static_cast<char**>(memory);
    char* block = static_cast<char*>(memory) + pointers;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        list[i] = block;
        std::memcpy(block, texts[i].c_str(), texts[i].size() + 1);
        block += texts[i].size() + 1;
    }
    *block = '\0';
    list[texts.size()] = nullptr;
    return list;
}

std::vector<std::string> PatternsOfItem(std::string_view item)
{
    std::vector<std::string> patterns;
    std::size_t open = item.rfind('(');
    if (open == std::string_view::npos) return patterns;
    std::size_t close = item.find(')', open);
    if (close == std::string_view::npos) return patterns;
    std::string_view inside = item.substr(open + 1, close - open - 1);
    while (!inside.empty()) {
        std::size_t semi = inside.find(';');
        std::string_view one = inside.substr(0, semi);
        while (!one.empty() && one.front() == ' ') one.remove_prefix(1);
        while (!one.empty() && one.back() == ' ') one.remove_suffix(1);
        if (!one.empty()) patterns.emplace_back(one);
        if (semi == std::string_view::npos) break;
        inside.remove_prefix(semi + 1);
    }
    return patterns;
}

std::string ExtOfItem(std::string_view item)
{
    std::vector<std::string> patterns = PatternsOfItem(item);
    if (patterns.empty()) return {};
    const std::string& first = patterns.front();
    std::size_t dot = first.find('.');
    if (dot == std::string::npos) return {};
    std::string ext = first.substr(dot + 1);
    for (char c : ext)
        if (c == '*' || c == '?' || c == '.') return {};
    return ext;
}

int FindItemForExt(const std::vector<std::string>& items, const char* ext)
{
    if (ext == nullptr) return -1;
    if (*ext == '.') ++ext;
    if (*ext == '\0' || std::strpbrk(ext, "*?;") != nullptr) return -1;
    std::string wanted = std::string("*.") + ext;
    int best = -1;
    std::size_t bestPlace = 0, bestCount = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        std::vector<std::string> patterns = PatternsOfItem(items[i]);
        for (std::size_t place = 0; place < patterns.size(); ++place) {
            if (!EqualNoCase(patterns[place], wanted)) continue;
            if (best < 0 || place < bestPlace || (place == bestPlace && patterns.size() < bestCount)) {
                best = static_cast<int>(i);
                bestPlace = place;
                bestCount = patterns.size();
            }
            break;
        }
    }
    return best;
}

}  // namespace zvfmt
