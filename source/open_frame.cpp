// The open dialog at work: the hook of the child dialog and the procedure
// that replaces the system dialog's own. The extension under the cursor, or
// in the name box, is the source of the moment, and the Options button is
// live exactly when that source has a dialog of its own.
#include <cstring>

#include "bounded_text.h"
#include "core_win.h"
#include "dialog_guard.h"
#include "file_dialog_parts.h"
#include "frame_tables.h"
#include "okamod32.h"
#include "open_dialog.h"
#include "seams.h"
#include "source.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

constexpr int kTypeList = 1136;  // cmb1
constexpr DWORD kHelpOpenDialog = 1001;
constexpr DWORD kHelpOptionsButton = 1006;
constexpr DWORD kHelpWarningsBox = 1067;

// The name in the name box or of the selection (CDM_GETSPEC), into the work buffer.
bool GetSpecIntoWork(HWND frame)
{
    char* work = Options()->openPath;
    if (work == nullptr)
        return false;
    work[0] = '\0';
    LRESULT length = SendMessageA(frame, CDM_GETSPEC, kOpenBufferSize, reinterpret_cast<LPARAM>(work));
    return length > 0 && work[0] != '\0';
}

short TypeOfKey(const char* key)
{
    OKAMOD* formats = Options()->formats;
    return static_cast<short>(formats != nullptr ? formats->GetType(ZvGetIndex(formats, key)) : 0);
}

bool IsSourceExt(const char* ext)
{
    OKAMOD* formats = Options()->formats;
    return formats != nullptr && formats->IsSource(ZvGetIndex(formats, ext));
}

// Whether the source of key has a dialog to offer here: with a host's own
// title only the formats' own dialogs count.
unsigned short SourceDialogOf(const char* key, DLGPROC* proc)
{
    OptionContext* options = Options();
    return GetSrcDlgId(key, proc, options->srcType, options->operation != kOperationOpenWithTitle);
}

void EnableOptions(bool enable)
{
    if (openHookDlg != nullptr)
        EnableWindow(GetDlgItem(openHookDlg, IDC_OPEN_OPTIONS), enable ? TRUE : FALSE);
}

void OnSelectionChange(HWND child)
{
    OptionContext* options = Options();
    bool enable = false;
    HWND frame = FileDialogFrame(child);
    if (GetSpecIntoWork(frame)) {
        if (const char* dot = std::strrchr(options->openPath, '.')) {
            zv::CopyBounded(options->srcExt, dot + 1);
            char key[zv::kKeySize];
            zv::CopyBounded(key, ZvGetInternalExt(options->formats, options->srcExt));
            if (IsSourceExt(options->srcExt)) {
                options->srcType = TypeOfKey(key);
                DLGPROC proc = nullptr;
                enable = SourceDialogOf(key, &proc) != 0;
            }
        }
    }
    EnableOptions(enable);
}

