// The seam recorder answers message boxes as a test asks. Its copies of the
// help calls' id tables are proved by the context help tests, through the
// library itself.
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
    EXPECT_EQ(box(nullptr, "four", "Caption", MB_RETRYCANCEL | MB_ICONSTOP), IDRETRY);
    ASSERT_EQ(seams.messageBoxes.size(), 4u);
    EXPECT_EQ(seams.messageBoxes[3].text, "four");
    EXPECT_EQ(seams.messageBoxes[3].type, static_cast<UINT>(MB_RETRYCANCEL | MB_ICONSTOP));
}

}  // namespace
