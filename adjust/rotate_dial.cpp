#include "rotate_dial.h"

#include <cmath>

namespace zv {

namespace {

constexpr double kPi = 3.141592653589793;

}  // namespace

int DialAngleFromPoint(int x, int y, int left, int top, int right, int bottom)
{
    const int cx = left + (right - left) / 2;
    const int cy = top + (bottom - top) / 2;
    const double a = std::atan2(double(y - cy), double(x - cx));
    // Truncated before the quarter turn is added: the upper left quarter
    // stays negative rather than rounding onto the circle here.
    return int(std::trunc(a * 180.0 / kPi)) + 90;
}

DialPointXY DialPoint(int centre, int degrees, int radius)
{
    const double rad = degrees * kPi / 180.0;
    return {centre + int(std::trunc(std::sin(rad) * radius)), centre - int(std::trunc(std::cos(rad) * radius))};
}

bool FoldAngle(int value, int* folded)
{
    if (value > 360) {
        *folded = value % 360;
        return true;
    }
    if (value < 0) {
        *folded = (value % 360 + 360) % 360;
        return true;
    }
    *folded = value;
    return false;
}

int SpinAngle(int value, bool up)
{
    if (up)
        return value < 360 ? value + 1 : value;
    return value > 0 ? value - 1 : value;
}

}  // namespace zv
