// The print position page, "Print Options": a small picture of the sheet
// with the image as a rectangle on it, four numeric fields with spin
// buttons, "Center" and "Zoom to page", the units and the print choices.
// The numbers live in print_geometry.cpp; this file moves them between the
// record, the controls, the picture and the tags.
//
// The picture is drawn straight on the DCs of two static controls, outside
// their paint messages, and only what changed is redrawn: the old rectangle
// is wiped and the new one drawn. A drag moves in whole steps and pulls the
// cursor to the handle, so that it can't run away from the rectangle.
#include <cstdio>
#include <cstring>
#include <utility>

#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "frame.h"
#include "module.h"
#include "okaheap40.h"
#include "option_core.h"
#include "output_ids.h"
#include "preview.h"
#include "print.h"
#include "print_ids.h"
#include "ravicli.h"
#include "scoped_flag.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::PrintPosState;

namespace {

// Messages that the page posts or sends to itself.
constexpr UINT WM_PRINTPOSREDRAW = WM_USER + 1023;  // wParam 1: redraw even an unmoved rectangle
constexpr UINT WM_PRINTPOSFIELD = WM_USER + 1028;   // wParam the field, lParam 1: quiet
static_assert(WM_PRINTPOSREDRAW == 2047 && WM_PRINTPOSFIELD == 2052);

constexpr UINT_PTR kSpinTimer = 220;
constexpr UINT kSpinRepeatMs = 100;
constexpr int kFieldText = 32;
constexpr int kFirstSpin = IDC_PRN_TOP_UP, kLastSpin = IDC_PRN_HEIGHT_DOWN;

// The page's record: the numbers and what the page draws with.
struct PrintPosPage {
    PrintPosState s;
    HPEN framePen;
    HWND pageControl;
    HWND frameControl;
    HWND previewControl;
    WNDPROC oldPreviewProc;
};

// One page at a time: the record of the open page, or null.
PrintPosPage* page = nullptr;
// The units of the last print position page of the process.
char printUnits[zv::kPrintUnitsSize] = "IN";
WNDPROC printOldSpinProc = nullptr;

TagSet* Tags()
{
    return Options()->tags;
}

bool SourceIsRaster()
{
    const short type = Options()->srcType;
    return type == 1 || type == 5;
}

bool IsChecked(HWND dialog, int id)
{
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

RECT ToRect(const zv::PrintRect& r)
{
    return RECT{r.left, r.top, r.right, r.bottom};
}

zv::PrintRect FromRect(const RECT& r)
{
    return zv::PrintRect{r.left, r.top, r.right, r.bottom};
}

bool IsEmpty(const zv::PrintRect& r)
{
    return r.right <= r.left || r.bottom <= r.top;
}

// Shows a limited value in its hidden scroll bar and, unless the user is
// typing in it, its field; then asks for a redraw.
class ControlFieldView : public zv::PrintFieldView {
public:
    explicit ControlFieldView(HWND dialog) : dialog_(dialog) {}
    void Show(PrintPosState& s, int field, double value, bool quiet) override
    {
        SetScrollPos(GetDlgItem(dialog_, field + 1), SB_CTL, zv::PrintScrollPosition(s, value), FALSE);
        HWND edit = GetDlgItem(dialog_, field);
        const bool typing = edit != nullptr && GetFocus() == edit;
        if (!typing) {
            char text[kFieldText];
            DoubleToString(text, RoundOff(value, s.step));
            SetWindowTextA(edit, text);
        }
        if (quiet)
            return;
        // While the user types, the picture follows once the typing pauses.
        if (s.dragHandle != 0 || !typing || ZvWaitForInput(edit) != 0)
            PostMessageA(dialog_, WM_PRINTPOSREDRAW, 0, 0);
    }

private:
    HWND dialog_;
};

void SetScrollRanges(HWND dialog, const PrintPosState& s)
{
    const int least = zv::PrintScrollPosition(s, s.step);
    SetScrollRange(GetDlgItem(dialog, IDC_PRN_LEFT_BAR), SB_CTL, 0, zv::PrintScrollPosition(s, s.pageWidth), FALSE);
    SetScrollRange(GetDlgItem(dialog, IDC_PRN_TOP_BAR), SB_CTL, 0, zv::PrintScrollPosition(s, s.pageHeight), FALSE);
    SetScrollRange(GetDlgItem(dialog, IDC_PRN_WIDTH_BAR), SB_CTL, least, zv::PrintScrollPosition(s, s.pageWidth),
                   FALSE);
    SetScrollRange(GetDlgItem(dialog, IDC_PRN_HEIGHT_BAR), SB_CTL, least,
                   zv::PrintScrollPosition(s, s.pageHeight), FALSE);
}

// "Portrait mode -  8.5 x 11": the mode and the sheet's size in the units.
void ShowModeLine(HWND dialog, const PrintPosState& s, double paperW, double paperH)
{
    char format[128] = {}, width[kFieldText], height[kFieldText], line[256];
    LoadStringA(LibraryModule(), IDS_PRN_MODE_FORMAT, format, sizeof format);
    DoubleToString(width, paperW);
    DoubleToString(height, paperH);
    wsprintfA(line, format, s.modeName, width, height);
    SetDlgItemTextA(dialog, IDC_PRN_MODE, line);
}

// ------------------------------------------------------------ the picture

void SetPrintCursor(int handle)
{
    LPCSTR cursor = IDC_ARROW;
    switch (handle) {
    case 2: case 5: cursor = IDC_SIZENWSE; break;
    case 3: case 4: cursor = IDC_SIZENESW; break;
    case 6: case 7: cursor = IDC_SIZENS; break;
    case 8: case 9: cursor = IDC_SIZEWE; break;
    default: break;
    }
    SetCursor(LoadCursorA(nullptr, cursor));
}

void DrawPrintHandles(HDC dc, const zv::PrintRect& r, const zv::PrintRect& limit)
{
    HRGN clip = CreateRectRgn(limit.left, limit.top, limit.right, limit.bottom);
    SelectClipRgn(dc, clip);
    SelectObject(dc, GetStockObject(BLACK_PEN));
    SelectObject(dc, GetStockObject(BLACK_BRUSH));
    zv::PrintRect squares[8];
    zv::PrintHandleSquares(r, limit, squares);
    for (const zv::PrintRect& q : squares)
        Rectangle(dc, q.left, q.top, q.right, q.bottom);
    SelectClipRgn(dc, nullptr);
    DeleteObject(clip);
}

// The handle under a point in screen coordinates.
int PrintHitTest(const PrintPosState& s, HWND pageControl, POINT point)
{
    RECT r;
    GetWindowRect(pageControl, &r);
    return zv::PrintHitTest(FromRect(r), zv::PrintScrollPosition(s, s.left), zv::PrintScrollPosition(s, s.top),
                            zv::PrintScrollPosition(s, s.width), zv::PrintScrollPosition(s, s.height), s.pageWidth,
                            s.pageHeight, s.scrollScale, point.x, point.y);
}

LRESULT CALLBACK PreviewControlProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    // The page paints the thumbnail itself; the control only validates.
    if (message == WM_PAINT) {
        PAINTSTRUCT ps;
        BeginPaint(control, &ps);
        EndPaint(control, &ps);
        return 1;
    }
    WNDPROC old = page ? page->oldPreviewProc : DefWindowProcA;
    return CallWindowProcA(old, control, message, wParam, lParam);
}

void PlacePreviewControl(const zv::PrintRect& r)
{
    if (Options()->printFlag != 0)
        return;  // the rectangle shows alone
    if (page->previewControl == nullptr) {
        page->previewControl = CreateWindowExA(0, "static", "", WS_CHILD | WS_VISIBLE | SS_WHITEFRAME, r.left, r.top,
                                               r.right - r.left, r.bottom - r.top, page->pageControl,
                                               reinterpret_cast<HMENU>(IDC_PRN_PREVIEW), LibraryModule(), nullptr);
        if (page->previewControl == nullptr)
            return;
        page->oldPreviewProc = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(
            page->previewControl, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PreviewControlProc)));
        ShowWindow(page->previewControl, SW_SHOW);
        UpdateWindow(page->previewControl);
    } else {
        MoveWindow(page->previewControl, r.left, r.top, r.right - r.left, r.bottom - r.top, FALSE);
    }
}

