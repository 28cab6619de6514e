// The engine's TIFF compressions; see tiff_codecs.h.
#include "tiff_codecs.h"

#include <algorithm>
#include <unordered_map>

namespace ravi {

void PackBitsRow(const uint8_t* row, size_t n, std::vector<uint8_t>& out)
{
    size_t i = 0;
    while (i < n) {
        size_t run = 1;
        while (i + run < n && run < 128 && row[i + run] == row[i]) ++run;
        if (run >= 2) {
            out.push_back(uint8_t(257 - run));
            out.push_back(row[i]);
            i += run;
            continue;
        }
        size_t start = i;
        while (i < n && i - start < 128 && !(i + 1 < n && row[i + 1] == row[i])) ++i;
        if (i == start) ++i;  // a lone byte before a run of the next one
        out.push_back(uint8_t(i - start - 1));
        out.insert(out.end(), row + start, row + i);
    }
}

namespace {

// Codes into bytes, high bit first, as TIFF's LZW wants them.
class HighFirstBits {
public:
    explicit HighFirstBits(std::vector<uint8_t>& out) : out_(out) {}
    void Put(uint32_t code, unsigned width)
    {
        pending_ = (pending_ << width) | code;
        count_ += width;
        while (count_ >= 8) {
            count_ -= 8;
            out_.push_back(uint8_t(pending_ >> count_));
        }
        pending_ &= (1u << count_) - 1;
    }
    void Flush()
    {
        if (count_ > 0) out_.push_back(uint8_t(pending_ << (8 - count_)));
        count_ = 0, pending_ = 0;
    }

private:
    std::vector<uint8_t>& out_;
    uint32_t pending_ = 0;
    unsigned count_ = 0;
};

constexpr uint32_t kLzwClear = 256, kLzwEnd = 257, kLzwFirst = 258;
constexpr unsigned kLzwMinBits = 9, kLzwMaxBits = 12;
// The table is cleared before its last code could be given out, so that a
// reader widening one code early never needs 13 bits.
constexpr uint32_t kLzwFull = (1u << kLzwMaxBits) - 2;

}  // namespace

void LzwStrip(const uint8_t* data, size_t n, std::vector<uint8_t>& out)
{
    HighFirstBits bits(out);
    std::unordered_map<uint32_t, uint32_t> table;  // (prefix code << 8 | byte) -> code
    unsigned width = kLzwMinBits;
    uint32_t next = kLzwFirst;
    bits.Put(kLzwClear, width);
    // Each code given out adds one entry; the reader, one entry behind,
    // widens its codes when it reaches the same count.
    auto added = [&]() {
        if (++next == kLzwFull) {
            bits.Put(kLzwClear, width);
            table.clear();
            next = kLzwFirst;
            width = kLzwMinBits;
        } else if (next > (1u << width) - 1) {
            ++width;
        }
    };
    if (n > 0) {
        uint32_t prefix = data[0];
        for (size_t i = 1; i < n; ++i) {
            const uint32_t key = prefix << 8 | data[i];
            auto found = table.find(key);
            if (found != table.end()) {
                prefix = found->second;
                continue;
            }
            bits.Put(prefix, width);
            table.emplace(key, next);
            added();
            prefix = data[i];
        }
        bits.Put(prefix, width);
        added();
    }
    bits.Put(kLzwEnd, width);
    bits.Flush();
}

namespace {

// Bits into bytes, low bit first, as deflate wants them; Huffman codes go
// with their first bit first, so they are reversed on the way in.
class LowFirstBits {
public:
    explicit LowFirstBits(std::vector<uint8_t>& out) : out_(out) {}
    void Put(uint32_t value, unsigned width)
    {
        pending_ |= uint64_t(value) << count_;
        count_ += width;
        while (count_ >= 8) {
            out_.push_back(uint8_t(pending_));
            pending_ >>= 8;
            count_ -= 8;
        }
    }
    void PutCode(uint32_t code, unsigned width)
    {
        uint32_t reversed = 0;
        for (unsigned i = 0; i < width; ++i) reversed |= ((code >> i) & 1u) << (width - 1 - i);
        Put(reversed, width);
    }
    void Flush()
    {
        if (count_ > 0) out_.push_back(uint8_t(pending_));
        count_ = 0, pending_ = 0;
    }

private:
    std::vector<uint8_t>& out_;
    uint64_t pending_ = 0;
    unsigned count_ = 0;
};

// The fixed literal/length code of a symbol 0..287.
void PutFixedSymbol(LowFirstBits& bits, uint32_t symbol)
{
    if (symbol < 144) bits.PutCode(0x30 + symbol, 8);
    else if (symbol < 256) bits.PutCode(0x190 + symbol - 144, 9);
    else if (symbol < 280) bits.PutCode(symbol - 256, 7);
    else bits.PutCode(0xC0 + symbol - 280, 8);
}

constexpr uint16_t kLengthBase[29] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                      31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
constexpr uint8_t kLengthExtra[29] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                      2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr uint16_t kDistanceBase[30] = {1,    2,    3,    4,    5,    7,     9,     13,    17,  25,
                                        33,   49,   65,   97,   129,  193,   257,   385,   513, 769,
                                        1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr uint8_t kDistanceExtra[30] = {0, 0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6,
                                        6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

void PutMatch(LowFirstBits& bits, size_t length, size_t distance)
{
    int l = 28;
    while (kLengthBase[l] > length) --l;
    PutFixedSymbol(bits, uint32_t(257 + l));
    bits.Put(uint32_t(length - kLengthBase[l]), kLengthExtra[l]);
    int d = 29;
    while (kDistanceBase[d] > distance) --d;
    bits.PutCode(uint32_t(d), 5);
    bits.Put(uint32_t(distance - kDistanceBase[d]), kDistanceExtra[d]);
}

constexpr size_t kWindow = 32768, kMinMatch = 3, kMaxMatch = 258, kChainLimit = 64;
constexpr unsigned kHashBits = 15;

uint32_t HashOf(const uint8_t* p)
{
    return ((uint32_t(p[0]) << 16 | uint32_t(p[1]) << 8 | p[2]) * 2654435761u) >> (32 - kHashBits);
}

}  // namespace

void DeflateStrip(const uint8_t* data, size_t n, std::vector<uint8_t>& out)
{
    out.push_back(0x78), out.push_back(0x01);  // deflate, 32 KB window, no dictionary
    LowFirstBits bits(out);
    bits.Put(1, 1);  // the last block
    bits.Put(1, 2);  // fixed Huffman codes
    // The latest position of each hash, and for each position of the
    // window the one before it with the same hash: memory bounded by the
    // window, whatever the size of the strip.
    std::vector<int64_t> head(size_t(1) << kHashBits, -1), previous(kWindow, -1);
    auto insert = [&](size_t at) {
        if (at + kMinMatch > n) return;
        uint32_t h = HashOf(data + at);
        previous[at % kWindow] = head[h];
        head[h] = int64_t(at);
    };
    size_t i = 0;
    while (i < n) {
        size_t bestLength = 0, bestDistance = 0;
        if (i + kMinMatch <= n) {
            int64_t candidate = head[HashOf(data + i)];
            const size_t longest = std::min(kMaxMatch, n - i);
            for (size_t chain = 0; candidate >= 0 && i - size_t(candidate) <= kWindow && chain < kChainLimit;
                 ++chain) {
                const uint8_t* a = data + candidate;
                size_t length = 0;
                while (length < longest && a[length] == data[i + length]) ++length;
                if (length > bestLength) bestLength = length, bestDistance = i - size_t(candidate);
                if (length == longest) break;
                // A link must lead back; one that does not was overwritten.
                const int64_t before = previous[size_t(candidate) % kWindow];
                if (before >= candidate) break;
                candidate = before;
            }
        }
        if (bestLength >= kMinMatch) {
            PutMatch(bits, bestLength, bestDistance);
            for (size_t k = 0; k < bestLength; ++k) insert(i + k);
            i += bestLength;
        } else {
            PutFixedSymbol(bits, data[i]);
            insert(i);
            ++i;
        }
    }
    PutFixedSymbol(bits, 256);
    bits.Flush();
    // The Adler-32 of the data, high byte first.
    uint32_t a = 1, b = 0;
    for (size_t k = 0; k < n; ++k) {
        a = (a + data[k]) % 65521;
        b = (b + a) % 65521;
    }
    const uint32_t adler = b << 16 | a;
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(uint8_t(adler >> shift));
}

void DifferenceRow(uint8_t* row, size_t n, size_t samplesPerPixel)
{
    for (size_t i = n; i-- > samplesPerPixel;) row[i] = uint8_t(row[i] - row[i - samplesPerPixel]);
}

}  // namespace ravi
