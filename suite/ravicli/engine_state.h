// The private state of a document and the helpers that the engine's Windows
// files share. Hosts never see this header.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "portable/dib.h"
#include "portable/engine_codes.h"
#include "portable/tracer.h"
#include "ravicli.h"
#include "file_options.h"

// Everything a Louie knows beyond its section handle. The picture in hand is
// either a packed DIB (raster) or an enhanced metafile (vector); the section
// holds a copy that SaveResurrectionData brings up to date.
class LouieState {
public:
    ravi::Image raster;  // header, full colour table, rows
    HENHMETAFILE emf = nullptr;

    // One step of history: the picture before the last change. UndoRedo
    // swaps it with the one in hand, so a second call redoes.
    bool hasUndo = false;
    ravi::Image undoRaster;
    HENHMETAFILE undoEmf = nullptr;

    // The section holds the picture in hand: nothing has changed it since it
    // was stored there or read from there. Every change of the picture (and
    // every pointer handed out to write it) clears this, so that
    // SaveResurrectionData only writes what is new. A vector's section is
    // shared by name without SaveResurrectionData (a clone of a vector looks
    // at the same section), so GetSectionName brings a stale one up to date.
    bool sectionCurrent = false;

    // The section mapped whole, released when the last holder lets go: a
    // picture read from a section may borrow this view as its storage.
    std::shared_ptr<void> view;
    std::size_t viewBytes = 0;   // what VirtualQuery says the view holds
    // The document made this section and writes its picture there in place.
    // A section that it only opened by name is never written: the view is a
    // private copy-on-write one, and a picture to store gets a new section.
    bool ownSection = false;
    // The section was opened by name and another document made it, which
    // writes its own next picture there: what it holds may have moved on
    // from what this document read.
    bool makerWrites = false;
    char sectionName[kDeweySectionNameSize] = {};
    char fileName[kDeweyFileNameSize] = {};
    char optionsPath[kDeweyFileNameSize] = {};
    // Options read from the tag set at optionsPath, for files written.
    float jpegQuality = -1.0f;  // 0..1, negative: the encoder's own
    ravi::FileOptions fileOptions;
    // "TRACEVIEW" of "OVERLAY": a traced drawing keeps its raster under it.
    bool traceOverlay = false;
    // The picture in hand is the drawing that Vectorize made. DoOptions
    // traces with direct calls while it writes the script, whose own
    // PrepRaster and Vectorize lines then find the work done.
    bool traced = false;
};

namespace ravi {

// The Windows side's own codes (declared in ravicli.h for hosts).
constexpr short kEngineNothingToUndo = kRavicliNothingToUndo;
constexpr short kEngineNotAvailable = kRavicliNotAvailable;
constexpr short kEngineNoWindow = kRavicliNoWindow;

// A document whose engine object or state could not be allocated answers
// every call with kEngineNoMemory instead of touching them.
inline bool HasState(const Dewey* document)
{
    return document && document->louie && document->louie->state;
}

// --- sections (section.cpp) ---
// Puts a picture into the document's section, in place when the section is
// the document's own and large enough, otherwise in a new section that
// replaces it. The document's picture is not changed; the caller says
// whether it is the one now in the section.
short StorePicture(Louie* louie, const ravi::Image& raster, HENHMETAFILE emf);
// Lets go of the document's section.
void CloseSection(Louie* louie);

// --- the picture in hand (dewey.cpp) ---
// Replaces the picture by a new one, keeping the old one for UndoRedo.
void CommitRaster(LouieState& state, ravi::Image&& image);
void CommitVector(LouieState& state, HENHMETAFILE emf);
// Replaces the picture without history (a newly opened or made image, or
// one read from a section); the caller says whether the section holds it.
void ReplacePicture(LouieState& state, ravi::Image&& image, HENHMETAFILE emf);

// A metafile that draws a raster image at its size.
HENHMETAFILE MetafileFromRaster(const ravi::Image& image);
// A traced drawing as a metafile, over the raster `under` or over its
// background colour when that is null (trace_metafile.cpp).
HENHMETAFILE MetafileFromDrawing(const Drawing& drawing, const Image* under);
// A new metafile of width by height pixels of the screen; the caller draws
// into it and closes it.
HDC BeginMetafile(long width, long height);

// The script's Reduce line, whose palette and screen are given otherwise
// than in the direct call.
short RunReduceLine(Dewey* document, int depth, int method, long palette, long screen);

// --- files (image_files.cpp) ---
// The options read are those of source files (the CUT palette).
short ReadImageFile(const char* path, ravi::Image& image, HENHMETAFILE& emf, const ravi::FileOptions& options);
short WriteImageFile(const char* path, const ravi::Image& image, HENHMETAFILE emf, float jpegQuality);
short WriteImageFile(const char* path, const ravi::Image& image, HENHMETAFILE emf, float jpegQuality,
                     const ravi::FileOptions& options);

// --- metafiles (metafile.cpp) ---
// Plays a metafile into a new DIB of the given size and depth.
short RenderMetafile(HENHMETAFILE emf, long width, long height, short bits, ravi::Image& image);
// Size of the picture in pixels of its reference device, and its resolution
// in tenths of a micron per dot.
void MetafileInfo(HENHMETAFILE emf, long* width, long* height, short* xRes, short* yRes);
// A copy of the metafile with every colour it names passed through map.
using ColourMap = COLORREF (*)(COLORREF colour, const void* context);
HENHMETAFILE MapMetafileColours(HENHMETAFILE emf, ColourMap map, const void* context);
// A copy of the metafile turned or scaled: the new picture is width by
// height pixels of the reference device.
HENHMETAFILE TransformMetafile(HENHMETAFILE emf, const XFORM& xform, long width, long height);

}  // namespace ravi
