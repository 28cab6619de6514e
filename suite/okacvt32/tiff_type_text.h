// The type text of a TIFF flavour: how a TIFF is to be written
// (compression, colour, layout), as the scan of a sample file gives it and
// as the image engine reads it back when it writes a TIFF. Its grammar
// stands in docs/tiff_type_text.md. No windows.h: tested natively.
#pragma once

#include <cstdint>
#include <string>

#include "tiff_reader.h"

namespace zvtiff {

// Everything the text can say, with the value a writer takes when the text
// leaves a key out (an uncompressed, strip-organised, chunky TIFF whose
// colour follows the image).
struct TiffTypeFields {
    uint32_t compression = 1;
    uint32_t photometric = 0;     // 0: not given, the image's own colour decides
    uint32_t bitsPerSample = 0;   // 0: not given
    uint32_t samplesPerPixel = 0; // 0: not given
    uint32_t fillOrder = 1;
    uint32_t planarConfig = 1;
    uint32_t predictor = 1;
    bool tiled = false;
    uint32_t rowsPerStrip = 0;  // 0: not given
    uint32_t tileWidth = 0;
    uint32_t tileLength = 0;
};

// The longest text TiffTypeText gives, without its NUL; it fits the 128
// bytes a flavour's definition may hold in the registry.
constexpr std::size_t kTiffTypeTextMax = 127;

// The type text of a scanned image.
std::string TiffTypeText(const TiffImageFacts& facts);

// Reads a type text; keys it does not know are skipped, so that a newer
// text still reads. Gives false (and leaves `fields` at what it read so far)
// when a known key has a value that is no number or is out of range.
bool ParseTiffTypeText(const char* text, TiffTypeFields* fields);

// The codes that the scan of a TIFF gives for each failure. Each is the
// negative id of the text that the options library's string table holds
// for it, so that a caller shows string -code.
constexpr short kScanNoError = 0;
constexpr short kScanFileNotFound = -15072;
constexpr short kScanReadError = -15081;
constexpr short kScanOutOfMemory = -15088;
constexpr short kScanInvalidTiff = -15022;
constexpr short kScanBigTiff = -15094;
short ScanErrorCode(TiffStatus status);

}  // namespace zvtiff
