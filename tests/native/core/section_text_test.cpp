#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "option_core.h"

namespace {

TEST(SectionDescription, SplitsIdOwnerAndNameAndReadsNonHexFieldsAsZero)
{
    zv::SectionDescription d;
    ASSERT_EQ(zv::ParseSectionDescription("0000002A000103F2ZvImage7", &d), zv::DescriptionResult::kOk);
    EXPECT_EQ(d.id, 42u);
    EXPECT_EQ(d.owner, 0x103F2u);
    EXPECT_STREQ(d.name, "ZvImage7");
    ASSERT_EQ(zv::ParseSectionDescription("zzzzzzzz12zzzzzzname", &d), zv::DescriptionResult::kOk);
    EXPECT_EQ(d.id, 0u);
    EXPECT_EQ(d.owner, 0x12u);
}

TEST(SectionDescription, RefusesShortTextAndOverlongNames)
{
    zv::SectionDescription d;
    // Exactly where the text ends: nothing past the terminator is read.
    const char shortText[] = "0000002A000103F";
    std::vector<char> exact(shortText, shortText + sizeof shortText);
    EXPECT_EQ(zv::ParseSectionDescription(exact.data(), &d), zv::DescriptionResult::kTooShort);
    EXPECT_EQ(d.owner, 0u);

    std::string name49(49, 'n');
    ASSERT_EQ(zv::ParseSectionDescription(("0000000100000002" + name49).c_str(), &d), zv::DescriptionResult::kOk);
    EXPECT_EQ(std::string(d.name), name49);
    EXPECT_EQ(zv::ParseSectionDescription(("0000000100000002" + name49 + "x").c_str(), &d),
              zv::DescriptionResult::kNameTooLong);
    EXPECT_EQ(d.id, 1u);
    EXPECT_EQ(d.owner, 2u);
    EXPECT_STREQ(d.name, "");
}

TEST(SectionDescription, WideNameSignExtendsEachByte)
{
    std::uint16_t wide[zv::kSectionNameSize];
    zv::WidenSectionName("a\xE9", wide);
    EXPECT_EQ(wide[0], 'a');
    EXPECT_EQ(wide[1], 0xFFE9);
    EXPECT_EQ(wide[2], 0);
}

TEST(SectionCandidate, StemAndCounterMustFitWhole)
{
    char c[zv::kCandidateSize];
    EXPECT_TRUE(zv::MakeSectionCandidate("r", 2, c));
    EXPECT_STREQ(c, "r2");
    EXPECT_TRUE(zv::MakeSectionCandidate(std::string(30, 's').c_str(), 7, c));
    EXPECT_FALSE(zv::MakeSectionCandidate(std::string(30, 's').c_str(), 10, c));
}

std::vector<unsigned char> Header(int width, int height, int bits, std::size_t total)
{
    std::vector<unsigned char> v(total < 40 ? 40 : total, 0);
    auto put32 = [&](std::size_t at, std::uint32_t x) {
        for (int i = 0; i < 4; ++i)
            v[at + i] = static_cast<unsigned char>(x >> (8 * i));
    };
    put32(0, 40);
    put32(4, static_cast<std::uint32_t>(width));
    put32(8, static_cast<std::uint32_t>(height));
    v[12] = 1;
    v[14] = static_cast<unsigned char>(bits);
    return v;
}

TEST(DibByteCount, CountsAFullTableAndRefusesAHeaderThatClaimsMoreThanTheSectionHolds)
{
    std::size_t bytes = 0;
    auto eight = Header(10, 10, 8, 4096);
    ASSERT_TRUE(zv::DibByteCount(eight.data(), eight.size(), &bytes));
    EXPECT_EQ(bytes, 1184u);
    auto full = Header(10, 10, 24, 359);
    EXPECT_FALSE(zv::DibByteCount(full.data(), full.size(), &bytes));
    auto huge = Header(0x7FFFFFFF, 0x7FFFFFFF, 32, 4096);
    EXPECT_FALSE(zv::DibByteCount(huge.data(), huge.size(), &bytes));
    EXPECT_FALSE(zv::DibByteCount(full.data(), 39, &bytes));
}

}  // namespace
