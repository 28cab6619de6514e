// The engine's own file writers; what each promises stands in
// file_writers.h.
#include "file_writers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "engine_codes.h"
#include "raster_kernels.h"
#include "ccitt_coding.h"
#include "tiff_codecs.h"

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

void Set32(std::vector<uint8_t>& out, size_t at, uint32_t v)
{
    for (int i = 0; i < 4; ++i) out[at + i] = uint8_t(v >> (8 * i));
}

double DpiOf(int32_t pelsPerMeter)
{
    return pelsPerMeter > 0 ? pelsPerMeter * 0.0254 : 0.0;
}

// An IFD of a little-endian TIFF: entries in tag order, values of more
// than four bytes behind the table.
class IfdBuilder {
public:
    void Add(uint16_t tag, uint16_t type, std::vector<uint32_t> values)
    {
        entries_.push_back({tag, type, std::move(values)});
    }
    // Writes the IFD at the end of out (word aligned) and points the
    // header at it.
    void Write(std::vector<uint8_t>& out)
    {
        if (out.size() % 2) out.push_back(0);
        std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return a.tag < b.tag; });
        size_t at = out.size();
        Set32(out, 4, uint32_t(at));
        size_t extra = at + 2 + entries_.size() * 12 + 4;
        std::vector<uint8_t> tail;
        Put16(out, uint32_t(entries_.size()));
        for (const Entry& e : entries_) {
            std::vector<uint8_t> bytes;
            unsigned size = zvtiff::TiffTypeSize(e.type);
            for (uint32_t v : e.values) (size == 2 ? Put16(bytes, v) : Put32(bytes, v));
            Put16(out, e.tag);
            Put16(out, e.type);
            Put32(out, uint32_t(e.type == zvtiff::kRational ? e.values.size() / 2 : e.values.size()));
            if (bytes.size() <= 4) {
                bytes.resize(4, 0);
                out.insert(out.end(), bytes.begin(), bytes.end());
            } else {
                Put32(out, uint32_t(extra + tail.size()));
                tail.insert(tail.end(), bytes.begin(), bytes.end());
            }
        }
        Put32(out, 0);
        out.insert(out.end(), tail.begin(), tail.end());
    }

private:
    struct Entry {
        uint16_t tag, type;
        std::vector<uint32_t> values;
    };
    std::vector<Entry> entries_;
};

std::string Hex(const uint8_t* bytes, size_t n)
{
    static const char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(n * 2 + n / 32 + 1);
    for (size_t i = 0; i < n; ++i) {
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 15];
        if (i % 32 == 31) text += '\n';
    }
    return text;
}

// The samples of a TIFF as the engine writes an image: bilevel (one bit,
// black is 1), the image's palette, or 8-bit RGB.
struct TiffSamples {
    enum Form { Bilevel, Palette, Rgb } form;
    uint32_t bits;
    uint32_t perPixel;
};

bool IsCcitt(uint32_t compression)
{
    return compression == 2 || compression == 3 || compression == 4;
}

TiffSamples SamplesOf(const Image& source, const zvtiff::TiffTypeFields& spec)
{
    if (spec.bitsPerSample == 1 || source.Bits() == 1 || IsCcitt(spec.compression))
        return {TiffSamples::Bilevel, 1, 1};
    if (source.Bits() <= 8) return {TiffSamples::Palette, uint32_t(source.Bits()), 1};
    return {TiffSamples::Rgb, 8, 3};
}

// Bits high first; a row starts on a byte.
void PutBits(uint8_t* row, size_t at, uint32_t bits, uint32_t value)
{
    for (uint32_t i = 0; i < bits; ++i, ++at)
        if (value >> (bits - 1 - i) & 1) row[at / 8] |= uint8_t(0x80 >> (at % 8));
}

