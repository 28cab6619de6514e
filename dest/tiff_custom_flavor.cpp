// Custom TIFF flavours: the user picks a sample TIFF in a classic file
// dialog and names the flavour; the scan of the sample gives its type text,
// kept as a global tag so that it outlives a cancelled sheet.
#include <cstdlib>
#include <cstring>

#include "core_win.h"
#include "diagnostics.h"
#include "dialog_guard.h"
#include "format_pages.h"
#include "frame_tables.h"
#include "okacvt32.h"
#include "resource_ids.h"
#include "seams.h"
#include "source.h"
#include "zvwio32.h"

namespace {

// The file dialog's file field and title, and the path that the hook
// composes for the scan.
constexpr int kCustomPathSize = 516;
char g_samplePath[kCustomPathSize];

constexpr char kCustomTemplate[] = "TiffCustDlg";
// The template's caption; without a title the common dialog would put its
// own over it.
constexpr char kCustomTitle[] = "Custom TIFF";

// Shows the text of a failed scan; true when there was one to show.
bool ReportScanFailure(HWND dialog, short code, const char* result)
{
    OptionContext* context = Options();
    char text[512] = {};
    if (code != 0)
        LoadStringA(LibraryModule(), static_cast<UINT>(std::abs(code) & 0xFFFF), text, sizeof text);
    if (text[0] == '\0' || result == nullptr)
        LoadStringA(LibraryModule(), IDS_INVALID_TIFF, text, sizeof text);
    if (text[0] == '\0')
        return false;
    SeamMessageBeep(0);
    SeamMessageBox(dialog, text, context->appTitle, MB_ICONHAND);
    return true;
}

}  // namespace

int TiffCustDlg(HWND dialog)
{
    OptionContext* context = Options();
    int count = 0;
    char** filter = LoadFilterList(LibraryModule(), IDS_TIFF_FILTER, &count);
    char dir[MAX_PATH] = {}, name[MAX_PATH] = {}, ext[MAX_PATH] = {};
    char file[kCustomPathSize] = {};
    char title[kCustomPathSize] = {};
    if (filter != nullptr && count > 0 && filter[1] != nullptr)
        ZvSplitPath(filter[1], dir, name, ext);
    zv::CopyBounded(title, name);
    zv::AppendBounded(title, ".");
    zv::AppendBounded(title, ext);
    zv::CopyBounded(file, title);

    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = dialog;
    ofn.hInstance = LibraryModule();
    ofn.lpstrFilter = filter != nullptr ? filter[0] : nullptr;
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = file;
    ofn.nMaxFile = sizeof file;
    ofn.lpstrFileTitle = title;
    ofn.nMaxFileTitle = sizeof title;
    ofn.lpstrTitle = kCustomTitle;
    ofn.lpstrInitialDir = ZvGetTag(context->tags, "OPENDIR");
    ofn.lpstrDefExt = ext;
    ofn.Flags = OFN_FILEMUSTEXIST | OFN_ENABLETEMPLATE | OFN_ENABLEHOOK | OFN_SHOWHELP;
    ofn.lpTemplateName = kCustomTemplate;
    ofn.lpfnHook = TiffCustHookProc;
    BOOL chosen = GetOpenFileNameA(&ofn);
    FreeFilterList(filter);
    if (!chosen) {
        Diagnostic("custom TIFF flavour: no file (dialog error %lu)", CommDlgExtendedError());
        return 0;
    }

    short code = 0;
    char* type = CvtScanTiff(g_samplePath, &code, 0, nullptr);
    if (code != 0 || type == nullptr) {
        ReportScanFailure(dialog, code, type);
        OkiFreeSMem(type);
        return 0;
    }
    const char* flavor = TiffCustomFlavorName();
    char key[zv::kKeySize];
    zv::CopyBounded(key, "TIF_");
    zv::AppendBounded(key, flavor);
    ZvSetGlobalTag(context->tags, key, type);
    ZvSetGlobalTag(context->tags, "TIFFLAV", flavor);
    OkiFreeSMem(type);

    LRESULT added = SendDlgItemMessageA(dialog, IDC_OUT_FLAVOR, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(flavor));
    if (added >= 0)
        SendDlgItemMessageA(dialog, IDC_OUT_FLAVOR, CB_SETCURSEL, static_cast<WPARAM>(added), 0);
    return chosen;
}

UINT_PTR CALLBACK TiffCustHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG: {
        HWND edit = GetDlgItem(dialog, IDC_FILE_NAME_EDIT);
        SetFocus(edit);
        SendMessageA(edit, EM_SETSEL, 0, -1);
        return 0;
    }
    case WM_COMMAND:
        if (LOWORD(wParam) == IDHELP) {
            ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, 0), zv::kHelpTiffCustomFiles);
            return 0;
        }
        if (LOWORD(wParam) != IDOK)
            return 0;
        break;
    default:
        return 0;
    }

    GetDlgItemTextA(dialog, IDC_FILE_NAME_EDIT, g_samplePath, kCustomPathSize);
    // An empty text, a pattern or a name without a dot is the file dialog's
    // own business.
    if (g_samplePath[0] == '\0' || std::strchr(g_samplePath, '.') == nullptr || std::strchr(g_samplePath, '*') != nullptr)
        return 0;

    char dir[MAX_PATH] = {}, ext[MAX_PATH] = {};
    char* flavor = TiffCustomFlavorName();
    char name[MAX_PATH] = {};
    ZvSplitPath(g_samplePath, dir, name, ext);
    zv::CopyBounded(flavor, 256, name);
    // The sample lies in the folder that the dialog shows; a folder typed
    // into the name is not used.
    char current[MAX_PATH] = {};
    GetCurrentDirectoryA(sizeof current, current);
    zv::CopyBounded(g_samplePath, current);
    std::size_t length = std::strlen(g_samplePath);
    if (length == 0 || g_samplePath[length - 1] != '\\')
        zv::AppendBounded(g_samplePath, "\\");
    zv::AppendBounded(g_samplePath, name);
    zv::AppendBounded(g_samplePath, ".");
    zv::AppendBounded(g_samplePath, ext);

    INT_PTR named = 0;
    {
        DialogGuardRelease release;
        named = RunGuardedDialog(dialog, IDD_TIFF_APP, TiffAppDlgProc);
    }
    // Cancelled: the file dialog stays, and the sample may be changed.
    return named == 1 ? 0 : 1;
}
