// Small CUT pictures, their palette files and PCX pictures made byte by
// byte, for the engine's readers and the host's open road. The lines are
// given packed, as the files hold them. No windows.h.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace zvtest {

using Bytes = std::vector<std::uint8_t>;

inline void Put16(Bytes& out, std::uint32_t v)
{
    out.push_back(std::uint8_t(v));
    out.push_back(std::uint8_t(v >> 8));
}

// A CUT picture: each line's runs with its closing 0, the count word put
// in front.
inline Bytes CutPicture(int width, const std::vector<Bytes>& lines)
{
    Bytes out;
    Put16(out, std::uint32_t(width));
    Put16(out, std::uint32_t(lines.size()));
    Put16(out, 0);
    for (const Bytes& line : lines) {
        Put16(out, std::uint32_t(line.size()));
        out.insert(out.end(), line.begin(), line.end());
    }
    return out;
}

// A palette file of red, green, blue triples on a scale of 0..max, in
// blocks of 512 bytes that no entry crosses.
inline Bytes CutPaletteFile(const std::vector<std::array<std::uint16_t, 3>>& entries, std::uint16_t max = 255)
{
    Bytes out = {'A', 'H'};
    out.resize(12, 0);
    Put16(out, std::uint32_t(entries.size() - 1));
    for (int i = 0; i < 3; ++i) Put16(out, max);
    out.resize(40, 0);
    for (const auto& entry : entries) {
        if (512 - out.size() % 512 < 6) out.resize(out.size() + 512 - out.size() % 512, 0);
        for (std::uint16_t c : entry) Put16(out, c);
    }
    return out;
}

// A PCX picture of 300 dots per inch from its runs. `colours` are the 16 of
// the header for four planes, else the 256 at the end of the file.
inline Bytes PcxPicture(int bits, int planes, int width, int height, int bytesPerLine, const Bytes& runs,
                        const Bytes& colours = {}, std::uint8_t version = 5)
{
    Bytes out = {0x0A, version, 1, std::uint8_t(bits), 0, 0, 0, 0};
    Put16(out, std::uint32_t(width - 1));
    Put16(out, std::uint32_t(height - 1));
    Put16(out, 300);
    Put16(out, 300);
    if (planes == 4) out.insert(out.end(), colours.begin(), colours.end());
    out.resize(65, 0);
    out.push_back(std::uint8_t(planes));
    Put16(out, std::uint32_t(bytesPerLine));
    out.resize(128, 0);
    out.insert(out.end(), runs.begin(), runs.end());
    if (planes != 4 && !colours.empty()) {
        out.push_back(0x0C);
        out.insert(out.end(), colours.begin(), colours.end());
        out.resize(out.size() + 768 - colours.size(), 0);
    }
    return out;
}

}  // namespace zvtest
