// Pixel operations that change colours but not the geometry.
#include "raster_kernels.h"

#include <cmath>
#include <cstring>

#include "raster_internal.h"

namespace ravi {

short ToTrueColor(const Image& src, int bits, Image* out)
{
    Image dst;
    short rc = MakeImage(src.Width(), src.Height(), bits, &dst, false);
    if (rc != kEngineOk)
        return rc;
    CopyResolution(src, dst);
    const int outB = bits / 8;
    const RgbQuad* table = src.Table();
    for (int32_t y = 0; y < src.Height(); ++y) {
        const uint8_t* s = src.Row(y);
        uint8_t* d = dst.Row(y);
        switch (src.Bits()) {
        case 24:
        case 32: {
            const int inB = src.Bits() / 8;
            if (inB == outB) {
                std::memcpy(d, s, size_t(src.Width()) * size_t(inB));
            } else {
                for (int32_t x = 0; x < src.Width(); ++x, s += inB, d += outB) {
                    d[0] = s[0];
                    d[1] = s[1];
                    d[2] = s[2];
                    if (outB == 4)
                        d[3] = 0;
                }
            }
            break;
        }
        default:
            for (int32_t x = 0; x < src.Width(); ++x, d += outB) {
                const RgbQuad& q = table[src.PixelValue(x, y)];
                d[0] = q.blue;
                d[1] = q.green;
                d[2] = q.red;
                if (outB == 4)
                    d[3] = 0;
            }
            break;
        }
    }
    *out = std::move(dst);
    return kEngineOk;
}

bool IsGreyRamp(const Image& image)
{
    if (image.Bits() != 8)
        return false;
    const RgbQuad* t = image.Table();
    for (int i = 0; i < 256; ++i)
        if (t[i].red != i || t[i].green != i || t[i].blue != i)
            return false;
    return true;
}

void CopyResolution(const Image& from, Image& to)
{
    if (from.Empty() || to.Empty())
        return;
    to.Header()->xPelsPerMeter = from.Header()->xPelsPerMeter;
    to.Header()->yPelsPerMeter = from.Header()->yPelsPerMeter;
}

void PackIndexRow(const uint8_t* indices, Image& image, int32_t y)
{
    uint8_t* d = image.Row(y);
    const int32_t w = image.Width();
    switch (image.Bits()) {
    case 8:
        std::memcpy(d, indices, size_t(w));
        break;
    case 4:
        for (int32_t x = 0; x + 1 < w; x += 2)
            d[x >> 1] = uint8_t((indices[x] << 4) | (indices[x + 1] & 15));
        if (w & 1)
            d[w >> 1] = uint8_t(indices[w - 1] << 4);
        break;
    case 1: {
        std::memset(d, 0, image.Stride());
        for (int32_t x = 0; x < w; ++x)
            if (indices[x] & 1)
                d[x >> 3] |= uint8_t(0x80 >> (x & 7));
        break;
    }
    default:
        break;
    }
}

namespace {

short CheckImage(const Image& image)
{
    return image.Empty() ? kEngineNoImage : kEngineOk;
}

// Applies one table of 256 values per channel: to the colour table of a
// palette image, to the pixels of the others.
void ApplyChannelTables(Image& image, const uint8_t* red, const uint8_t* green, const uint8_t* blue)
{
    if (image.Bits() <= 8) {
        RgbQuad* t = image.Table();
        for (uint32_t i = 0; i < image.Colors(); ++i) {
            t[i].red = red[t[i].red];
            t[i].green = green[t[i].green];
            t[i].blue = blue[t[i].blue];
        }
        return;
    }
    const int B = image.Bits() / 8;
    for (int32_t y = 0; y < image.Height(); ++y) {
        uint8_t* p = image.Row(y);
        uint8_t* end = p + size_t(image.Width()) * size_t(B);
        for (; p < end; p += B) {
            p[0] = blue[p[0]];
            p[1] = green[p[1]];
            p[2] = red[p[2]];
        }
    }
}

void ApplyOneTable(Image& image, const uint8_t* lut)
{
    ApplyChannelTables(image, lut, lut, lut);
}

}  // namespace

short ReverseBW(Image& image)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    if (image.Bits() <= 8) {
        RgbQuad* t = image.Table();
        for (uint32_t i = 0; i < image.Colors(); ++i) {
            bool black = t[i].red == 0 && t[i].green == 0 && t[i].blue == 0;
            bool white = t[i].red == 255 && t[i].green == 255 && t[i].blue == 255;
            if (black)
                t[i].red = t[i].green = t[i].blue = 255;
            else if (white)
                t[i].red = t[i].green = t[i].blue = 0;
        }
        return kEngineOk;
    }
    const int B = image.Bits() / 8;
    for (int32_t y = 0; y < image.Height(); ++y) {
        uint8_t* p = image.Row(y);
        for (int32_t x = 0; x < image.Width(); ++x, p += B) {
            if ((p[0] | p[1] | p[2]) == 0)
                p[0] = p[1] = p[2] = 255;
            else if ((p[0] & p[1] & p[2]) == 255)
                p[0] = p[1] = p[2] = 0;
        }
    }
    return kEngineOk;
}

