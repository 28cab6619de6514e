// Filtering and translation on stored tag sets, and the trace numbers with
// the library's own value lists.
#include <gtest/gtest.h>

#include "core_test_support.h"
#include "zvopt32.h"

using coretest::StoredSet;

namespace {

TEST(FilterOptions, WildcardsUnderTheRootsPathThenRootThenTags)
{
    StoredSet root("FilterRoot");
    // The wildcard set lives below the root's place, where FilterOptions
    // looks for it; a second binding of the same place sees it.
    TagSet* wildcards = new TagSet;
    ASSERT_EQ(wildcards->SetPath((root.Path() + "\\Wildcards").c_str(), 1), 0);
    ZvSetTag(wildcards, "??????SMOOTH", "ON");
    ZvSetTag(wildcards, "??????Q", "50");
    delete wildcards;

    root.Set("BMPTIFQ", "70");
    root.Set("TIFW", "3");
    root.Set("BMPTIFCONTRAST", "10");  // a command: never an option
    TagSet* child = new TagSet;
    root.tags->SetChild(child);
    ZvSetTag(root.tags, "TIFW", "4");  // goes to the child
    ZvSetTag(root.tags, "OWNONLY", "yes");

    StoredSet out("FilterOut");
    Dewey* image = coretest::PatternImage(8, 8, 24);
    FilterOptions(image, child, out.tags, "BMP", "TIF");

    EXPECT_EQ(out.Get("BMPTIFSMOOTH"), "ON");
    EXPECT_EQ(out.Get("BMPTIFQ"), "70");
    EXPECT_EQ(out.Get("TIFW"), "4");
    EXPECT_EQ(out.Get("OWNONLY"), "yes");
    EXPECT_EQ(out.Get("BMPTIFCONTRAST"), "<absent>");

    // The options now stand where the engine reads them: a set bound to
    // the same place holds them.
    TagSet* reread = new TagSet;
    reread->SetPath(out.Path().c_str(), 1);
    EXPECT_STREQ(ZvGetTag(reread, "BMPTIFSMOOTH"), "ON");
    delete reread;

    root.tags->SetChild(nullptr);
    delete child;
    delete image;
    RegDeleteTreeA(HKEY_CURRENT_USER, ("Software\\Zavrin\\Tags\\" + root.Path() + "\\Wildcards").c_str());
}

TEST(TranslateAllTags, FollowsTheDestinationLastTranslated)
{
    StoredSet tags("Translate");
    tags.Set("BMP~~~CONTRAST", "7");

    TranslateAllTags(tags.tags, "BMP", "~~~", "TIF");
    EXPECT_EQ(tags.Get("BMPTIFCONTRAST"), "7");

    // Away from the destination last translated: nothing moves.
    TranslateAllTags(tags.tags, "BMP", "TIF", "GIF");
    EXPECT_EQ(tags.Get("BMPGIFCONTRAST"), "<absent>");
    EXPECT_EQ(tags.Get("BMPTIFCONTRAST"), "7");

    // Back to it: the tags of the other destination move and leave it.
    tags.Set("BMPGIFBRIGHT", "5");
    TranslateAllTags(tags.tags, "BMP", "GIF", "TIF");
    EXPECT_EQ(tags.Get("BMPTIFBRIGHT"), "5");
    EXPECT_EQ(tags.Get("BMPGIFBRIGHT"), "<absent>");
}

TEST(TraceNumbers, ListPositionsComeFromTheLibrarysStringTable)
{
    StoredSet tags("Trace");
    tags.Set("BMPWMFTRACE", "CTR");
    tags.Set("BMPWMFCTRUNDITHER", "3x3");
    tags.Set("BMPWMFCTRSPECKREM", "L");
    char key[64];
    TraceMakeTag(tags.tags, "BMPWMF", "GENTOL", key);
    EXPECT_STREQ(key, "BMPWMFCTRGENTOL");
    EXPECT_EQ(TraceGetUndither(tags.tags, "BMPWMF"), 2);
    EXPECT_EQ(TraceGetDespec(tags.tags, "BMPWMF"), 3);
}

}  // namespace
