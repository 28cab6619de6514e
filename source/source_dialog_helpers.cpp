// The groups that the source dialogs share. They read and write the tags of
// the context's host set; the dialog in hand is the only one, so the values
// of the context are those of its format.
#include "source_dialogs.h"

#include <cstdio>

#include "core_win.h"
#include "okaio32.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The registry value is read into a buffer of this size.
constexpr DWORD kClassValueSize = 40;

TagSet* Tags()
{
    return Options()->tags;
}

void Enable(HWND dialog, int first, int last, bool on)
{
    for (int id = first; id <= last; ++id)
        EnableWindow(GetDlgItem(dialog, id), on ? TRUE : FALSE);
}

bool Checked(HWND dialog, int id)
{
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

void SetGlobalPair(const char* key, const char* firstName, const char* firstValue, const char* secondName,
                   const char* secondValue)
{
    ZvSetGlobalTag(Tags(), zv::TagKey(key, firstName), firstValue);
    ZvSetGlobalTag(Tags(), zv::TagKey(key, secondName), secondValue);
}

}  // namespace

void LoadSourceKey(char (&key)[zv::kKeySize])
{
    OptionContext* options = Options();
    zv::CopyBounded(key, ZvGetInternalExt(options->formats, options->srcExt));
    CharUpperA(key);
}

void ShowSrcDlgCaption(HWND dialog)
{
    const char* srcExt = Options()->srcExt;
    char caption[zv::kCaptionSize] = {};
    GetWindowTextA(dialog, caption, sizeof caption);
    if (zv::StartsWithNoCase(caption, srcExt))
        return;
    char shown[zv::kCaptionSize + 260];
    std::snprintf(shown, sizeof shown, "%s %s", srcExt, caption);
    SetWindowTextA(dialog, shown);
    DisplayCheckBoxTag(dialog, IDC_SRC_MEMORIZE, "", "MEMORIZE", Tags());
}

void DisplayScalingChoice(HWND dialog, const char* key)
{
    ShowSrcDlgCaption(dialog);
    if (Options()->operation == kOperationOpenWithTitle) {
        Enable(dialog, IDC_SRC_SCALE_OFF, IDC_SRC_SCALE_WIDTH, false);
        return;
    }
    zv::TagKey scale(key, "SCALE"), maxWidth(key, "MAXWIDTH");
    if (ZvGetTag(Tags(), scale) == nullptr && ZvGetTag(Tags(), maxWidth) == nullptr)
        ZvSetTag(Tags(), scale, "ON");
    int shown = IDC_SRC_SCALE_OFF;
    if (zv::IsOn(ZvGetTag(Tags(), scale)))
        shown = IDC_SRC_SCALE_WINDOW;
    else if (zv::IsOn(ZvGetTag(Tags(), maxWidth)))
        shown = IDC_SRC_SCALE_WIDTH;
    CheckRadioButton(dialog, IDC_SRC_SCALE_OFF, IDC_SRC_SCALE_WIDTH, shown);
}

void RetrieveScalingChoice(HWND dialog, const char* key)
{
    // Disabled scaling radios were never shown: what is stored stays.
    if (IsWindowEnabled(GetDlgItem(dialog, IDC_SRC_SCALE_OFF))) {
        if (Checked(dialog, IDC_SRC_SCALE_WINDOW))
            SetGlobalPair(key, "SCALE", "ON", "MAXWIDTH", "OFF");
        else if (Checked(dialog, IDC_SRC_SCALE_WIDTH))
            SetGlobalPair(key, "SCALE", "OFF", "MAXWIDTH", "ON");
        else
            SetGlobalPair(key, "SCALE", "OFF", "MAXWIDTH", "OFF");
    }
    RetrieveMemorizeChoice(dialog);
}

void RetrieveMemorizeChoice(HWND dialog)
{
    RetrieveCheckBoxTag(dialog, IDC_SRC_MEMORIZE, "", "MEMORIZE", Tags());
    char value[zv::kCaptionSize] = {};
    zv::CopyBounded(value, ZvGetTag(Tags(), "MEMORIZE"));
    ZvSetGlobalTag(Tags(), "MEMORIZE", value);
    if (!zv::IsOn(value) || Tags() == nullptr)
        return;
    if (TagSet* child = Tags()->GetLastChild())
        child->FuseWithParent();
}

void Display3dChoice(HWND dialog, const char* key)
{
    ShowSrcDlgCaption(dialog);
    // Virtual reality wins when both viewpoints are stored as on.
    int viewpoint = IDC_SRC_VIEW_KEYBOARD;
    if (zv::IsOn(ZvGetTag(Tags(), zv::TagKey(key, "CADDLG"))))
        viewpoint = IDC_SRC_VIEW_CAD;
    if (zv::IsOn(ZvGetTag(Tags(), zv::TagKey(key, "VRDLG"))))
        viewpoint = IDC_SRC_VIEW_VR;
    CheckRadioButton(dialog, IDC_SRC_VIEW_KEYBOARD, IDC_SRC_VIEW_CAD, viewpoint);
    int rendering = ZvGetIntTag(Tags(), zv::TagKey(key, "3DRENDER"));
    CheckRadioButton(dialog, IDC_SRC_RENDER_WIRE, IDC_SRC_RENDER_GOURAUD, IDC_SRC_RENDER_WIRE + rendering);
    EnableWindow(GetDlgItem(dialog, IDC_SRC_PERSPECTIVE), FALSE);
}

