// The rules of a set chain: where writes land, what reads see, what fusing
// and dropping a child keep, and how searches hold still while tags change.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tag_store.h"

using oki::TagStore;

namespace {

std::string Read(const TagStore& s, const char* key)
{
    const char* v = s.Get(key);
    return v ? v : "<absent>";
}

// Records what reaches a stored place.
struct FakeBacking : oki::TagBacking {
    std::vector<std::string>* log;
    bool fail = false;
    explicit FakeBacking(std::vector<std::string>* l) : log(l) {}
    bool Write(const std::string& k, const std::string& v) override
    {
        log->push_back("W " + k + "=" + v);
        return !fail;
    }
    bool Remove(const std::string& k) override
    {
        log->push_back("R " + k);
        return !fail;
    }
};

TEST(TagChain, ThreeDeepReadsAndWritesThroughTheRoot)
{
    TagStore root, child, grandchild;
    root.SetOwn("A", "root");
    root.SetOwn("B", "root");
    ASSERT_TRUE(root.SetChild(&child));
    child.SetOwn("B", "child");
    ASSERT_TRUE(child.SetChild(&grandchild));

    EXPECT_EQ(grandchild.Root(), &root);
    EXPECT_EQ(Read(root, "A"), "root");
    EXPECT_EQ(Read(root, "B"), "child");

    // A write through the root's pointer lands in the deepest child only.
    EXPECT_EQ(root.Set("A", "deep"), oki::kOk);
    EXPECT_EQ(Read(root, "A"), "deep");
    EXPECT_EQ(Read(child, "A"), "deep");  // reads from any link start at the deepest child
    EXPECT_EQ(grandchild.OwnCount(), 1u);
}

TEST(TagChain, FuseKeepsWritesAndDropLosesThem)
{
    TagStore root, child, grandchild;
    root.SetOwn("KEEP", "old");
    root.SetChild(&child);
    child.SetChild(&grandchild);
    root.Set("KEEP", "new");
    root.Set("LOST", "x");

    // The grandchild fuses into the child; then the child is dropped.
    EXPECT_EQ(grandchild.Fuse(), oki::kOk);
    EXPECT_EQ(Read(root, "KEEP"), "new");
    root.SetChild(nullptr);
    EXPECT_EQ(Read(root, "KEEP"), "old");
    EXPECT_EQ(Read(root, "LOST"), "<absent>");

    // Hung again and fused, the child's writes reach the root.
    root.SetChild(&child);
    EXPECT_EQ(child.Fuse(), oki::kOk);
    root.SetChild(nullptr);
    EXPECT_EQ(Read(root, "KEEP"), "new");
    EXPECT_EQ(Read(root, "LOST"), "x");
    EXPECT_EQ(root.Fuse(), oki::kNoParent);
}

TEST(TagChain, RemovalThroughAChildHidesUntilDroppedOrFused)
{
    TagStore root, child;
    root.SetOwn("XRES", "OFF");
    root.SetChild(&child);
    EXPECT_EQ(root.Set("XRES", ""), oki::kOk);
    EXPECT_EQ(Read(root, "XRES"), "<absent>");
    root.SetChild(nullptr);
    EXPECT_EQ(Read(root, "XRES"), "OFF");

    root.SetChild(&child);
    child.Fuse();
    EXPECT_EQ(Read(root, "XRES"), "<absent>");
    EXPECT_EQ(root.OwnCount(), 0u);  // at the root a removal removes
}

TEST(TagChain, FuseIntoAMiddleSetKeepsTheRemovalAsARemoval)
{
    TagStore root, child, grandchild;
    root.SetOwn("K", "root");
    root.SetChild(&child);
    child.SetChild(&grandchild);
    root.Set("K", "");
    grandchild.Fuse();
    EXPECT_EQ(Read(root, "K"), "<absent>");
    root.SetChild(nullptr);  // dropping the middle set brings the root's value back
    EXPECT_EQ(Read(root, "K"), "root");
}

TEST(TagChain, LinksStaySoundWhenSetsGoAwayOrWouldLoop)
{
    TagStore root;
    {
        TagStore child;
        root.SetChild(&child);
        EXPECT_FALSE(child.SetChild(&root));
        EXPECT_FALSE(child.SetChild(&child));
    }
    // The child went away first, as a sheet destroys its set before the
    // parent lets go of it.
    EXPECT_EQ(root.Child(), nullptr);
    root.Set("A", "1");
    EXPECT_EQ(Read(root, "A"), "1");

    // A set hung under a second parent leaves the first.
    TagStore other, moving;
    root.SetChild(&moving);
    other.SetChild(&moving);
    EXPECT_EQ(root.Child(), nullptr);
    EXPECT_EQ(moving.Parent(), &other);
}

TEST(TagKeys, CaseIsIgnoredAndBadKeysAreRefused)
{
    TagStore s;
    s.SetOwn("BmpTifSmooth", "ON");
    EXPECT_EQ(Read(s, "BMPTIFSMOOTH"), "ON");
    s.Set("bmptifsmooth", "OFF");
    EXPECT_EQ(s.OwnCount(), 1u);
    EXPECT_EQ(s.Set(nullptr, "x"), oki::kBadKey);
    EXPECT_EQ(s.Set("", "x"), oki::kBadKey);
    EXPECT_EQ(s.Set("BMPTIFSMOOTH", nullptr), oki::kOk);  // a null value removes, like ""
    EXPECT_EQ(s.OwnCount(), 0u);
}

TEST(TagKeys, OverlongKeysAndValuesAreCut)
{
    TagStore s;
    const std::string key(300, 'K');
    const std::string value(5000, 'v');
    EXPECT_EQ(s.Set(key.c_str(), value.c_str()), oki::kOk);
    const std::string cut = key.substr(0, oki::kMaxKey);
    ASSERT_NE(s.Get(cut.c_str()), nullptr);
    EXPECT_EQ(std::string(s.Get(cut.c_str())).size(), oki::kMaxValue);
    EXPECT_EQ(s.Get(key.c_str()), s.Get(cut.c_str()));
}

TEST(TagSearchSnapshot, KeysAreTakenWhenTheSearchOpens)
{
    TagStore root, child;
    root.SetOwn("RGBFF0000", "00FF00");
    root.SetOwn("RGB0000FF", "FFFFFF");
    root.SetOwn("rgb00FF00", "000000");
    root.SetOwn("REVBW", "ON");
    root.SetChild(&child);
    child.SetOwn("RGB123456", "654321");
    child.SetOwn("RGB0000FF", "");  // removed through the child

    std::vector<std::string> keys = root.Keys("RGB");
    ASSERT_EQ(keys, (std::vector<std::string>{"00FF00", "123456", "FF0000"}));

    // The caller reads and writes while walking the snapshot.
    std::vector<std::string> seen;
    for (const std::string& k : keys) {
        const std::string full = "RGB" + k;
        seen.push_back(Read(root, full.c_str()));
        root.Set(full.c_str(), "");
        root.Set(("RGBA" + k).c_str(), "new");
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"000000", "654321", "00FF00"}));
    EXPECT_EQ(root.Keys("RGB").size(), 3u);  // only the new RGBA keys remain
    EXPECT_EQ(root.Keys("").size(), 4u);
}

