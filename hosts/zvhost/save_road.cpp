#include "save_road.h"

#include <commdlg.h>

#include <cstdio>
#include <algorithm>
#include <cstring>

#include "okacvt32.h"
#include "okaio32.h"
#include "print_road.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

enum : WORD { kOpen = 100, kSaveAs = 101, kExit = 102, kPrint = 103, kProperties = 104 };

// The host keeps its tags in a stored place of its own, so that the user's
// choices (folders, formats, options) are there at the next start.
TagSet* g_tags = nullptr;
OKAMOD* g_formats = nullptr;
Dewey* g_image = nullptr;
Huey* g_view = nullptr;
char g_imagePath[ZV_SAVE_PATH_SIZE];
// The open dialog's list of a multiple selection.
constexpr size_t kOpenListSize = 25860;

const char* ExtensionOf(const char* path)
{
    const char* dot = strrchr(path, '.');
    const char* slash = strrchr(path, '\\');
    return dot != nullptr && (slash == nullptr || dot > slash) ? dot + 1 : "";
}

void Report(HWND window, const char* text, const char* detail)
{
    char message[800];
    std::snprintf(message, sizeof message, "%s\n%s", text, detail);
    MessageBoxA(window, message, "Zavrin Host", MB_ICONHAND);
}

void EnsureSuite()
{
    if (g_tags == nullptr) {
        g_tags = new TagSet;
        g_tags->SetPath("zvhost", 1);
    }
    if (g_formats == nullptr)
        g_formats = new OKAMOD(nullptr);
}

// The title names the picture in hand: its file, its size in pixels and
// its depth, or the kind of picture when it has no pixels of its own.
void ShowTitle(HWND window)
{
    char title[700];
    if (g_image == nullptr || !g_imagePath[0]) {
        SetWindowTextA(window, "Zavrin Host - no image");
        return;
    }
    long width = 0, height = 0;
    short bits = 0;
    g_image->GetInfo(&width, &height, nullptr, nullptr, &bits);
    if (g_image->IsRaster())
        std::snprintf(title, sizeof title, "Zavrin Host - %s - %ld x %ld, %d bits", g_imagePath, width, height, bits);
    else
        std::snprintf(title, sizeof title, "Zavrin Host - %s - %ld x %ld, vector", g_imagePath, width, height);
    SetWindowTextA(window, title);
}

// How the scaling choice of the format's source dialog shows the picture:
// key + "SCALE" and key + "MAXWIDTH", the key being the format's internal
// extension. With neither stored the dialog itself takes "Scale to
// window", and so does the host; "SCALE" on wins over "MAXWIDTH" as in the
// dialog.
enum class ImageFit { Window, Width, None };

ImageFit FitOfImageInHand()
{
    EnsureSuite();
    char key[16] = {};
    const char* internal = ZvGetInternalExt(g_formats, ExtensionOf(g_imagePath));
    lstrcpynA(key, internal != nullptr ? internal : "", sizeof key);
    CharUpperA(key);
    char scaleKey[24], widthKey[24];
    std::snprintf(scaleKey, sizeof scaleKey, "%sSCALE", key);
    std::snprintf(widthKey, sizeof widthKey, "%sMAXWIDTH", key);
    const char* scale = ZvGetTag(g_tags, scaleKey);
    const char* pageWidth = ZvGetTag(g_tags, widthKey);
    auto on = [](const char* value) { return value != nullptr && lstrcmpiA(value, "ON") == 0; };
    if (on(scale) || (scale == nullptr && pageWidth == nullptr))
        return ImageFit::Window;
    return on(pageWidth) ? ImageFit::Width : ImageFit::None;
}

// File > Open: the library's open dialog, with the source options of each
// format one button away. Several chosen files are opened one after the
// other; the last one stays in the window.
void OpenImage(HWND window)
{
    EnsureSuite();
    static char list[kOpenListSize];
    list[0] = '\0';
    if (!DoOpenDlg(window, g_tags, const_cast<char*>("Zavrin PRO"), nullptr, g_formats, list, nullptr, 1))
        return;
    const char* first = list;
    const char* name = first + strlen(first) + 1;
    if (*name == '\0') {
        OpenImageFile(window, first);
        return;
    }
    for (; *name != '\0'; name += strlen(name) + 1) {
        char path[ZV_SAVE_PATH_SIZE];
        std::snprintf(path, sizeof path, "%s\\%s", first, name);
        if (OpenImageFile(window, path))
            UpdateWindow(window);
    }
}

