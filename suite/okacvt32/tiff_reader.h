// A TIFF structure reader: the header, the chain of IFDs and every entry of
// each, in either byte order. No windows.h: it builds on both sides and is
// tested and fuzzed natively.
//
// What it promises:
// - It never reads outside the bytes it is given (or outside the file):
//   every offset and every count is checked, in 64-bit arithmetic, against
//   the size before a byte is read.
// - A damaged file gives a status, never a crash: a header that is no TIFF,
//   a BigTIFF (refused with a status of its own), an IFD or a value that
//   runs past the end, a count whose byte size does not fit, an IFD chain
//   that comes back to an IFD it has already visited, or more IFDs than
//   kMaxIfds.
// - Memory stays bounded: at most kMaxIfds IFDs, and at most
//   kMaxValuesKept values of an entry are decoded (the entry says whether
//   it holds all of them); a value that lies outside the file is an error
//   even when it is not decoded.
// - Entries of a type it does not know are kept with their raw four value
//   bytes, as a reader must skip them, and are no error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zvtiff {

enum class TiffStatus {
    Ok = 0,
    NotTiff,        // no "II*\0" or "MM\0*" header
    BigTiff,        // version 43: the 64-bit variant, not read here
    NoIfd,          // the header's first IFD offset is 0
    Truncated,      // an IFD or a value runs past the end of the file
    BadOffset,      // an IFD offset points before the header's end or past the file
    CountOverflow,  // an entry's count times its type size does not fit
    IfdLoop,        // the IFD chain comes back to an IFD already read
    TooManyIfds,    // more than kMaxIfds IFDs in the chain
    ReadError,      // the file could not be opened or read
};

constexpr std::size_t kMaxIfds = 4096;
constexpr std::size_t kMaxValuesKept = 4096;

// The field types of the entries, with their sizes in bytes (0: unknown).
enum TiffType : uint16_t {
    kByte = 1, kAscii = 2, kShort = 3, kLong = 4, kRational = 5, kSByte = 6, kUndefined = 7,
    kSShort = 8, kSLong = 9, kSRational = 10, kFloat = 11, kDouble = 12, kIfd = 13,
};
unsigned TiffTypeSize(uint16_t type);
// The type's name as a listing shows it ("SHORT"), or "?" when unknown.
const char* TiffTypeName(uint16_t type);

struct TiffEntry {
    uint16_t tag = 0;
    uint16_t type = 0;
    uint32_t count = 0;
    // The four value bytes as the file's byte order reads them as a number:
    // the offset of the values when they do not fit in four bytes.
    uint32_t valueOffset = 0;
    bool valuesInline = false;  // the values stand in the four bytes themselves
    // The decoded values: one per value for the integer types (signed ones
    // as their two's complement bit pattern), two per value for RATIONAL
    // and SRATIONAL (numerator, denominator) and for DOUBLE (its 64 bits,
    // low word first), the bits of a FLOAT. Empty for ASCII and unknown types.
    std::vector<uint32_t> values;
    std::string text;          // ASCII values, up to the first NUL
    bool allValuesKept = true;  // false when the count exceeded kMaxValuesKept
};

struct TiffIfd {
    uint32_t offset = 0;  // where the IFD stands in the file
    std::vector<TiffEntry> entries;
    // The first entry with this tag, or null.
    const TiffEntry* Find(uint16_t tag) const;
};

struct TiffStructure {
    bool bigEndian = false;
    std::vector<TiffIfd> ifds;
};

// Where the bytes come from: a buffer or a file. ReadAt gives false unless
// it could read all n bytes at offset.
class TiffSource {
public:
    virtual ~TiffSource() = default;
    virtual uint64_t Size() const = 0;
    virtual bool ReadAt(uint64_t offset, void* out, std::size_t n) = 0;
};

class TiffMemorySource : public TiffSource {
public:
    TiffMemorySource(const uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    uint64_t Size() const override { return size_; }
    bool ReadAt(uint64_t offset, void* out, std::size_t n) override;

private:
    const uint8_t* data_;
    std::size_t size_;
};

// Reads the header and walks the chain of IFDs. With onlyFirst, the walk
// stops after the first IFD (what a scan for the image's kind needs).
TiffStatus ReadTiffStructure(TiffSource& source, TiffStructure* out, bool onlyFirst = false);
// The same on a file, opened for reading only.
TiffStatus ReadTiffFile(const char* path, TiffStructure* out, bool onlyFirst = false);

// The value i of an entry as an unsigned number (the integer types; the
// quotient rounded down for a rational), or fallback when there is none.
uint32_t EntryNumber(const TiffEntry& entry, std::size_t i, uint32_t fallback);

// The tags the image's kind depends on.
enum TiffTag : uint16_t {
    kTagNewSubfileType = 254, kTagImageWidth = 256, kTagImageLength = 257, kTagBitsPerSample = 258,
    kTagCompression = 259, kTagPhotometric = 262, kTagFillOrder = 266, kTagStripOffsets = 273,
    kTagSamplesPerPixel = 277, kTagRowsPerStrip = 278, kTagStripByteCounts = 279, kTagXResolution = 282,
    kTagYResolution = 283, kTagPlanarConfig = 284, kTagT4Options = 292, kTagResolutionUnit = 296,
    kTagPredictor = 317, kTagTileWidth = 322, kTagTileLength = 323, kTagTileOffsets = 324,
    kTagTileByteCounts = 325, kTagExtraSamples = 338, kTagSampleFormat = 339,
};

// The facts of one image (an IFD), with the defaults a reader assumes for
// a missing tag.
struct TiffImageFacts {
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t compression = 1;
    uint32_t photometric = 1;  // missing: black is zero
    uint32_t bitsPerSample = 1;
    uint32_t samplesPerPixel = 1;
    uint32_t fillOrder = 1;
    uint32_t planarConfig = 1;
    uint32_t predictor = 1;
    bool tiled = false;
    uint32_t rowsPerStrip = 0;  // 0 when missing: one strip
    uint32_t tileWidth = 0;
    uint32_t tileLength = 0;
    uint32_t t4Options = 0;
};
TiffImageFacts ReadImageFacts(const TiffIfd& ifd);

}  // namespace zvtiff
