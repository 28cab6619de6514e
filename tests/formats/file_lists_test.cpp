// The file type lists of the file dialogs from the DLL's real table and a
// program's string table: element 0 is lpstrFilter, element 2i+1 the
// pattern of entry i. How a list is made is tested natively; the save list
// is driven in the save dialog.
#include <gtest/gtest.h>

#include <cstring>

#include "formats_test_ids.h"
#include "okamod32.h"
#include "zvwio32.h"

namespace {

HINSTANCE Module()
{
    return GetModuleHandleA(nullptr);
}

TEST(FileLists, OpenListStartsWithAllFilesAndListsEverySpellingOfASource)
{
    OKAMOD formats(nullptr);
    char** list = ZvCreateFilterList(&formats, Module(), 'S', IDS_ALL_FILES, 0);
    ASSERT_NE(list, nullptr);
    EXPECT_STREQ(list[0], "All files (*.*)");
    EXPECT_STREQ(list[1], "*.*");  // the open dialog's start name
    bool jpegSpellings = false;
    for (int i = 1; list[2 * i] != nullptr; ++i)
        jpegSpellings = jpegSpellings || std::strcmp(list[2 * i + 1], "*.JPG;*.JPEG;*.JPE;*.JFIF") == 0;
    EXPECT_TRUE(jpegSpellings);
    ZvDeleteFilterList(&formats, list);

    // Without a registry the list still holds its label.
    list = ZvCreateFilterList(nullptr, Module(), 'S', IDS_ALL_FILES, 0);
    EXPECT_STREQ(list[1], "*.*");
    EXPECT_EQ(list[2], nullptr);
    ZvDeleteFilterList(nullptr, list);
}

TEST(FileLists, StringTableFiltersGoOnInTheNextStringAfterATilde)
{
    int count = -1;
    char** list = LoadFilterList(Module(), IDS_TEXT_FILTER, &count);
    EXPECT_EQ(count, 1);
    EXPECT_STREQ(list[1], "*.txt");
    EXPECT_EQ(list[2], nullptr);
    FreeFilterList(list);
    list = LoadFilterList(Module(), IDS_CHAINED_FILTER, &count);
    EXPECT_EQ(count, 2);
    EXPECT_STREQ(list[3], "*.ico");
    FreeFilterList(list);
    list = LoadFilterList(Module(), IDS_TIFF_FILTER, &count);  // no next string: it ends
    EXPECT_EQ(count, 1);
    FreeFilterList(list);
    // A missing string still gives elements 0 and 1.
    list = LoadFilterList(Module(), 9999, &count);
    EXPECT_EQ(count, 0);
    EXPECT_STREQ(list[1], "");
    FreeFilterList(list);
}

}  // namespace
