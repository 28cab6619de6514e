// The grammar of the target application tables, over strings held in a map
// in place of the string table.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "target_app_table.h"

namespace {

using namespace zv;

struct Strings {
    std::map<int, std::string> byId;
    std::vector<int> asked;
};

bool Load(void* context, int id, char* text, std::size_t size)
{
    auto* strings = static_cast<Strings*>(context);
    strings->asked.push_back(id);
    auto it = strings->byId.find(id);
    if (it == strings->byId.end())
        return false;
    std::size_t n = std::min(it->second.size(), size - 1);
    std::memcpy(text, it->second.data(), n);
    text[n] = '\0';
    return true;
}

bool Collect(void* context, std::string_view entry)
{
    static_cast<std::vector<std::string>*>(context)->emplace_back(entry);
    return true;
}

std::vector<std::string> Walk(Strings& strings, int first, TableEnd* end = nullptr)
{
    std::vector<std::string> entries;
    TableEnd e = WalkTargetAppTable(first, Load, &strings, Collect, &entries);
    if (end)
        *end = e;
    return entries;
}

std::vector<std::pair<std::string, std::string>> Fields(std::string_view entry, const char* srcExt)
{
    std::string_view rest = entry.substr(TargetAppName(entry).size());
    std::vector<std::pair<std::string, std::string>> out;
    TargetAppField field;
    while (NextTargetAppField(rest, srcExt, field))
        out.emplace_back(field.key, field.value);
    return out;
}

TEST(TargetAppTable, TildeChainsAndAStringWithoutItEndsTheTable)
{
    Strings s;
    s.byId = {{100, "A|X=1~"}, {101, "B|Y=2~~C|Z=3~"}, {102, "D|W=4"}, {103, "never|read=1~"}};
    TableEnd end;
    EXPECT_EQ(Walk(s, 100, &end), (std::vector<std::string>{"A|X=1", "B|Y=2", "C|Z=3", "D|W=4"}));
    EXPECT_EQ(end, TableEnd::kRegular);
    EXPECT_EQ(s.asked, (std::vector<int>{100, 101, 102}));

    // A string that isn't there ends the table too; a string is read into
    // room for 255 characters.
    Strings missing;
    missing.byId = {{1, "A|X=1~"}};
    Walk(missing, 1, &end);
    EXPECT_EQ(end, TableEnd::kMissingString);
    Strings cut;
    cut.byId = {{1, std::string(300, 'n') + "~"}};
    auto entries = Walk(cut, 1);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].size(), kTableStringRoom);
}

TEST(TargetAppTable, QuestionMarksStandForTheSourceExtension)
{
    auto f = Fields("Powerpoint|RDESTTYPE=BMP|???BMPCPROC=SNAP", "PCX");
    EXPECT_EQ(f, (decltype(f){{"RDESTTYPE", "BMP"}, {"PCXBMPCPROC", "SNAP"}}));
    // Only what follows the last "?" is kept, however many stand before it.
    EXPECT_EQ(Fields("X|A?B?CPROC=1", "TIF"), (decltype(f){{"TIFCPROC", "1"}}));
    EXPECT_EQ(Fields("X|???K=1", nullptr), (decltype(f){{"K", "1"}}));
}

TEST(TargetAppTable, FieldsKeepBlanksBracketsAndLaterEqualsAndNameNoTagWithoutAKey)
{
    EXPECT_EQ(TargetAppName("Word for Windows|RDESTTYPE=BMP"), "Word for Windows");
    auto f = Fields("PageMaker (Windows)|TIFFLAV=Pagemaker 3.0 (Windows)|K=a=b|L=", "BMP");
    EXPECT_EQ(f, (decltype(f){{"TIFFLAV", "Pagemaker 3.0 (Windows)"}, {"K", "a=b"}, {"L", ""}}));
    EXPECT_TRUE(Fields("X|NOEQUALS|=value||", "BMP").empty());
}

TEST(TargetAppTable, LongKeysAndValuesAreCut)
{
    std::string entry = "X|" + std::string(100, 'K') + "=" + std::string(400, 'v');
    auto f = Fields(entry, "BMP");
    ASSERT_EQ(f.size(), 1u);
    EXPECT_EQ(f[0].first.size(), 63u);
    EXPECT_EQ(f[0].second.size(), 255u);
}

}  // namespace
