// The TIFF structure reader on files built byte by byte, in both byte
// orders, and on every kind of damage it must refuse; the type text that
// the scan gives and the engine reads.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "tiff_type_text.h"

using namespace zvtiff;

namespace {

// Writes a classic TIFF in either byte order: entries are added to the
// current IFD, values longer than four bytes go to the end of the file.
class TiffBuilder {
public:
    explicit TiffBuilder(bool big) : big_(big)
    {
        bytes_ = big ? std::vector<uint8_t>{'M', 'M', 0, 42} : std::vector<uint8_t>{'I', 'I', 42, 0};
        U32(8);
    }
    struct Entry {
        uint16_t tag, type;
        uint32_t count;
        std::vector<uint8_t> data;
    };
    void Add(uint16_t tag, uint16_t type, std::vector<uint32_t> values)
    {
        // An eight-byte value is given as its two 32-bit halves.
        unsigned size = TiffTypeSize(type);
        unsigned unit = size == 8 ? 4 : size;
        Entry e{tag, type, static_cast<uint32_t>(values.size() * unit / size), {}};
        for (uint32_t v : values) Put(e.data, v, unit);
        entries_.push_back(e);
    }
    void AddRaw(uint16_t tag, uint16_t type, uint32_t count, uint32_t value)
    {
        Entry e{tag, type, count, {}};
        Put(e.data, value, 4);
        e.data.resize(4);
        rawEntries_.push_back(entries_.size());
        entries_.push_back(e);
    }
    // Lays out the IFD at the end of the file; its next offset is 0 until
    // the next IFD is started or Link is used.
    std::size_t EndIfd()
    {
        std::size_t at = bytes_.size();
        std::size_t tableEnd = at + 2 + entries_.size() * 12 + 4;
        std::vector<uint8_t> extra;
        std::vector<uint8_t> table;
        Put(table, static_cast<uint32_t>(entries_.size()), 2);
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            Entry& e = entries_[i];
            Put(table, e.tag, 2);
            Put(table, e.type, 2);
            Put(table, e.count, 4);
            bool raw = std::find(rawEntries_.begin(), rawEntries_.end(), i) != rawEntries_.end();
            if (raw || e.data.size() <= 4) {
                e.data.resize(4, 0);
                table.insert(table.end(), e.data.begin(), e.data.end());
            } else {
                Put(table, static_cast<uint32_t>(tableEnd + extra.size()), 4);
                extra.insert(extra.end(), e.data.begin(), e.data.end());
            }
        }
        Put(table, 0, 4);
        bytes_.insert(bytes_.end(), table.begin(), table.end());
        bytes_.insert(bytes_.end(), extra.begin(), extra.end());
        entries_.clear();
        rawEntries_.clear();
        if (lastNext_ != 0) SetU32(lastNext_, static_cast<uint32_t>(at));
        lastNext_ = tableEnd - 4;
        return at;
    }
    void SetU32(std::size_t at, uint32_t v)
    {
        std::vector<uint8_t> b;
        Put(b, v, 4);
        std::copy(b.begin(), b.end(), bytes_.begin() + static_cast<long>(at));
    }
    std::size_t LastNextOffset() const { return lastNext_; }
    std::vector<uint8_t>& Bytes() { return bytes_; }

private:
    void Put(std::vector<uint8_t>& out, uint32_t v, unsigned size)
    {
        for (unsigned i = 0; i < size; ++i)
            out.push_back(static_cast<uint8_t>(big_ ? v >> (8 * (size - 1 - i)) : v >> (8 * i)));
    }
    void U32(uint32_t v) { Put(bytes_, v, 4); }
    bool big_;
    std::vector<uint8_t> bytes_;
    std::vector<Entry> entries_;
    std::vector<std::size_t> rawEntries_;
    std::size_t lastNext_ = 4;
};

TiffStatus Read(std::vector<uint8_t>& bytes, TiffStructure* out)
{
    TiffMemorySource source(bytes.data(), bytes.size());
    return ReadTiffStructure(source, out);
}

// An RGB image, LZW with a predictor, in strips of 16 rows.
void AddRgbImage(TiffBuilder& b)
{
    b.Add(kTagImageWidth, kLong, {40});
    b.Add(kTagImageLength, kShort, {30});
    b.Add(kTagBitsPerSample, kShort, {8, 8, 8});
    b.Add(kTagCompression, kShort, {5});
    b.Add(kTagPhotometric, kShort, {2});
    b.Add(kTagSamplesPerPixel, kShort, {3});
    b.Add(kTagRowsPerStrip, kLong, {16});
    b.Add(kTagXResolution, kRational, {300, 1});
    b.Add(kTagPredictor, kShort, {2});
}

}  // namespace

