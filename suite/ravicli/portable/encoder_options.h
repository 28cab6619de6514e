// What the engine asks of the platform's encoders for the options of the
// destination pages. Kept apart from the encoders so that the mapping is
// tested natively: under Wine the encoders ignore both requests
// (docs/dest_pages.md), so a file there cannot show them.
#pragma once

#include <cstdint>

namespace ravi {

// "JPGQ" is a quality factor from 2 (best) to 255 (smallest file); the
// encoder's ImageQuality runs from 0 to 1 the other way round. Factors
// outside the range are taken as its nearest end.
float JpegQualityFromFactor(long factor);

// The encoder's TiffCompressionMethod for a TIFF compression number and
// predictor, or -1 for a compression it has no name for.
int WicTiffCompression(uint32_t tiffCompression, uint32_t predictor);

}  // namespace ravi