// One row of a strip or tile: `count` pixels from (x, y), the samples of
// every plane or of one (plane >= 0). Pixels outside the image, which the
// last tiles of a row or column hold, are zero.
void FillTiffRow(const Image& source, const TiffSamples& samples, int32_t x, int32_t y, uint32_t count, int plane,
                 std::vector<uint8_t>& row)
{
    std::fill(row.begin(), row.end(), 0);
    if (y >= source.Height()) return;
    const uint32_t perPixel = plane < 0 ? samples.perPixel : 1;
    for (uint32_t i = 0; i < count && x + int32_t(i) < source.Width(); ++i) {
        const int32_t px = x + int32_t(i);
        switch (samples.form) {
        case TiffSamples::Bilevel:
            if (IsDark(source.PixelRgb(px, y))) PutBits(row.data(), i, 1, 1);
            break;
        case TiffSamples::Palette:
            PutBits(row.data(), size_t(i) * samples.bits, samples.bits, source.PixelValue(px, y));
            break;
        case TiffSamples::Rgb: {
            const uint32_t rgb = source.PixelRgb(px, y);
            for (uint32_t s = 0; s < perPixel; ++s) {
                const uint32_t channel = plane < 0 ? s : uint32_t(plane);
                row[size_t(i) * perPixel + s] = uint8_t(rgb >> (16 - 8 * channel));
            }
            break;
        }
        }
    }
}

// A bilevel strip or tile in a CCITT coding: 2 Modified Huffman rows each
// on a byte; 3 the same behind EOLs that end on a byte (T4Options 4); 4
// each row against the one above, the first against white, with the end
// of facsimile block behind.
void CcittSegment(const std::vector<uint8_t>& segment, size_t rowBytes, uint32_t width, uint32_t compression,
                  std::vector<uint8_t>& coded)
{
    CcittBits bits;
    std::vector<uint8_t> black(width), above(width, 0);
    for (size_t at = 0; at + rowBytes <= segment.size(); at += rowBytes) {
        for (uint32_t x = 0; x < width; ++x) black[x] = segment[at + x / 8] >> (7 - x % 8) & 1;
        if (compression == 4) {
            CodeRowTwoDimensional(bits, black.data(), above.data(), int32_t(width));
            above.swap(black);
            continue;
        }
        if (compression == 3) bits.EndOfLine();
        CodeRowOneDimensional(bits, black.data(), int32_t(width));
        if (compression == 2) bits.AlignToByte();
    }
    if (compression == 4) bits.Put(12, 1), bits.Put(12, 1);
    coded = bits.Bytes();
}

void ReverseBitsOfBytes(std::vector<uint8_t>& row)
{
    for (uint8_t& b : row) {
        uint8_t r = 0;
        for (int i = 0; i < 8; ++i) r = uint8_t(r | ((b >> i & 1) << (7 - i)));
        b = r;
    }
}

}  // namespace

bool EngineWritesTiffCompression(uint32_t compression)
{
    return compression == 1 || IsCcitt(compression) || compression == 5 || compression == 8 ||
           compression == 32946 || compression == 32773;
}

