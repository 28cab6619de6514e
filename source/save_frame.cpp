// The save dialog at work: the hook of the child dialog and the procedure
// that replaces the system dialog's own. Every change of file type or of
// the typed extension carries the destination (and its tags) along.
#include <cstring>

#include "bounded_text.h"
#include "dialog_guard.h"
#include "frame_tables.h"
#include "module.h"
#include "file_dialog_parts.h"
#include "okamod32.h"
#include "option_core.h"
#include "resource_ids.h"
#include "scoped_flag.h"
#include "seams.h"
#include "source.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

constexpr int kTypeList = 1136;    // cmb1
constexpr int kNameEdit = kFileNameEdit;
constexpr int kSpecRoom = zv::kLongPathSize;
constexpr int kHelpOptionsButton = 1041;
constexpr int kHelpTargetAppButton = 1028;
constexpr int kHelpWarningsBox = 1067;

HWND NameBox(HWND frame)
{
    return FileNameBox(frame);
}

bool GetSpec(HWND frame, char* spec)
{
    spec[0] = '\0';
    LRESULT length = SendMessageA(frame, CDM_GETSPEC, kSpecRoom, reinterpret_cast<LPARAM>(spec));
    return length > 0 && spec[0] != '\0';
}

void SelectedTypeExt(HWND frame, char (&ext)[MAX_PATH])
{
    ext[0] = '\0';
    LRESULT index = SendDlgItemMessageA(frame, kTypeList, CB_GETCURSEL, 0, 0);
    if (index != CB_ERR)
        GetIndexExt(frame, kTypeList, static_cast<int>(index), ext);
}

bool IsDestination(const char* ext)
{
    OKAMOD* formats = Options()->formats;
    return ext[0] != '\0' && formats != nullptr && formats->IsDest(ZvGetIndex(formats, ext));
}

void SetDestKey(const char* ext)
{
    OptionContext* options = Options();
    const char* key = options->formats ? ZvGetInternalExt(options->formats, ext) : ext;
    zv::CopyBounded(options->destKey, key != nullptr ? key : "");
}

short RegistryType(const char* key)
{
    OKAMOD* formats = Options()->formats;
    return static_cast<short>(formats != nullptr ? formats->GetType(ZvGetIndex(formats, key)) : 0);
}

void EnableOptions(bool enable)
{
    if (saveHookDlg != nullptr)
        EnableWindow(GetDlgItem(saveHookDlg, IDC_SAVE_OPTIONS), enable);
}

// Another entry of the type list: the name box takes its extension, and the
// destination and its tags follow.
void OnTypeChange(HWND child)
{
    HWND frame = FileDialogFrame(child);
    char spec[kSpecRoom];
    if (saveFixupBusy || !GetSpec(frame, spec))
        return;
    OptionContext* options = Options();
    ScopedFlag busy(saveFixupBusy);
    char typeExt[MAX_PATH];
    SelectedTypeExt(frame, typeExt);
    if (strchr(spec, '.') == nullptr) {
        zv::AppendBounded(spec, ".");
        zv::AppendBounded(spec, typeExt);
    }
    PathParts parts;
    SplitPath(spec, parts);
    zv::CopyBounded(parts.ext, typeExt);
    ComposePath(parts, spec, sizeof spec);
    SetWindowTextA(NameBox(frame), spec);

    TranslateAllTags(options->tags, options->srcExt, options->destExt, parts.ext);
    zv::CopyBounded(options->destExt, parts.ext);
    SetDestKey(parts.ext);
    options->destType = RegistryType(options->destKey);
    EnableOptions(GetDestDlgId(options->destKey, options->destType, options->srcType) != 0);
}

