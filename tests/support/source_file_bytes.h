// Small CUT pictures, their palette files and PCX pictures made byte by
// byte, for the engine's readers and the host's open road. Rows are given
// from the top; the encoders pack repeats as runs and the rest as literals,
// so every file has both. No windows.h.
#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace zvtest {

using Bytes = std::vector<std::uint8_t>;

inline void Put16(Bytes& out, std::uint32_t v)
{
    out.push_back(std::uint8_t(v));
    out.push_back(std::uint8_t(v >> 8));
}

// One CUT line: runs of two or more equal bytes, literals between them,
// the closing 0; its count word counts the 0 too.
inline Bytes CutLine(const Bytes& row)
{
    Bytes runs;
    for (std::size_t x = 0; x < row.size();) {
        std::size_t same = 1;
        while (x + same < row.size() && row[x + same] == row[x] && same < 127) ++same;
        if (same >= 2) {
            runs.push_back(std::uint8_t(0x80 | same));
            runs.push_back(row[x]);
            x += same;
            continue;
        }
        std::size_t literal = 1;
        while (x + literal < row.size() && literal < 127 &&
               !(x + literal + 1 < row.size() && row[x + literal] == row[x + literal + 1]))
            ++literal;
        runs.push_back(std::uint8_t(literal));
        runs.insert(runs.end(), row.begin() + long(x), row.begin() + long(x + literal));
        x += literal;
    }
    runs.push_back(0);
    Bytes line;
    Put16(line, std::uint32_t(runs.size()));
    line.insert(line.end(), runs.begin(), runs.end());
    return line;
}

inline Bytes CutPicture(const std::vector<Bytes>& rows)
{
    Bytes out;
    Put16(out, std::uint32_t(rows.empty() ? 0 : rows[0].size()));
    Put16(out, std::uint32_t(rows.size()));
    Put16(out, 0);
    for (const Bytes& row : rows) {
        Bytes line = CutLine(row);
        out.insert(out.end(), line.begin(), line.end());
    }
    return out;
}

// A palette file of red, green, blue triples on a scale of 0..max, in
// blocks of 512 bytes that no entry crosses.
inline Bytes CutPaletteFile(const std::vector<std::array<std::uint16_t, 3>>& entries, std::uint16_t max = 255)
{
    Bytes out = {'A', 'H'};
    Put16(out, 0xE3);  // version
    Put16(out, 0);     // size, not read
    out.push_back('A');
    out.push_back(0);
    Put16(out, 0);  // board
    Put16(out, 0);  // mode
    Put16(out, std::uint32_t(entries.size() - 1));
    for (int i = 0; i < 3; ++i) Put16(out, max);
    const char name[] = "Palette file";
    out.insert(out.end(), name, name + sizeof name);
    out.resize(40, 0);
    for (const auto& entry : entries) {
        if (512 - out.size() % 512 < 6) out.resize(out.size() + 512 - out.size() % 512, 0);
        for (std::uint16_t c : entry) Put16(out, c);
    }
    return out;
}

// A PCX picture of bits per pixel and planes; each line holds its planes'
// bytes one plane after the other (bytesPerLine each). `headerPalette`
// fills the 16 colours of the header, `trailing` the 256 at the end.
struct PcxSpec {
    int bits = 8;
    int planes = 1;
    int width = 0;
    int height = 0;
    int bytesPerLine = 0;
    std::vector<Bytes> lines;
    Bytes headerPalette;
    Bytes trailing;
    std::uint8_t version = 5;
};

inline PcxSpec Pcx(int bits, int planes, int width, int height, int bytesPerLine, std::vector<Bytes> lines)
{
    PcxSpec spec;
    spec.bits = bits;
    spec.planes = planes;
    spec.width = width;
    spec.height = height;
    spec.bytesPerLine = bytesPerLine;
    spec.lines = std::move(lines);
    return spec;
}

inline Bytes PcxRuns(const Bytes& data)
{
    Bytes out;
    for (std::size_t i = 0; i < data.size();) {
        std::size_t same = 1;
        while (i + same < data.size() && data[i + same] == data[i] && same < 63) ++same;
        if (same > 1 || data[i] >= 0xC0) {
            out.push_back(std::uint8_t(0xC0 | same));
            out.push_back(data[i]);
        } else {
            out.push_back(data[i]);
        }
        i += same;
    }
    return out;
}

inline Bytes PcxPicture(const PcxSpec& spec)
{
    Bytes out = {0x0A, spec.version, 1, std::uint8_t(spec.bits)};
    Put16(out, 0);
    Put16(out, 0);
    Put16(out, std::uint32_t(spec.width - 1));
    Put16(out, std::uint32_t(spec.height - 1));
    Put16(out, 300);
    Put16(out, 300);
    Bytes header = spec.headerPalette;
    header.resize(48, 0);
    out.insert(out.end(), header.begin(), header.end());
    out.push_back(0);
    out.push_back(std::uint8_t(spec.planes));
    Put16(out, std::uint32_t(spec.bytesPerLine));
    Put16(out, 1);
    out.resize(128, 0);
    // Packed as one stream, so that a run may go on into the next line.
    Bytes all;
    for (const Bytes& line : spec.lines) all.insert(all.end(), line.begin(), line.end());
    Bytes runs = PcxRuns(all);
    out.insert(out.end(), runs.begin(), runs.end());
    if (!spec.trailing.empty()) {
        out.push_back(0x0C);
        Bytes colours = spec.trailing;
        colours.resize(768, 0);
        out.insert(out.end(), colours.begin(), colours.end());
    }
    return out;
}

}  // namespace zvtest
