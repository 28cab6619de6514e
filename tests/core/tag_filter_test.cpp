// Filtering on stored tag sets, and the trace numbers with the library's
// own value lists. Translation is proved in memory and in the save dialog.
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
