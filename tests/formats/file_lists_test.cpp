// The file type lists of the file dialogs, as the open and save dialogs use
// them: element 0 is lpstrFilter, element 2i+1 the pattern of entry i. Which
// formats a list holds, raster-only and custom lists are tested natively;
// here the DLL's lists from the real table and string tables.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "formats_test_ids.h"
#include "okamod32.h"
#include "zvwio32.h"

namespace {

HINSTANCE Module()
{
    return GetModuleHandleA(nullptr);
}

// The texts of a list as a file dialog reads lpstrFilter: one after the
// other up to the empty one that closes the block.
std::vector<std::string> FilterTexts(const char* filter)
{
    std::vector<std::string> texts;
    for (const char* p = filter; *p != '\0'; p += std::strlen(p) + 1) texts.emplace_back(p);
    return texts;
}

int Entries(char** list)
{
    int n = 0;
    while (list[2 * n] != nullptr) ++n;
    return n;
}

class FileLists : public ::testing::Test {
protected:
    void SetUp() override { formats = new OKAMOD(nullptr); }
    void TearDown() override { delete formats; }

    // What the save dialog counts before it looks for its start entry.
    int Destinations()
    {
        int n = 0;
        char** all = ZvGetAllExtensions(formats);
        for (char** p = all; *p != nullptr; ++p) {
            HKEY index = ZvGetIndex(formats, *p);
            if (formats->IsDest(index)) ++n;
        }
        ZvFreeAllExtensions(formats, all);
        return n;
    }

    OKAMOD* formats = nullptr;
};

TEST_F(FileLists, SaveListHasOneEntryPerDestinationThenTheKnownFormats)
{
    char** list = ZvCreateFilterList(formats, Module(), 'D', IDS_KNOWN_FORMATS, 0);
    ASSERT_NE(list, nullptr);
    int n = Entries(list);
    int destinations = Destinations();
    ASSERT_EQ(n, destinations + 1);
    // lpstrFilter holds the same texts, closed by the double zero.
    std::vector<std::string> texts = FilterTexts(list[0]);
    ASSERT_EQ(static_cast<int>(texts.size()), 2 * n);
    EXPECT_EQ(texts[2 * n - 1], list[2 * n - 1]);
    // Entry i of the first ones is format i: the text behind the pattern's
    // first "." is a destination extension.
    for (int i = 0; i < destinations; ++i) {
        const char* ext = std::strchr(list[2 * i + 1], '.') + 1;
        EXPECT_TRUE(formats->IsDest(ZvGetIndex(formats, ext))) << ext;
        EXPECT_EQ(std::strchr(ext, ';'), nullptr) << "one pattern per destination entry";
    }
    EXPECT_EQ(std::string(list[2 * destinations]).rfind("Known formats (*.BMP;", 0), 0u);
    ZvDeleteFilterList(formats, list);
}

TEST_F(FileLists, OpenListStartsWithAllFilesAndListsEverySpelling)
{
    char** list = ZvCreateFilterList(formats, Module(), 'S', IDS_ALL_FILES, 0);
    ASSERT_NE(list, nullptr);
    EXPECT_STREQ(list[0], "All files (*.*)");
    EXPECT_STREQ(list[1], "*.*");  // the open dialog's start name
    bool jpegSpellings = false;
    for (int i = 1; list[2 * i] != nullptr; ++i) {
        const char* ext = std::strchr(list[2 * i + 1], '.') + 1;
        std::string first(ext, std::strcspn(ext, ";"));
        EXPECT_TRUE(formats->IsSource(ZvGetIndex(formats, first.c_str()))) << first;
        jpegSpellings = jpegSpellings || std::strcmp(list[2 * i + 1], "*.JPG;*.JPEG;*.JPE;*.JFIF") == 0;
    }
    EXPECT_TRUE(jpegSpellings);
    ZvDeleteFilterList(formats, list);
}

TEST_F(FileLists, WithoutRegistryOrLabelStringTheListStillHoldsItsLabel)
{
    char** list = ZvCreateFilterList(nullptr, Module(), 'S', IDS_ALL_FILES, 0);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(Entries(list), 1);
    EXPECT_STREQ(list[1], "*.*");
    ZvDeleteFilterList(nullptr, list);

    list = ZvCreateFilterList(formats, Module(), 'D', 9999, 0);  // no such string
    ASSERT_NE(list, nullptr);
    int n = Entries(list);
    EXPECT_EQ(std::string(list[2 * (n - 1)]).rfind("Known formats (", 0), 0u);
    ZvDeleteFilterList(formats, list);
}

TEST_F(FileLists, StringTableFilters)
{
    int count = -1;
    char** list = LoadFilterList(Module(), IDS_TEXT_FILTER, &count);
    EXPECT_EQ(count, 1);
    EXPECT_STREQ(list[1], "*.txt");
    EXPECT_EQ(list[2], nullptr);
    FreeFilterList(list);
    // A list that ends in "~" goes on in the next string while there is one.
    list = LoadFilterList(Module(), IDS_TIFF_FILTER, &count);
    EXPECT_EQ(count, 1);
    FreeFilterList(list);
    list = LoadFilterList(Module(), IDS_CHAINED_FILTER, &count);
    EXPECT_EQ(count, 2);
    EXPECT_STREQ(list[3], "*.ico");
    FreeFilterList(list);
    // A missing string still gives elements 0 and 1.
    list = LoadFilterList(Module(), 9999, &count);
    EXPECT_EQ(count, 0);
    EXPECT_STREQ(list[1], "");
    FreeFilterList(list);
}

}  // namespace
