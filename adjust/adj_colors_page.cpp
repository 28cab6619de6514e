// The contrast and brightness page. The bars and their number fields hold
// the three values; every change posts the private update message, and the
// update, run from the message loop, rebuilds the thumbnail only when the
// values differ from those shown. Without an image the page draws the
// intensity curve of the three values instead.
#include "adjust.h"

#include <initializer_list>
#include <algorithm>
#include <cmath>

#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "frame.h"
#include "image_ids.h"
#include "okacvt32.h"
#include "okaheap40.h"
#include "preview.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

constexpr unsigned long kAdjColorsHelp = 1220;
// Posted to the page itself; wParam is the state of the equalise box.
constexpr UINT WM_PREVIEWUPDATE = WM_USER + 1007;
constexpr int kLow = -100;
constexpr int kHigh = 100;
constexpr int kCurveIds[] = {IDC_ADJ_CURVE,   IDC_ADJ_CURVE_TITLE, IDC_ADJ_CURVE_IN,
                             IDC_ADJ_CURVE_O, IDC_ADJ_CURVE_U,     IDC_ADJ_CURVE_T};

// Module-wide, as every dialog's buffers: the guard lets one page run.
int g_adjUsePreview = 0;
WNDPROC g_oldPictureProc = nullptr;

struct Bar {
    int label, bar, edit;
    const char* name;
};
constexpr Bar kBars[] = {{IDC_ADJ_CONTRAST_LABEL, IDC_ADJ_CONTRAST, IDC_ADJ_CONTRAST_EDIT, "CONTRAST"},
                         {IDC_ADJ_BRIGHT_LABEL, IDC_ADJ_BRIGHT, IDC_ADJ_BRIGHT_EDIT, "BRIGHT"},
                         {IDC_ADJ_GAMMA_LABEL, IDC_ADJ_GAMMA, IDC_ADJ_GAMMA_EDIT, "GAMMA"}};

WPARAM HistState(HWND dialog)
{
    return IsDlgButtonChecked(dialog, IDC_ADJ_HIST) == BST_CHECKED ? 1 : 0;
}

short BarPosition(HWND dialog, int id)
{
    return static_cast<short>(SendDlgItemMessageA(dialog, id, TBM_GETPOS, 0, 0));
}

void PostUpdate(HWND dialog, WPARAM hist)
{
    PostMessageA(dialog, WM_PREVIEWUPDATE, hist, 0);
}

// The curve box and the thumbnail are drawn from the update message, never
// in their own paint, which only asks for an update.
LRESULT CALLBACK PictureProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_ERASEBKGND)
        return 1;
    if (message != WM_PAINT)
        return CallWindowProcA(g_oldPictureProc, control, message, wParam, lParam);
    PAINTSTRUCT ps;
    BeginPaint(control, &ps);
    EndPaint(control, &ps);
    HWND page = GetParent(control);
    PostUpdate(page, HistState(page));
    return 0;
}

void EnableAdjControls(HWND dialog, BOOL enable, int usePreview)
{
    for (int id = IDC_ADJ_CONTRAST_LABEL; id <= IDC_ADJ_GAMMA_EDIT; ++id)
        EnableWindow(GetDlgItem(dialog, id), enable);
    if (usePreview == 0)
        for (int id : kCurveIds)
            EnableWindow(GetDlgItem(dialog, id), enable);
}

void DestroyControls(HWND dialog, std::initializer_list<int> ids)
{
    for (int id : ids)
        if (HWND control = GetDlgItem(dialog, id))
            DestroyWindow(control);
}

void DrawIntensityCurve(HWND dialog)
{
    HWND box = GetDlgItem(dialog, IDC_ADJ_CURVE);
    if (box == nullptr)
        return;
    HDC dc = GetDC(box);
    RECT r = {};
    GetClientRect(box, &r);
    HPEN pen = CreatePen(PS_SOLID, 1, HistState(dialog) ? RGB(200, 200, 200) : RGB(0, 0, 0));
    HBRUSH brush = CreateSolidBrush(RGB(255, 255, 255));
    HGDIOBJ oldPen = SelectObject(dc, pen);
    HGDIOBJ oldBrush = SelectObject(dc, brush);
    Rectangle(dc, r.left, r.top, r.right, r.bottom);
    const short gamma = static_cast<short>(static_cast<int>(GetDlgItemInt(dialog, IDC_ADJ_GAMMA_EDIT, nullptr, TRUE)));
    const short contrast =
        static_cast<short>(static_cast<int>(GetDlgItemInt(dialog, IDC_ADJ_CONTRAST_EDIT, nullptr, TRUE)));
    const short bright = static_cast<short>(static_cast<int>(GetDlgItemInt(dialog, IDC_ADJ_BRIGHT_EDIT, nullptr, TRUE)));
    const short count = static_cast<short>(r.right - r.left);
    auto* table = count > 0 ? static_cast<unsigned char*>(OkiAllocSMem(static_cast<unsigned long>(count) * 4)) : nullptr;
    if (table != nullptr) {
        CvtCreateGammaValue(count, gamma, contrast, bright, table);
        MoveToEx(dc, r.left, r.bottom - 1, nullptr);
        for (int x = 0; x < count; ++x) {
            const int px = std::clamp(static_cast<int>(r.left + x), static_cast<int>(r.left), static_cast<int>(r.right));
            const int py = std::clamp(static_cast<int>(r.bottom - table[x]), static_cast<int>(r.top),
                                      static_cast<int>(r.bottom - 1));
            LineTo(dc, px, py);
        }
        OkiFreeSMem(table);
    }
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);
    ReleaseDC(box, dc);
}

