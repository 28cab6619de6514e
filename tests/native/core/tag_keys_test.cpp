#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "option_core.h"

namespace {

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

TEST(TagKeys, ListPositionFindsWholeItemsOnly)
{
    EXPECT_EQ(zv::ListPosition("0~2x2~3x3~4x4", "4x4"), 3);
    EXPECT_EQ(zv::ListPosition("0~2x2~3x3~4x4", "2x"), -1);
}

}  // namespace
