// The tracer. Every pixel gets the number of its colour; the most common
// colour becomes the background. The outline method walks the pixel edges
// around each region of any other colour, keeping the region on its right,
// so outer boundaries run clockwise on the screen and holes the other way;
// diagonal neighbours count as apart, so no boundary ever crosses itself.
// The centre line method thins each colour down to a line of single pixels
// and follows it between its ends and forks. Both simplify what they found
// (Douglas-Peucker within the tolerance) and then fit arcs and curves.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "engine_codes.h"
#include "tracer.h"

namespace ravi {

namespace {

struct Labels {
    int32_t w = 0, h = 0;
    std::vector<uint16_t> id;     // colour number of each pixel, row by row from the top
    std::vector<uint32_t> rgb;    // colour of each number
    uint16_t background = 0;
};

short LabelColours(const Image& image, Labels& labels)
{
    const int32_t w = image.Width(), h = image.Height();
    labels.w = w;
    labels.h = h;
    labels.id.assign(size_t(w) * size_t(h), 0);
    std::unordered_map<uint32_t, uint16_t> numbers;
    auto numberOf = [&](uint32_t rgb, uint16_t* out) {
        auto found = numbers.find(rgb);
        if (found != numbers.end()) {
            *out = found->second;
            return true;
        }
        if (labels.rgb.size() >= 65535)
            return false;
        *out = uint16_t(labels.rgb.size());
        numbers.emplace(rgb, *out);
        labels.rgb.push_back(rgb);
        return true;
    };
    std::vector<uint16_t> tableNumbers;
    if (image.Bits() <= 8) {
        tableNumbers.resize(image.Colors());
        for (uint32_t i = 0; i < image.Colors(); ++i) {
            const RgbQuad& q = image.Table()[i];
            numberOf(uint32_t(q.red) << 16 | uint32_t(q.green) << 8 | q.blue, &tableNumbers[i]);
        }
    }
    for (int32_t y = 0; y < h; ++y) {
        uint16_t* out = &labels.id[size_t(y) * size_t(w)];
        for (int32_t x = 0; x < w; ++x) {
            const uint32_t value = image.PixelValue(x, y);
            if (image.Bits() <= 8)
                out[x] = tableNumbers[value];
            else if (!numberOf(value, &out[x]))
                return kEngineNotSupported;
        }
    }
    std::vector<size_t> counts(labels.rgb.size(), 0);
    for (uint16_t n : labels.id)
        ++counts[n];
    labels.background = uint16_t(std::max_element(counts.begin(), counts.end()) - counts.begin());
    return 0;
}

// ------------------------------------------------------------ simplifying

double Distance2ToSegment(PointF p, PointF a, PointF b)
{
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    double t = length2 > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / length2 : 0.0;
    t = std::clamp(t, 0.0, 1.0);
    const double ex = a.x + t * dx - p.x, ey = a.y + t * dy - p.y;
    return ex * ex + ey * ey;
}

// Douglas-Peucker between first and last (both kept), without recursion.
void MarkKept(const std::vector<PointF>& points, size_t first, size_t last, double tolerance2,
              std::vector<uint8_t>& keep)
{
    std::vector<std::pair<size_t, size_t>> spans{{first, last}};
    while (!spans.empty()) {
        auto [a, b] = spans.back();
        spans.pop_back();
        double worst = -1.0;
        size_t at = a;
        for (size_t i = a + 1; i < b; ++i) {
            const double d = Distance2ToSegment(points[i], points[a], points[b]);
            if (d > worst) {
                worst = d;
                at = i;
            }
        }
        if (worst > tolerance2) {
            keep[at] = 1;
            spans.push_back({a, at});
            spans.push_back({at, b});
        }
    }
}

// An open line keeps its ends; a closed one is cut at its first point and
// at the point farthest from it.
std::vector<PointF> Simplify(const std::vector<PointF>& points, bool closed, double tolerance)
{
    if (points.size() < 3)
        return points;
    std::vector<PointF> work = points;
    if (closed)
        work.push_back(points.front());
    std::vector<uint8_t> keep(work.size(), 0);
    keep.front() = keep.back() = 1;
    const double tolerance2 = tolerance * tolerance;
    if (closed) {
        size_t far = 0;
        double farthest = -1.0;
        for (size_t i = 1; i + 1 < work.size(); ++i) {
            const double dx = work[i].x - work[0].x, dy = work[i].y - work[0].y;
            if (dx * dx + dy * dy > farthest) {
                farthest = dx * dx + dy * dy;
                far = i;
            }
        }
        keep[far] = 1;
        MarkKept(work, 0, far, tolerance2, keep);
        MarkKept(work, far, work.size() - 1, tolerance2, keep);
        work.pop_back();
        keep.pop_back();
    } else {
        MarkKept(work, 0, work.size() - 1, tolerance2, keep);
    }
    std::vector<PointF> kept;
    for (size_t i = 0; i < work.size(); ++i)
        if (keep[i])
            kept.push_back(work[i]);
    return kept;
}

// --------------------------------------------------------- arcs and curves

// The circle nearest to the points from i to j in the least squares of
// x^2 + y^2 + D x + E y + F; false when they lie on a line.
bool FitCircle(const std::vector<PointF>& p, size_t i, size_t j, PointF* centre, double* radius)
{
    // Around their mean, for a well-conditioned sum.
    double mx = 0.0, my = 0.0;
    for (size_t k = i; k <= j; ++k) {
        mx += p[k].x;
        my += p[k].y;
    }
    const double count = double(j - i + 1);
    mx /= count;
    my /= count;
    double sxx = 0, sxy = 0, syy = 0, sxz = 0, syz = 0, sz = 0;
    for (size_t k = i; k <= j; ++k) {
        const double x = p[k].x - mx, y = p[k].y - my, z = x * x + y * y;
        sxx += x * x;
        sxy += x * y;
        syy += y * y;
        sxz += x * z;
        syz += y * z;
        sz += z;
    }
    // With centred points the sums of x and y vanish, and F follows alone.
    const double det = sxx * syy - sxy * sxy;
    if (std::fabs(det) < 1e-9)
        return false;
    const double d = -(sxz * syy - syz * sxy) / det;
    const double e = -(sxx * syz - sxy * sxz) / det;
    const double f = -sz / count;
    centre->x = mx - d / 2.0;
    centre->y = my - e / 2.0;
    const double r2 = d * d / 4.0 + e * e / 4.0 - f;
    if (r2 <= 0.0)
        return false;
    *radius = std::sqrt(r2);
    return true;
}

double Turn(PointF a, PointF b, PointF c)
{
    return (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
}

// The points from i to j lie within the tolerance of one circle and turn
// one way all along: they make an arc.
bool FitsArc(const std::vector<PointF>& p, size_t i, size_t j, double tolerance, double maxRadius, Segment* arc)
{
    // An arc ends before it comes round to its start again.
    if (std::hypot(p[j].x - p[i].x, p[j].y - p[i].y) <= tolerance)
        return false;
    PointF centre;
    double radius = 0.0;
    if (!FitCircle(p, i, j, &centre, &radius) || radius > maxRadius)
        return false;
    const double side = Turn(p[i], p[i + 1], p[i + 2]);
    for (size_t k = i; k <= j; ++k) {
        if (std::fabs(std::hypot(p[k].x - centre.x, p[k].y - centre.y) - radius) > tolerance)
            return false;
        if (k + 2 <= j && Turn(p[k], p[k + 1], p[k + 2]) * side <= 0.0)
            return false;
    }
    arc->kind = SegmentKind::kArc;
    arc->centre = centre;
    arc->radius = radius;
    arc->clockwise = side > 0.0;
    arc->end = p[j];
    return true;
}

PointF Unit(PointF from, PointF to)
{
    const double dx = to.x - from.x, dy = to.y - from.y, length = std::hypot(dx, dy);
    return length > 0.0 ? PointF{dx / length, dy / length} : PointF{0.0, 0.0};
}

// Turns the simplified points into segments: arcs where at least four
// segments in a row lie on a circle, cubic curves through the points that
// aren't corners, straight lines elsewhere.
void BuildSegments(std::vector<PointF> p, bool closed, const TraceParams& params, double tolerance,
                   double maxRadius, TracedPath& path)
{
    path.start = p.front();
    if (p.size() == 1) {
        path.segments.push_back(Segment{SegmentKind::kLine, {}, {}, {}, 0.0, false, p.front()});
        return;
    }
    if (closed)
        p.push_back(p.front());
    const size_t n = p.size();
    // A point is a corner where the line turns by more than 60 degrees, and
    // at both ends of an open line.
    std::vector<uint8_t> corner(n, 1);
    for (size_t i = 0; i < n; ++i) {
        const bool inner = i > 0 && i + 1 < n;
        if (!inner && !closed)
            continue;
        const PointF before = i > 0 ? p[i - 1] : p[n - 2];
        const PointF after = i + 1 < n ? p[i + 1] : p[1];
        const PointF u = Unit(before, p[i]), v = Unit(p[i], after);
        corner[i] = u.x * v.x + u.y * v.y < 0.5;
    }
    auto tangent = [&](size_t i, PointF along) {
        if (corner[i])
            return along;
        const PointF before = i > 0 ? p[i - 1] : p[n - 2];
        const PointF after = i + 1 < n ? p[i + 1] : p[1];
        return Unit(before, after);
    };
    size_t i = 0;
    while (i + 1 < n) {
        if (params.arcs) {
            size_t best = 0;
            Segment arc;
            for (size_t j = i + 4; j < n; ++j) {
                Segment candidate;
                if (!FitsArc(p, i, j, tolerance, maxRadius, &candidate))
                    break;
                best = j;
                arc = candidate;
            }
            if (best) {
                path.segments.push_back(arc);
                i = best;
                continue;
            }
        }
        Segment segment;
        segment.end = p[i + 1];
        if (params.bezier && !(corner[i] && corner[i + 1])) {
            const PointF along = Unit(p[i], p[i + 1]);
            const double third = std::hypot(p[i + 1].x - p[i].x, p[i + 1].y - p[i].y) / 3.0;
            const PointF t0 = tangent(i, along), t1 = tangent(i + 1, along);
            segment.kind = SegmentKind::kCubic;
            segment.control1 = {p[i].x + t0.x * third, p[i].y + t0.y * third};
            segment.control2 = {p[i + 1].x - t1.x * third, p[i + 1].y - t1.y * third};
        }
        path.segments.push_back(segment);
        ++i;
    }
}

double SignedArea(const std::vector<PointF>& p)
{
    double sum = 0.0;
    for (size_t i = 0; i < p.size(); ++i) {
        const PointF a = p[i], b = p[(i + 1) % p.size()];
        sum += a.x * b.y - b.x * a.y;
    }
    return sum / 2.0;
}

// ---------------------------------------------------------------- outlines

// The corners of a boundary along pixel edges, with every stair step (an
// edge of one pixel between turns of opposite ways) stood for by its middle:
// a slanted or curved edge then runs through the middle of its steps
// instead of along their outer corners, while a true corner, between turns
// of one way, stays where it is.
std::vector<PointF> SmoothSteps(const std::vector<PointF>& c)
{
    const size_t n = c.size();
    if (n < 4)
        return c;
    std::vector<double> turn(n);
    for (size_t i = 0; i < n; ++i)
        turn[i] = Turn(c[(i + n - 1) % n], c[i], c[(i + 1) % n]);
    std::vector<uint8_t> step(n);
    for (size_t i = 0; i < n; ++i) {
        const PointF a = c[i], b = c[(i + 1) % n];
        step[i] = std::fabs(a.x - b.x) + std::fabs(a.y - b.y) == 1.0 && turn[i] * turn[(i + 1) % n] < 0.0;
    }
    std::vector<PointF> out;
    out.reserve(n);
    for (size_t i = 0; i < n; ++i) {
        if (!step[i] && !step[(i + n - 1) % n])
            out.push_back(c[i]);
        if (step[i])
            out.push_back({(c[i].x + c[(i + 1) % n].x) / 2.0, (c[i].y + c[(i + 1) % n].y) / 2.0});
    }
    return out;
}

// A small shape is simplified at most by a quarter of its size, so that no
// speck of a few pixels collapses into a line.
double SmallestSide(const std::vector<PointF>& p)
{
    double x0 = p[0].x, x1 = x0, y0 = p[0].y, y1 = y0;
    for (const PointF& q : p) {
        x0 = std::min(x0, q.x);
        x1 = std::max(x1, q.x);
        y0 = std::min(y0, q.y);
        y1 = std::max(y1, q.y);
    }
    return std::min(x1 - x0, y1 - y0);
}

constexpr int kDx[4] = {1, 0, -1, 0};  // east, south, west, north (y down)
constexpr int kDy[4] = {0, 1, 0, -1};

// The pixel beside a corner point, ahead of a step in direction d and to
// one side (+1 right, -1 left).
inline int Offset(int s) { return s > 0 ? 0 : -1; }

void TraceOutlines(const Labels& labels, const TraceParams& params, Drawing& drawing)
{
    const int32_t w = labels.w, h = labels.h;
    const uint16_t* id = labels.id.data();
    auto colourAt = [&](int32_t x, int32_t y) -> int {
        return (x < 0 || y < 0 || x >= w || y >= h) ? -1 : id[size_t(y) * size_t(w) + size_t(x)];
    };
    const double tolerance = ToleranceInPixels(params.genTol);
    const double maxRadius = 2.0 * double(std::max(w, h));
    // Every boundary has a piece that runs east along the top of one of
    // its pixels; that piece, once walked, starts no second walk.
    std::vector<uint8_t> topWalked(size_t(w) * size_t(h), 0);
    std::vector<std::vector<TracedPath>> byColour(labels.rgb.size());
    std::vector<PointF> corners;
    for (int32_t y0 = 0; y0 < h; ++y0)
        for (int32_t x0 = 0; x0 < w; ++x0) {
            const size_t at = size_t(y0) * size_t(w) + size_t(x0);
            const int colour = id[at];
            if (colour == labels.background || topWalked[at] || colourAt(x0, y0 - 1) == colour)
                continue;
            corners.clear();
            corners.push_back({double(x0), double(y0)});
            int32_t x = x0, y = y0;
            int d = 0;
            for (;;) {
                if (d == 0)
                    topWalked[size_t(y) * size_t(w) + size_t(x)] = 1;
                x += kDx[d];
                y += kDy[d];
                const int rx = -kDy[d], ry = kDx[d];
                const bool aheadRight = colourAt(x + Offset(kDx[d] + rx), y + Offset(kDy[d] + ry)) == colour;
                const bool aheadLeft = colourAt(x + Offset(kDx[d] - rx), y + Offset(kDy[d] - ry)) == colour;
                const int next = !aheadRight ? (d + 1) & 3 : aheadLeft ? (d + 3) & 3 : d;
                if (x == x0 && y == y0 && next == 0)
                    break;
                if (next != d)
                    corners.push_back({double(x), double(y)});
                d = next;
            }
            TracedPath path;
            path.rgb = labels.rgb[size_t(colour)];
            path.hole = SignedArea(corners) < 0.0;
            const double allowed = std::min(tolerance, SmallestSide(corners) / 4.0);
            BuildSegments(Simplify(SmoothSteps(corners), true, allowed), true, params, allowed, maxRadius, path);
            byColour[size_t(colour)].push_back(std::move(path));
        }
    for (auto& paths : byColour)
        for (auto& path : paths)
            drawing.paths.push_back(std::move(path));
}

// ------------------------------------------------------------ centre lines

// A grid with a border of one empty pixel all round, so that every pixel
// of the picture has eight neighbours to look at.
struct Grid {
    int32_t w, h;  // with the border
    std::vector<uint8_t> cells;
    uint8_t& At(int32_t x, int32_t y) { return cells[size_t(y) * size_t(w) + size_t(x)]; }
};

constexpr int kNx[8] = {0, 1, 1, 1, 0, -1, -1, -1};  // N, NE, E, SE, S, SW, W, NW
constexpr int kNy[8] = {-1, -1, 0, 1, 1, 1, 0, -1};

// Zhang and Suen's thinning, on the list of pixels still set.
void Thin(Grid& g, std::vector<uint32_t>& set)
{
    std::vector<uint32_t> removed;
    for (bool changed = true; changed;) {
        changed = false;
        for (int pass = 0; pass < 2; ++pass) {
            removed.clear();
            for (uint32_t at : set) {
                const int32_t x = int32_t(at % uint32_t(g.w)), y = int32_t(at / uint32_t(g.w));
                int v[8];
                int count = 0, rises = 0;
                for (int k = 0; k < 8; ++k)
                    count += v[k] = g.At(x + kNx[k], y + kNy[k]) ? 1 : 0;
                for (int k = 0; k < 8; ++k)
                    rises += !v[k] && v[(k + 1) & 7];
                if (count < 2 || count > 6 || rises != 1)
                    continue;
                // N, E, S, W are 0, 2, 4, 6.
                const bool first = pass == 0 ? !(v[0] && v[2] && v[4]) && !(v[2] && v[4] && v[6])
                                             : !(v[0] && v[2] && v[6]) && !(v[0] && v[4] && v[6]);
                if (first)
                    removed.push_back(at);
            }
            for (uint32_t at : removed)
                g.cells[at] = 0;
            if (!removed.empty()) {
                changed = true;
                set.erase(std::remove_if(set.begin(), set.end(), [&](uint32_t at) { return !g.cells[at]; }),
                          set.end());
            }
        }
    }
    // A pixel in the inner corner of a step joins two pixels that touch
    // anyway: take it out, so that every line pixel has two neighbours.
    for (uint32_t at : set) {
        const int32_t x = int32_t(at % uint32_t(g.w)), y = int32_t(at / uint32_t(g.w));
        auto on = [&](int k) { return g.At(x + kNx[k], y + kNy[k]) != 0; };
        for (int k = 0; k < 8; k += 2) {
            // Two neighbours at right angles (k, k + 2), nothing on the three
            // opposite (k + 4, k + 5, k + 6).
            if (on(k) && on((k + 2) & 7) && !on((k + 4) & 7) && !on((k + 5) & 7) && !on((k + 6) & 7)) {
                g.cells[at] = 0;
                break;
            }
        }
    }
    set.erase(std::remove_if(set.begin(), set.end(), [&](uint32_t at) { return !g.cells[at]; }), set.end());
}

void TraceCentreLines(const Labels& labels, const TraceParams& params, Drawing& drawing)
{
    const int32_t w = labels.w, h = labels.h;
    const double tolerance = ToleranceInPixels(params.genTol);
    const double maxRadius = 2.0 * double(std::max(w, h));
    Grid g{w + 2, h + 2, {}};
    std::vector<uint16_t> depth;
    std::vector<uint8_t> visited;
    std::vector<uint32_t> set;
    std::vector<PointF> line;
    for (size_t colour = 0; colour < labels.rgb.size(); ++colour) {
        if (colour == labels.background)
            continue;
        g.cells.assign(size_t(g.w) * size_t(g.h), 0);
        set.clear();
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x)
                if (labels.id[size_t(y) * size_t(w) + size_t(x)] == colour) {
                    g.At(x + 1, y + 1) = 1;
                    set.push_back(uint32_t(size_t(y + 1) * size_t(g.w) + size_t(x + 1)));
                }
        // How deep inside its stroke each pixel lies (1 at the edge), by
        // steps to the side: a stroke is about twice that, less one, wide.
        depth.assign(g.cells.size(), 0);
        for (int32_t y = 1; y < g.h - 1; ++y)
            for (int32_t x = 1; x < g.w - 1; ++x)
                if (g.At(x, y)) {
                    const size_t at = size_t(y) * size_t(g.w) + size_t(x);
                    depth[at] = uint16_t(std::min(depth[at - 1], depth[at - size_t(g.w)]) + 1);
                }
        for (int32_t y = g.h - 2; y >= 1; --y)
            for (int32_t x = g.w - 2; x >= 1; --x)
                if (g.At(x, y)) {
                    const size_t at = size_t(y) * size_t(g.w) + size_t(x);
                    depth[at] = std::min<uint16_t>(depth[at], uint16_t(std::min(depth[at + 1], depth[at + size_t(g.w)]) + 1));
                }
        Thin(g, set);

        auto neighbours = [&](uint32_t at) {
            const int32_t x = int32_t(at % uint32_t(g.w)), y = int32_t(at / uint32_t(g.w));
            int count = 0;
            for (int k = 0; k < 8; ++k)
                count += g.At(x + kNx[k], y + kNy[k]) ? 1 : 0;
            return count;
        };
        visited.assign(g.cells.size(), 0);
        auto emit = [&](const std::vector<uint32_t>& pixels, bool closed) {
            line.clear();
            double depthSum = 0.0;
            for (uint32_t at : pixels) {
                line.push_back({double(at % uint32_t(g.w)) - 0.5, double(at / uint32_t(g.w)) - 0.5});
                depthSum += depth[at];
            }
            TracedPath path;
            path.rgb = labels.rgb[colour];
            path.closed = closed;
            path.width = params.lineWidth > 0 ? double(params.lineWidth)
                                              : std::max(1.0, std::round(2.0 * depthSum / double(pixels.size()) - 1.0));
            BuildSegments(Simplify(line, closed, tolerance), closed, params, tolerance, maxRadius, path);
            drawing.paths.push_back(std::move(path));
        };
        // Follows the line from a pixel into one of its neighbours until it
        // meets an end or a fork; 4-neighbours are taken before diagonal ones.
        static constexpr int kOrder[8] = {0, 2, 4, 6, 1, 3, 5, 7};
        std::vector<uint32_t> pixels;
        auto walk = [&](uint32_t from, int firstStep) {
            pixels.assign(1, from);
            uint32_t at = uint32_t(int64_t(from) + kNx[firstStep] + int64_t(kNy[firstStep]) * g.w);
            for (;;) {
                pixels.push_back(at);
                if (visited[at] || neighbours(at) != 2)
                    break;
                visited[at] = 1;
                const int32_t x = int32_t(at % uint32_t(g.w)), y = int32_t(at / uint32_t(g.w));
                bool moved = false;
                for (int k : kOrder) {
                    const uint32_t next = uint32_t(size_t(y + kNy[k]) * size_t(g.w) + size_t(x + kNx[k]));
                    if (!g.cells[next] || next == pixels[pixels.size() - 2] || (visited[next] && neighbours(next) == 2))
                        continue;
                    at = next;
                    moved = true;
                    break;
                }
                if (!moved)
                    break;
            }
            emit(pixels, false);
        };
        // Lines from every end and fork first, then the rings that have none.
        for (uint32_t at : set) {
            const int count = neighbours(at);
            if (count == 2)
                continue;
            if (count == 0) {
                visited[at] = 1;
                emit({at}, false);
                continue;
            }
            visited[at] = 1;
            const int32_t x = int32_t(at % uint32_t(g.w)), y = int32_t(at / uint32_t(g.w));
            for (int k : kOrder) {
                const uint32_t next = uint32_t(size_t(y + kNy[k]) * size_t(g.w) + size_t(x + kNx[k]));
                if (!g.cells[next] || (visited[next] && neighbours(next) == 2))
                    continue;
                // A fork next to a fork: one short line, drawn from the first.
                if (neighbours(next) != 2 && visited[next])
                    continue;
                walk(at, k);
            }
        }
        for (uint32_t at : set) {
            if (visited[at])
                continue;
            pixels.clear();
            uint32_t here = at, previous = at;
            for (;;) {
                visited[here] = 1;
                pixels.push_back(here);
                const int32_t x = int32_t(here % uint32_t(g.w)), y = int32_t(here / uint32_t(g.w));
                uint32_t next = here;
                for (int k : kOrder) {
                    const uint32_t candidate = uint32_t(size_t(y + kNy[k]) * size_t(g.w) + size_t(x + kNx[k]));
                    if (g.cells[candidate] && candidate != previous && !visited[candidate]) {
                        next = candidate;
                        break;
                    }
                }
                if (next == here)
                    break;
                previous = here;
                here = next;
            }
            emit(pixels, pixels.size() > 2);
        }
    }
}

}  // namespace

double ToleranceInPixels(int genTol)
{
    return 0.3 + 0.15 * double(std::clamp(genTol, 0, 16));
}

std::size_t Drawing::NodeCount() const
{
    std::size_t nodes = 0;
    for (const TracedPath& path : paths)
        nodes += path.segments.size() + (path.closed ? 0 : 1);
    return nodes;
}

short TraceImage(const Image& image, const TraceParams& params, Drawing* out)
{
    if (!out)
        return kEngineBadArgument;
    if (image.Empty())
        return kEngineNoImage;
    if (params.method < 0 || params.method > 1 || params.genTol < 0 || params.genTol > 16 || params.lineWidth < 0 ||
        params.lineWidth > 10)
        return kEngineBadArgument;
    Labels labels;
    short code = LabelColours(image, labels);
    if (code != 0)
        return code;
    Drawing drawing;
    drawing.width = image.Width();
    drawing.height = image.Height();
    drawing.background = labels.rgb[labels.background];
    if (params.method == kTraceOutline)
        TraceOutlines(labels, params, drawing);
    else
        TraceCentreLines(labels, params, drawing);
    *out = std::move(drawing);
    return 0;
}

}  // namespace ravi