void OnPreviewUpdate(HWND dialog, WPARAM hist)
{
    if (g_adjUsePreview == 0) {
        DrawIntensityCurve(dialog);
        return;
    }
    if (Options()->previewDewey == nullptr)
        return;
    SetPreviewGamma(BarPosition(dialog, IDC_ADJ_CONTRAST), BarPosition(dialog, IDC_ADJ_BRIGHT),
                    BarPosition(dialog, IDC_ADJ_GAMMA), static_cast<int>(hist));
    PaintPreview(GetDlgItem(dialog, IDC_ADJ_PREVIEW));
}

void InitAdjColorsPage(HWND dialog)
{
    OptionContext* o = Options();
    g_adjUsePreview = 0;
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    if (o->operation == 2)
        PutDestinationInCaption(dialog);
    const short op = o->operation;
    if ((op == 0 || op == 2 || op == 3 || op == 5) && o->sourceDewey != nullptr)
        g_adjUsePreview = 1;
    // Equalisation counts pixels: only a raster or a fax has them.
    if (o->srcType != 1 && o->srcType != 5)
        EnableWindow(GetDlgItem(dialog, IDC_ADJ_HIST), FALSE);
    for (const Bar& b : kBars)
        DisplayTrackBarTag(dialog, b.bar, b.edit, prefix, b.name, kLow, kHigh, o->tags);
    DisplayCheckBoxTag(dialog, IDC_ADJ_HIST, prefix, "HIST", o->tags);
    if (HistState(dialog))
        EnableAdjControls(dialog, FALSE, g_adjUsePreview);
    if (g_adjUsePreview && o->previewDewey != nullptr) {
        DestroyControls(dialog, {IDC_ADJ_CURVE, IDC_ADJ_CURVE_TITLE, IDC_ADJ_CURVE_IN, IDC_ADJ_CURVE_O,
                                 IDC_ADJ_CURVE_U, IDC_ADJ_CURVE_T});
    } else {
        DestroyControls(dialog, {IDC_ADJ_PREVIEW, IDC_ADJ_PREVIEW_FRAME});
        g_adjUsePreview = 0;
    }
    const int picture = g_adjUsePreview ? IDC_ADJ_PREVIEW : IDC_ADJ_CURVE;
    g_oldPictureProc = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(
        GetDlgItem(dialog, picture), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PictureProc)));
    HideApplyButton(dialog);
}

void RetrieveAdjColors(HWND dialog)
{
    OptionContext* o = Options();
    o->pageValid = 1;
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    for (const Bar& b : kBars)
        RetrieveTrackBarTag(dialog, b.bar, b.edit, b.label, prefix, b.name, kLow, kHigh, o->tags, &o->pageValid);
    RetrieveCheckBoxTag(dialog, IDC_ADJ_HIST, prefix, "HIST", o->tags);
}

// A number typed into a bar's field moves the bar; while a bar's thumb is
// dragged (the bar holds the capture) its field follows without starting
// image work, which waits for the thumb to let go.
void OnValueTyped(HWND dialog, int edit)
{
    HWND field = GetDlgItem(dialog, edit);
    if (ZvWaitForInput(field) == 0)
        return;
    char text[128] = {};
    GetWindowTextA(field, text, sizeof text);
    SendDlgItemMessageA(dialog, edit - 1, TBM_SETPOS, TRUE, StringToLong(text));
    if (GetCapture() == GetDlgItem(dialog, edit - 1))
        return;
    PostUpdate(dialog, 0);
}

