// Vector pictures: enhanced metafiles that GDI plays. A change to a vector
// is made by playing the old picture into a new metafile, with a world
// transform for geometry, or with the colours of its pens, brushes and
// texts rewritten record by record for colour work.
#include <cstring>
#include <vector>

#include "engine_state.h"
#include "portable/raster_kernels.h"

namespace {

ENHMETAHEADER HeaderOf(HENHMETAFILE emf)
{
    ENHMETAHEADER header = {};
    GetEnhMetaFileHeader(emf, sizeof header, &header);
    return header;
}

}  // namespace

// A new metafile of width by height pixels of the screen, as a frame in
// hundredths of a millimetre.
HDC ravi::BeginMetafile(long width, long height)
{
    HDC screen = GetDC(nullptr);
    int mmX = GetDeviceCaps(screen, HORZSIZE), mmY = GetDeviceCaps(screen, VERTSIZE);
    int pxX = GetDeviceCaps(screen, HORZRES), pxY = GetDeviceCaps(screen, VERTRES);
    RECT frame = {0, 0, LONG(MulDiv(width, mmX * 100, pxX)), LONG(MulDiv(height, mmY * 100, pxY))};
    HDC dc = CreateEnhMetaFileA(screen, nullptr, &frame, nullptr);
    ReleaseDC(nullptr, screen);
    return dc;
}

namespace {

struct ColourPass {
    ravi::ColourMap map;
    const void* context;
};

// Copies one record, with the colour it names passed through the map.
int CALLBACK CopyWithColours(HDC dc, HANDLETABLE* handles, const ENHMETARECORD* record, int count, LPARAM param)
{
    const ColourPass& pass = *reinterpret_cast<const ColourPass*>(param);
    std::size_t colourOffset = 0;
    switch (record->iType) {
    case EMR_CREATEPEN:
        colourOffset = offsetof(EMRCREATEPEN, lopn.lopnColor);
        break;
    case EMR_EXTCREATEPEN:
        colourOffset = offsetof(EMREXTCREATEPEN, elp.elpColor);
        break;
    case EMR_CREATEBRUSHINDIRECT:
        colourOffset = offsetof(EMRCREATEBRUSHINDIRECT, lb.lbColor);
        break;
    case EMR_SETTEXTCOLOR:
    case EMR_SETBKCOLOR:
        colourOffset = offsetof(EMRSETTEXTCOLOR, crColor);
        break;
    case EMR_SETPIXELV:
        colourOffset = offsetof(EMRSETPIXELV, crColor);
        break;
    default:
        break;
    }
    if (colourOffset == 0 || colourOffset + sizeof(COLORREF) > record->nSize) {
        PlayEnhMetaFileRecord(dc, handles, record, count);
        return 1;
    }

    std::vector<unsigned char> copy(reinterpret_cast<const unsigned char*>(record),
                                    reinterpret_cast<const unsigned char*>(record) + record->nSize);
    COLORREF colour;
    std::memcpy(&colour, copy.data() + colourOffset, sizeof colour);
    colour = pass.map(colour, pass.context);
    std::memcpy(copy.data() + colourOffset, &colour, sizeof colour);
    PlayEnhMetaFileRecord(dc, handles, reinterpret_cast<const ENHMETARECORD*>(copy.data()), count);
    return 1;
}

}  // namespace

