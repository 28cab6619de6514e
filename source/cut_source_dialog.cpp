// CUTSrcDlg: a CUT picture keeps its colours in a palette file beside it,
// so its source dialog is a file dialog for that palette, with the scaling
// choice of the source dialogs beside the file list. A palette that bears
// the picture's name is offered at once.
#include <cstring>

#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "frame_tables.h"
#include "module.h"
#include "seams.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

constexpr std::size_t kCutNameSize = 256;
char g_cutPicture[kCutNameSize];
int cutUsePalette = 0;
char g_cutKey[zv::kKeySize];

void OfferNamedPalette(HWND dialog)
{
    char palette[kCutNameSize + 8];
    zv::CopyBounded(palette, g_cutPicture);
    if (char* dot = std::strrchr(palette, '.'))
        *dot = '\0';
    zv::AppendBounded(palette, ".pal");
    LRESULT found = SendDlgItemMessageA(dialog, IDC_CUT_FILES, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                        reinterpret_cast<LPARAM>(palette));
    if (found == LB_ERR)
        return;
    SendDlgItemMessageA(dialog, IDC_CUT_FILES, LB_SETCURSEL, static_cast<WPARAM>(found), 0);
    SetDlgItemTextA(dialog, 1152, palette);
}

// OK: the scaling choice stands either way; a name box that is empty or
// still holds the wildcard leaves without a palette.
INT_PTR OnCutOk(HWND dialog)
{
    RetrieveScalingChoice(dialog, g_cutKey);
    char name[zv::kLongPathSize] = {};
    GetDlgItemTextA(dialog, 1152, name, sizeof name);
    if (name[0] != '\0' && name[0] != '*')
        return 0;  // the system dialog goes on with the name
    cutUsePalette = 0;
    EndDialog(dialog, 1);
    return 1;
}

void ShowCutContextHelp(HWND control)
{
    static const DWORD pairs[] = {IDC_CUT_NAME_LABEL, 1012, IDC_CUT_FILES,      1012, IDC_CUT_TYPE_LABEL, 1013,
                                  IDC_CUT_TYPES,      1013, IDC_CUT_DIR,        1014, IDC_CUT_DIR_LABEL,  1014,
                                  IDC_CUT_DRIVE_LABEL, 1015, IDC_CUT_DRIVES,    1015, 0,                  0};
    SeamWinHelp(control, Options()->helpFile, HELP_CONTEXTMENU, reinterpret_cast<ULONG_PTR>(pairs));
}

}  // namespace

extern "C" ZVOPT32_API UINT_PTR CALLBACK CUTSrcOptionsHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG:
        cutUsePalette = 1;
        LoadSourceKey(g_cutKey);
        DisplayScalingChoice(dialog, g_cutKey);
        OfferNamedPalette(dialog);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK)
            return OnCutOk(dialog);
        if (LOWORD(wParam) == IDHELP) {
            ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpCutSource);
            return 1;
        }
        return 0;
    case WM_HELP:
        PostMessageA(dialog, WM_COMMAND, IDHELP, 0);
        return 1;
    case WM_CONTEXTMENU:
        ShowCutContextHelp(reinterpret_cast<HWND>(wParam));
        return 1;
    default:
        return 0;
    }
}

extern "C" ZVOPT32_API int CUTSrcDlg(HWND owner, char* name)
{
    zv::CopyBounded(g_cutPicture, name);
    int count = 0;
    char** list = LoadFilterList(LibraryModule(), IDS_CUT_PALETTE_FILTER, &count);
    char file[zv::kLongPathSize] = {}, fileTitle[zv::kLongPathSize] = {};
    char dir[zv::kLongPathSize] = {}, base[zv::kLongPathSize] = {}, ext[zv::kLongPathSize] = {};
    zv::CopyBounded(file, list[1]);
    ZvSplitPath(file, dir, base, ext);
    zv::CopyBounded(fileTitle, base);
    zv::AppendBounded(fileTitle, ".");
    zv::AppendBounded(fileTitle, ext);
    TagSet* tags = Options()->tags;
    if (const char* stored = ZvGetTag(tags, "CUTPATH"))
        zv::CopyBounded(dir, stored);

    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = owner;
    ofn.hInstance = LibraryModule();
    ofn.lpstrFilter = list[0];
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = file;
    ofn.nMaxFile = sizeof file;
    ofn.lpstrFileTitle = fileTitle;
    ofn.nMaxFileTitle = sizeof fileTitle;
    ofn.lpstrInitialDir = dir[0] != '\0' ? dir : nullptr;
    ofn.lpstrDefExt = ext;
    ofn.lpfnHook = CUTSrcOptionsHookProc;
    ofn.lpTemplateName = "IDD_ZVOPT_CUTSRC_DLG";
    ofn.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_ENABLETEMPLATE | OFN_ENABLEHOOK | OFN_SHOWHELP |
                OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    int result = 0;
    BOOL accepted = GetOpenFileNameA(&ofn);
    if (!accepted)
        Diagnostic("%s: no palette accepted (dialog error %lu)", __func__, CommDlgExtendedError());
    if (accepted && cutUsePalette) {
        char chosenDir[zv::kLongPathSize] = {}, chosenName[zv::kLongPathSize] = {}, chosenExt[zv::kLongPathSize] = {};
        ZvSplitPath(file, chosenDir, chosenName, chosenExt);
        ZvSetTag(tags, "CUTIPAL", file);
        ZvSetTag(tags, "CUTPATH", chosenDir);
        result = 1;
    }
    FreeFilterList(list);
    return result;
}
