// The CUT picture and its palette file. A CUT file holds only colour
// indices, one byte a pixel, packed in runs line by line; its colours lie in
// a palette file beside it.
#include <cstring>

#include "engine_codes.h"
#include "source_readers.h"

namespace ravi {

namespace {

uint16_t Le16(const uint8_t* p)
{
    return uint16_t(p[0] | (p[1] << 8));
}

constexpr size_t kCutHeaderBytes = 6;       // width, height, a reserved word
constexpr size_t kPaletteHeaderBytes = 40;
constexpr size_t kPaletteBlockBytes = 512;  // entries never cross a block's end
constexpr size_t kPaletteEntryBytes = 6;    // red, green, blue: a word each

// A palette component from 0..max to 0..255, rounded.
uint8_t ScaleComponent(uint16_t value, uint16_t max)
{
    if (value > max) value = max;
    return uint8_t((uint32_t(value) * 255 + max / 2) / max);
}

// One line of runs from `p` up to `end` into `row` of `width` pixels. The
// line must end in its 0 within its bytes and fill the row exactly.
short DecodeCutLine(const uint8_t* p, const uint8_t* end, uint8_t* row, uint32_t width)
{
    uint32_t x = 0;
    while (p < end) {
        uint8_t op = *p++;
        if (op == 0) return x == width ? kEngineOk : kEngineFileFormat;
        uint32_t count = op & 0x7F;
        if (count > width - x) return kEngineFileFormat;
        if (op & 0x80) {
            // A run: the next byte, count times.
            if (p >= end) return kEngineFileFormat;
            std::memset(row + x, *p++, count);
        } else {
            // Literal: count bytes as they are.
            if (size_t(end - p) < count) return kEngineFileFormat;
            std::memcpy(row + x, p, count);
            p += count;
        }
        x += count;
    }
    return kEngineFileFormat;  // no 0 closed the line
}

}  // namespace

short ReadCutPalette(const uint8_t* data, size_t size, CutPalette* out)
{
    if (size < kPaletteHeaderBytes) return kEngineTruncated;
    if (data[0] != 'A' || data[1] != 'H') return kEngineFileFormat;
    const uint32_t count = uint32_t(Le16(data + 0x0C)) + 1;
    const uint16_t maxRed = Le16(data + 0x0E), maxGreen = Le16(data + 0x10), maxBlue = Le16(data + 0x12);
    if (count > 256 || maxRed == 0 || maxGreen == 0 || maxBlue == 0) return kEngineFileFormat;

    CutPalette palette;
    size_t at = kPaletteHeaderBytes;
    for (uint32_t i = 0; i < count; ++i) {
        if (kPaletteBlockBytes - at % kPaletteBlockBytes < kPaletteEntryBytes)
            at += kPaletteBlockBytes - at % kPaletteBlockBytes;
        if (size < kPaletteEntryBytes || at > size - kPaletteEntryBytes) return kEngineTruncated;
        const uint8_t* entry = data + at;
        palette.entries[i].red = ScaleComponent(Le16(entry), maxRed);
        palette.entries[i].green = ScaleComponent(Le16(entry + 2), maxGreen);
        palette.entries[i].blue = ScaleComponent(Le16(entry + 4), maxBlue);
        at += kPaletteEntryBytes;
    }
    palette.count = int(count);
    *out = palette;
    return kEngineOk;
}

short ReadCutPicture(const uint8_t* data, size_t size, const CutPalette* palette, Image* out)
{
    if (size < kCutHeaderBytes) return kEngineTruncated;
    const uint32_t width = Le16(data), height = Le16(data + 2);
    if (width == 0 || height == 0) return kEngineBadSize;
    // Each line takes at least its count word and its closing 0, and each
    // two bytes of runs give at most 127 pixels: a header that claims more
    // than the file can hold is refused before anything is allocated.
    const uint64_t body = size - kCutHeaderBytes;
    if (uint64_t(height) * 3 > body) return kEngineTruncated;
    const uint64_t pixels = uint64_t(width) * height;
    if (pixels > body * 127 / 2) return kEngineTruncated;
    if (pixels > kMaxReadPixels) return kEngineBadSize;

    Image image;
    short code = MakeImage(int32_t(width), int32_t(height), 8, &image, false);
    if (code != kEngineOk) return code;
    if (palette) {
        // Entries past the palette's count are black rather than grey, so
        // an index the palette does not colour shows as such.
        std::memset(image.Table(), 0, 256 * sizeof(RgbQuad));
        std::memcpy(image.Table(), palette->entries, size_t(palette->count) * sizeof(RgbQuad));
    }

    size_t at = kCutHeaderBytes;
    for (uint32_t y = 0; y < height; ++y) {
        if (size - at < 2) return kEngineTruncated;
        const size_t count = Le16(data + at);
        at += 2;
        if (size - at < count) return kEngineTruncated;
        code = DecodeCutLine(data + at, data + at + count, image.Row(int32_t(y)), width);
        if (code != kEngineOk) return code;
        at += count;
    }
    *out = std::move(image);
    return kEngineOk;
}

}  // namespace ravi
