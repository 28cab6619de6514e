// Baseline JPEG; see jpeg_writer.h.
#include "jpeg_writer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine_codes.h"

namespace ravi {

namespace {

// The position in the 8 x 8 block of each coefficient in zig-zag order.
constexpr uint8_t kZigZag[64] = {0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,
                                 12, 19, 26, 33, 40, 48, 41, 34, 27, 20, 13, 6,  7,  14, 21, 28,
                                 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23, 30, 37, 44, 51,
                                 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

// The standard's example quantization tables, in block order; a quality of
// 50 uses them as they stand.
constexpr uint8_t kLuminanceQuant[64] = {16, 11, 10, 16, 24,  40,  51,  61,  12, 12, 14, 19, 26,  58,  60,  55,
                                         14, 13, 16, 24, 40,  57,  69,  56,  14, 17, 22, 29, 51,  87,  80,  62,
                                         18, 22, 37, 56, 68,  109, 103, 77,  24, 35, 55, 64, 81,  104, 113, 92,
                                         49, 64, 78, 87, 103, 121, 120, 101, 72, 92, 95, 98, 112, 100, 103, 99};
constexpr uint8_t kChrominanceQuant[64] = {17, 18, 24, 47, 99, 99, 99, 99, 18, 21, 26, 66, 99, 99, 99, 99,
                                           24, 26, 56, 99, 99, 99, 99, 99, 47, 66, 99, 99, 99, 99, 99, 99,
                                           99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99,
                                           99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99};

// The standard's Huffman tables: how many codes of each length 1..16, then
// the symbols in code order.
struct HuffmanSpec {
    uint8_t counts[16];
    const uint8_t* symbols;
    size_t symbolCount;
};

constexpr uint8_t kDcSymbols[12] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
constexpr uint8_t kLuminanceAcSymbols[162] = {
    0x01, 0x02, 0x03, 0x00, 0x04, 0x11, 0x05, 0x12, 0x21, 0x31, 0x41, 0x06, 0x13, 0x51, 0x61, 0x07, 0x22, 0x71,
    0x14, 0x32, 0x81, 0x91, 0xa1, 0x08, 0x23, 0x42, 0xb1, 0xc1, 0x15, 0x52, 0xd1, 0xf0, 0x24, 0x33, 0x62, 0x72,
    0x82, 0x09, 0x0a, 0x16, 0x17, 0x18, 0x19, 0x1a, 0x25, 0x26, 0x27, 0x28, 0x29, 0x2a, 0x34, 0x35, 0x36, 0x37,
    0x38, 0x39, 0x3a, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4a, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59,
    0x5a, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6a, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7a, 0x83,
    0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8a, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99, 0x9a, 0xa2, 0xa3,
    0xa4, 0xa5, 0xa6, 0xa7, 0xa8, 0xa9, 0xaa, 0xb2, 0xb3, 0xb4, 0xb5, 0xb6, 0xb7, 0xb8, 0xb9, 0xba, 0xc2, 0xc3,
    0xc4, 0xc5, 0xc6, 0xc7, 0xc8, 0xc9, 0xca, 0xd2, 0xd3, 0xd4, 0xd5, 0xd6, 0xd7, 0xd8, 0xd9, 0xda, 0xe1, 0xe2,
    0xe3, 0xe4, 0xe5, 0xe6, 0xe7, 0xe8, 0xe9, 0xea, 0xf1, 0xf2, 0xf3, 0xf4, 0xf5, 0xf6, 0xf7, 0xf8, 0xf9, 0xfa};
constexpr uint8_t kChrominanceAcSymbols[162] = {
    0x00, 0x01, 0x02, 0x03, 0x11, 0x04, 0x05, 0x21, 0x31, 0x06, 0x12, 0x41, 0x51, 0x07, 0x61, 0x71, 0x13, 0x22,
    0x32, 0x81, 0x08, 0x14, 0x42, 0x91, 0xa1, 0xb1, 0xc1, 0x09, 0x23, 0x33, 0x52, 0xf0, 0x15, 0x62, 0x72, 0xd1,
    0x0a, 0x16, 0x24, 0x34, 0xe1, 0x25, 0xf1, 0x17, 0x18, 0x19, 0x1a, 0x26, 0x27, 0x28, 0x29, 0x2a, 0x35, 0x36,
    0x37, 0x38, 0x39, 0x3a, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4a, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58,
    0x59, 0x5a, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6a, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7a,
    0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8a, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99, 0x9a,
    0xa2, 0xa3, 0xa4, 0xa5, 0xa6, 0xa7, 0xa8, 0xa9, 0xaa, 0xb2, 0xb3, 0xb4, 0xb5, 0xb6, 0xb7, 0xb8, 0xb9, 0xba,
    0xc2, 0xc3, 0xc4, 0xc5, 0xc6, 0xc7, 0xc8, 0xc9, 0xca, 0xd2, 0xd3, 0xd4, 0xd5, 0xd6, 0xd7, 0xd8, 0xd9, 0xda,
    0xe2, 0xe3, 0xe4, 0xe5, 0xe6, 0xe7, 0xe8, 0xe9, 0xea, 0xf2, 0xf3, 0xf4, 0xf5, 0xf6, 0xf7, 0xf8, 0xf9, 0xfa};

constexpr HuffmanSpec kLuminanceDc = {{0, 1, 5, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0}, kDcSymbols, 12};
constexpr HuffmanSpec kChrominanceDc = {{0, 3, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0}, kDcSymbols, 12};
constexpr HuffmanSpec kLuminanceAc = {{0, 2, 1, 3, 3, 2, 4, 3, 5, 5, 4, 4, 0, 0, 1, 0x7d}, kLuminanceAcSymbols, 162};
constexpr HuffmanSpec kChrominanceAc = {{0, 2, 1, 2, 4, 4, 3, 4, 7, 5, 4, 4, 0, 1, 2, 0x77}, kChrominanceAcSymbols,
                                        162};

// The code of each symbol: its bits and their count.
struct HuffmanCodes {
    uint16_t code[256] = {};
    uint8_t length[256] = {};
};

HuffmanCodes CodesOf(const HuffmanSpec& spec)
{
    HuffmanCodes codes;
    uint32_t code = 0;
    size_t k = 0;
    for (int length = 1; length <= 16; ++length) {
        for (int i = 0; i < spec.counts[length - 1] && k < spec.symbolCount; ++i, ++k) {
            codes.code[spec.symbols[k]] = uint16_t(code++);
            codes.length[spec.symbols[k]] = uint8_t(length);
        }
        code <<= 1;
    }
    return codes;
}

// Entropy-coded bits, high first, a zero byte stuffed after every 0xFF.
class ScanBits {
public:
    explicit ScanBits(std::vector<uint8_t>& out) : out_(out) {}
    void Put(uint32_t bits, unsigned count)
    {
        for (unsigned i = count; i-- > 0;) {
            byte_ = uint8_t(byte_ << 1 | (bits >> i & 1));
            if (++used_ == 8) Emit();
        }
    }
    // The last byte is filled with ones.
    void Flush()
    {
        while (used_ != 0) Put(1, 1);
    }

private:
    void Emit()
    {
        out_.push_back(byte_);
        if (byte_ == 0xFF) out_.push_back(0);
        byte_ = 0, used_ = 0;
    }
    std::vector<uint8_t>& out_;
    uint8_t byte_ = 0;
    unsigned used_ = 0;
};

// The bits a value needs, and the bits that stand for it (negative values
// one less, in their low bits).
unsigned Category(int value)
{
    unsigned n = 0;
    for (int magnitude = value < 0 ? -value : value; magnitude != 0; magnitude >>= 1) ++n;
    return n;
}

void PutValue(ScanBits& bits, const HuffmanCodes& codes, int symbolHigh, int value)
{
    const unsigned size = Category(value);
    const int symbol = symbolHigh << 4 | int(size);
    bits.Put(codes.code[symbol], codes.length[symbol]);
    if (size != 0) bits.Put(uint32_t(value < 0 ? value - 1 : value) & ((1u << size) - 1), size);
}

// The forward DCT of a block of level-shifted samples, by its definition.
void ForwardDct(const float in[64], float out[64])
{
    struct Basis {
        float at[8][8];
    };
    static const Basis basis = [] {
        Basis b{};
        for (int u = 0; u < 8; ++u)
            for (int x = 0; x < 8; ++x)
                b.at[u][x] = float((u == 0 ? std::sqrt(0.125) : 0.5) * std::cos((2 * x + 1) * u * std::numbers::pi / 16));
        return b;
    }();
    float rows[64];
    for (int y = 0; y < 8; ++y)
        for (int u = 0; u < 8; ++u) {
            float sum = 0;
            for (int x = 0; x < 8; ++x) sum += basis.at[u][x] * in[y * 8 + x];
            rows[y * 8 + u] = sum;
        }
    for (int v = 0; v < 8; ++v)
        for (int u = 0; u < 8; ++u) {
            float sum = 0;
            for (int y = 0; y < 8; ++y) sum += basis.at[v][y] * rows[y * 8 + u];
            out[v * 8 + u] = sum;
        }
}

void PutMarker(std::vector<uint8_t>& out, uint8_t marker, std::initializer_list<uint8_t> body = {}, size_t extra = 0)
{
    out.push_back(0xFF);
    out.push_back(marker);
    if (body.size() == 0 && extra == 0) return;
    const size_t length = body.size() + extra + 2;
    out.push_back(uint8_t(length >> 8));
    out.push_back(uint8_t(length));
    out.insert(out.end(), body.begin(), body.end());
}

void PutHuffmanTable(std::vector<uint8_t>& out, uint8_t classAndId, const HuffmanSpec& spec)
{
    PutMarker(out, 0xC4, {classAndId}, 16 + spec.symbolCount);
    out.insert(out.end(), spec.counts, spec.counts + 16);
    out.insert(out.end(), spec.symbols, spec.symbols + spec.symbolCount);
}

}  // namespace

int JpegQualityPercent(float imageQuality)
{
    return std::clamp(int(std::lround(imageQuality * 100.0f)), 1, 100);
}

short WriteJpegBytes(const Image& image, int quality, std::vector<uint8_t>* out)
{
    if (image.Empty()) return kEngineNoImage;
    const int32_t width = image.Width(), height = image.Height();
    if (width > 65535 || height > 65535) return kEngineBadArgument;
    quality = std::clamp(quality, 1, 100);
    // The usual scaling of the example tables to a quality.
    const int scale = quality < 50 ? 5000 / quality : 200 - 2 * quality;
    uint8_t quant[2][64];
    for (int i = 0; i < 64; ++i) {
        quant[0][i] = uint8_t(std::clamp((kLuminanceQuant[i] * scale + 50) / 100, 1, 255));
        quant[1][i] = uint8_t(std::clamp((kChrominanceQuant[i] * scale + 50) / 100, 1, 255));
    }

    std::vector<uint8_t> jpeg;
    PutMarker(jpeg, 0xD8);
    // JFIF, its density in dots per inch when the image has a resolution.
    const int32_t ppmX = image.Header()->xPelsPerMeter, ppmY = image.Header()->yPelsPerMeter;
    const bool dpi = ppmX > 0 && ppmY > 0;
    const uint16_t densityX = dpi ? uint16_t(std::lround(ppmX * 0.0254)) : 1;
    const uint16_t densityY = dpi ? uint16_t(std::lround(ppmY * 0.0254)) : 1;
    PutMarker(jpeg, 0xE0,
              {'J', 'F', 'I', 'F', 0, 1, 1, uint8_t(dpi ? 1 : 0), uint8_t(densityX >> 8), uint8_t(densityX),
               uint8_t(densityY >> 8), uint8_t(densityY), 0, 0});
    for (uint8_t table = 0; table < 2; ++table) {
        PutMarker(jpeg, 0xDB, {table}, 64);
        for (int k = 0; k < 64; ++k) jpeg.push_back(quant[table][kZigZag[k]]);
    }
    PutMarker(jpeg, 0xC0,
              {8, uint8_t(height >> 8), uint8_t(height), uint8_t(width >> 8), uint8_t(width), 3, 1, 0x11, 0, 2,
               0x11, 1, 3, 0x11, 1});
    PutHuffmanTable(jpeg, 0x00, kLuminanceDc);
    PutHuffmanTable(jpeg, 0x10, kLuminanceAc);
    PutHuffmanTable(jpeg, 0x01, kChrominanceDc);
    PutHuffmanTable(jpeg, 0x11, kChrominanceAc);
    PutMarker(jpeg, 0xDA, {3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0});

    const HuffmanCodes dc[2] = {CodesOf(kLuminanceDc), CodesOf(kChrominanceDc)};
    const HuffmanCodes ac[2] = {CodesOf(kLuminanceAc), CodesOf(kChrominanceAc)};
    ScanBits bits(jpeg);
    int previousDc[3] = {};
    float samples[3][64], coefficients[64];
    for (int32_t by = 0; by < height; by += 8)
        for (int32_t bx = 0; bx < width; bx += 8) {
            // The block's samples; past the edge the last row and column repeat.
            for (int i = 0; i < 64; ++i) {
                const uint32_t rgb = image.PixelRgb(std::min(bx + i % 8, width - 1), std::min(by + i / 8, height - 1));
                const float r = float(rgb >> 16 & 0xFF), g = float(rgb >> 8 & 0xFF), b = float(rgb & 0xFF);
                samples[0][i] = 0.299f * r + 0.587f * g + 0.114f * b - 128.0f;
                samples[1][i] = -0.168736f * r - 0.331264f * g + 0.5f * b;
                samples[2][i] = 0.5f * r - 0.418688f * g - 0.081312f * b;
            }
            for (int c = 0; c < 3; ++c) {
                const int table = c == 0 ? 0 : 1;
                ForwardDct(samples[c], coefficients);
                int zigzag[64];
                for (int k = 0; k < 64; ++k)
                    zigzag[k] = int(std::lround(coefficients[kZigZag[k]] / quant[table][kZigZag[k]]));
                PutValue(bits, dc[table], 0, zigzag[0] - previousDc[c]);
                previousDc[c] = zigzag[0];
                int zeros = 0;
                for (int k = 1; k < 64; ++k) {
                    if (zigzag[k] == 0) {
                        ++zeros;
                        continue;
                    }
                    for (; zeros > 15; zeros -= 16) bits.Put(ac[table].code[0xF0], ac[table].length[0xF0]);
                    PutValue(bits, ac[table], zeros, zigzag[k]);
                    zeros = 0;
                }
                if (zeros > 0) bits.Put(ac[table].code[0x00], ac[table].length[0x00]);
            }
        }
    bits.Flush();
    PutMarker(jpeg, 0xD9);
    *out = std::move(jpeg);
    return kEngineOk;
}

}  // namespace ravi
