// Sets through the libraries' own interfaces: stored places that outlive a
// process, global writes, and the size tags of a destination. The chain and
// search rules, and what of a chain reaches the stored place, are tested
// natively.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "child_process.h"
#include "zvwio32.h"

namespace {

const char kEnvPath[] = "ZV_TAGS_STORED_PATH";

// A stored place of its own for each test, taken away at the end.
struct StoredPlace {
    std::string path;
    StoredPlace()
    {
        path = "ZvTagsTest\\" + std::to_string(GetCurrentProcessId()) + "_" + std::to_string(GetTickCount());
    }
    ~StoredPlace()
    {
        RegDeleteTreeA(HKEY_CURRENT_USER, ("Software\\Zavrin\\Tags\\" + path).c_str());
    }
};

std::string Text(const char* value)
{
    return value ? value : "<absent>";
}

TEST(StoredSet, ASecondProcessSeesWhatTheFirstStored)
{
    StoredPlace place;
    {
        TagSet first;
        ASSERT_EQ(first.SetPath(place.path.c_str(), 1), OKI_OK);
        ZvSetTag(&first, "SAVEDIR", "C:\\images");
        ZvSetTag(&first, "GONE", "soon");
        ZvSetTag(&first, "GONE", "");
    }
    ASSERT_EQ(zvtest::RunThisProgram("StoredSet.SecondProcessSide", kEnvPath, place.path.c_str()), 0u);

    // And what the second process stored is there for a new binding here.
    TagSet again;
    ASSERT_EQ(again.SetPath(place.path.c_str(), 1), OKI_OK);
    EXPECT_EQ(Text(ZvGetTag(&again, "SECOND")), "answer");
    EXPECT_STREQ(again.GetPath(), place.path.c_str());
}

// Runs only as the second process of the test above.
TEST(StoredSet, SecondProcessSide)
{
    char path[512] = {};
    if (!GetEnvironmentVariableA(kEnvPath, path, sizeof path))
        GTEST_SKIP() << "runs as the second process of ASecondProcessSeesWhatTheFirstStored";
    TagSet second;
    ASSERT_EQ(second.SetPath(path, 1), OKI_OK);
    EXPECT_EQ(Text(ZvGetTag(&second, "savedir")), "C:\\images");
    EXPECT_EQ(Text(ZvGetTag(&second, "GONE")), "<absent>");
    EXPECT_EQ(ZvSetTag(&second, "SECOND", "answer"), OKI_OK);
}

TEST(StoredSet, APlaceThatCannotBeOpenedLeavesAnEmptySetAndSaysSo)
{
    StoredPlace place;
    {
        TagSet s;
        ASSERT_EQ(s.SetPath(place.path.c_str(), 1), OKI_OK);
        ZvSetTag(&s, "A", "1");
    }
    TagSet s;
    ZvSetTag(&s, "BEFORE", "x");
    // Registry key names hold at most 255 characters.
    const std::string bad = place.path + "\\" + std::string(300, 'k');
    EXPECT_EQ(s.SetPath(bad.c_str(), 1), OKI_ERR_OPEN);
    EXPECT_EQ(ZvGetTag(&s, "BEFORE"), nullptr);
    EXPECT_EQ(ZvSetTag(&s, "AFTER", "kept in memory"), OKI_OK);
    EXPECT_EQ(Text(ZvGetTag(&s, "AFTER")), "kept in memory");
    EXPECT_EQ(s.SetPath(nullptr, 1), OKI_ERR_ARGUMENT);
    EXPECT_EQ(s.SetPath(place.path.c_str(), 2), OKI_ERR_ARGUMENT);
    EXPECT_EQ(s.SetPath(place.path.c_str(), 1), OKI_OK);
    EXPECT_EQ(Text(ZvGetTag(&s, "A")), "1");
}

TEST(ZvTags, GlobalWritesGoToTheRootAndOutliveADroppedChild)
{
    TagSet* root = new TagSet;
    TagSet* sheet = new TagSet;
    TagSet* inner = new TagSet;
    root->SetChild(sheet);
    sheet->SetChild(inner);

    ZvSetTag(root, "MEMORIZE", "ON");
    ZvSetGlobalTag(inner, "SCALE", "FIT");
    ZvSetGlobalIntTag(root, "COUNT", 3);

    // The sheet destroys its sets before the parent lets go of them.
    delete inner;
    delete sheet;
    root->SetChild(nullptr);
    EXPECT_EQ(root->GetLastChild(), nullptr);
    EXPECT_EQ(Text(ZvGetTag(root, "MEMORIZE")), "<absent>");
    EXPECT_EQ(Text(ZvGetTag(root, "SCALE")), "FIT");
    EXPECT_EQ(ZvGetIntTag(root, "COUNT"), 3);
    delete root;
}

TEST(ResolutionTags, ConvertOnceEachWayAndResizeReadsTheRightUnit)
{
    TagSet root;
    ZvSetTag(&root, "TIFHR", "846.6666666667");  // 300 dots per inch
    ZvSetTag(&root, "TIFVR", "1693.3333333333"); // 150
    ZvSetTag(&root, "TIFUNITS", "IN");
    ZvSetTag(&root, "TIFW", "2");
    ZvSetTag(&root, "TIFH", "2");
    ZvSetTag(&root, "TIFSCALING", "Distort to Frame");
    long w = 0, h = 0;
    ASSERT_EQ(CalculateResize(&root, "TIF", 100, 100, &w, &h), 1);
    EXPECT_EQ(w, 600);
    EXPECT_EQ(h, 300);

    // A page lives in a child set: its resolutions are in dots per inch, and
    // a second conversion (the resize page makes two) leaves them so.
    TagSet page;
    root.SetChild(&page);
    ResolutionToDPI(&root, "TIF");
    EXPECT_EQ(Text(ZvGetTag(&root, "TIFHR")), "300");
    ZvSetFloatTag(&root, "TIFHR", 100.0, 32);
    ResolutionToDPI(&root, "TIF");
    EXPECT_EQ(Text(ZvGetTag(&root, "TIFHR")), "100");
    ASSERT_EQ(CalculateResize(&root, "TIF", 100, 100, &w, &h), 1);
    EXPECT_EQ(w, 200);
    EXPECT_EQ(h, 300);
    ResolutionToDeciMicrons(&root, "TIF");
    EXPECT_EQ(Text(ZvGetTag(&root, "TIFHR")), "2540");
    ResolutionToDeciMicrons(&root, "TIF");  // no second conversion
    EXPECT_EQ(Text(ZvGetTag(&root, "TIFHR")), "2540");

    // A page that stores tenths of microns itself and skips the way back:
    // once its set is fused, the values read as tenths of microns again.
    ResolutionToDPI(&root, "TIF");
    ZvSetIntTag(&root, "TIFHR", 1245);
    page.FuseWithParent();
    root.SetChild(nullptr);
    ASSERT_EQ(CalculateResize(&root, "TIF", 100, 100, &w, &h), 1);
    EXPECT_EQ(w, 408);  // 2 inches at 204 dots per inch
}

}  // namespace
