// The exported choice of dialog, as a host calls it with no dialog running.
#include <gtest/gtest.h>

#include "zvopt32.h"

namespace {

TEST(DialogSelection, DestinationNumbersThroughTheExport)
{
    EXPECT_EQ(GetDestDlgId("eps", 2, 1), 208);
    EXPECT_EQ(GetDestDlgId("TXT", 5, 1), 206);
    EXPECT_EQ(GetDestDlgId("TXT", 1, 1), 0);
    EXPECT_EQ(GetDestDlgId("WMF", 3, 1), 200);
    EXPECT_EQ(GetDestDlgId("WMF", 3, 2), 201);
}

TEST(DialogSelection, SourceNumberClearsTheProcedureFirst)
{
    DLGPROC proc = reinterpret_cast<DLGPROC>(&DefDlgProcA);
    EXPECT_EQ(GetSrcDlgId("cut", &proc, 1, 1), 1);
    EXPECT_EQ(proc, nullptr);

    proc = reinterpret_cast<DLGPROC>(&DefDlgProcA);
    EXPECT_EQ(GetSrcDlgId("BMP", &proc, 1, 0), 0);
    EXPECT_EQ(proc, nullptr);

    // A freshly loaded library has no save under way.
    EXPECT_EQ(GetSrcDlgId("BMP", nullptr, 1, 1), 218);
    EXPECT_EQ(GetSrcDlgId("IGS", nullptr, 6, 1), 227);
    EXPECT_EQ(GetSrcDlgId("PIC", nullptr, 1, 0), 211);
}

}  // namespace
