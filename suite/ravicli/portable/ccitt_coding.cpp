// The CCITT codings; see ccitt_coding.h.
#include "ccitt_coding.h"

namespace ravi {

namespace {

// The code words of the one-dimensional coding: (length in bits, bits),
// terminating codes for runs 0..63, make-up codes for 64..1728 by 64.
struct Code {
    uint8_t bits;
    uint16_t value;
};

constexpr Code kWhiteTerm[64] = {
    {8, 0x35}, {6, 0x07}, {4, 0x07}, {4, 0x08}, {4, 0x0B}, {4, 0x0C}, {4, 0x0E}, {4, 0x0F}, {5, 0x13}, {5, 0x14},
    {5, 0x07}, {5, 0x08}, {6, 0x08}, {6, 0x03}, {6, 0x34}, {6, 0x35}, {6, 0x2A}, {6, 0x2B}, {7, 0x27}, {7, 0x0C},
    {7, 0x08}, {7, 0x17}, {7, 0x03}, {7, 0x04}, {7, 0x28}, {7, 0x2B}, {7, 0x13}, {7, 0x24}, {7, 0x18}, {8, 0x02},
    {8, 0x03}, {8, 0x1A}, {8, 0x1B}, {8, 0x12}, {8, 0x13}, {8, 0x14}, {8, 0x15}, {8, 0x16}, {8, 0x17}, {8, 0x28},
    {8, 0x29}, {8, 0x2A}, {8, 0x2B}, {8, 0x2C}, {8, 0x2D}, {8, 0x04}, {8, 0x05}, {8, 0x0A}, {8, 0x0B}, {8, 0x52},
    {8, 0x53}, {8, 0x54}, {8, 0x55}, {8, 0x24}, {8, 0x25}, {8, 0x58}, {8, 0x59}, {8, 0x5A}, {8, 0x5B}, {8, 0x4A},
    {8, 0x4B}, {8, 0x32}, {8, 0x33}, {8, 0x34}};
constexpr Code kWhiteMakeup[27] = {
    {5, 0x1B}, {5, 0x12}, {6, 0x17}, {7, 0x37}, {8, 0x36}, {8, 0x37}, {8, 0x64}, {8, 0x65}, {8, 0x68},
    {8, 0x67}, {9, 0xCC}, {9, 0xCD}, {9, 0xD2}, {9, 0xD3}, {9, 0xD4}, {9, 0xD5}, {9, 0xD6}, {9, 0xD7},
    {9, 0xD8}, {9, 0xD9}, {9, 0xDA}, {9, 0xDB}, {9, 0x98}, {9, 0x99}, {9, 0x9A}, {6, 0x18}, {9, 0x9B}};
constexpr Code kBlackTerm[64] = {
    {10, 0x37}, {3, 0x02}, {2, 0x03}, {2, 0x02}, {3, 0x03}, {4, 0x03}, {4, 0x02}, {5, 0x03}, {6, 0x05},
    {6, 0x04}, {7, 0x04}, {7, 0x05}, {7, 0x07}, {8, 0x04}, {8, 0x07}, {9, 0x18}, {10, 0x17}, {10, 0x18},
    {10, 0x08}, {11, 0x67}, {11, 0x68}, {11, 0x6C}, {11, 0x37}, {11, 0x28}, {11, 0x17}, {11, 0x18},
    {12, 0xCA}, {12, 0xCB}, {12, 0xCC}, {12, 0xCD}, {12, 0x68}, {12, 0x69}, {12, 0x6A}, {12, 0x6B},
    {12, 0xD2}, {12, 0xD3}, {12, 0xD4}, {12, 0xD5}, {12, 0xD6}, {12, 0xD7}, {12, 0x6C}, {12, 0x6D},
    {12, 0xDA}, {12, 0xDB}, {12, 0x54}, {12, 0x55}, {12, 0x56}, {12, 0x57}, {12, 0x64}, {12, 0x65},
    {12, 0x52}, {12, 0x53}, {12, 0x24}, {12, 0x37}, {12, 0x38}, {12, 0x27}, {12, 0x28}, {12, 0x58},
    {12, 0x59}, {12, 0x2B}, {12, 0x2C}, {12, 0x5A}, {12, 0x66}, {12, 0x67}};
constexpr Code kBlackMakeup[27] = {
    {10, 0x0F}, {12, 0xC8}, {12, 0xC9}, {12, 0x5B}, {12, 0x33}, {12, 0x34}, {12, 0x35}, {13, 0x6C},
    {13, 0x6D}, {13, 0x4A}, {13, 0x4B}, {13, 0x4C}, {13, 0x4D}, {13, 0x72}, {13, 0x73}, {13, 0x74},
    {13, 0x75}, {13, 0x76}, {13, 0x77}, {13, 0x52}, {13, 0x53}, {13, 0x54}, {13, 0x55}, {13, 0x5A},
    {13, 0x5B}, {13, 0x64}, {13, 0x65}};

// The make-up codes both colours share for runs of 1792..2560 by 64.
constexpr Code kExtendedMakeup[13] = {{11, 0x08}, {11, 0x0C}, {11, 0x0D}, {12, 0x12}, {12, 0x13},
                                      {12, 0x14}, {12, 0x15}, {12, 0x16}, {12, 0x17}, {12, 0x1C},
                                      {12, 0x1D}, {12, 0x1E}, {12, 0x1F}};

void PutCode(CcittBits& bits, const Code& code)
{
    bits.Put(code.bits, code.value);
}

void PutRun(CcittBits& bits, int32_t run, bool black)
{
    const Code* term = black ? kBlackTerm : kWhiteTerm;
    const Code* makeup = black ? kBlackMakeup : kWhiteMakeup;
    // Runs longer than the longest make-up repeat it.
    for (; run >= 2560 + 64; run -= 2560) PutCode(bits, kExtendedMakeup[12]);
    if (run >= 64) {
        const int32_t step = run / 64;
        PutCode(bits, step <= 27 ? makeup[step - 1] : kExtendedMakeup[step - 28]);
        run %= 64;
    }
    PutCode(bits, term[run]);
}

// The first changing element right of `after` (-1 before the row) whose
// pixel is `black`; the width when there is none. Left of the row lies
// white.
int32_t NextChange(const uint8_t* row, int32_t width, int32_t after, bool black)
{
    for (int32_t i = after + 1; i < width; ++i) {
        const bool here = row[i] != 0, before = i > 0 && row[i - 1] != 0;
        if (here == black && here != before) return i;
    }
    return width;
}

}  // namespace

void CcittBits::Put(unsigned count, uint32_t value)
{
    for (unsigned i = count; i-- > 0;) {
        if (used_ == 0) bytes_.push_back(0);
        if (value >> i & 1) bytes_.back() |= uint8_t(0x80 >> used_);
        used_ = (used_ + 1) & 7;
    }
}

void CcittBits::EndOfLine()
{
    while (used_ != 4) Put(1, 0);
    Put(12, 1);
}

void CcittBits::AlignToByte()
{
    used_ = 0;
}

std::vector<uint8_t> CcittBits::LowBitsFirst() const
{
    std::vector<uint8_t> out(bytes_);
    for (uint8_t& b : out) {
        uint8_t r = 0;
        for (int i = 0; i < 8; ++i) r = uint8_t(r | ((b >> i & 1) << (7 - i)));
        b = r;
    }
    return out;
}

void CodeRowOneDimensional(CcittBits& bits, const uint8_t* black, int32_t width)
{
    bool colour = false;
    for (int32_t x = 0; x < width;) {
        int32_t run = 0;
        while (x < width && (black[x] != 0) == colour) ++run, ++x;
        PutRun(bits, run, colour);
        colour = !colour;
    }
}

void CodeRowTwoDimensional(CcittBits& bits, const uint8_t* black, const uint8_t* reference, int32_t width)
{
    // Vertical mode codes for a1 - b1 = -3..3.
    static const Code kVertical[7] = {{7, 0x02}, {6, 0x02}, {3, 0x02}, {1, 0x01}, {3, 0x03}, {6, 0x03}, {7, 0x03}};
    int32_t a0 = -1;
    bool colour = false;  // of the run that a0 starts
    while (a0 < width) {
        const int32_t a1 = NextChange(black, width, a0, !colour);
        const int32_t b1 = NextChange(reference, width, a0, !colour);
        const int32_t b2 = NextChange(reference, width, b1, colour);
        if (b2 < a1) {
            bits.Put(4, 0x1);  // pass
            a0 = b2;
        } else if (a1 - b1 >= -3 && a1 - b1 <= 3) {
            PutCode(bits, kVertical[a1 - b1 + 3]);
            a0 = a1;
            colour = !colour;
        } else {
            const int32_t a2 = NextChange(black, width, a1, colour);
            bits.Put(3, 0x1);  // horizontal
            PutRun(bits, a1 - (a0 < 0 ? 0 : a0), colour);
            PutRun(bits, a2 - a1, !colour);
            a0 = a2;
        }
    }
}

}  // namespace ravi
