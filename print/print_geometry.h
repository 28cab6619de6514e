// The numbers of printing without the platform: how an image fits the paper
// of the print dialog, the record of the print position page (page size,
// units, margins, the limits of the rectangle, the link of width and height,
// the refit for a rotation), the drag of the page picture and its hit test.
// The Windows side moves these numbers between the controls and the tags.
#pragma once

namespace zv {

// The edit fields of the print position page; the hidden scroll bar that
// holds a field's number has the id of the field plus one.
enum PrintField : int {
    kPrintTopField = 4501,
    kPrintLeftField = 4504,
    kPrintWidthField = 4507,
    kPrintHeightField = 4510,
};

struct PrintRect {
    int left, top, right, bottom;
};

struct PrintPoint {
    int x, y;
};

// The printer as the numbers see it: the dots per inch and the whole sheet
// in inches. A machine without a printer gets 300 dpi and 8.5 by 11.
struct PrinterSheet {
    double dpiX, dpiY;
    double paperW, paperH;
};
constexpr PrinterSheet kNoPrinterSheet = {300.0, 300.0, 8.5, 11.0};
// From a device's LOGPIXELS and PHYSICAL sizes (0 when unknown).
PrinterSheet SheetOfDevice(int dpiX, int dpiY, int physicalWidth, int physicalHeight);

// ------------------------------------------------ the printer dialog's fit

// What the print dialog writes: inches on the sheet less its margins.
struct PrintFit {
    double left, top, width, height;
};

// Fits an image of imageW x imageH pixels, turned by rotation degrees
// clockwise ("PRNROT"), into the box boxW x boxH inches (the last fit; a 0
// side means the whole sheet), and centres it on the sheet less 0.25 inch
// each side when margins are on.
PrintFit FitImageToPaper(const PrinterSheet& sheet, double imageW, double imageH, double rotation, double boxW,
                         double boxH, bool margins);

// ------------------------------------------------ the print position page

constexpr int kPrintUnitsSize = 8;  // the module-wide units of the last page
constexpr int kPrintStateUnitsSize = 64;
constexpr int kPrintModeNameSize = 128;
constexpr int kPrintKeyPrefixSize = 8;

// One record per open print position page: the numbers of the rectangle in
// the page's units. The Windows side keeps its pens and controls beside it.
struct PrintPosState {
    int fieldsBusy;       // 1 while a field is written or a linked field is sent
    int distort;          // 0: width and height keep aspect
    int pictureReady;     // 0: the picture isn't redrawn
    double minPosition;   // lowest left and top; always 0
    double pageWidth;     // printable area in units
    double pageHeight;
    double step;          // smallest size, stride of spin and drag
    double scrollScale;   // value to scroll position
    double aspect;        // width to height, in inches
    double left, top;     // on the printable area, in units
    double width, height;
    double dpiX, dpiY;
    double marginLeft, marginRight, marginTop, marginBottom;
    double baseWidthPix, baseHeightPix;  // the size in dots as the page opened
    double appliedRotation;              // the "PRNROT" the rectangle reflects
    int pageControlId, frameControlId;
    int pixelsPerStepX, pixelsPerStepY;
    PrintPoint lastCursor;
    PrintRect lastImageRect;  // empty: nothing to erase
    PrintRect pageRect, frameRect;
    char units[kPrintStateUnitsSize];
    char modeName[kPrintModeNameSize];
    char keyPrefix[kPrintKeyPrefixSize];
    short dragHandle;   // 0 none
    short hoverHandle;
};

// step and scrollScale of a unit: 1 and 1 for "PIX" and "PICA", else 0.1
// and 100.
void SetPrintUnitSteps(PrintPosState& s, const char* units);

// True when paperH is less than paperW.
bool IsLandscapeSheet(const PrinterSheet& sheet);
// The sheet as the driver's orientation has it: a driver set to landscape
// whose device reports a portrait sheet gets the two sides swapped.
PrinterSheet OrientedSheet(const PrinterSheet& sheet, bool driverLandscape);

// What the opening reads of the tags. Null texts and 0 numbers are absent.
struct PrintPosTags {
    const char* units;    // "PRNUNITS"
    const char* margins;  // "MARGINS"
    const char* aspect;   // "PRNA"
    double width, height; // "PRNW", "PRNH"
    double left, top;     // "PRTLEFT", "PRTTOP"
};

// Told each field's limited value (with fieldsBusy 1); quiet says the page
// needn't redraw after it.
class PrintFieldView {
public:
    virtual ~PrintFieldView() = default;
    virtual void Show(PrintPosState& s, int field, double value, bool quiet) = 0;
};

// Limits one value and shows it; with distort 0 and fieldsBusy 0 a size
// links the other side, which is shown quietly. Every way of changing a
// value ends here.
void OnPrintPosField(PrintPosState& s, int field, bool quiet, PrintFieldView& view);
// Shows left, top, width and height in that order.
void ShowAllPrintFields(PrintPosState& s, PrintFieldView& view);

// The opening of the page after the sheet's paper and orientation are
// known: units (printUnits is the module-wide value, taken over from the
// tag), margins, size, the link, the centred position and the base size in
// dots. imageW and imageH are pixels, 0 without an image. pageRect must be
// set already, since the picture's steps are worked out from it.
struct PrintOpening {
    bool distort;           // "PRTDISTORT" is to be "ON"
    double paperW, paperH;  // the whole sheet in the page's units
};
PrintOpening OpenPrintPos(PrintPosState& s, const PrinterSheet& sheet, double imageW, double imageH,
                  const PrintPosTags& tags, char (&printUnits)[kPrintUnitsSize], PrintFieldView& view);
// The sheet's size in the page's units, as the caption shows it after a
// change of units: the printable area and its margins.
double SheetWidthInUnits(const PrintPosState& s);
double SheetHeightInUnits(const PrintPosState& s);

// "Center" and "Zoom to page".
void CenterPrintRect(PrintPosState& s, PrintFieldView& view);
void ZoomPrintRectToPage(PrintPosState& s, PrintFieldView& view);
// One spin press on a field: up adds a step.
void SpinPrintField(PrintPosState& s, int field, bool up, PrintFieldView& view);

// A change of units to newUnits; printUnits holds the units the values are
// in and follows. False when nothing changed.
bool ChangePrintUnits(PrintPosState& s, const char* newUnits, char (&printUnits)[kPrintUnitsSize],
                      PrintFieldView& view);

// Makes the rectangle follow rotation degrees ("PRNROT"), from the base
// size, about its centre. False when the rotation is the applied one.
bool RefitForRotation(PrintPosState& s, double rotation, PrintFieldView& view);

// What a number typed into a field does. A position below 0, a size below
// step or the value in hand leaves everything alone (changed false).
struct TypedField {
    bool changed;
    bool alarm;     // a size larger than the page alone: the field is to
    double shown;   // show this room beside the position, rounded
};
TypedField OnPrintFieldTyped(PrintPosState& s, int field, double typed, PrintFieldView& view);

// ------------------------------------------------------- the page picture

// The handles of the picture: 0 outside, 1 the body, 2 to 5 the corners
// (top left, top right, bottom left, bottom right), 6 to 9 the middles of
// the top, bottom, left and right edges.
constexpr int kPrintHandleReach = 4;

// The image rectangle in the page control's coordinates, kept strictly
// inside pageRect.
PrintRect PrintImageRect(const PrintPosState& s);
// The eight handle squares of r, cut at limit, in the order 2 to 9.
void PrintHandleSquares(const PrintRect& r, const PrintRect& limit, PrintRect (&squares)[8]);
// The handle at the screen point (x, y) over the control at screen
// rectangle control; the positions are the scroll numbers of left, top,
// width and height.
int PrintHitTest(const PrintRect& control, int sl, int st, int sw, int sh, double pageWidth, double pageHeight,
                 double scrollScale, int x, int y);
// The scroll number of a value.
int PrintScrollPosition(const PrintPosState& s, double value);

// Fields that a drag changed, to be shown in this order (0 ends).
struct DragFields {
    int fields[4];
};
// One mouse move of a drag by (dx, dy) pixels from lastCursor. False when
// it is less than a step on both axes, and lastCursor stays. Otherwise the
// values move by whole steps by the rules of the dragged handle, fields
// names what to show, and cursor gets the handle's new point in the page
// control's coordinates.
bool DragPrintRect(PrintPosState& s, int dx, int dy, DragFields* fields, PrintPoint* cursor);

}  // namespace zv
