// The options of written files that the engine reads from the tag set a
// host names (Dewey::RefreshOptions), beside the JPEG quality. Keys are
// those the destination pages write, under the file kind's internal
// extension: see docs/dest_pages.md.
#pragma once

#include <cstdint>
#include <string>

#include "portable/encoder_options.h"
#include "portable/fax_writer.h"
#include "portable/file_writers.h"

#include "okaio32.h"

namespace ravi {

struct FileOptions {
    std::string tiffType;         // "TIFTYPE": the flavour's type text; empty for the plain default
    bool gifInterlace = false;    // "GIFINT"
    int64_t gifTransparent = -1;  // "GIFTRANS": 0x000000 for BLACK, 0xFFFFFF for WHITE, -1 for none
    int iconSide = 0;             // "ICOSIZE" ("48 x 48"): 0 keeps the image's size
    EpsOptions eps;               // "EPSMODEL", "EPSUCR", "EPSFF", "EPSEMBVIEW"
    // The fax kinds, each by its own key: K+"VR" 1296 is fine (the default,
    // as the page opens these kinds on Fine), K+"MPAGE" cuts pages; the
    // offsets F+"HOFF" and F+"VOFF" under the fax page's prefix F (the
    // host's "FAXTYPE", else the kind).
    FaxOptions dcx, sci;
    // Files read: "CUTIPAL", the palette file that the CUT source dialog
    // chose; empty when none was chosen.
    std::string cutPalette;
};

void ReadFileOptions(TagSet& tags, FileOptions* out);

}  // namespace ravi