short WriteTiffBytes(const Image& source, const zvtiff::TiffTypeFields& spec, std::vector<uint8_t>* out)
{
    if (source.Empty()) return kEngineNoImage;
    if (!EngineWritesTiffCompression(spec.compression)) return kEngineBadArgument;
    const uint32_t width = uint32_t(source.Width()), height = uint32_t(source.Height());
    const TiffSamples samples = SamplesOf(source, spec);
    const bool reverseBits = samples.form == TiffSamples::Bilevel && spec.fillOrder == 2;
    // Separate planes only mean something for more than one sample.
    const bool planar = spec.planarConfig == 2 && samples.perPixel > 1;
    const uint32_t planes = planar ? samples.perPixel : 1;
    const uint32_t segmentSamples = planar ? 1 : samples.perPixel;
    // Differencing is undone by the readers of LZW and Deflate only, and
    // only on whole bytes.
    const bool compressesWhole = spec.compression != 1 && spec.compression != 32773;
    const bool differenced = spec.predictor == 2 && compressesWhole && samples.bits == 8;

    // A tile larger than the image, rounded up to 16, is cut to that: the
    // padding never outgrows the image.
    uint32_t segmentWidth = width, segmentRows;
    if (spec.tiled) {
        segmentWidth = std::min(spec.tileWidth, (width + 15) / 16 * 16);
        segmentRows = std::min(spec.tileLength, (height + 15) / 16 * 16);
    } else {
        const size_t rowBytes = (size_t(width) * segmentSamples * samples.bits + 7) / 8;
        segmentRows = spec.rowsPerStrip != 0 ? spec.rowsPerStrip : uint32_t(std::max<size_t>(1, 8192 / rowBytes));
        segmentRows = std::min(segmentRows, height);
    }
    const size_t rowBytes = (size_t(segmentWidth) * segmentSamples * samples.bits + 7) / 8;
    const uint32_t across = (width + segmentWidth - 1) / segmentWidth;
    const uint32_t down = (height + segmentRows - 1) / segmentRows;

    std::vector<uint8_t> tiff = {'I', 'I', 42, 0, 0, 0, 0, 0};
    std::vector<uint32_t> offsets, counts;
    std::vector<uint8_t> row(rowBytes), segment, coded;
    // Strips and tiles go left to right, top to bottom, plane after plane.
    for (uint32_t plane = 0; plane < planes; ++plane)
        for (uint32_t j = 0; j < down; ++j)
            for (uint32_t i = 0; i < across; ++i) {
                segment.clear();
                // A strip ends with the image; a tile is whole, padded.
                const uint32_t first = j * segmentRows;
                const uint32_t last = spec.tiled ? first + segmentRows : std::min(height, first + segmentRows);
                for (uint32_t y = first; y < last; ++y) {
                    FillTiffRow(source, samples, int32_t(i * segmentWidth), int32_t(y), segmentWidth,
                                planar ? int(plane) : -1, row);
                    if (differenced) DifferenceRow(row.data(), row.size(), segmentSamples);
                    segment.insert(segment.end(), row.begin(), row.end());
                }
                coded.clear();
                if (spec.compression == 32773)
                    for (size_t at = 0; at < segment.size(); at += rowBytes)
                        PackBitsRow(segment.data() + at, rowBytes, coded);
                else if (spec.compression == 5)
                    LzwStrip(segment.data(), segment.size(), coded);
                else if (spec.compression == 8 || spec.compression == 32946)
                    DeflateStrip(segment.data(), segment.size(), coded);
                else if (IsCcitt(spec.compression))
                    CcittSegment(segment, rowBytes, segmentWidth, spec.compression, coded);
                else
                    coded.swap(segment);
                // Readers take the fill order as that of the stored bytes,
                // coded or not.
                if (reverseBits) ReverseBitsOfBytes(coded);
                offsets.push_back(uint32_t(tiff.size()));
                counts.push_back(uint32_t(coded.size()));
                tiff.insert(tiff.end(), coded.begin(), coded.end());
            }

    IfdBuilder ifd;
    ifd.Add(zvtiff::kTagNewSubfileType, zvtiff::kLong, {0});
    ifd.Add(zvtiff::kTagImageWidth, zvtiff::kLong, {width});
    ifd.Add(zvtiff::kTagImageLength, zvtiff::kLong, {height});
    ifd.Add(zvtiff::kTagBitsPerSample, zvtiff::kShort, std::vector<uint32_t>(samples.perPixel, samples.bits));
    ifd.Add(zvtiff::kTagCompression, zvtiff::kShort, {spec.compression});
    ifd.Add(zvtiff::kTagPhotometric, zvtiff::kShort,
            {samples.form == TiffSamples::Bilevel ? 0u : samples.form == TiffSamples::Palette ? 3u : 2u});
    if (reverseBits) ifd.Add(zvtiff::kTagFillOrder, zvtiff::kShort, {2});
    ifd.Add(zvtiff::kTagSamplesPerPixel, zvtiff::kShort, {samples.perPixel});
    if (spec.tiled) {
        ifd.Add(zvtiff::kTagTileWidth, zvtiff::kLong, {segmentWidth});
        ifd.Add(zvtiff::kTagTileLength, zvtiff::kLong, {segmentRows});
        ifd.Add(zvtiff::kTagTileOffsets, zvtiff::kLong, offsets);
        ifd.Add(zvtiff::kTagTileByteCounts, zvtiff::kLong, counts);
    } else {
        ifd.Add(zvtiff::kTagStripOffsets, zvtiff::kLong, offsets);
        ifd.Add(zvtiff::kTagRowsPerStrip, zvtiff::kLong, {segmentRows});
        ifd.Add(zvtiff::kTagStripByteCounts, zvtiff::kLong, counts);
    }
    double dpiX = DpiOf(source.Header()->xPelsPerMeter), dpiY = DpiOf(source.Header()->yPelsPerMeter);
    if (dpiX > 0 && dpiY > 0) {
        ifd.Add(zvtiff::kTagXResolution, zvtiff::kRational, {uint32_t(std::lround(dpiX * 100)), 100});
        ifd.Add(zvtiff::kTagYResolution, zvtiff::kRational, {uint32_t(std::lround(dpiY * 100)), 100});
        ifd.Add(zvtiff::kTagResolutionUnit, zvtiff::kShort, {2});
    }
    ifd.Add(zvtiff::kTagPlanarConfig, zvtiff::kShort, {planar ? 2u : 1u});
    if (differenced) ifd.Add(zvtiff::kTagPredictor, zvtiff::kShort, {2});
    if (spec.compression == 3) ifd.Add(zvtiff::kTagT4Options, zvtiff::kLong, {4});
    if (samples.form == TiffSamples::Palette) {
        // The colour map: all reds, then greens, then blues, 16 bits each.
        const size_t n = size_t(1) << samples.bits;
        std::vector<uint32_t> map(3 * n);
        for (size_t i = 0; i < n && i < source.Colors(); ++i) {
            map[i] = source.Table()[i].red * 257u;
            map[n + i] = source.Table()[i].green * 257u;
            map[2 * n + i] = source.Table()[i].blue * 257u;
        }
        ifd.Add(320, zvtiff::kShort, map);
    }
    ifd.Write(tiff);
    *out = std::move(tiff);
    return kEngineOk;
}

