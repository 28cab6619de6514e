// The mapping of page options to encoder options; see encoder_options.h.
#include "encoder_options.h"

#include <algorithm>

namespace ravi {

float JpegQualityFromFactor(long factor)
{
    factor = std::clamp(factor, 2L, 255L);
    return 1.0f - float(factor - 2) / 253.0f;
}

int WicTiffCompression(uint32_t tiffCompression, uint32_t predictor)
{
    // The values of WICTiffCompressionOption.
    switch (tiffCompression) {
    case 1: return 1;                       // none
    case 3: return 2;                       // CCITT group 3
    case 4: return 3;                       // CCITT group 4
    case 5: return predictor == 2 ? 7 : 4;  // LZW, with horizontal differencing
    case 32773: return 5;                   // PackBits
    case 8:
    case 32946: return 6;                   // Deflate
    default: return -1;
    }
}

}  // namespace ravi
