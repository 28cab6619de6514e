// The seam recorder answers message boxes as a test asks and keeps the
// help calls' id tables after the caller's array is gone.
#include <gtest/gtest.h>

#include "seam_recorder.h"

namespace {

using zvtest::SeamRecorder;

TEST(SeamRecorder, AnswersQueuedAnswersThenTheFirstButton)
{
    SeamRecorder seams;
    seams.AnswerMessageBoxes({IDNO, IDCANCEL});
    auto box = seams.Table().messageBox;
    EXPECT_EQ(box(nullptr, "one", "Caption", MB_YESNOCANCEL), IDNO);
    EXPECT_EQ(box(nullptr, "two", "Caption", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(box(nullptr, "three", "Caption", MB_YESNO), IDYES);
    EXPECT_EQ(box(nullptr, "four", "Caption", MB_OK | MB_ICONSTOP), IDOK);
    EXPECT_EQ(box(nullptr, "five", "Caption", MB_RETRYCANCEL), IDRETRY);
    ASSERT_EQ(seams.messageBoxes.size(), 5u);
    EXPECT_EQ(seams.messageBoxes[3].text, "four");
    EXPECT_EQ(seams.messageBoxes[3].caption, "Caption");
    EXPECT_EQ(seams.messageBoxes[3].type, static_cast<UINT>(MB_OK | MB_ICONSTOP));
}

TEST(SeamRecorder, CopiesTheIdPairsOfAContextHelpCall)
{
    SeamRecorder seams;
    {
        DWORD ids[] = {1001, 5001, 1002, 5002, 0, 0};
        seams.Table().winHelp(nullptr, "zavrin.hlp", HELP_WM_HELP, reinterpret_cast<ULONG_PTR>(ids));
    }
    seams.Table().winHelp(nullptr, "zavrin.hlp", HELP_CONTEXT, 77);
    seams.Table().messageBeep(MB_ICONEXCLAMATION);
    ASSERT_EQ(seams.helpCalls.size(), 2u);
    EXPECT_EQ(seams.helpCalls[0].file, "zavrin.hlp");
    EXPECT_EQ(seams.helpCalls[0].idPairs, (std::vector<DWORD>{1001, 5001, 1002, 5002}));
    EXPECT_EQ(seams.helpCalls[1].command, static_cast<UINT>(HELP_CONTEXT));
    EXPECT_EQ(seams.helpCalls[1].data, 77u);
    EXPECT_TRUE(seams.helpCalls[1].idPairs.empty());
    EXPECT_EQ(seams.beeps, (std::vector<UINT>{MB_ICONEXCLAMATION}));
}

}  // namespace
