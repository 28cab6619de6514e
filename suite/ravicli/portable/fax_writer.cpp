// TIFF class F in Modified Huffman; see fax_writer.h.
#include "fax_writer.h"

#include <algorithm>
#include <cmath>

#include "engine_codes.h"

namespace ravi {

namespace {

// The code words of the one-dimensional coding: (length in bits, bits),
// terminating codes for runs 0..63, make-up codes for 64..1728 by 64.
struct Code {
    uint8_t bits;
    uint16_t value;
};

constexpr Code kWhiteTerm[64] = {
    {8, 0x35}, {6, 0x07}, {4, 0x07}, {4, 0x08}, {4, 0x0B}, {4, 0x0C}, {4, 0x0E}, {4, 0x0F}, {5, 0x13}, {5, 0x14},
    {5, 0x07}, {5, 0x08}, {6, 0x08}, {6, 0x03}, {6, 0x34}, {6, 0x35}, {6, 0x2A}, {6, 0x2B}, {7, 0x27}, {7, 0x0C},
    {7, 0x08}, {7, 0x17}, {7, 0x03}, {7, 0x04}, {7, 0x28}, {7, 0x2B}, {7, 0x13}, {7, 0x24}, {7, 0x18}, {8, 0x02},
    {8, 0x03}, {8, 0x1A}, {8, 0x1B}, {8, 0x12}, {8, 0x13}, {8, 0x14}, {8, 0x15}, {8, 0x16}, {8, 0x17}, {8, 0x28},
    {8, 0x29}, {8, 0x2A}, {8, 0x2B}, {8, 0x2C}, {8, 0x2D}, {8, 0x04}, {8, 0x05}, {8, 0x0A}, {8, 0x0B}, {8, 0x52},
    {8, 0x53}, {8, 0x54}, {8, 0x55}, {8, 0x24}, {8, 0x25}, {8, 0x58}, {8, 0x59}, {8, 0x5A}, {8, 0x5B}, {8, 0x4A},
    {8, 0x4B}, {8, 0x32}, {8, 0x33}, {8, 0x34}};
constexpr Code kWhiteMakeup[27] = {
    {5, 0x1B}, {5, 0x12}, {6, 0x17}, {7, 0x37}, {8, 0x36}, {8, 0x37}, {8, 0x64}, {8, 0x65}, {8, 0x68},
    {8, 0x67}, {9, 0xCC}, {9, 0xCD}, {9, 0xD2}, {9, 0xD3}, {9, 0xD4}, {9, 0xD5}, {9, 0xD6}, {9, 0xD7},
    {9, 0xD8}, {9, 0xD9}, {9, 0xDA}, {9, 0xDB}, {9, 0x98}, {9, 0x99}, {9, 0x9A}, {6, 0x18}, {9, 0x9B}};
constexpr Code kBlackTerm[64] = {
    {10, 0x37}, {3, 0x02}, {2, 0x03}, {2, 0x02}, {3, 0x03}, {4, 0x03}, {4, 0x02}, {5, 0x03}, {6, 0x05},
    {6, 0x04}, {7, 0x04}, {7, 0x05}, {7, 0x07}, {8, 0x04}, {8, 0x07}, {9, 0x18}, {10, 0x17}, {10, 0x18},
    {10, 0x08}, {11, 0x67}, {11, 0x68}, {11, 0x6C}, {11, 0x37}, {11, 0x28}, {11, 0x17}, {11, 0x18},
    {12, 0xCA}, {12, 0xCB}, {12, 0xCC}, {12, 0xCD}, {12, 0x68}, {12, 0x69}, {12, 0x6A}, {12, 0x6B},
    {12, 0xD2}, {12, 0xD3}, {12, 0xD4}, {12, 0xD5}, {12, 0xD6}, {12, 0xD7}, {12, 0x6C}, {12, 0x6D},
    {12, 0xDA}, {12, 0xDB}, {12, 0x54}, {12, 0x55}, {12, 0x56}, {12, 0x57}, {12, 0x64}, {12, 0x65},
    {12, 0x52}, {12, 0x53}, {12, 0x24}, {12, 0x37}, {12, 0x38}, {12, 0x27}, {12, 0x28}, {12, 0x58},
    {12, 0x59}, {12, 0x2B}, {12, 0x2C}, {12, 0x5A}, {12, 0x66}, {12, 0x67}};
constexpr Code kBlackMakeup[27] = {
    {10, 0x0F}, {12, 0xC8}, {12, 0xC9}, {12, 0x5B}, {12, 0x33}, {12, 0x34}, {12, 0x35}, {13, 0x6C},
    {13, 0x6D}, {13, 0x4A}, {13, 0x4B}, {13, 0x4C}, {13, 0x4D}, {13, 0x72}, {13, 0x73}, {13, 0x74},
    {13, 0x75}, {13, 0x76}, {13, 0x77}, {13, 0x52}, {13, 0x53}, {13, 0x54}, {13, 0x55}, {13, 0x5A},
    {13, 0x5B}, {13, 0x64}, {13, 0x65}};

// Bits high first into bytes; the file's fill order reverses each byte.
class BitWriter {
public:
    void Put(unsigned count, uint32_t value)
    {
        for (unsigned i = count; i-- > 0;) {
            if (used_ == 0) bytes_.push_back(0);
            if (value >> i & 1) bytes_.back() |= uint8_t(0x80 >> used_);
            used_ = (used_ + 1) & 7;
        }
    }
    // An EOL that ends on a byte: fill bits first.
    void EndOfLine()
    {
        while (used_ != 4) Put(1, 0);
        Put(12, 1);
    }
    std::vector<uint8_t> LowBitsFirst() const
    {
        std::vector<uint8_t> out(bytes_);
        for (uint8_t& b : out) {
            uint8_t r = 0;
            for (int i = 0; i < 8; ++i) r = uint8_t(r | ((b >> i & 1) << (7 - i)));
            b = r;
        }
        return out;
    }

private:
    std::vector<uint8_t> bytes_;
    unsigned used_ = 0;
};

void PutRun(BitWriter& bits, int32_t run, bool black)
{
    const Code* term = black ? kBlackTerm : kWhiteTerm;
    const Code* makeup = black ? kBlackMakeup : kWhiteMakeup;
    if (run >= 64) {
        const Code& code = makeup[run / 64 - 1];
        bits.Put(code.bits, code.value);
        run %= 64;
    }
    bits.Put(term[run].bits, term[run].value);
}

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
        BitWriter bits;
        for (int32_t line = 0; line < rows; ++line) {
            bits.EndOfLine();
            const int32_t y = first + line - margin;  // the image's row; above it the margin
            bool black = false;
            int32_t x = 0;
            while (x < kFaxWidth) {
                int32_t run = 0;
                while (x < kFaxWidth) {
                    const int32_t from = x - shift;
                    const uint32_t rgb =
                        y >= 0 && from >= 0 && from < image.Width() ? image.PixelRgb(from, y) : 0xFFFFFF;
                    uint32_t luminance =
                        (299 * ((rgb >> 16) & 0xFF) + 587 * ((rgb >> 8) & 0xFF) + 114 * (rgb & 0xFF)) / 1000;
                    if ((luminance < 128) != black) break;
                    ++run, ++x;
                }
                PutRun(bits, run, black);
                black = !black;
            }
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
