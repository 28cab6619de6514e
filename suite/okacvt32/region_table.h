// The file of text regions that a host maps beside an image: a count, the
// selected index and the regions. No windows.h: the check of a mapped file
// runs natively, under the sanitizers and the fuzzer.
//
// Layout, little-endian:
//   0  int32  number of regions n
//   4  int32  index of the selected region, -1 for none
//   8  12 x n regions: int16 top, left, right, bottom, font index, reserved
// Top comes before left, unlike the system's RECT.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zvcvt {

#pragma pack(push, 1)
struct RegionRect {
    std::int16_t top;
    std::int16_t left;
    std::int16_t right;
    std::int16_t bottom;
    std::int16_t font;      // position of the font among the values of the system's font key
    std::int16_t reserved;  // not read
};
#pragma pack(pop)
static_assert(sizeof(RegionRect) == 12);

constexpr std::size_t kRegionHeaderSize = 8;
constexpr std::size_t kRegionSelectedOffset = 4;

// Why a mapped file is refused; the texts stand in OKACVT32's string table.
enum RegionTableCode : short {
    kRegionTableOk = 0,
    kRegionTableNoHeader = -1020,         // shorter than the count and the selected index
    kRegionTableNegativeCount = -1021,    // a count below 0
    kRegionTableCountTooLarge = -1022,    // more regions than the file holds
    kRegionTableBadSelection = -1023,     // a selected index not -1 and not a region
};

// What a checked file holds: where the regions start and how many there are.
struct RegionTableView {
    std::int32_t count;
    std::size_t selectedOffset;
    std::size_t regionsOffset;
};

// Checks size bytes at data as a region file; only what the header and the
// regions take is read, and nothing past size. view is filled only when the
// result is kRegionTableOk.
short CheckRegionTable(const unsigned char* data, std::size_t size, RegionTableView* view);

// The little-endian int32 at data, whatever its alignment.
std::int32_t ReadInt32(const unsigned char* data);

}  // namespace zvcvt