// The user edits the name: a typed extension of a destination format that
// the type list offers selects that entry.
void OnNameChange(HWND frame)
{
    char spec[kSpecRoom];
    if (saveFixupBusy || !GetSpec(frame, spec))
        return;
    OptionContext* options = Options();
    int enable = 0;
    ScopedFlag busy(saveFixupBusy);
    PathParts parts;
    SplitPath(spec, parts);
    if (parts.ext[0] == '\0')
        SelectedTypeExt(frame, parts.ext);
    int entry = IsDestination(parts.ext) ? GetFormatIndex(frame, kTypeList, parts.ext) : -1;
    if (entry >= 0) {
        TranslateAllTags(options->tags, options->srcExt, options->destExt, parts.ext);
        zv::CopyBounded(options->destExt, parts.ext);
        SetDestKey(parts.ext);
        SendDlgItemMessageA(frame, kTypeList, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        // The type stays that of the last type change.
        enable = GetDestDlgId(options->destKey, options->destType, options->srcType);
    }
    EnableOptions(enable != 0);
}

// OK of the system dialog. Gives true when the message is answered here.
bool OnAccept(HWND frame)
{
    char spec[kSpecRoom];
    if (!GetSpec(frame, spec))
        return false;
    OptionContext* options = Options();
    PathParts parts;
    bool needExt = true;
    if (strchr(spec, '.') != nullptr) {
        SplitPath(spec, parts);
        needExt = !IsDestination(parts.ext);
    }
    if (needExt) {
        // A name whose extension names no destination keeps it and gets the
        // selected type's behind it: NOTES.XYZ becomes NOTES.XYZ.GIF. The
        // box shows the new name as if typed, so the destination follows.
        char typeExt[MAX_PATH];
        SelectedTypeExt(frame, typeExt);
        zv::AppendBounded(spec, ".");
        zv::AppendBounded(spec, typeExt);
        SetWindowTextA(NameBox(frame), spec);
        SplitPath(spec, parts);
    }
    char folder[MAX_PATH] = {};
    if (parts.dir[0] == '\0' &&
        SendMessageA(frame, CDM_GETFOLDERPATH, sizeof folder, reinterpret_cast<LPARAM>(folder)) > 0 &&
        folder[0] != '\0') {
        zv::CopyBounded(parts.dir, folder);
        ComposePath(parts, spec, sizeof spec);
    }
    if (strlen(spec) > 256) {
        char text[256] = {};
        LoadStringA(LibraryModule(), IDS_FILE_NAME_TOO_LONG, text, sizeof text);
        SeamMessageBox(options->parentWnd, text, options->appTitle, MB_ICONHAND);
        SetFocus(NameBox(frame));
        return true;
    }
    lstrcpynA(options->savePath, spec, kSpecRoom);
    if (parts.name[0] == '*') {
        // A wildcard name goes back to the caller as it is: the system would
        // only take it as a filter.
        EndDialog(frame, 1);
        return true;
    }
    return false;
}

void OnOptionsButton(HWND child)
{
    // The sheet and the metafile class dialog take the guard themselves.
    DialogGuardRelease release;
    OptionContext* options = Options();
    HWND parent = FileDialogFrame(child);
    if (SendMessageA(parent, CDM_GETSPEC, kSpecRoom, reinterpret_cast<LPARAM>(options->savePath)) <= 0)
        return;
    PathParts parts;
    SplitPath(options->savePath, parts);
    if (parts.ext[0] == '\0')
        SelectedTypeExt(parent, parts.ext);
    CharUpperA(parts.ext);
    zv::CopyBounded(options->destExt, parts.ext);
    SetDestKey(options->destExt);
    options->destType = RegistryType(options->destKey);

    // The nested entries fill the record again from their arguments:
    // they get copies, not the record's own fields.
    char srcExt[256], destExt[256], appTitle[256], helpFile[260];
    zv::CopyBounded(srcExt, options->srcExt);
    zv::CopyBounded(destExt, options->destExt);
    zv::CopyBounded(appTitle, options->appTitle);
    zv::CopyBounded(helpFile, options->helpFile);

    if (options->destType == kFormatMetafile && IsRasterType(options->srcType)) {
        // What a metafile made from a raster image holds is the user's
        // choice, and the sheet follows it.
        if (!DoMetafileClassDlg(parent, options->tags, appTitle, helpFile, options->formats, srcExt, destExt,
                                options->operation))
            return;
        // That dialog filled the record again with no source type: the
        // source is now what the registry says it is.
        options->destType = options->srcType;
        if (short chosen = ChosenMetafileClass())
            options->destType = chosen;
    }
    if (zv::EqualNoCase(options->destKey, "PIX"))
        options->destType = kFormatRaster;
    unsigned short id = GetDestDlgId(options->destKey, options->destType, options->srcType);
    if (id != 0)
        DoDestOptionsDlg(parent, id, nullptr, nullptr, nullptr, nullptr, srcExt, destExt, 2, options->srcType,
                         options->sourceDewey);
}

void OnTargetAppButton(HWND child)
{
    // The target application dialog takes the guard itself.
    DialogGuardRelease release;
    OptionContext* options = Options();
    HWND parent = FileDialogFrame(child);
    if (RunGuardedDialog(parent, IDD_TARGET_APP, TargetAppDlgProc) == 0)
        return;
    const char* tag = IsRasterType(options->srcType) ? "RDESTTYPE" : "VDESTTYPE";
    if (const char* chosen = ZvGetTag(options->tags, tag))
        zv::CopyBounded(options->destExt, chosen);
    int entry = GetFormatIndex(parent, kTypeList, options->destExt);
    if (entry >= 0)
        SendDlgItemMessageA(parent, kTypeList, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    if (SendMessageA(parent, CDM_GETSPEC, kSpecRoom, reinterpret_cast<LPARAM>(options->savePath)) <= 0)
        return;
    PathParts parts;
    SplitPath(options->savePath, parts);
    char name[kSpecRoom];
    zv::CopyBounded(name, parts.name);
    if (options->destExt[0] != '\0') {
        zv::AppendBounded(name, ".");
        zv::AppendBounded(name, options->destExt);
    }
    // The box shows the new name as if typed: the name handling carries the
    // destination and the Options button along with it.
    SetWindowTextA(NameBox(parent), name);
}

void ShowSaveHelp(HWND control, UINT command)
{
    static const DWORD pairs[] = {IDC_SAVE_OPTIONS,  kHelpOptionsButton, IDC_SAVE_TARGETAPP,
                                  kHelpTargetAppButton, IDC_SAVE_WARNINGS, kHelpWarningsBox, 0, 0};
    SeamWinHelp(control, Options()->helpFile, command, reinterpret_cast<ULONG_PTR>(pairs));
}

bool HasSaveHelp(int id)
{
    return id == IDC_SAVE_OPTIONS || id == IDC_SAVE_TARGETAPP || id == IDC_SAVE_WARNINGS;
}

void WatchNameCombo(HWND frame)
{
    WatchFileNameBox(frame, OnNameChange);
}

void UnwatchNameCombo()
{
    UnwatchFileNameBox();
}

void OnInitDone(HWND child)
{
    OptionContext* options = Options();
    HWND frame = FileDialogFrame(child);
    saveHookDlg = child;
    saveOldDlgProc = reinterpret_cast<DLGPROC>(
        SetWindowLongPtrA(frame, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(SaveDlgFrameProc)));
    WatchNameCombo(frame);

    if (lstrcmpiA(options->appTitle, "Zavrin PRO") == 0) {
        if (TagIsOn(options->tags, "SHOWWARNINGS"))
            CheckDlgButton(child, IDC_SAVE_WARNINGS, BST_CHECKED);
    } else if (HWND box = GetDlgItem(child, IDC_SAVE_WARNINGS)) {
        DestroyWindow(box);
    }
    EnableWindow(GetDlgItem(child, IDC_SAVE_OPTIONS), TRUE);
    static const int kButtons[] = {IDC_SAVE_OPTIONS, IDC_SAVE_TARGETAPP};
    AlignWithOkButton(frame, child, kButtons, 2);
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
        if (GetDlgItem(child, IDC_SAVE_WARNINGS) != nullptr)
            ZvSetGlobalTag(options->tags, "SHOWWARNINGS",
                           IsDlgButtonChecked(child, IDC_SAVE_WARNINGS) == BST_CHECKED ? "ON" : "OFF");
        break;
    case CDN_HELP:
        SeamWinHelp(options->parentWnd, options->helpFile, HELP_CONTEXT, IDC_SAVE_OPTIONS);
        break;
    case CDN_TYPECHANGE:
        OnTypeChange(child);
        break;
    default:
        break;
    }
}

}  // namespace

