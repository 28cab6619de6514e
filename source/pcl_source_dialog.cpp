// PCLSrcDlgProc: a PCL print file may rely on soft fonts that were sent to
// the printer in files of their own; the dialog keeps the list of those font
// files, one tag "PCLLF" + path per file. Every change goes into a child set
// of the caller's tags, so that OK takes the changes over at once by a fuse
// and Cancel drops them all with the child.
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

// The tag of one font file is the prefix and the file's full path.
constexpr char kFontPrefix[] = "PCLLF";
constexpr std::size_t kFontKeySize = sizeof kFontPrefix + zv::kLongPathSize;
// One string of the filter chain, and the joined chain.
constexpr int kFilterStringSize = 256;
constexpr int kFilterTextSize = 1024;

char g_pclKey[zv::kKeySize];
TagSet* pclSavedChild = nullptr;
TagSet* pclTags = nullptr;

void FontKey(char (&key)[kFontKeySize], const char* path)
{
    zv::CopyBounded(key, kFontPrefix);
    zv::AppendBounded(key, path);
}

LRESULT ListMessage(HWND dialog, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return SendDlgItemMessageA(dialog, IDC_PCL_FONTS, message, wParam, lParam);
}

void EnableDelete(HWND dialog, bool on)
{
    EnableWindow(GetDlgItem(dialog, IDC_PCL_DELETE), on ? TRUE : FALSE);
}

// The child set takes every change of the dialog; reads through it still
// find what the caller holds.
void OpenChildSet(HWND dialog)
{
    TagSet* tags = Options()->tags;
    pclSavedChild = tags->GetLastChild();
    pclTags = new TagSet;  // the suite's heap gives null when it has no room
    if (pclTags == nullptr) {
        // Without a child the changes go straight into the caller's tags.
        Diagnostic("%s: no memory for the font list's tags", __func__);
        pclTags = tags;
        return;
    }
    tags->SetChild(pclTags);
    int count = 0;
    if (TagSearch* search = ZvOpenTagSearch(pclTags, kFontPrefix)) {
        while (const char* path = ZvTagSearch(search)) {
            ListMessage(dialog, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(path));
            ++count;
        }
        delete search;
    }
    if (count == 0) {
        EnableDelete(dialog, false);
        SetFocus(GetDlgItem(dialog, IDOK));
    } else {
        EnableDelete(dialog, ListMessage(dialog, LB_SETCURSEL, 0) != LB_ERR);
        SetFocus(GetDlgItem(dialog, IDC_PCL_FONTS));
    }
}

void CloseChildSet()
{
    TagSet* tags = Options()->tags;
    if (pclTags != nullptr && pclTags != tags) {
        tags->SetChild(pclSavedChild);
        delete pclTags;
    }
    pclTags = nullptr;
    pclSavedChild = nullptr;
}

void DeleteSelectedFont(HWND dialog)
{
    LRESULT selected = ListMessage(dialog, LB_GETCURSEL);
    if (selected == LB_ERR)
        return;
    char path[zv::kLongPathSize] = {};
    LRESULT length = ListMessage(dialog, LB_GETTEXTLEN, static_cast<WPARAM>(selected));
    if (length == LB_ERR || length >= static_cast<LRESULT>(sizeof path))
        return;
    ListMessage(dialog, LB_GETTEXT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(path));
    char key[kFontKeySize];
    FontKey(key, path);
    // An empty value hides the font of the caller's tags too, and the fuse
    // at OK carries the removal up.
    ZvSetTag(pclTags, key, "");
    LRESULT left = ListMessage(dialog, LB_DELETESTRING, static_cast<WPARAM>(selected));
    if (left == LB_ERR || left == 0) {
        EnableDelete(dialog, false);
        return;
    }
    ListMessage(dialog, LB_SETCURSEL, static_cast<WPARAM>(selected < left ? selected : left - 1));
    SetFocus(GetDlgItem(dialog, IDC_PCL_FONTS));
}

