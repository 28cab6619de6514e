// The colour changes page and the colour picker. The page works on a copy of
// the global "RGB" pairs; a change marks the copy ("DELETE" for a pair that
// goes), and leaving the page writes the copy into the root set, past the
// sheet's child set, so that a later Cancel of the sheet keeps it.
#include "adjust.h"

#include <commdlg.h>

#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "dialog_guard.h"
#include "frame.h"
#include "image_ids.h"
#include "module.h"
#include "okaheap40.h"
#include "okaio32.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

constexpr unsigned long kEditColorsHelp = 1214;
constexpr unsigned long kColorPickerHelp = 1200;
constexpr int kRowHeight = 30;
constexpr int kColourDialogHelpButton = 1038;
// Posted to the host after the colours of its image changed in place.
constexpr WPARAM kColoursChangedCommand = 34099;

// Module-wide, between WM_INITDIALOG and WM_DESTROY of the page.
TagSet* g_colorTags = nullptr;
OkiList* g_colorList = nullptr;
char* g_colorKey = nullptr;
int g_colorsChanged = 0;

struct Row {
    COLORREF from;
    COLORREF to;
};

Row* RowOf(OkiNode* node)
{
    return static_cast<Row*>(OkiNodeData(node));
}

OkiNode* NodeAt(int index)
{
    OkiNode* node = OkiNextNode(g_colorList, nullptr);
    for (int i = 0; node != nullptr && i < index; ++i)
        node = OkiNextNode(g_colorList, node);
    return node;
}

IRGB ToIrgb(COLORREF c)
{
    return IRGB{GetRValue(c), GetGValue(c), GetBValue(c)};
}

// colorKey := "RGB" + the six digits of `from`.
const char* KeyOf(COLORREF from)
{
    char digits[8] = {};
    GetTextHexRGB(from, digits);
    lstrcpynA(g_colorKey, "RGB", zv::kKeySize);
    lstrcpynA(g_colorKey + 3, digits, zv::kKeySize - 3);
    return g_colorKey;
}

UINT_PTR CALLBACK ColourHook(HWND, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_HELP || (message == WM_COMMAND && LOWORD(wParam) == kColourDialogHelpButton)) {
        ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, 0), kColorPickerHelp);
        return 1;
    }
    return 0;
}

void EnableRowButtons(HWND dialog, BOOL enable)
{
    EnableWindow(GetDlgItem(dialog, IDC_EDC_MODIFY), enable);
    EnableWindow(GetDlgItem(dialog, IDC_EDC_DELETE), enable);
}

void BuildColorList(HWND dialog)
{
    g_colorList = OkiCreateList();
    TagSearch* search = ZvOpenTagSearch(g_colorTags, "RGB");
    while (const char* digits = ZvTagSearch(search)) {
        OkiNode* node = OkiCreateNode(sizeof(Row));
        if (node == nullptr)
            break;
        RowOf(node)->from = GetColorRefFromTextRGB(digits);
        RowOf(node)->to = GetColorRefFromTextRGB(ZvGetTag(g_colorTags, TagKey("RGB", digits)));
        OkiAddTail(g_colorList, node);
    }
    delete search;
    for (OkiNode* node = OkiNextNode(g_colorList, nullptr); node != nullptr; node = OkiNextNode(g_colorList, node))
        SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(node));
}

void InitEditColorsPage(HWND dialog)
{
    OptionContext* o = Options();
    g_colorsChanged = 0;
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    if (o->operation == 2)
        PutDestinationInCaption(dialog);
    g_colorTags = new TagSet;
    g_colorKey = static_cast<char*>(OkiAllocSMem(zv::kKeySize));
    TagSearch* search = ZvOpenTagSearch(o->tags, "RGB");
    while (const char* digits = ZvTagSearch(search)) {
        const char* key = TagKey("RGB", digits);
        if (const char* value = ZvGetTag(o->tags, key))
            ZvSetTag(g_colorTags, key, value);
    }
    delete search;
    // WM_MEASUREITEM of a fixed owner-drawn list comes while the dialog is
    // being made, before the page's procedure is attached: the height is
    // set here as well.
    SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_SETITEMHEIGHT, 0, kRowHeight);
    BuildColorList(dialog);
    SetFocus(GetDlgItem(dialog, IDC_EDC_LIST));
    if (SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_SETCURSEL, 0, 0) != LB_ERR)
        EnableRowButtons(dialog, TRUE);
    DisplayCheckBoxTag(dialog, IDC_EDC_APPLY, prefix, "APPLYCOLORS", o->tags);
    HideApplyButton(dialog);
}

