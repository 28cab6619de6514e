// DoClone of a 6000 x 4000 picture of 24 bits against a plain memcpy of the
// same bytes, in one run: once with a source that is unchanged since the
// engine last stored it in its section, and once with one changed through
// its pixels (a byte in every page, so that the whole picture must be
// stored again). Also times the steps of a clone one
// by one, so that the ratio can be read: the engine's SaveResurrectionData,
// the copy into the new section, and the engine's ResurrectSection.
//
//   wine build/x86_64/bin/clone_bench.exe [RUNS]
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "ravicli.h"
#include "zvopt32.h"

namespace {

double Now()
{
    static LARGE_INTEGER frequency = [] {
        LARGE_INTEGER f;
        QueryPerformanceFrequency(&f);
        return f;
    }();
    LARGE_INTEGER t;
    QueryPerformanceCounter(&t);
    return double(t.QuadPart) / double(frequency.QuadPart);
}

double Median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

std::size_t ImageBytes(long width, long height)
{
    return 40 + std::size_t(((24 * width + 31) >> 3) & ~3L) * std::size_t(height);
}

// A change through the pixels, as a host makes one: a byte in every page.
void Change(Dewey* document)
{
    BITMAPINFOHEADER* header = document->GetDib();
    unsigned char* bytes = reinterpret_cast<unsigned char*>(header);
    std::size_t count = ImageBytes(header->biWidth, header->biHeight);
    for (std::size_t at = 40; at < count; at += 4096)
        bytes[at] ^= 0x5A;
}

}  // namespace

int main(int argc, char** argv)
{
    const long width = 6000, height = 4000;
    int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    std::size_t bytes = ImageBytes(width, height);

    Dewey* source = new Dewey;
    if (source->CreateRaster(width, height, 24) != 0) {
        std::fprintf(stderr, "clone_bench: the engine cannot make the picture\n");
        return 1;
    }
    // A picture that isn't one colour, so nothing can cut a corner. The
    // pointer is taken once: each GetDib tells the engine that the pixels
    // may change.
    const unsigned char* dib = reinterpret_cast<const unsigned char*>(source->GetDib());
    unsigned char* pixels = const_cast<unsigned char*>(dib) + 40;
    for (std::size_t i = 0; i < bytes - 40; ++i)
        pixels[i] = static_cast<unsigned char>(i * 2654435761u >> 24);
    source->louie->SaveResurrectionData();

    std::vector<double> clone, cloneChanged, copyFresh, copyWarm, save, saveChanged, resurrect, sectionCopy;
    std::vector<unsigned char> warm(bytes);
    for (int run = 0; run <= runs; ++run) {
        // DoClone as a host calls it.
        Dewey* target = new Dewey;
        double t0 = Now();
        short result = DoClone(source, &target);
        double t1 = Now();
        if (result != 0) {
            std::fprintf(stderr, "clone_bench: DoClone gave %d\n", result);
            return 1;
        }
        delete target;

        // The same after a change of the source's pixels.
        Change(source);
        target = new Dewey;
        double c0 = Now();
        result = DoClone(source, &target);
        double c1 = Now();
        if (result != 0) {
            std::fprintf(stderr, "clone_bench: DoClone gave %d\n", result);
            return 1;
        }
        delete target;

        // memcpy of the same bytes into fresh memory, as the clone's copy
        // goes into a fresh section.
        unsigned char* fresh = static_cast<unsigned char*>(VirtualAlloc(nullptr, bytes, MEM_COMMIT, PAGE_READWRITE));
        double t2 = Now();
        std::memcpy(fresh, dib, bytes);
        double t3 = Now();
        VirtualFree(fresh, 0, MEM_RELEASE);
        double t4 = Now();
        std::memcpy(warm.data(), dib, bytes);
        double t5 = Now();

        // The steps of a clone one by one.
        double s0 = Now();
        source->louie->SaveResurrectionData();
        double s1 = Now();
        Change(source);
        double u0 = Now();
        source->louie->SaveResurrectionData();
        double u1 = Now();
        HANDLE section = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, DWORD(bytes), "ZvCloneBench");
        void* view = MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0);
        void* from = MapViewOfFile(source->louie->section, FILE_MAP_READ, 0, 0, 0);
        double s2 = Now();
        std::memcpy(view, from, bytes);
        double s3 = Now();
        UnmapViewOfFile(from);
        Dewey* revived = new Dewey;
        double s4 = Now();
        revived->ResurrectSection("ZvCloneBench", "");
        double s5 = Now();
        delete revived;
        UnmapViewOfFile(view);
        CloseHandle(section);

        if (run == 0)
            continue;  // the first run warms caches and the heap
        clone.push_back(t1 - t0);
        cloneChanged.push_back(c1 - c0);
        saveChanged.push_back(u1 - u0);
        copyFresh.push_back(t3 - t2);
        copyWarm.push_back(t5 - t4);
        save.push_back(s1 - s0);
        sectionCopy.push_back(s3 - s2);
        resurrect.push_back(s5 - s4);
    }

    double c = Median(clone), cc = Median(cloneChanged), f = Median(copyFresh), w = Median(copyWarm);
    std::printf("clone_bench: %ld x %ld, 24 bits, %zu bytes, median of %d runs\n", width, height, bytes, runs);
    std::printf("  DoClone, source unchanged        %8.1f ms\n", c * 1000);
    std::printf("  DoClone, source changed          %8.1f ms\n", cc * 1000);
    std::printf("  memcpy into fresh memory         %8.1f ms   ratio %.2f (changed %.2f)\n", f * 1000, c / f, cc / f);
    std::printf("  memcpy into touched memory       %8.1f ms   ratio %.2f (changed %.2f)\n", w * 1000, c / w, cc / w);
    std::printf("  steps: SaveResurrectionData      %8.1f ms   (changed %.1f ms)\n", Median(save) * 1000,
                Median(saveChanged) * 1000);
    std::printf("         copy into the new section %8.1f ms\n", Median(sectionCopy) * 1000);
    std::printf("         ResurrectSection          %8.1f ms\n", Median(resurrect) * 1000);
    delete source;
    return 0;
}
