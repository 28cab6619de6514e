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

// What the fax page chooses. The offsets are millimetres on the page, as
// the page bounds them: horizontal -150..150 (a negative one moves the
// image left and cuts its left edge), vertical 0..150 (white lines above
// the image on every page).
struct FaxOptions {
    bool fine = true;
    bool multiPage = false;
    double horizontalOffsetMm = 0.0;
    double verticalOffsetMm = 0.0;
};

// The image's pixels go as they are (the options' size decides them),
// moved by the offsets: what lies right of the line is cut, the rest of
// the line is white; luminance below 128 is black. With multiPage the rows
// are cut into pages of 11 inches, each with the vertical offset above its
// share of the image, one IFD each; otherwise the image is one page
// however long.
short WriteFaxTiffBytes(const Image& image, const FaxOptions& options, std::vector<uint8_t>* out);

}  // namespace ravi
