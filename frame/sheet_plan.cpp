// The page plan of a destination sheet.
#include "sheet_plan.h"

#include "format_types.h"
#include "frame_tables.h"

namespace zv {

namespace {

// b is an upper-case name of the table.
bool SameName(const char* a, const char* b)
{
    if (!a)
        return false;
    for (;; ++a, ++b) {
        char x = *a >= 'a' && *a <= 'z' ? static_cast<char>(*a - 'a' + 'A') : *a;
        if (x != *b)
            return false;
        if (!x)
            return true;
    }
}

// The output page that a dialog number stands for; false for a number that
// belongs to no output page.
bool OutputPageOf(unsigned short dlgId, SheetPage* page)
{
    switch (dlgId) {
    case kDlgEpsOut: *page = SheetPage::kEpsOut; return true;
    case kDlgGifOut: *page = SheetPage::kGifOut; return true;
    case kDlgIcoOut: *page = SheetPage::kIcoOut; return true;
    case kDlgJpgOut: *page = SheetPage::kJpgOut; return true;
    case kDlgTifOut: *page = SheetPage::kTifOut; return true;
    case kDlgFaxOut: *page = SheetPage::kFaxOut; return true;
    case kDlgEntityOut: *page = SheetPage::kEntityOut; return true;
    case kDlgRasterOut: *page = SheetPage::kRasterOut; return true;
    case kDlgVectorOut: *page = SheetPage::kVectorOut; return true;
    default: return false;
    }
}

}  // namespace

int PlanDestPages(unsigned short dlgId, short srcType, short destType, const char* destKey,
                  SheetPage (&pages)[kMaxDestPages])
{
    int count = 0;
    SheetPage output;
    if (OutputPageOf(dlgId, &output))
        pages[count++] = output;
    // A 3D destination has no rotation of its own.
    if (dlgId != kDlgEntityOut)
        pages[count++] = SheetPage::kRotate;
    pages[count++] = SheetPage::kAdjColors;
    pages[count++] = SheetPage::kEditColors;
    // A drawing has no colour count, except where the format keeps a
    // palette of its own.
    if (destType != kFormatVector || SameName(destKey, "DXF") || SameName(destKey, "WMF") || SameName(destKey, "WPG"))
        pages[count++] = SheetPage::kNumColors;
    // Tracing turns a raster source into a drawing.
    if (IsRasterType(srcType) &&
        (destType == kFormatVector || destType == kFormatMetafile || destType == kFormatEntity))
        pages[count++] = SheetPage::kTrace;
    return count;
}

}  // namespace zv

namespace zv {

unsigned short InfoDialogNumber(const char* internalSrcExt, short srcType)
{
    if (SameName(internalSrcExt, "TIF"))
        return kDlgInfoTiff;
    if (srcType == 2 || srcType == 3 || srcType == 6)
        return kDlgInfoVector;
    return kDlgInfoRaster;
}

}  // namespace zv
