// TIFF class F in Modified Huffman; see fax_writer.h.
#include "fax_writer.h"

#include <algorithm>
#include <cmath>

#include "ccitt_coding.h"
#include "engine_codes.h"

namespace ravi {

namespace {

void Put16(std::vector<uint8_t>& out, uint32_t v)
{
    out.push_back(uint8_t(v));
    out.push_back(uint8_t(v >> 8));
}

void Put32(std::vector<uint8_t>& out, uint32_t v)
{
    Put16(out, v & 0xFFFF);
    Put16(out, v >> 16);
}

// The dots across and the lines down of a fax.
constexpr double kFaxDotsPerInch = 204.0, kFineLinesPerInch = 196.0, kCoarseLinesPerInch = 98.0;

int32_t MillimetresToDots(double mm, double dotsPerInch)
{
    return int32_t(std::lround(mm / 25.4 * dotsPerInch));
}

}  // namespace

short WriteFaxTiffBytes(const Image& image, const FaxOptions& options, std::vector<uint8_t>* out)
{
    if (image.Empty()) return kEngineNoImage;
    const bool fine = options.fine;
    const int32_t height = image.Height();
    // The page's bounds hold here too, whatever the tags say.
    const int32_t shift = MillimetresToDots(std::clamp(options.horizontalOffsetMm, -150.0, 150.0), kFaxDotsPerInch);
    const int32_t margin = MillimetresToDots(std::clamp(options.verticalOffsetMm, 0.0, 150.0),
                                             fine ? kFineLinesPerInch : kCoarseLinesPerInch);
    const int32_t pageRows = fine ? kFaxFinePageRows : kFaxCoarsePageRows;
    const int32_t imageRowsPerPage = options.multiPage ? pageRows - margin : height;
    const int32_t pages = (height + imageRowsPerPage - 1) / imageRowsPerPage;

    std::vector<uint8_t> tiff = {'I', 'I', 42, 0, 0, 0, 0, 0};
    size_t link = 4;  // where the offset of the next IFD goes
    for (int32_t page = 0; page < pages; ++page) {
        const int32_t first = page * imageRowsPerPage;
        const int32_t rows = margin + std::min(imageRowsPerPage, height - first);
        CcittBits bits;
        std::vector<uint8_t> black(kFaxWidth);
        for (int32_t line = 0; line < rows; ++line) {
            bits.EndOfLine();
            const int32_t y = first + line - margin;  // the image's row; above it the margin
            for (int32_t x = 0; x < kFaxWidth; ++x) {
                const int32_t from = x - shift;
                const uint32_t rgb = y >= 0 && from >= 0 && from < image.Width() ? image.PixelRgb(from, y) : 0xFFFFFF;
                black[size_t(x)] = IsDark(rgb);
            }
            CodeRowOneDimensional(bits, black.data(), kFaxWidth);
        }
        std::vector<uint8_t> data = bits.LowBitsFirst();
        const uint32_t dataAt = uint32_t(tiff.size());
        tiff.insert(tiff.end(), data.begin(), data.end());
        if (tiff.size() % 2) tiff.push_back(0);

        // The page's IFD, its two resolutions behind it.
        const uint32_t ifdAt = uint32_t(tiff.size());
        for (int i = 0; i < 4; ++i) tiff[link + size_t(i)] = uint8_t(ifdAt >> (8 * i));
        const uint16_t count = 16;
        const uint32_t rationals = ifdAt + 2 + count * 12 + 4;
        struct Entry {
            uint16_t tag, type;
            uint32_t count, value;
        } entries[count] = {
            {254, 4, 1, 2},                                        // a page of a document
            {256, 4, 1, uint32_t(kFaxWidth)},
            {257, 4, 1, uint32_t(rows)},
            {258, 3, 1, 1},
            {259, 3, 1, 3},                                        // CCITT group 3
            {262, 3, 1, 0},                                        // white is zero
            {266, 3, 1, 2},                                        // low bits first
            {273, 4, 1, dataAt},
            {274, 3, 1, 1},
            {277, 3, 1, 1},
            {278, 4, 1, uint32_t(rows)},
            {279, 4, 1, uint32_t(data.size())},
            {282, 5, 1, rationals},
            {283, 5, 1, rationals + 8},
            {292, 4, 1, 4},                                        // one-dimensional, EOLs byte aligned
            {296, 3, 1, 2},
        };
        Put16(tiff, count);
        for (const Entry& e : entries) {
            Put16(tiff, e.tag);
            Put16(tiff, e.type);
            Put32(tiff, e.count);
            Put32(tiff, e.value);
        }
        link = tiff.size();
        Put32(tiff, 0);
        Put32(tiff, uint32_t(kFaxDotsPerInch)), Put32(tiff, 1);
        Put32(tiff, uint32_t(fine ? kFineLinesPerInch : kCoarseLinesPerInch)), Put32(tiff, 1);
    }
    *out = std::move(tiff);
    return kEngineOk;
}

}  // namespace ravi
