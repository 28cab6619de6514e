// Tracing: a raster image turned into a drawing. PrepareForTrace brings the
// picture down to a few flat colours; TraceImage follows the boundary of
// every colour region into closed outlines (holes included), or thins the
// strokes into open centre lines, simplifies them within the tolerance and
// fits Bezier curves and circular arcs where asked. The drawing is plain
// data: the Windows side plays it into a metafile, RasterizeDrawing turns
// it back into pixels for comparison.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "dib.h"

namespace ravi {

struct PointF {
    double x = 0.0, y = 0.0;
};

enum class SegmentKind : uint8_t { kLine, kCubic, kArc };

// One piece of a path, from the end of the one before. A cubic has two
// control points; an arc is part of the circle of `radius` around `centre`,
// between the rays through both ends (which lie on it within the
// tolerance), turning clockwise on the screen (y down) or not.
struct Segment {
    SegmentKind kind = SegmentKind::kLine;
    PointF control1, control2;
    PointF centre;
    double radius = 0.0;
    bool clockwise = false;
    PointF end;
};

// Coordinates are in pixels from the top left corner of the picture: an
// outline runs along pixel edges, a centre line through pixel centres.
struct TracedPath {
    uint32_t rgb = 0;        // 0x00RRGGBB
    bool closed = true;
    bool hole = false;       // an outline that runs the other way round: a hole
    double width = 0.0;      // pen width of a centre line; 0 for a filled outline
    PointF start;
    std::vector<Segment> segments;
};

// A filled background of one colour under the paths. The outlines of one
// colour follow one another and fill together by the even-odd rule.
struct Drawing {
    int32_t width = 0, height = 0;
    uint32_t background = 0xFFFFFF;
    std::vector<TracedPath> paths;
    // Points that a drawing program would show: each start and each end.
    std::size_t NodeCount() const;
};

enum TraceMethod : int { kTraceOutline = 0, kTraceCenterline = 1 };

struct TraceParams {
    int method = kTraceOutline;
    int genTol = 3;        // 0 (tight) .. 16 (loose)
    bool bezier = false;
    bool arcs = false;
    int lineWidth = 0;     // 0: measured; 1..10 pixels fixed (centre lines)
};

// How far in pixels a simplified path may stray from the traced one.
double ToleranceInPixels(int genTol);

// undither 0..3: none, or the average over a 2 x 2, 3 x 3 or 4 x 4 window;
// despeckle 0..3: none, or regions of at most 4, 16 or 64 pixels merge into
// their most common neighbour; maxColors 2..256. Leaves an 8-bit palette
// image of at most maxColors colours.
short PrepareForTrace(Image& image, int undither, int despeckle, int maxColors);

// Traces an image of any depth with at most 65535 colours (more give
// kEngineNotSupported: such a picture wants PrepareForTrace first).
short TraceImage(const Image& image, const TraceParams& params, Drawing* out);

// Paints the drawing into a new 24-bit image of its size, each pixel by its
// centre: the background, then the outlines of each colour (even-odd), and
// the centre lines as strokes of their width.
short RasterizeDrawing(const Drawing& drawing, Image* out);

}  // namespace ravi
