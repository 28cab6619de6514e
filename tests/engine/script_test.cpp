// Command scripts through Dewey::Test: a bad line stops the run with its
// code before it runs. A whole script runs in the DoOptions tests.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "engine_test_support.h"

using namespace enginetest;

namespace {

short RunScript(Dewey& document, const std::string& text)
{
    std::string path = TempPath("script.txt");
    FILE* file = std::fopen(path.c_str(), "wb");
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    short code = document.Test(path.c_str(), nullptr, nullptr);
    DeleteFileA(path.c_str());
    return code;
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
