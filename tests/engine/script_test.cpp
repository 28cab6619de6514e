// Command scripts through Dewey::Test: good lines run in order, a bad line
// stops the run with its code before it runs.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "engine_test_support.h"

using namespace enginetest;

namespace {

std::string WriteScript(const char* name, const std::string& text)
{
    std::string path = TempPath(name);
    FILE* file = std::fopen(path.c_str(), "wb");
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    return path;
}

short RunScript(Dewey& document, const std::string& text)
{
    std::string path = WriteScript("script.txt", text);
    short code = document.Test(path.c_str(), nullptr, nullptr);
    DeleteFileA(path.c_str());
    return code;
}

TEST(Script, RunsEveryLineInOrder)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 40, 20), 0);
    // Red (255) becomes yellow, then everything is inverted and turned.
    ASSERT_EQ(RunScript(document, "ChangeColor 255 65535\n\rInvert\n\rRotate 270 0 0\n\rResize 10 20 0\n\r"), 0);
    long w = 0, h = 0;
    document.GetInfo(&w, &h, nullptr, nullptr, nullptr);
    EXPECT_EQ(w, 10);
    EXPECT_EQ(h, 20);
    // Yellow inverted is blue; a turn of 270 clockwise puts the top left
    // at the bottom left.
    EXPECT_EQ(Rgb(document, 0, 19), 0x0000FFu);
}

TEST(Script, StopsAtABadLineWithoutRunningIt)
{
    // The good line before runs; the bad line and those after do not. Each
    // code is checked on the parser.
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 4, 4), 0);
    EXPECT_EQ(RunScript(document, "Invert\n\rSharpen 3\n\rInvert\n\r"), ravi::kScriptUnknownWord);
    EXPECT_EQ(Rgb(document, 0, 0), 0x00FFFFu);
}

TEST(Script, EmptyFileChangesNothingAndAMissingOneIsAnError)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 4, 4), 0);
    EXPECT_EQ(RunScript(document, ""), 0);
    EXPECT_EQ(document.UndoRedo(), kRavicliNothingToUndo);
    EXPECT_EQ(document.Test(TempPath("no-such-script.txt").c_str(), nullptr, nullptr), ravi::kEngineFileOpen);
    EXPECT_EQ(document.Test(nullptr, nullptr, nullptr), ravi::kEngineBadArgument);
}

}  // namespace
