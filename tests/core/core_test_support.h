// Stored tag sets of a test's own, removed again at the end, and images of
// the engine made in memory.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "okaio32.h"
#include "ravicli.h"
#include "zvwio32.h"

namespace coretest {

// A set bound to a place below the store's root that no other test uses.
class StoredSet {
public:
    explicit StoredSet(const char* name)
    {
        char path[128];
        std::snprintf(path, sizeof path, "coretest\\%s%lu", name, GetCurrentProcessId());
        path_ = path;
        tags = new TagSet;
        tags->SetPath(path_.c_str(), 1);
    }
    ~StoredSet()
    {
        delete tags;
        RegDeleteTreeA(HKEY_CURRENT_USER, ("Software\\Zavrin\\Tags\\" + path_).c_str());
    }
    const std::string& Path() const { return path_; }
    void Set(const char* key, const char* value) { ZvSetTag(tags, key, value); }
    std::string Get(const char* key)
    {
        const char* value = ZvGetTag(tags, key);
        return value ? value : "<absent>";
    }
    TagSet* tags;

private:
    std::string path_;
};

// The bytes of a raster image: header, colour table and rows.
inline std::vector<unsigned char> DibBytes(Dewey* image)
{
    BITMAPINFOHEADER* header = image->GetDib();
    if (header == nullptr)
        return {};
    std::size_t colours = header->biBitCount <= 8 ? (std::size_t(1) << header->biBitCount) : 0;
    std::size_t row = ((header->biBitCount * header->biWidth + 31) >> 3) & ~3u;
    std::size_t size = 40 + 4 * colours + row * std::size_t(header->biHeight < 0 ? -header->biHeight : header->biHeight);
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(header);
    return std::vector<unsigned char>(bytes, bytes + size);
}

// A raster image with a pattern: a red block, a blue block, a grey ramp.
inline Dewey* PatternImage(long width, long height, short bits)
{
    Dewey* image = new Dewey;
    if (image->CreateRaster(width, height, bits) != 0)
        return image;
    BITMAPINFOHEADER* header = image->GetDib();
    if (header && bits == 24) {
        unsigned char* rows = reinterpret_cast<unsigned char*>(header) + 40;
        std::size_t row = ((24 * width + 31) >> 3) & ~3u;
        for (long y = 0; y < height; ++y)
            for (long x = 0; x < width; ++x) {
                unsigned char* p = rows + y * row + x * 3;  // blue, green, red
                if (y < height / 2) {
                    p[0] = x < width / 2 ? 0 : 255;
                    p[1] = 0;
                    p[2] = x < width / 2 ? 255 : 0;
                } else {
                    p[0] = p[1] = p[2] = static_cast<unsigned char>(x * 255 / (width - 1));
                }
            }
    }
    return image;
}

}  // namespace coretest
