// Which page object stands for which kind, and the pages of a destination
// sheet.
#include "sheet_pages.h"

#include "core_win.h"
#include "frame.h"

SheetPages::SheetPages() = default;

CPropertyPage* PageOf(SheetPages& pages, zv::SheetPage kind)
{
    // One case per page class.
    switch (kind) {
    case zv::SheetPage::kEntityOut: return &pages.entityOut;
    case zv::SheetPage::kRasterOut: return &pages.rasterOut;
    case zv::SheetPage::kVectorOut: return &pages.vectorOut;
    case zv::SheetPage::kRotate: return &pages.rotate;
    case zv::SheetPage::kAdjColors: return &pages.adjColors;
    case zv::SheetPage::kNumColors: return &pages.numColors;
    case zv::SheetPage::kEditColors: return &pages.editColors;
    case zv::SheetPage::kResize: return &pages.resize;
    case zv::SheetPage::kEpsOut: return &pages.epsOut;
    case zv::SheetPage::kGifOut: return &pages.gifOut;
    case zv::SheetPage::kIcoOut: return &pages.icoOut;
    case zv::SheetPage::kJpgOut: return &pages.jpgOut;
    case zv::SheetPage::kTifOut: return &pages.tifOut;
    case zv::SheetPage::kFaxOut: return &pages.faxOut;
    case zv::SheetPage::kPrintPos: return &pages.printPos;
    case zv::SheetPage::kTrace: return &pages.trace;
    case zv::SheetPage::kInfo: return &pages.info;
    }
    return nullptr;
}

int AddSheetPages(CPropertySheet& sheet, SheetPages& pages, const zv::SheetPage* kinds, int count)
{
    int added = 0;
    for (int i = 0; i < count; ++i) {
        CPropertyPage* page = PageOf(pages, kinds[i]);
        if (page == nullptr)
            continue;
        UseLibraryTemplate(*page);
        sheet.AddPage(page);
        ++added;
    }
    return added;
}

int AddDestPages(CPropertySheet& sheet, SheetPages& pages, unsigned short dlgId)
{
    const OptionContext* o = Options();
    zv::SheetPage kinds[zv::kMaxDestPages];
    int count = zv::PlanDestPages(dlgId, o->srcType, o->destType, o->destKey, kinds);
    return AddSheetPages(sheet, pages, kinds, count);
}
