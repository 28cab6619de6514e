#include <gtest/gtest.h>

#include <string>

#include "script_parser.h"

using namespace ravi;

namespace {

ScriptParse Parse(const std::string& text)
{
    ScriptParse p;
    ParseScript(reinterpret_cast<const uint8_t*>(text.data()), text.size(), &p);
    return p;
}

}  // namespace

TEST(ScriptParser, ReadsEveryWordOfTheVocabulary)
{
    ScriptParse p = Parse(
        "ReverseBW\n\rChangeColor 255 16711680\n\rBlackize\n\rGrayize\n\rGamma 10 -5 0\n\rInvert\n\r"
        "Rotate 270 1 0\n\rRasterize 850 450 8\n\rResize 640 480 1\n\rEqualize\n\rReduce 8 2 256 4234\n\r"
        "PrepRaster 1 2 16\n\rVectorize 1 3 1 0 10 0\n\r");
    ASSERT_EQ(p.code, 0);
    ASSERT_EQ(p.commands.size(), 13u);
    for (size_t i = 0; i < 13; ++i)
        EXPECT_EQ(p.commands[i].line, int(i) + 1);
    EXPECT_EQ(p.commands[12].op, ScriptOp::Vectorize);
    EXPECT_EQ(p.commands[4].args[1], -5);
    EXPECT_EQ(p.commands[10].argCount, 4);
    EXPECT_EQ(p.commands[10].args[3], 4234);
}

TEST(ScriptParser, StopsAtTheFirstBadLineAndKeepsTheLinesBefore)
{
    struct Case {
        const char* text;
        short code;
        int line;
    };
    const Case cases[] = {
        {"Invert\n\rGamma 1 2 3\r\n", kScriptBadLineEnd, 2},        // CR LF
        {"Invert\n\rEqualize", kScriptBadLineEnd, 2},               // no line end
        {"Invert\n\rEqualize\rInvert\n\r", kScriptBadLineEnd, 2},   // lone CR inside
        {"Invert\n\r\n\rInvert\n\r", kScriptEmptyLine, 2},
        {"Invert\n\rinvert\n\r", kScriptUnknownWord, 2},            // words keep their case
        {"Invert\n\rRotate 90 0\n\r", kScriptArgumentCount, 2},
        {"Invert\n\rResize 32768 10 0\n\r", kScriptOutOfRange, 2},
        {"Invert\n\rVectorize 0 3 0 0 1 1\n\r", kScriptOutOfRange, 2},
        {"Invert\n\rGamma 99999999999999999999 0 0\n\r", kScriptOutOfRange, 2},
        {"Invert\n\rGamma +1 0 0\n\r", kScriptBadNumber, 2},
        {"Invert\n\rGamma 1  0 0\n\r", kScriptBadBlank, 2},
    };
    for (const Case& c : cases) {
        ScriptParse p = Parse(c.text);
        EXPECT_EQ(p.code, c.code) << c.text;
        EXPECT_EQ(p.badLine, c.line) << c.text;
        EXPECT_EQ(p.commands.size(), size_t(c.line - 1)) << c.text;
    }
    // A NUL inside a word is no word we know.
    ScriptParse p = Parse(std::string("Inv\0rt\n\r", 8));
    EXPECT_EQ(p.code, kScriptUnknownWord);
    EXPECT_EQ(p.badLine, 1);
}

TEST(ScriptParser, RangesIncludeTheirEnds)
{
    ScriptParse p = Parse("Gamma -100 100 0\n\rRotate -360 1 1\n\rResize 32767 1 0\n\rReduce 32 3 1 254000\n\r"
                          "Reduce 1 0 0 0\n\rChangeColor 0 16777215\n\r");
    EXPECT_EQ(p.code, 0);
    EXPECT_EQ(p.commands.size(), 6u);
}

TEST(ScriptParser, TakesAnyWholeAngleAsItsPlaceOnTheCircle)
{
    // 450 is what a stored angle of -90 gives; the far one is what a huge tag gives.
    ScriptParse p = Parse("Rotate 450 0 0\n\rRotate -90 0 0\n\rRotate 360 0 0\n\rRotate -2147483288 0 0\n\r");
    ASSERT_EQ(p.code, 0);
    ASSERT_EQ(p.commands.size(), 4u);
    const int32_t expected[] = {90, 270, 0, 232};
    for (size_t i = 0; i < 4; ++i)
        EXPECT_EQ(p.commands[i].args[0], expected[i]) << i;
}
