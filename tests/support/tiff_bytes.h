// Small TIFF files made byte by byte for the tests of the TIFF listing:
// little-endian, every value inline in its entry, the IFDs one after the
// other behind the header and chained in that order. No windows.h.
#pragma once

#include <cstdint>
#include <vector>

namespace zvtest {

struct TiffEntrySpec {
    std::uint16_t tag;
    std::uint16_t type;  // 3 SHORT, 4 LONG, 2 ASCII of at most 4 bytes with its zero
    std::uint32_t count;
    std::uint32_t value;  // the four value bytes, little-endian
};

inline std::vector<std::uint8_t> LittleTiff(const std::vector<std::vector<TiffEntrySpec>>& ifds)
{
    std::vector<std::uint8_t> out = {'I', 'I', 42, 0};
    auto put16 = [&](std::uint32_t v) {
        out.push_back(std::uint8_t(v));
        out.push_back(std::uint8_t(v >> 8));
    };
    auto put32 = [&](std::uint32_t v) {
        put16(v & 0xffff);
        put16(v >> 16);
    };
    std::uint32_t offset = 8;
    put32(ifds.empty() ? 0 : offset);
    for (std::size_t i = 0; i < ifds.size(); ++i) {
        offset += 2 + 12 * std::uint32_t(ifds[i].size()) + 4;
        put16(std::uint32_t(ifds[i].size()));
        for (const TiffEntrySpec& e : ifds[i]) {
            put16(e.tag);
            put16(e.type);
            put32(e.count);
            put32(e.value);
        }
        put32(i + 1 < ifds.size() ? offset : 0);
    }
    return out;
}

// Two pages: 64 x 48 and 32 x 24, eight bits of grey, with "Zv" as Software.
inline std::vector<std::uint8_t> TwoPageTiff()
{
    auto page = [](std::uint32_t w, std::uint32_t h) {
        return std::vector<TiffEntrySpec>{{256, 3, 1, w}, {257, 3, 1, h}, {258, 3, 1, 8}, {259, 3, 1, 1},
                                          {262, 3, 1, 1}, {273, 4, 1, 8}, {277, 3, 1, 1}, {278, 3, 1, h},
                                          {279, 4, 1, 0}, {305, 2, 3, 'Z' | 'v' << 8}};
    };
    return LittleTiff({page(64, 48), page(32, 24)});
}

}  // namespace zvtest
