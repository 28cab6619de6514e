// The format helpers of ZVWIO32: what the dialogs ask of the format
// registry, answered from the registry's table (okamod32), and the file type
// lists of the file dialogs. Lists that outlive a call come from
// OkiAllocSMem and go back with the matching free function.
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "filter_list.h"
#include "format_table.h"
#include "list_control.h"
#include "okaheap40.h"
#include "okaio32.h"
#include "okamod32.h"
#include "zvwio32.h"

namespace {

// Room for a label or a list text from a caller's string table.
constexpr int kStringRoom = 512;
// A string table list goes on in the next entry while an entry ends in "~";
// a runaway chain stops here.
constexpr int kMaxChain = 16;
// Callers hold extensions in buffers of 256 bytes.
constexpr int kExtRoom = 256;

const FormatTable* TableOf(OKAMOD* formats)
{
    return formats != nullptr ? formats->Table() : nullptr;
}

const FormatRecord* FormatOf(OKAMOD* formats, const char* ext)
{
    const FormatTable* table = TableOf(formats);
    if (table == nullptr) return nullptr;
    int row = zvfmt::FindFormat(*table, ext);
    return row < 0 ? nullptr : &table->formats[row];
}

void* Allocate(unsigned long size)
{
    return OkiAllocSMem(size);
}

std::string LoadText(HINSTANCE module, int id)
{
    char text[kStringRoom];
    int length = LoadStringA(module, static_cast<UINT>(id), text, sizeof text);
    return length > 0 ? std::string(text, static_cast<std::size_t>(length)) : std::string();
}

// A list entry and the entries that it chains to.
std::string LoadChain(HINSTANCE module, int id)
{
    std::string all;
    for (int n = 0; n < kMaxChain; ++n) {
        std::string part = LoadText(module, id + n);
        all += part;
        if (part.empty() || part.back() != '~') break;
    }
    return all;
}

// The caller's label, or a plain one when its string is missing, so that
// the dialog still gets a list.
std::string LabelOf(HINSTANCE module, int stringId, zvfmt::FilterKind kind)
{
    std::string label = LoadText(module, stringId);
    if (!label.empty()) return label;
    return kind == zvfmt::FilterKind::Source ? "All files (*.*)" : "Known formats (...)";
}

char** PackWithLabel(std::vector<zvfmt::FilterEntry> entries, HINSTANCE module, int stringId, zvfmt::FilterKind kind)
{
    zvfmt::AddLabelEntry(entries, LabelOf(module, stringId, kind), kind);
    return zvfmt::PackFilterList(entries, Allocate);
}

std::string FlavourKey(const std::string& key)
{
    return "Zavrin.Image\\Formats\\" + key + "\\Flavors";
}

// The flavours of a format: those of the table, then those that the suite
// defined in the system registry under the format's key, each name once.
std::vector<std::string> FlavoursOf(const FormatRecord& format)
{
    std::vector<std::string> names = format.flavours;
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, FlavourKey(format.key).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return names;
    for (DWORD i = 0;; ++i) {
        char name[256];
        DWORD length = sizeof name;
        LONG result = RegEnumKeyExA(key, i, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_MORE_DATA) continue;  // a name too long for a flavour list
        if (result != ERROR_SUCCESS) break;
        bool known = false;
        for (const std::string& n : names) known = known || zvfmt::EqualNoCase(n, name);
        if (!known) names.emplace_back(name);
    }
    RegCloseKey(key);
    return names;
}

std::string TagKey(const char* key, const char* name)
{
    std::string full = std::string(key != nullptr ? key : "") + name;
    if (full.size() > 63) full.resize(63);  // the store's limit for a key
    return full;
}

}  // namespace

HKEY ZvGetIndex(OKAMOD* formats, const char* ext)
{
    return formats != nullptr ? formats->GetIndex(ext) : nullptr;
}

// A format's key lives in the registry's table for the life of the process.
// An extension that names no format (null formats included) gives itself,
// upper case and cut to three characters ("" for null), in one of a few
// buffers of this thread that later calls reuse: copy it to keep it.
char* ZvGetInternalExt(OKAMOD* formats, const char* ext)
{
    if (const FormatRecord* format = FormatOf(formats, ext)) return const_cast<char*>(format->key.c_str());
    constexpr int kBuffers = 8;
    thread_local char buffers[kBuffers][4];
    thread_local int next = 0;
    char* out = buffers[next];
    next = (next + 1) % kBuffers;
    zvfmt::UnknownInternalExt(ext, out);
    return out;
}

// The name lives in the table; a null or foreign index gives "".
char* ZvGetName(OKAMOD* formats, HKEY index)
{
    static char none[1] = "";
    int row = formats != nullptr ? formats->Row(index) : -1;
    if (row < 0) return none;
    return const_cast<char*>(formats->Table()->formats[row].name.c_str());
}

