// The metafile class choice: a metafile can hold raster data, vector data or
// both, and a raster source going into one lets the user say which. The
// answer decides the option sheet and the commands of the conversion.
#include "bounded_text.h"
#include "frame_tables.h"
#include "module.h"
#include "resource_ids.h"
#include "seams.h"
#include "source.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The radio of the last run: a stored value the dialog doesn't know, or a
// source type without a class of its own, keeps it.
short g_metafileChoice = IDC_METAFILE_RASTER;

void RvForceKey(char (&key)[64])
{
    zv::CopyBounded(key, Options()->destKey);
    zv::AppendBounded(key, "RVFORCE");
}

void InitMetafileClass(HWND dialog)
{
    OptionContext* options = Options();
    char key[64];
    RvForceKey(key);
    if (const char* stored = ZvGetTag(options->tags, key)) {
        if (lstrcmpiA(stored, "R") == 0)
            g_metafileChoice = IDC_METAFILE_RASTER;
        else if (lstrcmpiA(stored, "V") == 0)
            g_metafileChoice = IDC_METAFILE_VECTOR;
        else if (lstrcmpiA(stored, "M") == 0)
            g_metafileChoice = IDC_METAFILE_BOTH;
    } else if (options->srcType == 1 || options->srcType == 5) {
        g_metafileChoice = IDC_METAFILE_RASTER;
    } else if (options->srcType == 2) {
        g_metafileChoice = IDC_METAFILE_VECTOR;
    } else if (options->srcType == 3) {
        g_metafileChoice = IDC_METAFILE_BOTH;
    }
    CheckRadioButton(dialog, IDC_METAFILE_RASTER, IDC_METAFILE_BOTH, g_metafileChoice);
    SetFocus(GetDlgItem(dialog, g_metafileChoice));
}

void AcceptMetafileClass(HWND dialog)
{
    char key[64];
    RvForceKey(key);
    const char* value = g_metafileChoice == IDC_METAFILE_VECTOR ? "V" : g_metafileChoice == IDC_METAFILE_BOTH ? "M" : "R";
    ZvSetTag(Options()->tags, key, value);
    EndDialog(dialog, 1);
}

}  // namespace

INT_PTR RunGuardedDialog(HWND parent, int templateId, DLGPROC proc)
{
    return RunCommonDialog(static_cast<unsigned short>(templateId), parent, proc);
}

int DoMetafileClassDlg(HWND parent, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats, char* srcExt,
                       char* destExt, short operation)
{
    if (Options()->inDialog) {
        SeamMessageBeep(0);
        return 0;
    }
    InitOptionContext(parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0, nullptr, 0);
    return RunGuardedDialog(parent, IDD_METAFILE_CLASS, ForceToRasterDlgProc) == 1 ? 1 : 0;
}

extern "C" ZVOPT32_API INT_PTR CALLBACK ForceToRasterDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG:
        InitMetafileClass(dialog);
        return FALSE;  // the focus is set
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_METAFILE_RASTER:
        case IDC_METAFILE_VECTOR:
        case IDC_METAFILE_BOTH:
            g_metafileChoice = static_cast<short>(LOWORD(wParam));
            return TRUE;
        case IDOK:
            AcceptMetafileClass(dialog);
            return TRUE;
        case IDCANCEL:
            EndDialog(dialog, 0);
            return TRUE;
        case IDHELP:
            ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpMetafileClass);
            return TRUE;
        default:
            return FALSE;
        }
    case WM_HELP:
        PostMessageA(dialog, WM_COMMAND, IDHELP, 0);
        return TRUE;
    default:
        return FALSE;
    }
}
