// Documents and their named sections: made, described, handed to a second
// document (in this process and in another), and refused when the section
// lies about its contents.
#include <gtest/gtest.h>

#include <cstdlib>

#include "child_process.h"
#include "engine_test_support.h"

using namespace enginetest;

namespace {

TEST(Document, RefusesBadSizesAndKeepsItsPicture)
{
    Dewey document;
    ASSERT_EQ(document.CreateRaster(5, 5, 8), 0);
    EXPECT_EQ(Rgb(document, 4, 4), 0xFFFFFFu) << "a new raster is white";
    EXPECT_EQ(document.CreateRaster(5, -3, 8), ravi::kEngineBadSize);
    EXPECT_EQ(document.CreateRaster(5, 5, 16), ravi::kEngineBadDepth);
    EXPECT_EQ(Shape(document), "5 x 5, 8");

    Dewey empty;
    EXPECT_EQ(empty.Invert(), ravi::kEngineNoImage);
    EXPECT_EQ(empty.louie->section, nullptr);
}

TEST(Document, HandsItsPictureToASecondDocumentThroughTheSection)
{
    Dewey* owner = new Dewey;
    Dewey& first = *owner;
    ASSERT_EQ(MakeQuadrants(first, 10, 10), 0);
    ASSERT_EQ(first.louie->SaveResurrectionData(), 0);
    char name[32] = {};
    char file[516] = {};
    first.GetSectionName(name);
    first.GetFileName(file);

    Dewey second;
    ASSERT_EQ(second.ResurrectSection(name, file), 0);
    EXPECT_EQ(Rgb(second, 0, 0), 0xFF0000u);  // neither side turned over
    EXPECT_EQ(Rgb(second, 9, 9), 0xFFFFFFu);

    // A later change reaches the section only when it is saved there.
    SetRgb(first, 0, 0, 0x123456);
    Dewey third;
    ASSERT_EQ(third.ResurrectSection(name, file), 0);
    EXPECT_EQ(Rgb(third, 0, 0), 0xFF0000u);
    ASSERT_EQ(first.louie->SaveResurrectionData(), 0);
    ASSERT_EQ(third.ResurrectSection(name, file), 0);
    EXPECT_EQ(Rgb(third, 0, 0), 0x123456u);

    // The second document holds the section by itself: it outlives the first.
    delete owner;
    Dewey fourth;
    EXPECT_EQ(fourth.ResurrectSection(name, file), 0);
}

TEST(Document, GrowsItsSectionWhenThePictureNoLongerFits)
{
    Dewey document;
    ASSERT_EQ(document.CreateRaster(4, 4, 1), 0);
    char before[32] = {};
    document.GetSectionName(before);
    // A picture larger than the section's pages needs a new section.
    ASSERT_EQ(document.CreateRaster(300, 300, 24), 0);
    ASSERT_EQ(document.louie->SaveResurrectionData(), 0);
    char after[32] = {};
    document.GetSectionName(after);
    EXPECT_STRNE(before, after);
    Dewey copy;
    ASSERT_EQ(copy.ResurrectSection(after, ""), 0);
    EXPECT_EQ(Shape(copy), "300 x 300, 24");
}

TEST(Document, RefusesASectionThatLiesAboutItsPicture)
{
    Dewey document;
    ASSERT_EQ(document.CreateRaster(3, 3, 24), 0);
    // 4000 x 4000 at 24 bits claims 48 MB; the section holds one page. The
    // other lies of a header are refused by the reading of a DIB.
    HANDLE section = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096, "RaviTestTooSmall");
    auto* header = static_cast<BITMAPINFOHEADER*>(MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0));
    *header = {40, 4000, 4000, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    UnmapViewOfFile(header);
    EXPECT_EQ(document.ResurrectSection("RaviTestTooSmall", ""), ravi::kEngineTruncated);
    EXPECT_EQ(document.ResurrectSection("RaviTestNobodyMadeThis", ""), ravi::kEngineNoSection);
    CloseHandle(section);

    EXPECT_EQ(Shape(document), "3 x 3, 24") << "the document keeps what it had";
    EXPECT_EQ(Rgb(document, 1, 1), 0xFFFFFFu);
}

