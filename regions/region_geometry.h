// The arithmetic of the text region editor, free of the platform: the
// mapping between the image's source units and the device, the hit of a
// point, the three drag handles, the rubber frame and the ratios of a
// stretch. EFont does the drawing and the font key around it.
#pragma once

#include <cstdint>

#include "region_table.h"

namespace zvreg {

// A rectangle in the order of the system's RECT.
struct Box {
    int left;
    int top;
    int right;
    int bottom;
};

// The four sides of a region or of the rubber frame, in source units.
struct Sides {
    std::int16_t top;
    std::int16_t left;
    std::int16_t right;
    std::int16_t bottom;
};

Sides SidesOf(const zvcvt::RegionRect& region);

// source is the shown part of the image in source units, device where it
// lies on the device. Each result is rounded half up and truncated toward
// zero; a rectangle of no width or height maps every point to its edge, and
// a result beyond an int is held at the int's limit.
void DeviceToSource(const Box& source, const Box& device, int& x, int& y);
Box SourceToDevice(const Box& source, const Box& device, const Sides& sides);

// The first region, in file order, that holds the source point with its
// edges; -1 for none.
int RegionAt(const zvcvt::RegionRect* regions, int count, int x, int y);

// The handles of a region as it lies on the device: 2 top middle, 3 top
// right corner, 1 right middle, each a square of centre +- HandleReach.
enum Handle : std::uint16_t { kNoHandle = 0, kRightHandle = 1, kTopHandle = 2, kCornerHandle = 3 };
int HandleReach(const Box& onDevice);
Box HandleSquare(const Box& onDevice, Handle handle);
// Tried in the order 2, 3, 1; a square holds its left and top edge, not its
// right and bottom one, as the system's PtInRect.
Handle HandleAt(const Box& onDevice, int x, int y);

// Moves the edges that handle drags to the source point; the frame may
// shrink to a line but never turn over.
void DragSides(Sides& frame, std::uint16_t handle, int x, int y);

// new over old as a single float, 1 when old is 0.
float SideRatio(int newLength, int oldLength);

}  // namespace zvreg
