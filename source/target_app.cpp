// The Target Application dialog: the user names the program that will
// receive the file, and a row of the string table writes the tags that suit
// it. Also the small dialog that names a custom TIFF flavour.
#include <cstring>

#include "bounded_text.h"
#include "frame_tables.h"
#include "module.h"
#include "okamod32.h"
#include "option_core.h"
#include "resource_ids.h"
#include "source.h"
#include "target_app_table.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// Values of the running dialog: the child that hung under the tags before
// it, the child it hangs there itself, and the source type.
TagSet* g_keptChild = nullptr;
TagSet* g_appTags = nullptr;
short g_appType = 0;

char g_tiffFlavorName[256];

bool LoadTableString(void*, int id, char* text, std::size_t size)
{
    return LoadStringA(LibraryModule(), static_cast<UINT>(id), text, static_cast<int>(size)) > 0;
}

bool AddName(void* context, std::string_view entry)
{
    char name[zv::kTableStringRoom + 1];
    std::string_view shown = zv::TargetAppName(entry);
    std::size_t n = shown.size() < sizeof name - 1 ? shown.size() : sizeof name - 1;
    std::memcpy(name, shown.data(), n);
    name[n] = '\0';
    SendDlgItemMessageA(static_cast<HWND>(context), IDC_TARGET_APP_LIST, LB_ADDSTRING, 0,
                        reinterpret_cast<LPARAM>(name));
    return true;
}

struct Lookup {
    const char* name;
    char entry[zv::kTableStringRoom + 1];
    bool found;
};

bool FindRow(void* context, std::string_view entry)
{
    auto* lookup = static_cast<Lookup*>(context);
    std::string_view name = zv::TargetAppName(entry);
    if (name.size() != std::strlen(lookup->name) || _strnicmp(name.data(), lookup->name, name.size()) != 0)
        return true;
    std::size_t n = entry.size() < sizeof lookup->entry - 1 ? entry.size() : sizeof lookup->entry - 1;
    std::memcpy(lookup->entry, entry.data(), n);
    lookup->entry[n] = '\0';
    lookup->found = true;
    return false;
}

}  // namespace

bool ReadTiffFlavorDefinition(const char* flavor, char (&definition)[kTiffFlavorDefinitionSize + 1])
{
    definition[0] = '\0';
    // A registry key's name holds at most 255 characters; one that would be
    // cut names another key, or none.
    char keyName[256];
    zv::CopyBounded(keyName, kTiffFlavorsKey);
    if (zv::AppendBounded(keyName, flavor) != std::strlen(kTiffFlavorsKey) + std::strlen(flavor))
        return false;
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, keyName, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    DWORD size = kTiffFlavorDefinitionSize;
    DWORD type = 0;
    LONG status = RegQueryValueExA(key, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(definition), &size);
    RegCloseKey(key);
    // The value may be stored without its terminator; the byte behind the
    // room read is the buffer's own.
    definition[size < kTiffFlavorDefinitionSize ? size : kTiffFlavorDefinitionSize] = '\0';
    return status == ERROR_SUCCESS && (type == REG_SZ || type == REG_EXPAND_SZ);
}