Image InterlacedRows(const Image& image)
{
    Image out = image;
    int32_t to = 0;
    static const int32_t starts[] = {0, 4, 2, 1}, steps[] = {8, 8, 4, 2};
    for (int pass = 0; pass < 4; ++pass)
        for (int32_t y = starts[pass]; y < image.Height(); y += steps[pass])
            std::memcpy(out.Row(to++), image.Row(y), image.Stride());
    return out;
}

// How far, per channel, an entry may lie from the transparent colour.
constexpr int kTransparentTolerance = 8;

short FinishGif(std::vector<uint8_t>& gif, bool interlaced, int64_t transparentRgb)
{
    const size_t n = gif.size();
    if (n < 13 || std::memcmp(gif.data(), "GIF8", 4) != 0) return kEngineFileFormat;
    size_t at = 13;
    size_t table = 0, tableSize = 0;
    if (gif[10] & 0x80) {
        table = 13;
        tableSize = size_t(3) << ((gif[10] & 7) + 1);
        at += tableSize;
    }
    size_t control = 0;  // the graphic control block before the image
    while (at < n && gif[at] == 0x21) {
        if (at + 1 >= n) return kEngineFileFormat;
        if (gif[at + 1] == 0xF9) control = at;
        at += 2;
        while (at < n && gif[at] != 0) at += size_t(gif[at]) + 1;
        if (at >= n) return kEngineFileFormat;
        ++at;
    }
    if (at + 10 > n || gif[at] != 0x2C) return kEngineFileFormat;
    const size_t descriptor = at;
    if (gif[descriptor + 9] & 0x80) {
        table = descriptor + 10;
        tableSize = size_t(3) << ((gif[descriptor + 9] & 7) + 1);
    }
    if (table == 0 || table + tableSize > n) return kEngineFileFormat;
    if (control != 0 && control + 8 > n) return kEngineFileFormat;

    // The entry nearest the colour: a reduced palette may hold white as 253.
    int index = -1;
    if (transparentRgb >= 0) {
        int best = kTransparentTolerance * kTransparentTolerance * 3 + 1;
        for (size_t i = 0; i < tableSize / 3; ++i) {
            int distance = 0;
            for (int c = 0; c < 3; ++c) {
                int d = int(gif[table + 3 * i + size_t(c)]) - int((transparentRgb >> (16 - 8 * c)) & 0xFF);
                distance += d * d;
            }
            if (distance < best) best = distance, index = int(i);
        }
    }
    if (interlaced) gif[descriptor + 9] |= 0x40;
    if (index < 0) return kEngineOk;
    gif[4] = '9';  // the control block needs the 89a grammar
    if (control != 0) {
        gif[control + 3] |= 1;
        gif[control + 6] = uint8_t(index);
    } else {
        const uint8_t block[] = {0x21, 0xF9, 4, 1, 0, 0, uint8_t(index), 0};
        gif.insert(gif.begin() + long(descriptor), block, block + sizeof block);
    }
    return kEngineOk;
}

