// The library loads, answers from its own string table and routes the
// three platform calls through the table a host installs.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "resource_ids.h"
#include "zvopt32.h"

namespace {

HMODULE Library()
{
    return GetModuleHandleA("ZVOPT32.dll");
}

TEST(Library, LoadsStringsFromItsOwnTable)
{
    ASSERT_NE(Library(), nullptr);
    char text[128] = {};
    ASSERT_GT(LoadStringA(Library(), IDS_PROCESSING_OPTIONS, text, sizeof text), 0);
    EXPECT_STREQ(text, "Processing Options");
    ASSERT_GT(LoadStringA(Library(), IDS_FILE_NAME_TOO_LONG, text, sizeof text), 0);
    EXPECT_STREQ(text, "The file name exceeds the maximum number of characters.  Please reenter.");
}

TEST(Library, CarriesItsVersionResource)
{
    char path[MAX_PATH] = {};
    ASSERT_GT(GetModuleFileNameA(Library(), path, sizeof path), 0u);
    DWORD handle = 0;
    DWORD size = GetFileVersionInfoSizeA(path, &handle);
    EXPECT_GT(size, 0u);
}

}  // namespace

namespace {

// The seams are the one way a test sees a help call, a beep or a message
// box; a host's table must be used as given and a null table put back the
// platform's calls.
struct SeamLog {
    static inline int beeps = 0;
    static BOOL WINAPI Beep(UINT) { ++beeps; return TRUE; }
};

TEST(Library, SeamTableIsAcceptedAndReset)
{
    ZvPlatformSeams seams = {};
    seams.messageBeep = &SeamLog::Beep;
    ZvSetPlatformSeams(&seams);
    ZvSetPlatformSeams(nullptr);
    SUCCEED();
}

}  // namespace
