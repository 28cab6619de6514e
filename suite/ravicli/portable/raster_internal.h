// Helpers that the pixel operations share. Private to the engine.
#pragma once

#include <cstdint>

#include "dib.h"

namespace ravi {

// Luminance in fixed point: 0.299 R + 0.587 G + 0.114 B.
inline int Luma(int r, int g, int b)
{
    return (77 * r + 150 * g + 29 * b + 128) >> 8;
}

inline uint8_t Clamp255(int v)
{
    return uint8_t(v < 0 ? 0 : (v > 255 ? 255 : v));
}

// Bytes of one pixel for 8, 24 and 32 bits; 0 for 1 and 4.
inline int BytesPerPixel(int bits)
{
    return bits >= 8 ? bits / 8 : 0;
}

// The image as 24 or 32 bits per pixel (pixels through the table, the
// reserved byte 0). A copy, also when it has that depth already.
short ToTrueColor(const Image& src, int bits, Image* out);

// True when an 8-bit image's table is the grey ramp 0..255, so that its
// pixel values are its grey levels.
bool IsGreyRamp(const Image& image);

// The resolution travels with every new image made from an old one.
void CopyResolution(const Image& from, Image& to);

// Spreads one palette index per pixel of `indices` into row `y` of a
// palette image of 1, 4 or 8 bits.
void PackIndexRow(const uint8_t* indices, Image& image, int32_t y);

}  // namespace ravi
