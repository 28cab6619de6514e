#include <gtest/gtest.h>

#include <cctype>
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

struct Expected {
    const char* ext;
    const char* key;
    int type;
    bool readable;
    bool writable;
};

// Every format that the option library names, with the type its dialogs
// and scripts assume.
const Expected kNamed[] = {
    {"BMP", "BMP", 1, true, true},  {"TIF", "TIF", 1, true, true},  {"GIF", "GIF", 1, true, true},
    {"JPG", "JPG", 1, true, true},  {"PCX", "PCX", 1, true, true},  {"ICO", "ICO", 1, true, true},
    {"PNG", "PNG", 1, true, true},  {"TGA", "TGA", 1, true, true},  {"MAC", "MAC", 1, true, true},
    {"IMG", "IMG", 1, true, true},  {"IFF", "IFF", 1, true, true},  {"PCD", "PCD", 1, true, false},
    {"CUT", "CUT", 1, true, false}, {"PCL", "PCL", 1, true, true},  {"PRN", "PRN", 1, false, false},
    {"DCX", "DCX", 5, true, true},  {"SCI", "SCI", 5, true, true},  {"WMF", "WMF", 3, true, true},
    {"EMF", "EMF", 3, true, true},  {"PCT", "PCT", 3, true, true},  {"WPG", "WPG", 3, true, true},
    {"EPS", "EPS", 3, true, true},  {"PIX", "PIX", 3, true, true},  {"CLP", "CLP", 3, true, false},
    {"CGM", "CGM", 2, true, true},  {"CDR", "CDR", 2, true, true},  {"DRW", "DRW", 2, true, true},
    {"OGF", "OGF", 2, true, true},  {"PIC", "PIC", 2, true, false}, {"PGL", "PGL", 2, true, false},
    {"TXT", "TXT", 2, true, true},  {"DXF", "DXF", 6, true, true},  {"WRL", "WRL", 6, true, true},
    // Other spellings of a format give that format.
    {"JPEG", "JPG", 1, true, true}, {"JPE", "JPG", 1, true, true},  {"TIFF", "TIF", 1, true, true},
    {"PICT", "PCT", 3, true, true}, {"DIB", "BMP", 1, true, true},  {"PLT", "PGL", 2, true, false},
};

TEST(FormatTable, TheSuiteTableReadsWithoutErrors)
{
    FormatTable table = SuiteTable();
    for (const std::string& error : table.errors) ADD_FAILURE() << error;
    EXPECT_GE(table.formats.size(), 30u);
    EXPECT_FALSE(table.defaultDepths.empty());
}

TEST(FormatTable, EveryNamedFormatHasItsKeyTypeAndAccess)
{
    FormatTable table = SuiteTable();
    for (const Expected& want : kNamed) {
        SCOPED_TRACE(want.ext);
        int row = zvfmt::FindFormat(table, want.ext);
        ASSERT_GE(row, 0);
        const FormatRecord& format = table.formats[row];
        EXPECT_EQ(format.key, want.key);
        EXPECT_EQ(format.type, want.type);
        EXPECT_EQ(format.readable, want.readable);
        EXPECT_EQ(format.writable, want.writable);
        EXPECT_FALSE(format.name.empty());
        // The key finds the same format again, in any case and with a dot.
        EXPECT_EQ(zvfmt::FindFormat(table, format.key.c_str()), row);
        std::string lower = "." + std::string(want.ext);
        for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        EXPECT_EQ(zvfmt::FindFormat(table, lower.c_str()), row);
    }
}

TEST(FormatTable, FlavoursThatTheTargetTablesNameExist)
{
    FormatTable table = SuiteTable();
    auto has = [&](const char* ext, const char* flavour) {
        const FormatRecord& format = table.formats[zvfmt::FindFormat(table, ext)];
        for (const std::string& f : format.flavours)
            if (f == flavour) return true;
        return false;
    };
    EXPECT_TRUE(has("BMP", "Windows 3"));
    EXPECT_TRUE(has("BMP", "No Header"));
    EXPECT_TRUE(has("BMP", "Scalable"));
    EXPECT_TRUE(has("BMP", "Doc to Help"));
    EXPECT_TRUE(has("WPG", "WPDOS"));
    EXPECT_TRUE(has("WPG", "WPWIN"));
    EXPECT_TRUE(has("WMF", "Arts and Letters"));
    EXPECT_TRUE(has("CGM", "Pagemaker PC"));
    EXPECT_TRUE(has("TIF", "Freehand 3.1"));
    EXPECT_TRUE(has("TIF", "Pagemaker 3.0 (Windows)"));
}

TEST(FormatTable, UnknownNullAndOddInputFindNothing)
{
    FormatTable table = SuiteTable();
    EXPECT_EQ(zvfmt::FindFormat(table, nullptr), -1);
    EXPECT_EQ(zvfmt::FindFormat(table, ""), -1);
    EXPECT_EQ(zvfmt::FindFormat(table, "."), -1);
    EXPECT_EQ(zvfmt::FindFormat(table, "XYZ"), -1);
    EXPECT_EQ(zvfmt::FindFormat(table, "~~~"), -1);
    EXPECT_EQ(zvfmt::FindFormat(table, "BMPBMPBMPBMP"), -1);
    EXPECT_EQ(zvfmt::FindFormat(table, "CAP"), -1);  // a capture source, no format
}

TEST(FormatTable, UnknownExtensionsBecomeThreeUpperCaseLetters)
{
    char out[4];
    zvfmt::UnknownInternalExt("xyzzy", out);
    EXPECT_STREQ(out, "XYZ");
    zvfmt::UnknownInternalExt(".ab", out);
    EXPECT_STREQ(out, "AB");
    zvfmt::UnknownInternalExt("~~~", out);
    EXPECT_STREQ(out, "~~~");
    zvfmt::UnknownInternalExt(nullptr, out);
    EXPECT_STREQ(out, "");
}

TEST(FormatTable, BadLinesAreLeftOutAndNamed)
{
    FormatTable table = zvfmt::ParseFormatTable(
        "; comment\r\n"
        "AAA|AAA|1|RW|Good||Same~2\r\n"
        "BBB|BBB|4|RW|Type four||\n"          // no type 4
        "CCC|CCC|1|X|Bad access||\n"
        "DDD|DDDD|1|R|Long key||\n"
        "AAA|AAA|1|R|Twice||\n"
        "EEE|ZZZ\n"                           // another spelling of nothing
        "A.B|AB|1|R|Dot||\n"
        "FFF|FFF|1|R|Short\n"
        "GGG|GGG|2|r|Lower access|One~~Two|\n"
        "AAAA|AAA\n");
    ASSERT_EQ(table.formats.size(), 2u);
    EXPECT_EQ(table.errors.size(), 7u);
    EXPECT_EQ(table.errors[0].rfind("line 3:", 0), 0u);
    EXPECT_EQ(table.formats[1].flavours, (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(zvfmt::FindFormat(table, "aaaa"), 0);
}

}  // namespace
