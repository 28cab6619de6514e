// The metafile class choice: a metafile can hold raster data, vector data or
// both, and a raster source going into one lets the user say which. The
// answer decides the option sheet and the commands of the conversion.
#include "dialog_guard.h"
#include "frame_tables.h"
#include "module.h"
#include "okamod32.h"
#include "option_core.h"
#include "resource_ids.h"
#include "source.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The radio of the last run: a stored value the dialog doesn't know, or a
// source type without a class of its own, keeps it.
short g_metafileChoice = IDC_METAFILE_RASTER;

void InitMetafileClass(HWND dialog)
{
    OptionContext* options = Options();
    switch (ChosenMetafileClass()) {
    case kFormatRaster:
        g_metafileChoice = IDC_METAFILE_RASTER;
        break;
    case kFormatVector:
        g_metafileChoice = IDC_METAFILE_VECTOR;
        break;
    case kFormatMetafile:
        g_metafileChoice = IDC_METAFILE_BOTH;
        break;
    default:
        // No choice stored: the kind of the source, if it has one.
        if (IsRasterType(options->srcType))
            g_metafileChoice = IDC_METAFILE_RASTER;
        else if (options->srcType == kFormatVector)
            g_metafileChoice = IDC_METAFILE_VECTOR;
        else if (options->srcType == kFormatMetafile)
            g_metafileChoice = IDC_METAFILE_BOTH;
        break;
    }
    CheckRadioButton(dialog, IDC_METAFILE_RASTER, IDC_METAFILE_BOTH, g_metafileChoice);
    SetFocus(GetDlgItem(dialog, g_metafileChoice));
}

void AcceptMetafileClass(HWND dialog)
{
    const char* value = g_metafileChoice == IDC_METAFILE_VECTOR ? "V" : g_metafileChoice == IDC_METAFILE_BOTH ? "M" : "R";
    ZvSetTag(Options()->tags, zv::TagKey(Options()->destKey, zv::kMetafileClassTag), value);
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
    if (RefuseWhileDialogRuns(__func__))
        return 0;
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
