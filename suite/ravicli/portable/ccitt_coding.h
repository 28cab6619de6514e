// The CCITT codings of bilevel rows that the engine's fax and TIFF writers
// share: Modified Huffman runs (one-dimensional, group 3) and the
// two-dimensional coding of group 4 against the row above. A row is one
// byte a pixel, nonzero for black. No windows.h: read back by libtiff.
#pragma once

#include <cstdint>
#include <vector>

namespace ravi {

// The writers' rule for bilevel pixels: luminance below half is black.
inline bool IsDark(uint32_t rgb)
{
    return (299 * ((rgb >> 16) & 0xFF) + 587 * ((rgb >> 8) & 0xFF) + 114 * (rgb & 0xFF)) / 1000 < 128;
}

// Code bits into bytes, high bit first.
class CcittBits {
public:
    void Put(unsigned count, uint32_t value);
    // An EOL that ends on a byte: fill bits first.
    void EndOfLine();
    // Zero bits up to the next byte.
    void AlignToByte();
    const std::vector<uint8_t>& Bytes() const { return bytes_; }
    // The bytes with the bits of each reversed (fill order 2).
    std::vector<uint8_t> LowBitsFirst() const;

private:
    std::vector<uint8_t> bytes_;
    unsigned used_ = 0;
};

// A row as runs of white and black, starting with white, each run its
// make-up and terminating codes.
void CodeRowOneDimensional(CcittBits& bits, const uint8_t* black, int32_t width);

// A row by its changes against the reference row (all white above the
// first row): pass, vertical and horizontal modes.
void CodeRowTwoDimensional(CcittBits& bits, const uint8_t* black, const uint8_t* reference, int32_t width);

}  // namespace ravi
