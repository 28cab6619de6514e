// The JPEG page's quality factor as an encoder's quality, which the
// engine's own JPEG writer honours. Kept apart so that the mapping is
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

}  // namespace ravi
