// Small helpers for the tests that work on the engine's documents:
// temporary paths, pictures to start from, and reading and setting pixels of
// a document through its DIB.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "portable/dib.h"
#include "portable/engine_codes.h"
#include "ravicli.h"

namespace enginetest {

// A path in the temporary folder, unique to this process.
inline std::string TempPath(const char* name)
{
    char folder[MAX_PATH] = {};
    GetTempPathA(sizeof folder, folder);
    char path[MAX_PATH];
    std::snprintf(path, sizeof path, "%sravi%lu_%s", folder, GetCurrentProcessId(), name);
    return path;
}

// The bytes of a document's DIB: header, colour table and rows.
inline std::vector<uint8_t> DibBytes(Dewey* document)
{
    BITMAPINFOHEADER* header = document->GetDib();
    ravi::DibLayout layout;
    if (!header || ravi::ComputeDibLayout(header->biWidth, header->biHeight, header->biBitCount, &layout) != 0)
        return {};
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(header);
    return std::vector<uint8_t>(bytes, bytes + layout.totalBytes);
}

// A checked copy of the document's DIB.
inline ravi::Image Picture(Dewey& document)
{
    ravi::Image image;
    std::vector<uint8_t> bytes = DibBytes(&document);
    ravi::ImageFromDib(bytes.data(), bytes.size(), &image);
    return image;
}

// The size and depth of a document, as "width x height, bits".
inline std::string Shape(Dewey& document)
{
    long w = 0, h = 0;
    short bits = 0;
    document.GetInfo(&w, &h, nullptr, nullptr, &bits);
    return std::to_string(w) + " x " + std::to_string(h) + ", " + std::to_string(bits);
}

// The colour at (x, y) from the top, as 0x00RRGGBB.
inline uint32_t Rgb(Dewey& document, int x, int y)
{
    return Picture(document).PixelRgb(x, y);
}

// Sets a pixel of a 24- or 32-bit document to 0x00RRGGBB, in place.
inline void SetRgb(Dewey& document, int x, int y, uint32_t rgb)
{
    BITMAPINFOHEADER* header = document.GetDib();
    int bytes = header->biBitCount / 8;
    std::size_t stride = ((std::size_t(header->biWidth) * header->biBitCount + 31) / 32) * 4;
    uint8_t* row = reinterpret_cast<uint8_t*>(header) + 40 + stride * std::size_t(header->biHeight - 1 - y);
    row[x * bytes + 0] = uint8_t(rgb);
    row[x * bytes + 1] = uint8_t(rgb >> 8);
    row[x * bytes + 2] = uint8_t(rgb >> 16);
}

// A 24-bit picture of w x h in four quadrants: red top left, green top
// right, blue bottom left, white bottom right.
inline short MakeQuadrants(Dewey& document, int w, int h)
{
    short code = document.CreateRaster(w, h, 24);
    if (code != 0) return code;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            bool right = x >= w / 2, bottom = y >= h / 2;
            uint32_t colour = !bottom ? (right ? 0x00FF00u : 0xFF0000u) : (right ? 0xFFFFFFu : 0x0000FFu);
            SetRgb(document, x, y, colour);
        }
    return 0;
}

// Channels within a tolerance, for lossy files and halftoned paints.
inline bool Near(uint32_t a, uint32_t b, int tolerance)
{
    for (int shift = 0; shift < 24; shift += 8) {
        int d = int((a >> shift) & 0xFF) - int((b >> shift) & 0xFF);
        if (d > tolerance || d < -tolerance) return false;
    }
    return true;
}

// A metafile file of w x h screen pixels: a red rectangle on the left half,
// a blue one on the right.
inline bool WriteTwoColourMetafile(const std::string& path, int w, int h)
{
    HDC screen = GetDC(nullptr);
    RECT frame = {0, 0, MulDiv(w, GetDeviceCaps(screen, HORZSIZE) * 100, GetDeviceCaps(screen, HORZRES)),
                  MulDiv(h, GetDeviceCaps(screen, VERTSIZE) * 100, GetDeviceCaps(screen, VERTRES))};
    HDC dc = CreateEnhMetaFileA(screen, path.c_str(), &frame, nullptr);
    ReleaseDC(nullptr, screen);
    if (!dc) return false;
    HBRUSH red = CreateSolidBrush(RGB(255, 0, 0)), blue = CreateSolidBrush(RGB(0, 0, 255));
    RECT left = {0, 0, w / 2, h}, right = {w / 2, 0, w, h};
    FillRect(dc, &left, red);
    FillRect(dc, &right, blue);
    DeleteObject(red);
    DeleteObject(blue);
    HENHMETAFILE emf = CloseEnhMetaFile(dc);
    if (!emf) return false;
    DeleteEnhMetaFile(emf);
    return true;
}

}  // namespace enginetest