bool OutOfBounds(const PrintPosState& s)
{
    return s.left < 0.0 || s.top < 0.0 || s.width < s.step || s.height < s.step ||
           s.width + s.left > s.pageWidth || s.height + s.top > s.pageHeight;
}

void OnPrintPosRedraw(bool always)
{
    PrintPosState& s = page->s;
    if (s.pictureReady == 0)
        return;
    const zv::PrintRect r = zv::PrintImageRect(s);
    if (IsEmpty(r))
        return;
    const zv::PrintRect& last = s.lastImageRect;
    if (!always && r.left == last.left && r.top == last.top && r.right == last.right && r.bottom == last.bottom)
        return;
    if (OutOfBounds(s))
        return;  // the clamps run first; the next redraw corrects the picture
    HDC dc = GetDC(page->pageControl);
    if (dc == nullptr)
        return;
    if (!IsEmpty(last)) {
        // Wipe the old handles and rectangle back to white.
        SetROP2(dc, R2_NOTCOPYPEN);
        DrawPrintHandles(dc, last, s.pageRect);
        SetROP2(dc, R2_COPYPEN);
        SelectObject(dc, GetStockObject(WHITE_PEN));
        SelectObject(dc, GetStockObject(WHITE_BRUSH));
        Rectangle(dc, last.left, last.top, last.right, last.bottom);
    }
    PlacePreviewControl(r);
    // No thumbnail during a drag: the rectangle alone follows the mouse.
    if (page->previewControl && Options()->previewDewey && s.dragHandle == 0)
        PaintPreview(page->previewControl);
    SetROP2(dc, R2_COPYPEN);
    HPEN dotted = CreatePen(PS_DOT, 1, RGB(0, 0, 0));
    HGDIOBJ oldPen = SelectObject(dc, dotted);
    SelectObject(dc, GetStockObject(NULL_BRUSH));
    Rectangle(dc, r.left, r.top, r.right, r.bottom);
    SelectObject(dc, oldPen);
    DeleteObject(dotted);
    DrawPrintHandles(dc, r, s.pageRect);
    s.lastImageRect = r;
    ReleaseDC(page->pageControl, dc);
    SetPrintCursor(s.dragHandle);
}

