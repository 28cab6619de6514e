// zvhost: a small windowed host of the options library.
//
// It loads ZVOPT32 and the suite's libraries by their names, shows its
// window and ends when asked (closing the window, or --exit-after MS for a
// run without a person). What it loaded is written to standard output. An
// image file named on the command line is opened at once.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "image_menu.h"
#include "ravicli.h"
#include "regions_mode.h"
#include "save_road.h"
#include "trace_menu.h"
#include "zvopt32.h"

namespace {

const char kWindowClass[] = "ZvHostWindow";
const char kTitle[] = "Zavrin Host";
const UINT_PTR kExitTimer = 1;

// The libraries a host of the suite uses, by the names the suite gives them.
const char* const kLibraries[] = {
    "ZVOPT32.dll", "OKAIO32.dll", "OKAHEAP40.dll", "ZVWIO32.dll",
    "okamod32.dll", "ravicli.dll", "OKACVT32.dll",
};

int LoadLibraries()
{
    int loaded = 0;
    for (const char* name : kLibraries) {
        HMODULE module = LoadLibraryA(name);
        if (module) {
            char path[MAX_PATH] = {};
            GetModuleFileNameA(module, path, sizeof path - 1);
            std::printf("loaded %-14s %s\n", name, path);
            ++loaded;
        } else {
            std::printf("missing %-13s (error %lu)\n", name, GetLastError());
        }
    }
    std::fflush(stdout);
    return loaded;
}

LRESULT CALLBACK HostWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_TIMER:
        if (wParam == kExitTimer) {
            KillTimer(window, kExitTimer);
            std::printf("closing the window as asked\n");
            std::fflush(stdout);
            PostMessageA(window, WM_CLOSE, 0, 0);
        }
        return 0;
    case WM_COMMAND:
        if (OnFileCommand(window, LOWORD(wParam)))
            return 0;
        if (OnImageCommand(window, LOWORD(wParam)))
            return 0;
        if (OnTraceCommand(window, LOWORD(wParam)))
            return 0;
        if (OnRegionsCommand(window, LOWORD(wParam)))
            return 0;
        break;
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        if (OnRegionsMouse(window, message, lParam))
            return 0;
        break;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(window, &paint);
        PaintImage(window, dc);
        PaintRegions(window, dc);
        EndPaint(window, &paint);
        return 0;
    }
    case WM_DESTROY:
        CloseRegions();
        CloseFileMenu();
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

bool IsModelessDialogMessage(MSG* message)
{
    HWND root = message->hwnd != nullptr ? GetAncestor(message->hwnd, GA_ROOT) : nullptr;
    char className[16] = "";
    if (root == nullptr || GetClassNameA(root, className, sizeof className) == 0 || lstrcmpA(className, "#32770") != 0)
        return false;
    return IsDialogMessageA(root, message) != FALSE;
}

UINT ExitAfterFromCommandLine(const char* commandLine)
{
    const char* option = std::strstr(commandLine, "--exit-after");
    if (!option)
        return 0;
    return static_cast<UINT>(std::strtoul(option + std::strlen("--exit-after"), nullptr, 10));
}

// The first argument that is no option and no option's value: the image.
const char* ImageFromArguments(int count, char** arguments)
{
    for (int i = 1; i < count; ++i) {
        if (std::strcmp(arguments[i], "--exit-after") == 0) {
            ++i;
            continue;
        }
        if (std::strncmp(arguments[i], "--", 2) != 0)
            return arguments[i];
    }
    return nullptr;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int show)
{
    int loaded = LoadLibraries();

    WNDCLASSA windowClass = {};
    // The fitted picture depends on the whole client area: a new size
    // paints it all again.
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = HostWindowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    windowClass.lpszClassName = kWindowClass;
    if (!RegisterClassA(&windowClass))
        return 1;

    HWND window = CreateWindowA(kWindowClass, kTitle, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                CW_USEDEFAULT, 800, 600, nullptr, nullptr, instance, nullptr);
    if (!window)
        return 1;
    AddFileMenu(window);
    AddImageMenu(window);
    AddTraceMenu(window);
    AddRegionsMenu(window);
    // Every warning of the engine, of any open or save, lands in the
    // library's one warnings list over this window.
    RavicliSetWarningHandler(DoWarning, window);
    ShowWindow(window, show);
    UpdateWindow(window);
    std::printf("window \"%s\" shown\n", kTitle);
    if (const char* image = ImageFromArguments(__argc, __argv)) {
        bool opened = OpenImageFile(window, image);
        std::printf("%s %s\n", opened ? "opened" : "could not open", image);
    }
    std::fflush(stdout);

    if (UINT exitAfter = ExitAfterFromCommandLine(commandLine))
        SetTimer(window, kExitTimer, exitAfter, nullptr);

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        // The library's modeless Warnings list gets its keys (Tab, Escape)
        // the way a dialog does.
        if (IsModelessDialogMessage(&message))
            continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    std::printf("host ended (%d of %zu libraries loaded)\n", loaded, std::size(kLibraries));
    return 0;
}
