// CGMSrcDlgProc: a CGM file is read as a 2D drawing or as a 3D scene; the
// 2D reading can also trim the white space around the picture.
#include "frame_tables.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"
#include "core_win.h"

namespace {

char g_cgmKey[zv::kKeySize];

void EnableTrim(HWND dialog, int kind)
{
    // Trimming belongs to the 2D reading alone.
    EnableWindow(GetDlgItem(dialog, IDC_CGM_TRIM), kind == IDC_SRC_CLASS_2D ? TRUE : FALSE);
}

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK CGMSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelpCgmSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_cgmKey);
        EnableTrim(dialog, DisplayClassChoice(dialog, g_cgmKey));
        DisplayCheckBoxTag(dialog, IDC_CGM_TRIM, g_cgmKey, "MINMAX", Options()->tags);
        break;
    case WM_COMMAND:
        if (int kind = SwitchClassControls(dialog, g_cgmKey, wParam, lParam))
            EnableTrim(dialog, kind);
        if (LOWORD(wParam) == IDOK) {
            RetrieveClassChoice(dialog, g_cgmKey);
            RetrieveCheckBoxTag(dialog, IDC_CGM_TRIM, g_cgmKey, "MINMAX", Options()->tags);
            EndDialog(dialog, 1);
        }
        break;
    }
    return 0;
}