void PaintPicture(HWND dialog)
{
    PrintPosState& s = page->s;
    RECT frame = ToRect(s.frameRect), sheet = ToRect(s.pageRect);
    if (HDC dc = GetDC(page->frameControl)) {
        FillRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
        ReleaseDC(page->frameControl, dc);
    }
    if (HDC dc = GetDC(page->pageControl)) {
        FillRect(dc, &sheet, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        ReleaseDC(page->pageControl, dc);
    }
    s.lastImageRect = zv::PrintRect{0, 0, 0, 0};
    PostMessageA(dialog, WM_PRINTPOSREDRAW, 1, 0);
    for (HWND control : {page->frameControl, page->pageControl}) {
        HDC dc = GetDC(control);
        if (dc == nullptr)
            continue;
        const RECT& r = control == page->frameControl ? frame : sheet;
        SelectObject(dc, page->framePen);
        SelectObject(dc, GetStockObject(NULL_BRUSH));
        Rectangle(dc, r.left, r.top, r.right, r.bottom);
        ReleaseDC(control, dc);
    }
}

// ------------------------------------------------------------ the mouse

POINT ScreenPoint(HWND dialog, LPARAM lParam)
{
    POINT p = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    ClientToScreen(dialog, &p);
    return p;
}

void OnPictureMouseMove(HWND dialog, POINT cursor)
{
    PrintPosState& s = page->s;
    if (s.dragHandle == 0) {
        const int h = PrintHitTest(s, page->pageControl, cursor);
        if (h != s.hoverHandle) {
            SetPrintCursor(h);
            s.hoverHandle = static_cast<short>(h);
        }
        return;
    }
    zv::DragFields fields;
    zv::PrintPoint handle;
    if (!zv::DragPrintRect(s, cursor.x - s.lastCursor.x, cursor.y - s.lastCursor.y, &fields, &handle))
        return;  // less than a step: lastCursor stays, so the movement adds up
    for (int field : fields.fields)
        if (field != 0)
            PostMessageA(dialog, WM_PRINTPOSFIELD, field, 0);
    POINT p = {handle.x, handle.y};
    ClientToScreen(page->pageControl, &p);
    SetCursorPos(p.x, p.y);
    s.lastCursor = zv::PrintPoint{p.x, p.y};
}

void OnPictureButtonDown(HWND dialog, POINT cursor)
{
    PrintPosState& s = page->s;
    s.lastCursor = zv::PrintPoint{cursor.x, cursor.y};
    s.dragHandle = static_cast<short>(PrintHitTest(s, page->pageControl, cursor));
    if (s.dragHandle == 0)
        return;
    // No edit field keeps the focus during a drag, so every field follows.
    if (HWND ok = GetDlgItem(GetParent(dialog), IDOK))
        SetFocus(ok);
    SetCapture(dialog);
    SetPrintCursor(s.dragHandle);
}

void OnPictureButtonUp(HWND dialog)
{
    PrintPosState& s = page->s;
    if (s.dragHandle != 0) {
        ReleaseCapture();
        s.dragHandle = 0;
    }
    if (Options()->previewDewey != nullptr) {
        s.lastImageRect = zv::PrintRect{0, 0, 0, 0};
        PostMessageA(dialog, WM_PRINTPOSREDRAW, 1, 0);
    }
    SetPrintCursor(PrintHitTest(s, page->pageControl, POINT{s.lastCursor.x, s.lastCursor.y}));
}

// ------------------------------------------------------------ spin buttons

LRESULT CALLBACK SpinButtonProc(HWND button, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_LBUTTONDOWN:
        SetTimer(button, kSpinTimer, kSpinRepeatMs, nullptr);
        break;
    case WM_LBUTTONUP:
        KillTimer(button, kSpinTimer);
        break;
    case WM_TIMER: {
        // The press repeats only while the cursor stays over a spin button.
        if (GetKeyState(VK_LBUTTON) < 0) {
            HWND dialog = GetParent(button);
            POINT cursor;
            GetCursorPos(&cursor);
            for (int id = kFirstSpin; id <= kLastSpin; ++id) {
                RECT r;
                HWND spin = GetDlgItem(dialog, id);
                if (spin && GetWindowRect(spin, &r) && PtInRect(&r, cursor)) {
                    PostMessageA(dialog, WM_COMMAND, id, 0);
                    break;
                }
            }
        }
        return 1;
    }
    default:
        break;
    }
    return CallWindowProcA(printOldSpinProc, button, message, wParam, lParam);
}

