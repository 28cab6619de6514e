// Any small bitmap through the tracer: two bytes of size, one of options,
// then palette indices. Nothing may read past the picture, and every path
// the tracer gives must end where it starts when it is closed, stay inside
// the picture, and draw back without harm.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "tracer.h"

namespace {

bool Inside(const ravi::PointF& p, const ravi::Image& image)
{
    return p.x >= -0.5 && p.y >= -0.5 && p.x <= image.Width() + 0.5 && p.y <= image.Height() + 0.5;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 3)
        return 0;
    const int32_t w = 1 + data[0] % 24, h = 1 + data[1] % 24;
    const uint8_t pick = data[2];
    ravi::Image image;
    if (ravi::MakeImage(w, h, 8, &image) != 0)
        return 0;
    // Few colours mostly, so regions form; every index now and then.
    const uint32_t colours = (pick & 0x80) ? 256 : 2 + (pick & 3);
    for (uint32_t i = 0; i < 256; ++i)
        image.Table()[i] = {uint8_t(i * 37), uint8_t(i * 91), uint8_t(i * 13), 0};
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x) {
            const size_t at = 3 + size_t(y) * size_t(w) + size_t(x);
            image.SetPixelValue(x, y, at < size ? data[at] % colours : 0);
        }
    if (pick & 0x40) {
        ravi::Image prepared = image;
        ravi::PrepareForTrace(prepared, (pick >> 2) & 3, (pick >> 4) & 3, 2 << (pick & 7));
    }
    ravi::TraceParams params;
    params.method = (pick >> 3) & 1;
    params.genTol = (pick >> 1) % 17;
    params.bezier = (pick & 0x20) != 0;
    params.arcs = (pick & 0x10) != 0;
    params.lineWidth = pick % 11;
    ravi::Drawing drawing;
    if (ravi::TraceImage(image, params, &drawing) != 0)
        std::abort();
    for (const ravi::TracedPath& path : drawing.paths) {
        if (path.segments.empty() || !Inside(path.start, image))
            std::abort();
        if (path.closed && (path.segments.back().end.x != path.start.x || path.segments.back().end.y != path.start.y))
            std::abort();
        for (const ravi::Segment& s : path.segments)
            if (!Inside(s.end, image) || !std::isfinite(s.control1.x) || !std::isfinite(s.centre.x))
                std::abort();
    }
    ravi::Image back;
    if (ravi::RasterizeDrawing(drawing, &back) != 0)
        std::abort();
    return 0;
}
