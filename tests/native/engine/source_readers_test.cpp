// The engine's own readers: CUT pictures coloured by their palette file or
// read as greys, PCX pictures of each depth, and damaged files of both
// refused with the engine's codes; and the PCX the engine writes, read back.
#include <gtest/gtest.h>

#include <functional>

#include "engine_codes.h"
#include "file_writers.h"
#include "source_file_bytes.h"
#include "source_readers.h"

namespace ravi::test {
namespace {

using zvtest::Bytes;

// Indices 1 1 1 2 3 0 (a run, three literals) and six times 4.
const std::vector<Bytes> kCutLines = {{0x83, 1, 3, 2, 3, 0, 0}, {0x86, 4, 0}};
const uint32_t kCutIndices[2][6] = {{1, 1, 1, 2, 3, 0}, {4, 4, 4, 4, 4, 4}};

TEST(CutReader, TheIndicesTakeThePalettesColoursAndAreGreysWithoutOne)
{
    Bytes cut = zvtest::CutPicture(6, kCutLines);
    // Five entries on a scale of 0..63: 63 reads as 255, 21 as 85.
    Bytes pal = zvtest::CutPaletteFile({{0, 0, 0}, {63, 0, 0}, {0, 63, 0}, {0, 0, 63}, {21, 21, 63}}, 63);
    CutPalette palette;
    ASSERT_EQ(ReadCutPalette(pal.data(), pal.size(), &palette), 0);
    ASSERT_EQ(palette.count, 5);

    Image coloured, grey;
    ASSERT_EQ(ReadCutPicture(cut.data(), cut.size(), &palette, &coloured), 0);
    ASSERT_EQ(ReadCutPicture(cut.data(), cut.size(), nullptr, &grey), 0);
    ASSERT_EQ(coloured.Width(), 6);
    ASSERT_EQ(coloured.Height(), 2);
    EXPECT_EQ(coloured.Bits(), 8);
    const uint32_t expected[2][6] = {
        {0xFF0000, 0xFF0000, 0xFF0000, 0x00FF00, 0x0000FF, 0x000000},
        {0x5555FF, 0x5555FF, 0x5555FF, 0x5555FF, 0x5555FF, 0x5555FF},
    };
    for (int32_t y = 0; y < 2; ++y)
        for (int32_t x = 0; x < 6; ++x) {
            EXPECT_EQ(coloured.PixelRgb(x, y), expected[y][x]) << x << "," << y;
            EXPECT_EQ(grey.PixelRgb(x, y), kCutIndices[y][x] * 0x010101u) << x << "," << y;
        }
    // An index the palette does not colour is black, not a grey.
    EXPECT_EQ(coloured.Table()[200].red + coloured.Table()[200].green + coloured.Table()[200].blue, 0);
}

// Entries never cross the end of a 512-byte block: the 79th entry starts
// the second block, past four bytes of padding.
TEST(CutReader, PaletteEntriesSkipTheEndOfEachBlock)
{
    std::vector<std::array<uint16_t, 3>> entries(100);
    for (size_t i = 0; i < entries.size(); ++i) entries[i] = {uint16_t(i), uint16_t(255 - i), 7};
    Bytes pal = zvtest::CutPaletteFile(entries);
    ASSERT_EQ(pal.size(), 512u + 22 * 6);
    CutPalette palette;
    ASSERT_EQ(ReadCutPalette(pal.data(), pal.size(), &palette), 0);
    ASSERT_EQ(palette.count, 100);
    EXPECT_EQ(palette.entries[77].red, 77);
    EXPECT_EQ(palette.entries[78].red, 78);
    EXPECT_EQ(palette.entries[99].green, 255 - 99);
    EXPECT_EQ(palette.entries[99].blue, 7);
}

TEST(PcxReader, EachDepthGivesItsPixelsAndColours)
{
    // 1 bit, 10 pixels: the line's bytes run past the width. Lines A0 40
    // and FF FF, the last as a run.
    Bytes file = zvtest::PcxPicture(1, 1, 10, 2, 2, {0xA0, 0x40, 0xC2, 0xFF});
    Image image;
    ASSERT_EQ(ReadPcxPicture(file.data(), file.size(), &image), 0);
    EXPECT_EQ(image.Bits(), 1);
    EXPECT_EQ(image.Width(), 10);
    EXPECT_EQ(image.PixelRgb(0, 0), 0xFFFFFFu);
    EXPECT_EQ(image.PixelRgb(1, 0), 0x000000u);
    EXPECT_EQ(image.PixelRgb(9, 0), 0xFFFFFFu);
    EXPECT_EQ(image.Header()->xPelsPerMeter, 11811);

    // 16 colours in four planes, the header's palette: pixel 0 is index
    // 1 (plane 0), pixel 1 index 10 (planes 1 and 3), pixel 2 index 15.
    const Bytes planes = {0xA0, 0, 0x60, 0, 0x20, 0, 0x60, 0};
    Bytes reds(48);
    for (int i = 0; i < 16; ++i) reds[size_t(3 * i)] = uint8_t(i * 16);
    file = zvtest::PcxPicture(1, 4, 3, 1, 2, planes, reds);
    ASSERT_EQ(ReadPcxPicture(file.data(), file.size(), &image), 0);
    EXPECT_EQ(image.Bits(), 4);
    EXPECT_EQ(image.PixelValue(0, 0), 1u);
    EXPECT_EQ(image.PixelValue(1, 0), 10u);
    EXPECT_EQ(image.PixelValue(2, 0), 15u);
    EXPECT_EQ(image.PixelRgb(1, 0), 0xA00000u);
    // Version 3 has no palette in its header: the standard colours stand.
    file = zvtest::PcxPicture(1, 4, 3, 1, 2, planes, reds, 3);
    ASSERT_EQ(ReadPcxPicture(file.data(), file.size(), &image), 0);
    EXPECT_EQ(image.PixelRgb(2, 0), 0xFFFFFFu);

    // 256 colours from the end of the file; without them, greys. Lines
    // 5 5 5 5 and 5 200 200 0: the first run goes on into the second line.
    const Bytes runs = {0xC5, 5, 0xC2, 200, 0};
    Bytes colours(768);
    colours[15] = 0x12;
    colours[600] = 0x34;
    file = zvtest::PcxPicture(8, 1, 3, 2, 4, runs, colours);
    ASSERT_EQ(ReadPcxPicture(file.data(), file.size(), &image), 0);
    EXPECT_EQ(image.Bits(), 8);
    EXPECT_EQ(image.PixelRgb(0, 0), 0x120000u);
    EXPECT_EQ(image.PixelRgb(1, 1), 0x340000u);
    file = zvtest::PcxPicture(8, 1, 3, 2, 4, runs);
    ASSERT_EQ(ReadPcxPicture(file.data(), file.size(), &image), 0);
    EXPECT_EQ(image.PixelRgb(1, 1), 0xC8C8C8u);

    // 24 bits as red, green and blue planes.
    file = zvtest::PcxPicture(8, 3, 2, 1, 2, {0x11, 0x44, 0x22, 0x55, 0x33, 0x66});
    ASSERT_EQ(ReadPcxPicture(file.data(), file.size(), &image), 0);
    EXPECT_EQ(image.Bits(), 24);
    EXPECT_EQ(image.PixelRgb(0, 0), 0x112233u);
    EXPECT_EQ(image.PixelRgb(1, 0), 0x445566u);
}

struct Damage {
    const char* what;
    std::function<void(Bytes&)> change;
    short code;
};

// Each damaged file is refused with its code, and the image given in is
// left as it was.
void ExpectRefused(const Bytes& good, const std::vector<Damage>& table,
                   const std::function<short(const Bytes&, Image*)>& read)
{
    for (const Damage& damage : table) {
        Bytes file = good;
        damage.change(file);
        Image image;
        ASSERT_EQ(MakeImage(1, 1, 24, &image), 0);
        EXPECT_EQ(read(file, &image), damage.code) << damage.what;
        EXPECT_EQ(image.Width(), 1) << damage.what;
    }
}

void Set16(Bytes& file, size_t at, uint16_t value)
{
    file[at] = uint8_t(value);
    file[at + 1] = uint8_t(value >> 8);
}

TEST(CutReader, DamagedPicturesAndPalettesAreRefused)
{
    // Row 0 stands at byte 6: its count 7, then 83 01 | 03 02 03 00 | 00.
    const Bytes cut = zvtest::CutPicture(6, kCutLines);
    ExpectRefused(cut,
                  {
                      {"shorter than its header", [](Bytes& f) { f.resize(5); }, kEngineTruncated},
                      {"no width", [](Bytes& f) { Set16(f, 0, 0); }, kEngineBadSize},
                      {"more lines than the file holds", [](Bytes& f) { Set16(f, 2, 60000); }, kEngineTruncated},
                      {"more pixels than the file can hold", [](Bytes& f) { Set16(f, 0, 65535); }, kEngineTruncated},
                      {"a line runs past the width", [](Bytes& f) { Set16(f, 0, 5); }, kEngineFileFormat},
                      {"a line falls short of the width", [](Bytes& f) { Set16(f, 0, 7); }, kEngineFileFormat},
                      {"a line's count runs past the file", [](Bytes& f) { Set16(f, 6, 999); }, kEngineTruncated},
                      {"a line without its closing 0", [](Bytes& f) { f[6] -= 1; }, kEngineFileFormat},
                      {"the last line cut off", [](Bytes& f) { f.pop_back(); }, kEngineTruncated},
                  },
                  [](const Bytes& f, Image* out) { return ReadCutPicture(f.data(), f.size(), nullptr, out); });

    const Bytes pal = zvtest::CutPaletteFile({{1, 2, 3}, {4, 5, 6}});
    const Damage palettes[] = {
        {"shorter than its header", [](Bytes& f) { f.resize(39); }, kEngineTruncated},
        {"not marked AH", [](Bytes& f) { f[1] = 'X'; }, kEngineFileFormat},
        {"more than 256 entries", [](Bytes& f) { Set16(f, 0x0C, 256); }, kEngineFileFormat},
        {"a scale of 0", [](Bytes& f) { Set16(f, 0x10, 0); }, kEngineFileFormat},
        {"fewer entries than it claims", [](Bytes& f) { Set16(f, 0x0C, 2); }, kEngineTruncated},
    };
    for (const Damage& damage : palettes) {
        Bytes file = pal;
        damage.change(file);
        CutPalette palette;
        EXPECT_EQ(ReadCutPalette(file.data(), file.size(), &palette), damage.code) << damage.what;
        EXPECT_EQ(palette.count, 0) << damage.what;
    }
}

TEST(PcxReader, DamagedPicturesAreRefused)
{
    const Bytes good = zvtest::PcxPicture(8, 1, 4, 2, 4, {1, 2, 3, 4, 5, 6, 7, 8});
    ExpectRefused(good,
                  {
                      {"shorter than its header", [](Bytes& f) { f.resize(127); }, kEngineTruncated},
                      {"not marked 0x0A", [](Bytes& f) { f[0] = 0x0B; }, kEngineFileFormat},
                      {"not packed in runs", [](Bytes& f) { f[2] = 0; }, kEngineFileFormat},
                      {"2 bits in 1 plane", [](Bytes& f) { f[3] = 2; }, kEngineBadDepth},
                      {"8 bits in 2 planes", [](Bytes& f) { f[65] = 2; }, kEngineBadDepth},
                      {"right edge left of the left", [](Bytes& f) { Set16(f, 4, 9); }, kEngineBadSize},
                      {"lines narrower than the width", [](Bytes& f) { Set16(f, 66, 3); }, kEngineFileFormat},
                      {"lines of no bytes", [](Bytes& f) { Set16(f, 66, 0); }, kEngineFileFormat},
                      {"more lines than the file can hold",
                       [](Bytes& f) { Set16(f, 10, 60000); }, kEngineTruncated},
                      {"a side above the engine's largest",
                       [](Bytes& f) {
                           f[3] = 1;
                           Set16(f, 8, 65535);
                           Set16(f, 66, 8192);
                           Set16(f, 10, 0);
                           f.resize(128 + 200, 0xFF);
                       },
                       kEngineBadSize},
                      {"the runs end before the last line", [](Bytes& f) { f.resize(f.size() - 1); }, kEngineTruncated},
                      {"a run's byte cut off", [](Bytes& f) { f.back() = 0xC2; }, kEngineTruncated},
                  },
                  [](const Bytes& f, Image* out) { return ReadPcxPicture(f.data(), f.size(), out); });
}

// Written and read back, each depth keeps its pixels: runs longer than a
// count byte holds, and lone bytes that look like counts, survive.
TEST(PcxWriter, EachDepthReadsBackAsItWasWritten)
{
    for (int bits : {1, 8, 24, 32}) {
        Image image;
        ASSERT_EQ(MakeImage(131, 3, bits, &image), 0);
        // A 1-bit PCX is read as black and white, whatever its header says.
        for (uint32_t i = 0; i < image.Colors(); ++i)
            image.Table()[i] = bits == 1 ? RgbQuad{uint8_t(255 * i), uint8_t(255 * i), uint8_t(255 * i), 0}
                                         : RgbQuad{uint8_t(i), uint8_t(255 - i), uint8_t(i * 7), 0};
        const uint32_t top = bits == 1 ? 1 : bits == 8 ? 255 : 0xFFFFFF;
        for (int32_t y = 0; y < 3; ++y)
            for (int32_t x = 0; x < 131; ++x)
                image.SetPixelValue(x, y, y == 0 ? top : y == 1 ? uint32_t(x * 2654435761u) % (top + 1) : 0xC1 % (top + 1));
        Bytes pcx;
        ASSERT_EQ(WritePcxBytes(image, &pcx), 0) << bits;
        Image back;
        ASSERT_EQ(ReadPcxPicture(pcx.data(), pcx.size(), &back), 0) << bits;
        ASSERT_EQ(back.Width(), 131);
        for (int32_t y = 0; y < 3; ++y)
            for (int32_t x = 0; x < 131; ++x)
                ASSERT_EQ(back.PixelRgb(x, y), image.PixelRgb(x, y) & 0xFFFFFF) << bits << " bits at " << x << "," << y;
    }
}

}  // namespace
}  // namespace ravi::test