// ------------------------------------------------------------ the opening

// The sheet of the printer that the print dialog chose, or of the default
// one; with none at all, 300 dpi and 8.5 x 11 inches.
zv::PrinterSheet PrinterSheetForPage()
{
    OptionContext* o = Options();
    HDC dc = o->printDlgData ? o->printDlgData->hDC : nullptr;
    HDC made = dc ? nullptr : GetPrinterDC(o->printerName);
    zv::PrinterSheet sheet = zv::kNoPrinterSheet;
    if (dc || made)
        sheet = PrinterSheetOf(dc ? dc : made);
    if (made)
        DeleteDC(made);
    bool landscape = false;
    if (o->printDlgData && o->printDlgData->hDevMode) {
        if (auto* mode = static_cast<DEVMODEA*>(GlobalLock(o->printDlgData->hDevMode))) {
            landscape = mode->dmOrientation == DMORIENT_LANDSCAPE;
            GlobalUnlock(o->printDlgData->hDevMode);
        }
    }
    return zv::OrientedSheet(sheet, landscape);
}

void MakePageKeyPrefix(PrintPosState& s)
{
    OptionContext* o = Options();
    const char* internal = o->srcExt[0] ? ZvGetInternalExt(o->formats, o->srcExt) : "";
    char prefix[zv::kKeySize];
    zv::MakeKey(prefix, internal ? internal : "", "PRN");
    zv::CopyBounded(s.keyPrefix, prefix);
}

void OpenPage(HWND dialog)
{
    OptionContext* o = Options();
    PrintPosState& s = page->s;
    TagSet* tags = Tags();
    // A rotated print starts from a size of 5 by 7.
    if (ZvGetFloatTag(tags, "PRNROT") != 0.0) {
        for (auto [key, value] : {std::pair{"PRNW", "5"}, std::pair{"PRNH", "7"}}) {
            ZvSetTag(tags, key, value);
            ZvSetGlobalTag(tags, key, value);
        }
    }
    const zv::PrinterSheet sheet = PrinterSheetForPage();
    double imageW = 0, imageH = 0;
    if (o->sourceDewey) {
        long w = 0, h = 0;
        o->sourceDewey->GetInfo(&w, &h, nullptr, nullptr, nullptr);
        imageW = w;
        imageH = h;
    }
    const bool landscape = zv::IsLandscapeSheet(sheet);
    LoadStringA(LibraryModule(), landscape ? IDS_PRN_LANDSCAPE : IDS_PRN_PORTRAIT, s.modeName, sizeof s.modeName);
    page->pageControl = GetDlgItem(dialog, landscape ? IDC_PRN_PAGE_LANDSCAPE : IDC_PRN_PAGE_PORTRAIT);
    page->frameControl = GetDlgItem(dialog, landscape ? IDC_PRN_FRAME_LANDSCAPE : IDC_PRN_FRAME_PORTRAIT);
    ShowWindow(page->frameControl, SW_SHOW);
    ShowWindow(page->pageControl, SW_SHOW);
    RECT r;
    GetClientRect(page->pageControl, &r);
    s.pageRect = FromRect(r);
    GetClientRect(page->frameControl, &r);
    s.frameRect = FromRect(r);

    zv::PrintPosTags read = {};
    read.units = ZvGetTag(tags, "PRNUNITS");
    read.margins = ZvGetTag(tags, "MARGINS");
    read.aspect = ZvGetTag(tags, "PRNA");
    read.width = ZvGetFloatTag(tags, "PRNW");
    read.height = ZvGetFloatTag(tags, "PRNH");
    read.left = ZvGetFloatTag(tags, "PRTLEFT");
    read.top = ZvGetFloatTag(tags, "PRTTOP");
    ControlFieldView view(dialog);
    const zv::PrintOpening opening = zv::OpenPrintPos(s, sheet, imageW, imageH, read, printUnits, view);
    ZvSetTag(tags, "PRTDISTORT", opening.distort ? "ON" : "");
    SetScrollRanges(dialog, s);
    ShowModeLine(dialog, s, opening.paperW, opening.paperH);
}