TEST(TagBackingRules, WritesFusesAndRemovalsReachTheStoredPlace)
{
    std::vector<std::string> log;
    TagStore root, child;
    root.SetBacking(std::make_unique<FakeBacking>(&log));
    root.SetOwn("A", "1");
    root.SetOwn("B", "2");
    root.SetChild(&child);
    root.Set("A", "changed");
    root.Set("B", "");
    EXPECT_EQ(log, (std::vector<std::string>{"W A=1", "W B=2"}));  // the child is not stored
    child.Fuse();
    EXPECT_EQ(log, (std::vector<std::string>{"W A=1", "W B=2", "W A=changed", "R B"}));
}

TEST(TagBackingRules, AFailedStoreKeepsTheValueInMemory)
{
    std::vector<std::string> log;
    TagStore root;
    auto backing = std::make_unique<FakeBacking>(&log);
    backing->fail = true;
    root.SetBacking(std::move(backing));
    EXPECT_EQ(root.Set("A", "1"), oki::kStoreFailed);
    EXPECT_EQ(Read(root, "A"), "1");
}

TEST(TagNotes, NotesFollowTheChainButAreNeverFusedOrSearched)
{
    TagStore root, child;
    root.SetChild(&child);
    root.SetNote("RESDPI:TIF", "DPI");
    EXPECT_STREQ(root.GetNote("RESDPI:TIF"), "DPI");
    EXPECT_EQ(root.Keys("").size(), 0u);
    child.Fuse();
    root.SetChild(nullptr);
    EXPECT_EQ(root.GetNote("RESDPI:TIF"), nullptr);
}

}  // namespace