void FrameRow(const DRAWITEMSTRUCT* item, int dx, int dy, UINT state, HBRUSH on)
{
    RECT r = item->rcItem;
    InflateRect(&r, dx, dy);
    HBRUSH window = CreateSolidBrush(GetSysColor(COLOR_WINDOW));
    FrameRect(item->hDC, &r, (item->itemState & state) ? on : window);
    DeleteObject(window);
}

void DrawRowSelect(const DRAWITEMSTRUCT* item, int dx, int dy)
{
    FrameRow(item, dx, dy, ODS_SELECTED, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

void DrawRowFocus(const DRAWITEMSTRUCT* item, int dx, int dy)
{
    FrameRow(item, dx, dy, ODS_FOCUS, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH)));
}

void FillSwatch(HDC dc, int left, int top, int right, int bottom, COLORREF colour)
{
    RECT r = {left, top, right, bottom};
    HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &r, brush);
    DeleteObject(brush);
}

void DrawRow(const DRAWITEMSTRUCT* item, int dx, int dy)
{
    const Row* row = item->itemData != 0 ? RowOf(reinterpret_cast<OkiNode*>(item->itemData)) : nullptr;
    if (row == nullptr)
        return;
    RECT r = item->rcItem;
    InflateRect(&r, dx, dy);
    const int c = r.right / 2;
    const int t = r.top;
    FillSwatch(item->hDC, r.left, r.top, c - 18, r.bottom, row->from);
    FillSwatch(item->hDC, c + 25, r.top, r.right, r.bottom, row->to);
    HPEN pen = CreatePen(PS_SOLID, 2, RGB(0, 0, 0));
    HGDIOBJ old = SelectObject(item->hDC, pen);
    MoveToEx(item->hDC, c - 13, t + 11, nullptr);
    LineTo(item->hDC, c + 20, t + 11);
    LineTo(item->hDC, c + 13, t + 4);
    MoveToEx(item->hDC, c + 20, t + 11, nullptr);
    LineTo(item->hDC, c + 12, t + 19);
    SelectObject(item->hDC, old);
    DeleteObject(pen);
    DrawRowSelect(item, -3, -2);
    DrawRowFocus(item, -5, -4);
}

void OnDrawItem(const DRAWITEMSTRUCT* item)
{
    if (item->itemID == static_cast<UINT>(-1))
        DrawRowFocus(item, -5, -4);
    else if (item->itemAction == ODA_DRAWENTIRE)
        DrawRow(item, -7, -4);
    else if (item->itemAction == ODA_SELECT)
        DrawRowSelect(item, -3, -2);
    else if (item->itemAction == ODA_FOCUS)
        DrawRowFocus(item, -5, -4);
}

void OnModify(HWND dialog)
{
    const int i = static_cast<int>(SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_GETCURSEL, 0, 0));
    OkiNode* node = NodeAt(i);
    if (node == nullptr)
        return;
    Row* row = RowOf(node);
    // The dialog starts on the colour that is to change.
    IRGB from = ToIrgb(row->from), result = {};
    if (!PickColor(Options()->parentWnd, &from, &result))
        return;
    g_colorsChanged = 1;
    row->to = RGB(result.red, result.green, result.blue);
    SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_SETITEMDATA, i, reinterpret_cast<LPARAM>(node));
    InvalidateRect(GetDlgItem(dialog, IDC_EDC_LIST), nullptr, TRUE);
    char to[8] = {};
    GetTextHexRGB(row->to, to);
    ZvSetTag(g_colorTags, KeyOf(row->from), to);
}

void OnDelete(HWND dialog)
{
    int i = static_cast<int>(SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_GETCURSEL, 0, 0));
    SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_DELETESTRING, i, 0);
    if (OkiNode* node = NodeAt(i)) {
        ZvSetTag(g_colorTags, KeyOf(RowOf(node)->from), "DELETE");
        OkiDestroyNode(OkiExtractNode(g_colorList, node));
    }
    const int n = static_cast<int>(SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_GETCOUNT, 0, 0));
    if (n <= i && i > 0)
        --i;
    if (n <= 0)
        EnableRowButtons(dialog, FALSE);
    else
        SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_SETCURSEL, i, 0);
    g_colorsChanged = 1;
}

void OnClear(HWND dialog)
{
    SendDlgItemMessageA(dialog, IDC_EDC_LIST, LB_RESETCONTENT, 0, 0);
    for (OkiNode* node = OkiNextNode(g_colorList, nullptr); node != nullptr; node = OkiNextNode(g_colorList, node))
        ZvSetTag(g_colorTags, KeyOf(RowOf(node)->from), "DELETE");
    OkiDestroyList(g_colorList);
    g_colorList = OkiCreateList();
    EnableRowButtons(dialog, FALSE);
    g_colorsChanged = 1;
}

