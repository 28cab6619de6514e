// The document: the picture in hand, one step of history, and the wiring of
// each operation to the pixel kernels (raster) or to a rewritten metafile
// (vector). An operation works on a copy and commits it only when it
// succeeded, so a failure leaves the document as it was.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "engine_state.h"
#include "okaio32.h"
#include "portable/raster_kernels.h"

namespace ravi {

void ReplacePicture(LouieState& state, Image&& image, HENHMETAFILE emf)
{
    if (state.emf) DeleteEnhMetaFile(state.emf);
    if (state.undoEmf) DeleteEnhMetaFile(state.undoEmf);
    state.raster = std::move(image);
    state.emf = emf;
    state.hasUndo = false;
    state.undoRaster = Image();
    state.undoEmf = nullptr;
    state.sectionCurrent = false;
    state.traced = false;
}

namespace {

// Moves the picture in hand to the history, dropping what was there.
void PushHistory(LouieState& state)
{
    if (state.undoEmf) DeleteEnhMetaFile(state.undoEmf);
    state.undoRaster = std::move(state.raster);
    state.undoEmf = state.emf;
    state.raster = Image();
    state.emf = nullptr;
    state.hasUndo = true;
    state.sectionCurrent = false;
    state.traced = false;
}

}  // namespace

void CommitRaster(LouieState& state, Image&& image)
{
    PushHistory(state);
    state.raster = std::move(image);
}

void CommitVector(LouieState& state, HENHMETAFILE emf)
{
    PushHistory(state);
    state.emf = emf;
}

}  // namespace ravi

namespace {

using Kernel = std::function<short(ravi::Image&)>;

// Runs a kernel over a copy of the raster image and keeps the copy.
short ApplyToRaster(LouieState& state, const Kernel& kernel)
{
    ravi::Image copy = state.raster;
    short code = kernel(copy);
    if (code != 0) return code;
    ravi::CommitRaster(state, std::move(copy));
    return 0;
}

// A colour of a metafile goes through the same kernel as a pixel would:
// one pixel of 24 bits holds it.
COLORREF MapOneColour(COLORREF colour, const void* context)
{
    const Kernel& kernel = *static_cast<const Kernel*>(context);
    ravi::Image pixel;
    if (ravi::MakeImage(1, 1, 24, &pixel) != 0) return colour;
    pixel.SetPixelValue(0, 0, ravi::RgbFromColorRef(colour & 0xFFFFFF));
    if (kernel(pixel) != 0) return colour;
    return ravi::ColorRefFromRgb(pixel.PixelRgb(0, 0));
}

// A colour operation: pixels of a raster, named colours of a vector.
short ApplyColourOperation(LouieState& state, const Kernel& kernel)
{
    if (!state.raster.Empty()) return ApplyToRaster(state, kernel);
    if (!state.emf) return ravi::kEngineNoImage;
    HENHMETAFILE mapped = ravi::MapMetafileColours(state.emf, MapOneColour, &kernel);
    if (!mapped) return ravi::kEngineNoMemory;
    ravi::CommitVector(state, mapped);
    return 0;
}

// Pixels per metre from tenths of a micron per dot, and back.
short DeciMicronsFromPelsPerMeter(long pelsPerMeter)
{
    if (pelsPerMeter <= 0) return 0;
    long value = (10000000L + pelsPerMeter / 2) / pelsPerMeter;
    return short(value > 32767 ? 32767 : value);
}

// A white picture: every byte of the rows set. On palette images of the
// default tables the last entry is white (1, 4 and 8 bits alike), and on
// 24 and 32 bits every channel is full.
void FillWhite(ravi::Image& image)
{
    const auto& layout = image.Layout();
    std::memset(image.Data() + layout.pixelOffset, 0xFF, layout.stride * std::size_t(layout.height));
}

bool InRange(int value, int low, int high) { return value >= low && value <= high; }

}  // namespace

Dewey::Dewey() : louie(new Louie) {}

Dewey::~Dewey()
{
    delete louie;
}

