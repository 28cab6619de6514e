// Fax files as TIFF class F: bilevel pages 1728 dots wide, coded in
// Modified Huffman (CCITT group 3, one-dimensional, compression 3) with
// each line's EOL ending on a byte, bits low first (fill order 2), at
// 204 dots per inch across and 196 (fine) or 98 (coarse) lines per inch.
// No windows.h: tested natively.
#pragma once

#include <cstdint>
#include <vector>

#include "dib.h"

namespace ravi {

constexpr int32_t kFaxWidth = 1728;
// A page of 11 inches.
constexpr int32_t kFaxFinePageRows = 2156;
constexpr int32_t kFaxCoarsePageRows = 1078;

// The image's pixels go as they are (the options' size decides them): a
// narrower line is filled with white, a wider one cut; luminance below 128
// is black. With multiPage the rows are cut into pages of 11 inches, one
// IFD each, otherwise the image is one page however long.
short WriteFaxTiffBytes(const Image& image, bool fine, bool multiPage, std::vector<uint8_t>* out);

}  // namespace ravi