int ZvIsModRaster(OKAMOD* formats, const char* ext)
{
    const FormatRecord* format = FormatOf(formats, ext);
    return format != nullptr && IsRasterType(format->type) ? 1 : 0;
}

// The main extension of every format, in the order of the file type lists.
char** ZvGetAllExtensions(OKAMOD* formats)
{
    std::vector<std::string> exts;
    if (const FormatTable* table = TableOf(formats))
        for (const FormatRecord& format : table->formats) exts.push_back(format.ext);
    return zvfmt::PackTextList(exts, Allocate);
}

void ZvFreeAllExtensions(OKAMOD*, char** list)
{
    OkiFreeSMem(list);
}

char** ZvCreateFilterList(OKAMOD* formats, HINSTANCE module, int kind, int stringId, int flag)
{
    zvfmt::FilterKind filterKind = zvfmt::KindFromLetter(kind);
    return PackWithLabel(zvfmt::FormatEntries(TableOf(formats), filterKind, flag != 0), module, stringId, filterKind);
}

char** ZvCreateCustomList(OKAMOD* formats, HINSTANCE module, int kind, int stringId, const char* text)
{
    zvfmt::FilterKind filterKind = zvfmt::KindFromLetter(kind);
    return PackWithLabel(zvfmt::CustomEntries(TableOf(formats), filterKind, text), module, stringId, filterKind);
}

void ZvDeleteFilterList(OKAMOD*, char** list)
{
    OkiFreeSMem(list);
}

// count gets the number of pairs. A missing string gives one empty pair and
// a count of 0, so that elements 0 and 1 can always be read.
char** LoadFilterList(HINSTANCE module, int stringId, int* count)
{
    std::vector<zvfmt::FilterEntry> entries = zvfmt::ParseFilterText(LoadChain(module, stringId));
    if (count != nullptr) *count = static_cast<int>(entries.size());
    if (entries.empty()) entries.push_back({});
    return zvfmt::PackFilterList(entries, Allocate);
}

void FreeFilterList(char** list)
{
    OkiFreeSMem(list);
}

int GetFormatIndex(HWND dialog, int listId, const char* ext)
{
    HWND list = GetDlgItem(dialog, listId);
    if (list == nullptr) return -1;
    return zvfmt::FindItemForExt(zvlist::Texts(list), ext);
}

// ext (256 bytes) gets the extension of the entry's first pattern, without
// "*.", or "" for an entry without one ("*.*") or no such entry. Gives the
// length.
int GetIndexExt(HWND dialog, int listId, int index, char* ext)
{
    if (ext == nullptr) return 0;
    ext[0] = '\0';
    HWND list = GetDlgItem(dialog, listId);
    if (list == nullptr || index < 0 || index >= zvlist::Count(list)) return 0;
    std::string found = zvfmt::ExtOfItem(zvlist::Text(list, index));
    if (found.size() >= kExtRoom) found.resize(kExtRoom - 1);
    std::snprintf(ext, kExtRoom, "%s", found.c_str());
    return static_cast<int>(found.size());
}

// key is the destination key; the list selects the flavour in key+"FLAV",
// or its first entry. A format without flavours (and a key that names no
// format) leaves the list empty and disables it with its label; the list is
// never enabled here, since the page may have disabled it on purpose.
void ZvLoadFlavorsList(OKAMOD* formats, HWND dialog, int listId, int labelId, const char* key, TagSet* tags)
{
    HWND list = GetDlgItem(dialog, listId);
    if (list == nullptr) return;
    zvlist::Reset(list);
    const FormatRecord* format = FormatOf(formats, key);
    std::vector<std::string> names = format != nullptr ? FlavoursOf(*format) : std::vector<std::string>();
    for (const std::string& name : names) zvlist::Add(list, name.c_str());
    if (names.empty()) {
        EnableWindow(list, FALSE);
        if (HWND label = GetDlgItem(dialog, labelId)) EnableWindow(label, FALSE);
        return;
    }
    zvlist::SelectText(list, tags != nullptr ? tags->Get(TagKey(key, "FLAV").c_str()) : nullptr);
}

// Stores the selected flavour's name in key+"FLAV"; with no selection the
// tag stays as it is.
void ZvRetrieveFlavorsList(OKAMOD*, HWND dialog, int listId, const char* key, TagSet* tags)
{
    HWND list = GetDlgItem(dialog, listId);
    if (list == nullptr || tags == nullptr) return;
    int selection = zvlist::Selection(list);
    if (selection < 0) return;
    tags->Set(TagKey(key, "FLAV").c_str(), zvlist::Text(list, selection).c_str());
}
