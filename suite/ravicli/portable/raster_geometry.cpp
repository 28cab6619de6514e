#include "raster_kernels.h"

namespace ravi {

short Rotate(Image&, int, int, int, uint32_t) { return kEngineNotSupported; }
short Resize(Image&, int32_t, int32_t, int) { return kEngineNotSupported; }
void RotatedSize(int32_t w, int32_t h, int, int32_t* outW, int32_t* outH) { *outW = w; *outH = h; }

}  // namespace ravi
