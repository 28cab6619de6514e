// Any bytes as a mapped region file: the check, then everything the editor
// does with an accepted file (every region hit, mapped to a device, its
// handles found and its frame dragged), with a view taken from the input too.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "region_geometry.h"
#include "region_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    zvcvt::RegionTableView view = {};
    if (zvcvt::CheckRegionTable(data, size, &view) != zvcvt::kRegionTableOk) return 0;
    // The bytes after the regions, if any, give the view and a point.
    std::size_t end = view.regionsOffset + std::size_t(view.count) * sizeof(zvcvt::RegionRect);
    std::int32_t numbers[10] = {0, 0, 640, 480, 0, 0, 320, 240, 5, 5};
    std::memcpy(numbers, data + end, std::min(size - end, sizeof numbers));
    zvreg::Box source = {numbers[0], numbers[1], numbers[2], numbers[3]};
    zvreg::Box device = {numbers[4], numbers[5], numbers[6], numbers[7]};

    // The regions may stand at any alignment in a mapping of another layout.
    for (std::int32_t i = 0; i < view.count; ++i) {
        zvcvt::RegionRect region;
        std::memcpy(&region, data + view.regionsOffset + std::size_t(i) * sizeof region, sizeof region);
        zvreg::Sides sides = zvreg::SidesOf(region);
        zvreg::Box onDevice = zvreg::SourceToDevice(source, device, sides);
        zvreg::HandleAt(onDevice, numbers[8], numbers[9]);
        int x = numbers[8], y = numbers[9];
        zvreg::DeviceToSource(source, device, x, y);
        zvreg::DragSides(sides, std::uint16_t(i & 3), x, y);
        zvreg::SideRatio(sides.right - sides.left, region.right - region.left);
    }
    std::vector<zvcvt::RegionRect> regions(std::size_t(view.count));
    if (!regions.empty()) std::memcpy(regions.data(), data + view.regionsOffset, regions.size() * sizeof regions[0]);
    zvreg::RegionAt(regions.data(), view.count, numbers[8], numbers[9]);
    return 0;
}