namespace {

// A Windows metafile that draws the image: one StretchDIB of a 24-bit DIB
// over a window of the image's size. Its coordinates are 16-bit, so a
// larger image is shrunk to fit.
short MetafileOfImage(const Image& source, std::vector<uint8_t>* out)
{
    constexpr int32_t kMaxSide = 32767;
    Image image = source;
    if (image.Width() > kMaxSide || image.Height() > kMaxSide) {
        const double scale = double(kMaxSide) / std::max(image.Width(), image.Height());
        short code = Resize(image, std::max(1, int32_t(image.Width() * scale)),
                            std::max(1, int32_t(image.Height() * scale)), 1);
        if (code != 0) return code;
    }
    const uint32_t width = uint32_t(image.Width()), height = uint32_t(image.Height());
    const uint32_t stride = (width * 3 + 3) & ~3u;
    std::vector<uint8_t> dib;
    Put32(dib, 40), Put32(dib, width), Put32(dib, height), Put16(dib, 1), Put16(dib, 24);
    Put32(dib, 0), Put32(dib, stride * height);
    Put32(dib, uint32_t(std::max(0, image.Header()->xPelsPerMeter)));
    Put32(dib, uint32_t(std::max(0, image.Header()->yPelsPerMeter)));
    Put32(dib, 0), Put32(dib, 0);
    // Rows bottom up, blue green red.
    for (int32_t y = int32_t(height) - 1; y >= 0; --y) {
        const size_t at = dib.size();
        dib.resize(at + stride, 0);
        for (uint32_t x = 0; x < width; ++x) {
            const uint32_t rgb = image.PixelRgb(int32_t(x), y);
            dib[at + 3 * x] = uint8_t(rgb), dib[at + 3 * x + 1] = uint8_t(rgb >> 8);
            dib[at + 3 * x + 2] = uint8_t(rgb >> 16);
        }
    }
    std::vector<uint8_t> records;
    auto record = [&](uint16_t function, std::initializer_list<uint16_t> words, const std::vector<uint8_t>& tail) {
        Put32(records, uint32_t(3 + words.size() + tail.size() / 2));
        Put16(records, function);
        for (uint16_t w : words) Put16(records, w);
        records.insert(records.end(), tail.begin(), tail.end());
    };
    const uint16_t w = uint16_t(width), h = uint16_t(height);
    record(0x020B, {0, 0}, {});  // the window's origin, y then x
    record(0x020C, {h, w}, {});  // its extent, height then width
    // StretchDIB: SRCCOPY, RGB colours, source and destination boxes, the DIB.
    record(0x0F43, {0x0020, 0x00CC, 0, h, w, 0, 0, h, w, 0, 0}, dib);
    record(0x0000, {}, {});  // the end
    const uint32_t largest = uint32_t(3 + 11 + dib.size() / 2);
    out->clear();
    Put16(*out, 1), Put16(*out, 9), Put16(*out, 0x0300);
    Put32(*out, uint32_t(9 + records.size() / 2));
    Put16(*out, 0);
    Put32(*out, largest);
    Put16(*out, 0);
    out->insert(out->end(), records.begin(), records.end());
    return kEngineOk;
}

}  // namespace

