// The exported option sheets. Each takes the common road of RunSheetEntry
// and differs only in its pages, its caption and whether it wants previews.
#include "core_win.h"
#include "dialog_guard.h"
#include "frame.h"
#include "resource_ids.h"
#include "sheet_pages.h"
#include "zvwio32.h"

namespace {

using zv::SheetPage;

// A sheet of a fixed list of pages on a child set.
struct FixedPages {
    const SheetPage* kinds;
    int count;
};

int RunFixedPages(CPropertySheet& sheet, void* data)
{
    const FixedPages* fixed = static_cast<const FixedPages*>(data);
    SheetPages pages;
    AddSheetPages(sheet, pages, fixed->kinds, fixed->count);
    return RunOptionSheet(sheet, true) == IDOK ? 1 : 0;
}

template <int N>
int FixedSheet(const SheetArgs& args, int wantPreview, const SheetPage (&kinds)[N])
{
    FixedPages fixed = {kinds, N};
    return RunSheetEntry(args, wantPreview, IDS_PROCESSING_OPTIONS, RunFixedPages, &fixed);
}

SheetArgs ArgsOf(const char* entry, HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                 OKAMOD* formats, const char* srcExt, const char* destExt, short operation, short srcType,
                 Dewey* image)
{
    return SheetArgs{entry, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, srcType, image};
}

int RunDestPages(CPropertySheet& sheet, void* data)
{
    unsigned short dlgId = *static_cast<unsigned short*>(data);
    int result;
    {
        SheetPages pages;
        AddDestPages(sheet, pages, dlgId);
        result = RunOptionSheet(sheet, true);
        // The destination sheet alone frees its thumbnails itself; the
        // destructors of its preview pages then find nothing left.
        FreePreviews();
    }
    return result == IDOK ? 1 : 0;
}

struct PropertiesData {
    RECT* rect;
    char* fileName;
};

int RunPropertiesPage(CPropertySheet& sheet, void* data)
{
    const PropertiesData* props = static_cast<const PropertiesData*>(data);
    OptionContext* o = Options();
    o->propRect = props->rect;
    o->openPath = props->fileName;
    SheetPages pages;
    if (CPropertyPage* info = PageOf(pages, SheetPage::kInfo)) {
        info->Construct(zv::InfoDialogNumber(ZvGetInternalExt(o->formats, o->srcExt), o->srcType));
        const SheetPage kinds[] = {SheetPage::kInfo};
        AddSheetPages(sheet, pages, kinds, 1);
    }
    // The page only shows: no child set, nothing to merge.
    int result = RunOptionSheet(sheet, false);
    return result < 0 ? 0 : result;
}

}  // namespace

extern "C" {

ZVOPT32_API int DoDestOptionsDlg(HWND parent, unsigned short dlgId, TagSet* tags, const char* appTitle,
                                 const char* helpFile, OKAMOD* formats, const char* srcExt, const char* destExt,
                                 short operation, short srcType, Dewey* image)
{
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, srcType,
                            image);
    return RunSheetEntry(args, 1, IDS_PROCESSING_OPTIONS, RunDestPages, &dlgId);
}

ZVOPT32_API int DoSrcOptionsDlg(HWND parent, DLGPROC dlgProc, unsigned short dlgId, TagSet* tags,
                                const char* appTitle, const char* helpFile, OKAMOD* formats, const char* srcExt,
                                const char* destExt, short operation, short srcType, Dewey* image)
{
    // The runner tests the guard again; this first test keeps a refused
    // call from touching the context of the dialog in hand.
    if (RefuseWhileDialogRuns(__func__))
        return 0;
    InitOptionContext(parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, srcType, image, 0);
    return static_cast<int>(RunCommonDialog(dlgId, parent, dlgProc));
}

ZVOPT32_API int DoAdjColorsDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                               OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                               Dewey* image)
{
    static const SheetPage kinds[] = {SheetPage::kAdjColors};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0,
                            image);
    return FixedSheet(args, 1, kinds);
}

ZVOPT32_API int DoEditColorsDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                                OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                                Dewey* image)
{
    static const SheetPage kinds[] = {SheetPage::kEditColors};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0,
                            image);
    return FixedSheet(args, 0, kinds);
}

ZVOPT32_API int DoNumColorsDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                               OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                               Dewey* image)
{
    static const SheetPage kinds[] = {SheetPage::kNumColors};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0,
                            image);
    return FixedSheet(args, 0, kinds);
}

ZVOPT32_API int DoPrintPosDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                              OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                              Dewey* image)
{
    static const SheetPage kinds[] = {SheetPage::kPrintPos, SheetPage::kAdjColors, SheetPage::kEditColors,
                                      SheetPage::kNumColors, SheetPage::kRotate};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0,
                            image);
    return FixedSheet(args, 1, kinds);
}

ZVOPT32_API int DoResizeDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                            OKAMOD* formats, const char* srcExt, const char* destExt, short operation, Dewey* image)
{
    static const SheetPage kinds[] = {SheetPage::kResize};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0,
                            image);
    return FixedSheet(args, 0, kinds);
}

ZVOPT32_API int DoRotateDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                            OKAMOD* formats, const char* srcExt, const char* destExt, short operation, Dewey* image)
{
    static const SheetPage kinds[] = {SheetPage::kRotate};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0,
                            image);
    return FixedSheet(args, 1, kinds);
}

ZVOPT32_API int DoTraceDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                           OKAMOD* formats, const char* srcExt, const char* destExt, short operation, Dewey* image)
{
    static const SheetPage kinds[] = {SheetPage::kTrace};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0,
                            image);
    return FixedSheet(args, 0, kinds);
}

ZVOPT32_API int DoPropertiesDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                                OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                                Dewey* image, RECT* rect, char* fileName)
{
    PropertiesData data = {rect, fileName};
    SheetArgs args = ArgsOf(__func__, parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0, image);
    return RunSheetEntry(args, 0, IDS_PROPERTIES, RunPropertiesPage, &data);
}

}  // extern "C"