void OnHistClick(HWND dialog)
{
    const WPARAM checked = HistState(dialog);
    EnableAdjControls(dialog, checked == 0, g_adjUsePreview);
    if (g_adjUsePreview) {
        const OptionContext* o = Options();
        if (checked) {
            // -101 is no bar's value: the next update rebuilds whatever it gets.
            SetPreviewGamma(-101, -101, -101, 1);
        } else {
            RebuildPreview(o->previewReverseBW, o->previewInvert, o->previewBVis, o->previewGrayize,
                           o->previewBlackize, static_cast<int>(std::trunc(o->previewRotation)), o->previewFlipV,
                           o->previewFlipH, BarPosition(dialog, IDC_ADJ_CONTRAST), BarPosition(dialog, IDC_ADJ_BRIGHT),
                           BarPosition(dialog, IDC_ADJ_GAMMA), 0);
        }
    }
    PostUpdate(dialog, checked);
}

}  // namespace

CAdjColorsPropPage::CAdjColorsPropPage() : CPropertyPage(IDD_ADJ_COLORS)
{
    // The track bars are common controls: their class must stand before
    // the template is made.
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
}

CAdjColorsPropPage::~CAdjColorsPropPage()
{
    FreePreviews();
}

LRESULT CAdjColorsPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    if (AnswerPageHelp(message, wParam, lParam, kAdjColorsHelp, &answer))
        return answer;
    HWND dialog = m_hWnd;
    switch (message) {
    case WM_INITDIALOG:
        InitAdjColorsPage(dialog);
        return 0;
    case WM_DESTROY: {
        HWND picture = ::GetDlgItem(dialog, g_adjUsePreview ? IDC_ADJ_PREVIEW : IDC_ADJ_CURVE);
        if (picture != nullptr && g_oldPictureProc != nullptr)
            SetWindowLongPtrA(picture, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_oldPictureProc));
        break;
    }
    case WM_NOTIFY: {
        const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
        if (code == PSN_KILLACTIVE) {
            RetrieveAdjColors(dialog);
            if (Options()->pageValid == 0)
                return 1;
        } else if (code == PSN_SETACTIVE) {
            OptionContext* o = Options();
            HWND preview = ::GetDlgItem(dialog, IDC_ADJ_PREVIEW);
            // The angle chosen on the sheet's rotation page shapes the frame.
            if (g_adjUsePreview && o->previewDewey != nullptr && preview != nullptr)
                FitPreview(preview, static_cast<float>(360.0 - ZvGetFloatTag(o->tags, TagKey(o->destKey, "ROT"))),
                           IDC_ADJ_PREVIEW_FRAME);
        }
        break;
    }
    case WM_PAINT: {
        PAINTSTRUCT ps;
        ::BeginPaint(dialog, &ps);
        ::EndPaint(dialog, &ps);
        PostUpdate(dialog, HistState(dialog));
        break;
    }
    case WM_PREVIEWUPDATE:
        OnPreviewUpdate(dialog, wParam);
        return 1;
    case WM_HSCROLL: {
        const int handled = HandleTrackBarScroll(dialog, wParam, lParam);
        if (handled == 0)
            return 0;
        if (LOWORD(wParam) != TB_THUMBTRACK)
            PostUpdate(dialog, 0);
        return handled;
    }
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_ADJ_CONTRAST_EDIT:
        case IDC_ADJ_BRIGHT_EDIT:
        case IDC_ADJ_GAMMA_EDIT:
            if (HIWORD(wParam) == EN_CHANGE) {
                OnValueTyped(dialog, LOWORD(wParam));
                return 1;
            }
            break;
        case IDC_ADJ_HIST:
            OnHistClick(dialog);
            break;
        default:
            break;
        }
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CAdjColorsPropPage::OnOK()
{
    OptionContext* o = Options();
    if (o->operation == 0) {
        char key[zv::kKeySize] = {};
        const char* internal = o->srcExt[0] ? ZvGetInternalExt(o->formats, o->srcExt) : "";
        zv::MakeKey(key, internal != nullptr ? internal : "", "~~~");
        if (TagIsOn(o->tags, TagKey(key, "HIST"))) {
            if (o->sourceDewey != nullptr)
                o->sourceDewey->Equalize();
            ZvSetTag(o->tags, TagKey(key, "HIST"), "OFF");
        } else {
            short values[3] = {};
            for (int i = 0; i < 3; ++i) {
                values[i] = static_cast<short>(ZvGetIntTag(o->tags, TagKey(key, kBars[i].name)));
                ZvSetTag(o->tags, TagKey(key, kBars[i].name), "0");
            }
            if (o->sourceDewey != nullptr)
                o->sourceDewey->Gamma(values[0], values[1], values[2]);
        }
    }
    CPropertyPage::OnOK();
}

void CAdjColorsPropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
