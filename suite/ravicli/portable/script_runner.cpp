#include "script_runner.h"

#include "raster_kernels.h"

namespace ravi {

short ApplyCommand(Image& image, const ScriptCommand& c)
{
    const int32_t* a = c.args;
    switch (c.op) {
    case ScriptOp::ReverseBW: return ReverseBW(image);
    case ScriptOp::ChangeColor: return ChangeColor(image, uint32_t(a[0]), uint32_t(a[1]));
    case ScriptOp::Blackize: return Blackize(image);
    case ScriptOp::Grayize: return Grayize(image);
    case ScriptOp::Gamma: return Gamma(image, a[0], a[1], a[2]);
    case ScriptOp::Invert: return Invert(image);
    case ScriptOp::Rotate: return Rotate(image, a[0], a[1], a[2]);
    case ScriptOp::Rasterize: return image.Empty() ? kEngineNoImage : kEngineOk;
    case ScriptOp::Resize: return Resize(image, a[0], a[1], a[2]);
    case ScriptOp::Equalize: return Equalize(image);
    case ScriptOp::Reduce: return Reduce(image, ReduceParamsFromScript(a[0], a[1], a[2], a[3]));
    case ScriptOp::PrepRaster:
    case ScriptOp::Vectorize: return kEngineNotSupported;
    }
    return kEngineNotSupported;
}

short RunScript(Image& image, const uint8_t* data, size_t size, int* failedLine)
{
    ScriptParse parse;
    ParseScript(data, size, &parse);
    if (failedLine)
        *failedLine = 0;
    for (const ScriptCommand& c : parse.commands) {
        short rc = ApplyCommand(image, c);
        if (rc != kEngineOk) {
            if (failedLine)
                *failedLine = c.line;
            return rc;
        }
    }
    if (parse.code != kEngineOk && failedLine)
        *failedLine = parse.badLine;
    return parse.code;
}

}  // namespace ravi
