// A region file is taken only when its numbers fit its bytes. Each file is
// given in a heap block of exactly its size, so that a read past it is a
// fault of the sanitizer, not a silent success.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

#include "region_table.h"

namespace {

using namespace zvcvt;

std::vector<unsigned char> File(std::int32_t count, std::int32_t selected, std::size_t regions)
{
    std::vector<unsigned char> bytes(kRegionHeaderSize + regions * sizeof(RegionRect), 0);
    std::memcpy(bytes.data(), &count, 4);
    std::memcpy(bytes.data() + 4, &selected, 4);
    return bytes;
}

short Check(const std::vector<unsigned char>& file, RegionTableView* view = nullptr)
{
    std::unique_ptr<unsigned char[]> exact(new unsigned char[file.size() + (file.empty() ? 1 : 0)]);
    if (!file.empty()) std::memcpy(exact.get(), file.data(), file.size());
    return CheckRegionTable(exact.get(), file.size(), view);
}

TEST(RegionTable, TakesAFileWhoseNumbersFitItsBytes)
{
    RegionTableView view = {};
    EXPECT_EQ(Check(File(2, -1, 2), &view), kRegionTableOk);
    EXPECT_EQ(view.count, 2);
    EXPECT_EQ(view.regionsOffset, 8u);
    EXPECT_EQ(Check(File(2, 1, 3)), kRegionTableOk);   // bytes to spare are no fault
    EXPECT_EQ(Check(File(0, -1, 0)), kRegionTableOk);   // no regions at all
}

TEST(RegionTable, RefusesNumbersTheFileDoesNotHold)
{
    for (std::size_t size = 0; size < kRegionHeaderSize; ++size)
        EXPECT_EQ(Check(std::vector<unsigned char>(size, 0)), kRegionTableNoHeader) << size;
    EXPECT_EQ(CheckRegionTable(nullptr, 100, nullptr), kRegionTableNoHeader);
    EXPECT_EQ(Check(File(-1, -1, 4)), kRegionTableNegativeCount);
    EXPECT_EQ(Check(File(3, -1, 2)), kRegionTableCountTooLarge);
    EXPECT_EQ(Check(File(0x7fffffff, -1, 2)), kRegionTableCountTooLarge);  // would overflow a product
    std::vector<unsigned char> partial = File(2, -1, 2);
    partial.pop_back();  // the last region one byte short
    EXPECT_EQ(Check(partial), kRegionTableCountTooLarge);
    EXPECT_EQ(Check(File(2, 2, 2)), kRegionTableBadSelection);
    EXPECT_EQ(Check(File(2, -2, 2)), kRegionTableBadSelection);
    EXPECT_EQ(Check(File(0, 0, 0)), kRegionTableBadSelection);
}

}  // namespace