TEST(TiffReader, ReadsEveryIfdAndEntryInBothByteOrders)
{
    for (bool big : {false, true}) {
        SCOPED_TRACE(big ? "MM" : "II");
        TiffBuilder b(big);
        AddRgbImage(b);
        b.EndIfd();
        b.Add(kTagImageWidth, kShort, {8});
        b.Add(kTagCompression, kShort, {3});
        b.Add(kTagTileWidth, kShort, {16});
        b.Add(kTagTileLength, kShort, {32});
        b.Add(305, kAscii, {'z', 'v', 0});
        b.AddRaw(999, 77, 5, 0x01020304);  // a type no reader knows
        b.EndIfd();
        TiffStructure tiff;
        ASSERT_EQ(Read(b.Bytes(), &tiff), TiffStatus::Ok);
        EXPECT_EQ(tiff.bigEndian, big);
        ASSERT_EQ(tiff.ifds.size(), 2u);
        EXPECT_EQ(tiff.ifds[0].entries.size(), 9u);

        const TiffEntry* bps = tiff.ifds[0].Find(kTagBitsPerSample);
        ASSERT_NE(bps, nullptr);
        EXPECT_FALSE(bps->valuesInline);
        EXPECT_EQ(bps->values, (std::vector<uint32_t>{8, 8, 8}));
        const TiffEntry* res = tiff.ifds[0].Find(kTagXResolution);
        EXPECT_EQ(res->values, (std::vector<uint32_t>{300, 1}));
        EXPECT_EQ(EntryNumber(*res, 0, 0), 300u);
        EXPECT_EQ(tiff.ifds[1].Find(305)->text, "zv");
        const TiffEntry* unknown = tiff.ifds[1].Find(999);
        EXPECT_TRUE(unknown->values.empty());
        EXPECT_EQ(unknown->valueOffset, 0x01020304u);

        TiffImageFacts first = ReadImageFacts(tiff.ifds[0]);
        EXPECT_EQ(TiffTypeText(first), "COMP=5;PHOTO=2;BPS=8;SPP=3;FILL=1;PLANAR=1;PRED=2;STRIPS=16");
        TiffImageFacts second = ReadImageFacts(tiff.ifds[1]);
        EXPECT_EQ(TiffTypeText(second), "COMP=3;PHOTO=1;BPS=1;SPP=1;FILL=1;PLANAR=1;PRED=1;TILES=16x32");
    }
}

TEST(TiffReader, RefusesWhatIsNoClassicTiff)
{
    std::vector<std::pair<std::vector<uint8_t>, TiffStatus>> cases = {
        {{}, TiffStatus::NotTiff},
        {{'I', 'I', 42}, TiffStatus::NotTiff},
        {{'B', 'M', 42, 0, 8, 0, 0, 0}, TiffStatus::NotTiff},
        {{'I', 'I', 41, 0, 8, 0, 0, 0}, TiffStatus::NotTiff},
        {{'I', 'I', 43, 0, 8, 0, 0, 0, 0, 0, 0, 0, 16, 0, 0, 0}, TiffStatus::BigTiff},
        {{'M', 'M', 0, 43, 0, 8, 0, 0}, TiffStatus::BigTiff},
        {{'I', 'I', 42, 0, 8, 0}, TiffStatus::Truncated},
        {{'I', 'I', 42, 0, 0, 0, 0, 0}, TiffStatus::NoIfd},
    };
    for (auto& [bytes, expected] : cases) {
        TiffStructure tiff;
        EXPECT_EQ(Read(bytes, &tiff), expected) << bytes.size() << " bytes";
    }
    EXPECT_EQ(ScanErrorCode(TiffStatus::BigTiff), kScanBigTiff);
    EXPECT_EQ(ScanErrorCode(TiffStatus::IfdLoop), kScanInvalidTiff);
}

