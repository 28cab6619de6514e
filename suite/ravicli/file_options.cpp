// Reading the options of written files from a tag set.
#include "file_options.h"

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "okaio32.h"

namespace ravi {

namespace {

bool IsOn(const char* value)
{
    return value != nullptr && lstrcmpiA(value, "ON") == 0;
}

}  // namespace

void ReadFileOptions(TagSet& tags, FileOptions* out)
{
    *out = FileOptions{};
    if (const char* type = tags.Get("TIFTYPE")) out->tiffType = type;
    out->gifInterlace = IsOn(tags.Get("GIFINT"));
    if (const char* trans = tags.Get("GIFTRANS")) {
        if (lstrcmpiA(trans, "BLACK") == 0) out->gifTransparent = 0x000000;
        if (lstrcmpiA(trans, "WHITE") == 0) out->gifTransparent = 0xFFFFFF;
    }
    // "48 x 48": icons are square; the first number is the side.
    if (const char* size = tags.Get("ICOSIZE")) out->iconSide = std::atoi(size);
    if (out->iconSide < 0 || out->iconSide > 256) out->iconSide = 0;
    if (const char* model = tags.Get("EPSMODEL")) out->eps.cmyk = lstrcmpiA(model, "CMYK") == 0;
    if (const char* ucr = tags.Get("EPSUCR")) out->eps.grayReplacement = std::atof(ucr);
    out->eps.formFeed = IsOn(tags.Get("EPSFF"));
    if (const char* view = tags.Get("EPSEMBVIEW")) {
        char upper[32] = {};
        lstrcpynA(upper, view, sizeof upper);
        CharUpperA(upper);
        out->eps.preview = upper;
    }
    const char* faxType = tags.Get("FAXTYPE");
    for (auto [key, fax] : {std::pair<const char*, FaxOptions*>{"DCX", &out->dcx}, {"SCI", &out->sci}}) {
        std::string vr = std::string(key) + "VR", mpage = std::string(key) + "MPAGE";
        if (const char* pitch = tags.Get(vr.c_str())) fax->fine = std::atoi(pitch) != 2592;
        fax->multiPage = IsOn(tags.Get(mpage.c_str()));
        std::string prefix = faxType != nullptr ? faxType : key;
        if (const char* h = tags.Get((prefix + "HOFF").c_str())) fax->horizontalOffsetMm = std::atof(h);
        if (const char* v = tags.Get((prefix + "VOFF").c_str())) fax->verticalOffsetMm = std::atof(v);
    }
    if (const char* palette = tags.Get("CUTIPAL")) out->cutPalette = palette;
}

}  // namespace ravi
