// What the engine asks of the encoders for the options of the destination
// pages: the JPEG quality, which the engine's own JPEG writer honours, and
// the TIFF compression the platform's encoder is asked for by name where
// the engine does not code it itself. Kept apart so that the mappings are
// tested natively.
#pragma once

#include <cstdint>

namespace ravi {

// "JPGQ" is a quality factor from 2 (best) to 255 (smallest file); the
// encoder's ImageQuality runs from 0 to 1 the other way round. Factors
// outside the range are taken as its nearest end.
float JpegQualityFromFactor(long factor);

// The quality when no "JPGQ" was given: the platform encoder's usual one.
constexpr float kDefaultJpegImageQuality = 0.9f;

// The encoder's TiffCompressionMethod for a TIFF compression number and
// predictor, or -1 for a compression it has no name for.
int WicTiffCompression(uint32_t tiffCompression, uint32_t predictor);

}  // namespace ravi
