// The rotation page. The angle field (1805) holds the only copy of the angle
// while the page runs: the dial, the spin buttons and the labels all end in
// writing it, and the dial and the thumbnail read it whenever they paint.
// The thumbnail isn't recalculated while the dial is dragged or a spin
// button held: its paint validates and leaves, and the release repaints.
#include "adjust.h"

#include <algorithm>
#include <cmath>

#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "frame.h"
#include "image_ids.h"
#include "preview.h"
#include "ravicli.h"
#include "rotate_dial.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

constexpr unsigned long kRotateHelp = 1111;
constexpr UINT_PTR kSpinTimer = 203;
constexpr UINT kSpinRepeatMs = 100;

// Module-wide, as every dialog's buffers: the guard lets one page run.
int g_rotDragging = 0;
WNDPROC g_oldDialProc = nullptr;
WNDPROC g_oldPreviewProc = nullptr;
WNDPROC g_oldSpinProc = nullptr;

bool Checked(HWND dialog, int id)
{
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

int ShownAngle(HWND dialog, BOOL asSigned)
{
    return static_cast<int>(GetDlgItemInt(dialog, IDC_ROT_ANGLE, nullptr, asSigned));
}

bool CursorInside(HWND dialog, int id)
{
    POINT cursor = {};
    GetCursorPos(&cursor);
    RECT r = {};
    GetWindowRect(GetDlgItem(dialog, id), &r);
    return PtInRect(&r, cursor) != FALSE;
}

void DialAngleFromCursor(HWND dialog)
{
    POINT cursor = {};
    GetCursorPos(&cursor);
    RECT r = {};
    GetWindowRect(GetDlgItem(dialog, IDC_ROT_DIAL), &r);
    const int angle = zv::DialAngleFromPoint(cursor.x, cursor.y, r.left, r.top, r.right, r.bottom);
    if (ShownAngle(dialog, TRUE) != angle)
        SetDlgItemInt(dialog, IDC_ROT_ANGLE, static_cast<UINT>(angle), TRUE);
}

void PaintDial(HWND dial)
{
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(dial, &ps);
    RECT client = {};
    GetClientRect(dial, &client);
    const int d = std::min(client.right - client.left, client.bottom - client.top);
    Ellipse(dc, 0, 0, d, d);
    const int angle = static_cast<int>(GetDlgItemInt(GetParent(dial), IDC_ROT_ANGLE, nullptr, FALSE));
    const int c = d / 2, t = d / 10;
    HPEN pen = CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    HBRUSH brush = CreateSolidBrush(GetSysColor(COLOR_BTNFACE));
    HGDIOBJ oldPen = SelectObject(dc, pen);
    HGDIOBJ oldBrush = SelectObject(dc, brush);
    const POINT ticks[4][2] = {{{c, 0}, {c, t}}, {{d, c}, {d - t, c}}, {{c, d}, {c, d - t}}, {{0, c}, {t, c}}};
    for (const auto& tick : ticks) {
        MoveToEx(dc, tick[0].x, tick[0].y, nullptr);
        LineTo(dc, tick[1].x, tick[1].y);
    }
    // t is both an offset in degrees and one in pixels: the pointer's
    // shoulders sit t degrees beside the tip and t pixels in from the rim.
    const zv::DialPointXY left = zv::DialPoint(c, angle - t, c - t);
    const zv::DialPointXY tip = zv::DialPoint(c, angle, c);
    const zv::DialPointXY right = zv::DialPoint(c, angle + t, c - t);
    const POINT pointer[4] = {{c, c}, {left.x, left.y}, {tip.x, tip.y}, {right.x, right.y}};
    Polygon(dc, pointer, 4);
    Ellipse(dc, c - t, c - t, c + t, c + t);
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);
    EndPaint(dial, &ps);
}

LRESULT CALLBACK DialProc(HWND dial, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PAINT)
        PaintDial(dial);
    return CallWindowProcA(g_oldDialProc, dial, message, wParam, lParam);
}

