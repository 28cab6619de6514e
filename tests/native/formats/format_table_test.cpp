// The table text: the shipped table reads clean, bad lines are left out and
// named, and lookups of odd text find nothing. Each named format's answers
// are checked through the DLL by the Windows tests.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "format_table.h"

namespace {

FormatTable SuiteTable()
{
    std::ifstream file(ZV_FORMAT_TABLE_PATH, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return zvfmt::ParseFormatTable(text.str());
}

TEST(FormatTable, TheSuiteTableReadsCleanWithItsFlavours)
{
    FormatTable table = SuiteTable();
    for (const std::string& error : table.errors) ADD_FAILURE() << error;
    ASSERT_GE(table.formats.size(), 30u);
    auto has = [&](const char* ext, const char* flavour) {
        for (const std::string& f : table.formats[zvfmt::FindFormat(table, ext)].flavours)
            if (f == flavour) return true;
        return false;
    };
    // Names with spaces, digits and brackets survive the table's syntax.
    EXPECT_TRUE(has("BMP", "Doc to Help"));
    EXPECT_TRUE(has("TIF", "Pagemaker 3.0 (Windows)"));
}

TEST(FormatTable, BadLinesAreLeftOutAndNamed)
{
    FormatTable table = zvfmt::ParseFormatTable(
        "; comment\r\n"
        "AAA|AAA|1|RW|Good||Same~2\r\n"
        "BBB|BBB|4|RW|Type four||\n"
        "CCC|CCC|1|X|Bad access||\n"
        "DDD|DDDD|1|R|Long key||\n"
        "AAA|AAA|1|R|Twice||\n"
        "EEE|ZZZ\n"
        "A.B|AB|1|R|Dot||\n"
        "FFF|FFF|1|R|Short\n"
        "GGG|GGG|2|r|Lower access|One~~Two|\n"
        "AAAA|AAA\n");
    ASSERT_EQ(table.formats.size(), 2u);
    EXPECT_EQ(table.errors.size(), 7u);
    EXPECT_EQ(table.errors[0].rfind("line 3:", 0), 0u);
    EXPECT_EQ(table.formats[1].flavours, (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(zvfmt::FindFormat(table, ".aaaa"), 0);
}

TEST(FormatTable, OddTextFindsNothingAndUnknownExtensionsKeepTheKeyShape)
{
    FormatTable table = SuiteTable();
    for (const char* ext : {"", ".", "~~~", "BMPBMPBMPBMP", "CAP"})
        EXPECT_EQ(zvfmt::FindFormat(table, ext), -1) << ext;
    EXPECT_EQ(zvfmt::FindFormat(table, nullptr), -1);
    char out[4];
    zvfmt::UnknownInternalExt(".ab", out);
    EXPECT_STREQ(out, "AB");
}

}  // namespace
