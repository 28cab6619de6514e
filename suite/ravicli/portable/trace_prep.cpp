// The preparation of a picture for tracing: an optional blur that melts a
// dither pattern into the colour it stands for, the reduction to a few flat
// colours, and the removal of specks too small to be worth a path.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "engine_codes.h"
#include "raster_kernels.h"
#include "tracer.h"

namespace ravi {

namespace {

// The average over a window of n x n pixels around each pixel, on a 24-bit
// copy. At the sides the window moves inwards rather than shrinking, so a
// pattern is averaged over the same number of its dots everywhere.
short Undither(Image& image, int n)
{
    short code = ConvertDepth(image, 24);
    if (code != 0)
        return code;
    const int32_t w = image.Width(), h = image.Height();
    const int before = (n - 1) / 2;
    auto window = [&](int32_t at, int32_t size, int32_t* from, int32_t* to) {
        *from = std::max(0, std::min(at - before, size - n));
        *to = std::min(size - 1, *from + n - 1);
    };
    std::vector<uint32_t> rows(size_t(w) * size_t(h) * 3);
    for (int32_t y = 0; y < h; ++y) {
        const uint8_t* row = image.Row(y);
        for (int32_t x = 0; x < w; ++x) {
            int32_t from, to;
            window(x, w, &from, &to);
            uint32_t sum[3] = {};
            for (int32_t i = from; i <= to; ++i)
                for (int c = 0; c < 3; ++c)
                    sum[c] += row[3 * i + c];
            for (int c = 0; c < 3; ++c)
                rows[(size_t(y) * size_t(w) + size_t(x)) * 3 + size_t(c)] = sum[c] * 16 / uint32_t(to - from + 1);
        }
    }
    for (int32_t y = 0; y < h; ++y) {
        int32_t from, to;
        window(y, h, &from, &to);
        uint8_t* row = image.Row(y);
        for (int32_t x = 0; x < w; ++x)
            for (int c = 0; c < 3; ++c) {
                uint32_t sum = 0;
                for (int32_t j = from; j <= to; ++j)
                    sum += rows[(size_t(j) * size_t(w) + size_t(x)) * 3 + size_t(c)];
                row[3 * x + c] = uint8_t((sum / uint32_t(to - from + 1) + 8) / 16);
            }
    }
    return 0;
}

// Regions (4-connected, one palette index) of at most `limit` pixels take
// the index that most of the pixels around them have.
void Despeckle(Image& image, int limit)
{
    const int32_t w = image.Width(), h = image.Height();
    const size_t count = size_t(w) * size_t(h);
    std::vector<uint8_t> done(count, 0);
    std::vector<uint32_t> region, stack;
    uint32_t votes[256];
    for (int32_t y0 = 0; y0 < h; ++y0)
        for (int32_t x0 = 0; x0 < w; ++x0) {
            const size_t start = size_t(y0) * size_t(w) + size_t(x0);
            if (done[start])
                continue;
            const uint8_t index = image.Row(y0)[x0];
            region.clear();
            stack.assign(1, uint32_t(start));
            done[start] = 1;
            std::fill(std::begin(votes), std::end(votes), 0u);
            while (!stack.empty()) {
                const uint32_t at = stack.back();
                stack.pop_back();
                region.push_back(at);
                const int32_t x = int32_t(at % uint32_t(w)), y = int32_t(at / uint32_t(w));
                const int32_t nx[4] = {x + 1, x - 1, x, x};
                const int32_t ny[4] = {y, y, y + 1, y - 1};
                for (int k = 0; k < 4; ++k) {
                    if (nx[k] < 0 || ny[k] < 0 || nx[k] >= w || ny[k] >= h)
                        continue;
                    const size_t next = size_t(ny[k]) * size_t(w) + size_t(nx[k]);
                    const uint8_t other = image.Row(ny[k])[nx[k]];
                    if (other != index) {
                        ++votes[other];
                    } else if (!done[next]) {
                        done[next] = 1;
                        stack.push_back(uint32_t(next));
                    }
                }
            }
            if (region.size() > size_t(limit))
                continue;
            const uint32_t* best = std::max_element(std::begin(votes), std::end(votes));
            if (*best == 0)
                continue;  // the whole picture is this one region
            const uint8_t to = uint8_t(best - votes);
            for (uint32_t at : region)
                image.Row(int32_t(at / uint32_t(w)))[at % uint32_t(w)] = to;
        }
}

}  // namespace

short PrepareForTrace(Image& image, int undither, int despeckle, int maxColors)
{
    if (image.Empty())
        return kEngineNoImage;
    if (undither < 0 || undither > 3 || despeckle < 0 || despeckle > 3 || maxColors < 2 || maxColors > 256)
        return kEngineBadArgument;
    short code = 0;
    if (undither > 0 && (code = Undither(image, undither + 1)) != 0)
        return code;
    int depth = 1;
    while ((1 << depth) < maxColors)
        ++depth;
    ReduceParams params;
    params.depth = depth;
    params.method = kReduceSnap;
    params.paletteColors = maxColors;
    if ((code = Reduce(image, params)) != 0)
        return code;
    if ((code = ConvertDepth(image, 8)) != 0)
        return code;
    static const int kSpeckLimits[] = {0, 4, 16, 64};
    if (despeckle > 0)
        Despeckle(image, kSpeckLimits[despeckle]);
    return 0;
}

}  // namespace ravi
