// The region editor's arithmetic: the mapping between source and device,
// the hit of a point, the handles and the rubber frame.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "region_geometry.h"

namespace {

using namespace zvreg;

// A view that shows source 0..200 x 0..100 on device 10..110 x 20..70: half size.
const Box kSource = {0, 0, 200, 100};
const Box kDevice = {10, 20, 110, 70};

TEST(RegionGeometry, SourceAndDeviceMapEachOtherRoundingHalfUp)
{
    int x = 10, y = 20;
    DeviceToSource(kSource, kDevice, x, y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    x = 61, y = 45;  // 51 and 25 device units in, twice that in source units
    DeviceToSource(kSource, kDevice, x, y);
    EXPECT_EQ(x, 102);
    EXPECT_EQ(y, 50);

    Box out = SourceToDevice(kSource, kDevice, Sides{11, 21, 101, 51});
    EXPECT_EQ(out.left, 10 + 11);    // 10.5 + 0.5 truncated
    EXPECT_EQ(out.top, 20 + 6);      // 5.5 rounds up
    EXPECT_EQ(out.right, 10 + 51);
    EXPECT_EQ(out.bottom, 20 + 26);

    // A view of no size, or points far out, give edges and limits, not faults.
    x = 5000, y = -5000;
    DeviceToSource(kSource, Box{10, 20, 10, 20}, x, y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    x = INT_MAX, y = INT_MIN;
    DeviceToSource(Box{0, 0, 60000, 60000}, Box{0, 0, 1, 1}, x, y);
    EXPECT_EQ(x, INT_MAX);
    EXPECT_EQ(y, INT_MIN);
}

TEST(RegionGeometry, AHitIncludesTheEdgesAndTheFirstRegionWins)
{
    const zvcvt::RegionRect regions[] = {{10, 10, 50, 30, 0, 0}, {20, 40, 90, 60, 1, 0}};
    EXPECT_EQ(RegionAt(regions, 2, 10, 10), 0);   // top left corner
    EXPECT_EQ(RegionAt(regions, 2, 50, 30), 0);   // bottom right corner
    EXPECT_EQ(RegionAt(regions, 2, 45, 25), 0);   // in both: the first in the file
    EXPECT_EQ(RegionAt(regions, 2, 90, 60), 1);
    EXPECT_EQ(RegionAt(regions, 2, 51, 19), -1);  // one past the first, above the second
    EXPECT_EQ(RegionAt(regions, 2, 91, 40), -1);
    EXPECT_EQ(RegionAt(regions, 0, 20, 20), -1);
}

TEST(RegionGeometry, HandlesGrowWithTheHeightAndAreTriedTopCornerRight)
{
    Box region = {100, 50, 200, 60};  // 10 high: reach 2, squares of 4
    EXPECT_EQ(HandleReach(region), 2);
    EXPECT_EQ(HandleAt(region, 150, 50), kTopHandle);
    EXPECT_EQ(HandleAt(region, 148, 48), kTopHandle);    // left and top edges of a square count
    EXPECT_EQ(HandleAt(region, 152, 50), kNoHandle);     // its right edge doesn't
    EXPECT_EQ(HandleAt(region, 150, 52), kNoHandle);     // nor its bottom edge
    EXPECT_EQ(HandleAt(region, 201, 51), kCornerHandle);
    EXPECT_EQ(HandleAt(region, 199, 55), kRightHandle);
    EXPECT_EQ(HandleAt(region, 150, 55), kNoHandle);

    Box narrow = {0, 0, 4, 10};  // the squares overlap: top middle comes first
    EXPECT_EQ(HandleAt(narrow, 3, 0), kTopHandle);
    EXPECT_EQ(HandleAt(narrow, 4, 0), kCornerHandle);
    EXPECT_EQ(HandleReach(Box{0, 0, 50, 3}), 1);
    Box flat = {0, 0, 50, 2};  // reach 0: no square holds anything
    EXPECT_EQ(HandleReach(flat), 0);
    EXPECT_EQ(HandleAt(flat, 50, 0), kNoHandle);
}

TEST(RegionGeometry, TheRubberFrameMovesItsHandlesEdgesAndNeverTurnsOver)
{
    const Sides start = {10, 20, 60, 30};
    auto dragged = [&](std::uint16_t handle, int x, int y) {
        Sides frame = start;
        DragSides(frame, handle, x, y);
        return std::to_string(frame.right) + " " + std::to_string(frame.top);  // right, top
    };
    EXPECT_EQ(dragged(kRightHandle, 80, 0), "80 10");
    EXPECT_EQ(dragged(kTopHandle, 999, 5), "60 5");
    EXPECT_EQ(dragged(kCornerHandle, 70, 0), "70 0");
    EXPECT_EQ(dragged(kNoHandle, 70, 0), "60 10");
    // Past the left and the bottom edge: a line, not a frame turned over.
    EXPECT_EQ(dragged(kCornerHandle, 0, 50), "20 30");

    EXPECT_FLOAT_EQ(SideRatio(80, 40), 2.0f);
    EXPECT_FLOAT_EQ(SideRatio(0, 40), 0.0f);
    EXPECT_FLOAT_EQ(SideRatio(7, 0), 1.0f);
}

}  // namespace