short WriteEpsBytes(const Image& source, const EpsOptions& options, std::vector<uint8_t>* out)
{
    if (source.Empty()) return kEngineNoImage;
    const int32_t width = source.Width(), height = source.Height();
    double dpiX = DpiOf(source.Header()->xPelsPerMeter), dpiY = DpiOf(source.Header()->yPelsPerMeter);
    if (dpiX <= 0) dpiX = 72.0;
    if (dpiY <= 0) dpiY = 72.0;
    const double w = width * 72.0 / dpiX, h = height * 72.0 / dpiY;
    const double ucr = std::clamp(options.grayReplacement, 0.0, 1.0);

    char text[1024];
    std::string ps;
    std::snprintf(text, sizeof text,
                  "%%!PS-Adobe-3.0 EPSF-3.0\n%%%%Creator: Zavrin image engine\n%%%%BoundingBox: 0 0 %ld %ld\n"
                  "%%%%HiResBoundingBox: 0 0 %.4f %.4f\n%%%%LanguageLevel: 2\n%%%%Pages: 1\n%%%%EndComments\n"
                  "%%%%Page: 1 1\ngsave\n%.4f %.4f scale\n/Device%s setcolorspace\n"
                  "<< /ImageType 1 /Width %d /Height %d /BitsPerComponent 8 /Decode [%s]\n"
                  "   /ImageMatrix [%d 0 0 -%d 0 %d] /DataSource currentfile /ASCIIHexDecode filter >>\nimage\n",
                  long(std::ceil(w - 1e-6)), long(std::ceil(h - 1e-6)), w, h, w, h, options.cmyk ? "CMYK" : "RGB",
                  int(width), int(height), options.cmyk ? "0 1 0 1 0 1 0 1" : "0 1 0 1 0 1", int(width), int(height),
                  int(height));
    ps += text;
    std::vector<uint8_t> row(size_t(width) * (options.cmyk ? 4 : 3));
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x) {
            uint32_t rgb = source.PixelRgb(x, y);
            int r = int(rgb >> 16 & 0xFF), g = int(rgb >> 8 & 0xFF), b = int(rgb & 0xFF);
            if (!options.cmyk) {
                row[size_t(x) * 3] = uint8_t(r), row[size_t(x) * 3 + 1] = uint8_t(g), row[size_t(x) * 3 + 2] = uint8_t(b);
                continue;
            }
            // The common gray of the three inks; its share goes to black.
            int c = 255 - r, m = 255 - g, ye = 255 - b;
            int k = int(std::lround(std::min({c, m, ye}) * ucr));
            uint8_t* p = &row[size_t(x) * 4];
            p[0] = uint8_t(c - k), p[1] = uint8_t(m - k), p[2] = uint8_t(ye - k), p[3] = uint8_t(k);
        }
        ps += Hex(row.data(), row.size());
        ps += '\n';
    }
    ps += ">\ngrestore\nshowpage\n%%EOF\n";
    if (options.formFeed) ps += '\f';

    // A TIFF preview or a Windows metafile one: the binary header has a
    // place for each.
    std::vector<uint8_t> tiffPreview, metafilePreview;
    const std::string& kind = options.preview;
    if (kind == "COARSEBW" || kind == "COARSECOLOR" || kind == "FINEBW" || kind == "FINECOLOR") {
        Image small = source;
        if (kind.rfind("COARSE", 0) == 0) {
            short code = Resize(small, std::max(1, width / 2), std::max(1, height / 2), 0);
            if (code != 0) return code;
        }
        zvtiff::TiffTypeFields spec;
        if (kind.find("BW") != std::string::npos) spec.bitsPerSample = 1;
        short code = WriteTiffBytes(small, spec, &tiffPreview);
        if (code != 0) return code;
    } else if (kind == "WMF") {
        short code = MetafileOfImage(source, &metafilePreview);
        if (code != 0) return code;
    }
    out->clear();
    if (!tiffPreview.empty() || !metafilePreview.empty()) {
        // The binary EPS header: PostScript at 30, the previews behind it.
        const uint8_t magic[] = {0xC5, 0xD0, 0xD3, 0xC6};
        const uint32_t metafileAt = metafilePreview.empty() ? 0 : uint32_t(30 + ps.size());
        const uint32_t tiffAt = tiffPreview.empty() ? 0 : uint32_t(30 + ps.size() + metafilePreview.size());
        out->insert(out->end(), magic, magic + 4);
        Put32(*out, 30);
        Put32(*out, uint32_t(ps.size()));
        Put32(*out, metafileAt);
        Put32(*out, uint32_t(metafilePreview.size()));
        Put32(*out, tiffAt);
        Put32(*out, uint32_t(tiffPreview.size()));
        Put16(*out, 0xFFFF);
    }
    out->insert(out->end(), ps.begin(), ps.end());
    out->insert(out->end(), metafilePreview.begin(), metafilePreview.end());
    out->insert(out->end(), tiffPreview.begin(), tiffPreview.end());
    return kEngineOk;
}

}  // namespace ravi
