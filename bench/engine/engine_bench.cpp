// Times the engine's pixel operations on one 6000 x 4000 24-bit picture,
// single-threaded, and can write the same pixels as a PPM file so that other
// tools can be timed on them. Prints one line per operation: name and the
// best of three runs in milliseconds of processor time (the copy of the
// input not counted).
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "raster_kernels.h"

using namespace ravi;

namespace {

// A picture with what photographs have: smooth gradients, edges, texture,
// and many distinct colours.
Image MakePicture(int32_t w, int32_t h)
{
    Image image;
    if (MakeImage(w, h, 24, &image) != 0)
        return image;
    uint32_t seed = 12345;
    for (int32_t y = 0; y < h; ++y) {
        uint8_t* p = image.Row(y);
        for (int32_t x = 0; x < w; ++x, p += 3) {
            seed = seed * 1664525u + 1013904223u;
            int noise = int(seed >> 28) - 8;
            int r = x * 255 / w;
            int g = y * 255 / h;
            int b = ((x / 200 + y / 150) & 1) ? 200 - r / 2 : 40 + g / 3;
            int t = ((x * 3 + y * 5) / 7) % 64;
            auto clamp = [](int v) { return uint8_t(v < 0 ? 0 : (v > 255 ? 255 : v)); };
            p[0] = clamp(b + noise);
            p[1] = clamp(g + t / 4 + noise);
            p[2] = clamp(r + noise);
        }
    }
    return image;
}

bool WritePpm(const Image& image, const char* path)
{
    FILE* f = std::fopen(path, "wb");
    if (!f)
        return false;
    std::fprintf(f, "P6\n%d %d\n255\n", image.Width(), image.Height());
    std::vector<uint8_t> row(size_t(image.Width()) * 3);
    for (int32_t y = 0; y < image.Height(); ++y) {
        const uint8_t* s = image.Row(y);
        for (int32_t x = 0; x < image.Width(); ++x) {
            row[size_t(x) * 3] = s[x * 3 + 2];
            row[size_t(x) * 3 + 1] = s[x * 3 + 1];
            row[size_t(x) * 3 + 2] = s[x * 3];
        }
        std::fwrite(row.data(), 1, row.size(), f);
    }
    return std::fclose(f) == 0;
}

double BestOfThree(const Image& input, const std::function<short(Image&)>& op)
{
    double best = 1e30;
    for (int i = 0; i < 3; ++i) {
        Image copy = input;
        // Processor time of this process: the machine may be shared, and
        // one thread's processor time is what a single-threaded run costs.
        timespec t0{}, t1{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t0);
        short rc = op(copy);
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t1);
        if (rc != 0) {
            std::fprintf(stderr, "operation failed: %d\n", rc);
            return -1;
        }
        best = std::min(best, (t1.tv_sec - t0.tv_sec) * 1e3 + (t1.tv_nsec - t0.tv_nsec) / 1e6);
    }
    return best;
}

}  // namespace

int main(int argc, char** argv)
{
    Image picture = MakePicture(6000, 4000);
    if (picture.Empty())
        return 1;
    if (argc > 2 && std::strcmp(argv[1], "--write-ppm") == 0)
        return WritePpm(picture, argv[2]) ? 0 : 1;

    struct Row {
        const char* name;
        std::function<short(Image&)> op;
    };
    const Row rows[] = {
        {"thumbnail_256x256", [](Image& im) { return Resize(im, 256, 256, 1); }},
        {"resize_3000x2000_smooth", [](Image& im) { return Resize(im, 3000, 2000, 1); }},
        {"rotate_90", [](Image& im) { return Rotate(im, 90, 0, 0); }},
        {"rotate_33", [](Image& im) { return Rotate(im, 33, 0, 0); }},
        {"gamma_contrast", [](Image& im) { return Gamma(im, 20, 10, 30); }},
        {"equalize", [](Image& im) { return Equalize(im); }},
        {"reduce_8bit_diffusion", [](Image& im) { return Reduce(im, ReduceParamsFromScript(8, kReduceDiffuse, 256, 0)); }},
    };
    const char* only = argc > 1 ? argv[1] : nullptr;
    for (const Row& r : rows) {
        if (only && std::strcmp(only, r.name) != 0)
            continue;
        std::printf("%s %.1f\n", r.name, BestOfThree(picture, r.op));
        std::fflush(stdout);
    }
    return 0;
}
