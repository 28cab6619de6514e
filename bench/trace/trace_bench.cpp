// The tracer on five generated bitmaps: line art, a noisy logo, text at 300
// dots per inch, a 16-colour illustration and a 24-megapixel two-colour
// scan. For each it writes the source (PPM), the truth to measure against
// (PPM, and its palette indices: the logo without its noise, else the
// source) and one PBM layer per
// colour but the background for potrace, then traces it, and prints one
// line: name, nodes, differing pixels against the truth, milliseconds of
// processor time (best of three).
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "tracer.h"

using namespace ravi;

namespace {

struct Random {
    uint32_t state;
    uint32_t Next() { return state = state * 1664525u + 1013904223u; }
    double Unit() { return (Next() >> 8) / double(1 << 24); }
    int Below(int n) { return int(Unit() * n); }
};

// A picture of palette indices with its colours.
struct Canvas {
    int w, h;
    std::vector<uint8_t> index;
    std::vector<uint32_t> colours;
    void Put(int x, int y, uint8_t c)
    {
        if (x >= 0 && y >= 0 && x < w && y < h)
            index[size_t(y) * size_t(w) + size_t(x)] = c;
    }
    void Disc(double cx, double cy, double r, uint8_t c)
    {
        for (int y = int(cy - r) - 1; y <= int(cy + r) + 1; ++y)
            for (int x = int(cx - r) - 1; x <= int(cx + r) + 1; ++x)
                if (std::hypot(x + 0.5 - cx, y + 0.5 - cy) < r)
                    Put(x, y, c);
    }
    void Ring(double cx, double cy, double r, double width, uint8_t c)
    {
        for (int y = int(cy - r - width) - 1; y <= int(cy + r + width) + 1; ++y)
            for (int x = int(cx - r - width) - 1; x <= int(cx + r + width) + 1; ++x)
                if (std::fabs(std::hypot(x + 0.5 - cx, y + 0.5 - cy) - r) < width / 2)
                    Put(x, y, c);
    }
    void Line(double x0, double y0, double x1, double y1, double width, uint8_t c)
    {
        const int steps = int(std::hypot(x1 - x0, y1 - y0)) + 1;
        for (int i = 0; i <= steps; ++i)
            Disc(x0 + (x1 - x0) * i / steps, y0 + (y1 - y0) * i / steps, width / 2, c);
    }
    void Box(int x0, int y0, int x1, int y1, uint8_t c)
    {
        for (int y = y0; y < y1; ++y)
            for (int x = x0; x < x1; ++x)
                Put(x, y, c);
    }
    Image ToImage() const
    {
        Image image;
        MakeImage(w, h, 8, &image);
        for (size_t i = 0; i < colours.size(); ++i)
            image.Table()[i] = {uint8_t(colours[i]), uint8_t(colours[i] >> 8), uint8_t(colours[i] >> 16), 0};
        for (int y = 0; y < h; ++y)
            std::copy_n(&index[size_t(y) * size_t(w)], w, image.Row(y));
        return image;
    }
};

Canvas Blank(int w, int h, std::vector<uint32_t> colours)
{
    return Canvas{w, h, std::vector<uint8_t>(size_t(w) * size_t(h), 0), std::move(colours)};
}

Canvas LineArt()
{
    Canvas c = Blank(1600, 1200, {0xFFFFFF, 0x000000});
    Random r{7};
    for (int i = 0; i < 40; ++i)
        c.Ring(100 + r.Below(1400), 100 + r.Below(1000), 20 + r.Below(150), 2 + r.Below(5), 1);
    for (int i = 0; i < 60; ++i)
        c.Line(r.Below(1600), r.Below(1200), r.Below(1600), r.Below(1200), 2 + r.Below(4), 1);
    for (int i = 0; i < 8; ++i) {
        const double y = 100 + r.Below(1000), amplitude = 20 + r.Below(60), period = 80 + r.Below(200);
        for (int x = 0; x < 1599; x += 2)
            c.Line(x, y + amplitude * std::sin(x / period), x + 2, y + amplitude * std::sin((x + 2) / period), 3, 1);
    }
    return c;
}

Canvas Logo()
{
    Canvas c = Blank(1200, 800, {0xFFFFFF, 0x000000});
    c.Ring(300, 400, 220, 60, 1);
    c.Disc(300, 400, 90, 1);
    c.Box(600, 200, 1100, 280, 1);
    c.Line(1100, 280, 620, 600, 70, 1);
    c.Box(600, 560, 1100, 640, 1);
    return c;
}

// Scanner noise: specks of ink and paper, and a ragged edge.
Canvas Noisy(const Canvas& clean, uint32_t seed)
{
    Canvas c = clean;
    Random r{seed};
    for (int y = 1; y < c.h - 1; ++y)
        for (int x = 1; x < c.w - 1; ++x) {
            const size_t at = size_t(y) * size_t(c.w) + size_t(x);
            const bool edge = clean.index[at] != clean.index[at + 1] || clean.index[at] != clean.index[at + size_t(c.w)];
            if (r.Unit() < (edge ? 0.25 : 0.003))
                c.index[at] = uint8_t(1 - clean.index[at]);
        }
    return c;
}

// Rows of glyph-like marks of a 12-point face at 300 dots per inch:
// x-height 26 pixels, strokes 4 pixels wide.
void Text(Canvas& c, int top, int bottom, uint32_t seed)
{
    Random r{seed};
    for (int base = top + 50; base < bottom - 20; base += 60) {
        int x = 40;
        while (x < c.w - 60) {
            const int letters = 2 + r.Below(8);
            for (int i = 0; i < letters && x < c.w - 60; ++i) {
                switch (r.Below(6)) {
                case 0: c.Ring(x + 12, base - 13, 11, 4, 1); x += 28; break;                          // o
                case 1: c.Box(x, base - 38, x + 4, base, 1); x += 12; break;                            // l
                case 2:                                                                                 // n
                    c.Box(x, base - 26, x + 4, base, 1);
                    c.Box(x + 18, base - 14, x + 22, base, 1);
                    c.Ring(x + 11, base - 13, 9, 4, 1);
                    c.Box(x + 4, base - 13, x + 18, base + 2, 0);
                    c.Box(x, base - 26, x + 4, base, 1);
                    c.Box(x + 18, base - 14, x + 22, base, 1);
                    x += 28;
                    break;
                case 3: c.Line(x, base - 26, x + 11, base, 4, 1); c.Line(x + 11, base, x + 22, base - 26, 4, 1); x += 28; break;  // v
                case 4: c.Ring(x + 12, base - 13, 11, 4, 1); c.Box(x + 1, base - 14, x + 23, base - 11, 1); x += 28; break;    // e
                default: c.Box(x, base - 26, x + 4, base + 12, 1); c.Ring(x + 12, base - 13, 10, 4, 1); x += 28; break;        // p
                }
            }
            x += 20;
        }
    }
}

Canvas Page()
{
    Canvas c = Blank(2480, 900, {0xFFFFFF, 0x000000});
    Text(c, 0, 900, 11);
    return c;
}

Canvas Illustration()
{
    std::vector<uint32_t> colours = {0xFFFFFF, 0x000000, 0xC0392B, 0xE67E22, 0xF1C40F, 0x27AE60, 0x16A085, 0x2980B9,
                                     0x8E44AD, 0x2C3E50, 0x7F8C8D, 0xD35400, 0x1ABC9C, 0xF39C12, 0x95A5A6, 0x6C3483};
    Canvas c = Blank(1000, 800, colours);
    Random r{23};
    for (int i = 0; i < 60; ++i) {
        const uint8_t colour = uint8_t(1 + r.Below(15));
        switch (r.Below(3)) {
        case 0: c.Disc(r.Below(1000), r.Below(800), 20 + r.Below(120), colour); break;
        case 1: {
            const int x = r.Below(900), y = r.Below(700);
            c.Box(x, y, x + 30 + r.Below(200), y + 30 + r.Below(200), colour);
            break;
        }
        default: c.Line(r.Below(1000), r.Below(800), r.Below(1000), r.Below(800), 6 + r.Below(20), colour); break;
        }
    }
    return c;
}

Canvas Scan()
{
    Canvas c = Blank(6000, 4000, {0xFFFFFF, 0x000000});
    Text(c, 0, 4000, 5);
    return Noisy(c, 3);
}

void WritePpm(const Canvas& c, const std::string& path)
{
    FILE* f = std::fopen(path.c_str(), "wb");
    std::fprintf(f, "P6\n%d %d\n255\n", c.w, c.h);
    std::vector<uint8_t> row(size_t(c.w) * 3);
    for (int y = 0; y < c.h; ++y) {
        for (int x = 0; x < c.w; ++x) {
            const uint32_t rgb = c.colours[c.index[size_t(y) * size_t(c.w) + size_t(x)]];
            row[3 * size_t(x)] = uint8_t(rgb >> 16);
            row[3 * size_t(x) + 1] = uint8_t(rgb >> 8);
            row[3 * size_t(x) + 2] = uint8_t(rgb);
        }
        std::fwrite(row.data(), 1, row.size(), f);
    }
    std::fclose(f);
}

// The palette index of each pixel, row by row: the truth as potrace's
// layers are compared with it.
void WriteIndices(const Canvas& c, const std::string& path)
{
    FILE* f = std::fopen(path.c_str(), "wb");
    std::fwrite(c.index.data(), 1, c.index.size(), f);
    std::fclose(f);
}

void WritePbm(const Canvas& c, uint8_t colour, const std::string& path)
{
    FILE* f = std::fopen(path.c_str(), "wb");
    std::fprintf(f, "P4\n%d %d\n", c.w, c.h);
    std::vector<uint8_t> row(size_t(c.w + 7) / 8);
    for (int y = 0; y < c.h; ++y) {
        std::fill(row.begin(), row.end(), 0);
        for (int x = 0; x < c.w; ++x)
            if (c.index[size_t(y) * size_t(c.w) + size_t(x)] == colour)
                row[size_t(x) / 8] |= uint8_t(0x80 >> (x % 8));
        std::fwrite(row.data(), 1, row.size(), f);
    }
    std::fclose(f);
}

double Seconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

void Run(const std::string& work, const std::string& name, const Canvas& source, const Canvas& truth,
         int despeckle, bool measure)
{
    WritePpm(source, work + "/" + name + ".ppm");
    WritePpm(truth, work + "/" + name + ".truth.ppm");
    WriteIndices(truth, work + "/" + name + ".truth.idx");
    for (size_t colour = 1; colour < source.colours.size(); ++colour)
        WritePbm(source, uint8_t(colour), work + "/" + name + ".layer" + std::to_string(colour) + ".pbm");
    const Image original = source.ToImage();
    TraceParams params;
    params.method = kTraceOutline;
    params.genTol = 3;
    params.bezier = true;
    double best = 1e30;
    Drawing drawing;
    for (int run = 0; run < 3; ++run) {
        Image image = original;
        const double start = Seconds();
        if (despeckle)
            PrepareForTrace(image, 0, despeckle, int(source.colours.size()));
        TraceImage(image, params, &drawing);
        best = std::min(best, Seconds() - start);
    }
    long differ = -1;
    if (measure) {
        Image back;
        RasterizeDrawing(drawing, &back);
        differ = 0;
        for (int y = 0; y < truth.h; ++y)
            for (int x = 0; x < truth.w; ++x)
                differ += back.PixelRgb(x, y) != truth.colours[truth.index[size_t(y) * size_t(truth.w) + size_t(x)]];
    }
    std::printf("%s %zu %ld %.0f %zu\n", name.c_str(), drawing.NodeCount(), differ, best * 1000.0, source.colours.size());
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: trace_bench WORKDIR\n");
        return 2;
    }
    const std::string work = argv[1];
    const Canvas art = LineArt();
    Run(work, "line_art", art, art, 0, true);
    const Canvas logo = Logo();
    Run(work, "noisy_logo", Noisy(logo, 9), logo, 1, true);
    const Canvas page = Page();
    Run(work, "text_300dpi", page, page, 0, true);
    const Canvas illustration = Illustration();
    Run(work, "illustration_16", illustration, illustration, 0, true);
    const Canvas scan = Scan();
    Run(work, "scan_24mp", scan, scan, 0, false);
    return 0;
}
