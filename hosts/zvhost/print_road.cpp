// File > Print as a host of the suite runs it. The print dialog fits the
// image to the paper; "Options..." ends it with 2, and the host then shows
// the print options sheet, where the user places the image on the sheet.
// Either way the tags say where the image goes, and the print job puts it
// there.
#include "print_road.h"

#include <commdlg.h>

#include <cstring>

#include "okaio32.h"
#include "okamod32.h"
#include "print_job.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The host's print record: the printer and its settings stay from one
// print to the next.
PRINTDLGA g_print = {};

const char* ExtensionOf(const char* path)
{
    const char* dot = std::strrchr(path, '.');
    const char* slash = std::strrchr(path, '\\');
    return dot != nullptr && (slash == nullptr || dot > slash) ? dot + 1 : "";
}

}  // namespace

int PrintFromHost(HWND owner, TagSet* tags, OKAMOD* formats, Dewey* image, const char* path, const char* docName)
{
    char srcExt[16] = {};
    lstrcpynA(srcExt, ExtensionOf(path), sizeof srcExt);
    char* title = const_cast<char*>("Zavrin PRO");
    int chosen = DoPrinterDlg(owner, tags, title, nullptr, formats, srcExt, "PRN", 3, &g_print, 0, image, 1);
    if (chosen == 2 && !DoPrintPosDlg(owner, tags, title, nullptr, formats, srcExt, "PRN", 3, image))
        chosen = 0;
    HDC printer = g_print.hDC;
    g_print.hDC = nullptr;
    if (chosen == 0) {
        if (printer)
            DeleteDC(printer);
        return 0;
    }
    if (printer == nullptr)
        printer = GetPrinterDC(nullptr);
    if (printer == nullptr)
        return -1;
    const short result = PrintImageFile(printer, tags, formats, path, docName);
    DeleteDC(printer);
    return result == 0 ? 1 : (result < 0 ? result : -result);
}
