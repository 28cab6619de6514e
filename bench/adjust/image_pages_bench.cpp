// The image pages on a 6000 x 4000 picture of 24 bits, in one run:
//
// - each page's opening, from the call of its entry until the sheet is up
//   and the thread has nothing left to do (every paint and thumbnail
//   update handled), next to the engine's steps that make the thumbnail;
// - one step of the contrast bar on "Contrast and Brightness", from the key
//   that moves the bar until the page has handled its update message, which
//   rebuilds the thumbnail and paints it;
// - OK with operation 0 on that page, from the press of OK until the entry
//   returns, against the engine's Gamma of the same values on a copy of the
//   same picture. The two pictures must come out equal.
//
// The steps run from a thread timer inside the sheet's own message loop. A
// timer's message is the last a queue hands out, so its first tick after
// the sheet is visible marks the moment the page stands painted.
//
//   wine build/x86_64/bin/image_pages_bench.exe [RUNS]
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "image_ids.h"
#include "okaio32.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvopt32.h"

namespace {

using Entry = int (*)(HWND, TagSet*, const char*, const char*, OKAMOD*, const char*, const char*, short, Dewey*);

// The contrast page's own message that rebuilds and paints its thumbnail.
constexpr UINT kPreviewUpdate = WM_USER + 1007;
constexpr int kSteps = 5;           // bar steps per run; OK applies their sum
constexpr double kBound = 30.0;     // seconds a page may take for anything

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
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

std::size_t ImageBytes(long width, long height)
{
    return 40 + std::size_t(((24 * width + 31) >> 3) & ~3L) * std::size_t(height);
}

// A picture that isn't one colour, the same every time, stored by the
// engine as a host's picture at rest is.
void Fill(Dewey* document, long width, long height)
{
    unsigned char* pixels = reinterpret_cast<unsigned char*>(document->GetDib()) + 40;
    std::size_t count = ImageBytes(width, height) - 40;
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = static_cast<unsigned char>(i * 2654435761u >> 24);
    document->louie->SaveResurrectionData();
}

// What the timer does while an entry runs.
struct Run {
    bool adjust = false;  // the contrast page: bar steps, then OK
    double start = 0, shown = 0, okPressed = 0;
    int step = 0;         // bar steps made
    bool waiting = false; // a step's update not yet handled
    double stepStart = 0;
    std::vector<double> stepTimes, updateTimes;
    HWND page = nullptr;
    WNDPROC pageProc = nullptr;
    bool failed = false;
};
Run g_run;

BOOL CALLBACK FindSheet(HWND window, LPARAM found)
{
    char cls[16] = {};
    GetClassNameA(window, cls, sizeof cls);
    if (IsWindowVisible(window) && std::strcmp(cls, "#32770") == 0 &&
        SendMessageA(window, PSM_GETCURRENTPAGEHWND, 0, 0) != 0) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

HWND Sheet()
{
    HWND sheet = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindSheet, reinterpret_cast<LPARAM>(&sheet));
    return sheet;
}

// Wraps the contrast page's procedure: the end of the update that a bar
// step started is the moment the new thumbnail stands on the screen.
LRESULT CALLBACK PageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    double begin = Now();
    LRESULT result = CallWindowProcA(g_run.pageProc, window, message, wParam, lParam);
    if (message == kPreviewUpdate && g_run.waiting) {
        double end = Now();
        g_run.stepTimes.push_back(end - g_run.stepStart);
        g_run.updateTimes.push_back(end - begin);
        g_run.waiting = false;
    }
    return result;
}

void Abandon(HWND sheet, const char* why)
{
    std::fprintf(stderr, "image_pages_bench: %s\n", why);
    g_run.failed = true;
    if (sheet != nullptr)
        PropSheet_PressButton(sheet, PSBTN_CANCEL);
}

void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD)
{
    HWND sheet = Sheet();
    if (Now() - g_run.start > kBound) {
        Abandon(sheet, "a page took longer than its bound");
        return;
    }
    if (sheet == nullptr || g_run.okPressed != 0)
        return;
    if (!g_run.adjust) {
        // Only the opening counts; the sheet closes at once.
        if (g_run.shown == 0) {
            g_run.shown = Now();
            PropSheet_PressButton(sheet, PSBTN_CANCEL);
        }
        return;
    }
    if (g_run.shown == 0) {
        g_run.shown = Now();
        g_run.page = PropSheet_GetCurrentPageHwnd(sheet);
        g_run.pageProc = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(g_run.page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PageProc)));
    }
    if (g_run.waiting)
        return;
    HWND bar = GetDlgItem(g_run.page, IDC_ADJ_CONTRAST);
    if (bar == nullptr) {
        Abandon(sheet, "the contrast page has no contrast bar");
        return;
    }
    if (g_run.step > 0 && SendMessageA(bar, TBM_GETPOS, 0, 0) != g_run.step) {
        Abandon(sheet, "the contrast bar did not follow its key");
        return;
    }
    if (g_run.step < kSteps) {
        // One step to the right, as the arrow key gives it.
        ++g_run.step;
        g_run.waiting = true;
        g_run.stepStart = Now();
        SendMessageA(bar, WM_KEYDOWN, VK_RIGHT, 1);
        SendMessageA(bar, WM_KEYUP, VK_RIGHT, 0xC0000001);
        return;
    }
    SetWindowLongPtrA(g_run.page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_run.pageProc));
    g_run.okPressed = Now();
    PropSheet_PressButton(sheet, PSBTN_OK);
}