void ClearFonts(HWND dialog)
{
    if (TagSearch* search = ZvOpenTagSearch(pclTags, kFontPrefix)) {
        while (const char* path = ZvTagSearch(search)) {
            char key[kFontKeySize];
            FontKey(key, path);
            if (ZvGetTag(pclTags, key) != nullptr)
                ZvSetTag(pclTags, key, "");
        }
        delete search;
    }
    ListMessage(dialog, LB_RESETCONTENT);
    EnableDelete(dialog, false);
}

}  // namespace

// The pairs of the font dialog's type list: the extension of the last added
// font first, then the chain of strings from stringId on. Element 0 is the
// whole filter text with NULs between the parts; the others point into it.
char** LoadPclFilterList(int stringId, int* count)
{
    char text[kFilterTextSize] = {};
    const char* lastExt = pclTags != nullptr ? ZvGetTag(pclTags, "PCLIEXT") : nullptr;
    if (lastExt != nullptr) {
        char label[kFilterStringSize] = {};
        LoadStringA(LibraryModule(), IDS_PCL_FONT_FILES, label, sizeof label);
        char upper[zv::kKeySize] = {}, lower[zv::kKeySize] = {};
        zv::CopyBounded(upper, lastExt);
        zv::CopyBounded(lower, lastExt);
        CharUpperA(upper);
        CharLowerA(lower);
        zv::AppendBounded(text, label);
        zv::AppendBounded(text, " (*.");
        zv::AppendBounded(text, upper);
        zv::AppendBounded(text, ")~*.");
        zv::AppendBounded(text, lower);
        zv::AppendBounded(text, "~");
    }
    // The chain goes on while each string ends in "~".
    for (int id = stringId;; ++id) {
        char part[kFilterStringSize] = {};
        int length = LoadStringA(LibraryModule(), id, part, sizeof part);
        if (length <= 0)
            break;
        zv::AppendBounded(text, part);
        if (part[length - 1] != '~')
            break;
    }

    const std::size_t textSize = std::strlen(text) + 1;
    int parts = 0;
    for (const char* c = text; *c != '\0'; ++c)
        if (*c == '~')
            ++parts;
    // Element 0 and one element behind each "~"; a null ends the array.
    char** list = static_cast<char**>(OkiAllocSMem(static_cast<unsigned long>((parts + 2) * sizeof(char*))));
    char* buffer = static_cast<char*>(OkiAllocSMem(static_cast<unsigned long>(textSize + 1)));
    if (list == nullptr || buffer == nullptr) {
        OkiFreeSMem(list);
        OkiFreeSMem(buffer);
        if (count != nullptr)
            *count = 0;
        return nullptr;
    }
    std::memcpy(buffer, text, textSize);
    buffer[textSize] = '\0';  // the system reads the filter up to two NULs
    int found = 0;
    list[found++] = buffer;
    for (char* c = buffer; *c != '\0'; ++c) {
        if (*c != '~')
            continue;
        *c = '\0';
        list[found++] = c + 1;
    }
    list[found] = nullptr;
    if (count != nullptr)
        *count = found / 2;
    return list;
}

void FreePclFilterList(char** list)
{
    if (list == nullptr)
        return;
    OkiFreeSMem(list[0]);
    OkiFreeSMem(list);
}

