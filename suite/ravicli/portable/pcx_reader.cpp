// The PCX picture: a 128-byte header, then the lines packed in runs, each
// line its planes one after the other; a picture of 256 colours keeps its
// palette in the last 769 bytes.
#include <cstring>
#include <vector>

#include "engine_codes.h"
#include "source_readers.h"

namespace ravi {

namespace {

constexpr size_t kHeaderBytes = 128;
constexpr size_t kTrailingPaletteBytes = 769;  // the mark 0x0C, then 256 times red, green, blue
constexpr uint8_t kTrailingPaletteMark = 0x0C;
constexpr int kLongestRun = 63;                // a run byte counts in its low six bits

uint16_t Le16(const uint8_t* p)
{
    return uint16_t(p[0] | (p[1] << 8));
}

// The runs of the whole picture, decoded one line at a time. A run may go
// on from one line into the next, as some writers pack them.
class RunDecoder {
public:
    RunDecoder(const uint8_t* p, const uint8_t* end) : p_(p), end_(end) {}

    bool Fill(uint8_t* out, size_t count)
    {
        while (count > 0) {
            if (left_ == 0) {
                if (p_ >= end_) return false;
                uint8_t byte = *p_++;
                if ((byte & 0xC0) == 0xC0) {
                    left_ = byte & 0x3F;
                    if (p_ >= end_) return false;
                    value_ = *p_++;
                } else {
                    left_ = 1;
                    value_ = byte;
                }
                continue;
            }
            size_t n = left_ < count ? left_ : count;
            std::memset(out, value_, n);
            out += n;
            count -= n;
            left_ -= n;
        }
        return true;
    }

private:
    const uint8_t* p_;
    const uint8_t* end_;
    size_t left_ = 0;
    uint8_t value_ = 0;
};

void SetColour(RgbQuad& entry, const uint8_t* rgb)
{
    entry.red = rgb[0];
    entry.green = rgb[1];
    entry.blue = rgb[2];
    entry.reserved = 0;
}

// Dots per inch from the header as pixels per metre; a value no printer or
// screen has is taken as unknown.
int32_t PelsPerMeter(uint16_t dpi)
{
    return dpi > 0 && dpi <= 10000 ? int32_t(dpi / 0.0254 + 0.5) : 0;
}

}  // namespace

short ReadPcxPicture(const uint8_t* data, size_t size, Image* out)
{
    if (size < kHeaderBytes) return kEngineTruncated;
    if (data[0] != 0x0A || data[2] != 1) return kEngineFileFormat;
    const uint8_t version = data[1];
    const int bits = data[3];
    const int planes = data[65];
    const uint16_t xMin = Le16(data + 4), yMin = Le16(data + 6), xMax = Le16(data + 8), yMax = Le16(data + 10);
    const size_t bytesPerLine = Le16(data + 66);
    if (xMax < xMin || yMax < yMin) return kEngineBadSize;
    const uint32_t width = uint32_t(xMax - xMin) + 1, height = uint32_t(yMax - yMin) + 1;

    int depth = 0;
    if (bits == 1 && planes == 1) depth = 1;
    else if (bits == 1 && planes == 4) depth = 4;
    else if (bits == 8 && planes == 1) depth = 8;
    else if (bits == 8 && planes == 3) depth = 24;
    else return kEngineBadDepth;
    if (bytesPerLine == 0 || bytesPerLine < (size_t(width) * size_t(bits) + 7) / 8) return kEngineFileFormat;

    // The 256 colours at the end, when the file has them; the runs stop
    // before them.
    size_t end = size;
    const bool trailingPalette =
        depth == 8 && size >= kHeaderBytes + kTrailingPaletteBytes && data[size - kTrailingPaletteBytes] == kTrailingPaletteMark;
    if (trailingPalette) end -= kTrailingPaletteBytes;

    // Two bytes of runs give at most 63 bytes of lines: a header that
    // claims more than the file can hold is refused before anything is
    // allocated.
    const size_t lineBytes = bytesPerLine * size_t(planes);
    const uint64_t pixels = uint64_t(width) * height;
    if (uint64_t(lineBytes) * height > uint64_t(end - kHeaderBytes) * kLongestRun) return kEngineTruncated;
    if (pixels > kMaxReadPixels) return kEngineBadSize;

    Image image;
    short code = MakeImage(int32_t(width), int32_t(height), depth, &image);
    if (code != kEngineOk) return code;
    RgbQuad* table = image.Table();
    if (depth == 4 && version != 3) {
        // Version 3 says the header holds no palette: the standard 16
        // colours of the new image stand.
        for (int i = 0; i < 16; ++i) SetColour(table[i], data + 16 + 3 * i);
    }
    if (trailingPalette)
        for (int i = 0; i < 256; ++i) SetColour(table[i], data + size - kTrailingPaletteBytes + 1 + 3 * i);
    image.Header()->xPelsPerMeter = PelsPerMeter(Le16(data + 12));
    image.Header()->yPelsPerMeter = PelsPerMeter(Le16(data + 14));

    RunDecoder runs(data + kHeaderBytes, data + end);
    std::vector<uint8_t> line(lineBytes);
    const size_t used = (size_t(width) * size_t(bits) + 7) / 8;
    for (uint32_t y = 0; y < height; ++y) {
        if (!runs.Fill(line.data(), lineBytes)) return kEngineTruncated;
        uint8_t* row = image.Row(int32_t(y));
        switch (depth) {
        case 1:
        case 8:
            std::memcpy(row, line.data(), used);
            if (depth == 1 && width % 8 != 0) row[used - 1] &= uint8_t(0xFF00 >> (width % 8));
            break;
        case 4:
            // Plane k holds bit k of each pixel's index; two pixels a byte.
            for (uint32_t x = 0; x < width; ++x) {
                const size_t byte = x / 8;
                const int shift = 7 - int(x % 8);
                uint8_t index = 0;
                for (int k = 0; k < 4; ++k) index |= uint8_t(((line[k * bytesPerLine + byte] >> shift) & 1) << k);
                row[x / 2] |= x % 2 ? index : uint8_t(index << 4);
            }
            break;
        default:
            // Red, green and blue planes into the DIB's blue, green, red.
            for (uint32_t x = 0; x < width; ++x) {
                row[3 * x] = line[2 * bytesPerLine + x];
                row[3 * x + 1] = line[bytesPerLine + x];
                row[3 * x + 2] = line[x];
            }
            break;
        }
    }
    *out = std::move(image);
    return kEngineOk;
}

}  // namespace ravi
