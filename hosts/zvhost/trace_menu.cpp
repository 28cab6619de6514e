#include "trace_menu.h"

#include <cstdio>
#include <cstring>

#include "okaio32.h"
#include "okamod32.h"
#include "ravicli.h"
#include "save_road.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

enum : WORD { kTrace = 210 };

// The Image menu of the bar, found by its caption or appended.
HMENU ImageMenu(HWND window)
{
    HMENU bar = GetMenu(window);
    if (bar == nullptr) {
        bar = CreateMenu();
        SetMenu(window, bar);
    }
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
        char caption[64] = {};
        GetMenuStringA(bar, UINT(i), caption, sizeof caption, MF_BYPOSITION);
        if (std::strcmp(caption, "&Image") == 0)
            return GetSubMenu(bar, i);
    }
    HMENU image = CreatePopupMenu();
    AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(image), "&Image");
    return image;
}

const char* ExtensionOf(const char* path)
{
    const char* dot = std::strrchr(path, '.');
    const char* slash = std::strrchr(path, '\\');
    return dot != nullptr && (slash == nullptr || dot > slash) ? dot + 1 : "";
}

void Report(HWND window, const char* text, short code)
{
    char message[200];
    std::snprintf(message, sizeof message, "%s\nengine code %d", text, code);
    MessageBoxA(window, message, "Zavrin Host", MB_ICONHAND);
}

// The dialog works on the image in hand (operation 0), so its tags stand
// under the source and "~~~"; the numbers of those tags drive the engine,
// which reads "TRACEVIEW" from the host's stored tags. The drawing is kept
// in a metafile beside the other temporary files and becomes the image in
// hand, so Save As converts it as a vector source.
void TraceImage(HWND window)
{
    Dewey* image = HostImage();
    if (image == nullptr || !image->IsRaster()) {
        MessageBoxA(window, "Open a raster image first.", "Zavrin Host", MB_ICONINFORMATION);
        return;
    }
    TagSet* tags = HostTags();
    OKAMOD* formats = HostFormats();
    char srcExt[16] = {};
    lstrcpynA(srcExt, ExtensionOf(HostImagePath()), sizeof srcExt);
    if (!DoTraceDlg(window, tags, "Zavrin PRO", nullptr, formats, srcExt, nullptr, 0, image))
        return;

    char prefix[64] = {};
    lstrcpynA(prefix, ZvGetInternalExt(formats, srcExt), sizeof prefix - 3);
    lstrcatA(prefix, "~~~");
    image->RefreshOptions("zvhost");
    short code = image->PrepRaster(TraceGetUndither(tags, prefix), TraceGetDespec(tags, prefix),
                                   TraceGetMaxColors(tags, prefix));
    if (code == 0)
        code = image->Vectorize(TraceGetMethod(tags, prefix), TraceGetGenTol(tags, prefix),
                                TraceGetBezGen(tags, prefix), TraceGetArcGen(tags, prefix),
                                TraceGetLineWidth(tags, prefix), 0);
    char path[MAX_PATH] = {};
    GetTempPathA(sizeof path, path);
    lstrcatA(path, "zvhost_traced.emf");
    if (code == 0)
        code = image->Save(path);
    if (code != 0) {
        Report(window, "The image could not be traced.", code);
        return;
    }
    SetHostImagePath(window, path);
}

}  // namespace

void AddTraceMenu(HWND window)
{
    AppendMenuA(ImageMenu(window), MF_STRING, kTrace, "&Trace...");
    DrawMenuBar(window);
}

bool OnTraceCommand(HWND window, WORD command)
{
    if (command != kTrace)
        return false;
    TraceImage(window);
    return true;
}