short Invert(Image& image)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    uint8_t lut[256];
    for (int i = 0; i < 256; ++i)
        lut[i] = uint8_t(255 - i);
    ApplyOneTable(image, lut);
    return kEngineOk;
}

short Grayize(Image& image)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    if (image.Bits() <= 8) {
        RgbQuad* t = image.Table();
        for (uint32_t i = 0; i < image.Colors(); ++i) {
            uint8_t g = uint8_t(Luma(t[i].red, t[i].green, t[i].blue));
            t[i] = {g, g, g, 0};
        }
        return kEngineOk;
    }
    Image grey;
    rc = MakeImage(image.Width(), image.Height(), 8, &grey, false);
    if (rc != kEngineOk)
        return rc;
    CopyResolution(image, grey);
    const int B = image.Bits() / 8;
    for (int32_t y = 0; y < image.Height(); ++y) {
        const uint8_t* s = image.Row(y);
        uint8_t* d = grey.Row(y);
        for (int32_t x = 0; x < image.Width(); ++x, s += B)
            d[x] = uint8_t(Luma(s[2], s[1], s[0]));
    }
    image = std::move(grey);
    return kEngineOk;
}

short Blackize(Image& image)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    Image bw;
    rc = MakeImage(image.Width(), image.Height(), 1, &bw, false);
    if (rc != kEngineOk)
        return rc;
    CopyResolution(image, bw);
    std::vector<uint8_t> idx(size_t(image.Width()));
    // For palette images decide once per table entry.
    uint8_t white[256] = {};
    if (image.Bits() <= 8) {
        const RgbQuad* t = image.Table();
        for (uint32_t i = 0; i < image.Colors(); ++i)
            white[i] = Luma(t[i].red, t[i].green, t[i].blue) >= 128;
    }
    const int B = BytesPerPixel(image.Bits());
    for (int32_t y = 0; y < image.Height(); ++y) {
        const uint8_t* s = image.Row(y);
        if (image.Bits() > 8) {
            for (int32_t x = 0; x < image.Width(); ++x, s += B)
                idx[size_t(x)] = Luma(s[2], s[1], s[0]) >= 128;
        } else {
            for (int32_t x = 0; x < image.Width(); ++x)
                idx[size_t(x)] = white[image.PixelValue(x, y)];
        }
        PackIndexRow(idx.data(), bw, y);
    }
    image = std::move(bw);
    return kEngineOk;
}

short Equalize(Image& image)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    uint64_t hist[3][256] = {};
    if (image.Bits() <= 8) {
        uint64_t uses[256] = {};
        if (image.Bits() == 8) {
            for (int32_t y = 0; y < image.Height(); ++y) {
                const uint8_t* s = image.Row(y);
                for (int32_t x = 0; x < image.Width(); ++x)
                    ++uses[s[x]];
            }
        } else {
            for (int32_t y = 0; y < image.Height(); ++y)
                for (int32_t x = 0; x < image.Width(); ++x)
                    ++uses[image.PixelValue(x, y)];
        }
        const RgbQuad* t = image.Table();
        for (uint32_t i = 0; i < image.Colors(); ++i) {
            hist[0][t[i].red] += uses[i];
            hist[1][t[i].green] += uses[i];
            hist[2][t[i].blue] += uses[i];
        }
    } else {
        const int B = image.Bits() / 8;
        for (int32_t y = 0; y < image.Height(); ++y) {
            const uint8_t* s = image.Row(y);
            for (int32_t x = 0; x < image.Width(); ++x, s += B) {
                ++hist[2][s[0]];
                ++hist[1][s[1]];
                ++hist[0][s[2]];
            }
        }
    }
    uint8_t lut[3][256];
    for (int c = 0; c < 3; ++c) {
        uint64_t total = 0, first = 0;
        for (int v = 0; v < 256; ++v)
            total += hist[c][v];
        for (int v = 0; v < 256 && first == 0; ++v)
            first = hist[c][v];
        // The darkest level present goes to 0, the brightest to 255, and
        // the levels between by their share of the pixels below them.
        uint64_t cdf = 0;
        for (int v = 0; v < 256; ++v) {
            cdf += hist[c][v];
            if (total == first)
                lut[c][v] = uint8_t(v);
            else
                lut[c][v] = uint8_t(cdf <= first ? 0 : ((cdf - first) * 255 + (total - first) / 2) / (total - first));
        }
    }
    ApplyChannelTables(image, lut[0], lut[1], lut[2]);
    return kEngineOk;
}