void InitPage(HWND dialog)
{
    OptionContext* o = Options();
    PrintPosState& s = page->s;
    TagSet* tags = Tags();
    const HINSTANCE module = LibraryModule();
    // The page sets its cursor itself, by the handle under it.
    SetClassLongPtrA(dialog, GCLP_HCURSOR, 0);
    o->operation = 3;
    page->framePen = CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
    for (int id = kFirstSpin; id <= kLastSpin; ++id)
        printOldSpinProc = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(
            GetDlgItem(dialog, id), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SpinButtonProc)));
    zv::CopyBounded(o->destKey, "PRN");
    zv::CopyBounded(o->destExt, "PRN");
    MakePageKeyPrefix(s);
    OpenPage(dialog);

    if (SourceIsRaster()) {
        EnableWindow(GetDlgItem(dialog, IDC_PRN_CURVE_LABEL), FALSE);
        EnableWindow(GetDlgItem(dialog, IDC_PRN_CURVE), FALSE);
        DisplayCheckBoxTag(dialog, IDC_PRN_SMOOTH, s.keyPrefix, "SMOOTH", tags);
    } else {
        EnableWindow(GetDlgItem(dialog, IDC_PRN_SMOOTH), FALSE);
        LoadList(dialog, IDC_PRN_CURVE, IDC_PRN_CURVE_LABEL, IDS_CURVE_SHOWN, IDS_CURVE_VALUES, o->destKey, "CRV",
                 module, tags);
    }
    LoadList(dialog, IDC_PRN_UNITS, IDC_PRN_UNITS_LABEL, IDS_PRN_UNITS_SHOWN, IDS_PRN_UNITS_VALUES, o->destKey,
             "UNITS", module, tags);
    DisplayCheckBoxTag(dialog, IDC_PRN_DISTORT, "", "PRTDISTORT", tags);
    DisplayCheckBoxTag(dialog, IDC_PRN_REVERSE, s.keyPrefix, "REVBW", tags);
    DisplayCheckBoxTag(dialog, IDC_PRN_INVERT, s.keyPrefix, "INV", tags);
    DisplayCheckBoxTag(dialog, IDC_PRN_REVEAL, s.keyPrefix, "BVIS", tags);
    if (const char* cog = ZvGetTag(tags, zv::TagKey(s.keyPrefix, "COG"))) {
        if (lstrcmpiA(cog, "G") == 0)
            CheckDlgButton(dialog, IDC_PRN_GRAYSCALE, BST_CHECKED);
        else if (lstrcmpiA(cog, "B") == 0)
            CheckDlgButton(dialog, IDC_PRN_ALLBLACK, BST_CHECKED);
    }
    if (o->previewDewey) {
        s.appliedRotation = 0.0;
        ReplayPreviewTags(o->destKey, s.keyPrefix);
    }
    s.dragHandle = 0;
    s.pictureReady = 1;
    HideApplyButton(dialog);
}

// ------------------------------------------------------------ the fields

