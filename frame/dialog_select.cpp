// Which dialog belongs to a format. The rules go in order and the first
// that fits decides; names compare without regard to case, since hosts hand
// in extensions as the user typed them.
#include "frame_tables.h"

namespace zv {
namespace {

bool SameName(const char* a, const char* b)
{
    if (!a || !b)
        return false;
    for (;; ++a, ++b) {
        char x = *a >= 'a' && *a <= 'z' ? static_cast<char>(*a - 'a' + 'A') : *a;
        char y = *b >= 'a' && *b <= 'z' ? static_cast<char>(*b - 'a' + 'A') : *b;
        if (x != y)
            return false;
        if (!x)
            return true;
    }
}

// Format types of the registry.
constexpr short kVector = 2;
constexpr short kMetafile = 3;
constexpr short kFax = 5;
constexpr short kEntity3d = 6;
constexpr short kConvertToFile = 2;  // the operation of a save

struct NamedDestination {
    const char* key;
    unsigned short number;
};

// After the fax type, the formats with a sheet of their own; "TXT" has
// nothing to set.
constexpr NamedDestination kNamedDestinations[] = {
    {"TXT", kDlgNone}, {"EPS", kDlgEpsOut}, {"GIF", kDlgGifOut},       {"ICO", kDlgIcoOut},
    {"JPG", kDlgJpgOut}, {"TIF", kDlgTifOut}, {"DXF", kDlgEntityOut}, {"CGM", kDlgVectorOut},
};

struct NamedSource {
    const char* ext;
    SourceDialogChoice choice;
};

constexpr NamedSource kNamedSources[] = {
    {"CGM", {kDlgCgmSource, SourceDialogProc::kCgm}},
    {"CLP", {kDlgClipboardSource, SourceDialogProc::kClipboard}},
    {"CUT", {kDlgCutSource, SourceDialogProc::kNone}},
    {"DXF", {kDlg2dOr3dSource, SourceDialogProc::k2dOr3d}},
    {"OGF", {kDlgPixOgfSource, SourceDialogProc::kPixOgf}},
    {"PCD", {kDlgPcdSource, SourceDialogProc::kPcd}},
    {"PCL", {kDlgPclSource, SourceDialogProc::kPcl}},
    {"PGL", {kDlgPglSource, SourceDialogProc::kPicPgl}},
    {"PIC", {kDlgPicSource, SourceDialogProc::kPicPgl}},
    {"PIX", {kDlgPixOgfSource, SourceDialogProc::kPixOgf}},
};

}  // namespace

unsigned short DestDialogNumber(const char* destKey, short destType, short srcType)
{
    if (destType == kFax)
        return kDlgFaxOut;
    for (const NamedDestination& named : kNamedDestinations)
        if (SameName(destKey, named.key))
            return named.number;
    if (destType == kVector)
        return kDlgVectorOut;
    // A metafile keeps the vectors of a vector source; anything else reaches
    // it as a raster.
    if (srcType == kVector && destType == kMetafile)
        return kDlgVectorOut;
    if (destType == kEntity3d)
        return kDlgEntityOut;
    return kDlgRasterOut;
}

SourceDialogChoice SourceDialogFor(const char* srcExt, short srcType, int wantInputOptions, short operation)
{
    for (const NamedSource& named : kNamedSources)
        if (SameName(srcExt, named.ext))
            return named.choice;
    // A save reads nothing, so it offers no reading options.
    if (wantInputOptions && operation != kConvertToFile) {
        if (srcType == kEntity3d)
            return {kDlg3dSource, SourceDialogProc::k3d};
        return {kDlgInputOptions, SourceDialogProc::kInputOptions};
    }
    return {kDlgNone, SourceDialogProc::kNone};
}

}  // namespace zv
