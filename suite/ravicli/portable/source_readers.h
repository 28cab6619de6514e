// The source formats that the engine decodes itself, since the platform's
// imaging component knows neither: the run-length CUT picture, coloured by
// its separate palette file, and PCX. Each reader takes the whole file in a
// buffer and never reads past it; docs/source_formats.md tells what each
// one accepts and what it refuses.
#pragma once

#include <cstddef>
#include <cstdint>

#include "dib.h"

namespace ravi {

// No picture read from a file may have more pixels than this, whatever its
// header claims; each reader also bounds the pixels by what its file's size
// can encode, so a small damaged file never asks for a large image.
constexpr uint64_t kMaxReadPixels = uint64_t(1) << 26;

// The colours of a CUT picture's palette file.
struct CutPalette {
    RgbQuad entries[256] = {};
    int count = 0;
};

// A palette file: 0, or kEngineTruncated or kEngineFileFormat.
short ReadCutPalette(const uint8_t* data, size_t size, CutPalette* out);

// A CUT picture as an 8-bit image. With a palette its entries colour the
// indices (entries the palette lacks stay black); without one the indices
// are greys. 0, or kEngineTruncated, kEngineBadSize, kEngineFileFormat,
// kEngineNoMemory; `out` is untouched on failure.
short ReadCutPicture(const uint8_t* data, size_t size, const CutPalette* palette, Image* out);

// A PCX picture: 1 bit and 1 plane, 1 bit and 4 planes (16 colours), 8 bits
// and 1 plane (256 colours), 8 bits and 3 planes (24-bit colour). 0, or
// kEngineTruncated, kEngineBadSize, kEngineBadDepth (any other bits and
// planes), kEngineFileFormat, kEngineNoMemory; `out` is untouched on
// failure.
short ReadPcxPicture(const uint8_t* data, size_t size, Image* out);

}  // namespace ravi
