#include "raster_kernels.h"

namespace ravi {

short ReverseBW(Image&) { return kEngineNotSupported; }
short Invert(Image&) { return kEngineNotSupported; }
short Grayize(Image&) { return kEngineNotSupported; }
short Blackize(Image&) { return kEngineNotSupported; }
short Equalize(Image&) { return kEngineNotSupported; }
short Gamma(Image&, int, int, int) { return kEngineNotSupported; }
short ChangeColor(Image&, uint32_t, uint32_t) { return kEngineNotSupported; }
short ConvertDepth(Image&, int) { return kEngineNotSupported; }

}  // namespace ravi