// The user edits the name: a typed extension of a source format that the
// type list offers selects that entry; any other name selects the first.
void OnNameChange(HWND frame)
{
    OptionContext* options = Options();
    if (!GetSpecIntoWork(frame))
        return;
    bool enable = false;
    int index = 0;
    char dir[zv::kLongPathSize] = {}, name[zv::kLongPathSize] = {}, ext[zv::kLongPathSize] = {};
    ZvSplitPath(options->openPath, dir, name, ext);
    if (ext[0] != '\0' && options->formats != nullptr && IsSourceExt(ext)) {
        index = GetFormatIndex(frame, kTypeList, ext);
        if (index >= 0) {
            zv::CopyBounded(options->srcExt, ext);
            char key[zv::kKeySize];
            zv::CopyBounded(key, ZvGetInternalExt(options->formats, options->srcExt));
            options->srcType = TypeOfKey(key);
            DLGPROC proc = nullptr;
            enable = SourceDialogOf(key, &proc) != 0;
        }
    }
    SendDlgItemMessageA(frame, kTypeList, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    EnableOptions(enable);
}

void OnOptionsButton(HWND child)
{
    // The source dialog takes the guard itself; the open dialog has it back
    // when the source dialog ends.
    DialogGuardRelease release;
    OptionContext* options = Options();
    char name[zv::kLongPathSize] = {};
    char key[zv::kKeySize] = {};
    if (GetSpecIntoWork(FileDialogFrame(child))) {
        char dir[zv::kLongPathSize] = {}, ext[zv::kLongPathSize] = {};
        ZvSplitPath(options->openPath, dir, name, ext);
        CharUpperA(ext);
        zv::CopyBounded(options->srcExt, ext);
        zv::CopyBounded(key, ZvGetInternalExt(options->formats, options->srcExt));
        options->srcType = TypeOfKey(key);
    }
    if (zv::EqualNoCase(key, "CUT")) {
        // The CUT reading needs its palette file: a file dialog of its own.
        CUTSrcDlg(child, name);
        return;
    }
    DLGPROC proc = nullptr;
    unsigned short id = SourceDialogOf(key, &proc);
    if (id == 0)
        return;
    // The nested entry fills the record again from its arguments: it gets
    // a copy, not the record's own field.
    char srcExt[sizeof options->srcExt];
    zv::CopyBounded(srcExt, options->srcExt);
    DoSrcOptionsDlg(child, proc, id, nullptr, nullptr, nullptr, nullptr, srcExt, nullptr, options->operation,
                    options->srcType, nullptr);
}

void ShowOpenHelp(HWND control, UINT command)
{
    static const DWORD pairs[] = {IDC_OPEN_OPTIONS, kHelpOptionsButton, IDC_OPEN_WARNINGS, kHelpWarningsBox, 0, 0};
    SeamWinHelp(control, Options()->helpFile, command, reinterpret_cast<ULONG_PTR>(pairs));
}

bool HasOpenHelp(int id)
{
    return id == IDC_OPEN_OPTIONS || id == IDC_OPEN_WARNINGS;
}

void OnInitDone(HWND child)
{
    OptionContext* options = Options();
    HWND frame = FileDialogFrame(child);
    openHookDlg = child;
    openOldDlgProc = reinterpret_cast<DLGPROC>(
        SetWindowLongPtrA(frame, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(OpenDlgFrameProc)));
    WatchFileNameBox(frame, OnNameChange);
    if (lstrcmpiA(options->appTitle, "Zavrin PRO") == 0) {
        if (TagIsOn(options->tags, "SHOWWARNINGS"))
            CheckDlgButton(child, IDC_OPEN_WARNINGS, BST_CHECKED);
    } else if (HWND box = GetDlgItem(child, IDC_OPEN_WARNINGS)) {
        DestroyWindow(box);
    }
    static const int kButtons[] = {IDC_OPEN_OPTIONS};
    AlignWithOkButton(frame, child, kButtons, 1);
    SetForegroundWindow(frame);
}

void OnNotify(HWND child, const OFNOTIFYA* notice)
{
    OptionContext* options = Options();
    switch (notice->hdr.code) {
    case CDN_INITDONE:
        OnInitDone(child);
        break;
    case CDN_FILEOK:
        if (GetDlgItem(child, IDC_OPEN_WARNINGS) != nullptr)
            ZvSetGlobalTag(options->tags, "SHOWWARNINGS",
                           IsDlgButtonChecked(child, IDC_OPEN_WARNINGS) == BST_CHECKED ? "ON" : "OFF");
        break;
    case CDN_HELP:
        SeamWinHelp(options->parentWnd, options->helpFile, HELP_CONTEXT, kHelpOpenDialog);
        break;
    case CDN_SELCHANGE:
        OnSelectionChange(child);
        break;
    default:
        break;
    }
}

}  // namespace

UINT_PTR CALLBACK OpenDlgHookProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NOTIFY:
        OnNotify(child, reinterpret_cast<const OFNOTIFYA*>(lParam));
        break;
    case WM_DESTROY:
        UnwatchFileNameBox();
        if (openOldDlgProc != nullptr) {
            SetWindowLongPtrA(FileDialogFrame(child), DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(openOldDlgProc));
            openOldDlgProc = nullptr;
        }
        openHookDlg = nullptr;
        break;
    case WM_HELP: {
        const auto* info = reinterpret_cast<const HELPINFO*>(lParam);
        if (info != nullptr && HasOpenHelp(info->iCtrlId))
            ShowOpenHelp(static_cast<HWND>(info->hItemHandle), HELP_WM_HELP);
        break;
    }
    case WM_CONTEXTMENU: {
        HWND control = reinterpret_cast<HWND>(wParam);
        if (HasOpenHelp(GetDlgCtrlID(control)) && GetParent(control) == child)
            ShowOpenHelp(control, HELP_CONTEXTMENU);
        break;
    }
    case WM_COMMAND:
        if (LOWORD(wParam) == IDC_OPEN_OPTIONS && HIWORD(wParam) == BN_CLICKED)
            OnOptionsButton(child);
        break;
    default:
        break;
    }
    return 0;
}

LRESULT CALLBACK OpenDlgFrameProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND && LOWORD(wParam) == kFileNameEdit && HIWORD(wParam) == EN_CHANGE)
        OnNameChange(dialog);
    return CallWindowProcA(reinterpret_cast<WNDPROC>(openOldDlgProc), dialog, message, wParam, lParam);
}
