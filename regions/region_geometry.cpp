// The text region editor's arithmetic. Every coordinate of a region comes
// from a mapped file and every point from the mouse, so no value here may
// divide by zero or overflow on its way to an int.
#include "region_geometry.h"

#include <climits>
#include <cmath>
#include <initializer_list>

namespace zvreg {

namespace {

// Truncates toward zero, holding what an int can't take at its limit.
int TruncatedInt(double value)
{
    if (std::isnan(value)) return 0;
    if (value >= double(INT_MAX)) return INT_MAX;
    if (value <= double(INT_MIN)) return INT_MIN;
    return static_cast<int>(value);
}

int Scaled(int origin, double ratio, double offset) { return TruncatedInt(double(origin) + std::trunc(offset * ratio + 0.5)); }

double Ratio(long long numerator, long long denominator)
{
    return denominator == 0 ? 0.0 : double(numerator) / double(denominator);
}

long long Width(const Box& box) { return (long long)box.right - box.left; }
long long Height(const Box& box) { return (long long)box.bottom - box.top; }

std::int16_t Cut16(int value) { return static_cast<std::int16_t>(static_cast<std::uint16_t>(value)); }

}  // namespace

Sides SidesOf(const zvcvt::RegionRect& region) { return Sides{region.top, region.left, region.right, region.bottom}; }

void DeviceToSource(const Box& source, const Box& device, int& x, int& y)
{
    // (x - D.left) stays exact in a double for any two ints.
    x = Scaled(source.left, Ratio(Width(source), Width(device)), double(x) - device.left);
    y = Scaled(source.top, Ratio(Height(source), Height(device)), double(y) - device.top);
}

Box SourceToDevice(const Box& source, const Box& device, const Sides& sides)
{
    double rx = Ratio(Width(device), Width(source));
    double ry = Ratio(Height(device), Height(source));
    return Box{Scaled(device.left, rx, double(sides.left) - source.left),
               Scaled(device.top, ry, double(sides.top) - source.top),
               Scaled(device.left, rx, double(sides.right) - source.left),
               Scaled(device.top, ry, double(sides.bottom) - source.top)};
}

int RegionAt(const zvcvt::RegionRect* regions, int count, int x, int y)
{
    for (int i = 0; i < count; ++i) {
        const zvcvt::RegionRect& r = regions[i];
        if (r.left <= x && x <= r.right && r.top <= y && y <= r.bottom) return i;
    }
    return -1;
}

int HandleReach(const Box& onDevice) { return int((Height(onDevice) + 2) / 5); }

Box HandleSquare(const Box& onDevice, Handle handle)
{
    int h = HandleReach(onDevice);
    int mx = int(((long long)onDevice.left + onDevice.right) / 2);
    int my = int(((long long)onDevice.top + onDevice.bottom) / 2);
    long long cx = handle == kTopHandle ? mx : onDevice.right;
    long long cy = handle == kRightHandle ? my : onDevice.top;
    return Box{TruncatedInt(double(cx - h)), TruncatedInt(double(cy - h)), TruncatedInt(double(cx + h)),
               TruncatedInt(double(cy + h))};
}

Handle HandleAt(const Box& onDevice, int x, int y)
{
    for (Handle handle : {kTopHandle, kCornerHandle, kRightHandle}) {
        Box square = HandleSquare(onDevice, handle);
        if (square.left <= x && x < square.right && square.top <= y && y < square.bottom) return handle;
    }
    return kNoHandle;
}

void DragSides(Sides& frame, std::uint16_t handle, int x, int y)
{
    if (handle == kRightHandle || handle == kCornerHandle) frame.right = Cut16(x);
    if (handle == kTopHandle || handle == kCornerHandle) frame.top = Cut16(y);
    if (frame.right <= frame.left) frame.right = frame.left;
    if (frame.bottom <= frame.top) frame.top = frame.bottom;
}

float SideRatio(int newLength, int oldLength)
{
    return oldLength == 0 ? 1.0f : float(newLength) / float(oldLength);
}

}  // namespace zvreg
