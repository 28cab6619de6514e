// PCX files as the engine writes them: version 5, run-length coded. A
// 1-bit picture keeps one plane of one bit with its two colours in the
// header; 4- and 8-bit pictures become one plane of 8 bits with the
// 256-colour palette after the pixels; 24- and 32-bit pictures become three
// planes of 8 bits (red, green, blue; alpha is dropped).
#include <cstring>

#include "engine_codes.h"
#include "file_writers.h"

namespace ravi {

namespace {

constexpr size_t kPcxHeaderBytes = 128;
constexpr int kMaxRun = 63;               // a count byte holds 0xC0 + 1..63
constexpr double kInchesPerMeter = 0.0254;

void Put16(std::vector<uint8_t>& out, size_t at, uint32_t value)
{
    out[at] = uint8_t(value);
    out[at + 1] = uint8_t(value >> 8);
}

// One plane's line: a byte repeated, or a byte that looks like a count,
// goes as count and byte; any other byte as itself.
void EncodeLine(const uint8_t* line, size_t bytes, std::vector<uint8_t>& out)
{
    for (size_t x = 0; x < bytes;) {
        int run = 1;
        while (x + run < bytes && run < kMaxRun && line[x + run] == line[x]) ++run;
        if (run > 1 || line[x] >= 0xC0) out.push_back(uint8_t(0xC0 | run));
        out.push_back(line[x]);
        x += size_t(run);
    }
}

}  // namespace

short WritePcxBytes(const Image& image, std::vector<uint8_t>* out)
{
    if (image.Empty()) return kEngineNoImage;
    const int bits = image.Bits();
    const uint32_t width = uint32_t(image.Width()), height = uint32_t(image.Height());
    if (width > 0xFFFF || height > 0xFFFF) return kEngineBadSize;
    const bool mono = bits == 1, paletted = bits == 4 || bits == 8;
    const int planes = mono || paletted ? 1 : 3;
    // Lines are an even number of bytes long.
    const size_t used = mono ? (width + 7) / 8 : width;
    const size_t bytesPerLine = (used + 1) & ~size_t(1);

    std::vector<uint8_t> pcx(kPcxHeaderBytes, 0);
    pcx[0] = 0x0A;
    pcx[1] = 5;
    pcx[2] = 1;
    pcx[3] = uint8_t(mono ? 1 : 8);
    Put16(pcx, 8, width - 1);
    Put16(pcx, 10, height - 1);
    const DibHeader* header = image.Header();
    Put16(pcx, 12, uint32_t(header->xPelsPerMeter > 0 ? header->xPelsPerMeter * kInchesPerMeter + 0.5 : 0));
    Put16(pcx, 14, uint32_t(header->yPelsPerMeter > 0 ? header->yPelsPerMeter * kInchesPerMeter + 0.5 : 0));
    if (mono) {
        for (uint32_t i = 0; i < 2; ++i) {
            const RgbQuad c = i < image.Colors() ? image.Table()[i] : RgbQuad{0, 0, 0, 0};
            pcx[16 + 3 * i] = c.red;
            pcx[17 + 3 * i] = c.green;
            pcx[18 + 3 * i] = c.blue;
        }
    }
    pcx[65] = uint8_t(planes);
    Put16(pcx, 66, uint32_t(bytesPerLine));
    Put16(pcx, 68, 1);  // colour or black and white, not grey

    std::vector<uint8_t> line(bytesPerLine, 0);
    for (uint32_t y = 0; y < height; ++y) {
        const uint8_t* row = image.Row(int32_t(y));
        for (int plane = 0; plane < planes; ++plane) {
            if (mono) {
                std::memcpy(line.data(), row, used);
            } else if (paletted) {
                for (uint32_t x = 0; x < width; ++x) line[x] = uint8_t(image.PixelValue(int32_t(x), int32_t(y)));
            } else {
                // Planes go red, green, blue; the DIB keeps blue first.
                const int step = bits / 8, channel = 2 - plane;
                for (uint32_t x = 0; x < width; ++x) line[x] = row[size_t(x) * step + channel];
            }
            EncodeLine(line.data(), bytesPerLine, pcx);
        }
    }
    if (paletted) {
        pcx.push_back(0x0C);
        for (uint32_t i = 0; i < 256; ++i) {
            const RgbQuad c = i < image.Colors() ? image.Table()[i] : RgbQuad{0, 0, 0, 0};
            pcx.push_back(c.red);
            pcx.push_back(c.green);
            pcx.push_back(c.blue);
        }
    }
    *out = std::move(pcx);
    return kEngineOk;
}

}  // namespace ravi
