// A traced drawing played into an enhanced metafile: the background (or,
// for an overlay, the raster it was traced from), then the outlines of each
// colour filled together by the even-odd rule, then the centre lines as
// strokes with round ends. Coordinates go in sixteenths of a pixel, so the
// curves keep the precision the tracer found.
#include <cmath>

#include "engine_state.h"
#include "portable/raster_kernels.h"
#include "portable/tracer.h"

namespace {

constexpr int kScale = 16;

COLORREF ColorOf(uint32_t rgb)
{
    return RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

POINT At(ravi::PointF p, double shift)
{
    return POINT{LONG(std::lround((p.x + shift) * kScale)), LONG(std::lround((p.y + shift) * kScale))};
}

// One figure of the path in the making. shift moves a centre line, which
// runs through pixel centres, onto the grid that a pen of odd width covers.
void AddFigure(HDC dc, const ravi::TracedPath& path, double shift)
{
    const POINT start = At(path.start, shift);
    MoveToEx(dc, start.x, start.y, nullptr);
    for (const ravi::Segment& s : path.segments) {
        const POINT end = At(s.end, shift);
        switch (s.kind) {
        case ravi::SegmentKind::kLine:
            LineTo(dc, end.x, end.y);
            break;
        case ravi::SegmentKind::kCubic: {
            const POINT points[3] = {At(s.control1, shift), At(s.control2, shift), end};
            PolyBezierTo(dc, points, 3);
            break;
        }
        case ravi::SegmentKind::kArc: {
            POINT from = {};
            GetCurrentPositionEx(dc, &from);
            const POINT centre = At(s.centre, shift);
            const LONG r = LONG(std::lround(s.radius * kScale));
            SetArcDirection(dc, s.clockwise ? AD_CLOCKWISE : AD_COUNTERCLOCKWISE);
            ArcTo(dc, centre.x - r, centre.y - r, centre.x + r, centre.y + r, from.x, from.y, end.x, end.y);
            break;
        }
        }
    }
    if (path.closed)
        CloseFigure(dc);
}

}  // namespace

HENHMETAFILE ravi::MetafileFromDrawing(const Drawing& drawing, const Image* under)
{
    HDC dc = BeginMetafile(drawing.width, drawing.height);
    if (!dc) return nullptr;
    // The raster goes in at 24 bits: a palette image played back from the
    // metafile came out in the grey ramp instead of its own table.
    Image flat;
    if (under && !under->Empty() && (flat = *under, ConvertDepth(flat, 24) == 0)) {
        const auto* info = reinterpret_cast<const BITMAPINFO*>(flat.Data());
        StretchDIBits(dc, 0, 0, flat.Width(), flat.Height(), 0, 0, flat.Width(), flat.Height(),
                      flat.Data() + flat.Layout().pixelOffset, info, DIB_RGB_COLORS, SRCCOPY);
    } else {
        HBRUSH background = CreateSolidBrush(ColorOf(drawing.background));
        RECT all = {0, 0, drawing.width, drawing.height};
        FillRect(dc, &all, background);
        DeleteObject(background);
    }
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, drawing.width * kScale, drawing.height * kScale, nullptr);
    SetViewportExtEx(dc, drawing.width, drawing.height, nullptr);
    SetPolyFillMode(dc, ALTERNATE);
    HGDIOBJ oldPen = SelectObject(dc, GetStockObject(NULL_PEN));
    HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(NULL_BRUSH));
    const auto& paths = drawing.paths;
    for (size_t i = 0; i < paths.size();) {
        const TracedPath& path = paths[i];
        if (path.width > 0.0) {
            LOGBRUSH ink = {BS_SOLID, ColorOf(path.rgb), 0};
            HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                    DWORD(std::lround(path.width * kScale)), &ink, 0, nullptr);
            SelectObject(dc, pen);
            BeginPath(dc);
            AddFigure(dc, path, 0.0);
            EndPath(dc);
            StrokePath(dc);
            SelectObject(dc, GetStockObject(NULL_PEN));
            DeleteObject(pen);
            ++i;
            continue;
        }
        HBRUSH fill = CreateSolidBrush(ColorOf(path.rgb));
        SelectObject(dc, fill);
        BeginPath(dc);
        size_t j = i;
        for (; j < paths.size() && paths[j].width == 0.0 && paths[j].rgb == path.rgb; ++j)
            AddFigure(dc, paths[j], 0.0);
        EndPath(dc);
        FillPath(dc);
        SelectObject(dc, GetStockObject(NULL_BRUSH));
        DeleteObject(fill);
        i = j;
    }
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    return CloseEnhMetaFile(dc);
}
