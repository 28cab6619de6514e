// The engine's own JPEG writer: baseline, sequential, Huffman coded with
// the standard tables, YCbCr without subsampling, quantized by the
// standard tables scaled to a quality. The platform's encoder may ignore a
// quality it is asked for (docs/dest_pages.md); this writer makes the
// page's quality visible in every file. No windows.h: tested natively.
#pragma once

#include <cstdint>
#include <vector>

#include "dib.h"

namespace ravi {

// The quality of the quantization, 1 (coarsest) to 100 (finest), for the
// encoder's ImageQuality 0..1 (encoder_options.h maps "JPGQ" to that).
int JpegQualityPercent(float imageQuality);

// A JFIF file of the image at a quality of 1..100 (clamped), its density
// from the image's resolution. Gives 0, or kEngineBadArgument for an image
// wider or higher than JPEG's 65535.
short WriteJpegBytes(const Image& image, int quality, std::vector<uint8_t>* out);

}  // namespace ravi
