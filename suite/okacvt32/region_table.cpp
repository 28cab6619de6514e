// The check of a region file. The file comes from outside (another process
// may write it at any time, a user may hand any file), so every number in it
// is measured against the bytes that are really there before anything
// trusts it.
#include "region_table.h"

namespace zvcvt {

std::int32_t ReadInt32(const unsigned char* data)
{
    std::uint32_t value = std::uint32_t(data[0]) | std::uint32_t(data[1]) << 8 | std::uint32_t(data[2]) << 16 |
                          std::uint32_t(data[3]) << 24;
    return static_cast<std::int32_t>(value);
}

short CheckRegionTable(const unsigned char* data, std::size_t size, RegionTableView* view)
{
    if (data == nullptr || size < kRegionHeaderSize) return kRegionTableNoHeader;
    std::int32_t count = ReadInt32(data);
    if (count < 0) return kRegionTableNegativeCount;
    // Divided, not multiplied: no count can overflow the test.
    if (std::size_t(count) > (size - kRegionHeaderSize) / sizeof(RegionRect)) return kRegionTableCountTooLarge;
    std::int32_t selected = ReadInt32(data + kRegionSelectedOffset);
    if (selected < -1 || selected >= count) return kRegionTableBadSelection;
    if (view != nullptr) *view = RegionTableView{count, kRegionSelectedOffset, kRegionHeaderSize};
    return kRegionTableOk;
}

}  // namespace zvcvt
