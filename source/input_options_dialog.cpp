// InputOptionsDlgProc: the scaling of any format without a dialog of its
// own, when the host lets the generic one be offered.
#include "core_win.h"
#include "frame_tables.h"
#include "source_dialogs.h"
#include "zvopt32.h"

namespace {

char g_inputKey[zv::kKeySize];

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK InputOptionsDlgProc(HWND dialog, UINT message, WPARAM wParam,
                                                             LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelpInputOptions))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_inputKey);
        DisplayScalingChoice(dialog, g_inputKey);
        break;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            RetrieveScalingChoice(dialog, g_inputKey);
            EndDialog(dialog, 1);
        }
        break;
    }
    return 0;
}
