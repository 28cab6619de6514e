// The compressions of TIFF image data that the engine codes itself, each
// from the bytes of one strip or tile as they stand uncompressed. No
// windows.h: tested natively and read back by libtiff.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ravi {

// PackBits (32773) of one row: runs of two or more equal bytes as a
// repeat, the rest literal. TIFF packs each row apart.
void PackBitsRow(const uint8_t* row, size_t n, std::vector<uint8_t>& out);

// LZW (5) of a whole strip or tile, as TIFF codes it: codes high bit
// first, 9 to 12 bits wide, widened one code early, a clear code first and
// whenever the table is full, the end code last.
void LzwStrip(const uint8_t* data, size_t n, std::vector<uint8_t>& out);

// Deflate (8) of a whole strip or tile in a zlib stream: LZ77 matches in a
// 32 KB window coded with the fixed Huffman codes, one block.
void DeflateStrip(const uint8_t* data, size_t n, std::vector<uint8_t>& out);

// Horizontal differencing (predictor 2) of a row of 8-bit samples, in
// place: each sample less the same sample of the pixel before it.
void DifferenceRow(uint8_t* row, size_t n, size_t samplesPerPixel);

}  // namespace ravi
