// Huey: a view of a document in a window. A raster is stretched from its
// DIB with the halftone mode, which averages rather than drops pixels when
// it shrinks; a vector is played so that its source part fills the target.
#include "engine_state.h"

Huey::Huey(Dewey* doc) : document(doc), window(nullptr) {}

Huey::~Huey() = default;

short Huey::AttachWindow(HWND target, HDC)
{
    // The device context is taken from the window at each paint, so none
    // is kept between paints.
    if (!target || !IsWindow(target)) return ravi::kEngineNoWindow;
    window = target;
    return 0;
}

short Huey::Paint(tagRECT* source, tagRECT* target)
{
    if (!window) return ravi::kEngineNoWindow;
    HDC dc = GetDC(window);
    if (!dc) return ravi::kEngineNoWindow;
    short code = PaintOn(dc, source, target);
    ReleaseDC(window, dc);
    return code;
}

short Huey::PaintOn(HDC dc, tagRECT* source, tagRECT* target)
{
    if (!dc) return ravi::kEngineNoWindow;
    if (!source || !target) return ravi::kEngineBadArgument;
    if (!ravi::HasState(document)) return ravi::kEngineNoImage;
    LONG srcW = source->right - source->left, srcH = source->bottom - source->top;
    LONG dstW = target->right - target->left, dstH = target->bottom - target->top;
    if (srcW <= 0 || srcH <= 0 || dstW <= 0 || dstH <= 0) return ravi::kEngineBadSize;

    const LouieState& state = *document->louie->state;
    if (state.raster.Empty() && !state.emf) return ravi::kEngineNoImage;

    short code = 0;
    if (!state.raster.Empty()) {
        const ravi::Image& image = state.raster;
        SetStretchBltMode(dc, HALFTONE);
        SetBrushOrgEx(dc, 0, 0, nullptr);
        // The rows lie bottom-up: a source counted from the top starts
        // that many rows above the DIB's last row.
        int ySource = image.Height() - source->bottom;
        int lines = StretchDIBits(dc, target->left, target->top, dstW, dstH, source->left, ySource, srcW, srcH,
                                  image.Data() + image.Layout().pixelOffset,
                                  reinterpret_cast<const BITMAPINFO*>(image.Data()), DIB_RGB_COLORS, SRCCOPY);
        if (lines == 0 || lines == int(GDI_ERROR)) code = ravi::kEngineBadArgument;
    } else {
        // The whole picture is placed so that the source part lands on the
        // target, and the target clips it.
        long w = 0, h = 0;
        ravi::MetafileInfo(state.emf, &w, &h, nullptr, nullptr);
        RECT whole;
        whole.left = target->left - MulDiv(source->left, dstW, srcW);
        whole.top = target->top - MulDiv(source->top, dstH, srcH);
        whole.right = whole.left + MulDiv(w, dstW, srcW);
        whole.bottom = whole.top + MulDiv(h, dstH, srcH);
        int saved = SaveDC(dc);
        IntersectClipRect(dc, target->left, target->top, target->right, target->bottom);
        if (!PlayEnhMetaFile(dc, state.emf, &whole)) code = ravi::kEngineFileFormat;
        RestoreDC(dc, saved);
    }
    return code;
}
