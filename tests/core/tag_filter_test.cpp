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
    ZvSetTag(wildcards, "BMP???CPROC", "DIFF");
    ZvSetTag(wildcards, "??????Q", "50");
    ZvSetTag(wildcards, "???TIFCOMP", "ON");
    delete wildcards;

    root.Set("BMPTIFQ", "70");
    root.Set("TIFW", "3");
    root.Set("BMPTIFCONTRAST", "10");  // a command: never an option
    root.Set("RGBFF0000", "00FF00");
    root.Set("TIFROT", "90");
    root.Set("GIFROT", "90");
    TagSet* child = new TagSet;
    root.tags->SetChild(child);
    ZvSetTag(root.tags, "TIFW", "4");  // goes to the child
    ZvSetTag(root.tags, "OWNONLY", "yes");

    StoredSet out("FilterOut");
    Dewey* image = coretest::PatternImage(8, 8, 24);
    FilterOptions(image, child, out.tags, "BMP", "TIF");

    EXPECT_EQ(out.Get("BMPTIFSMOOTH"), "ON");
    EXPECT_EQ(out.Get("BMPTIFCPROC"), "DIFF");
    EXPECT_EQ(out.Get("BMPTIFQ"), "70");
    EXPECT_EQ(out.Get("BMPTIFCOMP"), "ON");
    EXPECT_EQ(out.Get("TIFW"), "4");
    EXPECT_EQ(out.Get("OWNONLY"), "yes");
    EXPECT_EQ(out.Get("BMPTIFCONTRAST"), "<absent>");
    EXPECT_EQ(out.Get("RGBFF0000"), "<absent>");
    EXPECT_EQ(out.Get("TIFROT"), "<absent>");
    EXPECT_EQ(out.Get("GIFROT"), "<absent>");

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
    tags.Set("~~~ROT", "90");
    tags.Set("BMP~~~TRACE", "CTR");

    TranslateAllTags(tags.tags, "BMP", "~~~", "TIF");
    EXPECT_EQ(tags.Get("BMPTIFCONTRAST"), "7");
    EXPECT_EQ(tags.Get("TIFROT"), "90");
    EXPECT_EQ(tags.Get("BMPTIFTRACE"), "CTR");
    EXPECT_EQ(tags.Get("BMP~~~CONTRAST"), "7");

    // Away from the destination last translated: nothing moves.
    TranslateAllTags(tags.tags, "BMP", "TIF", "GIF");
    EXPECT_EQ(tags.Get("BMPGIFCONTRAST"), "<absent>");
    EXPECT_EQ(tags.Get("BMPTIFCONTRAST"), "7");

    // Back to it: the tags of the other destination move and leave it.
    tags.Set("BMPGIFCONTRAST", "3");
    tags.Set("BMPGIFBRIGHT", "5");
    TranslateAllTags(tags.tags, "BMP", "GIF", "TIF");
    EXPECT_EQ(tags.Get("BMPTIFCONTRAST"), "7");
    EXPECT_EQ(tags.Get("BMPTIFBRIGHT"), "5");
    EXPECT_EQ(tags.Get("BMPGIFCONTRAST"), "<absent>");
    EXPECT_EQ(tags.Get("BMPGIFBRIGHT"), "<absent>");
}

TEST(TraceNumbers, ListPositionsComeFromTheLibrarysStringTable)
{
    StoredSet tags("Trace");
    EXPECT_EQ(TraceGetMaxColors(tags.tags, "BMPWMF"), 16);
    tags.Set("BMPWMFTRACE", "CTR");
    tags.Set("BMPWMFCTRUNDITHER", "3x3");
    tags.Set("BMPWMFCTRSPECKREM", "L");
    char key[64];
    TraceMakeTag(tags.tags, "BMPWMF", "GENTOL", key);
    EXPECT_STREQ(key, "BMPWMFCTRGENTOL");
    EXPECT_EQ(TraceGetMethod(tags.tags, "BMPWMF"), 1);
    EXPECT_EQ(TraceGetUndither(tags.tags, "BMPWMF"), 2);
    EXPECT_EQ(TraceGetDespec(tags.tags, "BMPWMF"), 3);
    tags.Set("BMPWMFCTRUNDITHER", "9x9");
    EXPECT_EQ(TraceGetUndither(tags.tags, "BMPWMF"), 0);
}

}  // namespace
