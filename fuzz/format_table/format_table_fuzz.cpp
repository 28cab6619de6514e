// Any table text, custom list or dialog entry text is read without a fault:
// the table parser, the list builders and the entry parsers.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "filter_list.h"
#include "format_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string text(reinterpret_cast<const char*>(data), size);
    FormatTable table = zvfmt::ParseFormatTable(text);
    std::string zeroEnded = text.c_str();  // what a C caller would pass
    for (zvfmt::FilterKind kind : {zvfmt::FilterKind::Source, zvfmt::FilterKind::Dest}) {
        auto entries = zvfmt::CustomEntries(&table, kind, zeroEnded.c_str());
        zvfmt::AddLabelEntry(entries, zeroEnded, kind);
        char** list = zvfmt::PackFilterList(entries, [](unsigned long n) { return std::calloc(1, n); });
        std::free(list);
    }
    zvfmt::FindFormat(table, zeroEnded.c_str());
    char key[4];
    zvfmt::UnknownInternalExt(zeroEnded.c_str(), key);
    zvfmt::ExtOfItem(text);
    zvfmt::FindItemForExt({text, "All (*.*)"}, zeroEnded.c_str());
    zvfmt::ParseFilterText(text);
    return 0;
}
