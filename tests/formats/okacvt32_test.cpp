// OKACVT32 through its DLL: texts of codes from its string table. The gamma
// curve is tested natively.
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
    EXPECT_EQ(Text(-4321), "Unknown error (code -4321)");
    EXPECT_EQ(Text(9998), "Warning (code 9998)");
    MsgLib messages;
    EXPECT_EQ(messages.GetMessageA(-1007, nullptr), nullptr);
}

}  // namespace
