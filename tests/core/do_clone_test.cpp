// DoClone: a raster image gets a section of its own with the same bytes; a
// vector image is shared.
#include <gtest/gtest.h>

#include "core_test_support.h"
#include "zvopt32.h"

namespace {

TEST(DoClone, CopiesRasterImagesOfOneEightAndTwentyFourBits)
{
    for (short bits : {1, 8, 24}) {
        SCOPED_TRACE(bits);
        Dewey* source = coretest::PatternImage(100, 10, bits);
        Dewey* clone = new Dewey;
        ASSERT_EQ(DoClone(source, &clone), 0);

        char sourceName[32] = {}, cloneName[32] = {};
        source->GetSectionName(sourceName);
        clone->GetSectionName(cloneName);
        EXPECT_STRNE(sourceName, cloneName);
        EXPECT_EQ(cloneName[0], 'r');

        // The same bytes under a name of the clone's own.
        EXPECT_EQ(coretest::DibBytes(clone), coretest::DibBytes(source));
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

    // The clone changes, unsaved: a clone of it now carries the change, and
    // the earlier one doesn't.
    ASSERT_EQ(clone->Invert(), 0);
    Dewey* third = new Dewey;
    ASSERT_EQ(DoClone(clone, &third), 0);
    EXPECT_EQ(coretest::DibBytes(third), inverted);
    EXPECT_EQ(coretest::DibBytes(second), original);
    for (Dewey* d : {clone, second, third}) delete d;
}

TEST(DoClone, SharesAVectorImage)
{
    const std::string path = enginetest::TempPath("clone.emf");
    ASSERT_TRUE(enginetest::WriteTwoColourMetafile(path, 40, 20));
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