void ClearControl(HWND control)
{
    RECT client = {};
    GetClientRect(control, &client);
    HDC dc = GetDC(control);
    HPEN pen = CreatePen(PS_SOLID, 1, GetSysColor(COLOR_BTNFACE));
    HBRUSH brush = CreateSolidBrush(GetSysColor(COLOR_BTNFACE));
    HGDIOBJ oldPen = SelectObject(dc, pen);
    HGDIOBJ oldBrush = SelectObject(dc, brush);
    Rectangle(dc, 0, 0, client.right, client.bottom);
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);
    ReleaseDC(control, dc);
}

void PaintRotatedPreview(HWND control)
{
    PAINTSTRUCT ps;
    BeginPaint(control, &ps);
    EndPaint(control, &ps);
    if (Options()->previewDewey == nullptr)
        return;
    HWND page = GetParent(control);
    const bool held = GetKeyState(VK_LBUTTON) < 0;
    if (held && (GetCapture() == page || CursorInside(page, IDC_ROT_SPIN_UP) || CursorInside(page, IDC_ROT_SPIN_DOWN)))
        return;
    ClearControl(control);
    // The tag counts clockwise; the engine turns the other way.
    const float engineAngle = static_cast<float>(360 - ShownAngle(page, FALSE));
    FitPreview(control, engineAngle, IDC_ROT_PREVIEW_FRAME);
    SetPreviewRotation(engineAngle, Checked(page, IDC_ROT_FLIPV) ? 1 : 0, Checked(page, IDC_ROT_FLIPH) ? 1 : 0);
    PaintPreview(control);
}

LRESULT CALLBACK PreviewProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_PAINT)
        return CallWindowProcA(g_oldPreviewProc, control, message, wParam, lParam);
    PaintRotatedPreview(control);
    return 1;
}

// A held spin button repeats its step every 100 ms while the cursor is on
// it; the click itself steps once through BN_CLICKED.
LRESULT CALLBACK SpinProc(HWND button, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_LBUTTONDOWN:
        SetTimer(button, kSpinTimer, kSpinRepeatMs, nullptr);
        break;
    case WM_LBUTTONUP:
        KillTimer(button, kSpinTimer);
        break;
    case WM_TIMER: {
        if (GetKeyState(VK_LBUTTON) < 0) {
            HWND page = GetParent(button);
            if (CursorInside(page, IDC_ROT_SPIN_UP))
                PostMessageA(page, WM_COMMAND, IDC_ROT_SPIN_UP, 0);
            else if (CursorInside(page, IDC_ROT_SPIN_DOWN))
                PostMessageA(page, WM_COMMAND, IDC_ROT_SPIN_DOWN, 0);
        }
        return 1;
    }
    default:
        break;
    }
    return CallWindowProcA(g_oldSpinProc, button, message, wParam, lParam);
}

WNDPROC Subclass(HWND dialog, int id, WNDPROC proc)
{
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(GetDlgItem(dialog, id), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc)));
}

void PutBack(HWND dialog, int id, WNDPROC proc)
{
    if (proc != nullptr)
        SetWindowLongPtrA(GetDlgItem(dialog, id), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc));
}

void InitRotatePage(HWND dialog)
{
    OptionContext* o = Options();
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    if (o->operation == 2)
        PutDestinationInCaption(dialog);
    DisplayCheckBoxTag(dialog, IDC_ROT_FLIPV, prefix, "FLIPV", o->tags);
    DisplayCheckBoxTag(dialog, IDC_ROT_FLIPH, prefix, "FLIPH", o->tags);
    SetScrollRange(GetDlgItem(dialog, IDC_ROT_SCROLL), SB_CTL, 0, 360, FALSE);
    g_oldDialProc = Subclass(dialog, IDC_ROT_DIAL, DialProc);
    g_oldPreviewProc = Subclass(dialog, IDC_ROT_PREVIEW, PreviewProc);
    g_oldSpinProc = Subclass(dialog, IDC_ROT_SPIN_UP, SpinProc);
    Subclass(dialog, IDC_ROT_SPIN_DOWN, SpinProc);
    int angle = 0;
    if (o->operation == 3 || o->operation == 5)
        angle = static_cast<int>(std::trunc(ZvGetFloatTag(o->tags, TagKey(o->destKey, "ROT"))));
    SetDlgItemInt(dialog, IDC_ROT_ANGLE, static_cast<UINT>(angle), FALSE);
    SendDlgItemMessageA(dialog, IDC_ROT_ANGLE, EM_SETSEL, 0, -1);
    SetFocus(GetDlgItem(dialog, IDC_ROT_ANGLE));
    if (o->previewDewey != nullptr)
        FitPreview(GetDlgItem(dialog, IDC_ROT_PREVIEW), 0.0f, IDC_ROT_PREVIEW_FRAME);
    else
        ShowWindow(GetDlgItem(dialog, IDC_ROT_PREVIEW), SW_HIDE);
    // An entity has no mirror image.
    if (o->sourceDewey != nullptr && o->sourceDewey->IsEntity() != 0) {
        for (int id : {IDC_ROT_FLIP_GROUP, IDC_ROT_FLIPV, IDC_ROT_FLIPH})
            EnableWindow(GetDlgItem(dialog, id), FALSE);
    }
    g_rotDragging = 0;
    HideApplyButton(dialog);
}

