// The mapping of page options to encoder options; see encoder_options.h.
#include "encoder_options.h"

#include <algorithm>

namespace ravi {

float JpegQualityFromFactor(long factor)
{
    factor = std::clamp(factor, 2L, 255L);
    return 1.0f - float(factor - 2) / 253.0f;
}

}  // namespace ravi