void OnPositionEdit(HWND dialog, int id, int notification)
{
    PrintPosState& s = page->s;
    if (s.fieldsBusy == 1)
        return;
    char text[kFieldText] = {};
    GetDlgItemTextA(dialog, id, text, sizeof text);
    // Half typed: wait for more, or write the value back when the user leaves.
    if (text[0] == 0 || std::strcmp(text, ".") == 0 || std::strcmp(text, "0.") == 0) {
        if (notification == EN_KILLFOCUS)
            PostMessageA(dialog, WM_PRINTPOSFIELD, id, 0);
        return;
    }
    ControlFieldView view(dialog);
    const zv::TypedField typed = zv::OnPrintFieldTyped(s, id, StringToDouble(text), view);
    if (typed.alarm) {
        OkiSound(1000, 100);
        ScopedFlag busy(s.fieldsBusy);
        char shown[kFieldText];
        DoubleToString(shown, typed.shown);
        SetDlgItemTextA(dialog, id, shown);
    }
}

void RefreshPreviewFlags(HWND dialog, int id)
{
    OptionContext* o = Options();
    const int on = IsChecked(dialog, id) ? 1 : 0;
    const int reverse = id == IDC_PRN_REVERSE ? on : o->previewReverseBW;
    const int invert = id == IDC_PRN_INVERT ? on : o->previewInvert;
    const int bvis = id == IDC_PRN_REVEAL ? on : o->previewBVis;
    if (SetPreviewFlags(reverse, invert, bvis, o->previewGrayize, o->previewBlackize) != 0)
        PostMessageA(dialog, WM_PRINTPOSREDRAW, 1, 0);
}

void OnUnitsChange(HWND dialog)
{
    char shown[64] = {}, value[64] = {};
    const LRESULT index = SendDlgItemMessageA(dialog, IDC_PRN_UNITS, CB_GETCURSEL, 0, 0);
    if (index == CB_ERR)
        return;
    SendDlgItemMessageA(dialog, IDC_PRN_UNITS, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(shown));
    const HINSTANCE module = LibraryModule();
    GetListItem(IDS_PRN_UNITS_VALUES, GetListIndex(IDS_PRN_UNITS_SHOWN, shown, module), module, value, sizeof value);
    PrintPosState& s = page->s;
    ControlFieldView view(dialog);
    if (!zv::ChangePrintUnits(s, value, printUnits, view))
        return;
    SetScrollRanges(dialog, s);
    ShowModeLine(dialog, s, zv::SheetWidthInUnits(s), zv::SheetHeightInUnits(s));
}

bool OnCommand(HWND dialog, WPARAM wParam)
{
    PrintPosState& s = page->s;
    const int id = LOWORD(wParam);
    ControlFieldView view(dialog);
    switch (id) {
    case IDC_PRN_TOP:
    case IDC_PRN_LEFT:
    case IDC_PRN_WIDTH:
    case IDC_PRN_HEIGHT:
        OnPositionEdit(dialog, id, HIWORD(wParam));
        return true;
    case IDC_PRN_CENTER:
        zv::CenterPrintRect(s, view);
        return true;
    case IDC_PRN_DISTORT:
        s.distort = IsChecked(dialog, IDC_PRN_DISTORT) ? 1 : 0;
        if (s.distort == 0)
            PostMessageA(dialog, WM_PRINTPOSFIELD, IDC_PRN_WIDTH, 0);  // the height links back
        return true;
    case IDC_PRN_UNITS:
        if (HIWORD(wParam) == CBN_SELCHANGE)
            OnUnitsChange(dialog);
        return true;
    case IDC_PRN_TOP_UP: case IDC_PRN_TOP_DOWN:
    case IDC_PRN_LEFT_UP: case IDC_PRN_LEFT_DOWN:
    case IDC_PRN_WIDTH_UP: case IDC_PRN_WIDTH_DOWN:
    case IDC_PRN_HEIGHT_UP: case IDC_PRN_HEIGHT_DOWN: {
        // Each pair of buttons sends the scroll of its field's bar.
        static const int bars[] = {IDC_PRN_TOP_BAR, IDC_PRN_LEFT_BAR, IDC_PRN_WIDTH_BAR, IDC_PRN_HEIGHT_BAR};
        const int pair = (id - kFirstSpin) / 2;
        const WPARAM code = (id - kFirstSpin) % 2 == 0 ? SB_LINEUP : SB_LINEDOWN;
        SendMessageA(dialog, WM_VSCROLL, code, reinterpret_cast<LPARAM>(GetDlgItem(dialog, bars[pair])));
        return true;
    }
    case IDC_PRN_ZOOM:
        zv::ZoomPrintRectToPage(s, view);
        return true;
    case IDC_PRN_GRAYSCALE:
    case IDC_PRN_ALLBLACK: {
        SetClassLongPtrA(dialog, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(LoadCursorA(nullptr, IDC_ARROW)));
        const int changed = id == IDC_PRN_GRAYSCALE ? OnGrayscaleClick(dialog) : OnAllBlackClick(dialog);
        if (changed != 0)
            PostMessageA(dialog, WM_PRINTPOSREDRAW, 1, 0);
        SetClassLongPtrA(dialog, GCLP_HCURSOR, 0);
        return true;
    }
    case IDC_PRN_REVERSE:
    case IDC_PRN_INVERT:
    case IDC_PRN_REVEAL:
        RefreshPreviewFlags(dialog, id);
        return false;
    default:
        return false;
    }
}

