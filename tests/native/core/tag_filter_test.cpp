#include <gtest/gtest.h>

#include <string>

#include "memory_tags.h"

using zvtest::MemoryTags;

namespace {

TEST(FilterTagList, ResolvesTheThreeWildcardForms)
{
    MemoryTags list{{"??????SMOOTH", "ON"}, {"???BMPCPROC", "SNAP"}, {"BMP???CPROC", "DIFF"}, {"TIF???Q", "80"},
                    {"??????CONTRAST", "10"}};
    MemoryTags out;
    zv::FilterTagList(list, out, "BMP", "TIF");
    EXPECT_EQ(out.Value("BMPTIFSMOOTH"), "ON");
    // The destination part of "???BMP" stays: read as a conversion to BMP.
    EXPECT_EQ(out.Value("BMPBMPCPROC"), "SNAP");
    EXPECT_EQ(out.Value("BMPTIFCPROC"), "DIFF");
    // Another source's wildcard is no wildcard of this one; kept as it is.
    EXPECT_EQ(out.Value("TIF???Q"), "80");
    // A wildcard is not tested for the script's names.
    EXPECT_EQ(out.Value("BMPTIFCONTRAST"), "10");
    EXPECT_EQ(out.tags.size(), 5u);
    EXPECT_EQ(list.OpenSearches(), 0u);
}

TEST(FilterTagList, KeepsScriptTagsAndColourPairsOut)
{
    MemoryTags list{{"BMPTIFSMOOTH", "ON"}, {"bmptifcontrast", "5"}, {"RGBFF0000", "0000FF"},
                    {"rgb00ff00", "000000"}, {"TIFROT", "90"}, {"GIFROT", "90"}, {"TIFDEP", "8"},
                    {"TIFSFREQ", "60"}, {"TIFW", "2.5"}, {"BMPTIFBVIS", "ON"}, {"OPENDIR", "C:\\x"}};
    MemoryTags out;
    zv::FilterTagList(list, out, "BMP", "TIF");
    // The rule looks only at the text from the destination's length on,
    // whatever stands before it.
    EXPECT_EQ(out.tags.size(), 3u);
    EXPECT_EQ(out.Value("TIFW"), "2.5");
    EXPECT_EQ(out.Value("BMPTIFBVIS"), "ON");
    EXPECT_EQ(out.Value("OPENDIR"), "C:\\x");
}

TEST(FilterTagList, LaterSetsWinAndShortKeysAreSafe)
{
    MemoryTags wild{{"??????Q", "50"}, {"???", "x"}, {"??????", "y"}};
    MemoryTags root{{"BMPTIFQ", "70"}};
    MemoryTags out;
    zv::FilterTagList(wild, out, "BMP", "TIF");
    zv::FilterTagList(root, out, "BMP", "TIF");
    EXPECT_EQ(out.Value("BMPTIFQ"), "70");
    // Longer extensions than the wildcards' three characters: a key shorter
    // than the place it would be read from gives nothing.
    MemoryTags outLong;
    zv::FilterTagList(wild, outLong, "JPEG", "TIFF");
    EXPECT_EQ(outLong.Value("JPEGTIFF"), "<absent>");
}

TEST(FilterTagList, LongKeysAndValuesPass)
{
    std::string longKey = "??????" + std::string(300, 'K');
    std::string longValue(5000, 'v');
    MemoryTags list{{longKey, longValue}};
    MemoryTags out;
    zv::FilterTagList(list, out, "BMP", "TIF");
    // A key cut to the work buffer names a tag that isn't there: no copy.
    EXPECT_TRUE(out.tags.empty());
    MemoryTags list2{{"??????Z", longValue}};
    zv::FilterTagList(list2, out, "BMP", "TIF");
    EXPECT_EQ(out.Value("BMPTIFZ"), longValue);
}

TEST(TranslateAllTags, MovesOnlyFromNeutralOrBackToTheLastDestination)
{
    MemoryTags tags{{"BMPGIFCONTRAST", "10"}, {"GIFW", "3"}, {"TIFW", "5"}};
    char translated[zv::kTranslatedKeySize] = "tif";
    zv::TranslateAllTags(tags, translated, "BMP", "TIF", "GIF");
    EXPECT_STREQ(translated, "tif");
    EXPECT_EQ(tags.tags.size(), 3u);
    EXPECT_TRUE(tags.reads.empty());

    // Back to the last destination, in any case: the tags move, a target
    // already there stays, and the old tag is emptied all the same.
    zv::TranslateAllTags(tags, translated, "BMP", "GIF", "TIF");
    EXPECT_STREQ(translated, "TIF");
    EXPECT_EQ(tags.Value("BMPTIFCONTRAST"), "10");
    EXPECT_EQ(tags.Value("BMPGIFCONTRAST"), "<absent>");
    EXPECT_EQ(tags.Value("TIFW"), "5");
    EXPECT_EQ(tags.Value("GIFW"), "<absent>");
}

TEST(TranslateAllTags, FromNeutralKeepsTheNeutralTagsAndWalksTheTableInOrder)
{
    MemoryTags tags{{"BMP~~~CONTRAST", "7"}, {"~~~ROT", "90"}, {"BMP~~~TRACE", "CTR"}};
    char translated[zv::kTranslatedKeySize] = "~~~";
    zv::TranslateAllTags(tags, translated, "BMP", "~~~", "WMF");
    EXPECT_STREQ(translated, "WMF");
    EXPECT_EQ(tags.Value("BMPWMFCONTRAST"), "7");
    EXPECT_EQ(tags.Value("WMFROT"), "90");
    EXPECT_EQ(tags.Value("BMP~~~CONTRAST"), "7");
    // The first reads, in the order of the table: "DEP" has no source part.
    ASSERT_GE(tags.reads.size(), 3u);
    EXPECT_EQ(tags.reads[0], "~~~DEP");
    EXPECT_EQ(tags.reads[1], "BMP~~~CPROC");
    EXPECT_EQ(tags.reads[2], "BMP~~~COG");
}

TEST(TranslateOneTag, CaseOnlyDifferenceKeepsTheOldTagAndValuesAreCut)
{
    MemoryTags tags{{"BMPgifQ", std::string(200, 'q')}};
    zv::TranslateOneTag(tags, "BMP", "gif", "GIF", "Q");
    EXPECT_EQ(tags.Value("BMPgifQ"), std::string(200, 'q'));
    EXPECT_EQ(tags.Value("BMPGIFQ"), std::string(63, 'q'));
}

}  // namespace
