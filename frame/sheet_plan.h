// The kinds of page of the option sheets, and which of them a destination's
// sheet shows in which order, free of the platform so that the rule can be
// tested on its own.
#pragma once

namespace zv {

// Every kind of page of the library's sheets.
enum class SheetPage {
    kEpsOut,
    kGifOut,
    kIcoOut,
    kJpgOut,
    kTifOut,
    kFaxOut,
    kEntityOut,
    kRasterOut,
    kVectorOut,
    kRotate,
    kAdjColors,
    kEditColors,
    kNumColors,
    kTrace,
    kPrintPos,
    kResize,
    kInfo,
};

constexpr int kMaxDestPages = 6;

// The pages of the sheet whose first page is dlgId (the number that the
// destination's dialog choice gave), in the order they are added; gives
// their count. A dlgId that is no output page adds none, and the sheet opens
// on the next page. destKey is the internal extension of the destination.
int PlanDestPages(unsigned short dlgId, short srcType, short destType, const char* destKey,
                  SheetPage (&pages)[kMaxDestPages]);

}  // namespace zv

namespace zv {

// The template of the image attributes page: the TIFF one for a TIFF source,
// the drawing one for a vector, metafile or 3D source, else the raster one.
unsigned short InfoDialogNumber(const char* internalSrcExt, short srcType);

}  // namespace zv
