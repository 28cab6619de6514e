// Context help of every dialog and page: the Help button and F1 open the
// topic of the whole dialog, the right mouse button the pop-up help of the
// control under it. Every call of the help viewer goes through the seam.
#include "frame.h"
#include "seams.h"
#include "zvopt32.h"

namespace {

void ShowControlHelp(HWND control, UINT command)
{
    unsigned long table[zv::kHelpTableWords];
    zv::FillHelpTable(table);
    static_assert(sizeof table[0] == sizeof(DWORD), "the viewer reads the table as DWORDs");
    SeamWinHelp(control, CurrentHelpFile(), command, reinterpret_cast<ULONG_PTR>(table));
}

}  // namespace

extern "C" ZVOPT32_API void ShowContextHelp(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
        // The caller gives the topic of its dialog in lParam.
        if (LOWORD(wParam) == IDHELP)
            SeamWinHelp(CurrentParentWindow(), CurrentHelpFile(), HELP_CONTEXT, static_cast<ULONG_PTR>(lParam));
        break;
    case WM_HELP:
        if (const auto* info = reinterpret_cast<const HELPINFO*>(lParam))
            ShowControlHelp(static_cast<HWND>(info->hItemHandle), HELP_WM_HELP);
        break;
    case WM_CONTEXTMENU:
        ShowControlHelp(reinterpret_cast<HWND>(wParam), HELP_CONTEXTMENU);
        break;
    default:
        break;
    }
}