short Dewey::GetInfo(long* width, long* height, short* xRes, short* yRes, short* bits)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    const LouieState& state = *louie->state;
    long w = 0, h = 0;
    short xr = 0, yr = 0, b = 0;
    short code = 0;
    if (!state.raster.Empty()) {
        const ravi::DibHeader* header = state.raster.Header();
        w = header->width;
        h = header->height;
        xr = DeciMicronsFromPelsPerMeter(header->xPelsPerMeter);
        yr = DeciMicronsFromPelsPerMeter(header->yPelsPerMeter);
        b = short(header->bitCount);
    } else if (state.emf) {
        ravi::MetafileInfo(state.emf, &w, &h, &xr, &yr);
        b = 24;  // what a vector becomes when it is drawn on a screen
    } else {
        code = ravi::kEngineNoImage;
    }
    if (width) *width = w;
    if (height) *height = h;
    if (xRes) *xRes = xr;
    if (yRes) *yRes = yr;
    if (bits) *bits = b;
    return code;
}

int Dewey::IsRaster()
{
    if (!ravi::HasState(this)) return 0;
    return louie->state->raster.Empty() ? 0 : 1;
}

int Dewey::IsEntity()
{
    if (!ravi::HasState(this)) return 0;
    return 0;  // the engine reads no 3D formats
}

short Dewey::ReverseBW()
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    return ApplyColourOperation(*louie->state, [](ravi::Image& image) { return ravi::ReverseBW(image); });
}

short Dewey::Invert()
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    return ApplyColourOperation(*louie->state, [](ravi::Image& image) { return ravi::Invert(image); });
}

short Dewey::Grayize()
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    return ApplyColourOperation(*louie->state, [](ravi::Image& image) { return ravi::Grayize(image); });
}

short Dewey::Blackize()
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    return ApplyColourOperation(*louie->state, [](ravi::Image& image) { return ravi::Blackize(image); });
}

short Dewey::Gamma(short contrast, short bright, short gamma)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!InRange(contrast, -100, 100) || !InRange(bright, -100, 100) || !InRange(gamma, -100, 100))
        return ravi::kEngineBadArgument;
    return ApplyColourOperation(*louie->state, [=](ravi::Image& image) {
        return ravi::Gamma(image, contrast, bright, gamma);
    });
}

short Dewey::ChangeColor(IRGB* from, IRGB* to)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!from || !to) return ravi::kEngineBadArgument;
    uint32_t fromRef = RGB(from->red, from->green, from->blue);
    uint32_t toRef = RGB(to->red, to->green, to->blue);
    return ApplyColourOperation(*louie->state, [=](ravi::Image& image) {
        return ravi::ChangeColor(image, fromRef, toRef);
    });
}

short Dewey::Equalize()
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    LouieState& state = *louie->state;
    // A histogram needs pixels: a metafile has none to count.
    if (state.raster.Empty()) return state.emf ? ravi::kEngineNotSupported : ravi::kEngineNoImage;
    return ApplyToRaster(state, [](ravi::Image& image) { return ravi::Equalize(image); });
}

short Dewey::Rotate(short angle, short flipV, short flipH)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!InRange(flipV, 0, 1) || !InRange(flipH, 0, 1)) return ravi::kEngineBadArgument;
    LouieState& state = *louie->state;
    if (!state.raster.Empty())
        return ApplyToRaster(state, [=](ravi::Image& image) { return ravi::Rotate(image, angle, flipV, flipH); });
    if (!state.emf) return ravi::kEngineNoImage;

    // A vector turns by a world transform: the turned frame is moved back
    // so that its top left corner is the origin, then flipped in place.
    long w = 0, h = 0;
    ravi::MetafileInfo(state.emf, &w, &h, nullptr, nullptr);
    // The angle counts counter-clockwise; with y growing downward the
    // transform below turns clockwise by its own angle, so it gets the negative.
    double radians = -(angle % 360) * 3.14159265358979323846 / 180.0;
    double c = std::cos(radians), s = std::sin(radians);
    if (angle % 90 == 0) {
        c = std::round(c);
        s = std::round(s);
    }
    XFORM xf = {};
    xf.eM11 = FLOAT(c);
    xf.eM12 = FLOAT(s);
    xf.eM21 = FLOAT(-s);
    xf.eM22 = FLOAT(c);
    double xs[4] = {0, w * c, -h * s, w * c - h * s};
    double ys[4] = {0, w * s, h * c, w * s + h * c};
    double minX = xs[0], maxX = xs[0], minY = ys[0], maxY = ys[0];
    for (int i = 1; i < 4; ++i) {
        minX = std::min(minX, xs[i]);
        maxX = std::max(maxX, xs[i]);
        minY = std::min(minY, ys[i]);
        maxY = std::max(maxY, ys[i]);
    }
    long newW = std::lround(maxX - minX), newH = std::lround(maxY - minY);
    xf.eDx = FLOAT(-minX);
    xf.eDy = FLOAT(-minY);
    if (flipV) {
        xf.eM12 = -xf.eM12;
        xf.eM22 = -xf.eM22;
        xf.eDy = FLOAT(newH - xf.eDy);
    }
    if (flipH) {
        xf.eM11 = -xf.eM11;
        xf.eM21 = -xf.eM21;
        xf.eDx = FLOAT(newW - xf.eDx);
    }
    HENHMETAFILE turned = ravi::TransformMetafile(state.emf, xf, newW, newH);
    if (!turned) return ravi::kEngineNoMemory;
    ravi::CommitVector(state, turned);
    return 0;
}

