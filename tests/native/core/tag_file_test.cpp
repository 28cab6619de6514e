#include <gtest/gtest.h>

#include "tag_file.h"

namespace {

TEST(TagFile, LinesCommentsHeadingsAndLineEnds)
{
    std::vector<zvconv::TagLine> tags;
    std::vector<zvconv::TagFileError> errors;
    zvconv::ParseTagFile("# options\r\nBMPPNGCONTRAST=20\r\n\n  PNGROT = 90\n[Wildcards]\n??????SMOOTH=ON\n"
                         "[Tags]\nTITLE=a=b \n",
                         &tags, &errors);
    EXPECT_TRUE(errors.empty());
    ASSERT_EQ(tags.size(), 4u);
    EXPECT_EQ(tags[0].key, "BMPPNGCONTRAST");
    EXPECT_EQ(tags[0].value, "20");
    EXPECT_EQ(tags[1].key, "PNGROT");
    EXPECT_EQ(tags[1].value, " 90");
    EXPECT_EQ(tags[1].line, 4);
    EXPECT_TRUE(tags[2].wildcard);
    EXPECT_FALSE(tags[3].wildcard);
    EXPECT_EQ(tags[3].value, "a=b ");
}

TEST(TagFile, BadLinesAreReportedAndLeftOut)
{
    std::vector<zvconv::TagLine> tags;
    std::vector<zvconv::TagFileError> errors;
    std::string longValue(100000, 'v');
    zvconv::ParseTagFile(std::string(64, 'K') + "=1\n" + std::string(63, 'K') + "=" + longValue +
                             "\nNOVALUE\n=x\n[Other]\nA B=1\n",
                         &tags, &errors);
    ASSERT_EQ(tags.size(), 1u);
    EXPECT_EQ(tags[0].value.size(), longValue.size());
    ASSERT_EQ(errors.size(), 5u);
    EXPECT_EQ(errors[0].line, 1);
    EXPECT_EQ(errors[4].line, 6);
}

}  // namespace
