// PICPGLSrcDlgProc: the plotter formats PIC and PGL draw with sixteen
// numbered pens, and the dialog gives each pen a colour and a width. The
// table is written the moment a list changes, so Cancel keeps it; only the
// scaling choice waits for OK.
#include <cstdio>
#include <cstring>

#include "bounded_text.h"
#include "core_win.h"
#include "frame_tables.h"
#include "module.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

constexpr std::size_t kTableSize = 128;
// The working values of the running dialog, taken at its start.
char g_penKey[zv::kKeySize];
char g_pen[10];
char g_trim[256];
char g_colorValues[kTableSize];
char g_colorMap[kTableSize];
char g_widths[kTableSize];

enum PenTagKind { kPenColor = 0, kPenWidth = 1, kPenShown = 2 };

void MakePenTagKey(int kind, const char* prefix, const char* pen, char (&out)[zv::kKeySize])
{
    switch (kind) {
    case kPenColor: std::snprintf(out, sizeof out, "%sP%s", prefix, pen); break;
    case kPenWidth: std::snprintf(out, sizeof out, "%sW%s", prefix, pen); break;
    default: std::snprintf(out, sizeof out, "%sSRCPEN", prefix); break;
    }
}

// The item at index of a "~"-separated list, at most size - 1 characters.
void ListItem(const char* list, int index, char* out, std::size_t size)
{
    out[0] = '\0';
    for (int i = 0; i < index && list != nullptr; ++i) {
        list = std::strchr(list, '~');
        if (list != nullptr)
            ++list;
    }
    if (list == nullptr)
        return;
    std::size_t length = std::strcspn(list, "~");
    zv::CopyBounded(out, length + 1 < size ? length + 1 : size, list);
}

int FindListItem(const char* list, const char* value)
{
    char item[kTableSize];
    for (int i = 0;; ++i) {
        ListItem(list, i, item, sizeof item);
        if (item[0] == '\0')
            return -1;
        if (std::strcmp(item, value) == 0)
            return i;
    }
}

TagSet* Tags()
{
    return Options()->tags;
}

bool IsPenZero()
{
    return g_pen[0] == '0';
}

void LoadPenList(HWND dialog, int list, int label, int shown, int values, const char* kind)
{
    char name[zv::kKeySize];
    std::snprintf(name, sizeof name, "%s%s", kind, g_pen);
    LoadList(dialog, list, label, shown, values, g_penKey, name, LibraryModule(), Tags());
}

void EnableWidth(HWND dialog, bool on)
{
    EnableWindow(GetDlgItem(dialog, IDC_PEN_WIDTH), on ? TRUE : FALSE);
    EnableWindow(GetDlgItem(dialog, IDC_PEN_WIDTH_LABEL), on ? TRUE : FALSE);
    if (!on)
        SendDlgItemMessageA(dialog, IDC_PEN_WIDTH, CB_RESETCONTENT, 0, 0);
}

void ShowPenColor(HWND dialog)
{
    char key[zv::kKeySize];
    MakePenTagKey(kPenColor, g_penKey, g_pen, key);
    if (const char* value = ZvGetTag(Tags(), key)) {
        SendDlgItemMessageA(dialog, IDC_PEN_COLOR, CB_SETCURSEL, static_cast<WPARAM>(FindListItem(g_colorValues, value)), 0);
        return;
    }
    // The pen's default colour: the map names its index in the colour list.
    char index[3];
    ListItem(g_colorMap, StringToInt(g_pen), index, sizeof index);
    int colour = StringToInt(index);
    SendDlgItemMessageA(dialog, IDC_PEN_COLOR, CB_SETCURSEL, static_cast<WPARAM>(colour), 0);
    char value[7];
    ListItem(g_colorValues, colour, value, sizeof value);
    ZvSetTag(Tags(), key, value);
}

void ShowPenWidth(HWND dialog)
{
    char key[zv::kKeySize];
    MakePenTagKey(kPenWidth, g_penKey, g_pen, key);
    if (const char* value = ZvGetTag(Tags(), key)) {
        SendDlgItemMessageA(dialog, IDC_PEN_WIDTH, CB_SETCURSEL, static_cast<WPARAM>(FindListItem(g_widths, value)), 0);
        return;
    }
    ZvSetTag(Tags(), key, "1");
    SendDlgItemMessageA(dialog, IDC_PEN_WIDTH, CB_SETCURSEL, 0, 0);
}

