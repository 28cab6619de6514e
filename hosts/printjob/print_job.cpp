// The print job of the hosts. The library leaves the image's place on the
// sheet in tags; the engine paints the image with the print options applied
// into that place on the printer's DC.
#include "print_job.h"

#include <cmath>
#include <cstring>

#include "okaio32.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

constexpr double kMargin = 0.25;  // each side, in the tags' units

const char* ExtensionOf(const char* path)
{
    const char* dot = std::strrchr(path, '.');
    const char* slash = std::strrchr(path, '\\');
    return dot != nullptr && (slash == nullptr || dot > slash) ? dot + 1 : "";
}

// A length of the tags in printer dots.
long Dots(const char* units, double value, double dpi)
{
    return std::lround(ConvertUnits(units, "IN", value, dpi, 0.0) * dpi);
}

}  // namespace

RECT PrintTargetRect(HDC printer, TagSet* tags)
{
    const char* units = ZvGetTag(tags, "PRNUNITS");
    if (units == nullptr)
        units = "IN";
    const char* margins = ZvGetTag(tags, "MARGINS");
    const double margin = margins && lstrcmpiA(margins, "OFF") == 0 ? 0.0 : kMargin;
    const double dpiX = GetDeviceCaps(printer, LOGPIXELSX), dpiY = GetDeviceCaps(printer, LOGPIXELSY);
    // The DC's origin is the corner of the printable area, not of the sheet.
    RECT r;
    r.left = Dots(units, margin + ZvGetFloatTag(tags, "PRTLEFT"), dpiX) - GetDeviceCaps(printer, PHYSICALOFFSETX);
    r.top = Dots(units, margin + ZvGetFloatTag(tags, "PRTTOP"), dpiY) - GetDeviceCaps(printer, PHYSICALOFFSETY);
    r.right = r.left + Dots(units, ZvGetFloatTag(tags, "PRNW"), dpiX);
    r.bottom = r.top + Dots(units, ZvGetFloatTag(tags, "PRNH"), dpiY);
    return r;
}

short PrintImageFile(HDC printer, TagSet* tags, OKAMOD* formats, const char* path, const char* docName)
{
    Dewey image;
    short result = image.Open(path);
    if (result != 0)
        return result;
    char src[16] = {};
    const char* internal = ZvGetInternalExt(formats, ExtensionOf(path));
    lstrcpynA(src, internal ? internal : ExtensionOf(path), sizeof src);
    TagSet engine;
    FilterOptions(&image, tags, &engine, src, "PRN");
    result = DoOptions(&image, tags, src, "PRN", formats);
    if (result != 0)
        return result;

    long width = 0, height = 0;
    image.GetInfo(&width, &height, nullptr, nullptr, nullptr);
    RECT whole = {0, 0, width, height};
    RECT target = PrintTargetRect(printer, tags);
    DOCINFOA doc = {};
    doc.cbSize = sizeof doc;
    doc.lpszDocName = docName;
    if (StartDocA(printer, &doc) <= 0)
        return -1;
    if (StartPage(printer) <= 0) {
        AbortDoc(printer);
        return -1;
    }
    Huey view(&image);
    result = view.PaintOn(printer, &whole, &target);
    EndPage(printer);
    if (EndDoc(printer) <= 0 && result == 0)
        result = -1;
    return result;
}
