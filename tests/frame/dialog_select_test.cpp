// The exported choice of dialog, as a host calls it with no dialog running.
#include <gtest/gtest.h>

#include "zvopt32.h"

namespace {

TEST(DialogSelection, ExportsAnswerWithNoDialogRunning)
{
    EXPECT_EQ(GetDestDlgId("eps", 2, 1), 208);
    EXPECT_EQ(GetDestDlgId("WMF", 3, 2), 201);

    // The procedure is cleared first: CUT has a number and no procedure.
    DLGPROC proc = reinterpret_cast<DLGPROC>(&DefDlgProcA);
    EXPECT_EQ(GetSrcDlgId("cut", &proc, 1, 1), 1);
    EXPECT_EQ(proc, nullptr);

    // A freshly loaded library has no save under way.
    EXPECT_EQ(GetSrcDlgId("BMP", nullptr, 1, 1), 218);
    EXPECT_EQ(GetSrcDlgId("BMP", nullptr, 1, 0), 0);
}

}  // namespace