void RetrieveRotatePage(HWND dialog)
{
    OptionContext* o = Options();
    o->pageValid = 1;
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    RetrieveEditFloatTag(dialog, IDC_ROT_ANGLE, IDC_ROT_ANGLE_LABEL, o->destKey, "ROT", 0.0, 360.0, o->tags,
                         &o->pageValid);
    RetrieveCheckBoxTag(dialog, IDC_ROT_FLIPV, prefix, "FLIPV", o->tags);
    RetrieveCheckBoxTag(dialog, IDC_ROT_FLIPH, prefix, "FLIPH", o->tags);
}

// The angle field changed: a value off the circle is folded and written
// back, which raises this handler again with the folded value.
void OnAngleChange(HWND dialog)
{
    ZvYield();
    HWND edit = GetDlgItem(dialog, IDC_ROT_ANGLE);
    if (g_rotDragging == 0 && GetFocus() == edit && ZvWaitForInput(edit) == 0)
        return;
    int folded = 0;
    if (zv::FoldAngle(ShownAngle(dialog, TRUE), &folded)) {
        SetDlgItemInt(dialog, IDC_ROT_ANGLE, static_cast<UINT>(folded), FALSE);
        return;
    }
    InvalidateRect(GetDlgItem(dialog, IDC_ROT_DIAL), nullptr, FALSE);
    InvalidateRect(GetDlgItem(dialog, IDC_ROT_PREVIEW), nullptr, FALSE);
}

void OnButtonUp(HWND dialog)
{
    if (g_rotDragging) {
        DialAngleFromCursor(dialog);
        ReleaseCapture();
        ZvSetCursor(GetDlgItem(dialog, IDC_ROT_DIAL), LoadCursorA(nullptr, IDC_ARROW));
        g_rotDragging = 0;
        // The one recalculation of the thumbnail for the whole drag.
        InvalidateRect(GetDlgItem(dialog, IDC_ROT_PREVIEW), nullptr, FALSE);
        return;
    }
    static const struct {
        int id;
        UINT angle;
    } kLabels[] = {{IDC_ROT_AT_0, 0}, {IDC_ROT_AT_90, 90}, {IDC_ROT_AT_180, 180}, {IDC_ROT_AT_270, 270}};
    for (const auto& label : kLabels) {
        if (!CursorInside(dialog, label.id))
            continue;
        // The focus leaves the field first, so that the new angle isn't
        // taken for typing still going on.
        SetFocus(GetDlgItem(GetParent(dialog), IDOK));
        SetDlgItemInt(dialog, IDC_ROT_ANGLE, label.angle, FALSE);
    }
}

}  // namespace

CRotatePropPage::CRotatePropPage() : CPropertyPage(IDD_ROTATE) {}

CRotatePropPage::~CRotatePropPage()
{
    FreePreviews();
}

