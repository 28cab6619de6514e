// okamod32: the registry of the suite's image formats. The formats are data:
// the table resource of this library (formats.tab), read once per process.
#include "okamod32.h"

#include <cstdint>
#include <cstdio>
#include <new>

#include "format_table.h"
#include "list_control.h"
#include "okaheap40.h"
#include "okaio32.h"
#include "okamod32_resource.h"

namespace {

HMODULE ThisModule()
{
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&ThisModule), &module);
    return module;
}

FormatTable LoadTable()
{
    HMODULE module = ThisModule();
    HRSRC found = FindResourceA(module, MAKEINTRESOURCEA(IDR_FORMAT_TABLE), MAKEINTRESOURCEA(10) /* RT_RCDATA */);
    if (found == nullptr) return {};
    HGLOBAL loaded = LoadResource(module, found);
    const char* text = loaded != nullptr ? static_cast<const char*>(LockResource(loaded)) : nullptr;
    if (text == nullptr) return {};
    return zvfmt::ParseFormatTable(std::string_view(text, SizeofResource(module, found)));
}

// One table for all registries of the process: nothing changes it after the
// load, and the format indexes that one OKAMOD hands out stay good for any
// other. It is not a const object, because callers get its texts as char*
// and some upper-case a key in place (a no-op on a key, but a write).
const FormatTable& SuiteTable()
{
    static FormatTable table = LoadTable();
    return table;
}

// Index n+1 is row n of the table, so that null stays "no format".
int RowOfIndex(const FormatTable* table, HKEY index)
{
    if (table == nullptr || index == nullptr) return -1;
    std::uintptr_t row = reinterpret_cast<std::uintptr_t>(index) - 1;
    return row < table->formats.size() ? static_cast<int>(row) : -1;
}

const FormatRecord* RecordOf(const FormatTable* table, HKEY index)
{
    int row = RowOfIndex(table, index);
    return row < 0 ? nullptr : &table->formats[row];
}

}  // namespace

void* RegistrationDataBase::operator new(std::size_t size)
{
    void* memory = OkiAllocSMem(static_cast<unsigned long>(size));
    if (memory == nullptr) throw std::bad_alloc();  // what any new does; hosts check nothing else
    return memory;
}

void RegistrationDataBase::operator delete(void* object)
{
    OkiFreeSMem(object);
}

// The name is what a host may pass to choose a table; the suite has one, so
// every name, null included, gives it.
OKAMOD::OKAMOD(const char*) : table_(&SuiteTable()) {}

OKAMOD::~OKAMOD() = default;

HKEY OKAMOD::GetIndex(const char* ext)
{
    int row = zvfmt::FindFormat(*table_, ext);
    return row < 0 ? nullptr : reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(row) + 1);
}

int OKAMOD::Row(HKEY index) const
{
    return RowOfIndex(table_, index);
}

int OKAMOD::GetType(HKEY index)
{
    const FormatRecord* format = RecordOf(table_, index);
    return format != nullptr ? format->type : kFormatNone;
}

int OKAMOD::IsSource(HKEY index)
{
    const FormatRecord* format = RecordOf(table_, index);
    return format != nullptr && format->readable ? 1 : 0;
}

int OKAMOD::IsDest(HKEY index)
{
    const FormatRecord* format = RecordOf(table_, index);
    return format != nullptr && format->writable ? 1 : 0;
}

// The entries are the format's depth list as the page shows it, numbers of
// colours with "Same" first; a key that names no format, such as "~~~",
// gets the table's default list. The tag key+"DEP" holds the shown form
// while the page is open, so its text picks the entry. A format without
// depths leaves the list empty and disables it with its label; an enabled
// list is left as the page set it.
void OKAMOD::LoadDepthList(HWND dialog, int listId, int labelId, const char* key, TagSet* tags)
{
    HWND list = GetDlgItem(dialog, listId);
    if (list == nullptr) return;
    int row = zvfmt::FindFormat(*table_, key);
    const std::vector<std::string>& entries = row >= 0 ? table_->formats[row].depths : table_->defaultDepths;
    zvlist::Reset(list);
    for (const std::string& entry : entries) zvlist::Add(list, entry.c_str());
    if (entries.empty()) {
        EnableWindow(list, FALSE);
        if (HWND label = GetDlgItem(dialog, labelId)) EnableWindow(label, FALSE);
        return;
    }
    char tagKey[64];
    std::snprintf(tagKey, sizeof tagKey, "%sDEP", key != nullptr ? key : "");
    zvlist::SelectText(list, tags != nullptr ? tags->Get(tagKey) : nullptr);
}
