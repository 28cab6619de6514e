// The numbers of printing apart from any window: the fit of the print
// dialog, the opening, limits, link, units and rotation of the print
// position page, and the drag and hit test of its picture.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "print_geometry.h"

namespace {

using namespace zv;

// Records what the page would write into its fields.
struct FieldLog : PrintFieldView {
    struct Entry {
        int field;
        double value;
        bool quiet;
        int busy;
    };
    std::vector<Entry> shown;
    void Show(PrintPosState& s, int field, double value, bool quiet) override
    {
        shown.push_back({field, value, quiet, s.fieldsBusy});
    }
};

// A page opened over a sheet of 8.5 x 11 inches at 100 dpi, margins on,
// with a picture of 72 x 96 pixels.
struct OpenPage {
    PrintPosState s{};
    FieldLog log;
    char printUnits[kPrintUnitsSize] = "IN";
    PrintOpening opening{};

    explicit OpenPage(PrintPosTags tags = {}, double imageW = 2000, double imageH = 1000,
                      PrinterSheet sheet = {100, 100, 8.5, 11})
    {
        s.pageRect = {0, 0, 72, 96};
        opening = OpenPrintPos(s, sheet, imageW, imageH, tags, printUnits, log);
        log.shown.clear();
    }
};

TEST(PrinterFit, WidthOrHeightRulesByTheSmallerSlackAndCentresWithinTheMargins)
{
    const PrinterSheet letter = {100, 100, 8.5, 11};
    PrintFit fit = FitImageToPaper(letter, 1000, 500, 0, 0, 0, true);
    EXPECT_DOUBLE_EQ(fit.width, 8.5);
    EXPECT_DOUBLE_EQ(fit.height, 4.25);
    EXPECT_DOUBLE_EQ(fit.left, -0.25);
    EXPECT_DOUBLE_EQ(fit.top, 3.125);
    EXPECT_DOUBLE_EQ(FitImageToPaper(letter, 1000, 500, 0, 0, 0, false).left, 0.0);
    // A tall image: the height rules.
    fit = FitImageToPaper(letter, 500, 2000, 0, 0, 0, false);
    EXPECT_DOUBLE_EQ(fit.height, 11.0);
    EXPECT_DOUBLE_EQ(fit.width, 2.75);
    // Turned a quarter, the wide image is tall; the last fit is the box.
    fit = FitImageToPaper(letter, 1000, 500, 90, 0, 0, false);
    EXPECT_DOUBLE_EQ(fit.width, 5.5);
    EXPECT_DOUBLE_EQ(fit.height, 11.0);
    fit = FitImageToPaper(letter, 1000, 500, 0, 4, 4, false);
    EXPECT_DOUBLE_EQ(fit.width, 4.0);
    EXPECT_DOUBLE_EQ(fit.height, 2.0);
    // No printer and no image give numbers, not a crash.
    fit = FitImageToPaper(SheetOfDevice(0, 0, 0, 0), 0, 0, 0, 0, 0, true);
    EXPECT_DOUBLE_EQ(fit.width, 0.0);
}

TEST(PrintPosOpening, FillsThePageKeepingTheImagesAspectAndCentres)
{
    OpenPage page;
    EXPECT_DOUBLE_EQ(page.s.pageWidth, 8.0);
    EXPECT_DOUBLE_EQ(page.s.pageHeight, 10.5);
    EXPECT_EQ(page.s.distort, 0);
    EXPECT_FALSE(page.opening.distort);
    EXPECT_DOUBLE_EQ(page.s.width, 8.0);
    EXPECT_DOUBLE_EQ(page.s.height, 4.0);
    EXPECT_DOUBLE_EQ(page.s.left, 0.0);
    EXPECT_DOUBLE_EQ(page.s.top, 3.25);
    EXPECT_DOUBLE_EQ(page.s.baseWidthPix, 800.0);
    EXPECT_EQ(page.s.pageControlId, 4513);
    // 72 pixels over 85 steps of a tenth: less than one pixel a step.
    EXPECT_EQ(page.s.pixelsPerStepX, 0);
    EXPECT_EQ(OpenPage({}, 0, 0).s.aspect, 1.0);  // no image

    PrintPosTags onlyWidth{};
    onlyWidth.width = 4;
    EXPECT_DOUBLE_EQ(OpenPage(onlyWidth).s.height, 2.0);
    PrintPosTags both{};
    both.width = 3;
    both.height = 5;
    both.aspect = "0";  // 0 counts as "keep"
    EXPECT_EQ(OpenPage(both).s.distort, 0);
    both.aspect = "2.5";
    EXPECT_EQ(OpenPage(both).s.distort, 1);
    EXPECT_DOUBLE_EQ(OpenPage(both).s.height, 5.0);
}

TEST(PrintPosOpening, AStoredSizeAtTheCornerIsNotCutButOneBesideAPositionIs)
{
    PrintPosTags tags{};
    tags.width = 20;
    OpenPage corner(tags);
    EXPECT_DOUBLE_EQ(corner.s.width, 20.0);
    EXPECT_DOUBLE_EQ(corner.s.left, 0.0);
    // Away from the corner the page is the limit: the position is clamped
    // first, and the width then to the page.
    tags.left = 2;
    OpenPage beside(tags);
    EXPECT_DOUBLE_EQ(beside.s.width, 8.0);
    EXPECT_DOUBLE_EQ(beside.s.height, 4.0);
}

TEST(PrintPosOpening, UnitsStepsMarginsAndLandscape)
{
    PrintPosTags cm{};
    cm.units = "cm";
    OpenPage page(cm);
    EXPECT_STREQ(page.printUnits, "cm");  // the tag's units stay for the next page
    EXPECT_DOUBLE_EQ(page.s.marginLeft, 0.25);  // 0.25 of the page's own units
    EXPECT_NEAR(page.s.pageWidth, 21.1, 1e-9);
    EXPECT_DOUBLE_EQ(page.s.step, 0.1);
    for (const char* units : {"PIX", "pica"}) {
        PrintPosTags whole{};
        whole.units = units;
        OpenPage p(whole);
        EXPECT_EQ(p.s.step, 1.0) << units;
        EXPECT_EQ(p.s.scrollScale, 1.0) << units;
    }
    PrintPosTags off{};
    off.margins = "off";
    EXPECT_DOUBLE_EQ(OpenPage(off).s.pageWidth, 8.5);

    const PrinterSheet portrait = {300, 300, 8.27, 11.69};
    PrinterSheet turned = OrientedSheet(portrait, true);
    EXPECT_DOUBLE_EQ(turned.paperW, 11.69);
    EXPECT_DOUBLE_EQ(OrientedSheet(turned, true).paperW, 11.69);  // already landscape
    EXPECT_EQ(OpenPage({}, 2000, 1000, turned).s.pageControlId, 4515);
}

TEST(PrintPosFields, ClampsKeepTheRectangleOnThePageAndSizesAtLeastAStep)
{
    OpenPage page;
    PrintPosState& s = page.s;
    s.distort = 1;
    s.left = 7;
    s.width = 3;
    OnPrintPosField(s, kPrintWidthField, false, page.log);
    EXPECT_DOUBLE_EQ(s.width, 1.0);
    s.left = 9;
    OnPrintPosField(s, kPrintLeftField, false, page.log);
    EXPECT_DOUBLE_EQ(s.left, 7.0);
    s.left = -1;
    OnPrintPosField(s, kPrintLeftField, false, page.log);
    EXPECT_DOUBLE_EQ(s.left, 0.0);
    s.height = 0.01;
    OnPrintPosField(s, kPrintHeightField, false, page.log);
    EXPECT_DOUBLE_EQ(s.height, 0.1);
    // A width of one step can't be spun smaller.
    s.width = s.step;
    SpinPrintField(s, kPrintWidthField, false, page.log);
    EXPECT_DOUBLE_EQ(s.width, s.step);
    // Each field is shown while fieldsBusy holds off the edit notifications.
    for (const auto& e : page.log.shown)
        EXPECT_EQ(e.busy, 1);
}

TEST(PrintPosFields, TheLinkFollowsTheOtherSideInEveryUnitAndGivesWayAtThePage)
{
    for (const char* units : {"IN", "CM", "PICA", "PIX"}) {
        PrintPosTags tags{};
        tags.units = units;
        OpenPage page(tags);
        PrintPosState& s = page.s;
        s.width = s.pageWidth / 2;
        OnPrintPosField(s, kPrintWidthField, false, page.log);
        EXPECT_NEAR(s.height, s.width / 2, 1e-9) << units;
        s.height = s.pageHeight / 8;
        OnPrintPosField(s, kPrintHeightField, false, page.log);
        EXPECT_NEAR(s.width, s.height * 2, 1e-9) << units;
        // The linked side is shown quietly, before the field that moved.
        ASSERT_GE(page.log.shown.size(), 2u);
        EXPECT_EQ(page.log.shown[page.log.shown.size() - 2].field, kPrintWidthField);
        EXPECT_TRUE(page.log.shown[page.log.shown.size() - 2].quiet);
    }
    // aspect 2, width 6, pageHeight 2: the height hits the page.
    OpenPage page;
    PrintPosState& s = page.s;
    s.pageHeight = 2;
    s.top = 0;
    s.width = 6;
    OnPrintPosField(s, kPrintWidthField, false, page.log);
    EXPECT_DOUBLE_EQ(s.height, 2.0);
    EXPECT_DOUBLE_EQ(s.width, 4.0);
    // With distort only the field that changed moves.
    s.distort = 1;
    s.width = 3;
    OnPrintPosField(s, kPrintWidthField, false, page.log);
    EXPECT_DOUBLE_EQ(s.height, 2.0);
}

TEST(PrintPosFields, TypedSizesCenterAndZoom)
{
    OpenPage page;
    PrintPosState& s = page.s;
    s.distort = 1;
    s.left = 3;
    // Fits the page but not beside left: left gives way.
    TypedField typed = OnPrintFieldTyped(s, kPrintWidthField, 6, page.log);
    EXPECT_TRUE(typed.changed);
    EXPECT_FALSE(typed.alarm);
    EXPECT_DOUBLE_EQ(s.width, 6);
    EXPECT_LE(s.left + s.width, s.pageWidth);
    // Wider than the page: the alarm and the room beside left.
    s.left = 2;
    typed = OnPrintFieldTyped(s, kPrintWidthField, 9, page.log);
    EXPECT_TRUE(typed.alarm);
    EXPECT_DOUBLE_EQ(typed.shown, 6.0);
    EXPECT_FALSE(OnPrintFieldTyped(s, kPrintWidthField, 0.05, page.log).changed);
    EXPECT_FALSE(OnPrintFieldTyped(s, kPrintTopField, -1, page.log).changed);

    s.distort = 0;
    ZoomPrintRectToPage(s, page.log);
    EXPECT_DOUBLE_EQ(s.width, 8.0);
    EXPECT_DOUBLE_EQ(s.height, 4.0);
    EXPECT_DOUBLE_EQ(s.left, 0.0);
    EXPECT_DOUBLE_EQ(s.top, 3.25);
    EXPECT_EQ(s.pictureReady, 1);
}

TEST(PrintPosUnits, AChangeConvertsEveryLengthAndTheMarginsAsLengths)
{
    PrintPosTags cm{};
    cm.units = "CM";
    OpenPage page(cm);
    PrintPosState& s = page.s;
    const double width = s.width, left = s.left;
    ASSERT_TRUE(ChangePrintUnits(s, "IN", page.printUnits, page.log));
    EXPECT_STREQ(page.printUnits, "IN");
    EXPECT_NEAR(s.marginLeft, 0.25 / 2.54, 1e-9);
    EXPECT_NEAR(s.width, width / 2.54, 1e-9);
    EXPECT_NEAR(s.left, left / 2.54, 1e-9);
    EXPECT_NEAR(SheetWidthInUnits(s), 8.5, 0.05);
    // There and back again.
    ASSERT_TRUE(ChangePrintUnits(s, "PIX", page.printUnits, page.log));
    EXPECT_EQ(s.step, 1.0);
    ASSERT_TRUE(ChangePrintUnits(s, "CM", page.printUnits, page.log));
    EXPECT_NEAR(s.width, width, 1e-9);
    EXPECT_FALSE(ChangePrintUnits(s, "cm", page.printUnits, page.log));
}

TEST(PrintPosRotation, TurnsAboutTheCentreFromTheOpeningSize)
{
    PrintPosTags tags{};
    tags.width = 4;
    tags.height = 6;
    OpenPage page(tags, 400, 600);
    PrintPosState& s = page.s;
    ASSERT_DOUBLE_EQ(s.left, 2.0);
    ASSERT_DOUBLE_EQ(s.top, 2.25);
    ASSERT_TRUE(RefitForRotation(s, 90, page.log));
    EXPECT_DOUBLE_EQ(s.width, 6.0);
    EXPECT_DOUBLE_EQ(s.height, 4.0);
    EXPECT_DOUBLE_EQ(s.left, 1.0);
    EXPECT_DOUBLE_EQ(s.top, 3.25);
    EXPECT_EQ(s.pictureReady, 0);
    EXPECT_FALSE(RefitForRotation(s, 90, page.log));
    // A size set by hand is given up: back at 0 stands the opening's size.
    s.width = 2;
    OnPrintPosField(s, kPrintWidthField, false, page.log);
    ASSERT_TRUE(RefitForRotation(s, 0, page.log));
    EXPECT_DOUBLE_EQ(s.width, 4.0);
    EXPECT_DOUBLE_EQ(s.height, 6.0);
    // A turned size larger than the page is cut to it, keeping the aspect.
    OpenPage wide({}, 2000, 1000, {100, 100, 11, 8.5});
    ASSERT_DOUBLE_EQ(wide.s.width, 10.5);
    ASSERT_TRUE(RefitForRotation(wide.s, 90, wide.log));
    EXPECT_DOUBLE_EQ(wide.s.height, 8.0);
    EXPECT_DOUBLE_EQ(wide.s.width, 4.0);
}

TEST(PrintPicture, TheImageRectStaysInsideAndHandlesAreCutAtThePage)
{
    OpenPage page;
    PrintPosState& s = page.s;
    s.pageRect = {0, 0, 80, 105};
    s.left = s.top = 0;
    s.width = s.pageWidth;
    s.height = s.pageHeight;
    PrintRect r = PrintImageRect(s);
    EXPECT_EQ(r.left, 1);
    EXPECT_EQ(r.top, 1);
    EXPECT_EQ(r.right, 79);
    EXPECT_EQ(r.bottom, 104);
    PrintRect squares[8];
    PrintHandleSquares(r, s.pageRect, squares);
    EXPECT_EQ(squares[0].left, 1);   // top left corner, cut both ways
    EXPECT_EQ(squares[0].top, 1);
    EXPECT_EQ(squares[4].left, 36);  // middle of the top edge: cut in height only
    EXPECT_EQ(squares[4].top, 1);
    EXPECT_EQ(squares[7].right, 79);
}

TEST(PrintPicture, HitTestTakesTheFirstSquareInItsOrder)
{
    // A control at (100, 200), 80 x 105 pixels, over a page of 8 x 10.5
    // inches in hundredths.
    const PrintRect control = {100, 200, 180, 305};
    auto hit = [&](int sl, int st, int sw, int sh, int x, int y) {
        return PrintHitTest(control, sl, st, sw, sh, 8.0, 10.5, 100.0, x, y);
    };
    // Rectangle 10..50 by 20..60 pixels in the control.
    EXPECT_EQ(hit(100, 200, 400, 400, 110, 220), 2);
    EXPECT_EQ(hit(100, 200, 400, 400, 150, 260), 5);
    EXPECT_EQ(hit(100, 200, 400, 400, 130, 220), 6);
    EXPECT_EQ(hit(100, 200, 400, 400, 150, 240), 9);
    EXPECT_EQ(hit(100, 200, 400, 400, 135, 245), 1);
    EXPECT_EQ(hit(100, 200, 400, 400, 170, 290), 0);
    // A tiny rectangle: the corners win over the middles, top left first.
    EXPECT_EQ(hit(100, 200, 10, 10, 111, 221), 2);
}

TEST(PrintPicture, DragMovesInWholeStepsByTheHandlesRules)
{
    OpenPage page;
    PrintPosState& s = page.s;
    s.pageRect = {0, 0, 160, 210};  // 2 pixels a step of 0.1 inch on 8 x 10.5
    s.pixelsPerStepX = s.pixelsPerStepY = 2;
    s.distort = 1;
    s.left = 1;
    s.top = 1;
    s.width = 2;
    s.height = 2;
    DragFields fields;
    PrintPoint cursor;
    s.dragHandle = 1;
    EXPECT_FALSE(DragPrintRect(s, 1, 1, &fields, &cursor));  // less than a step
    ASSERT_TRUE(DragPrintRect(s, 5, -3, &fields, &cursor));
    EXPECT_DOUBLE_EQ(s.left, 1.2);
    EXPECT_DOUBLE_EQ(s.top, 0.9);
    EXPECT_EQ(fields.fields[0], kPrintLeftField);
    EXPECT_EQ(fields.fields[1], kPrintTopField);
    EXPECT_EQ(fields.fields[2], 0);
    EXPECT_EQ(cursor.x, 24 + 20);  // the middle of the moved rectangle
    // The left edge stops at the old right edge, one step wide.
    s.dragHandle = 8;
    ASSERT_TRUE(DragPrintRect(s, 100, 0, &fields, &cursor));
    EXPECT_DOUBLE_EQ(s.width, 0.1);
    EXPECT_DOUBLE_EQ(s.left, 3.2);
    // A corner with the aspect kept shows the width alone, for the link.
    s.distort = 0;
    s.dragHandle = 5;
    ASSERT_TRUE(DragPrintRect(s, 20, 20, &fields, &cursor));
    EXPECT_EQ(fields.fields[0], kPrintWidthField);
    EXPECT_EQ(fields.fields[1], 0);
    // No pixels per step: no step at all.
    s.pixelsPerStepX = s.pixelsPerStepY = 0;
    EXPECT_FALSE(DragPrintRect(s, 50, 50, &fields, &cursor));
}

}  // namespace