LRESULT CRotatePropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    if (AnswerPageHelp(message, wParam, lParam, kRotateHelp, &answer))
        return answer;
    HWND dialog = m_hWnd;
    switch (message) {
    case WM_INITDIALOG:
        InitRotatePage(dialog);
        return 0;
    case WM_DESTROY:
        PutBack(dialog, IDC_ROT_DIAL, g_oldDialProc);
        PutBack(dialog, IDC_ROT_PREVIEW, g_oldPreviewProc);
        PutBack(dialog, IDC_ROT_SPIN_UP, g_oldSpinProc);
        PutBack(dialog, IDC_ROT_SPIN_DOWN, g_oldSpinProc);
        break;
    case WM_NOTIFY: {
        const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
        if (code == PSN_KILLACTIVE) {
            RetrieveRotatePage(dialog);
            if (Options()->pageValid == 0)
                return 1;
        } else if (code == PSN_SETACTIVE) {
            InvalidateRect(::GetDlgItem(dialog, IDC_ROT_PREVIEW), nullptr, TRUE);
        }
        break;
    }
    case WM_DRAWITEM:
        DrawSpinControl(lParam, wParam == IDC_ROT_SPIN_UP ? 1 : 0);
        return 1;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_ROT_FLIPV:
        case IDC_ROT_FLIPH:
            InvalidateRect(::GetDlgItem(dialog, IDC_ROT_PREVIEW), nullptr, FALSE);
            break;
        case IDC_ROT_ANGLE:
            if (HIWORD(wParam) == EN_CHANGE) {
                OnAngleChange(dialog);
                return 1;
            }
            break;
        case IDC_ROT_SPIN_UP:
            ::SendMessageA(dialog, WM_VSCROLL, SB_LINEUP, reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDC_ROT_SCROLL)));
            return 1;
        case IDC_ROT_SPIN_DOWN:
            ::SendMessageA(dialog, WM_VSCROLL, SB_LINEDOWN,
                         reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDC_ROT_SCROLL)));
            return 1;
        default:
            break;
        }
        break;
    case WM_VSCROLL: {
        const int v = ShownAngle(dialog, TRUE);
        const int code = LOWORD(wParam);
        const int stepped = code == SB_LINEUP ? zv::SpinAngle(v, true) : code == SB_LINEDOWN ? zv::SpinAngle(v, false) : v;
        ::SetDlgItemInt(dialog, IDC_ROT_ANGLE, static_cast<UINT>(stepped), FALSE);
        return 1;
    }
    case WM_LBUTTONDOWN:
        if (CursorInside(dialog, IDC_ROT_DIAL)) {
            SetCapture(dialog);
            ZvSetCursor(::GetDlgItem(dialog, IDC_ROT_DIAL), LoadCursorA(nullptr, IDC_SIZEALL));
            g_rotDragging = 1;
        }
        break;
    case WM_MOUSEMOVE:
        if (g_rotDragging)
            DialAngleFromCursor(dialog);
        break;
    case WM_LBUTTONUP:
        OnButtonUp(dialog);
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CRotatePropPage::OnOK()
{
    OptionContext* o = Options();
    if (o->operation == 0) {
        char key[zv::kKeySize] = {};
        const char* internal = o->srcExt[0] ? ZvGetInternalExt(o->formats, o->srcExt) : "";
        zv::MakeKey(key, internal != nullptr ? internal : "", "~~~");
        const short angle = static_cast<short>(std::trunc(ZvGetFloatTag(o->tags, "~~~ROT")));
        ZvSetTag(o->tags, "~~~ROT", "");
        const short flipV = TagIsOn(o->tags, TagKey(key, "FLIPV")) ? 1 : 0;
        ZvSetTag(o->tags, TagKey(key, "FLIPV"), "");
        const short flipH = TagIsOn(o->tags, TagKey(key, "FLIPH")) ? 1 : 0;
        ZvSetTag(o->tags, TagKey(key, "FLIPH"), "");
        // The picture the user saw is the image turned and flipped from
        // where it stands; a full turn without flips is no change and makes
        // no step in the engine's history.
        const bool change = angle % 360 != 0 || flipV != 0 || flipH != 0;
        if (o->sourceDewey != nullptr && change)
            o->sourceDewey->Rotate(static_cast<short>(360 - angle), flipV, flipH);
    }
    CPropertyPage::OnOK();
}

void CRotatePropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
