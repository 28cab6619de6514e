#include "save_road.h"

#include <commdlg.h>

#include <cstdio>
#include <algorithm>
#include <cstring>

#include "okaio32.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

enum : WORD { kOpen = 100, kSaveAs = 101, kExit = 102, kProperties = 103 };

// The host keeps its tags in a stored place of its own, so that the user's
// choices (folders, formats, options) are there at the next start.
TagSet* g_tags = nullptr;
OKAMOD* g_formats = nullptr;
Dewey* g_image = nullptr;
Huey* g_view = nullptr;
char g_imagePath[ZV_SAVE_PATH_SIZE];

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

void ShowTitle(HWND window)
{
    char title[600];
    std::snprintf(title, sizeof title, "Zavrin Host - %s", g_imagePath[0] ? g_imagePath : "no image");
    SetWindowTextA(window, title);
}

void OpenImage(HWND window)
{
    char path[ZV_SAVE_PATH_SIZE] = {};
    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = window;
    ofn.lpstrFilter = "Images\0*.bmp;*.png;*.jpg;*.gif;*.tif;*.ico;*.wmf;*.emf\0All files\0*.*\0";
    ofn.lpstrFile = path;
    ofn.nMaxFile = sizeof path;
    ofn.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER;
    if (!GetOpenFileNameA(&ofn))
        return;
    Dewey* image = new Dewey;
    short result = image->Open(path);
    if (result != 0) {
        delete image;
        char code[32];
        std::snprintf(code, sizeof code, "engine code %d", result);
        Report(window, "The image could not be opened.", code);
        return;
    }
    delete g_view;
    delete g_image;
    g_image = image;
    g_view = new Huey(g_image);
    lstrcpynA(g_imagePath, path, sizeof g_imagePath);
    ShowTitle(window);
    InvalidateRect(window, nullptr, TRUE);
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

void AddFileMenu(HWND window)
{
    HMENU file = CreatePopupMenu();
    AppendMenuA(file, MF_STRING, kOpen, "&Open...");
    AppendMenuA(file, MF_STRING, kSaveAs, "Save &As...");
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
    if (width <= 0 || height <= 0)
        return false;
    // Fit the picture into the window, keeping its proportions.
    double scale = std::min(static_cast<double>(client.right) / width, static_cast<double>(client.bottom) / height);
    if (scale > 1.0)
        scale = 1.0;
    *source = RECT{0, 0, width, height};
    *target = RECT{0, 0, static_cast<LONG>(width * scale), static_cast<LONG>(height * scale)};
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

Dewey* CurrentImage()
{
    return g_image;
}

const char* CurrentImagePath()
{
    return g_imagePath;
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
