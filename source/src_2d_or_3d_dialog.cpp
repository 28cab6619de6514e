// Src2dOr3dDlgProc: a format that holds either a drawing or a scene (DXF)
// is read as the one the registry names, with the groups of that kind.
#include "core_win.h"
#include "frame_tables.h"
#include "source_dialogs.h"
#include "zvopt32.h"

namespace {

char g_2dOr3dKey[zv::kKeySize];

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK Src2dOr3dDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelp2dOr3dSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_2dOr3dKey);
        DisplayClassChoice(dialog, g_2dOr3dKey);
        break;
    case WM_COMMAND:
        SwitchClassControls(dialog, g_2dOr3dKey, wParam, lParam);
        if (LOWORD(wParam) == IDOK) {
            RetrieveClassChoice(dialog, g_2dOr3dKey);
            EndDialog(dialog, 1);
        }
        break;
    }
    return 0;
}