void InitPenTable(HWND dialog)
{
    LoadSourceKey(g_penKey);
    HINSTANCE module = LibraryModule();
    LoadStringA(module, IDS_PEN_COLOR_VALUES, g_colorValues, sizeof g_colorValues);
    LoadStringA(module, zv::EqualNoCase(g_penKey, "PIC") ? IDS_PIC_COLOR_MAP : IDS_PGL_COLOR_MAP, g_colorMap,
                sizeof g_colorMap);
    LoadStringA(module, IDS_PEN_WIDTHS, g_widths, sizeof g_widths);

    char key[zv::kKeySize];
    MakePenTagKey(kPenShown, g_penKey, "", key);
    if (const char* shown = ZvGetTag(Tags(), key)) {
        zv::CopyBounded(g_pen, shown);
    } else {
        zv::CopyBounded(g_pen, "1");
        ZvSetTag(Tags(), key, g_pen);
    }
    LoadList(dialog, IDC_PEN_NUMBER, IDC_PEN_NUMBER_LABEL, IDS_PEN_NUMBERS, 0, g_penKey, "SRCPEN", module, Tags());
    LoadPenList(dialog, IDC_PEN_COLOR, IDC_PEN_COLOR_LABEL, IDS_PEN_COLORS, IDS_PEN_COLOR_VALUES, "P");
    if (IsPenZero())
        EnableWidth(dialog, false);
    else
        LoadPenList(dialog, IDC_PEN_WIDTH, IDC_PEN_WIDTH_LABEL, IDS_PEN_WIDTHS, 0, "W");

    if (zv::EqualNoCase(g_penKey, "PGL")) {
        zv::TagKey trim(g_penKey, "MINMAX");
        if (const char* stored = ZvGetTag(Tags(), trim)) {
            zv::CopyBounded(g_trim, stored);
        } else {
            zv::CopyBounded(g_trim, "OFF");
            ZvSetTag(Tags(), trim, g_trim);
        }
        CheckDlgButton(dialog, IDC_PGL_TRIM, zv::IsOn(g_trim) ? BST_CHECKED : BST_UNCHECKED);
    }
    DisplayScalingChoice(dialog, g_penKey);
    SetFocus(GetDlgItem(dialog, IDC_PEN_NUMBER));
}

void OnPenChange(HWND dialog)
{
    int sel = static_cast<int>(SendDlgItemMessageA(dialog, IDC_PEN_NUMBER, CB_GETCURSEL, 0, 0));
    char key[zv::kKeySize];
    MakePenTagKey(kPenShown, g_penKey, "", key);
    ZvSetIntTag(Tags(), key, sel);
    char shown[sizeof g_pen] = {};
    zv::CopyBounded(shown, ZvGetTag(Tags(), key));
    const bool fromZero = IsPenZero();
    if (fromZero && sel > 0) {
        EnableWidth(dialog, true);
        zv::CopyBounded(g_pen, shown);
        LoadPenList(dialog, IDC_PEN_WIDTH, IDC_PEN_WIDTH_LABEL, IDS_PEN_WIDTHS, 0, "W");
    }
    zv::CopyBounded(g_pen, shown);
    ShowPenColor(dialog);
    if (IsPenZero())
        EnableWidth(dialog, false);
    else
        ShowPenWidth(dialog);
}

void OnColorChange(HWND dialog)
{
    int sel = static_cast<int>(SendDlgItemMessageA(dialog, IDC_PEN_COLOR, CB_GETCURSEL, 0, 0));
    char value[7], key[zv::kKeySize];
    ListItem(g_colorValues, sel, value, sizeof value);
    MakePenTagKey(kPenColor, g_penKey, g_pen, key);
    ZvSetTag(Tags(), key, value);
}

void OnWidthChange(HWND dialog)
{
    int sel = static_cast<int>(SendDlgItemMessageA(dialog, IDC_PEN_WIDTH, CB_GETCURSEL, 0, 0));
    char value[3], key[zv::kKeySize];
    ListItem(g_widths, sel, value, sizeof value);
    MakePenTagKey(kPenWidth, g_penKey, g_pen, key);
    ZvSetTag(Tags(), key, value);
}

void OnTrimClick(HWND dialog)
{
    // Each click turns the value over and writes it at once.
    zv::CopyBounded(g_trim, zv::IsOn(g_trim) ? "OFF" : "ON");
    ZvSetTag(Tags(), zv::TagKey(g_penKey, "MINMAX"), g_trim);
    CheckDlgButton(dialog, IDC_PGL_TRIM, zv::IsOn(g_trim) ? BST_CHECKED : BST_UNCHECKED);
}

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK PICPGLSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelpPicPglSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        InitPenTable(dialog);
        break;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_PEN_NUMBER:
            if (HIWORD(wParam) == CBN_SELCHANGE)
                OnPenChange(dialog);
            break;
        case IDC_PEN_COLOR:
            if (HIWORD(wParam) == CBN_SELCHANGE)
                OnColorChange(dialog);
            break;
        case IDC_PEN_WIDTH:
            if (HIWORD(wParam) == CBN_SELCHANGE)
                OnWidthChange(dialog);
            break;
        case IDC_PGL_TRIM:
            if (HIWORD(wParam) == BN_CLICKED)
                OnTrimClick(dialog);
            break;
        case IDOK:
            RetrieveScalingChoice(dialog, g_penKey);
            EndDialog(dialog, 1);
            break;
        }
        break;
    }
    return 0;
}
