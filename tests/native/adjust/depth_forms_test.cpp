#include <gtest/gtest.h>

#include <string>

#include "depth_forms.h"

using namespace zv;

namespace {

std::string ToList(const char* stored, bool tga = false)
{
    char out[64];
    DepthTagToList(stored, tga, " - Bit", out, sizeof out);
    return out;
}

std::string ToTag(const char* shown, bool tga = false)
{
    char out[32];
    DepthListToTag(shown, tga, out, sizeof out);
    return out;
}

}  // namespace

TEST(DepthForms, TheTagGoesToTheListsFormAndBackUnchanged)
{
    struct Case {
        const char* stored;
        const char* shown;
    };
    const Case cases[] = {{"8", "256"}, {"1", "2"}, {"24", "16777216"}, {"0", "1"}, {"4", "16"}};
    for (const Case& c : cases) {
        EXPECT_EQ(ToList(c.stored), c.shown) << c.stored;
        EXPECT_EQ(ToTag(c.shown), c.stored) << c.shown;
    }
    // Depths named by bits keep them, with the suffix while the page is open.
    EXPECT_EQ(ToList("24", true), "24 - Bit");
    EXPECT_EQ(ToTag("24 - Bit", true), "24");
    // "Same" and text that is no number remove the tag; so does a depth no
    // number of colours can follow.
    EXPECT_EQ(ToTag("Same"), "");
    EXPECT_EQ(ToTag("Same", true), "");
    EXPECT_EQ(ToList("99"), "");
}

TEST(DepthForms, TheListSelectsItsEntryOrSame)
{
    EXPECT_EQ(DepthListEntry(2, false), 1);
    EXPECT_EQ(DepthListEntry(256, false), 7);
    EXPECT_EQ(DepthListEntry(16777216, false), kDepthListCount);
    // 4 and 1024 colours are not on the list.
    EXPECT_EQ(DepthListEntry(4, false), 0);
    EXPECT_EQ(DepthListEntry(1024, true), 0);
    // Above the last: "Same" for a stored option, the last for the image itself.
    EXPECT_EQ(DepthListEntry(1ll << 32, false), 0);
    EXPECT_EQ(DepthListEntry(1ll << 32, true), kDepthListCount);
}

TEST(DepthForms, MethodsAreNumberedAsTheEngineCountsThem)
{
    EXPECT_EQ(ReductionMethod("half"), 0);
    EXPECT_EQ(ReductionMethod("SNAP"), 1);
    EXPECT_EQ(ReductionMethod("Diff"), 2);
    EXPECT_EQ(ReductionMethod("DITH"), 3);
    EXPECT_EQ(ReductionMethod(nullptr), 3);
    EXPECT_EQ(ReductionMethod("other"), 3);
}
