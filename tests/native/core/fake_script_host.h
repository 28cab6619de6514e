// A script host over a MemoryTags: an image of a given kind and size, a
// registry of a few formats, size arithmetic that answers as told, and a
// script file that records each write.
#pragma once

#include <cctype>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "memory_tags.h"

namespace zvtest {

class FakeScriptHost : public zv::ScriptHost {
public:
    MemoryTags tags;
    TraceLists lists;
    int raster = 1;
    long width = 640;
    long height = 480;
    int resizeResult = 0;
    long resizeWidth = 0;
    long resizeHeight = 0;
    short error = 0;
    std::vector<std::string> pieces;
    std::vector<std::string> calls;

    zv::TagAccess& Tags() override { return tags; }
    int IndexOf(int id, const char* text) override { return lists.IndexOf(id, text); }
    int IsRaster() override { return raster; }
    void GetSize(long* w, long* h) override
    {
        calls.push_back("GetSize");
        *w = width;
        *h = height;
    }
    int CalculateResize(const char*, long, long, long* w, long* h) override
    {
        *w = resizeWidth;
        *h = resizeHeight;
        return resizeResult;
    }
    // Exact for right angles, which is all the tests use.
    void GetRotatedSize(double angle, double w, double h, double* nw, double* nh) override
    {
        calls.push_back("GetRotatedSize");
        bool quarter = std::fmod(std::fabs(angle), 180.0) == 90.0;
        *nw = quarter ? h : w;
        *nh = quarter ? w : h;
    }
    int FormatType(const char* ext) override
    {
        static const std::map<std::string, int> types = {{"BMP", 1}, {"TIF", 1}, {"GIF", 1}, {"PRN", 1}, {"FAX", 5},
                                                         {"DXF", 2}, {"CGM", 2}, {"WMF", 3}, {"WRL", 6}};
        std::string e(ext);
        for (auto& c : e)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        auto it = types.find(e);
        return it == types.end() ? 0 : it->second;
    }
    int IsModRaster(const char* ext) override
    {
        int t = FormatType(ext);
        return t == 1 || t == 5;
    }
    void PrepRaster(short u, short d, short m) override
    {
        calls.push_back("PrepRaster " + std::to_string(u) + " " + std::to_string(d) + " " + std::to_string(m));
    }
    void Vectorize(short m, short g, short b, short a, short l, short r) override
    {
        calls.push_back("Vectorize " + std::to_string(m) + " " + std::to_string(g) + " " + std::to_string(b) + " " +
                        std::to_string(a) + " " + std::to_string(l) + " " + std::to_string(r));
    }
    void Write(const char* bytes, unsigned long length) override { pieces.emplace_back(bytes, length); }
    short FileError() override { return error; }

    std::string Script() const
    {
        std::string s;
        for (auto& p : pieces)
            s += p;
        return s;
    }
};

}  // namespace zvtest
