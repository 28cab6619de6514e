// The arithmetic of the rotation page's dial and angle field, apart from
// any window so that it can be proved on plain numbers.
//
// An angle counts clockwise in whole degrees from the top of the dial; the
// field keeps 0 to 360, where 360 stays 360.
#pragma once

namespace zv {

struct DialPointXY {
    int x;
    int y;
};

// The angle that the cursor at (x, y) points to, seen from the centre of the
// rectangle left..right, top..bottom (screen coordinates, y growing
// downward): above 0, right 90, below 180, left 270. The upper left quarter
// gives -89 to -1, which FoldAngle brings onto the circle.
int DialAngleFromPoint(int x, int y, int left, int top, int right, int bottom);

// The point at `degrees` on a circle of `radius` around (centre, centre).
DialPointXY DialPoint(int centre, int degrees, int radius);

// The angle the field must show for a typed value: above 360 it comes down
// by whole turns below 360, below 0 it goes up by whole turns to 0 or more,
// else it stays (360 included). Gives true when the value had to change.
bool FoldAngle(int value, int* folded);

// One step of the spin buttons, which stop at 0 and at 360.
int SpinAngle(int value, bool up);

}  // namespace zv