void Retrieve3dChoice(HWND dialog, const char* key)
{
    if (Checked(dialog, IDC_SRC_VIEW_CAD))
        SetGlobalPair(key, "CADDLG", "ON", "VRDLG", "OFF");
    else if (Checked(dialog, IDC_SRC_VIEW_VR))
        SetGlobalPair(key, "CADDLG", "OFF", "VRDLG", "ON");
    else
        SetGlobalPair(key, "CADDLG", "OFF", "VRDLG", "OFF");
    int rendering = Checked(dialog, IDC_SRC_RENDER_GOURAUD) ? 2 : Checked(dialog, IDC_SRC_RENDER_FLAT) ? 1 : 0;
    ZvSetGlobalIntTag(Tags(), zv::TagKey(key, "3DRENDER"), rendering);
    RetrieveCheckBoxTag(dialog, IDC_SRC_PERSPECTIVE, key, "3DPERSPECTIVE", Tags());
    RetrieveMemorizeChoice(dialog);
}

void MakeClassKeyPath(char* out, size_t size, const char* key)
{
    std::snprintf(out, size, "Zavrin.Image\\Formats\\%s\\Class", key);
}

int SwitchClassControls(HWND dialog, const char*, WPARAM wParam, LPARAM)
{
    if (HIWORD(wParam) != 0)
        return 0;
    switch (LOWORD(wParam)) {
    case IDC_SRC_CLASS_2D:
        Enable(dialog, IDC_SRC_SCALING, IDC_SRC_SCALE_WIDTH, true);
        Enable(dialog, IDC_SRC_VIEWPOINT, IDC_SRC_PERSPECTIVE, false);
        return IDC_SRC_CLASS_2D;
    case IDC_SRC_CLASS_3D:
        Enable(dialog, IDC_SRC_SCALING, IDC_SRC_SCALE_WIDTH, false);
        Enable(dialog, IDC_SRC_VIEWPOINT, IDC_SRC_RENDER_GOURAUD, true);
        return IDC_SRC_CLASS_3D;
    default:
        return 0;
    }
}

int DisplayClassChoice(HWND dialog, const char* key)
{
    ShowSrcDlgCaption(dialog);
    char path[zv::kKeySize + 40];
    MakeClassKeyPath(path, sizeof path, key);
    HKEY classKey = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, path, 0, KEY_QUERY_VALUE, &classKey) != ERROR_SUCCESS)
        return 0;
    char value[kClassValueSize] = {};
    DWORD size = sizeof value - 1;
    DWORD type = 0;
    if (RegQueryValueExA(classKey, nullptr, nullptr, &type, reinterpret_cast<BYTE*>(value), &size) != ERROR_SUCCESS) {
        RegCloseKey(classKey);
        return 0;
    }
    DisplayScalingChoice(dialog, key);
    Display3dChoice(dialog, key);
    const int kind = value[0] == 'E' || value[0] == 'e' ? IDC_SRC_CLASS_3D : IDC_SRC_CLASS_2D;
    CheckRadioButton(dialog, IDC_SRC_CLASS_2D, IDC_SRC_CLASS_3D, kind);
    int shown = SwitchClassControls(dialog, key, MAKEWPARAM(kind, 0), 0);
    RegCloseKey(classKey);
    return shown;
}

void RetrieveClassChoice(HWND dialog, const char* key)
{
    char path[zv::kKeySize + 40];
    MakeClassKeyPath(path, sizeof path, key);
    HKEY classKey = nullptr;
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, path, 0, KEY_SET_VALUE, &classKey) == ERROR_SUCCESS) {
        // The kind lives outside every tag set: it holds for every later
        // reading of the format on this machine.
        const bool twoD = Checked(dialog, IDC_SRC_CLASS_2D);
        const char* kind = twoD ? "V" : "E";
        RegSetValueExA(classKey, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(kind), 2);
        if (twoD)
            RetrieveScalingChoice(dialog, key);
        else
            Retrieve3dChoice(dialog, key);
        RegCloseKey(classKey);
    }
    RetrieveMemorizeChoice(dialog);
}

bool HandleCommonSourceMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, DWORD helpContext)
{
    switch (message) {
    case WM_HELP:
        // F1 acts as the Help button does.
        PostMessageA(dialog, WM_COMMAND, IDHELP, 0);
        return true;
    case WM_CONTEXTMENU:
        ShowContextHelp(message, wParam, lParam);
        return true;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDHELP) {
            ShowContextHelp(WM_COMMAND, IDHELP, helpContext);
            return true;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            EndDialog(dialog, 0);
            return true;
        }
        return false;
    default:
        return false;
    }
}