// Asks for a font file on the classic file dialog and lists it; non-zero
// when a file was chosen.
int AddPclFontFile(HWND dialog)
{
    int count = 0;
    char** list = LoadPclFilterList(IDS_PCL_FONT_FILTER, &count);
    if (list == nullptr || count == 0) {
        FreePclFilterList(list);
        return 0;
    }
    char file[zv::kLongPathSize] = {}, fileTitle[zv::kLongPathSize] = {};
    char dir[zv::kLongPathSize] = {}, name[zv::kLongPathSize] = {}, ext[zv::kLongPathSize] = {};
    zv::CopyBounded(file, list[1]);
    ZvSplitPath(file, dir, name, ext);
    zv::CopyBounded(fileTitle, name);
    zv::AppendBounded(fileTitle, ".");
    zv::AppendBounded(fileTitle, ext);

    char start[zv::kLongPathSize] = {};
    if (const char* stored = ZvGetTag(pclTags, "PCLFPATH")) {
        zv::CopyBounded(start, stored);
    } else {
        // The first time the fonts are looked for where files are opened.
        if (const char* openDir = ZvGetTag(pclTags, "OPENDIR"))
            zv::CopyBounded(start, openDir);
        else
            GetTempPathA(sizeof start, start);
        ZvSetTag(pclTags, "PCLFPATH", start);
    }

    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = dialog;
    ofn.hInstance = LibraryModule();
    ofn.lpstrFilter = list[0];
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = file;
    ofn.nMaxFile = sizeof file;
    ofn.lpstrFileTitle = fileTitle;
    ofn.nMaxFileTitle = sizeof fileTitle;
    ofn.lpstrInitialDir = start;
    ofn.lpstrDefExt = ext;
    ofn.Flags = OFN_FILEMUSTEXIST | OFN_ENABLETEMPLATE | OFN_ENABLEHOOK | OFN_SHOWHELP;
    ofn.lpfnHook = PCLFontHookProc;
    ofn.lpTemplateName = "PCLFontDlg";
    BOOL chosen = GetOpenFileNameA(&ofn);
    if (!chosen) {
        Diagnostic("%s: no font file chosen (dialog error %lu)", __func__, CommDlgExtendedError());
        FreePclFilterList(list);
        return 0;
    }
    char chosenDir[zv::kLongPathSize] = {}, chosenName[zv::kLongPathSize] = {}, chosenExt[zv::kLongPathSize] = {};
    ZvSplitPath(file, chosenDir, chosenName, chosenExt);
    char key[kFontKeySize];
    FontKey(key, file);
    ZvSetTag(pclTags, key, "1");
    LRESULT entry = ListMessage(dialog, LB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(file));
    if (entry == LB_ERR)
        entry = ListMessage(dialog, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(file));
    if (entry != LB_ERR && entry != LB_ERRSPACE)
        ListMessage(dialog, LB_SETCURSEL, static_cast<WPARAM>(entry));
    ZvSetTag(pclTags, "PCLFPATH", chosenDir);
    ZvSetTag(pclTags, "PCLIEXT", chosenExt);
    FreePclFilterList(list);
    return chosen;
}

extern "C" ZVOPT32_API UINT_PTR CALLBACK PCLFontHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        SetFocus(GetDlgItem(dialog, 1152));
        SendDlgItemMessageA(dialog, 1152, EM_SETSEL, 0, -1);
        break;
    case WM_HELP:
    case WM_CONTEXTMENU:
        ShowContextHelp(message, wParam, lParam);
        break;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDHELP)
            ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpPclFonts);
        break;
    }
    return 0;
}

extern "C" ZVOPT32_API INT_PTR CALLBACK PCLSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelpPclSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_pclKey);
        OpenChildSet(dialog);
        if (zv::IsOn(ZvGetTag(pclTags, zv::TagKey(g_pclKey, "MINMAX"))))
            CheckDlgButton(dialog, IDC_PCL_TRIM, BST_CHECKED);
        DisplayScalingChoice(dialog, g_pclKey);
        // The focus was set here.
        return FALSE;
    case WM_DESTROY:
        CloseChildSet();
        break;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDOK:
            ZvSetTag(pclTags, zv::TagKey(g_pclKey, "MINMAX"),
                     IsDlgButtonChecked(dialog, IDC_PCL_TRIM) == BST_CHECKED ? "ON" : "");
            RetrieveScalingChoice(dialog, g_pclKey);
            if (pclTags != Options()->tags)
                pclTags->FuseWithParent();
            EndDialog(dialog, 1);
            break;
        case IDC_PCL_ADD:
            if (AddPclFontFile(dialog))
                EnableDelete(dialog, true);
            break;
        case IDC_PCL_DELETE:
            DeleteSelectedFont(dialog);
            break;
        case IDC_PCL_CLEAR:
            ClearFonts(dialog);
            break;
        }
        break;
    }
    return 0;
}