namespace ravi {

void MetafileInfo(HENHMETAFILE emf, long* width, long* height, short* xRes, short* yRes)
{
    ENHMETAHEADER header = HeaderOf(emf);
    // The frame is in hundredths of a millimetre; the reference device says
    // how many of its pixels make a millimetre.
    long frameW = header.rclFrame.right - header.rclFrame.left;
    long frameH = header.rclFrame.bottom - header.rclFrame.top;
    long w = 0, h = 0;
    if (header.szlMillimeters.cx > 0 && header.szlMillimeters.cy > 0) {
        w = MulDiv(frameW, header.szlDevice.cx, header.szlMillimeters.cx * 100);
        h = MulDiv(frameH, header.szlDevice.cy, header.szlMillimeters.cy * 100);
    }
    if (w <= 0 || h <= 0) {
        w = header.rclBounds.right - header.rclBounds.left + 1;
        h = header.rclBounds.bottom - header.rclBounds.top + 1;
    }
    if (width) *width = w;
    if (height) *height = h;
    // A millimetre is ten thousand tenths of a micron.
    if (xRes) *xRes = header.szlDevice.cx > 0 ? short(MulDiv(header.szlMillimeters.cx, 10000, header.szlDevice.cx)) : 0;
    if (yRes) *yRes = header.szlDevice.cy > 0 ? short(MulDiv(header.szlMillimeters.cy, 10000, header.szlDevice.cy)) : 0;
}

HENHMETAFILE MapMetafileColours(HENHMETAFILE emf, ColourMap map, const void* context)
{
    long w = 0, h = 0;
    MetafileInfo(emf, &w, &h, nullptr, nullptr);
    HDC dc = BeginMetafile(w, h);
    if (!dc) return nullptr;
    RECT area = {0, 0, w, h};
    ColourPass pass = {map, context};
    EnumEnhMetaFile(dc, emf, CopyWithColours, &pass, &area);
    return CloseEnhMetaFile(dc);
}

HENHMETAFILE TransformMetafile(HENHMETAFILE emf, const XFORM& xform, long width, long height)
{
    long w = 0, h = 0;
    MetafileInfo(emf, &w, &h, nullptr, nullptr);
    HDC dc = BeginMetafile(width, height);
    if (!dc) return nullptr;
    SetGraphicsMode(dc, GM_ADVANCED);
    SetWorldTransform(dc, &xform);
    RECT area = {0, 0, w, h};
    PlayEnhMetaFile(dc, emf, &area);
    return CloseEnhMetaFile(dc);
}

HENHMETAFILE MetafileFromRaster(const Image& image)
{
    if (image.Empty()) return nullptr;
    HDC dc = BeginMetafile(image.Width(), image.Height());
    if (!dc) return nullptr;
    const auto* info = reinterpret_cast<const BITMAPINFO*>(image.Data());
    StretchDIBits(dc, 0, 0, image.Width(), image.Height(), 0, 0, image.Width(), image.Height(),
                  image.Data() + image.Layout().pixelOffset, info, DIB_RGB_COLORS, SRCCOPY);
    return CloseEnhMetaFile(dc);
}

short RenderMetafile(HENHMETAFILE emf, long width, long height, short bits, Image& out)
{
    Image image;
    short code = MakeImage(width, height, 24, &image);
    if (code != 0) return code;

    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    void* pixels = nullptr;
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (!bitmap || !pixels) {
        if (bitmap) DeleteObject(bitmap);
        DeleteDC(dc);
        return kEngineNoMemory;
    }
    HGDIOBJ old = SelectObject(dc, bitmap);
    PatBlt(dc, 0, 0, width, height, WHITENESS);
    RECT area = {0, 0, width, height};
    PlayEnhMetaFile(dc, emf, &area);
    GdiFlush();
    // Same depth, width and direction: the rows lie alike in both.
    std::memcpy(image.Data() + image.Layout().pixelOffset, pixels, image.Stride() * std::size_t(height));
    SelectObject(dc, old);
    DeleteObject(bitmap);
    DeleteDC(dc);

    // The picture keeps the size of its frame on paper.
    ENHMETAHEADER header = HeaderOf(emf);
    long frameW = header.rclFrame.right - header.rclFrame.left;
    long frameH = header.rclFrame.bottom - header.rclFrame.top;
    if (frameW > 0 && frameH > 0) {
        image.Header()->xPelsPerMeter = int32_t(MulDiv(width, 100000, frameW));
        image.Header()->yPelsPerMeter = int32_t(MulDiv(height, 100000, frameH));
    }

    if (bits == 32) {
        code = ConvertDepth(image, 32);
    } else if (bits < 24) {
        // Colours of a drawing reduce best to a palette made for them.
        ReduceParams params;
        params.depth = bits;
        params.method = kReduceDiffuse;
        params.paletteColors = 1;
        code = Reduce(image, params);
    }
    if (code != 0) return code;
    out = std::move(image);
    return 0;
}

}  // namespace ravi
