// The page objects of the library's option sheets.
//
// Every page class has one member in SheetPages, and PageOf
// (frame/sheet_pages.cpp) gives that member for its kind. The tables of the
// sheets (PlanDestPages for the destination sheet, the lists of the entries
// in frame/sheet_entries.cpp) name every kind; a kind without a page class
// in this library is left out of its sheet.
#pragma once

#include "adjust.h"
#include "dest.h"
#include "format_pages.h"
#include "print.h"
#include "info_page.h"
#include "sheet_plan.h"
#include "toolkit.h"
#include "trace.h"

// Every page of a sheet, constructed together on the stack of the entry
// whether the sheet adds it or not.
struct SheetPages {
    SheetPages();
    CRasterOutPropPage rasterOut;
    CVectorOutPropPage vectorOut;
    CEntityOutPropPage entityOut;
    CRotatePropPage rotate;
    CAdjColorsPropPage adjColors;
    CNumColorsPropPage numColors;
    CEditColorsPropPage editColors;
    CResizePropPage resize;
    CEPSOutPropPage epsOut;
    CGIFOutPropPage gifOut;
    CICOOutPropPage icoOut;
    CJPGOutPropPage jpgOut;
    CTIFOutPropPage tifOut;
    CFAXOutPropPage faxOut;
    CPrintPosPropPage printPos;
    CTracePropPage trace;
    CInfoPropPage info;
};

// The page object of a kind, or null for a kind without a page class.
CPropertyPage* PageOf(SheetPages& pages, zv::SheetPage kind);

// Adds the pages of the kinds, in order, each on its template in this
// library; kinds without a page are skipped. Gives the number added.
int AddSheetPages(CPropertySheet& sheet, SheetPages& pages, const zv::SheetPage* kinds, int count);

// The destination sheet's pages for the number dlgId, chosen by the source
// and destination of the option context.
int AddDestPages(CPropertySheet& sheet, SheetPages& pages, unsigned short dlgId);