// Runs the entry with the timer's steps inside it; the result of the entry.
int Drive(Entry entry, TagSet* tags, OKAMOD* formats, Dewey* image, bool adjust)
{
    g_run = Run{};
    g_run.adjust = adjust;
    UINT_PTR timer = SetTimer(nullptr, 0, 1, Tick);
    g_run.start = Now();
    int result = entry(nullptr, tags, "image_pages_bench", nullptr, formats, "BMP", "BMP", 0, image);
    KillTimer(nullptr, timer);
    return result;
}

}  // namespace

int main(int argc, char** argv)
{
    const long width = 6000, height = 4000;
    int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;

    Dewey* source = new Dewey;
    Dewey* copy = new Dewey;
    if (source->CreateRaster(width, height, 24) != 0 || copy->CreateRaster(width, height, 24) != 0) {
        std::fprintf(stderr, "image_pages_bench: the engine cannot make the picture\n");
        return 1;
    }
    Fill(source, width, height);
    TagSet tags;
    OKAMOD formats{nullptr};

    struct Page {
        const char* name;
        Entry entry;
        std::vector<double> open;
    };
    Page pages[] = {{"DoAdjColorsDlg", DoAdjColorsDlg, {}},
                    {"DoRotateDlg", DoRotateDlg, {}},
                    {"DoNumColorsDlg", DoNumColorsDlg, {}},
                    {"DoEditColorsDlg", DoEditColorsDlg, {}},
                    {"DoResizeDlg", DoResizeDlg, {}}};
    std::vector<double> thumbnail, thumbClone, thumbResize, steps, updates, ok, kernel;
    bool equal = true;

    for (int run = 0; run <= runs; ++run) {
        // The first run warms caches and the heap.
        bool keep = run > 0;
        for (Page& page : pages) {
            Drive(page.entry, &tags, &formats, source, false);
            if (g_run.failed || g_run.shown == 0)
                return 1;
            if (keep)
                page.open.push_back(g_run.shown - g_run.start);
        }

        // The engine's steps of the thumbnail, as the pages have it made:
        // a clone of the picture brought down to 256 x 170.
        double t0 = Now();
        Dewey* preview = new Dewey;
        DoClone(source, &preview);
        double t1 = Now();
        preview->Resize(256, 170, 0);
        double t2 = Now();
        preview->Invert();
        preview->UndoRedo();
        Dewey* base = new Dewey;
        DoClone(preview, &base);
        double t3 = Now();
        delete preview;
        delete base;
        if (keep) {
            thumbnail.push_back(t3 - t0);
            thumbClone.push_back(t1 - t0);
            thumbResize.push_back(t2 - t1);
        }

        // Bar steps and OK, then the engine's own Gamma of the same values
        // on a copy of the same picture.
        Fill(source, width, height);
        Fill(copy, width, height);
        int result = Drive(DoAdjColorsDlg, &tags, &formats, source, true);
        double returned = Now();
        if (g_run.failed || result != 1 || g_run.okPressed == 0) {
            std::fprintf(stderr, "image_pages_bench: the contrast page gave %d\n", result);
            return 1;
        }
        double k0 = Now();
        copy->Gamma(kSteps, 0, 0);
        double k1 = Now();
        equal = equal && std::memcmp(source->GetDib(), copy->GetDib(), ImageBytes(width, height)) == 0;
        if (keep) {
            steps.insert(steps.end(), g_run.stepTimes.begin(), g_run.stepTimes.end());
            updates.insert(updates.end(), g_run.updateTimes.begin(), g_run.updateTimes.end());
            ok.push_back(returned - g_run.okPressed);
            kernel.push_back(k1 - k0);
        }
    }

    std::printf("image_pages_bench: %ld x %ld, 24 bits, median of %d runs\n", width, height, runs);
    std::printf("  opening, from the entry's call to the page up and painted (goal under 150 ms)\n");
    for (const Page& page : pages)
        std::printf("    %-16s %8.1f ms\n", page.name, Median(page.open) * 1000);
    std::printf("    the engine's thumbnail steps %8.1f ms: DoClone of the picture %.1f ms, Resize to 256 x 170 %.1f ms\n",
                Median(thumbnail) * 1000, Median(thumbClone) * 1000, Median(thumbResize) * 1000);
    std::printf("  contrast bar, one step to the thumbnail painted (goal under 5 ms)\n");
    std::printf("    key to update handled  %8.2f ms  (the update alone %.2f ms, %zu steps)\n",
                Median(steps) * 1000, Median(updates) * 1000, steps.size());
    double o = Median(ok), k = Median(kernel);
    std::printf("  OK with operation 0, contrast %d (goal at most 1.1 times the engine)\n", kSteps);
    std::printf("    OK pressed to the entry's return %8.1f ms\n", o * 1000);
    std::printf("    the engine's Gamma on a copy     %8.1f ms   ratio %.2f\n", k * 1000, o / k);
    std::printf("    pictures equal afterwards: %s\n", equal ? "yes" : "NO");
    delete source;
    delete copy;
    return equal ? 0 : 1;
}
