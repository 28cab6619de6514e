// DoClone: a raster image gets a section of its own with the same bytes; a
// vector image is shared.
#include <gtest/gtest.h>

#include <cstdlib>

#include "core_test_support.h"
#include "option_core.h"
#include "zvopt32.h"

namespace {

struct CloneCase {
    long width, height;
    short bits;
    std::size_t bytes;
};

TEST(DoClone, CopiesRasterImagesOfOneEightAndTwentyFourBits)
{
    for (const CloneCase& c : {CloneCase{100, 10, 1, 208}, CloneCase{10, 10, 8, 1184}, CloneCase{10, 10, 24, 360}}) {
        SCOPED_TRACE(c.bits);
        Dewey* source = coretest::PatternImage(c.width, c.height, c.bits);
        Dewey* clone = new Dewey;
        ASSERT_EQ(DoClone(source, &clone), 0);

        char sourceName[32] = {}, cloneName[32] = {};
        source->GetSectionName(sourceName);
        clone->GetSectionName(cloneName);
        EXPECT_STRNE(sourceName, cloneName);
        EXPECT_EQ(cloneName[0], 'r');

        // The clone's section holds exactly the bytes of the image.
        HANDLE section = OpenFileMappingA(FILE_MAP_READ, FALSE, cloneName);
        ASSERT_NE(section, nullptr);
        const unsigned char* view = static_cast<const unsigned char*>(MapViewOfFile(section, FILE_MAP_READ, 0, 0, 0));
        ASSERT_NE(view, nullptr);
        std::size_t bytes = 0;
        ASSERT_TRUE(zv::DibByteCount(view, c.bytes, &bytes));
        EXPECT_EQ(bytes, c.bytes);
        UnmapViewOfFile(view);
        CloseHandle(section);

        EXPECT_EQ(coretest::DibBytes(clone), coretest::DibBytes(source));
        EXPECT_EQ(coretest::DibBytes(clone).size(), c.bytes);

        // The copy is independent of its source.
        auto original = coretest::DibBytes(source);
        ASSERT_EQ(clone->Invert(), 0);
        EXPECT_EQ(coretest::DibBytes(source), original);
        EXPECT_NE(coretest::DibBytes(clone), original);
        delete clone;
        delete source;
    }
}

TEST(DoClone, AClonesPictureIsItsOwnThroughChangesOnEitherSideAndFurtherClones)
{
    Dewey* source = coretest::PatternImage(64, 48, 24);
    auto original = coretest::DibBytes(source);
    Dewey* clone = new Dewey;
    ASSERT_EQ(DoClone(source, &clone), 0);

    // The source changes, stores its change and goes: the clone keeps its
    // picture, and so does a clone of the clone.
    ASSERT_EQ(source->Invert(), 0);
    ASSERT_EQ(source->louie->SaveResurrectionData(), 0);
    auto inverted = coretest::DibBytes(source);
    delete source;
    EXPECT_EQ(coretest::DibBytes(clone), original);
    Dewey* second = new Dewey;
    ASSERT_EQ(DoClone(clone, &second), 0);
    EXPECT_EQ(coretest::DibBytes(second), original);

    // The clone changes: a clone of it now carries the change, the earlier
    // one doesn't, and the change can still be taken back.
    ASSERT_EQ(clone->Invert(), 0);
    Dewey* third = new Dewey;
    ASSERT_EQ(DoClone(clone, &third), 0);
    EXPECT_EQ(coretest::DibBytes(third), inverted);
    EXPECT_EQ(coretest::DibBytes(second), original);
    ASSERT_EQ(clone->UndoRedo(), 0);
    EXPECT_EQ(coretest::DibBytes(clone), original);
    Dewey* fourth = new Dewey;
    ASSERT_EQ(DoClone(clone, &fourth), 0);
    EXPECT_EQ(coretest::DibBytes(fourth), original);
    EXPECT_EQ(coretest::DibBytes(third), inverted);
    for (Dewey* d : {clone, second, third, fourth}) delete d;
}

TEST(DoClone, TakesTheNextFreeName)
{
    HANDLE r0 = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096, "r0");
    HANDLE r1 = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096, "r1");
    Dewey* source = coretest::PatternImage(16, 16, 24);
    Dewey* clone = new Dewey;
    ASSERT_EQ(DoClone(source, &clone), 0);
    char name[32] = {};
    clone->GetSectionName(name);
    // Other test processes clone at the same time under the same names, so
    // the clone may find r2 taken too: what counts is that r0 and r1 were
    // passed over for a name of the same stem.
    ASSERT_EQ(name[0], 'r') << name;
    char* end = nullptr;
    long number = std::strtol(name + 1, &end, 10);
    EXPECT_TRUE(end != name + 1 && *end == '\0') << name;
    EXPECT_GE(number, 2) << name;
    delete clone;
    delete source;
    CloseHandle(r0);
    CloseHandle(r1);
}

TEST(DoClone, SharesAVectorImage)
{
    char dir[MAX_PATH];
    GetTempPathA(sizeof dir, dir);
    std::string path = std::string(dir) + "coreclone.emf";
    HDC dc = CreateEnhMetaFileA(nullptr, path.c_str(), nullptr, nullptr);
    ASSERT_NE(dc, nullptr);
    Rectangle(dc, 10, 10, 200, 100);
    DeleteEnhMetaFile(CloseEnhMetaFile(dc));

    Dewey* source = new Dewey;
    ASSERT_EQ(source->Open(path.c_str()), 0);
    ASSERT_EQ(source->IsRaster(), 0);
    Dewey* clone = new Dewey;
    ASSERT_EQ(DoClone(source, &clone), 0);
    char sourceName[32] = {}, cloneName[32] = {};
    source->GetSectionName(sourceName);
    clone->GetSectionName(cloneName);
    EXPECT_STREQ(cloneName, sourceName);
    EXPECT_NE(clone->GetMetafile(), nullptr);
    delete clone;
    delete source;
    DeleteFileA(path.c_str());
}

}  // namespace
