// Pixel operations that change the geometry: turning, flipping, resizing.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "raster_internal.h"
#include "raster_kernels.h"

namespace ravi {

namespace {

constexpr double kPi = 3.14159265358979323846;

// Copies pixel (sx, sy) of src to (dx, dy) of dst; same depth.
template <int B>
inline void CopyPixel(const uint8_t* s, uint8_t* d)
{
    if constexpr (B == 1) {
        *d = *s;
    } else if constexpr (B == 3) {
        d[0] = s[0];
        d[1] = s[1];
        d[2] = s[2];
    } else {
        std::memcpy(d, s, 4);
    }
}

// Turns by a quarter (quarters 1: 90 clockwise, 3: 270 clockwise) by whole
// bytes, in tiles so that the column reads stay in the cache.
template <int B>
void TurnQuarterBytes(const Image& src, Image& dst, int quarters)
{
    const int32_t w = src.Width(), h = src.Height();
    constexpr int32_t kTile = 32;
    // Row pointers of the source, top-down.
    std::vector<const uint8_t*> rows(static_cast<size_t>(h));
    for (int32_t y = 0; y < h; ++y)
        rows[size_t(y)] = src.Row(y);
    for (int32_t ty = 0; ty < w; ty += kTile) {          // destination rows
        const int32_t yEnd = std::min(w, ty + kTile);
        for (int32_t tx = 0; tx < h; tx += kTile) {      // destination columns
            const int32_t xEnd = std::min(h, tx + kTile);
            for (int32_t y = ty; y < yEnd; ++y) {
                uint8_t* d = dst.Row(y) + size_t(tx) * B;
                if (quarters == 1) {
                    // out(x, y) = in(y, h - 1 - x)
                    const size_t col = size_t(y) * B;
                    for (int32_t x = tx; x < xEnd; ++x, d += B)
                        CopyPixel<B>(rows[size_t(h - 1 - x)] + col, d);
                } else {
                    // out(x, y) = in(w - 1 - y, x)
                    const size_t col = size_t(w - 1 - y) * B;
                    for (int32_t x = tx; x < xEnd; ++x, d += B)
                        CopyPixel<B>(rows[size_t(x)] + col, d);
                }
            }
        }
    }
}

short TurnQuarter(Image& image, int quarters)
{
    Image dst;
    short rc = MakeImage(image.Height(), image.Width(), image.Bits(), &dst, image.Bits() < 8);
    if (rc != kEngineOk)
        return rc;
    std::memcpy(dst.Table(), image.Table(), image.Colors() * sizeof(RgbQuad));
    dst.Header()->xPelsPerMeter = image.Header()->yPelsPerMeter;
    dst.Header()->yPelsPerMeter = image.Header()->xPelsPerMeter;
    switch (image.Bits()) {
    case 8: TurnQuarterBytes<1>(image, dst, quarters); break;
    case 24: TurnQuarterBytes<3>(image, dst, quarters); break;
    case 32: TurnQuarterBytes<4>(image, dst, quarters); break;
    default: {
        const int32_t w = image.Width(), h = image.Height();
        for (int32_t y = 0; y < w; ++y)
            for (int32_t x = 0; x < h; ++x)
                dst.SetPixelValue(x, y, quarters == 1 ? image.PixelValue(y, h - 1 - x) : image.PixelValue(w - 1 - y, x));
        break;
    }
    }
    image = std::move(dst);
    return kEngineOk;
}

void FlipTopBottom(Image& image)
{
    std::vector<uint8_t> tmp(image.Stride());
    for (int32_t y = 0, z = image.Height() - 1; y < z; ++y, --z) {
        std::memcpy(tmp.data(), image.Row(y), image.Stride());
        std::memcpy(image.Row(y), image.Row(z), image.Stride());
        std::memcpy(image.Row(z), tmp.data(), image.Stride());
    }
}

void FlipLeftRight(Image& image)
{
    const int32_t w = image.Width();
    const int B = BytesPerPixel(image.Bits());
    for (int32_t y = 0; y < image.Height(); ++y) {
        if (B == 0) {
            for (int32_t x = 0, z = w - 1; x < z; ++x, --z) {
                uint32_t a = image.PixelValue(x, y), b = image.PixelValue(z, y);
                image.SetPixelValue(x, y, b);
                image.SetPixelValue(z, y, a);
            }
            continue;
        }
        uint8_t* r = image.Row(y);
        for (int32_t x = 0, z = w - 1; x < z; ++x, --z)
            for (int c = 0; c < B; ++c)
                std::swap(r[x * B + c], r[z * B + c]);
    }
}

// Bilinear turn by any angle onto a grown canvas. Source and result have
// B bytes a pixel (3 or 4). Fixed point: 16 bits of fraction for the
// coordinates, 8 for the weights.
template <int B>
void TurnAnyBytes(const Image& src, Image& dst, double angle, uint32_t background)
{
    const int32_t w = src.Width(), h = src.Height();
    const int32_t W = dst.Width(), H = dst.Height();
    const double rad = angle * kPi / 180.0;
    const double c = std::cos(rad), s = std::sin(rad);
    const double cx = w / 2.0, cy = h / 2.0, cX = W / 2.0, cY = H / 2.0;
    const uint8_t bg[4] = {uint8_t(background), uint8_t(background >> 8), uint8_t(background >> 16), 0};
    std::vector<const uint8_t*> rows(static_cast<size_t>(h));
    for (int32_t y = 0; y < h; ++y)
        rows[size_t(y)] = src.Row(y);
    const int64_t stepX = std::llround(c * 65536.0);   // d(sx)/dX
    const int64_t stepY = std::llround(-s * 65536.0);  // d(sy)/dX
    for (int32_t Y = 0; Y < H; ++Y) {
        uint8_t* d = dst.Row(Y);
        // Centre of pixel (0, Y) of the result, back in the source.
        const double dx = 0.5 - cX, dy = Y + 0.5 - cY;
        int64_t sx = std::llround((cx + dx * c + dy * s - 0.5) * 65536.0);
        int64_t sy = std::llround((cy - dx * s + dy * c - 0.5) * 65536.0);
        for (int32_t X = 0; X < W; ++X, d += B, sx += stepX, sy += stepY) {
            const int64_t ix = sx >> 16, iy = sy >> 16;
            const uint32_t fx = uint32_t(sx >> 8) & 255, fy = uint32_t(sy >> 8) & 255;
            if (ix >= 0 && iy >= 0 && ix < w - 1 && iy < h - 1) {
                const uint8_t* p = rows[size_t(iy)] + ix * B;
                const uint8_t* q = rows[size_t(iy + 1)] + ix * B;
                for (int k = 0; k < 3; ++k) {
                    uint32_t top = p[k] * (256 - fx) + p[k + B] * fx;
                    uint32_t bot = q[k] * (256 - fx) + q[k + B] * fx;
                    d[k] = uint8_t((top * (256 - fy) + bot * fy + 32768) >> 16);
                }
                if constexpr (B == 4)
                    d[3] = 0;
                continue;
            }
            if (ix < -1 || iy < -1 || ix >= w || iy >= h) {
                std::memcpy(d, bg, B);
                continue;
            }
            // At the edge: neighbours outside the image take the background,
            // so that the border fades into it instead of staircasing.
            const uint8_t* n[4];
            for (int k = 0; k < 4; ++k) {
                int64_t nx = ix + (k & 1), ny = iy + (k >> 1);
                n[k] = (nx >= 0 && ny >= 0 && nx < w && ny < h) ? rows[size_t(ny)] + nx * B : bg;
            }
            for (int k = 0; k < 3; ++k) {
                uint32_t top = n[0][k] * (256 - fx) + n[1][k] * fx;
                uint32_t bot = n[2][k] * (256 - fx) + n[3][k] * fx;
                d[k] = uint8_t((top * (256 - fy) + bot * fy + 32768) >> 16);
            }
            if constexpr (B == 4)
                d[3] = 0;
        }
    }
}

short TurnAny(Image& image, int angle, uint32_t background)
{
    if (image.Bits() <= 8) {
        short rc = ConvertDepth(image, 24);
        if (rc != kEngineOk)
            return rc;
    }
    int32_t W = 0, H = 0;
    RotatedSize(image.Width(), image.Height(), angle, &W, &H);
    Image dst;
    short rc = MakeImage(W, H, image.Bits(), &dst, false);
    if (rc != kEngineOk)
        return rc;
    CopyResolution(image, dst);
    if (image.Bits() == 24)
        TurnAnyBytes<3>(image, dst, angle, background);
    else
        TurnAnyBytes<4>(image, dst, angle, background);
    image = std::move(dst);
    return kEngineOk;
}

}  // namespace

void RotatedSize(int32_t w, int32_t h, int angle, int32_t* outW, int32_t* outH)
{
    int a = ((angle % 360) + 360) % 360;
    if (a % 90 == 0) {
        *outW = (a % 180 == 0) ? w : h;
        *outH = (a % 180 == 0) ? h : w;
        return;
    }
    const double rad = a * kPi / 180.0;
    const double c = std::fabs(std::cos(rad)), s = std::fabs(std::sin(rad));
    // A hair below one half so that exact products do not round up.
    *outW = int32_t(std::floor(w * c + h * s + 0.4999));
    *outH = int32_t(std::floor(w * s + h * c + 0.4999));
    if (*outW < 1)
        *outW = 1;
    if (*outH < 1)
        *outH = 1;
}

short Rotate(Image& image, int angle, int flipV, int flipH, uint32_t background)
{
    if (image.Empty())
        return kEngineNoImage;
    if ((flipV != 0 && flipV != 1) || (flipH != 0 && flipH != 1) || background > 0xFFFFFF)
        return kEngineBadArgument;
    // The helpers below turn clockwise; the caller's angle counts the other way.
    const int a = ((-(angle % 360)) + 360) % 360;
    short rc = kEngineOk;
    if (a == 180) {
        // Half a turn is both flips.
        flipV ^= 1;
        flipH ^= 1;
    } else if (a == 90 || a == 270) {
        rc = TurnQuarter(image, a / 90);
    } else if (a != 0) {
        int32_t W = 0, H = 0;
        RotatedSize(image.Width(), image.Height(), a, &W, &H);
        if (W > kMaxSide || H > kMaxSide)
            return kEngineBadSize;
        rc = TurnAny(image, a, background);
    }
    if (rc != kEngineOk)
        return rc;
    if (flipV)
        FlipTopBottom(image);
    if (flipH)
        FlipLeftRight(image);
    return kEngineOk;
}

namespace {

// The source pixels that make one result pixel along an axis, with weights
// that sum to 1 << kWeightBits.
constexpr int kWeightBits = 14;

struct AxisTaps {
    std::vector<int32_t> first;   // first source index of each result index
    std::vector<int32_t> count;   // number of taps
    std::vector<int32_t> offset;  // where its weights start in `weights`
    std::vector<int32_t> weights;
};

// Area averaging when the axis shrinks, bilinear when it grows.
AxisTaps MakeTaps(int32_t from, int32_t to)
{
    AxisTaps t;
    t.first.resize(size_t(to));
    t.count.resize(size_t(to));
    t.offset.resize(size_t(to));
    const double scale = double(from) / double(to);
    std::vector<double> wts;
    for (int32_t o = 0; o < to; ++o) {
        wts.clear();
        int32_t first = 0;
        if (to < from) {
            const double lo = o * scale, hi = (o + 1) * scale;
            first = int32_t(std::floor(lo));
            int32_t last = std::min(from - 1, int32_t(std::ceil(hi)) - 1);
            for (int32_t i = first; i <= last; ++i)
                wts.push_back(std::min(hi, double(i + 1)) - std::max(lo, double(i)));
        } else {
            double sx = (o + 0.5) * scale - 0.5;
            if (sx < 0)
                sx = 0;
            first = int32_t(std::floor(sx));
            if (first >= from - 1) {
                first = from - 1;
                wts.push_back(1.0);
            } else {
                double f = sx - first;
                wts.push_back(1.0 - f);
                wts.push_back(f);
            }
        }
        double sum = 0;
        for (double v : wts)
            sum += v;
        t.first[size_t(o)] = first;
        t.count[size_t(o)] = int32_t(wts.size());
        t.offset[size_t(o)] = int32_t(t.weights.size());
        int32_t given = 0;
        for (size_t i = 0; i < wts.size(); ++i) {
            int32_t v = int32_t(std::lround(wts[i] / sum * (1 << kWeightBits)));
            if (i + 1 == wts.size())
                v = (1 << kWeightBits) - given;  // the rounding goes to the last
            given += v;
            t.weights.push_back(v);
        }
    }
    return t;
}

// Smooth resize of an image of C bytes a pixel (1, 3 or 4), every byte a
// channel of its own: rows first (into one accumulator row), then columns.
void ResizeSmoothBytes(const Image& src, Image& dst, int C)
{
    const int32_t w = src.Width(), h = src.Height(), W = dst.Width(), H = dst.Height();
    const AxisTaps tx = MakeTaps(w, W), ty = MakeTaps(h, H);
    const size_t rowBytes = size_t(w) * size_t(C);
    std::vector<uint32_t> acc(rowBytes);
    std::vector<uint8_t> mid(rowBytes);
    for (int32_t Y = 0; Y < H; ++Y) {
        const int32_t first = ty.first[size_t(Y)], n = ty.count[size_t(Y)];
        const int32_t* wy = ty.weights.data() + ty.offset[size_t(Y)];
        if (n == 1) {
            std::memcpy(mid.data(), src.Row(first), rowBytes);
        } else {
            {
                const uint8_t* s = src.Row(first);
                const uint32_t k = uint32_t(wy[0]);
                for (size_t i = 0; i < rowBytes; ++i)
                    acc[i] = s[i] * k;
            }
            for (int32_t j = 1; j < n; ++j) {
                const uint8_t* s = src.Row(first + j);
                const uint32_t k = uint32_t(wy[j]);
                if (k == 0)
                    continue;
                for (size_t i = 0; i < rowBytes; ++i)
                    acc[i] += s[i] * k;
            }
            for (size_t i = 0; i < rowBytes; ++i)
                mid[i] = uint8_t((acc[i] + (1u << (kWeightBits - 1))) >> kWeightBits);
        }
        uint8_t* d = dst.Row(Y);
        for (int32_t X = 0; X < W; ++X) {
            const int32_t fx = tx.first[size_t(X)], m = tx.count[size_t(X)];
            const int32_t* wx = tx.weights.data() + tx.offset[size_t(X)];
            const uint8_t* s = mid.data() + size_t(fx) * size_t(C);
            for (int c = 0; c < C; ++c) {
                uint32_t sum = 0;
                for (int32_t j = 0; j < m; ++j)
                    sum += s[size_t(j) * size_t(C) + size_t(c)] * uint32_t(wx[j]);
                d[size_t(X) * size_t(C) + size_t(c)] = uint8_t((sum + (1u << (kWeightBits - 1))) >> kWeightBits);
            }
        }
    }
}

void ResizeNearest(const Image& src, Image& dst)
{
    const int32_t w = src.Width(), h = src.Height(), W = dst.Width(), H = dst.Height();
    std::vector<int32_t> xmap(static_cast<size_t>(W));
    for (int32_t X = 0; X < W; ++X)
        xmap[size_t(X)] = int32_t((int64_t(2 * X + 1) * w) / (2 * int64_t(W)));
    const int B = BytesPerPixel(src.Bits());
    for (int32_t Y = 0; Y < H; ++Y) {
        const int32_t y = int32_t((int64_t(2 * Y + 1) * h) / (2 * int64_t(H)));
        const uint8_t* s = src.Row(y);
        uint8_t* d = dst.Row(Y);
        switch (B) {
        case 1:
            for (int32_t X = 0; X < W; ++X)
                d[X] = s[xmap[size_t(X)]];
            break;
        case 3:
            for (int32_t X = 0; X < W; ++X, d += 3)
                CopyPixel<3>(s + size_t(xmap[size_t(X)]) * 3, d);
            break;
        case 4:
            for (int32_t X = 0; X < W; ++X, d += 4)
                CopyPixel<4>(s + size_t(xmap[size_t(X)]) * 4, d);
            break;
        default:
            for (int32_t X = 0; X < W; ++X)
                dst.SetPixelValue(X, Y, src.PixelValue(xmap[size_t(X)], y));
            break;
        }
    }
}

}  // namespace

short ResizeInto(const Image& source, int32_t width, int32_t height, int smooth, Image* out)
{
    if (source.Empty())
        return kEngineNoImage;
    if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide)
        return kEngineBadSize;
    if (smooth != 0 && smooth != 1)
        return kEngineBadArgument;
    if (width == source.Width() && height == source.Height()) {
        *out = source;
        return kEngineOk;
    }
    // Averaging palette indices means nothing: such a picture is widened
    // first, on a copy.
    const Image* from = &source;
    Image widened;
    if (smooth && source.Bits() <= 8 && !IsGreyRamp(source)) {
        widened = source;
        const short rc = ConvertDepth(widened, 24);
        if (rc != kEngineOk)
            return rc;
        from = &widened;
    }
    Image dst;
    const short rc = MakeImage(width, height, from->Bits(), &dst, from->Bits() < 8 && !smooth);
    if (rc != kEngineOk)
        return rc;
    CopyResolution(*from, dst);
    std::memcpy(dst.Table(), from->Table(), from->Colors() * sizeof(RgbQuad));
    if (smooth)
        ResizeSmoothBytes(*from, dst, from->Bits() / 8);
    else
        ResizeNearest(*from, dst);
    *out = std::move(dst);
    return kEngineOk;
}

short Resize(Image& image, int32_t width, int32_t height, int smooth)
{
    if (!image.Empty() && width == image.Width() && height == image.Height() && (smooth == 0 || smooth == 1))
        return kEngineOk;
    Image resized;
    const short rc = ResizeInto(image, width, height, smooth, &resized);
    if (rc == kEngineOk)
        image = std::move(resized);
    return rc;
}

}  // namespace ravi
