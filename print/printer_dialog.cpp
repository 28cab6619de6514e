// The print dialog: the system's own on a template of this library, which
// adds "Options...". Around the dialog the image is fitted to the chosen
// paper and the fit left in tags, in inches, so that a host that prints
// straight away finds the image's place on the sheet there.
#include <cstring>

#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "dialog_guard.h"
#include "frame.h"
#include "module.h"
#include "print.h"
#include "print_geometry.h"
#include "print_ids.h"
#include "ravicli.h"
#include "seams.h"
#include "zvopt32.h"
#include "zvwio32.h"

// The record is the platform's print dialog record of the architecture
// built: 66 bytes, packed, in the 32-bit build.
#if defined(_WIN64)
static_assert(sizeof(PRINTDLGA) == 120, "the 64-bit print dialog record");
#else
static_assert(sizeof(PRINTDLGA) == 66, "the 32-bit print dialog record");
#endif

namespace {

// Posted by the hook when another printer was picked, so that the list's
// own selection is complete when the fit reads it.
constexpr UINT WM_PRINTERCHANGED = WM_USER + 1039;
static_assert(WM_PRINTERCHANGED == 2063);

constexpr DWORD kPrintDialogFlags = PD_USEDEVMODECOPIES | PD_ENABLEPRINTTEMPLATE | PD_ENABLEPRINTHOOK |
                                    PD_SHOWHELP | PD_RETURNDC | PD_COLLATE | PD_NOSELECTION;
static_assert(kPrintDialogFlags == 0x45914);

constexpr unsigned long kHelpPrintOptionsButton = 1050;
constexpr int kDeviceLineSize = 128;

// 1 when the dialog ended through "Options...".
int printOptionsPressed = 0;

// The printer of the tags' fit: the one the list shows, or with no dialog
// the system's default ("name,driver,port" in [windows]).
void FindPrinterName(HWND dialog, OptionContext* o)
{
    if (dialog == nullptr) {
        GetProfileStringA("windows", "device", "", o->printerName, kDeviceLineSize);
        if (char* comma = std::strchr(o->printerName, ','))
            *comma = 0;
        return;
    }
    HWND list = GetDlgItem(dialog, IDC_PRINT_PRINTER_LIST);
    LRESULT index = list ? SendMessageA(list, CB_GETCURSEL, 0, 0) : CB_ERR;
    if (index == CB_ERR)
        return;
    char name[256] = {};
    if (SendMessageA(list, CB_GETLBTEXTLEN, index, 0) < LRESULT(sizeof name) &&
        SendMessageA(list, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(name)) != CB_ERR)
        zv::CopyBounded(o->printerName, name);
}

void ShowPrintDialogHelp()
{
    ShowContextHelp(WM_COMMAND, IDHELP, zv::kHelpPrintDialog);
}

}  // namespace

zv::PrinterSheet PrinterSheetOf(HDC dc)
{
    return zv::SheetOfDevice(GetDeviceCaps(dc, LOGPIXELSX), GetDeviceCaps(dc, LOGPIXELSY),
                             GetDeviceCaps(dc, PHYSICALWIDTH), GetDeviceCaps(dc, PHYSICALHEIGHT));
}

void ComputePrintLayout(HWND dialog)
{
    OptionContext* o = Options();
    TagSet* tags = o->tags;
    const zv::TagKey cproc(o->srcExt, "~~~CPROC");
    if (ZvGetTag(tags, cproc) == nullptr)
        ZvSetTag(tags, cproc, "HALF");

    double width = 0, height = 0;
    if (o->sourceDewey != nullptr) {
        long w = 0, h = 0;
        o->sourceDewey->GetInfo(&w, &h, nullptr, nullptr, nullptr);
        width = w;
        height = h;
    } else {
        width = static_cast<long>(ZvGetFloatTag(tags, "PRNW"));
        height = static_cast<long>(ZvGetFloatTag(tags, "PRNH"));
    }

    FindPrinterName(dialog, o);
    HDC dc = o->printDlgData ? o->printDlgData->hDC : nullptr;
    HDC made = dc ? nullptr : GetPrinterDC(o->printerName);
    // Without any printer the device numbers are 0, and so is the fit.
    const zv::PrinterSheet sheet = PrinterSheetOf(dc ? dc : made);
    if (made)
        DeleteDC(made);

    const char* margins = ZvGetTag(tags, "MARGINS");
    const bool withMargins = margins == nullptr || lstrcmpiA(margins, "ON") == 0;
    const zv::PrintFit fit = zv::FitImageToPaper(sheet, width, height, ZvGetFloatTag(tags, "PRNROT"),
                                                 ZvGetFloatTag(tags, "PRNW"), ZvGetFloatTag(tags, "PRNH"),
                                                 withMargins);
    ZvSetTag(tags, "PRNUNITS", "IN");
    ZvSetFloatTag(tags, "PRTLEFT", fit.left, 32);
    ZvSetFloatTag(tags, "PRTTOP", fit.top, 32);
    ZvSetFloatTag(tags, "PRNW", fit.width, 32);
    ZvSetFloatTag(tags, "PRNH", fit.height, 32);
    ZvSetFloatTag(tags, "PRNHR", sheet.dpiX, 32);
    ZvSetFloatTag(tags, "PRNVR", sheet.dpiY, 32);
}