TEST(Document, SharesAVectorPictureThroughItsSection)
{
    std::string path = TempPath("shared.emf");
    ASSERT_TRUE(WriteTwoColourMetafile(path, 40, 20));
    Dewey first;
    ASSERT_EQ(first.Open(path.c_str()), 0);
    EXPECT_FALSE(first.IsRaster());
    char name[32] = {}, file[516] = {};
    first.GetSectionName(name);
    first.GetFileName(file);
    EXPECT_EQ(std::string(file), path);
    Dewey second;
    ASSERT_EQ(second.ResurrectSection(name, file), 0);
    EXPECT_FALSE(second.IsRaster());
    ASSERT_EQ(second.Rasterize(40, 20, 24), 0);
    EXPECT_TRUE(Near(Rgb(second, 5, 10), 0xFF0000, 8));
    EXPECT_TRUE(Near(Rgb(second, 35, 10), 0x0000FF, 8));

    // A change to the vector reaches the shared section by its name alone.
    ASSERT_EQ(first.Invert(), 0);
    first.GetSectionName(name);
    Dewey third;
    ASSERT_EQ(third.ResurrectSection(name, file), 0);
    ASSERT_EQ(third.Rasterize(40, 20, 24), 0);
    EXPECT_TRUE(Near(Rgb(third, 5, 10), 0x00FFFF, 8)) << std::hex << Rgb(third, 5, 10);
    DeleteFileA(path.c_str());
}

// The colour at (x, y) of the picture that a named section holds now.
uint32_t SectionRgb(const char* name, int x, int y)
{
    Dewey reader;
    if (reader.ResurrectSection(name, "") != 0) return 0xBAD;
    return Rgb(reader, x, y);
}

TEST(Document, ASectionThatAnotherDocumentMadeIsCopiedAndNeverWritten)
{
    // Large enough that the rows lie on pages of their own.
    Dewey maker;
    ASSERT_EQ(MakeQuadrants(maker, 100, 100), 0);
    ASSERT_EQ(maker.louie->SaveResurrectionData(), 0);
    char made[32] = {};
    maker.GetSectionName(made);
    Dewey reader;
    ASSERT_EQ(reader.ResurrectSection(made, ""), 0);

    // The maker stores its next picture in place. The reader, unchanged,
    // does not trust the section to hold its picture any more, and stores
    // it in one of its own; it kept its picture all along.
    SetRgb(maker, 0, 0, 0x123456);
    ASSERT_EQ(maker.louie->SaveResurrectionData(), 0);
    ASSERT_EQ(reader.louie->SaveResurrectionData(), 0);
    char own[32] = {};
    reader.GetSectionName(own);
    EXPECT_STRNE(own, made);
    EXPECT_EQ(SectionRgb(own, 0, 0), 0xFF0000u);
    EXPECT_EQ(SectionRgb(made, 0, 0), 0x123456u);
    EXPECT_EQ(Rgb(reader, 0, 0), 0xFF0000u);
}

// The child half of the test below: run as its own process, it opens the
// section named in the environment and answers through its exit code.
TEST(Document, ChildReadsSectionOfAnotherProcess)
{
    const char* name = std::getenv("RAVI_TEST_SECTION");
    if (!name) GTEST_SKIP() << "runs only as the child of OpensSectionMadeByAnotherProcess";
    Dewey document;
    short code = document.ResurrectSection(name, "");
    if (code != 0) std::exit(10);
    std::exit(Rgb(document, 9, 0) == 0x00FF00u ? 42 : 11);
}

TEST(Document, OpensSectionMadeByAnotherProcess)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 10, 10), 0);
    ASSERT_EQ(document.louie->SaveResurrectionData(), 0);
    char name[32] = {};
    document.GetSectionName(name);
    EXPECT_EQ(zvtest::RunThisProgram("Document.ChildReadsSectionOfAnotherProcess", "RAVI_TEST_SECTION", name), 42u);
}

}  // namespace