namespace {

// A named TIFF flavour is defined under the classes root by other parts of
// the suite; its definition passes through here unread.
void ReadTiffFlavor(TagSet* tags, const char* flavor)
{
    char definition[kTiffFlavorDefinitionSize + 1];
    if (ReadTiffFlavorDefinition(flavor, definition))
        ZvSetTag(tags, "TIFTYPE", definition);
}

const char* AppTypeTag(short type)
{
    return IsRasterType(type) ? "RAPPTYPE" : "VAPPTYPE";
}

void InitTargetApp(HWND dialog)
{
    OptionContext* options = Options();
    // Everything the dialog writes goes into a child of its own, so that
    // Cancel leaves the host's tags untouched.
    g_keptChild = options->tags->GetLastChild();
    g_appTags = new TagSet;
    options->tags->SetChild(g_appTags);

    g_appType = static_cast<short>(
        options->formats ? options->formats->GetType(ZvGetIndex(options->formats, options->srcExt)) : 0);
    LoadTargetAppList(dialog, g_appType);

    LRESULT selection = 0;
    if (const char* stored = ZvGetTag(options->tags, AppTypeTag(g_appType))) {
        LRESULT found = SendDlgItemMessageA(dialog, IDC_TARGET_APP_LIST, LB_FINDSTRING, static_cast<WPARAM>(-1),
                                            reinterpret_cast<LPARAM>(stored));
        if (found != LB_ERR)
            selection = found;
    }
    SendDlgItemMessageA(dialog, IDC_TARGET_APP_LIST, LB_SETCURSEL, static_cast<WPARAM>(selection), 0);
    SetFocus(GetDlgItem(dialog, IDC_TARGET_APP_LIST));
}

void AcceptTargetApp(HWND dialog)
{
    OptionContext* options = Options();
    HWND list = GetDlgItem(dialog, IDC_TARGET_APP_LIST);
    LRESULT selection = SendMessageA(list, LB_GETCURSEL, 0, 0);
    if (selection != LB_ERR && SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(selection), 0) < 128) {
        char name[128] = {};
        if (SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(selection), reinterpret_cast<LPARAM>(name)) !=
            LB_ERR) {
            ZvSetTag(options->tags, AppTypeTag(g_appType), name);
            ApplyTargetApp(name, g_appType);
        }
    }
    g_appTags->FuseWithParent();
    EndDialog(dialog, 1);
}

}  // namespace

char* TiffCustomFlavorName()
{
    return g_tiffFlavorName;
}

int LoadTargetAppList(HWND dialog, short type)
{
    zv::TableEnd end = zv::WalkTargetAppTable(zv::TargetAppTableFor(type), LoadTableString, nullptr, AddName, dialog);
    return end == zv::TableEnd::kRegular ? 1 : 0;
}

int ApplyTargetApp(const char* name, short type)
{
    OptionContext* options = Options();
    Lookup lookup{name, {}, false};
    zv::WalkTargetAppTable(zv::TargetAppTableFor(type), LoadTableString, nullptr, FindRow, &lookup);
    if (!lookup.found)
        return 0;

    std::string_view rest(lookup.entry);
    rest.remove_prefix(zv::TargetAppName(rest).size());
    zv::TargetAppField field;
    while (zv::NextTargetAppField(rest, options->srcExt, field)) {
        ZvSetTag(options->tags, field.key, field.value);
        if (lstrcmpiA(field.key, "TIFFLAV") == 0)
            ReadTiffFlavor(options->tags, field.value);
    }
    return 1;
}

extern "C" ZVOPT32_API INT_PTR CALLBACK TargetAppDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG:
        InitTargetApp(dialog);
        return FALSE;  // the focus is set
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDOK:
            AcceptTargetApp(dialog);
            return TRUE;
        case IDCANCEL:
            EndDialog(dialog, 0);
            return TRUE;
        case IDHELP:
            ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpTargetApp);
            return TRUE;
        case IDC_TARGET_APP_LIST:
            if (HIWORD(wParam) == LBN_DBLCLK)
                SendMessageA(dialog, WM_COMMAND, IDOK, 0);
            return TRUE;
        default:
            return FALSE;
        }
    case WM_DESTROY:
        if (Options()->tags != nullptr)
            Options()->tags->SetChild(g_keptChild);
        delete g_appTags;
        g_appTags = nullptr;
        g_keptChild = nullptr;
        return FALSE;
    default:
        return FALSE;
    }
}

extern "C" ZVOPT32_API INT_PTR CALLBACK TiffAppDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG: {
        HWND name = GetDlgItem(dialog, IDC_TIFF_APP_NAME);
        SetFocus(name);
        SetWindowTextA(name, g_tiffFlavorName);
        SendMessageA(name, EM_SETSEL, 0, -1);
        return FALSE;
    }
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDOK:
            GetDlgItemTextA(dialog, IDC_TIFF_APP_NAME, g_tiffFlavorName, sizeof g_tiffFlavorName);
            EndDialog(dialog, 1);
            return TRUE;
        case IDCANCEL:
            EndDialog(dialog, 0);
            return TRUE;
        case IDHELP:
            ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpTiffApplications);
            return TRUE;
        default:
            return FALSE;
        }
    case WM_HELP:
        PostMessageA(dialog, WM_COMMAND, IDHELP, 0);
        return TRUE;
    case WM_CONTEXTMENU:
        ShowContextHelp(message, wParam, lParam);
        return TRUE;
    default:
        return FALSE;
    }
}
