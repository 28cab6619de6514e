// OKAMOD and the Zv lookups, through the DLLs: formats of each kind, their
// other spellings, and input that names nothing.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "okamod32.h"
#include "zvwio32.h"

namespace {

// A few formats of each type, and the other spellings, which map to a key.
struct Named {
    const char* ext;
    const char* key;
    int type;
    int source;
    int dest;
};

const Named kNamed[] = {
    {"PCD", "PCD", 1, 1, 0}, {"PRN", "PRN", 1, 0, 0},  {"DCX", "DCX", 5, 1, 1},
    {"CGM", "CGM", 2, 1, 1}, {"jpeg", "JPG", 1, 1, 1}, {"pict", "PCT", 3, 1, 1},
};

class Registry : public ::testing::Test {
protected:
    OKAMOD registry{nullptr};
    OKAMOD* formats = &registry;
};

TEST_F(Registry, FormatsAnswerTypeAccessKeyAndName)
{
    for (const Named& want : kNamed) {
        SCOPED_TRACE(want.ext);
        HKEY index = ZvGetIndex(formats, want.ext);
        ASSERT_NE(index, nullptr);
        EXPECT_EQ(formats->GetType(index), want.type);
        EXPECT_EQ(formats->IsSource(index), want.source);
        EXPECT_EQ(formats->IsDest(index), want.dest);
        EXPECT_STREQ(ZvGetInternalExt(formats, want.ext), want.key);
        EXPECT_EQ(ZvIsModRaster(formats, want.ext), want.type == 1 || want.type == 5 ? 1 : 0);
        // A key looked up again stays itself and names the same format.
        EXPECT_STREQ(ZvGetInternalExt(formats, ZvGetInternalExt(formats, want.ext)), want.key);
        EXPECT_EQ(ZvGetIndex(formats, want.key), index);
    }
    // One table serves every registry of the process, and so do its indexes.
    OKAMOD* other = new OKAMOD(nullptr);
    EXPECT_STREQ(ZvGetName(other, formats->GetIndex("WMF")), "Windows Metafile");
    delete other;
}

// Extensions that name nothing are tested on the table natively.
TEST_F(Registry, NoRegistryAndForeignIndexesNameNoFormatAndCrashNothing)
{
    EXPECT_EQ(ZvGetIndex(nullptr, "BMP"), nullptr);
    HKEY foreign = reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(100000));
    EXPECT_EQ(formats->GetType(foreign), 0);
    EXPECT_STREQ(ZvGetName(formats, foreign), "");
    EXPECT_EQ(ZvIsModRaster(nullptr, "BMP"), 0);
}

TEST_F(Registry, InternalExtensionOfAnUnknownExtensionIsItselfInThreeCapitals)
{
    EXPECT_STREQ(ZvGetInternalExt(formats, "xyzzy"), "XYZ");
    EXPECT_STREQ(ZvGetInternalExt(formats, nullptr), "");
    // Without a registry nothing is known, not even BMP.
    EXPECT_STREQ(ZvGetInternalExt(nullptr, "jpeg"), "JPE");
    // Two answers at once stay apart: each call has a buffer of its own.
    const char* first = ZvGetInternalExt(formats, "abc");
    const char* second = ZvGetInternalExt(formats, "def");
    EXPECT_STREQ(first, "ABC");
    EXPECT_STREQ(second, "DEF");
}

TEST_F(Registry, AllExtensionsAreTheMainOnesOncePerFormat)
{
    char** all = ZvGetAllExtensions(formats);
    ASSERT_NE(all, nullptr);
    int count = 0;
    bool sawBmp = false, sawJpeg = false;
    for (char** p = all; *p != nullptr; ++p, ++count) {
        sawBmp = sawBmp || std::strcmp(*p, "BMP") == 0;
        sawJpeg = sawJpeg || std::strcmp(*p, "JPEG") == 0;
        EXPECT_NE(ZvGetIndex(formats, *p), nullptr) << *p;
    }
    EXPECT_TRUE(sawBmp);
    EXPECT_FALSE(sawJpeg);
    ZvFreeAllExtensions(formats, all);

    char** none = ZvGetAllExtensions(nullptr);
    ASSERT_NE(none, nullptr);
    EXPECT_EQ(none[0], nullptr);
    ZvFreeAllExtensions(nullptr, none);
}

}  // namespace
