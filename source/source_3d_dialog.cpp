// Zv3dSrcOptionsDlgProc: viewpoint and rendering of any 3D format without a
// dialog of its own.
#include "core_win.h"
#include "frame_tables.h"
#include "source_dialogs.h"
#include "zvopt32.h"

namespace {

char g_3dKey[zv::kKeySize];

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK Zv3dSrcOptionsDlgProc(HWND dialog, UINT message, WPARAM wParam,
                                                               LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelp3dSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_3dKey);
        Display3dChoice(dialog, g_3dKey);
        break;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            Retrieve3dChoice(dialog, g_3dKey);
            EndDialog(dialog, 1);
        }
        break;
    }
    return 0;
}
