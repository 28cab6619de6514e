// PCDSrcDlgProc: a photo CD image holds several resolutions; the dialog
// picks the one to read.
#include "core_win.h"
#include "frame_tables.h"
#include "module.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

char g_pcdKey[zv::kKeySize];

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK PCDSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelpPcdSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_pcdKey);
        LoadList(dialog, IDC_PCD_RESOLUTION, IDC_PCD_RESOLUTION_LABEL, IDS_PCD_RESOLUTIONS,
                 IDS_PCD_RESOLUTION_VALUES, g_pcdKey, "RES", LibraryModule(), Options()->tags);
        DisplayScalingChoice(dialog, g_pcdKey);
        break;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            RetrieveList(dialog, IDC_PCD_RESOLUTION, IDS_PCD_RESOLUTION_VALUES, g_pcdKey, "RES", LibraryModule(),
                         Options()->tags);
            RetrieveScalingChoice(dialog, g_pcdKey);
            EndDialog(dialog, 1);
        }
        break;
    }
    return 0;
}
