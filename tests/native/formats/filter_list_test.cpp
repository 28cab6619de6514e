// File type lists: entries, the label entry, packing, custom lists and the
// reading of a dialog's entries.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "filter_list.h"

namespace {

using zvfmt::FilterEntry;
using zvfmt::FilterKind;

const FormatTable& Table()
{
    static const FormatTable table = zvfmt::ParseFormatTable(
        "BMP|BMP|1|RW|Bitmap||\nDIB|BMP\nWMF|WMF|3|RW|Metafile||\nDCX|DCX|5|W|Fax||\n"
        "PCD|PCD|1|R|Photo CD||\nPRN|PRN|1|-|Printer||\n");
    return table;
}

std::vector<std::string> Patterns(const std::vector<FilterEntry>& entries)
{
    std::vector<std::string> out;
    for (const FilterEntry& e : entries) out.push_back(e.pattern);
    return out;
}

TEST(FilterList, LabelGoesLastForDestinationsAndFirstForSources)
{
    auto dest = zvfmt::FormatEntries(&Table(), zvfmt::KindFromLetter('D'), false);
    zvfmt::AddLabelEntry(dest, "Known formats (...)", FilterKind::Dest);
    EXPECT_EQ(Patterns(dest), (std::vector<std::string>{"*.BMP", "*.WMF", "*.DCX", "*.BMP;*.WMF;*.DCX"}));
    EXPECT_EQ(dest[0].name, "Bitmap (*.BMP)");
    EXPECT_EQ(dest[3].name, "Known formats (*.BMP;*.WMF;*.DCX)");

    auto raster = zvfmt::FormatEntries(&Table(), FilterKind::Dest, true);
    EXPECT_EQ(Patterns(raster), (std::vector<std::string>{"*.BMP", "*.DCX"}));

    auto source = zvfmt::FormatEntries(&Table(), zvfmt::KindFromLetter('S'), false);
    zvfmt::AddLabelEntry(source, "All files (*.*)", FilterKind::Source);
    EXPECT_EQ(Patterns(source), (std::vector<std::string>{"*.*", "*.BMP;*.DIB", "*.WMF", "*.PCD"}));

    std::vector<FilterEntry> none;
    zvfmt::AddLabelEntry(none, "Known formats (...)", FilterKind::Dest);
    EXPECT_EQ(none[0].pattern, "*.*");  // an empty pattern would end the dialog's list
}

TEST(FilterList, PackedListServesAsLpstrFilter)
{
    auto entries = zvfmt::FormatEntries(&Table(), FilterKind::Dest, false);
    char** list = zvfmt::PackFilterList(entries, [](unsigned long n) { return std::calloc(1, n); });
    ASSERT_NE(list, nullptr);
    const char* p = list[0];
    std::size_t texts = 0;
    for (; *p != '\0'; p += std::strlen(p) + 1, ++texts) EXPECT_EQ(p, list[texts]);
    EXPECT_EQ(texts, 2 * entries.size());
    EXPECT_STREQ(list[1], "*.BMP");
    EXPECT_EQ(list[texts], nullptr);
    std::free(list);
    EXPECT_EQ(zvfmt::PackFilterList(entries, [](unsigned long) -> void* { return nullptr; }), nullptr);
}

TEST(FilterList, CustomListKeepsTheHostsOrderAndFallsBackWhenItNamesNothing)
{
    // dib is BMP; XYZ is unknown; bmp repeats BMP; PCD is no destination.
    auto custom = zvfmt::CustomEntries(&Table(), FilterKind::Dest, "*.wmf; dib,XYZ~bmp pcd wmf");
    EXPECT_EQ(Patterns(custom), (std::vector<std::string>{"*.WMF", "*.BMP"}));
    auto all = Patterns(zvfmt::FormatEntries(&Table(), FilterKind::Dest, false));
    EXPECT_EQ(Patterns(zvfmt::CustomEntries(&Table(), FilterKind::Dest, "Zavrin PRO")), all);
    EXPECT_EQ(Patterns(zvfmt::CustomEntries(&Table(), FilterKind::Dest, nullptr)), all);
}

TEST(FilterList, DialogEntriesMapToExtensions)
{
    std::vector<std::string> items = {"All files (*.*)", "Known formats (*.bmp;*.jpg;*.jpeg)",
                                      "JPEG (*.jpg;*.jpeg)", "Bitmap (*.bmp)", "Odd entry"};
    EXPECT_EQ(zvfmt::FindItemForExt(items, "BMP"), 3);
    EXPECT_EQ(zvfmt::FindItemForExt(items, "jpeg"), 2);
    for (const char* ext : {"gif", "*", ""}) EXPECT_EQ(zvfmt::FindItemForExt(items, ext), -1) << ext;
    EXPECT_EQ(zvfmt::ExtOfItem(items[1]), "bmp");
    EXPECT_EQ(zvfmt::ExtOfItem("Broken (*.bmp"), "");
    auto pairs = zvfmt::ParseFilterText("TIFF (*.TIF)~*.tif~");
    ASSERT_EQ(pairs.size(), 1u);
    EXPECT_EQ(pairs[0].pattern, "*.tif");
    EXPECT_EQ(zvfmt::ParseFilterText("a~b~c").size(), 1u);
}

}  // namespace