short Dewey::Resize(long width, long height, short smooth)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (width <= 0 || height <= 0 || width > ravi::kMaxSide || height > ravi::kMaxSide) return ravi::kEngineBadSize;
    if (!InRange(smooth, 0, 1)) return ravi::kEngineBadArgument;
    LouieState& state = *louie->state;
    if (!state.raster.Empty()) {
        // Into a new picture straight from the one in hand, which goes to the
        // history as it is: no copy of a large picture for a small result.
        ravi::Image resized;
        const short code = ravi::ResizeInto(state.raster, width, height, smooth, &resized);
        if (code != 0) return code;
        ravi::CommitRaster(state, std::move(resized));
        return 0;
    }
    if (!state.emf) return ravi::kEngineNoImage;

    long w = 0, h = 0;
    ravi::MetafileInfo(state.emf, &w, &h, nullptr, nullptr);
    if (w <= 0 || h <= 0) return ravi::kEngineBadSize;
    XFORM xf = {};
    xf.eM11 = FLOAT(double(width) / w);
    xf.eM22 = FLOAT(double(height) / h);
    HENHMETAFILE scaled = ravi::TransformMetafile(state.emf, xf, width, height);
    if (!scaled) return ravi::kEngineNoMemory;
    ravi::CommitVector(state, scaled);
    return 0;
}

short Dewey::Rasterize(long width, long height, short bits)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (width <= 0 || height <= 0 || width > ravi::kMaxSide || height > ravi::kMaxSide) return ravi::kEngineBadSize;
    if (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32) return ravi::kEngineBadDepth;
    LouieState& state = *louie->state;
    // A raster is already pixels: it only takes the size asked for.
    if (!state.raster.Empty()) return Resize(width, height, 1);
    if (!state.emf) return ravi::kEngineNoImage;

    ravi::Image image;
    short code = ravi::RenderMetafile(state.emf, width, height, bits, image);
    if (code != 0) return code;
    ravi::CommitRaster(state, std::move(image));
    return 0;
}

short Dewey::Reduce(short depth, short method, short optimisePalette, long screen)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!InRange(method, 0, 3) || !InRange(optimisePalette, 0, 1) || screen < 0) return ravi::kEngineBadArgument;
    if (!(InRange(depth, 1, 24) || depth == 32)) return ravi::kEngineBadDepth;
    LouieState& state = *louie->state;
    if (state.raster.Empty()) return state.emf ? ravi::kEngineNotSupported : ravi::kEngineNoImage;
    ravi::ReduceParams params = ravi::ReduceParamsFromCall(depth, method, optimisePalette, screen);
    return ApplyToRaster(state, [&](ravi::Image& image) { return ravi::Reduce(image, params); });
}

// The script line gives the palette as a colour count and the screen as a
// period in tenths of a micron, not as the direct call does.
short ravi::RunReduceLine(Dewey* document, int depth, int method, long palette, long screen)
{
    if (!HasState(document)) return kEngineNoMemory;
    LouieState& state = *document->louie->state;
    if (state.raster.Empty()) return state.emf ? ravi::kEngineNotSupported : ravi::kEngineNoImage;
    ravi::ReduceParams params = ravi::ReduceParamsFromScript(depth, method, palette, screen);
    return ApplyToRaster(state, [&](ravi::Image& image) { return ravi::Reduce(image, params); });
}

short Dewey::UndoRedo()
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    LouieState& state = *louie->state;
    if (!state.hasUndo) return ravi::kEngineNothingToUndo;
    std::swap(state.raster, state.undoRaster);
    std::swap(state.emf, state.undoEmf);
    state.sectionCurrent = false;
    state.traced = false;
    return 0;
}