extern "C" {

ZVOPT32_API UINT_PTR CALLBACK PrintHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    (void)lParam;
    switch (message) {
    case WM_INITDIALOG:
        printOptionsPressed = 0;
        return 0;
    case WM_HELP:
        PostMessageA(dialog, WM_COMMAND, IDC_PRINT_HELP, 0);
        return 1;
    case WM_CONTEXTMENU:
        if (reinterpret_cast<HWND>(wParam) == GetDlgItem(dialog, IDC_PRINT_OPTIONS)) {
            static const DWORD table[] = {IDC_PRINT_OPTIONS, kHelpPrintOptionsButton, 0, 0};
            SeamWinHelp(reinterpret_cast<HWND>(wParam), Options()->helpFile, HELP_CONTEXTMENU,
                        reinterpret_cast<ULONG_PTR>(table));
        }
        return 0;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_PRINT_HELP:
            ShowPrintDialogHelp();
            return 1;
        case IDC_PRINT_OPTIONS:
            // Ends the dialog as OK does, so that the record gets its DC.
            printOptionsPressed = 1;
            PostMessageA(dialog, WM_COMMAND, IDOK, 0);
            return 1;
        case IDC_PRINT_PRINTER_LIST:
            if (HIWORD(wParam) == CBN_SELCHANGE)
                PostMessageA(dialog, WM_PRINTERCHANGED, 0, 0);
            return 0;
        default:
            return 0;
        }
    case WM_PRINTERCHANGED:
        ComputePrintLayout(dialog);
        return 1;
    default:
        return 0;
    }
}

ZVOPT32_API int DoPrinterDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                             OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                             PRINTDLGA* print, int printFlag, Dewey* image, int start)
{
    DialogGuard guard(__func__);
    if (!guard.Held())
        return 0;
    OptionContext* o = Options();
    if (start != 0) {
        InitOptionContext(parent, tags, appTitle, helpFile, formats, srcExt, destExt, operation, 0, image, 0);
        o->printFlag = printFlag;
        o->printDlgData = print;
        ComputePrintLayout(nullptr);
    }
    PRINTDLGA* record = o->printDlgData;
    if (record == nullptr) {
        // A first call without start has no record to show.
        Diagnostic("%s: no print record; the first call must start", __func__);
        return 0;
    }
    record->lStructSize = sizeof(PRINTDLGA);
    record->hwndOwner = parent;
    record->hInstance = LibraryModule();
    record->hDC = nullptr;
    record->nFromPage = record->nToPage = record->nMinPage = record->nMaxPage = record->nCopies = 0;
    record->lpfnPrintHook = PrintHookProc;
    record->lpfnSetupHook = nullptr;
    record->lpSetupTemplateName = nullptr;
    record->lpPrintTemplateName = MAKEINTRESOURCEA(IDD_PRINT_DIALOG);
    record->Flags = kPrintDialogFlags;
    printOptionsPressed = 0;

    int result = PrintDlgA(record) ? 1 : 0;
    if (printOptionsPressed == 0)
        ComputePrintLayout(nullptr);  // after Cancel too
    else
        result = 2;
    Diagnostic("%s: gives %d", __func__, result);
    return result;
}

}  // extern "C"
