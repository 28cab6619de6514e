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
        "BMP|BMP|1|RW|Bitmap||\n"
        "DIB|BMP\n"
        "WMF|WMF|3|RW|Metafile||\n"
        "DCX|DCX|5|W|Fax||\n"
        "PCD|PCD|1|R|Photo CD||\n"
        "PRN|PRN|1|-|Printer||\n");
    return table;
}

void* ZeroedAlloc(unsigned long size)
{
    return std::calloc(1, size);
}

struct Packed {
    char** list;
    explicit Packed(char** l) : list(l) {}
    ~Packed() { std::free(list); }
};

std::vector<std::string> Patterns(const std::vector<FilterEntry>& entries)
{
    std::vector<std::string> out;
    for (const FilterEntry& e : entries) out.push_back(e.pattern);
    return out;
}

TEST(FilterList, DestinationEntriesFollowTheTableWithTheLabelLast)
{
    auto entries = zvfmt::FormatEntries(&Table(), zvfmt::KindFromLetter('D'), false);
    zvfmt::AddLabelEntry(entries, "Known formats (...)", FilterKind::Dest);
    EXPECT_EQ(Patterns(entries), (std::vector<std::string>{"*.bmp", "*.wmf", "*.dcx", "*.bmp;*.wmf;*.dcx"}));
    EXPECT_EQ(entries[0].name, "Bitmap (*.bmp)");
    EXPECT_EQ(entries[3].name, "Known formats (*.bmp;*.wmf;*.dcx)");
}

TEST(FilterList, RasterOnlyKeepsRasterAndFax)
{
    auto entries = zvfmt::FormatEntries(&Table(), FilterKind::Dest, true);
    EXPECT_EQ(Patterns(entries), (std::vector<std::string>{"*.bmp", "*.dcx"}));
}

TEST(FilterList, SourceEntriesListEverySpellingWithTheLabelFirst)
{
    auto entries = zvfmt::FormatEntries(&Table(), zvfmt::KindFromLetter('S'), false);
    zvfmt::AddLabelEntry(entries, "All files (*.*)", FilterKind::Source);
    EXPECT_EQ(Patterns(entries), (std::vector<std::string>{"*.*", "*.bmp;*.dib", "*.wmf", "*.pcd"}));
    EXPECT_EQ(entries[0].name, "All files (*.*)");
    EXPECT_EQ(entries[1].name, "Bitmap (*.bmp;*.dib)");
}

TEST(FilterList, LabelWithoutBracketsOrWithNothingToJoinStillHasAPattern)
{
    std::vector<FilterEntry> none;
    zvfmt::AddLabelEntry(none, "Known formats (...)", FilterKind::Dest);
    ASSERT_EQ(none.size(), 1u);
    EXPECT_EQ(none[0].pattern, "*.*");
    auto entries = zvfmt::FormatEntries(&Table(), FilterKind::Dest, true);
    zvfmt::AddLabelEntry(entries, "Everything", FilterKind::Dest);
    EXPECT_EQ(entries.back().pattern, "*.bmp;*.dcx");
}

TEST(FilterList, PackedListServesAsLpstrFilter)
{
    auto entries = zvfmt::FormatEntries(&Table(), FilterKind::Dest, false);
    zvfmt::AddLabelEntry(entries, "Known formats (...)", FilterKind::Dest);
    Packed packed(zvfmt::PackFilterList(entries, ZeroedAlloc));
    char** list = packed.list;
    ASSERT_NE(list, nullptr);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_STREQ(list[2 * i], entries[i].name.c_str());
        EXPECT_STREQ(list[2 * i + 1], entries[i].pattern.c_str());
    }
    EXPECT_EQ(list[2 * entries.size()], nullptr);
    // Walk element 0 as a file dialog does: texts one after the other, the
    // block closed by an empty one.
    const char* p = list[0];
    std::size_t texts = 0;
    while (*p != '\0') {
        EXPECT_EQ(p, list[texts]);
        p += std::strlen(p) + 1;
        ++texts;
    }
    EXPECT_EQ(texts, 2 * entries.size());
}

TEST(FilterList, EmptyListAndFailedAllocation)
{
    Packed empty(zvfmt::PackFilterList({}, ZeroedAlloc));
    ASSERT_NE(empty.list, nullptr);
    EXPECT_EQ(empty.list[0], nullptr);
    EXPECT_EQ(zvfmt::PackFilterList({{"a", "b"}}, [](unsigned long) -> void* { return nullptr; }), nullptr);
    EXPECT_EQ(zvfmt::FormatEntries(nullptr, FilterKind::Source, false).size(), 0u);
}

TEST(FilterList, CustomListKeepsTheHostsOrderAndFallsBackWhenItNamesNothing)
{
    auto custom = zvfmt::CustomEntries(&Table(), FilterKind::Dest, "*.wmf; dib,XYZ~bmp pcd wmf");
    // dib is BMP; XYZ is unknown; bmp repeats BMP; PCD is no destination.
    EXPECT_EQ(Patterns(custom), (std::vector<std::string>{"*.wmf", "*.bmp"}));
    auto title = zvfmt::CustomEntries(&Table(), FilterKind::Dest, "Zavrin PRO");
    EXPECT_EQ(Patterns(title), Patterns(zvfmt::FormatEntries(&Table(), FilterKind::Dest, false)));
    EXPECT_EQ(zvfmt::CustomEntries(&Table(), FilterKind::Dest, nullptr).size(), 3u);
}

TEST(FilterList, TildeTextGivesPairs)
{
    auto pairs = zvfmt::ParseFilterText("TIFF (*.TIF)~*.tif~");
    ASSERT_EQ(pairs.size(), 1u);
    EXPECT_EQ(pairs[0].name, "TIFF (*.TIF)");
    EXPECT_EQ(pairs[0].pattern, "*.tif");
    EXPECT_EQ(zvfmt::ParseFilterText("a~b~c").size(), 1u);
    EXPECT_EQ(zvfmt::ParseFilterText("").size(), 0u);
}

TEST(FilterList, EntriesOfADialogMapToExtensions)
{
    std::vector<std::string> items = {"All files (*.*)", "Known formats (*.bmp;*.jpg;*.jpeg)",
                                      "JPEG (*.jpg;*.jpeg)", "Bitmap (*.bmp)", "Odd entry"};
    EXPECT_EQ(zvfmt::FindItemForExt(items, "BMP"), 3);
    EXPECT_EQ(zvfmt::FindItemForExt(items, "jpeg"), 2);
    EXPECT_EQ(zvfmt::FindItemForExt(items, ".jpg"), 2);
    EXPECT_EQ(zvfmt::FindItemForExt(items, "gif"), -1);
    EXPECT_EQ(zvfmt::FindItemForExt(items, "*"), -1);
    EXPECT_EQ(zvfmt::FindItemForExt(items, ""), -1);
    EXPECT_EQ(zvfmt::FindItemForExt(items, nullptr), -1);
    EXPECT_EQ(zvfmt::ExtOfItem(items[0]), "");
    EXPECT_EQ(zvfmt::ExtOfItem(items[1]), "bmp");
    EXPECT_EQ(zvfmt::ExtOfItem(items[3]), "bmp");
    EXPECT_EQ(zvfmt::ExtOfItem(items[4]), "");
    EXPECT_EQ(zvfmt::ExtOfItem("Broken (*.bmp"), "");
}

}  // namespace
