// ravicli: the client of the suite's image engine. A Dewey is one image
// document, a Huey a view of a Dewey in a window, a Louie the engine object
// at the head of a Dewey.
#pragma once

#include <windows.h>

#include "okaheap40.h"

#ifdef RAVICLI_BUILD
#define RAVICLI_API __declspec(dllexport)
#else
#define RAVICLI_API __declspec(dllimport)
#endif

// A colour in three bytes: red, green, blue (the low three bytes of a COLORREF).
#pragma pack(push, 1)
struct IRGB {
    unsigned char red;
    unsigned char green;
    unsigned char blue;
};
#pragma pack(pop)

// Result codes that only the Windows side of the engine gives. The codes of
// images, scripts and files stand in portable/engine_codes.h (-4101 and on).
enum RavicliCode : short {
    kRavicliNothingToUndo = -4160,  // UndoRedo with no change behind it
    kRavicliNotAvailable = -4161,   // kept for hosts that test for it; tracing is now always there
    kRavicliNoWindow = -4162,       // a view painted without a window
};

// Warnings: what the engine did otherwise than asked while it read or wrote
// a file, and went on. Each is handed to the handler, with its owner, the
// moment it happens; with no handler set they go nowhere. Their texts stand
// in OKACVT32 under their numbers (MsgLib).
enum RavicliWarning : short {
    kRavicliWarnFirstPageOnly = 4150,     // a file of several pages: the first was read
    kRavicliWarnColorsReduced = 4151,     // the format holds 256 colours at most
    kRavicliWarnAlphaDropped = 4152,      // the format holds no transparency
    kRavicliWarnDrawingRasterized = 4153, // a drawing went into a raster format
};
using RavicliWarningHandler = int (*)(HWND owner, int code);
extern "C" RAVICLI_API void RavicliSetWarningHandler(RavicliWarningHandler handler, HWND owner);

// The room of the names a document gives out: GetSectionName and
// GetFileName write at most this many bytes, the terminator included.
constexpr int kDeweySectionNameSize = 32;
constexpr int kDeweyFileNameSize = 516;

class LouieState;  // the engine's own state, private to ravicli

// The engine object of a document. Hosts read one field: the handle of the
// named section that holds the raster image, at byte offset 224 in the
// 32-bit build (0 when there is none). That section starts with a
// BITMAPINFOHEADER, then the colour table for 8 bits or fewer, then the
// rows, each padded to four bytes.
class RAVICLI_API Louie : public OKAObject {
public:
    Louie();
    ~Louie();
    // Leaves the whole current image in the section.
    short SaveResurrectionData();

    char reserved_[224];        // the engine's working fields
    HANDLE section;             // offset 224 in the 32-bit build
    LouieState* state;
};

class RAVICLI_API Dewey : public OKAObject {
public:
    Dewey();   // empty, ready for ResurrectSection or Open
    ~Dewey();
    Dewey(const Dewey&) = delete;
    Dewey& operator=(const Dewey&) = delete;

    // Any pointer may be null. Resolution in tenths of a micron per dot, 0
    // when unknown.
    short GetInfo(long* width, long* height, short* xRes, short* yRes, short* bits);
    int IsRaster();
    int IsEntity();
    // Runs a command file (lines ending in LF CR) over the image.
    short Test(const char* script, HWND window, HDC dc);

    short ReverseBW();
    short Invert();
    short Grayize();
    short Blackize();
    short Equalize();
    short Gamma(short contrast, short bright, short gamma);  // each -100 to 100
    short Rotate(short angle, short flipV, short flipH);    // counter-clockwise degrees
    short Resize(long width, long height, short smooth);
    short Rasterize(long width, long height, short bits);
    short Reduce(short depth, short method, short optimisePalette, long screen);
    short ChangeColor(IRGB* from, IRGB* to);
    short UndoRedo();
    short PrepRaster(short undither, short despeckle, short maxColors);
    short Vectorize(short method, short genTol, short bezGen, short arcGen, short lineWidth, short reserved);
    short RefreshOptions(const char* path);

    short GetSectionName(char* name);  // kDeweySectionNameSize bytes
    short GetFileName(char* name);     // kDeweyFileNameSize bytes
    short ResurrectSection(const char* section, const char* file);

    // Files: the format follows the extension.
    short Open(const char* path);
    short Save(const char* path);
    // A new raster image of the given size and depth, filled with white.
    short CreateRaster(long width, long height, short bits);
    // The DIB of a raster image (header, colour table, rows), or null.
    BITMAPINFOHEADER* GetDib();
    // The picture of a vector image, or null.
    HENHMETAFILE GetMetafile();

    Louie* louie;  // first field: hosts read it directly
};

// The information block of a view. Of it the library's region editor reads
// the two rectangles: the shown part of the image in source units, and where
// that part lies on the device.
struct taghueyinfo {
    long reserved[4];
    RECT source;
    RECT device;
};

// A view of a Dewey in a window.
class RAVICLI_API Huey : public OKAObject {
public:
    explicit Huey(Dewey* document);
    ~Huey();
    short AttachWindow(HWND window, HDC dc);
    // Paints the source part of the image into the target part of the window.
    short Paint(tagRECT* source, tagRECT* target);
    // The same on any device context, a printer's among them: the engine's
    // printing path. Needs no window.
    short PaintOn(HDC dc, tagRECT* source, tagRECT* target);

    Dewey* document;
    HWND window;
};

#if defined(_WIN32) && !defined(_WIN64)
static_assert(__builtin_offsetof(Louie, section) == 224);
#endif
