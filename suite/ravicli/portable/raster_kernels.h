// The engine's pixel operations on a raster image in memory. Each works on
// every depth it can serve and converts where it must (see docs/engine.md,
// "Pixel operations"). All give 0 or an engine code (engine_codes.h); on a
// failure the image is left as it was.
#pragma once

#include <cstdint>

#include "dib.h"
#include "engine_codes.h"

namespace ravi {

// Exchanges pure black and pure white, leaving every other colour alone.
// Palette images change their table, the others their pixels.
short ReverseBW(Image& image);

// Every channel c becomes 255 - c. Palette images change their table.
short Invert(Image& image);

// Turns the image to greys (luminance 0.299 R + 0.587 G + 0.114 B).
// Palette images grey their table and keep their depth; 24 and 32 bits
// become 8 bits with a grey ramp.
short Grayize(Image& image);

// Turns the image to black and white: 1 bit, luminance below half is black.
short Blackize(Image& image);

// Spreads each channel's histogram over the whole range 0..255. On palette
// images the histogram counts pixels through the table, and the table is
// changed.
short Equalize(Image& image);

// Contrast, brightness and gamma, each -100..100, 0 leaving the picture as
// it is. Contrast scales around the middle grey (-100 flattens to grey,
// +100 nearly thresholds), brightness adds up to half the range, gamma
// raises to the power 2^(-gamma / 50) (positive lightens the darks).
short Gamma(Image& image, int contrast, int bright, int gamma);

// The table of 256 values that Gamma applies to each channel, so that a
// curve drawn for the user (the intensity curve of the adjust page) is the
// curve the pixels go through. Values outside -100..100 are clamped.
void GammaTable(int contrast, int bright, int gamma, uint8_t table[256]);

// Turns the image counter-clockwise by a whole number of degrees (any value,
// taken modulo 360): the script gives 360 minus the user's clockwise angle. Then flips it top to bottom when flipV is 1 and left to
// right when flipH is 1. Multiples of 90 are exact on every depth. Other
// angles resample bilinearly onto a canvas grown to hold the whole turned
// image; the corners take `background` (0x00RRGGBB). Palette images then
// become 24 bits.
short Rotate(Image& image, int angle, int flipV, int flipH, uint32_t background = 0xFFFFFF);

// New size in pixels (1..kMaxSide). smooth 0: nearest pixel, on every depth,
// the depth kept. smooth 1: area averaging along an axis that shrinks and
// bilinear interpolation along one that grows; palette images become 24
// bits (a grey-ramp 8-bit image stays 8 bits).
short Resize(Image& image, int32_t width, int32_t height, int smooth);
// The same into a new image, `source` untouched: no copy of the source is
// made when its depth stays, which is what a large picture resized for a
// thumbnail needs. `out` is untouched on failure.
short ResizeInto(const Image& source, int32_t width, int32_t height, int smooth, Image* out);

// Reduction methods, numbered as the command script numbers them.
enum ReduceMethod : int {
    kReduceHalftone = 0,   // clustered dots at the screen frequency
    kReduceSnap = 1,       // nearest palette colour
    kReduceDiffuse = 2,    // Floyd-Steinberg error diffusion
    kReduceDither = 3,     // ordered (Bayer 8 x 8) dither
};

struct ReduceParams {
    int depth = 8;          // 1..24 or 32: bits of colour wanted
    int method = kReduceDither;
    // 0: the fixed palette of the depth. Otherwise an optimised palette
    // (median cut) of min(paletteColors, 1 << depth, 256) colours; 1 asks
    // for the full 1 << depth.
    long paletteColors = 0;
    // Halftone screen period in tenths of a micron (254000 / lines per
    // inch). The cell in pixels follows from the image's resolution, 300
    // dots per inch when it has none. 0 gives a cell of 6 pixels.
    long screenPeriod = 0;
};

// The parameters of a script line "Reduce depth method palette screen".
ReduceParams ReduceParamsFromScript(int depth, int method, long palette, long screen);
// The parameters of a direct call: optimise 0 or 1, screen in lines per inch.
ReduceParams ReduceParamsFromCall(int depth, int method, int optimise, long linesPerInch);

// Reduces (or expands) the colours. depth 1..8 gives a palette image of
// 1, 4 or 8 bits with at most 1 << depth colours; 9..24 keeps 24 bits with
// depth / 3 bits per channel (the remainder to green); 24 and 32 convert.
short Reduce(Image& image, const ReduceParams& params);

// Replaces every pixel of exactly the colour `from` by `to`; both are
// COLORREF values (red in the low byte). Palette images change their table.
short ChangeColor(Image& image, uint32_t fromColorRef, uint32_t toColorRef);

// Converts to another stored depth (1, 4, 8, 24, 32): up exactly, down by
// the nearest colour of the depth's fixed palette.
short ConvertDepth(Image& image, int bits);

// The canvas that holds an image of w x h turned by `angle` degrees either
// way: exact for multiples of 90, the rounded bounding box otherwise.
void RotatedSize(int32_t w, int32_t h, int angle, int32_t* outW, int32_t* outH);

}  // namespace ravi