TEST(TiffReader, NeverTrustsAnOffsetOrACount)
{
    // The IFD offset of the header past the end, or inside the header.
    TiffBuilder b(false);
    AddRgbImage(b);
    b.EndIfd();
    std::vector<uint8_t> good = b.Bytes();
    TiffStructure tiff;
    for (uint32_t offset : {uint32_t(good.size()), 0xFFFFFFF0u, 4u}) {
        std::vector<uint8_t> bytes = good;
        bytes[4] = uint8_t(offset), bytes[5] = uint8_t(offset >> 8), bytes[6] = uint8_t(offset >> 16),
        bytes[7] = uint8_t(offset >> 24);
        EXPECT_EQ(Read(bytes, &tiff), TiffStatus::BadOffset) << offset;
    }
    // An IFD cut anywhere inside its table or its values.
    for (std::size_t cut = 9; cut < good.size(); ++cut) {
        std::vector<uint8_t> bytes(good.begin(), good.begin() + static_cast<long>(cut));
        EXPECT_EQ(Read(bytes, &tiff), TiffStatus::Truncated) << cut;
    }

    // A count whose bytes pass 32 bits, and one whose values lie past the end.
    TiffBuilder over(true);
    over.AddRaw(kTagStripOffsets, kDouble, 0x40000000, 8);
    over.EndIfd();
    EXPECT_EQ(Read(over.Bytes(), &tiff), TiffStatus::CountOverflow);
    TiffBuilder past(true);
    past.AddRaw(kTagStripOffsets, kLong, 0x3FFFFFFF, 8);
    past.EndIfd();
    EXPECT_EQ(Read(past.Bytes(), &tiff), TiffStatus::Truncated);
}

TEST(TiffReader, StopsAtALoopOfIfds)
{
    for (bool toItself : {true, false}) {
        TiffBuilder b(false);
        b.Add(kTagImageWidth, kShort, {1});
        std::size_t first = b.EndIfd();
        b.Add(kTagImageWidth, kShort, {2});
        b.EndIfd();
        std::size_t next = b.LastNextOffset();
        b.SetU32(next, static_cast<uint32_t>(toItself ? next - 2 - 12 : first));
        TiffStructure tiff;
        EXPECT_EQ(Read(b.Bytes(), &tiff), TiffStatus::IfdLoop);
        // The first IFD alone is fine: the scan for the kind stops there.
        TiffMemorySource source(b.Bytes().data(), b.Bytes().size());
        EXPECT_EQ(ReadTiffStructure(source, &tiff, true), TiffStatus::Ok);
        EXPECT_EQ(tiff.ifds.size(), 1u);
    }

    // A chain of empty IFDs longer than the reader keeps.
    std::vector<uint8_t> chain = {'I', 'I', 42, 0, 8, 0, 0, 0};
    for (std::size_t i = 0; i <= kMaxIfds; ++i) {
        uint32_t next = i == kMaxIfds ? 0 : uint32_t(chain.size() + 6);
        chain.insert(chain.end(), {0, 0, uint8_t(next), uint8_t(next >> 8), uint8_t(next >> 16), uint8_t(next >> 24)});
    }
    TiffStructure tiff;
    EXPECT_EQ(Read(chain, &tiff), TiffStatus::TooManyIfds);
}

TEST(TiffTypeText, ReadsWhatTheScanWritesAndRefusesBadValues)
{
    TiffTypeFields spec;
    ASSERT_TRUE(ParseTiffTypeText("COMP=32773;PHOTO=0;BPS=1;SPP=1;FILL=2;PLANAR=1;PRED=1;TILES=64x32;NEW=7", &spec));
    EXPECT_EQ(spec.compression, 32773u);
    EXPECT_EQ(spec.fillOrder, 2u);
    EXPECT_TRUE(spec.tiled);
    EXPECT_EQ(spec.tileWidth, 64u);
    EXPECT_EQ(spec.tileLength, 32u);

    TiffTypeFields defaults;
    ASSERT_TRUE(ParseTiffTypeText("", &defaults));
    EXPECT_EQ(defaults.compression, 1u);
    EXPECT_FALSE(defaults.tiled);

    for (const char* bad : {"COMP=", "COMP=x", "BPS=64", "FILL=3", "STRIPS=99999999999", "TILES=64", "TILES=10x16",
                            "PRED=-1"}) {
        TiffTypeFields s;
        EXPECT_FALSE(ParseTiffTypeText(bad, &s)) << bad;
    }

    TiffImageFacts widest;
    widest.compression = widest.photometric = widest.bitsPerSample = widest.samplesPerPixel = 4294967295u;
    widest.fillOrder = widest.planarConfig = widest.predictor = 4294967295u;
    widest.tiled = true;
    widest.tileWidth = widest.tileLength = 4294967295u;
    EXPECT_LE(TiffTypeText(widest).size(), kTiffTypeTextMax);
}
