// A drawing painted back into pixels, each pixel by its centre, to measure
// how close a trace comes to its source. Curves and arcs are cut into short
// lines first.
#include <algorithm>
#include <cmath>
#include <vector>

#include "engine_codes.h"
#include "tracer.h"

namespace ravi {

namespace {

constexpr double kPi = 3.14159265358979323846;

void Flatten(const TracedPath& path, std::vector<PointF>& points)
{
    points.assign(1, path.start);
    for (const Segment& s : path.segments) {
        const PointF a = points.back();
        switch (s.kind) {
        case SegmentKind::kLine:
            points.push_back(s.end);
            break;
        case SegmentKind::kCubic:
            for (int i = 1; i <= 16; ++i) {
                const double t = i / 16.0, u = 1.0 - t;
                const double k0 = u * u * u, k1 = 3 * u * u * t, k2 = 3 * u * t * t, k3 = t * t * t;
                points.push_back({k0 * a.x + k1 * s.control1.x + k2 * s.control2.x + k3 * s.end.x,
                                  k0 * a.y + k1 * s.control1.y + k2 * s.control2.y + k3 * s.end.y});
            }
            break;
        case SegmentKind::kArc: {
            const double r = s.radius;
            const double from = std::atan2(a.y - s.centre.y, a.x - s.centre.x);
            double sweep = std::atan2(s.end.y - s.centre.y, s.end.x - s.centre.x) - from;
            // Clockwise on a y-down screen is the growing angle.
            if (s.clockwise && sweep < 0)
                sweep += 2 * kPi;
            if (!s.clockwise && sweep > 0)
                sweep -= 2 * kPi;
            const int steps = std::max(4, int(std::fabs(sweep) * r / 2.0));
            for (int i = 0; i <= steps; ++i) {
                const double angle = from + sweep * i / steps;
                points.push_back({s.centre.x + r * std::cos(angle), s.centre.y + r * std::sin(angle)});
            }
            break;
        }
        }
    }
}

void Put(Image& image, int32_t x, int32_t y, uint32_t rgb)
{
    uint8_t* p = image.Row(y) + 3 * x;
    p[0] = uint8_t(rgb);
    p[1] = uint8_t(rgb >> 8);
    p[2] = uint8_t(rgb >> 16);
}

// The outlines [first, last) of one colour, even-odd, by scan lines.
void FillOutlines(const std::vector<std::vector<PointF>>& rings, uint32_t rgb, Image& image)
{
    std::vector<double> crossings;
    for (int32_t y = 0; y < image.Height(); ++y) {
        const double cy = y + 0.5;
        crossings.clear();
        for (const auto& ring : rings)
            for (size_t i = 0; i < ring.size(); ++i) {
                const PointF a = ring[i], b = ring[(i + 1) % ring.size()];
                if ((a.y <= cy) != (b.y <= cy))
                    crossings.push_back(a.x + (cy - a.y) * (b.x - a.x) / (b.y - a.y));
            }
        std::sort(crossings.begin(), crossings.end());
        for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const int32_t from = std::max<int32_t>(0, int32_t(std::ceil(crossings[i] - 0.5)));
            const int32_t to = std::min<int32_t>(image.Width(), int32_t(std::ceil(crossings[i + 1] - 0.5)));
            for (int32_t x = from; x < to; ++x)
                Put(image, x, y, rgb);
        }
    }
}

void Stroke(const std::vector<PointF>& line, double width, uint32_t rgb, Image& image)
{
    const double half = std::max(0.5, width / 2.0);
    for (size_t i = 0; i < line.size(); ++i) {
        const PointF a = line[i], b = line[std::min(i + 1, line.size() - 1)];
        const int32_t x0 = std::max<int32_t>(0, int32_t(std::floor(std::min(a.x, b.x) - half)));
        const int32_t x1 = std::min<int32_t>(image.Width() - 1, int32_t(std::ceil(std::max(a.x, b.x) + half)));
        const int32_t y0 = std::max<int32_t>(0, int32_t(std::floor(std::min(a.y, b.y) - half)));
        const int32_t y1 = std::min<int32_t>(image.Height() - 1, int32_t(std::ceil(std::max(a.y, b.y) + half)));
        const double dx = b.x - a.x, dy = b.y - a.y, length2 = dx * dx + dy * dy;
        for (int32_t y = y0; y <= y1; ++y)
            for (int32_t x = x0; x <= x1; ++x) {
                const double px = x + 0.5, py = y + 0.5;
                double t = length2 > 0 ? ((px - a.x) * dx + (py - a.y) * dy) / length2 : 0.0;
                t = std::clamp(t, 0.0, 1.0);
                const double ex = a.x + t * dx - px, ey = a.y + t * dy - py;
                if (ex * ex + ey * ey <= half * half + 1e-9)
                    Put(image, x, y, rgb);
            }
    }
}

}  // namespace

short RasterizeDrawing(const Drawing& drawing, Image* out)
{
    if (!out)
        return kEngineBadArgument;
    Image image;
    short code = MakeImage(drawing.width, drawing.height, 24, &image);
    if (code != 0)
        return code;
    for (int32_t y = 0; y < image.Height(); ++y)
        for (int32_t x = 0; x < image.Width(); ++x)
            Put(image, x, y, drawing.background);
    std::vector<std::vector<PointF>> rings;
    std::vector<PointF> points;
    for (size_t i = 0; i < drawing.paths.size();) {
        const TracedPath& path = drawing.paths[i];
        if (path.width > 0.0) {
            Flatten(path, points);
            if (path.closed)
                points.push_back(path.start);
            Stroke(points, path.width, path.rgb, image);
            ++i;
            continue;
        }
        rings.clear();
        size_t j = i;
        for (; j < drawing.paths.size() && drawing.paths[j].width == 0.0 && drawing.paths[j].rgb == path.rgb; ++j) {
            Flatten(drawing.paths[j], points);
            rings.push_back(points);
        }
        FillOutlines(rings, path.rgb, image);
        i = j;
    }
    *out = std::move(image);
    return 0;
}

}  // namespace ravi