// The name of the format of the file, as the registry gives it, for a
// message the user can act on.
void DescribeFormat(const char* path, char* out, size_t size)
{
    EnsureSuite();
    const char* ext = ExtensionOf(path);
    const char* name = ZvGetName(g_formats, ZvGetIndex(g_formats, ext));
    if (name != nullptr && name[0] != '\0')
        std::snprintf(out, size, "%s (%s)", name, ext);
    else
        std::snprintf(out, size, "files of the extension \"%s\"", ext);
}

// The conversion the save dialog prepared: the options that aren't
// commands go to the engine, the commands run on a copy, and the copy is
// written in the chosen format.
void SaveImage(HWND window)
{
    if (g_image == nullptr) {
        MessageBoxA(window, "Open an image first.", "Zavrin Host", MB_ICONINFORMATION);
        return;
    }
    EnsureSuite();
    char srcExt[16] = {};
    lstrcpynA(srcExt, ExtensionOf(g_imagePath), sizeof srcExt);
    char path[ZV_SAVE_PATH_SIZE] = {};
    short srcType = static_cast<short>(g_formats->GetType(ZvGetIndex(g_formats, srcExt)));
    if (!DoSaveDlg(window, g_tags, const_cast<char*>("Zavrin PRO"), nullptr, g_formats, srcExt, path, nullptr,
                   const_cast<char*>("Save As"), g_image, srcType))
        return;

    const char* destExt = ExtensionOf(path);
    if (strchr(path, '*') != nullptr) {
        Report(window, "A name with a wildcard names no file.", path);
        return;
    }
    char src[16], dest[16];
    lstrcpynA(src, ZvGetInternalExt(g_formats, srcExt), sizeof src);
    lstrcpynA(dest, ZvGetInternalExt(g_formats, destExt), sizeof dest);

    Dewey* copy = new Dewey;
    short result = copy->Open(g_imagePath);
    if (result == 0) {
        TagSet* engine = new TagSet;
        engine->SetPath("zvhost\\Engine", 1);
        FilterOptions(copy, g_tags, engine, src, dest);
        result = DoOptions(copy, g_tags, src, dest, g_formats);
        if (result == 0)
            result = copy->Save(path);
        delete engine;
    }
    delete copy;
    if (result != 0) {
        char code[32];
        std::snprintf(code, sizeof code, "engine code %d", result);
        Report(window, "The image could not be written.", code);
        return;
    }
    char done[600];
    std::snprintf(done, sizeof done, "Written: %s", path);
    MessageBoxA(window, done, "Zavrin Host", MB_ICONINFORMATION);
}

// The image in hand on the printer, where the print dialog and its options
// put it.
void PrintImage(HWND window)
{
    if (g_image == nullptr) {
        MessageBoxA(window, "Open an image first.", "Zavrin Host", MB_ICONINFORMATION);
        return;
    }
    EnsureSuite();
    const int result = PrintFromHost(window, g_tags, g_formats, g_image, g_imagePath, g_imagePath);
    if (result < 0) {
        char code[32];
        std::snprintf(code, sizeof code, "code %d", result);
        Report(window, "The image could not be printed.", code);
    }
}

// The attributes of the image in hand, with the size it is shown at.
void ShowProperties(HWND window)
{
    if (g_image == nullptr) {
        MessageBoxA(window, "Open an image first.", "Zavrin Host", MB_ICONINFORMATION);
        return;
    }
    EnsureSuite();
    char srcExt[16] = {};
    lstrcpynA(srcExt, ExtensionOf(g_imagePath), sizeof srcExt);
    RECT source, shown = {};
    ImageView(window, &source, &shown);
    DoPropertiesDlg(window, g_tags, "Zavrin Host", nullptr, g_formats, srcExt, srcExt, 0, g_image, &shown,
                    g_imagePath);
}

}  // namespace

bool OpenImageFile(HWND window, const char* path)
{
    // A name relative to the current folder, as on a command line, is kept
    // in full, so that a later save or convert finds the same file.
    char full[ZV_SAVE_PATH_SIZE] = {};
    if (GetFullPathNameA(path, sizeof full, full, nullptr) == 0 || full[sizeof full - 1] != '\0')
        lstrcpynA(full, path, sizeof full);
    Dewey* image = new Dewey;
    // The source options chosen in the open dialog (a CUT picture's
    // palette) reach the engine through the host's stored tags.
    EnsureSuite();
    if (const char* options = g_tags->GetPath())
        image->RefreshOptions(options);
    short result = image->Open(full);
    if (result != 0) {
        delete image;
        char format[300];
        DescribeFormat(full, format, sizeof format);
        MsgLib* messages = new MsgLib;
        char reason[256] = {};
        messages->GetMessageA(result, reason);
        delete messages;
        char detail[1400];
        std::snprintf(detail, sizeof detail, "%s\nThe engine could not read it as %s (engine code %d: %s).", full,
                      format, result, reason);
        Report(window, "The image could not be opened.", detail);
        return false;
    }
    delete g_view;
    delete g_image;
    g_image = image;
    g_view = new Huey(g_image);
    lstrcpynA(g_imagePath, full, sizeof g_imagePath);
    ShowTitle(window);
    InvalidateRect(window, nullptr, TRUE);
    return true;
}