bool OnSpinScroll(HWND dialog, WPARAM wParam, LPARAM lParam)
{
    const int code = LOWORD(wParam);
    if (code != SB_LINEUP && code != SB_LINEDOWN)
        return false;
    // "Up" adds to the number: the rectangle moves down or right.
    const int bar = static_cast<int>(GetWindowLongPtrA(reinterpret_cast<HWND>(lParam), GWLP_ID));
    ControlFieldView view(dialog);
    zv::SpinPrintField(page->s, bar - 1, code == SB_LINEUP, view);
    return true;
}

void RetrievePrintPos(HWND dialog)
{
    OptionContext* o = Options();
    PrintPosState& s = page->s;
    TagSet* tags = Tags();
    const HINSTANCE module = LibraryModule();
    o->pageValid = 1;
    if (SourceIsRaster())
        RetrieveCheckBoxTag(dialog, IDC_PRN_SMOOTH, s.keyPrefix, "SMOOTH", tags);
    else
        RetrieveList(dialog, IDC_PRN_CURVE, IDS_CURVE_VALUES, o->destKey, "CRV", module, tags);
    RetrieveList(dialog, IDC_PRN_UNITS, IDS_PRN_UNITS_VALUES, o->destKey, "UNITS", module, tags);
    RetrieveEditFloatTag(dialog, IDC_PRN_LEFT, IDC_PRN_LEFT_LABEL, "PRTLEFT", "", 0.0, s.pageWidth, tags,
                         &o->pageValid);
    RetrieveEditFloatTag(dialog, IDC_PRN_TOP, IDC_PRN_TOP_LABEL, "PRTTOP", "", 0.0, s.pageHeight, tags,
                         &o->pageValid);
    RetrieveEditFloatTag(dialog, IDC_PRN_WIDTH, IDC_PRN_WIDTH_LABEL, "PRNW", "", 0.0, s.pageWidth, tags,
                         &o->pageValid);
    RetrieveEditFloatTag(dialog, IDC_PRN_HEIGHT, IDC_PRN_HEIGHT_LABEL, "PRNH", "", 0.0, s.pageHeight, tags,
                         &o->pageValid);
    RetrieveCheckBoxTag(dialog, IDC_PRN_DISTORT, "", "PRTDISTORT", tags);
    RetrieveCheckBoxTag(dialog, IDC_PRN_REVERSE, s.keyPrefix, "REVBW", tags);
    RetrieveCheckBoxTag(dialog, IDC_PRN_INVERT, s.keyPrefix, "INV", tags);
    RetrieveCheckBoxTag(dialog, IDC_PRN_REVEAL, s.keyPrefix, "BVIS", tags);
    const char* cog = IsChecked(dialog, IDC_PRN_GRAYSCALE) ? "G" : IsChecked(dialog, IDC_PRN_ALLBLACK) ? "B" : "C";
    ZvSetTag(tags, zv::TagKey(s.keyPrefix, "COG"), cog);
    if (o->pageValid == 0)
        return;
    // The exact numbers, not the rounded text of the fields.
    ZvSetTag(tags, "PRNA", s.distort == 0 ? "1" : "");
    auto setPosition = [&](const char* key, double value) {
        if (value == 0.0)
            ZvSetTag(tags, key, "0");
        else
            ZvSetFloatTag(tags, key, value, 4);
    };
    setPosition("PRTLEFT", s.left);
    setPosition("PRTTOP", s.top);
    ZvSetFloatTag(tags, "PRNW", s.width, 4);
    ZvSetFloatTag(tags, "PRNH", s.height, 4);
}

void RefitToRotation(HWND dialog)
{
    ControlFieldView view(dialog);
    zv::RefitForRotation(page->s, ZvGetFloatTag(Tags(), zv::TagKey(Options()->destKey, "ROT")), view);
}

