#include "regions_mode.h"

#include <commdlg.h>

#include <cstdio>
#include <cstring>

#include "okacvt32.h"
#include "ravicli.h"
#include "save_road.h"
#include "zvopt32.h"

namespace {

enum : WORD { kLoadRegions = 300, kChooseFont = 301, kCloseRegions = 302 };

EFont* g_regions = nullptr;
bool g_dragging = false;

// The view of the picture as the region editor reads it.
bool ViewInfo(HWND window, taghueyinfo* info)
{
    *info = taghueyinfo{};
    return ImageView(window, &info->source, &info->device);
}

void ShowOutcome(HWND window)
{
    const FontChange* change = g_regions->GetResults();
    char caption[400];
    std::snprintf(caption, sizeof caption, "Zavrin Host - region %d: width x%.2f, height x%.2f, %s -> %s",
                  g_regions->current != nullptr ? int(g_regions->current - g_regions->rects) : -1,
                  change->widthRatio, change->heightRatio, change->oldFont[0] ? change->oldFont : "(no font)",
                  change->newFont[0] ? change->newFont : "(no font)");
    SetWindowTextA(window, caption);
}

// The region file beside the image: its name with the extension "rgn".
void RegionPathBeside(const char* image, char* path, DWORD size)
{
    lstrcpynA(path, image, int(size));
    char* dot = std::strrchr(path, '.');
    char* slash = std::strrchr(path, '\\');
    if (dot != nullptr && (slash == nullptr || dot > slash)) *dot = '\0';
    if (std::strlen(path) + 4 < size) std::strcat(path, ".rgn");
}

void LoadRegions(HWND window)
{
    if (HostImage() == nullptr) {
        MessageBoxA(window, "Open an image first.", "Zavrin Host", MB_ICONINFORMATION);
        return;
    }
    char path[MAX_PATH] = {};
    RegionPathBeside(HostImagePath(), path, sizeof path);
    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = window;
    ofn.lpstrFilter = "Region files (*.rgn)\0*.rgn\0All files\0*.*\0";
    ofn.lpstrFile = path;
    ofn.nMaxFile = sizeof path;
    ofn.lpstrTitle = "Load Regions";
    ofn.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER;
    if (!GetOpenFileNameA(&ofn)) return;

    EFont* regions = new EFont(path);
    if (regions->status != 0) {
        // The file's own numbers are not to be trusted: say why it was refused.
        char text[300] = "";
        MsgLib messages;
        messages.GetMessageA(regions->status, text);
        char message[700];
        std::snprintf(message, sizeof message, "The region file was refused.\n%s\n%s", path, text);
        MessageBoxA(window, message, "Zavrin Host", MB_ICONHAND);
        delete regions;
        return;
    }
    CloseRegions();
    g_regions = regions;
    char caption[400];
    std::snprintf(caption, sizeof caption, "Zavrin Host - %d regions", g_regions->rectCount);
    SetWindowTextA(window, caption);
    InvalidateRect(window, nullptr, TRUE);
}

void ChooseRegionFont(HWND window)
{
    if (g_regions == nullptr || g_regions->current == nullptr) {
        MessageBoxA(window, "Select a region first.", "Zavrin Host", MB_ICONINFORMATION);
        return;
    }
    LOGFONTA font = {};
    lstrcpynA(font.lfFaceName, g_regions->GetResults()->oldFont, sizeof font.lfFaceName);
    CHOOSEFONTA choice = {};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = window;
    choice.lpLogFont = &font;
    choice.Flags = CF_SCREENFONTS | CF_TTONLY | CF_INITTOLOGFONTSTRUCT;
    if (!ChooseFontA(&choice)) return;
    if (!g_regions->SetNewFont(font.lfFaceName))
        MessageBoxA(window, "That font is not a TrueType font of the font key.", "Zavrin Host", MB_ICONINFORMATION);
    ShowOutcome(window);
}

}  // namespace

void AddRegionsMenu(HWND window)
{
    HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, kLoadRegions, "&Load Regions...");
    AppendMenuA(menu, MF_STRING, kChooseFont, "&Font of Region...");
    AppendMenuA(menu, MF_STRING, kCloseRegions, "&Close Regions");
    HMENU bar = GetMenu(window);
    if (bar == nullptr) {
        bar = CreateMenu();
        SetMenu(window, bar);
    }
    AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), "&Regions");
    DrawMenuBar(window);
}

bool OnRegionsCommand(HWND window, WORD command)
{
    switch (command) {
    case kLoadRegions:
        LoadRegions(window);
        return true;
    case kChooseFont:
        ChooseRegionFont(window);
        return true;
    case kCloseRegions:
        CloseRegions();
        InvalidateRect(window, nullptr, TRUE);
        return true;
    default:
        return false;
    }
}

bool OnRegionsMouse(HWND window, UINT message, LPARAM lParam)
{
    taghueyinfo info;
    if (g_regions == nullptr || !ViewInfo(window, &info)) return false;
    int x = short(LOWORD(lParam)), y = short(HIWORD(lParam));
    HDC dc = GetDC(window);
    switch (message) {
    case WM_LBUTTONDOWN:
        if (unsigned short handle = g_regions->HandleHit(&info, x, y)) {
            g_regions->StartRubberRect(dc, &info, handle, x, y);
            g_dragging = true;
            SetCapture(window);
        } else {
            // The old selection's handles go, the new one's come.
            g_regions->DrawHandles(dc, &info);
            if (g_regions->TextRectHit(&info, x, y)) {
                g_regions->DrawHandles(dc, &info);
                ShowOutcome(window);
            }
        }
        break;
    case WM_MOUSEMOVE:
        if (g_dragging) g_regions->UpdateRubberRect(dc, &info, x, y);
        break;
    case WM_LBUTTONUP:
        if (g_dragging) {
            g_dragging = false;
            ReleaseCapture();
            g_regions->EndRubberRect(dc, &info, x, y);
            ShowOutcome(window);
        }
        break;
    default:
        ReleaseDC(window, dc);
        return false;
    }
    ReleaseDC(window, dc);
    return true;
}

void PaintRegions(HWND window, HDC dc)
{
    taghueyinfo info;
    if (g_regions == nullptr || !ViewInfo(window, &info)) return;
    g_regions->DrawAllRects(dc, &info);
    if (g_regions->current == nullptr) return;
    if (g_regions->rubberDone) {
        // The stretched frame stands over the region until the next change.
        RECTS frame = *g_regions->current;
        frame.top = g_regions->rubber.top;
        frame.right = g_regions->rubber.right;
        g_regions->DrawRect(dc, &info, &frame);
    } else {
        g_regions->DrawHandles(dc, &info);
    }
}

void CloseRegions()
{
    delete g_regions;
    g_regions = nullptr;
    g_dragging = false;
}
