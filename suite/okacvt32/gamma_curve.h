// The intensity curve of gamma, contrast and brightness. No windows.h: the
// same rule serves the adjust page's curve and can serve the engine.
#pragma once

namespace zvcvt {

// The output level, 0 to 1, of the input level t (0 to 1). Each value runs
// from -100 to 100 (beyond is taken as the limit) and 0, 0, 0 is the
// identity. Applied in this order:
//   gamma       t^(2^(-gamma/50)): 100 lifts the middle tones (exponent 1/4),
//               -100 lowers them (exponent 4); the ends stay;
//   contrast    the slope around the middle, (100+c)/(100-c): -100 flattens
//               to grey, 100 makes a step;
//   brightness  adds bright/100 of the whole range.
// The result is cut to 0..1. For any values the curve never falls as t rises.
double CurveLevel(double t, int gamma, int contrast, int bright);

// Fills count bytes: byte x is the height, in pixels, of the curve at column
// x of a box count pixels wide and high, so column 0 is input 0 and column
// count-1 is input 1; a height runs from 0 to count-1 and is also cut at 255,
// what a byte holds. Gives 0, or -1001 (invalid parameter) for a negative
// count or a null table with a positive count.
short FillGammaTable(int count, int gamma, int contrast, int bright, unsigned char* table);

}  // namespace zvcvt
