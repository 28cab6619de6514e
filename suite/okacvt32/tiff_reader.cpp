// The TIFF structure reader; its promises stand in tiff_reader.h.
#include "tiff_reader.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <set>

namespace zvtiff {

namespace {

constexpr uint64_t kHeaderSize = 8;
constexpr uint64_t kEntrySize = 12;

class ByteOrder {
public:
    explicit ByteOrder(bool big) : big_(big) {}
    bool Big() const { return big_; }
    uint16_t U16(const uint8_t* p) const
    {
        return big_ ? static_cast<uint16_t>(p[0] << 8 | p[1]) : static_cast<uint16_t>(p[1] << 8 | p[0]);
    }
    uint32_t U32(const uint8_t* p) const
    {
        return big_ ? (uint32_t{p[0]} << 24 | uint32_t{p[1]} << 16 | uint32_t{p[2]} << 8 | p[3])
                    : (uint32_t{p[3]} << 24 | uint32_t{p[2]} << 16 | uint32_t{p[1]} << 8 | p[0]);
    }

private:
    bool big_;
};

// Decodes up to kMaxValuesKept values of an entry from their bytes.
void DecodeValues(const ByteOrder& order, const uint8_t* bytes, TiffEntry* entry)
{
    unsigned size = TiffTypeSize(entry->type);
    std::size_t kept = std::min<std::size_t>(entry->count, kMaxValuesKept);
    entry->allValuesKept = kept == entry->count;
    if (entry->type == kAscii) {
        const char* text = reinterpret_cast<const char*>(bytes);
        entry->text.assign(text, strnlen(text, kept));
        return;
    }
    for (std::size_t i = 0; i < kept; ++i) {
        const uint8_t* p = bytes + i * size;
        switch (size) {
        case 1: entry->values.push_back(p[0]); break;
        case 2: entry->values.push_back(order.U16(p)); break;
        case 4: entry->values.push_back(order.U32(p)); break;
        case 8:
            if (entry->type == kDouble) {
                // The double's words in the file's order: low word first
                // in a little-endian file, high word first in a big-endian one.
                uint32_t first = order.U32(p), second = order.U32(p + 4);
                entry->values.push_back(order.Big() ? second : first);
                entry->values.push_back(order.Big() ? first : second);
            } else {
                entry->values.push_back(order.U32(p));
                entry->values.push_back(order.U32(p + 4));
            }
            break;
        default: break;
        }
    }
}

TiffStatus ReadEntry(TiffSource& source, const ByteOrder& order, const uint8_t* raw, TiffEntry* entry)
{
    entry->tag = order.U16(raw);
    entry->type = order.U16(raw + 2);
    entry->count = order.U32(raw + 4);
    entry->valueOffset = order.U32(raw + 8);
    unsigned size = TiffTypeSize(entry->type);
    if (size == 0) {
        // A type this reader doesn't know: kept as it stands, values unread.
        entry->valuesInline = true;
        return TiffStatus::Ok;
    }
    // 64-bit: a count of up to 2^32-1 times 8 cannot wrap, but can pass
    // anything a 32-bit offset may address.
    uint64_t bytes = uint64_t{entry->count} * size;
    if (bytes > UINT32_MAX) return TiffStatus::CountOverflow;
    if (bytes <= 4) {
        entry->valuesInline = true;
        DecodeValues(order, raw + 8, entry);
        return TiffStatus::Ok;
    }
    if (uint64_t{entry->valueOffset} + bytes > source.Size()) return TiffStatus::Truncated;
    uint64_t keptBytes = std::min<uint64_t>(bytes, uint64_t{kMaxValuesKept} * size);
    std::vector<uint8_t> data(static_cast<std::size_t>(keptBytes) + 1, 0);
    if (!source.ReadAt(entry->valueOffset, data.data(), static_cast<std::size_t>(keptBytes)))
        return TiffStatus::ReadError;
    DecodeValues(order, data.data(), entry);
    return TiffStatus::Ok;
}

class FileSource : public TiffSource {
public:
    explicit FileSource(std::FILE* file) : file_(file)
    {
        if (std::fseek(file_, 0, SEEK_END) == 0) {
            long end = std::ftell(file_);
            size_ = end < 0 ? 0 : static_cast<uint64_t>(end);
        }
    }
    ~FileSource() override { std::fclose(file_); }
    uint64_t Size() const override { return size_; }
    bool ReadAt(uint64_t offset, void* out, std::size_t n) override
    {
        if (offset > size_ || n > size_ - offset) return false;
        if (std::fseek(file_, static_cast<long>(offset), SEEK_SET) != 0) return false;
        return std::fread(out, 1, n, file_) == n;
    }

private:
    std::FILE* file_;
    uint64_t size_ = 0;
};

}  // namespace

unsigned TiffTypeSize(uint16_t type)
{
    switch (type) {
    case kByte: case kAscii: case kSByte: case kUndefined: return 1;
    case kShort: case kSShort: return 2;
    case kLong: case kSLong: case kFloat: case kIfd: return 4;
    case kRational: case kSRational: case kDouble: return 8;
    default: return 0;
    }
}

const char* TiffTypeName(uint16_t type)
{
    static const char* const names[] = {"?",         "BYTE",  "ASCII",  "SHORT",  "LONG",
                                        "RATIONAL",  "SBYTE", "UNDEFINED", "SSHORT", "SLONG",
                                        "SRATIONAL", "FLOAT", "DOUBLE", "IFD"};
    return type < sizeof names / sizeof names[0] ? names[type] : "?";
}

bool TiffMemorySource::ReadAt(uint64_t offset, void* out, std::size_t n)
{
    if (offset > size_ || n > size_ - offset) return false;
    if (n != 0) std::memcpy(out, data_ + offset, n);
    return true;
}

const TiffEntry* TiffIfd::Find(uint16_t tag) const
{
    for (const TiffEntry& entry : entries)
        if (entry.tag == tag) return &entry;
    return nullptr;
}

TiffStatus ReadTiffStructure(TiffSource& source, TiffStructure* out, bool onlyFirst)
{
    *out = TiffStructure{};
    uint8_t header[kHeaderSize];
    if (source.Size() < 4 || !source.ReadAt(0, header, 4)) return TiffStatus::NotTiff;
    if (header[0] == 'I' && header[1] == 'I')
        out->bigEndian = false;
    else if (header[0] == 'M' && header[1] == 'M')
        out->bigEndian = true;
    else
        return TiffStatus::NotTiff;
    ByteOrder order(out->bigEndian);
    uint16_t version = order.U16(header + 2);
    if (version == 43) return TiffStatus::BigTiff;
    if (version != 42) return TiffStatus::NotTiff;
    if (!source.ReadAt(4, header + 4, 4)) return TiffStatus::Truncated;

    uint32_t next = order.U32(header + 4);
    if (next == 0) return TiffStatus::NoIfd;
    std::set<uint32_t> visited;
    while (next != 0) {
        if (next < kHeaderSize || next >= source.Size()) return TiffStatus::BadOffset;
        if (!visited.insert(next).second) return TiffStatus::IfdLoop;
        if (out->ifds.size() == kMaxIfds) return TiffStatus::TooManyIfds;
        uint8_t countBytes[2];
        if (!source.ReadAt(next, countBytes, 2)) return TiffStatus::Truncated;
        uint16_t count = order.U16(countBytes);
        uint64_t tableBytes = uint64_t{count} * kEntrySize + 4;
        if (uint64_t{next} + 2 + tableBytes > source.Size()) return TiffStatus::Truncated;
        std::vector<uint8_t> table(static_cast<std::size_t>(tableBytes));
        if (!source.ReadAt(uint64_t{next} + 2, table.data(), table.size())) return TiffStatus::ReadError;

        TiffIfd ifd;
        ifd.offset = next;
        ifd.entries.resize(count);
        for (uint16_t i = 0; i < count; ++i) {
            TiffStatus status = ReadEntry(source, order, table.data() + i * kEntrySize, &ifd.entries[i]);
            if (status != TiffStatus::Ok) return status;
        }
        out->ifds.push_back(std::move(ifd));
        if (onlyFirst) break;
        next = order.U32(table.data() + count * kEntrySize);
    }
    return TiffStatus::Ok;
}

TiffStatus ReadTiffFile(const char* path, TiffStructure* out, bool onlyFirst)
{
    *out = TiffStructure{};
    std::FILE* file = path ? std::fopen(path, "rb") : nullptr;
    if (file == nullptr) return TiffStatus::ReadError;
    FileSource source(file);
    return ReadTiffStructure(source, out, onlyFirst);
}

uint32_t EntryNumber(const TiffEntry& entry, std::size_t i, uint32_t fallback)
{
    switch (entry.type) {
    case kByte: case kShort: case kLong: case kSByte: case kSShort: case kSLong: case kIfd: case kUndefined:
        return i < entry.values.size() ? entry.values[i] : fallback;
    case kRational:
        if (2 * i + 1 < entry.values.size() && entry.values[2 * i + 1] != 0)
            return entry.values[2 * i] / entry.values[2 * i + 1];
        return fallback;
    default: return fallback;
    }
}

TiffImageFacts ReadImageFacts(const TiffIfd& ifd)
{
    TiffImageFacts facts;
    auto number = [&](uint16_t tag, uint32_t fallback) {
        const TiffEntry* entry = ifd.Find(tag);
        return entry ? EntryNumber(*entry, 0, fallback) : fallback;
    };
    facts.width = number(kTagImageWidth, 0);
    facts.height = number(kTagImageLength, 0);
    facts.compression = number(kTagCompression, 1);
    facts.photometric = number(kTagPhotometric, 1);
    facts.bitsPerSample = number(kTagBitsPerSample, 1);
    facts.samplesPerPixel = number(kTagSamplesPerPixel, 1);
    facts.fillOrder = number(kTagFillOrder, 1);
    facts.planarConfig = number(kTagPlanarConfig, 1);
    facts.predictor = number(kTagPredictor, 1);
    facts.rowsPerStrip = number(kTagRowsPerStrip, 0);
    facts.t4Options = number(kTagT4Options, 0);
    facts.tiled = ifd.Find(kTagTileWidth) != nullptr || ifd.Find(kTagTileOffsets) != nullptr;
    facts.tileWidth = number(kTagTileWidth, 0);
    facts.tileLength = number(kTagTileLength, 0);
    return facts;
}

}  // namespace zvtiff