short Dewey::PrepRaster(short undither, short despeckle, short maxColors)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    LouieState& state = *louie->state;
    if (state.traced) return 0;
    if (state.raster.Empty()) return state.emf ? ravi::kEngineNotSupported : ravi::kEngineNoImage;
    return ApplyToRaster(state, [=](ravi::Image& image) {
        return ravi::PrepareForTrace(image, undither, despeckle, maxColors);
    });
}

// The last number is kept for later use and must be 0.
short Dewey::Vectorize(short method, short genTol, short bezGen, short arcGen, short lineWidth, short reserved)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (reserved != 0 || bezGen < 0 || bezGen > 1 || arcGen < 0 || arcGen > 1) return ravi::kEngineBadArgument;
    LouieState& state = *louie->state;
    if (state.traced) return 0;
    if (state.raster.Empty()) return state.emf ? ravi::kEngineNotSupported : ravi::kEngineNoImage;
    ravi::TraceParams params;
    params.method = method;
    params.genTol = genTol;
    params.bezier = bezGen != 0;
    params.arcs = arcGen != 0;
    params.lineWidth = lineWidth;
    ravi::Drawing drawing;
    short code = ravi::TraceImage(state.raster, params, &drawing);
    if (code != 0) return code;
    HENHMETAFILE emf = ravi::MetafileFromDrawing(drawing, state.traceOverlay ? &state.raster : nullptr);
    if (!emf) return ravi::kEngineNoMemory;
    ravi::CommitVector(state, emf);
    state.traced = true;
    return 0;
}

short Dewey::RefreshOptions(const char* path)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!path) return ravi::kEngineBadArgument;
    TagSet options;
    short code = options.SetPath(path, 1);
    if (code != 0) return code;
    LouieState& state = *louie->state;
    lstrcpynA(state.optionsPath, path, sizeof state.optionsPath);

    state.jpegQuality = -1.0f;
    const char* q = options.Get("JPGQ");
    if (q && *q) state.jpegQuality = ravi::JpegQualityFromFactor(std::strtol(q, nullptr, 10));
    ravi::ReadFileOptions(options, &state.fileOptions);
    const char* view = options.Get("TRACEVIEW");
    state.traceOverlay = view && lstrcmpiA(view, "OVERLAY") == 0;
    return 0;
}

short Dewey::Open(const char* path)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!path || !*path) return ravi::kEngineBadArgument;
    ravi::Image image;
    HENHMETAFILE emf = nullptr;
    short code = ravi::ReadImageFile(path, image, emf, louie->state->fileOptions);
    if (code != 0) return code;

    // The section first: when it cannot be had the document keeps what it had.
    code = ravi::StorePicture(louie, image, emf);
    if (code != 0) {
        if (emf) DeleteEnhMetaFile(emf);
        return code;
    }
    LouieState& state = *louie->state;
    ravi::ReplacePicture(state, std::move(image), emf);
    state.sectionCurrent = true;
    lstrcpynA(state.fileName, path, sizeof state.fileName);
    return 0;
}

short Dewey::Save(const char* path)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!path || !*path) return ravi::kEngineBadArgument;
    const LouieState& state = *louie->state;
    if (state.raster.Empty() && !state.emf) return ravi::kEngineNoImage;
    return ravi::WriteImageFile(path, state.raster, state.emf, state.jpegQuality, state.fileOptions);
}

short Dewey::CreateRaster(long width, long height, short bits)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (width <= 0 || height <= 0 || width > ravi::kMaxSide || height > ravi::kMaxSide) return ravi::kEngineBadSize;
    ravi::Image image;
    short code = ravi::MakeImage(width, height, bits, &image);
    if (code != 0) return code;
    FillWhite(image);
    code = ravi::StorePicture(louie, image, nullptr);
    if (code != 0) return code;
    LouieState& state = *louie->state;
    ravi::ReplacePicture(state, std::move(image), nullptr);
    state.sectionCurrent = true;
    state.fileName[0] = 0;
    return 0;
}

BITMAPINFOHEADER* Dewey::GetDib()
{
    if (!ravi::HasState(this)) return nullptr;
    LouieState& state = *louie->state;
    if (state.raster.Empty()) return nullptr;
    // The caller may write the pixels through this pointer, and we cannot
    // see when: from now on the section counts as behind.
    state.sectionCurrent = false;
    return reinterpret_cast<BITMAPINFOHEADER*>(state.raster.Data());
}

HENHMETAFILE Dewey::GetMetafile()
{
    if (!ravi::HasState(this)) return nullptr;
    return louie->state->emf;
}
