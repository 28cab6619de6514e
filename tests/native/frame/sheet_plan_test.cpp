// Which pages a destination sheet shows, by source and destination.
#include <gtest/gtest.h>

#include <vector>

#include "sheet_plan.h"

namespace {

using zv::SheetPage;
using Pages = std::vector<SheetPage>;

Pages Plan(unsigned short dlgId, short srcType, short destType, const char* destKey)
{
    SheetPage pages[zv::kMaxDestPages];
    int count = zv::PlanDestPages(dlgId, srcType, destType, destKey, pages);
    return Pages(pages, pages + count);
}

TEST(DestSheetPlan, OutputPageFirstThenTheImagePages)
{
    EXPECT_EQ(Plan(207, 1, 1, "TIF"), (Pages{SheetPage::kTifOut, SheetPage::kRotate, SheetPage::kAdjColors,
                                             SheetPage::kEditColors, SheetPage::kNumColors}));
    // A raster source to a metafile is traced.
    EXPECT_EQ(Plan(200, 1, 3, "WMF"), (Pages{SheetPage::kRasterOut, SheetPage::kRotate, SheetPage::kAdjColors,
                                             SheetPage::kEditColors, SheetPage::kNumColors, SheetPage::kTrace}));
    // A 3D destination has no rotation.
    EXPECT_EQ(Plan(228, 2, 6, "DXF"), (Pages{SheetPage::kEntityOut, SheetPage::kAdjColors, SheetPage::kEditColors,
                                             SheetPage::kNumColors}));
    // A number that is no output page adds none: the sheet opens on Rotate.
    EXPECT_EQ(Plan(0, 2, 1, "BMP").front(), SheetPage::kRotate);
}

TEST(DestSheetPlan, ColourCountOfDrawingsOnlyWhereTheFormatKeepsAPalette)
{
    auto hasNumColors = [](const Pages& pages) {
        for (SheetPage page : pages)
            if (page == SheetPage::kNumColors)
                return true;
        return false;
    };
    EXPECT_FALSE(hasNumColors(Plan(201, 2, 2, "CGM")));
    EXPECT_TRUE(hasNumColors(Plan(201, 2, 2, "dxf")));
    EXPECT_FALSE(hasNumColors(Plan(201, 2, 2, nullptr)));
}

TEST(DestSheetPlan, TraceOnlyFromRasterOrFaxToADrawing)
{
    auto traced = [](short srcType, short destType) { return Plan(200, srcType, destType, "X").back() == SheetPage::kTrace; };
    EXPECT_TRUE(traced(5, 6));
    EXPECT_FALSE(traced(2, 2));
    EXPECT_FALSE(traced(1, 5));
}

TEST(InfoPage, TemplateByTheSource)
{
    EXPECT_EQ(zv::InfoDialogNumber("TIF", 2), 231);
    EXPECT_EQ(zv::InfoDialogNumber("WMF", 3), 230);
    EXPECT_EQ(zv::InfoDialogNumber("CGM", 2), 230);
    EXPECT_EQ(zv::InfoDialogNumber("DXF", 6), 230);
    EXPECT_EQ(zv::InfoDialogNumber("TIF", 1), 231);
    EXPECT_EQ(zv::InfoDialogNumber("FAX", 5), 229);
    EXPECT_EQ(zv::InfoDialogNumber(nullptr, 1), 229);
}

}  // namespace