void AddFileMenu(HWND window)
{
    HMENU file = CreatePopupMenu();
    AppendMenuA(file, MF_STRING, kOpen, "&Open...");
    AppendMenuA(file, MF_STRING, kSaveAs, "Save &As...");
    AppendMenuA(file, MF_STRING, kPrint, "&Print...");
    AppendMenuA(file, MF_STRING, kProperties, "P&roperties...");
    AppendMenuA(file, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(file, MF_STRING, kExit, "E&xit");
    HMENU bar = GetMenu(window);
    if (bar == nullptr) {
        bar = CreateMenu();
        SetMenu(window, bar);
    }
    InsertMenuA(bar, 0, MF_BYPOSITION | MF_POPUP, reinterpret_cast<UINT_PTR>(file), "&File");
    DrawMenuBar(window);
    ShowTitle(window);
}

bool OnFileCommand(HWND window, WORD command)
{
    switch (command) {
    case kOpen:
        OpenImage(window);
        return true;
    case kSaveAs:
        SaveImage(window);
        return true;
    case kPrint:
        PrintImage(window);
        return true;
    case kExit:
        PostMessageA(window, WM_CLOSE, 0, 0);
        return true;
    case kProperties:
        ShowProperties(window);
        return true;
    default:
        return false;
    }
}

bool ImageView(HWND window, RECT* source, RECT* target)
{
    if (g_image == nullptr)
        return false;
    long width = 0, height = 0;
    g_image->GetInfo(&width, &height, nullptr, nullptr, nullptr);
    RECT client;
    GetClientRect(window, &client);
    if (width <= 0 || height <= 0 || client.right <= 0 || client.bottom <= 0)
        return false;
    *source = RECT{0, 0, width, height};
    const ImageFit fit = FitOfImageInHand();
    if (fit != ImageFit::Window) {
        // From the top left corner: at its own size, or as wide as the
        // window with the height following, as a page is read.
        const double scale = fit == ImageFit::None ? 1.0 : static_cast<double>(client.right) / width;
        *target = RECT{0, 0, std::max(1L, static_cast<LONG>(width * scale + 0.5)),
                       std::max(1L, static_cast<LONG>(height * scale + 0.5))};
        return true;
    }
    // The whole picture fills as much of the window as its proportions
    // allow, larger or smaller than its own size, and stands in the middle.
    double scale = std::min(static_cast<double>(client.right) / width, static_cast<double>(client.bottom) / height);
    LONG fittedWidth = std::max(1L, static_cast<LONG>(width * scale + 0.5));
    LONG fittedHeight = std::max(1L, static_cast<LONG>(height * scale + 0.5));
    LONG left = (client.right - fittedWidth) / 2, top = (client.bottom - fittedHeight) / 2;
    *target = RECT{left, top, left + fittedWidth, top + fittedHeight};
    return true;
}

void PaintImage(HWND window, HDC dc)
{
    RECT source, target;
    if (g_view == nullptr || !ImageView(window, &source, &target))
        return;
    g_view->AttachWindow(window, dc);
    g_view->Paint(&source, &target);
}

Dewey* HostImage()
{
    return g_image;
}

const char* HostImagePath()
{
    return g_imagePath;
}

TagSet* HostTags()
{
    EnsureSuite();
    return g_tags;
}

OKAMOD* HostFormats()
{
    EnsureSuite();
    return g_formats;
}

void SetHostImagePath(HWND window, const char* path)
{
    lstrcpynA(g_imagePath, path, sizeof g_imagePath);
    ShowTitle(window);
    InvalidateRect(window, nullptr, TRUE);
}

void CloseFileMenu()
{
    delete g_view;
    delete g_image;
    delete g_tags;
    delete g_formats;
    g_view = nullptr;
    g_image = nullptr;
    g_tags = nullptr;
    g_formats = nullptr;
}