UINT_PTR CALLBACK SaveDlgHookProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NOTIFY:
        OnNotify(child, reinterpret_cast<const OFNOTIFYA*>(lParam));
        break;
    case WM_DESTROY:
        UnwatchNameCombo();
        if (saveOldDlgProc != nullptr) {
            SetWindowLongPtrA(FileDialogFrame(child), DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(saveOldDlgProc));
            saveOldDlgProc = nullptr;
        }
        saveHookDlg = nullptr;
        break;
    case WM_HELP: {
        const auto* info = reinterpret_cast<const HELPINFO*>(lParam);
        if (info != nullptr && HasSaveHelp(info->iCtrlId))
            ShowSaveHelp(static_cast<HWND>(info->hItemHandle), HELP_WM_HELP);
        break;
    }
    case WM_CONTEXTMENU: {
        HWND control = reinterpret_cast<HWND>(wParam);
        if (HasSaveHelp(GetDlgCtrlID(control)) && GetParent(control) == child)
            ShowSaveHelp(control, HELP_CONTEXTMENU);
        break;
    }
    case WM_COMMAND:
        if (LOWORD(wParam) == IDC_SAVE_OPTIONS && HIWORD(wParam) == BN_CLICKED)
            OnOptionsButton(child);
        else if (LOWORD(wParam) == IDC_SAVE_TARGETAPP && HIWORD(wParam) == BN_CLICKED)
            OnTargetAppButton(child);
        break;
    default:
        break;
    }
    return 0;
}

LRESULT CALLBACK SaveDlgFrameProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND) {
        if (LOWORD(wParam) == kNameEdit && HIWORD(wParam) == EN_CHANGE)
            OnNameChange(dialog);
        else if (LOWORD(wParam) == IDOK && OnAccept(dialog))
            return TRUE;
    }
    return CallWindowProcA(reinterpret_cast<WNDPROC>(saveOldDlgProc), dialog, message, wParam, lParam);
}
