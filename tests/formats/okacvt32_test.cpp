// OKACVT32 through its DLL: texts of codes from its string table, and the
// gamma table as the adjust page draws it.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "okacvt32.h"

namespace {

std::string Text(short code)
{
    char text[512];
    std::memset(text, 'x', sizeof text);
    MsgLib* messages = new MsgLib();
    char* result = messages->GetMessageA(code, text);
    delete messages;
    EXPECT_EQ(result, text);
    return text;
}

TEST(MsgLib, CodesHaveTheirTextsAndUnknownOnesTheirNumber)
{
    EXPECT_EQ(Text(-1007), "Out of memory for the image section");
    EXPECT_EQ(Text(-250), "File open failure");
    EXPECT_EQ(Text(-4321), "Unknown error (code -4321)");
    EXPECT_EQ(Text(-32768), "Unknown error (code -32768)");
    EXPECT_EQ(Text(9998), "Warning (code 9998)");
    MsgLib messages;
    EXPECT_EQ(messages.GetMessageA(-1007, nullptr), nullptr);
}

// The curve's shape is tested natively; here the export and its box.
TEST(GammaValue, TableOfTheCurveBox)
{
    unsigned char table[65];
    table[64] = 0xEE;
    ASSERT_EQ(CvtCreateGammaValue(64, 0, 0, 0, table), 0);
    for (int x = 0; x < 64; ++x) ASSERT_EQ(table[x], x);
    ASSERT_EQ(CvtCreateGammaValue(64, 50, 30, 20, table), 0);
    EXPECT_LE(table[63], 63);
    EXPECT_EQ(table[64], 0xEE);
    EXPECT_LT(CvtCreateGammaValue(8, 0, 0, 0, nullptr), 0);
}

}  // namespace
