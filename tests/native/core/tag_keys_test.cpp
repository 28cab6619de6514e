#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "option_core.h"

namespace {

TEST(TagKeys, FormsJoinTheirPartsWithNothingBetween)
{
    char key[zv::kKeySize];
    EXPECT_TRUE(zv::MakeConversionKey(key, "BMP", "~~~", "CONTRAST"));
    EXPECT_STREQ(key, "BMP~~~CONTRAST");
    zv::MakeDestinationKey(key, "CLP", "ROT");
    EXPECT_STREQ(key, "CLPROT");
    zv::MakeTraceKey(key, "BMP", "WMF", "CTR", "GENTOL");
    EXPECT_STREQ(key, "BMPWMFCTRGENTOL");
}

TEST(TagKeys, LongKeysAreCutAt63AndSaySo)
{
    char key[zv::kKeySize + 8];
    std::memset(key, '#', sizeof key);
    std::string name(100, 'N');
    auto& inner = reinterpret_cast<char(&)[zv::kKeySize]>(key);
    EXPECT_FALSE(zv::MakeKey(inner, "BMP", "TIF", name.c_str()));
    EXPECT_EQ(std::strlen(inner), 63u);
    EXPECT_EQ(key[zv::kKeySize], '#');  // nothing past the buffer
    std::string exact(57, 'X');
    EXPECT_TRUE(zv::MakeKey(inner, "BMP", "TIF", exact.c_str()));
    EXPECT_EQ(std::strlen(inner), 63u);
}

TEST(TagKeys, OnlyOnInAnyCaseIsOn)
{
    EXPECT_TRUE(zv::IsOn("ON"));
    EXPECT_TRUE(zv::IsOn("on"));
    EXPECT_TRUE(zv::IsOn("oN"));
    EXPECT_FALSE(zv::IsOn("1"));
    EXPECT_FALSE(zv::IsOn("ONE"));
    EXPECT_FALSE(zv::IsOn(""));
    EXPECT_FALSE(zv::IsOn(nullptr));
}

TEST(TagKeys, ListPositionFindsWholeItemsOnly)
{
    EXPECT_EQ(zv::ListPosition("0~2x2~3x3~4x4", "0"), 0);
    EXPECT_EQ(zv::ListPosition("0~2x2~3x3~4x4", "4x4"), 3);
    EXPECT_EQ(zv::ListPosition("0~2x2~3x3~4x4", "9x9"), -1);
    EXPECT_EQ(zv::ListPosition("0~2x2~3x3~4x4", "2x"), -1);
    EXPECT_EQ(zv::ListPosition("OFF~S~M~L", ""), -1);
}

}  // namespace