void OnLeavePage(HWND dialog)
{
    OptionContext* o = Options();
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    if (g_colorsChanged) {
        TagSearch* search = ZvOpenTagSearch(g_colorTags, "RGB");
        while (const char* digits = ZvTagSearch(search)) {
            const char* key = TagKey("RGB", digits);
            const char* value = ZvGetTag(g_colorTags, key);
            char text[16] = {};
            if (value != nullptr && !zv::EqualNoCase(value, "DELETE"))
                zv::CopyBounded(text, value);
            ZvSetGlobalTag(o->tags, key, text);
        }
        delete search;
    }
    if (!RetrieveCheckBoxTag(dialog, IDC_EDC_APPLY, prefix, "APPLYCOLORS", o->tags))
        return;
    TagSearch* search = ZvOpenTagSearch(o->tags, "RGB");
    while (const char* digits = ZvTagSearch(search)) {
        IRGB from = ToIrgb(GetColorRefFromTextRGB(digits));
        IRGB to = ToIrgb(GetColorRefFromTextRGB(ZvGetTag(o->tags, TagKey("RGB", digits))));
        if (o->operation == 0 && o->sourceDewey != nullptr)
            o->sourceDewey->ChangeColor(&from, &to);
    }
    delete search;
}

}  // namespace

BOOL PickColor(HWND owner, IRGB* in, IRGB* out)
{
    COLORREF custom[16];
    custom[0] = RGB(in->red, in->green, in->blue);
    for (int i = 1; i < 16; ++i)
        custom[i] = RGB((i - 1) * 17, (i - 1) * 17, (i - 1) * 17);
    CHOOSECOLORA choose = {};
    choose.lStructSize = sizeof choose;
    choose.hwndOwner = owner;
    choose.hInstance = reinterpret_cast<HWND>(LibraryModule());
    choose.rgbResult = custom[0];
    choose.lpCustColors = custom;
    choose.lpfnHook = ColourHook;
    choose.Flags = CC_RGBINIT | CC_SHOWHELP | CC_ENABLEHOOK;
    const BOOL chosen = ChooseColorA(&choose);
    // On Cancel the dialog leaves the colour it started on.
    *out = ToIrgb(chosen ? choose.rgbResult : custom[0]);
    return chosen;
}

extern "C" ZVOPT32_API int DoColorDlg(HWND parent, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats,
                                      char* srcExt, char* destExt, short operation, IRGB* in, IRGB* out)
{
    DialogGuard guard(__func__);
    if (!guard.Held())
        return 0;
    InitOptionContext(parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0, nullptr, 0);
    return PickColor(parent, in, out);
}

CEditColorsPropPage::CEditColorsPropPage() : CPropertyPage(IDD_EDIT_COLORS) {}

CEditColorsPropPage::~CEditColorsPropPage() = default;

LRESULT CEditColorsPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    if (AnswerPageHelp(message, wParam, lParam, kEditColorsHelp, &answer))
        return answer;
    HWND dialog = m_hWnd;
    switch (message) {
    case WM_INITDIALOG:
        InitEditColorsPage(dialog);
        return 0;
    case WM_MEASUREITEM:
        reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = kRowHeight;
        break;
    case WM_DRAWITEM:
        OnDrawItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return 1;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_EDC_MODIFY:
            OnModify(dialog);
            return 1;
        case IDC_EDC_DELETE:
            OnDelete(dialog);
            return 1;
        case IDC_EDC_CLEAR:
            OnClear(dialog);
            return 1;
        case IDC_EDC_LIST:
            if (HIWORD(wParam) == LBN_SELCHANGE)
                EnableRowButtons(dialog, TRUE);
            break;
        default:
            break;
        }
        break;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == PSN_KILLACTIVE)
            OnLeavePage(dialog);
        break;
    case WM_DESTROY:
        OkiDestroyList(g_colorList);
        g_colorList = nullptr;
        delete g_colorTags;
        g_colorTags = nullptr;
        OkiFreeSMem(g_colorKey);
        g_colorKey = nullptr;
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CEditColorsPropPage::OnOK()
{
    const OptionContext* o = Options();
    if (o->operation == 0)
        ::PostMessageA(o->parentWnd, WM_COMMAND, kColoursChangedCommand, 0);
    CPropertyPage::OnOK();
}

void CEditColorsPropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
