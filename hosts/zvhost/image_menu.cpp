#include "image_menu.h"

#include <cstring>
#include <iterator>

#include "okamod32.h"
#include "ravicli.h"
#include "save_road.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

using Entry = int (*)(HWND, TagSet*, const char*, const char*, OKAMOD*, const char*, const char*, short, Dewey*);

enum : WORD { kUndo = 299 };

struct Item {
    WORD command;
    const char* text;
    Entry entry;
};

// The pages that change the image in hand, in the order of the menu.
const Item kItems[] = {
    {200, "&Adjust Colours...", DoAdjColorsDlg},
    {201, "&Rotate...", DoRotateDlg},
    {202, "&Number of Colours...", DoNumColorsDlg},
    {203, "&Edit Colours...", DoEditColorsDlg},
    {204, "Re&size...", DoResizeDlg},
};

const char* ExtensionOf(const char* path)
{
    const char* dot = std::strrchr(path, '.');
    const char* slash = std::strrchr(path, '\\');
    return dot != nullptr && (slash == nullptr || dot > slash) ? dot + 1 : "";
}

void RunPage(HWND window, Entry entry)
{
    Dewey* image = HostImage();
    if (image == nullptr) {
        MessageBoxA(window, "Open an image first.", "Zavrin Host", MB_ICONINFORMATION);
        return;
    }
    char srcExt[16] = {};
    lstrcpynA(srcExt, ExtensionOf(HostImagePath()), sizeof srcExt);
    // Operation 0: the page changes the image itself when the user says OK.
    if (entry(window, HostTags(), "Zavrin Host", nullptr, HostFormats(), srcExt, srcExt, 0, image))
        InvalidateRect(window, nullptr, TRUE);
}

}  // namespace

void AddImageMenu(HWND window)
{
    HMENU menu = CreatePopupMenu();
    for (const Item& item : kItems)
        AppendMenuA(menu, MF_STRING, item.command, item.text);
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu, MF_STRING, kUndo, "&Undo");
    HMENU bar = GetMenu(window);
    if (bar == nullptr) {
        bar = CreateMenu();
        SetMenu(window, bar);
    }
    AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), "&Image");
    DrawMenuBar(window);
}

bool OnImageCommand(HWND window, WORD command)
{
    if (command == kUndo) {
        if (Dewey* image = HostImage()) {
            image->UndoRedo();
            InvalidateRect(window, nullptr, TRUE);
        }
        return true;
    }
    for (const Item& item : kItems) {
        if (item.command == command) {
            RunPage(window, item.entry);
            return true;
        }
    }
    return false;
}