void GammaTable(int contrast, int bright, int gamma, uint8_t table[256])
{
    contrast = contrast < -100 ? -100 : (contrast > 100 ? 100 : contrast);
    bright = bright < -100 ? -100 : (bright > 100 ? 100 : bright);
    gamma = gamma < -100 ? -100 : (gamma > 100 ? 100 : gamma);
    double factor = contrast <= 0 ? (100.0 + contrast) / 100.0 : 100.0 / (101.0 - contrast);
    double offset = bright * 127.5 / 100.0;
    double exponent = std::pow(2.0, -gamma / 50.0);
    for (int v = 0; v < 256; ++v) {
        double x = (v - 127.5) * factor + 127.5 + offset;
        x = x < 0 ? 0 : (x > 255 ? 255 : x);
        x = 255.0 * std::pow(x / 255.0, exponent);
        table[v] = Clamp255(int(std::lround(x)));
    }
}

short Gamma(Image& image, int contrast, int bright, int gamma)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    if (contrast < -100 || contrast > 100 || bright < -100 || bright > 100 || gamma < -100 || gamma > 100)
        return kEngineBadArgument;
    uint8_t lut[256];
    GammaTable(contrast, bright, gamma, lut);
    ApplyOneTable(image, lut);
    return kEngineOk;
}

short ChangeColor(Image& image, uint32_t fromColorRef, uint32_t toColorRef)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    if (fromColorRef > 0xFFFFFF || toColorRef > 0xFFFFFF)
        return kEngineBadArgument;
    const uint8_t fr = uint8_t(fromColorRef), fg = uint8_t(fromColorRef >> 8), fb = uint8_t(fromColorRef >> 16);
    const uint8_t tr = uint8_t(toColorRef), tg = uint8_t(toColorRef >> 8), tb = uint8_t(toColorRef >> 16);
    if (image.Bits() <= 8) {
        RgbQuad* t = image.Table();
        for (uint32_t i = 0; i < image.Colors(); ++i)
            if (t[i].red == fr && t[i].green == fg && t[i].blue == fb)
                t[i] = {tb, tg, tr, 0};
        return kEngineOk;
    }
    const int B = image.Bits() / 8;
    for (int32_t y = 0; y < image.Height(); ++y) {
        uint8_t* p = image.Row(y);
        for (int32_t x = 0; x < image.Width(); ++x, p += B) {
            if (p[0] == fb && p[1] == fg && p[2] == fr) {
                p[0] = tb;
                p[1] = tg;
                p[2] = tr;
            }
        }
    }
    return kEngineOk;
}

short ConvertDepth(Image& image, int bits)
{
    short rc = CheckImage(image);
    if (rc != kEngineOk)
        return rc;
    if (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32)
        return kEngineBadDepth;
    if (bits == image.Bits())
        return kEngineOk;
    if (bits >= 24) {
        Image out;
        rc = ToTrueColor(image, bits, &out);
        if (rc == kEngineOk)
            image = std::move(out);
        return rc;
    }
    if (image.Bits() < bits) {
        // A smaller palette fits in a larger one: same indices, same colours.
        Image out;
        rc = MakeImage(image.Width(), image.Height(), bits, &out, false);
        if (rc != kEngineOk)
            return rc;
        CopyResolution(image, out);
        std::memset(out.Table(), 0, out.Colors() * sizeof(RgbQuad));
        std::memcpy(out.Table(), image.Table(), image.Colors() * sizeof(RgbQuad));
        std::vector<uint8_t> idx(size_t(image.Width()));
        for (int32_t y = 0; y < image.Height(); ++y) {
            for (int32_t x = 0; x < image.Width(); ++x)
                idx[size_t(x)] = uint8_t(image.PixelValue(x, y));
            PackIndexRow(idx.data(), out, y);
        }
        image = std::move(out);
        return kEngineOk;
    }
    // Fewer colours than the image has: the nearest of the depth's own.
    return Reduce(image, ReduceParamsFromScript(bits, kReduceSnap, 0, 0));
}

}  // namespace ravi