void ShowPageHelp(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    // The arrow stands in as the class cursor while the help shows.
    SetClassLongPtrA(dialog, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(LoadCursorA(nullptr, IDC_ARROW)));
    if (message == WM_CONTEXTMENU)
        ShowContextHelp(message, wParam, lParam);
    else
        ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpPrintPosPage);
    SetClassLongPtrA(dialog, GCLP_HCURSOR, 0);
}

void DestroyPage(HWND dialog)
{
    DeleteObject(page->framePen);
    for (int id = kFirstSpin; id <= kLastSpin; ++id)
        SetWindowLongPtrA(GetDlgItem(dialog, id), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(printOldSpinProc));
    if (page->previewControl) {
        SetWindowLongPtrA(page->previewControl, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(page->oldPreviewProc));
        DestroyWindow(page->previewControl);
    }
    SetClassLongPtrA(dialog, GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(LoadCursorA(nullptr, IDC_ARROW)));
    OkiFreeSMem(page);
    page = nullptr;
}

}  // namespace

CPrintPosPropPage::CPrintPosPropPage() : CPropertyPage(IDD_PRINT_POS) {}

CPrintPosPropPage::~CPrintPosPropPage()
{
    FreePreviews();
}

LRESULT CPrintPosPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    HWND dialog = m_hWnd;
    if (message == WM_INITDIALOG) {
        page = static_cast<PrintPosPage*>(OkiAllocSMem(sizeof(PrintPosPage)));
        if (page == nullptr) {
            ReportPageOutOfMemory(dialog);
            return 0;
        }
        std::memset(page, 0, sizeof *page);
        InitPage(dialog);
        return 0;
    }
    if (page == nullptr)
        return CPropertyPage::WindowProc(message, wParam, lParam);
    switch (message) {
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        switch (header->code) {
        case PSN_KILLACTIVE:
            RetrievePrintPos(dialog);
            if (Options()->pageValid == 0)
                return 1;
            break;
        case PSN_SETACTIVE: {
            RefitToRotation(dialog);
            PrintPosState& s = page->s;
            if (HDC dc = GetDC(page->pageControl)) {
                RECT r = ToRect(s.pageRect);
                FillRect(dc, &r, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
                ReleaseDC(page->pageControl, dc);
            }
            s.pictureReady = 1;
            s.lastImageRect = zv::PrintRect{0, 0, 0, 0};
            PostMessageA(WM_PRINTPOSREDRAW, 1, 0);
            break;
        }
        case PSN_HELP:
            ShowPageHelp(dialog, WM_COMMAND, 0, 0);
            return 1;
        default:
            break;
        }
        break;
    }
    case WM_HELP:
        ShowPageHelp(dialog, WM_COMMAND, 0, 0);
        break;
    case WM_CONTEXTMENU:
        ShowPageHelp(dialog, message, wParam, lParam);
        return 0;
    case WM_DRAWITEM: {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        return DrawSpinControl(lParam, (item->CtlID - kFirstSpin) % 2 == 0 ? 1 : 0);
    }
    case WM_COMMAND:
        if (OnCommand(dialog, wParam))
            return 1;
        break;
    case WM_VSCROLL:
        if (OnSpinScroll(dialog, wParam, lParam))
            return 1;
        break;
    case WM_PRINTPOSFIELD: {
        ControlFieldView view(dialog);
        zv::OnPrintPosField(page->s, static_cast<int>(wParam), lParam != 0, view);
        return 1;
    }
    case WM_PRINTPOSREDRAW:
        OnPrintPosRedraw(wParam != 0);
        return 1;
    case WM_PAINT: {
        PAINTSTRUCT ps;
        BeginPaint(dialog, &ps);
        EndPaint(dialog, &ps);
        PaintPicture(dialog);
        break;
    }
    case WM_MOUSEMOVE:
        OnPictureMouseMove(dialog, ScreenPoint(dialog, lParam));
        break;
    case WM_LBUTTONDOWN:
        OnPictureButtonDown(dialog, ScreenPoint(dialog, lParam));
        break;
    case WM_LBUTTONUP:
        OnPictureButtonUp(dialog);
        break;
    case WM_DESTROY:
        DestroyPage(dialog);
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CPrintPosPropPage::OnOK()
{
    if (page != nullptr) {
        RefitToRotation(m_hWnd);
        RetrievePrintPos(m_hWnd);
    }
    CPropertyPage::OnOK();
}

void CPrintPosPropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
