// The engine's own writers: a TIFF read back by the structure reader with
// its strips decoded, the GIF finishing on the blocks of a real file's
// shape, and the colour arithmetic of the PostScript raster.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "encoder_options.h"
#include "engine_codes.h"
#include "fax_writer.h"
#include "engine_test_util.h"
#include "file_writers.h"
#include "jpeg_writer.h"
#include "tiff_reader.h"

namespace ravi::test {
namespace {

std::vector<uint8_t> UnpackBits(const uint8_t* p, size_t n)
{
    std::vector<uint8_t> out;
    for (size_t i = 0; i < n;) {
        int8_t head = int8_t(p[i++]);
        if (head >= 0) {
            out.insert(out.end(), p + i, p + i + head + 1);
            i += size_t(head) + 1;
        } else if (head != -128) {
            out.insert(out.end(), size_t(1 - head), p[i++]);
        }
    }
    return out;
}

// The strips of the first image, decompressed and joined.
std::vector<uint8_t> Pixels(std::vector<uint8_t>& tiff, zvtiff::TiffIfd* ifdOut)
{
    zvtiff::TiffMemorySource source(tiff.data(), tiff.size());
    zvtiff::TiffStructure structure;
    EXPECT_EQ(zvtiff::ReadTiffStructure(source, &structure), zvtiff::TiffStatus::Ok);
    const zvtiff::TiffIfd& ifd = structure.ifds.at(0);
    *ifdOut = ifd;
    const auto* offsets = ifd.Find(zvtiff::kTagStripOffsets);
    const auto* counts = ifd.Find(zvtiff::kTagStripByteCounts);
    bool packed = zvtiff::ReadImageFacts(ifd).compression == 32773;
    std::vector<uint8_t> pixels;
    for (size_t i = 0; i < offsets->values.size(); ++i) {
        const uint8_t* p = tiff.data() + offsets->values[i];
        std::vector<uint8_t> strip = packed ? UnpackBits(p, counts->values[i]) : std::vector<uint8_t>(p, p + counts->values[i]);
        pixels.insert(pixels.end(), strip.begin(), strip.end());
    }
    return pixels;
}

TEST(FileWriters, TiffStripsHoldThePixelsInEachLayout)
{
    Image image = MakeOrDie(20, 7, 24);
    for (int32_t y = 0; y < 7; ++y)
        for (int32_t x = 0; x < 20; ++x) image.SetPixelValue(x, y, x < 10 ? 0x102030 : uint32_t(0xFFFFFF));
    image.SetPixelValue(3, 2, 0xABCDEF);
    image.Header()->xPelsPerMeter = image.Header()->yPelsPerMeter = 11811;  // 300 dpi

    for (uint32_t compression : {1u, 32773u}) {
        zvtiff::TiffTypeFields spec;
        spec.compression = compression;
        spec.rowsPerStrip = 3;
        std::vector<uint8_t> tiff;
        ASSERT_EQ(WriteTiffBytes(image, spec, &tiff), 0);
        zvtiff::TiffIfd ifd;
        std::vector<uint8_t> pixels = Pixels(tiff, &ifd);
        zvtiff::TiffImageFacts facts = zvtiff::ReadImageFacts(ifd);
        EXPECT_EQ(facts.compression, compression);
        EXPECT_EQ(facts.rowsPerStrip, 3u);
        EXPECT_EQ(ifd.Find(zvtiff::kTagStripOffsets)->values.size(), 3u);
        EXPECT_EQ(zvtiff::EntryNumber(*ifd.Find(zvtiff::kTagXResolution), 0, 0), 300u);
        ASSERT_EQ(pixels.size(), 20u * 7 * 3);
        EXPECT_EQ(pixels[(2 * 20 + 3) * 3], 0xAB);
        EXPECT_EQ(pixels[(2 * 20 + 3) * 3 + 2], 0xEF);
        EXPECT_EQ(pixels[(6 * 20 + 19) * 3 + 1], 0xFF);
    }

    // Bilevel, bits in reversed fill order: black is 1.
    zvtiff::TiffTypeFields fax;
    fax.bitsPerSample = 1;
    fax.fillOrder = 2;
    std::vector<uint8_t> tiff;
    ASSERT_EQ(WriteTiffBytes(image, fax, &tiff), 0);
    zvtiff::TiffIfd ifd;
    std::vector<uint8_t> pixels = Pixels(tiff, &ifd);
    EXPECT_EQ(zvtiff::ReadImageFacts(ifd).photometric, 0u);
    EXPECT_EQ(zvtiff::ReadImageFacts(ifd).fillOrder, 2u);
    ASSERT_EQ(pixels.size(), 3u * 7);
    EXPECT_EQ(pixels[0], 0xFF);  // pixels 0..7 are dark
    EXPECT_EQ(pixels[1], 0x03);  // 8 and 9 dark, in the low bits
    EXPECT_EQ(pixels[2], 0x00);

    zvtiff::TiffTypeFields jpeg;
    jpeg.compression = 7;
    EXPECT_EQ(WriteTiffBytes(image, jpeg, &tiff), kEngineBadArgument);
}

TEST(FileWriters, TilesArePaddedAndPlanesFollowOneAnother)
{
    // 20 x 7 in tiles of 16 x 16: two tiles a plane, the second padded.
    Image image = MakeOrDie(20, 7, 24);
    image.SetPixelValue(17, 5, 0x112233);
    zvtiff::TiffTypeFields spec;
    spec.tiled = true;
    spec.tileWidth = spec.tileLength = 16;
    spec.planarConfig = 2;
    std::vector<uint8_t> tiff;
    ASSERT_EQ(WriteTiffBytes(image, spec, &tiff), 0);
    zvtiff::TiffMemorySource source(tiff.data(), tiff.size());
    zvtiff::TiffStructure structure;
    ASSERT_EQ(zvtiff::ReadTiffStructure(source, &structure), zvtiff::TiffStatus::Ok);
    const zvtiff::TiffIfd& ifd = structure.ifds.at(0);
    zvtiff::TiffImageFacts facts = zvtiff::ReadImageFacts(ifd);
    EXPECT_TRUE(facts.tiled);
    EXPECT_EQ(facts.planarConfig, 2u);
    EXPECT_EQ(ifd.Find(zvtiff::kTagStripOffsets), nullptr);
    const auto& offsets = ifd.Find(zvtiff::kTagTileOffsets)->values;
    const auto& counts = ifd.Find(zvtiff::kTagTileByteCounts)->values;
    ASSERT_EQ(offsets.size(), 6u);
    for (uint32_t count : counts) EXPECT_EQ(count, 16u * 16);
    // Pixel (17, 5) lies in the second tile of each plane at (1, 5).
    for (uint32_t plane = 0; plane < 3; ++plane)
        EXPECT_EQ(tiff[offsets[plane * 2 + 1] + 5 * 16 + 1], 0x11 * (plane + 1)) << plane;

    // A tile far larger than the image is cut to the image rounded up to 16.
    spec.tileWidth = spec.tileLength = 4096;
    spec.planarConfig = 1;
    ASSERT_EQ(WriteTiffBytes(image, spec, &tiff), 0);
    zvtiff::TiffMemorySource big(tiff.data(), tiff.size());
    ASSERT_EQ(zvtiff::ReadTiffStructure(big, &structure), zvtiff::TiffStatus::Ok);
    facts = zvtiff::ReadImageFacts(structure.ifds.at(0));
    EXPECT_EQ(facts.tileWidth, 32u);
    EXPECT_EQ(facts.tileLength, 16u);
}

TEST(FileWriters, GifGetsItsInterlaceFlagAndTransparentEntry)
{
    // A GIF87a of 2 x 2 with a global table of black and white, no control block.
    std::vector<uint8_t> gif = {'G', 'I', 'F', '8', '7', 'a', 2, 0, 2, 0, 0x80, 0, 0,
                                0, 0, 0, 255, 255, 255,
                                0x2C, 0, 0, 0, 0, 2, 0, 2, 0, 0,
                                2, 2, 0x44, 0x01, 0, 0x3B};
    std::vector<uint8_t> plain = gif;
    ASSERT_EQ(FinishGif(gif, true, 0xFFFFFF), 0);
    EXPECT_EQ(std::string(gif.begin(), gif.begin() + 6), "GIF89a");
    // The control block goes in front of the descriptor, naming entry 1.
    const std::vector<uint8_t> control = {0x21, 0xF9, 4, 1, 0, 0, 1, 0};
    EXPECT_EQ(std::vector<uint8_t>(gif.begin() + 19, gif.begin() + 27), control);
    EXPECT_EQ(gif[27], 0x2C);
    EXPECT_EQ(gif[27 + 9] & 0x40, 0x40);

    // A colour the table lacks makes nothing transparent; a cut file is refused.
    std::vector<uint8_t> other = plain;
    ASSERT_EQ(FinishGif(other, false, 0x123456), 0);
    EXPECT_EQ(other, plain);
    std::vector<uint8_t> cut(plain.begin(), plain.begin() + 22);
    EXPECT_EQ(FinishGif(cut, true, 0), kEngineFileFormat);

    Image rows = MakeOrDie(1, 10, 8);
    for (int32_t y = 0; y < 10; ++y) rows.SetPixelValue(0, y, uint32_t(y));
    Image interlaced = InterlacedRows(rows);
    std::string order;
    for (int32_t y = 0; y < 10; ++y) order += char('0' + interlaced.PixelValue(0, y));
    EXPECT_EQ(order, "0842613579");
}

TEST(FileWriters, EpsMovesTheSharedGrayToBlackByTheReplacementShare)
{
    Image image = MakeOrDie(1, 1, 24);
    image.SetPixelValue(0, 0, 0x406080);  // inks C 191, M 159, Y 127
    EpsOptions options;
    options.cmyk = true;
    options.grayReplacement = 0.5;
    options.formFeed = true;
    std::vector<uint8_t> eps;
    ASSERT_EQ(WriteEpsBytes(image, options, &eps), 0);
    std::string text(eps.begin(), eps.end());
    EXPECT_EQ(text.rfind("%!PS-Adobe-3.0 EPSF-3.0", 0), 0u);
    EXPECT_NE(text.find("/DeviceCMYK setcolorspace"), std::string::npos);
    // Black takes half of 127: 64; each ink gives it up.
    EXPECT_NE(text.find("\n7F5F3F40\n>"), std::string::npos) << text;
    EXPECT_EQ(text.back(), '\f');

    options.preview = "FINEBW";
    ASSERT_EQ(WriteEpsBytes(image, options, &eps), 0);
    ASSERT_GT(eps.size(), 30u);
    EXPECT_EQ(eps[0], 0xC5);
    uint32_t tiffAt = eps[20] | eps[21] << 8 | eps[22] << 16 | uint32_t(eps[23]) << 24;
    ASSERT_LT(tiffAt + 4, eps.size());
    EXPECT_EQ(eps[tiffAt], 'I');
    EXPECT_EQ(eps[tiffAt + 2], 42);

    // A metafile preview takes the header's other place: a memory
    // metafile of version 3 right behind the PostScript.
    options.preview = "WMF";
    ASSERT_EQ(WriteEpsBytes(image, options, &eps), 0);
    auto word = [&](size_t at) { return eps[at] | eps[at + 1] << 8 | eps[at + 2] << 16 | uint32_t(eps[at + 3]) << 24; };
    const uint32_t metafileAt = word(12), metafileLength = word(16);
    EXPECT_EQ(metafileAt, 30 + word(8));
    EXPECT_EQ(word(20), 0u);
    ASSERT_EQ(size_t(metafileAt) + metafileLength, eps.size());
    EXPECT_EQ(word(metafileAt), 0x00090001u);
    // Its size in words, in the header, is the whole of it.
    EXPECT_EQ(size_t(eps[metafileAt + 6] | eps[metafileAt + 7] << 8) * 2, size_t(metafileLength));
}

TEST(FileWriters, FaxPagesAreClassFInTheirResolution)
{
    Image image = MakeOrDie(100, kFaxCoarsePageRows + 1, 1);
    for (bool multiPage : {false, true}) {
        std::vector<uint8_t> fax;
        FaxOptions options;
        options.fine = false;
        options.multiPage = multiPage;
        ASSERT_EQ(WriteFaxTiffBytes(image, options, &fax), 0);
        zvtiff::TiffMemorySource source(fax.data(), fax.size());
        zvtiff::TiffStructure tiff;
        ASSERT_EQ(zvtiff::ReadTiffStructure(source, &tiff), zvtiff::TiffStatus::Ok);
        ASSERT_EQ(tiff.ifds.size(), multiPage ? 2u : 1u);
        zvtiff::TiffImageFacts facts = zvtiff::ReadImageFacts(tiff.ifds[0]);
        EXPECT_EQ(facts.width, uint32_t(kFaxWidth));
        EXPECT_EQ(facts.height, multiPage ? uint32_t(kFaxCoarsePageRows) : uint32_t(kFaxCoarsePageRows + 1));
        EXPECT_EQ(facts.compression, 3u);
        EXPECT_EQ(facts.fillOrder, 2u);
        EXPECT_EQ(facts.t4Options, 4u);
        EXPECT_EQ(zvtiff::EntryNumber(*tiff.ifds[0].Find(zvtiff::kTagYResolution), 0, 0), 98u);
        // Each line starts with an EOL ending on a byte, low bits first.
        uint32_t data = tiff.ifds[0].Find(zvtiff::kTagStripOffsets)->values[0];
        EXPECT_EQ(fax[data], 0x00);
        EXPECT_EQ(fax[data + 1], 0x80);
    }

    // A vertical offset of 5 mm is 19 coarse lines above the image on
    // every page, so a page holds 19 rows less of it.
    FaxOptions options;
    options.fine = false;
    options.multiPage = true;
    options.verticalOffsetMm = 5.0;
    std::vector<uint8_t> fax;
    ASSERT_EQ(WriteFaxTiffBytes(image, options, &fax), 0);
    zvtiff::TiffMemorySource source(fax.data(), fax.size());
    zvtiff::TiffStructure tiff;
    ASSERT_EQ(zvtiff::ReadTiffStructure(source, &tiff), zvtiff::TiffStatus::Ok);
    ASSERT_EQ(tiff.ifds.size(), 2u);
    EXPECT_EQ(zvtiff::ReadImageFacts(tiff.ifds[0]).height, uint32_t(kFaxCoarsePageRows));
    EXPECT_EQ(zvtiff::ReadImageFacts(tiff.ifds[1]).height, 19u + (kFaxCoarsePageRows + 1) - (kFaxCoarsePageRows - 19));
}

TEST(FileWriters, JpegQuantizesByTheQualityAndCoversPartialBlocks)
{
    // 13 x 9 leaves blocks cut at both edges; the samples repeat there.
    Image image = MakeOrDie(13, 9, 24);
    for (int32_t y = 0; y < 9; ++y)
        for (int32_t x = 0; x < 13; ++x) image.SetPixelValue(x, y, uint32_t(x * 19 << 16 | y * 27 << 8 | 0x80));
    std::vector<uint8_t> jpeg;
    auto firstLuminanceQuant = [&](int quality) {
        EXPECT_EQ(WriteJpegBytes(image, quality, &jpeg), 0);
        const uint8_t dqt[] = {0xFF, 0xDB, 0, 67, 0};
        auto at = std::search(jpeg.begin(), jpeg.end(), dqt, dqt + sizeof dqt);
        return at == jpeg.end() ? -1 : int(at[sizeof dqt]);
    };
    // The example table's 16 at quality 50, halved at 75, 1 at 100.
    EXPECT_EQ(firstLuminanceQuant(50), 16);
    EXPECT_EQ(firstLuminanceQuant(75), 8);
    EXPECT_EQ(firstLuminanceQuant(100), 1);
    EXPECT_EQ(jpeg[0], 0xFF);
    EXPECT_EQ(jpeg[1], 0xD8);
    EXPECT_EQ(jpeg[jpeg.size() - 1], 0xD9);
    // The page's factor: 2 is the best quality, 20 (its default) 0.929.
    EXPECT_FLOAT_EQ(JpegQualityFromFactor(2), 1.0f);
    EXPECT_NEAR(JpegQualityFromFactor(20), 0.9289f, 1e-4);
    EXPECT_FLOAT_EQ(JpegQualityFromFactor(300), 0.0f);
    EXPECT_EQ(JpegQualityPercent(JpegQualityFromFactor(20)), 93);
    EXPECT_EQ(JpegQualityPercent(JpegQualityFromFactor(255)), 1);
}

}  // namespace
}  // namespace ravi::test
