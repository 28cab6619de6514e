// The listing of a TIFF file's structure that the image attributes page
// shows: every IFD and every entry, and, when the reader stopped early,
// where and why. No windows.h: tested natively.
#pragma once

#include <cstddef>
#include <string>

#include "tiff_reader.h"

namespace zvtiff {

// The room of a listing, the terminating zero included.
constexpr std::size_t kListingSize = 32000;

// The listing of what the reader gave, with status the reader's result.
// Lines end in CR LF, as a multi-line edit box wants them. It never grows
// past limit - 1 bytes: a listing that would is cut at a line's end and
// says so.
std::string TiffListing(const TiffStructure& tiff, TiffStatus status, std::size_t limit = kListingSize);

// The code CvtScanTiff gives for a listing that stopped with status: the
// suite's file codes where one fits (-252 read error, -256 end of file,
// -257 seek error), else a code of the listing's own (-1040 and on), whose
// reason the listing's last line tells in words. 0 for Ok.
short ListingErrorCode(TiffStatus status);

// A tag's name ("ImageWidth"), or null for a tag the listing doesn't name.
const char* TiffTagName(uint16_t tag);

}  // namespace zvtiff
