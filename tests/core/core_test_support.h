// Stored tag sets of a test's own, removed again at the end, and images of
// the engine made in memory.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

#include "engine_test_support.h"
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

using enginetest::DibBytes;

// A raster image as a host holds one: of four colours at 24 bits, white at
// fewer.
inline Dewey* PatternImage(long width, long height, short bits)
{
    Dewey* image = new Dewey;
    if (bits == 24)
        enginetest::MakeQuadrants(*image, width, height);
    else
        image->CreateRaster(width, height, bits);
    return image;
}

}  // namespace coretest
