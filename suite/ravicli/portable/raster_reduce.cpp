#include "raster_kernels.h"

namespace ravi {

ReduceParams ReduceParamsFromScript(int depth, int method, long palette, long screen)
{
    ReduceParams p;
    p.depth = depth;
    p.method = method;
    p.paletteColors = palette;
    p.screenPeriod = screen;
    return p;
}

ReduceParams ReduceParamsFromCall(int depth, int method, int optimise, long linesPerInch)
{
    ReduceParams p;
    p.depth = depth;
    p.method = method;
    p.paletteColors = optimise ? 1 : 0;
    p.screenPeriod = linesPerInch > 0 ? (linesPerInch + 253999) / linesPerInch : 0;
    return p;
}

short Reduce(Image&, const ReduceParams&) { return kEngineNotSupported; }

}  // namespace ravi
