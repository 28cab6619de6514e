// Colour reduction: palettes (fixed or by median cut), the nearest colour,
// and the four methods of the command script.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "raster_internal.h"
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

namespace {

struct Palette {
    int count = 0;
    uint8_t rgb[256][3] = {};  // red, green, blue
};

// The fixed palette of n colours: black and white; a grey ramp below 8;
// the 16 colours of the classic display; otherwise the largest colour cube
// that fits, the rest greys.
Palette FixedPalette(int n)
{
    Palette p;
    p.count = n;
    auto set = [&](int i, int r, int g, int b) {
        p.rgb[i][0] = uint8_t(r);
        p.rgb[i][1] = uint8_t(g);
        p.rgb[i][2] = uint8_t(b);
    };
    if (n < 8) {
        for (int i = 0; i < n; ++i) {
            int v = i * 255 / (n - 1);
            set(i, v, v, v);
        }
        return p;
    }
    if (n == 16) {
        static const uint8_t k16[16][3] = {
            {0, 0, 0}, {128, 0, 0}, {0, 128, 0}, {128, 128, 0},
            {0, 0, 128}, {128, 0, 128}, {0, 128, 128}, {192, 192, 192},
            {128, 128, 128}, {255, 0, 0}, {0, 255, 0}, {255, 255, 0},
            {0, 0, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};
        std::memcpy(p.rgb, k16, sizeof k16);
        return p;
    }
    int k = 2;
    while ((k + 1) * (k + 1) * (k + 1) <= n)
        ++k;
    int i = 0;
    for (int r = 0; r < k; ++r)
        for (int g = 0; g < k; ++g)
            for (int b = 0; b < k; ++b)
                set(i++, r * 255 / (k - 1), g * 255 / (k - 1), b * 255 / (k - 1));
    const int greys = n - i;
    for (int j = 1; j <= greys; ++j) {
        int v = j * 255 / (greys + 1);
        set(i++, v, v, v);
    }
    return p;
}

// Median cut over a histogram of 5 bits a channel.
struct Box {
    int lo[3], hi[3];  // inclusive, in 5-bit units
    uint64_t pixels;
    uint64_t marginal[3][32];  // pixels of the box by each channel's value
};

constexpr int kCells = 32 * 32 * 32;
inline int CellOf(int r, int g, int b) { return (r << 10) | (g << 5) | b; }

struct Histogram {
    std::vector<uint32_t> count = std::vector<uint32_t>(kCells);
    std::vector<uint64_t> sum = std::vector<uint64_t>(size_t(kCells) * 3);
};

// One pass over the box: its pixels, its tight bounds and its marginals.
void MeasureBox(const Histogram& h, Box& b)
{
    int lo[3] = {31, 31, 31}, hi[3] = {0, 0, 0};
    uint64_t pixels = 0;
    std::memset(b.marginal, 0, sizeof b.marginal);
    for (int r = b.lo[0]; r <= b.hi[0]; ++r)
        for (int g = b.lo[1]; g <= b.hi[1]; ++g)
            for (int bl = b.lo[2]; bl <= b.hi[2]; ++bl) {
                uint32_t c = h.count[size_t(CellOf(r, g, bl))];
                if (c == 0)
                    continue;
                pixels += c;
                const int v[3] = {r, g, bl};
                for (int k = 0; k < 3; ++k) {
                    lo[k] = std::min(lo[k], v[k]);
                    hi[k] = std::max(hi[k], v[k]);
                    b.marginal[k][v[k]] += c;
                }
            }
    b.pixels = pixels;
    if (pixels == 0)
        return;
    for (int k = 0; k < 3; ++k) {
        b.lo[k] = lo[k];
        b.hi[k] = hi[k];
    }
}

Palette MedianCut(const Histogram& h, int n)
{
    std::vector<Box> boxes;
    Box all{{0, 0, 0}, {31, 31, 31}, 0, {}};
    MeasureBox(h, all);
    boxes.push_back(all);
    while (int(boxes.size()) < n) {
        // Split the box with the most pixels times its longest side.
        int best = -1;
        uint64_t bestScore = 0;
        for (size_t i = 0; i < boxes.size(); ++i) {
            const Box& b = boxes[i];
            int side = std::max({b.hi[0] - b.lo[0], b.hi[1] - b.lo[1], b.hi[2] - b.lo[2]});
            uint64_t score = b.pixels * uint64_t(side);
            if (side > 0 && score > bestScore) {
                bestScore = score;
                best = int(i);
            }
        }
        if (best < 0)
            break;  // every box is a single cell: the image has fewer colours
        Box b = boxes[size_t(best)];
        int axis = 0;
        for (int k = 1; k < 3; ++k)
            if (b.hi[k] - b.lo[k] > b.hi[axis] - b.lo[axis])
                axis = k;
        uint64_t below = 0;
        int cut = b.lo[axis];
        for (int v = b.lo[axis]; v < b.hi[axis]; ++v) {
            below += b.marginal[axis][v];
            cut = v;
            if (below * 2 >= b.pixels)
                break;
        }
        Box a = b, c = b;
        a.hi[axis] = cut;
        c.lo[axis] = cut + 1;
        MeasureBox(h, a);
        MeasureBox(h, c);
        boxes[size_t(best)] = a;
        boxes.push_back(c);
    }
    Palette p;
    p.count = int(boxes.size());
    for (size_t i = 0; i < boxes.size(); ++i) {
        const Box& b = boxes[i];
        uint64_t s[3] = {0, 0, 0}, cnt = 0;
        for (int r = b.lo[0]; r <= b.hi[0]; ++r)
            for (int g = b.lo[1]; g <= b.hi[1]; ++g)
                for (int bl = b.lo[2]; bl <= b.hi[2]; ++bl) {
                    size_t cell = size_t(CellOf(r, g, bl));
                    cnt += h.count[cell];
                    for (int k = 0; k < 3; ++k)
                        s[k] += h.sum[cell * 3 + size_t(k)];
                }
        for (int k = 0; k < 3; ++k)
            p.rgb[i][k] = uint8_t(cnt ? (s[k] + cnt / 2) / cnt : 0);
    }
    return p;
}

// The nearest palette entry of a colour, looked up by 6 bits a channel and
// worked out on first use for the middle of that cell. The table comes in
// pages, one for each red level, so that a small image fills little of it.
class NearestCache {
public:
    explicit NearestCache(const Palette& p) : pal_(p) {}

    int Get(int r, int g, int b)
    {
        std::unique_ptr<uint16_t[]>& page = pages_[r >> 2];
        if (!page) {
            page.reset(new uint16_t[4096]);
            std::fill(page.get(), page.get() + 4096, uint16_t(0xFFFF));
        }
        uint16_t& v = page[size_t((g >> 2) << 6 | (b >> 2))];
        if (v == 0xFFFF)
            v = uint16_t(Search((r & ~3) | 2, (g & ~3) | 2, (b & ~3) | 2));
        return v;
    }

private:
    int Search(int r, int g, int b) const
    {
        int best = 0;
        int bestD = 1 << 30;
        for (int i = 0; i < pal_.count; ++i) {
            int dr = r - pal_.rgb[i][0], dg = g - pal_.rgb[i][1], db = b - pal_.rgb[i][2];
            // Weighted as the eye weighs the channels.
            int d = 3 * dr * dr + 4 * dg * dg + 2 * db * db;
            if (d < bestD) {
                bestD = d;
                best = i;
            }
        }
        return best;
    }

    const Palette& pal_;
    std::unique_ptr<uint16_t[]> pages_[64];
};

// Threshold matrices: offsets around zero, one per position of a square cell,
// in 1/256 of the spread of the quantiser.
struct Matrix {
    int size = 1;
    std::vector<int> offset;  // -128..127
};

Matrix BayerMatrix()
{
    static const uint8_t k8[8][8] = {
        {0, 32, 8, 40, 2, 34, 10, 42}, {48, 16, 56, 24, 50, 18, 58, 26},
        {12, 44, 4, 36, 14, 46, 6, 38}, {60, 28, 52, 20, 62, 30, 54, 22},
        {3, 35, 11, 43, 1, 33, 9, 41}, {51, 19, 59, 27, 49, 17, 57, 25},
        {15, 47, 7, 39, 13, 45, 5, 37}, {63, 31, 55, 23, 61, 29, 53, 21}};
    Matrix m;
    m.size = 8;
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            m.offset.push_back(128 - (k8[y][x] * 4 + 2));
    return m;
}

// A clustered-dot screen: the dark dot grows from the middle of each cell,
// so the cell's middle has the highest threshold.
Matrix HalftoneMatrix(int cell)
{
    Matrix m;
    m.size = cell;
    const int n = cell * cell;
    std::vector<std::pair<double, int>> order;
    for (int y = 0; y < cell; ++y)
        for (int x = 0; x < cell; ++x) {
            double dx = x + 0.5 - cell / 2.0, dy = y + 0.5 - cell / 2.0;
            order.push_back({dx * dx + dy * dy + (y * cell + x) * 1e-9, y * cell + x});
        }
    std::sort(order.begin(), order.end());
    m.offset.assign(size_t(n), 0);
    for (int rank = 0; rank < n; ++rank) {
        int threshold = 255 - ((2 * rank + 1) * 255) / (2 * n);  // centre highest
        m.offset[size_t(order[size_t(rank)].second)] = 128 - threshold;
    }
    return m;
}

int HalftoneCell(const Image& image, long screenPeriod)
{
    if (screenPeriod <= 0)
        return 6;
    int32_t ppm = image.Header()->xPelsPerMeter;
    if (ppm <= 0)
        ppm = 11811;  // 300 dots per inch
    // period in tenths of a micron = 1e-7 m
    double cell = double(screenPeriod) * 1e-7 * double(ppm);
    int c = int(std::lround(cell));
    return std::clamp(c, 2, 32);
}

// Maps a colour to its palette entry.
struct PaletteMapper {
    NearestCache& cache;
    const Palette& pal;
    int Map(int r, int g, int b, int q[3])
    {
        int i = cache.Get(r, g, b);
        q[0] = pal.rgb[i][0];
        q[1] = pal.rgb[i][1];
        q[2] = pal.rgb[i][2];
        return i;
    }
};

// Rounds each channel to the levels of its bits.
struct ChannelMapper {
    uint8_t lut[3][256];
    int Map(int r, int g, int b, int q[3])
    {
        q[0] = lut[0][r];
        q[1] = lut[1][g];
        q[2] = lut[2][b];
        return 0;
    }
};

// Runs one method over the image (24 or 32 bits). For each row it hands
// `sink` the palette indices and the chosen colours (red, green, blue).
template <class Mapper, class Sink>
void Quantise(const Image& src, int method, const Matrix& matrix, const int spread[3], Mapper& mapper, Sink sink)
{
    const int32_t w = src.Width(), h = src.Height();
    const int B = src.Bits() / 8;
    std::vector<uint8_t> idx(static_cast<size_t>(w));
    std::vector<uint8_t> rgb(size_t(w) * 3);
    std::vector<int32_t> cur, next;
    if (method == kReduceDiffuse) {
        cur.assign((size_t(w) + 2) * 3, 0);
        next.assign((size_t(w) + 2) * 3, 0);
    }
    // Offsets of the matrix scaled to each channel's spread.
    std::vector<int> off[3];
    for (int c = 0; c < 3; ++c)
        for (int o : matrix.offset)
            off[c].push_back(o * spread[c] / 256);
    int q[3];
    for (int32_t y = 0; y < h; ++y) {
        const uint8_t* s = src.Row(y);
        if (method == kReduceSnap) {
            for (int32_t x = 0; x < w; ++x, s += B) {
                idx[size_t(x)] = uint8_t(mapper.Map(s[2], s[1], s[0], q));
                uint8_t* o = &rgb[size_t(x) * 3];
                o[0] = uint8_t(q[0]);
                o[1] = uint8_t(q[1]);
                o[2] = uint8_t(q[2]);
            }
        } else if (method == kReduceDiffuse) {
            std::fill(next.begin(), next.end(), 0);
            int32_t* e = cur.data() + 3;   // e[-3..] is the pixel left of x
            int32_t* n = next.data() + 3;
            for (int32_t x = 0; x < w; ++x, s += B, e += 3, n += 3) {
                const int r = Clamp255(s[2] + ((e[0] + 8) >> 4));
                const int g = Clamp255(s[1] + ((e[1] + 8) >> 4));
                const int b = Clamp255(s[0] + ((e[2] + 8) >> 4));
                idx[size_t(x)] = uint8_t(mapper.Map(r, g, b, q));
                uint8_t* o = &rgb[size_t(x) * 3];
                o[0] = uint8_t(q[0]);
                o[1] = uint8_t(q[1]);
                o[2] = uint8_t(q[2]);
                const int err[3] = {r - q[0], g - q[1], b - q[2]};
                for (int c = 0; c < 3; ++c) {
                    e[3 + c] += 7 * err[c];
                    n[c - 3] += 3 * err[c];
                    n[c] += 5 * err[c];
                    n[3 + c] += err[c];
                }
            }
            std::swap(cur, next);
        } else {
            const int* row0 = off[0].data() + (y % matrix.size) * matrix.size;
            const int* row1 = off[1].data() + (y % matrix.size) * matrix.size;
            const int* row2 = off[2].data() + (y % matrix.size) * matrix.size;
            for (int32_t x = 0, m = 0; x < w; ++x, s += B) {
                const int r = Clamp255(s[2] + row0[m]);
                const int g = Clamp255(s[1] + row1[m]);
                const int b = Clamp255(s[0] + row2[m]);
                if (++m == matrix.size)
                    m = 0;
                idx[size_t(x)] = uint8_t(mapper.Map(r, g, b, q));
                uint8_t* o = &rgb[size_t(x) * 3];
                o[0] = uint8_t(q[0]);
                o[1] = uint8_t(q[1]);
                o[2] = uint8_t(q[2]);
            }
        }
        sink(y, idx.data(), rgb.data());
    }
}

Matrix MatrixOf(const Image& image, const ReduceParams& params)
{
    if (params.method == kReduceHalftone)
        return HalftoneMatrix(HalftoneCell(image, params.screenPeriod));
    if (params.method == kReduceDither)
        return BayerMatrix();
    Matrix none;
    none.offset.assign(1, 0);
    return none;
}

short ReduceToPalette(Image& image, const ReduceParams& params)
{
    const int depth = params.depth;
    const int outBits = depth == 1 ? 1 : (depth <= 4 ? 4 : 8);
    const int wanted = 1 << depth;
    Palette pal;
    if (params.paletteColors == 0) {
        pal = FixedPalette(wanted);
    } else {
        long n = params.paletteColors == 1 ? wanted : std::min<long>(params.paletteColors, wanted);
        Histogram h;
        const int B = image.Bits() / 8;
        for (int32_t y = 0; y < image.Height(); ++y) {
            const uint8_t* s = image.Row(y);
            for (int32_t x = 0; x < image.Width(); ++x, s += B) {
                size_t cell = size_t(CellOf(s[2] >> 3, s[1] >> 3, s[0] >> 3));
                ++h.count[cell];
                h.sum[cell * 3] += s[2];
                h.sum[cell * 3 + 1] += s[1];
                h.sum[cell * 3 + 2] += s[0];
            }
        }
        pal = MedianCut(h, int(std::max(2L, n)));
    }
    Image out;
    short rc = MakeImage(image.Width(), image.Height(), outBits, &out, false);
    if (rc != kEngineOk)
        return rc;
    CopyResolution(image, out);
    RgbQuad* t = out.Table();
    std::memset(t, 0, out.Colors() * sizeof(RgbQuad));
    for (int i = 0; i < pal.count; ++i)
        t[i] = {pal.rgb[i][2], pal.rgb[i][1], pal.rgb[i][0], 0};
    NearestCache cache(pal);
    PaletteMapper mapper{cache, pal};
    // The spread of the ordered methods: one step of a colour cube of the
    // palette's size.
    int k = 2;
    while ((k + 1) * (k + 1) * (k + 1) <= pal.count)
        ++k;
    const int step = 255 / (k - 1);
    const int spread[3] = {step, step, step};
    Quantise(image, params.method, MatrixOf(image, params), spread, mapper,
             [&](int32_t y, const uint8_t* idx, const uint8_t*) { PackIndexRow(idx, out, y); });
    image = std::move(out);
    return kEngineOk;
}

short ReduceChannels(Image& image, const ReduceParams& params)
{
    // Bits a channel: a third each, the remainder to green, then red.
    int bits[3] = {params.depth / 3, params.depth / 3, params.depth / 3};
    int rest = params.depth % 3;
    if (rest > 0)
        ++bits[1];
    if (rest > 1)
        ++bits[0];
    ChannelMapper mapper;
    int spread[3];
    for (int c = 0; c < 3; ++c) {
        const int levels = 1 << bits[c];
        spread[c] = 255 / (levels - 1);
        for (int v = 0; v < 256; ++v) {
            int qv = (v * (levels - 1) + 127) / 255;
            mapper.lut[c][v] = uint8_t(qv * 255 / (levels - 1));
        }
    }
    Image out;
    short rc = MakeImage(image.Width(), image.Height(), 24, &out, false);
    if (rc != kEngineOk)
        return rc;
    CopyResolution(image, out);
    Quantise(image, params.method, MatrixOf(image, params), spread, mapper,
             [&](int32_t y, const uint8_t*, const uint8_t* rgb) {
                 uint8_t* d = out.Row(y);
                 for (int32_t x = 0; x < out.Width(); ++x, d += 3, rgb += 3) {
                     d[0] = rgb[2];
                     d[1] = rgb[1];
                     d[2] = rgb[0];
                 }
             });
    image = std::move(out);
    return kEngineOk;
}

}  // namespace

short Reduce(Image& image, const ReduceParams& params)
{
    if (image.Empty())
        return kEngineNoImage;
    if (params.depth < 1 || (params.depth > 24 && params.depth != 32) || params.method < 0 || params.method > 3 ||
        params.paletteColors < 0 || params.screenPeriod < 0)
        return kEngineBadArgument;
    if (params.depth == 24 || params.depth == 32)
        return ConvertDepth(image, params.depth);
    if (image.Bits() <= 8) {
        short rc = ConvertDepth(image, 24);
        if (rc != kEngineOk)
            return rc;
    }
    return params.depth <= 8 ? ReduceToPalette(image, params) : ReduceChannels(image, params);
}

}  // namespace ravi
