#include <gtest/gtest.h>

#include <cstring>

#include "bounded_text.h"

using zv::AppendBounded;
using zv::CopyBounded;

TEST(BoundedText, CutsWhatDoesNotFitAndStaysTerminated)
{
    char key[8];
    std::memset(key, 'x', sizeof key);
    EXPECT_EQ(CopyBounded(key, "ABCDEFGHIJ"), 7u);
    EXPECT_STREQ(key, "ABCDEFG");
    EXPECT_EQ(AppendBounded(key, "Z"), 7u);
    EXPECT_STREQ(key, "ABCDEFG");
}

TEST(BoundedText, AppendsToTheTextAlreadyThere)
{
    char key[8] = "ab";
    EXPECT_EQ(AppendBounded(key, "cdefghij"), 7u);
    EXPECT_STREQ(key, "abcdefg");
}

TEST(BoundedText, TreatsNullAndUnterminatedInputSafely)
{
    char key[4];
    EXPECT_EQ(CopyBounded(key, nullptr), 0u);
    EXPECT_STREQ(key, "");
    std::memset(key, 'y', sizeof key);  // no terminator anywhere
    EXPECT_EQ(AppendBounded(key, "z"), 3u);
    EXPECT_EQ(key[3], '\0');
    EXPECT_EQ(CopyBounded(key, 0, "a"), 0u);
}

TEST(BoundedText, FitsInCountsTheTerminator)
{
    EXPECT_TRUE(zv::FitsIn(4, "abc"));
    EXPECT_FALSE(zv::FitsIn(3, "abc"));
}

TEST(BoundedText, ACopyFromTheBufferItselfKeepsTheText)
{
    char field[8] = "BMP";
    EXPECT_EQ(CopyBounded(field, field), 3u);
    EXPECT_STREQ(field, "BMP");
    char path[8] = "C:\\a.gi";
    EXPECT_EQ(CopyBounded(path, path + 3), 4u);  // the tail of the same buffer
    EXPECT_STREQ(path, "a.gi");
}
