// The numbers of printing. Every value of the print position page is a
// double in the page's units; all limiting happens in OnPrintPosField, which
// every way of changing a value ends in, so that no path can leave the
// rectangle off the page.
#include "print_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "portable/zvw_portable.h"

namespace zv {

namespace {

using zvw::Convert;
using zvw::Divide;
using zvw::IsUnit;
using zvw::RoundToStep;

constexpr double kMarginInches = 0.25;  // each side, when margins are on
constexpr double kUnitStep = 0.1;
constexpr double kUnitScrollScale = 100.0;

int Trunc(double value)
{
    return static_cast<int>(value);
}

bool SameNoCase(const char* a, const char* b)
{
    for (; *a && *b; ++a, ++b) {
        char x = *a >= 'a' && *a <= 'z' ? char(*a - 32) : *a;
        char y = *b >= 'a' && *b <= 'z' ? char(*b - 32) : *b;
        if (x != y)
            return false;
    }
    return *a == *b;
}

void CopyUnits(char* dst, std::size_t size, const char* src)
{
    zvw::CopyText(dst, size, src ? src : "");
}

// The ratio of width to height in inches, as the page keeps it.
double InchAspect(double width, double height, double dpiX, double dpiY)
{
    return Divide(Divide(width, dpiX), Divide(height, dpiY));
}

void Show(PrintPosState& s, int field, double value, bool quiet, PrintFieldView& view)
{
    s.fieldsBusy = 1;
    view.Show(s, field, value, quiet);
    s.fieldsBusy = 0;
}

double LimitPosition(double& position, double size, double page, double minPosition)
{
    if (size + position > page)
        position = page - size;
    position = std::max(position, minPosition);
    return position;
}

}  // namespace

PrinterSheet SheetOfDevice(int dpiX, int dpiY, int physicalWidth, int physicalHeight)
{
    PrinterSheet sheet;
    sheet.dpiX = dpiX;
    sheet.dpiY = dpiY;
    sheet.paperW = Divide(physicalWidth, dpiX);
    sheet.paperH = Divide(physicalHeight, dpiY);
    return sheet;
}

PrintFit FitImageToPaper(const PrinterSheet& sheet, double imageW, double imageH, double rotation, double boxW,
                         double boxH, bool margins)
{
    double paperW = sheet.paperW, paperH = sheet.paperH;
    double imgW = Convert("PIX", "IN", imageW, sheet.dpiX, 0.0);
    double imgH = Convert("PIX", "IN", imageH, sheet.dpiY, 0.0);
    zvw::RotatedSize(360.0 - rotation, imgW, imgH, &imgW, &imgH);
    double aspect = InchAspect(imgW, imgH, sheet.dpiX, sheet.dpiY);
    // No last fit: the whole sheet, before any margin.
    if (boxW == 0.0 || boxH == 0.0) {
        boxW = sheet.paperW;
        boxH = sheet.paperH;
    }
    if (margins) {
        paperW -= 2 * kMarginInches;
        paperH -= 2 * kMarginInches;
    }
    // The side with the smaller slack rules.
    if (boxH - imgH < boxW - imgW) {
        imgW = boxH * aspect;
        imgH = std::min(Divide(imgW, aspect), boxH);
    } else {
        imgH = Divide(boxW, aspect);
        imgW = std::min(imgH * aspect, boxW);
    }
    return PrintFit{(paperW - imgW) / 2.0, (paperH - imgH) / 2.0, imgW, imgH};
}

void SetPrintUnitSteps(PrintPosState& s, const char* units)
{
    bool whole = IsUnit(units, "PIX") || IsUnit(units, "PICA");
    s.step = whole ? 1.0 : kUnitStep;
    s.scrollScale = whole ? 1.0 : kUnitScrollScale;
}

bool IsLandscapeSheet(const PrinterSheet& sheet)
{
    return sheet.paperH < sheet.paperW;
}

PrinterSheet OrientedSheet(const PrinterSheet& sheet, bool driverLandscape)
{
    PrinterSheet oriented = sheet;
    if (driverLandscape && oriented.paperH > oriented.paperW)
        std::swap(oriented.paperW, oriented.paperH);
    return oriented;
}

void OnPrintPosField(PrintPosState& s, int field, bool quiet, PrintFieldView& view)
{
    double value = 0.0;
    switch (field) {
    case kPrintTopField:
        value = LimitPosition(s.top, s.height, s.pageHeight, s.minPosition);
        break;
    case kPrintLeftField:
        value = LimitPosition(s.left, s.width, s.pageWidth, s.minPosition);
        break;
    case kPrintWidthField:
        if (s.width + s.left > s.pageWidth)
            s.width = s.pageWidth - s.left;
        if (s.distort == 0 && s.fieldsBusy == 0) {
            double room = s.pageHeight - s.top;
            double h = Divide(s.width, s.aspect);
            if (h <= room) {
                h = std::min(std::max(h, s.step), room);
                if (h != s.height) {
                    s.height = h;
                    s.fieldsBusy = 1;
                    OnPrintPosField(s, kPrintHeightField, true, view);
                }
            } else {
                // The height hits the page: the width gives way.
                s.width = room * s.aspect;
                s.height = room;
                s.fieldsBusy = 1;
                OnPrintPosField(s, kPrintHeightField, true, view);
            }
        }
        value = s.width = std::max(s.width, s.step);
        break;
    case kPrintHeightField:
        if (s.height + s.top > s.pageHeight)
            s.height = s.pageHeight - s.top;
        if (s.distort == 0 && s.fieldsBusy == 0) {
            double room = s.pageWidth - s.left;
            if (s.height * s.aspect <= room) {
                double w = std::min(std::max(s.height * s.aspect, s.step), room);
                if (w != s.width) {
                    s.width = w;
                    s.fieldsBusy = 1;
                    OnPrintPosField(s, kPrintWidthField, true, view);
                }
            } else {
                s.height = Divide(room, s.aspect);
                s.width = room;
                s.fieldsBusy = 1;
                OnPrintPosField(s, kPrintWidthField, true, view);
            }
        }
        value = s.height = std::max(s.height, s.step);
        break;
    default:
        return;
    }
    Show(s, field, value, quiet, view);
}

void ShowAllPrintFields(PrintPosState& s, PrintFieldView& view)
{
    for (int field : {kPrintLeftField, kPrintTopField, kPrintWidthField, kPrintHeightField})
        OnPrintPosField(s, field, false, view);
}

PrintOpening OpenPrintPos(PrintPosState& s, const PrinterSheet& sheet, double imageW, double imageH,
                          const PrintPosTags& tags, char (&printUnits)[kPrintUnitsSize], PrintFieldView& view)
{
    s.dpiX = sheet.dpiX;
    s.dpiY = sheet.dpiY;
    s.aspect = InchAspect(imageW, imageH, s.dpiX, s.dpiY);
    if (s.aspect == 0.0)
        s.aspect = 1.0;
    s.minPosition = 0.0;
    s.appliedRotation = 0.0;
    s.lastImageRect = PrintRect{0, 0, 0, 0};
    bool landscape = IsLandscapeSheet(sheet);
    s.pageControlId = landscape ? 4515 : 4513;
    s.frameControlId = landscape ? 4516 : 4514;

    // The units of the last page stay for the next unless the tags name some.
    if (tags.units) {
        CopyUnits(s.units, sizeof s.units, tags.units);
        CopyUnits(printUnits, sizeof printUnits, tags.units);
    } else {
        CopyUnits(s.units, sizeof s.units, printUnits);
    }
    PrintOpening opening;
    opening.paperW = Convert("IN", s.units, sheet.paperW, s.dpiX, 0.0);
    opening.paperH = Convert("IN", s.units, sheet.paperH, s.dpiY, 0.0);
    SetPrintUnitSteps(s, s.units);

    // The margin counts in the page's units, whichever they are; only a
    // later change of units converts it as a length.
    double margin = tags.margins && SameNoCase(tags.margins, "OFF") ? 0.0 : kMarginInches;
    s.marginLeft = s.marginRight = s.marginTop = s.marginBottom = margin;

    s.width = tags.width;
    s.height = tags.height;
    const double tagW = tags.width, tagH = tags.height;
    int keepAspect = tags.aspect ? Trunc(std::floor(zvw::ParseDouble(tags.aspect))) : 0;
    if (keepAspect == 0)
        keepAspect = 1;

    s.pageWidth = RoundToStep(opening.paperW - s.marginLeft - s.marginRight, s.step);
    s.pageHeight = RoundToStep(opening.paperH - s.marginTop - s.marginBottom, s.step);

    opening.distort = s.width > 0.0 && s.height > 0.0 && keepAspect != 1;
    s.distort = opening.distort ? 1 : 0;

    if (s.width == 0.0 && s.height == 0.0) {
        s.width = s.pageWidth;
        s.height = s.pageHeight;
    } else if (s.height == 0.0) {
        s.height = Divide(s.width, s.aspect);
    } else if (s.width == 0.0) {
        s.width = s.height * s.aspect;
    }
    s.left = tags.left;
    s.top = tags.top;

    // A stored size at the page's corner is its own limit for the first
    // showing, so that the clamps don't cut it.
    const double pageWidth = s.pageWidth, pageHeight = s.pageHeight;
    if (s.top == 0.0 && s.left == 0.0) {
        if (tagW != 0.0)
            s.pageWidth = tagW;
        if (tagH != 0.0)
            s.pageHeight = tagH;
    }
    OnPrintPosField(s, kPrintLeftField, false, view);
    OnPrintPosField(s, kPrintTopField, false, view);
    OnPrintPosField(s, kPrintWidthField, false, view);
    s.fieldsBusy = 1;  // the height takes no part in the link here
    OnPrintPosField(s, kPrintHeightField, false, view);
    s.pageWidth = pageWidth;
    s.pageHeight = pageHeight;
    CenterPrintRect(s, view);

    s.baseWidthPix = Convert(s.units, "PIX", s.width, s.dpiX, 0.0);
    s.baseHeightPix = Convert(s.units, "PIX", s.height, s.dpiY, 0.0);
    s.pixelsPerStepX = Trunc(Divide(s.pageRect.right - s.pageRect.left, Divide(opening.paperW, s.step)));
    s.pixelsPerStepY = Trunc(Divide(s.pageRect.bottom - s.pageRect.top, Divide(opening.paperH, s.step)));
    return opening;
}

double SheetWidthInUnits(const PrintPosState& s)
{
    return s.pageWidth + s.marginLeft + s.marginRight;
}

double SheetHeightInUnits(const PrintPosState& s)
{
    return s.marginTop + s.pageHeight + s.marginBottom;
}

void CenterPrintRect(PrintPosState& s, PrintFieldView& view)
{
    s.left = (s.pageWidth - s.width) / 2.0;
    s.top = (s.pageHeight - s.height) / 2.0;
    OnPrintPosField(s, kPrintLeftField, false, view);
    OnPrintPosField(s, kPrintTopField, false, view);
}

void ZoomPrintRectToPage(PrintPosState& s, PrintFieldView& view)
{
    s.left = s.top = 0.0;
    s.width = s.pageWidth;
    s.height = s.pageHeight;
    s.pictureReady = 0;
    ShowAllPrintFields(s, view);
    s.pictureReady = 1;
    CenterPrintRect(s, view);
}

void SpinPrintField(PrintPosState& s, int field, bool up, PrintFieldView& view)
{
    double delta = up ? s.step : -s.step;
    switch (field) {
    case kPrintLeftField: s.left += delta; break;
    case kPrintTopField: s.top += delta; break;
    case kPrintWidthField: s.width += delta; break;
    case kPrintHeightField: s.height += delta; break;
    default: return;
    }
    OnPrintPosField(s, field, false, view);
}

bool ChangePrintUnits(PrintPosState& s, const char* newUnits, char (&printUnits)[kPrintUnitsSize],
                      PrintFieldView& view)
{
    CopyUnits(s.units, sizeof s.units, newUnits);
    if (SameNoCase(s.units, printUnits))
        return false;
    SetPrintUnitSteps(s, s.units);
    auto convert = [&](double& value, double dpi) { value = Convert(printUnits, s.units, value, dpi, 0.0); };
    convert(s.pageWidth, s.dpiX);
    convert(s.pageHeight, s.dpiY);
    convert(s.width, s.dpiX);
    convert(s.height, s.dpiY);
    convert(s.left, s.dpiX);
    convert(s.top, s.dpiY);
    convert(s.marginLeft, s.dpiX);
    convert(s.marginRight, s.dpiX);
    convert(s.marginTop, s.dpiY);
    convert(s.marginBottom, s.dpiY);
    if (s.distort == 0)
        s.aspect = InchAspect(s.width, s.height, s.dpiX, s.dpiY);
    ShowAllPrintFields(s, view);
    CopyUnits(printUnits, sizeof printUnits, s.units);
    return true;
}

bool RefitForRotation(PrintPosState& s, double rotation, PrintFieldView& view)
{
    const double centreX = s.width / 2.0 + s.left;
    const double centreY = s.height / 2.0 + s.top;
    if (rotation == s.appliedRotation)
        return false;
    // Always from the size the page opened with: rotations don't add up.
    zvw::RotatedSize(360.0 - rotation, s.baseWidthPix, s.baseHeightPix, &s.width, &s.height);
    if (!IsUnit(s.units, "PIX")) {
        s.width = Convert("PIX", s.units, s.width, s.dpiX, 0.0);
        s.height = Convert("PIX", s.units, s.height, s.dpiY, 0.0);
    }
    if (s.distort == 0)
        s.aspect = InchAspect(s.width, s.height, s.dpiX, s.dpiY);
    s.width = std::max(s.width, s.step);
    if (s.width > s.pageWidth) {
        s.width = s.pageWidth;
        if (s.distort == 0)
            s.height = std::min(std::max(Divide(s.width, s.aspect), s.step), s.pageHeight);
    }
    s.height = std::max(s.height, s.step);
    if (s.height > s.pageHeight) {
        s.height = s.pageHeight;
        if (s.distort == 0)
            s.width = std::min(std::max(s.height * s.aspect, s.step), s.pageWidth);
    }
    s.left = std::max(centreX - s.width / 2.0, s.minPosition);
    s.top = std::max(centreY - s.height / 2.0, s.minPosition);
    s.pictureReady = 0;
    ShowAllPrintFields(s, view);
    s.appliedRotation = rotation;
    return true;
}

TypedField OnPrintFieldTyped(PrintPosState& s, int field, double typed, PrintFieldView& view)
{
    TypedField result = {false, false, 0.0};
    double* position = nullptr;
    double* size = nullptr;
    double page = 0.0;
    int positionField = 0;
    switch (field) {
    case kPrintLeftField: position = &s.left; break;
    case kPrintTopField: position = &s.top; break;
    case kPrintWidthField: size = &s.width; position = &s.left; page = s.pageWidth; positionField = kPrintLeftField; break;
    case kPrintHeightField: size = &s.height; position = &s.top; page = s.pageHeight; positionField = kPrintTopField; break;
    default: return result;
    }
    if (size == nullptr) {
        if (typed < 0.0 || typed == *position)
            return result;
        *position = typed;
        result.changed = true;
        OnPrintPosField(s, field, false, view);
        return result;
    }
    if (typed < s.step || typed == *size)
        return result;
    result.changed = true;
    bool movePosition = false;
    if (*position + typed > page) {
        if (typed > page) {
            result.alarm = true;
            typed = page - *position;
            result.shown = RoundToStep(typed, s.step);
        } else {
            *position -= page - typed;
            movePosition = true;
        }
    }
    *size = typed;
    if (movePosition)
        OnPrintPosField(s, positionField, false, view);
    OnPrintPosField(s, field, false, view);
    return result;
}

PrintRect PrintImageRect(const PrintPosState& s)
{
    const PrintRect& page = s.pageRect;
    double spanX = page.right - page.left, spanY = page.bottom - page.top;
    double x0 = Divide(s.left, s.pageWidth) * spanX;
    double y0 = Divide(s.top, s.pageHeight) * spanY;
    double x1 = Divide(s.width, s.pageWidth) * spanX + x0;
    double y1 = Divide(s.height, s.pageHeight) * spanY + y0;
    auto inside = [](double v, int low, int high) {
        int i = Trunc(v);
        if (i <= low)
            return low + 1;
        if (i >= high)
            return high - 1;
        return i;
    };
    return PrintRect{inside(x0, page.left, page.right), inside(y0, page.top, page.bottom),
                     inside(x1, page.left, page.right), inside(y1, page.top, page.bottom)};
}

void PrintHandleSquares(const PrintRect& r, const PrintRect& limit, PrintRect (&squares)[8])
{
    const int xm = r.left + (r.right - r.left) / 2, ym = r.top + (r.bottom - r.top) / 2;
    struct Point {
        int x, y;
        bool cutX, cutY;
    };
    const Point points[8] = {{r.left, r.top, true, true},  {r.right, r.top, true, true},
                             {r.left, r.bottom, true, true}, {r.right, r.bottom, true, true},
                             {xm, r.top, false, true},        {xm, r.bottom, false, true},
                             {r.left, ym, true, false},       {r.right, ym, true, false}};
    for (int i = 0; i < 8; ++i) {
        const Point& p = points[i];
        PrintRect q = {p.x - kPrintHandleReach, p.y - kPrintHandleReach, p.x + kPrintHandleReach,
                       p.y + kPrintHandleReach};
        if (p.cutX) {
            q.left = std::max(q.left, limit.left + 1);
            q.right = std::min(q.right, limit.right - 1);
        }
        if (p.cutY) {
            q.top = std::max(q.top, limit.top + 1);
            q.bottom = std::min(q.bottom, limit.bottom - 1);
        }
        squares[i] = q;
    }
}

int PrintHitTest(const PrintRect& control, int sl, int st, int sw, int sh, double pageWidth, double pageHeight,
                 double scrollScale, int x, int y)
{
    const int spanX = control.right - control.left, spanY = control.bottom - control.top;
    const int x0 = control.left + Trunc(Divide(sl, pageWidth) * spanX / scrollScale);
    const int y0 = control.top + Trunc(Divide(st, pageHeight) * spanY / scrollScale);
    const int x1 = x0 + Trunc(Divide(sw, pageWidth) * spanX / scrollScale);
    const int y1 = y0 + Trunc(Divide(sh, pageHeight) * spanY / scrollScale);
    const int xm = x0 + (x1 - x0) / 2, ym = y0 + (y1 - y0) / 2;
    auto in = [x, y](int left, int top, int right, int bottom) {
        return x >= left && x < right && y >= top && y < bottom;
    };
    const int points[8][2] = {{x0, y0}, {x1, y0}, {x0, y1}, {x1, y1}, {xm, y0}, {xm, y1}, {x0, ym}, {x1, ym}};
    for (int i = 0; i < 8; ++i) {
        const int px = points[i][0], py = points[i][1];
        if (in(px - kPrintHandleReach, py - kPrintHandleReach, px + kPrintHandleReach, py + kPrintHandleReach))
            return i + 2;
    }
    return in(x0, y0, x1, y1) ? 1 : 0;
}

int PrintScrollPosition(const PrintPosState& s, double value)
{
    return Trunc(value * s.scrollScale);
}

namespace {

// The left or top edge of the rectangle dragged by `steps` steps of
// `delta` each: it moves and the size takes up the difference, the size
// no smaller than a step and the edge no further than the smallest
// position.
void DragNearEdge(const PrintPosState& s, double& position, double& size, int steps, double delta)
{
    if (steps > 0 && size > s.step) {
        position = std::min(position + delta, position + size);
        size = std::max(size - delta, s.step);
    } else if (steps < 0 && position > s.minPosition) {
        size = std::min(size - delta, size + position);
        position = std::max(position + delta, s.minPosition);
    }
}

// The right or bottom edge: only the size changes, within the page.
void DragFarEdge(const PrintPosState& s, double position, double& size, int steps, double delta, double page)
{
    if (steps > 0)
        size = std::min(size + delta, page - position);
    else if (steps < 0)
        size = std::max(size + delta, s.step);
}

}  // namespace

bool DragPrintRect(PrintPosState& s, int dx, int dy, DragFields* fields, PrintPoint* cursor)
{
    const int sx = Trunc(Divide(dx, s.pixelsPerStepX));
    const int sy = Trunc(Divide(dy, s.pixelsPerStepY));
    if (sx == 0 && sy == 0)
        return false;
    const double ddx = s.step * sx, ddy = s.step * sy;
    const double left = s.left, top = s.top, width = s.width, height = s.height;
    const int h = s.dragHandle;
    const bool leftEdge = h == 2 || h == 4 || h == 8;
    const bool rightEdge = h == 3 || h == 5 || h == 9;
    const bool topEdge = h == 2 || h == 3 || h == 6;
    const bool bottomEdge = h == 4 || h == 5 || h == 7;

    if (leftEdge)
        DragNearEdge(s, s.left, s.width, sx, ddx);
    if (rightEdge)
        DragFarEdge(s, s.left, s.width, sx, ddx, s.pageWidth);
    if (topEdge)
        DragNearEdge(s, s.top, s.height, sy, ddy);
    if (bottomEdge)
        DragFarEdge(s, s.top, s.height, sy, ddy, s.pageHeight);
    if (h == 1) {
        if (sx > 0)
            s.left = std::min(s.left + ddx, s.pageWidth - s.width);
        else if (sx < 0)
            s.left = std::max(s.left + ddx, s.minPosition);
        if (sy > 0)
            s.top = std::min(s.top + ddy, s.pageHeight - s.height);
        else if (sy < 0)
            s.top = std::max(s.top + ddy, s.minPosition);
    }

    // The handle's new point, where the cursor is pulled to.
    const double spanX = s.pageRect.right - s.pageRect.left, spanY = s.pageRect.bottom - s.pageRect.top;
    const int x0 = Trunc(Divide(s.left, s.pageWidth) * spanX);
    const int y0 = Trunc(Divide(s.top, s.pageHeight) * spanY);
    const int x1 = x0 + Trunc(Divide(s.width, s.pageWidth) * spanX);
    const int y1 = y0 + Trunc(Divide(s.height, s.pageHeight) * spanY);
    const int xm = x0 + (x1 - x0) / 2, ym = y0 + (y1 - y0) / 2;
    switch (h) {
    case 2: *cursor = {x0, y0}; break;
    case 3: *cursor = {x1, y0}; break;
    case 4: *cursor = {x0, y1}; break;
    case 5: *cursor = {x1, y1}; break;
    case 6: *cursor = {xm, y0}; break;
    case 7: *cursor = {xm, y1}; break;
    case 8: *cursor = {x0, ym}; break;
    case 9: *cursor = {x1, ym}; break;
    default: *cursor = {xm, ym}; break;
    }

    int n = 0;
    *fields = DragFields{{0, 0, 0, 0}};
    if (s.left != left)
        fields->fields[n++] = kPrintLeftField;
    if (s.top != top)
        fields->fields[n++] = kPrintTopField;
    const bool widthMoved = s.width != width, heightMoved = s.height != height;
    if (s.distort == 0 && widthMoved && heightMoved) {
        fields->fields[n++] = kPrintWidthField;  // the link gives the height
    } else {
        if (widthMoved)
            fields->fields[n++] = kPrintWidthField;
        if (heightMoved)
            fields->fields[n++] = kPrintHeightField;
    }
    return true;
}

}  // namespace zv
