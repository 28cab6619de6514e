// The image attributes page. The raster facts come from the engine as it
// gives them; the TIFF listing is read after the page is up, from a message
// the page posts to itself, since a large file takes a while.
#include "info_page.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "bounded_text.h"
#include "core_win.h"
#include "format_types.h"
#include "frame.h"
#include "module.h"
#include "okacvt32.h"
#include "okaheap40.h"
#include "ravicli.h"
#include "zvwio32.h"

namespace {

// Posted to the page at the end of WM_INITDIALOG: fill the TIFF listing.
constexpr UINT kFillListingMessage = 0x805;
constexpr DWORD kPropertiesHelp = 1601;
constexpr int kLineSize = 256;

// The fixed font of the listing, made at WM_INITDIALOG of a TIFF page and
// given back at its WM_DESTROY.
HFONT g_infoFont = nullptr;

bool IsTiffKey(const char* key) { return key != nullptr && lstrcmpiA(key, "TIF") == 0; }

std::string LoadText(UINT id)
{
    char text[kLineSize] = "";
    LoadStringA(LibraryModule(), id, text, sizeof text);
    return text;
}

std::string WithCommas(long value)
{
    char text[64] = "";
    InsertCommas(value, text, sizeof text);
    return text;
}

// The text of a scan's failure code: the string of its entry, which begins
// with a new line.
std::string ScanErrorText(short code)
{
    struct Entry {
        short code;
        UINT string;
    };
    static const Entry kTable[] = {
        {-202, 15072}, {-209, 15073}, {-213, 15074}, {-217, 15075}, {-222, 15076}, {-223, 15077},
        {-228, 15078}, {-250, 15079}, {-251, 15080}, {-252, 15081}, {-253, 15082}, {-254, 15083},
        {-255, 15084}, {-256, 15085}, {-257, 15086}, {-258, 15087}, {-106, 15088}, {-1006, 15088},
        {-107, 15089}, {-1007, 15089},
    };
    UINT id = IDS_INFO_SCAN_GENERIC;
    for (const Entry& entry : kTable)
        if (entry.code == code) id = entry.string;
    char text[kLineSize] = "";
    std::snprintf(text, sizeof text, LoadText(id).c_str(), 13, 10, int(code));
    return text;
}

UINT TypeWordOf(short srcType)
{
    switch (srcType) {
    case kFormatMetafile: return IDS_INFO_METAFILE;
    case kFormatVector: return IDS_INFO_VECTOR;
    case kFormatEntity: return IDS_INFO_3D;
    default: return IDS_INFO_RASTER;
    }
}

void MakeListingFont(HWND page)
{
    HDC dc = GetDC(page);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc, &metrics);
    ReleaseDC(page, dc);
    LOGFONTA font = {};
    font.lfHeight = metrics.tmHeight - 2;
    font.lfWeight = FW_NORMAL;
    font.lfQuality = PROOF_QUALITY;
    font.lfPitchAndFamily = FF_MODERN;
    zv::CopyBounded(font.lfFaceName, "Courier New");
    g_infoFont = CreateFontIndirectA(&font);
    if (g_infoFont != nullptr)
        ::SendDlgItemMessageA(page, IDC_INFO_LISTING, WM_SETFONT, reinterpret_cast<WPARAM>(g_infoFont), TRUE);
}

void SetSizeLine(HWND page, int id, long width, long height, long colors)
{
    char line[kLineSize] = "";
    std::snprintf(line, sizeof line, LoadText(IDS_INFO_SIZE_LINE).c_str(), width, height, WithCommas(colors).c_str());
    ::SetDlgItemTextA(page, id, line);
}

}  // namespace

void CInfoPropPage::OnInitDialog()
{
    OptionContext* o = Options();
    const char* key = ZvGetInternalExt(o->formats, o->srcExt);
    if (IsTiffKey(key) && ::GetDlgItem(m_hWnd, IDC_INFO_LISTING) != nullptr)
        MakeListingFont(m_hWnd);
    const char* path = o->openPath != nullptr ? o->openPath : "";
    ::SetDlgItemTextA(m_hWnd, IDC_INFO_NAME, path);

    char date[kLineSize] = "";
    long size = GetFileDateAndSize(path, date);
    ::SetDlgItemTextA(m_hWnd, IDC_INFO_DATE, date[0] != '\0' ? date : LoadText(IDS_INFO_UNKNOWN).c_str());
    ::SetDlgItemTextA(m_hWnd, IDC_INFO_SIZE, size >= 1 ? WithCommas(size).c_str() : LoadText(IDS_INFO_UNKNOWN).c_str());

    HKEY index = ZvGetIndex(o->formats, o->srcExt);
    const char* name = index != nullptr ? ZvGetName(o->formats, index) : nullptr;
    std::string type = name != nullptr ? name : path;
    type += " (" + LoadText(TypeWordOf(o->srcType)) + ")";
    ::SetDlgItemTextA(m_hWnd, IDC_INFO_TYPE, type.c_str());

    if (IsRasterType(o->srcType)) {
        long width = 0, height = 0;
        short xRes = 0, yRes = 0, bits = 0;
        if (o->sourceDewey != nullptr) o->sourceDewey->GetInfo(&width, &height, &xRes, &yRes, &bits);
        const int pages = 1;
        unsigned long doubled = 1;
        for (int i = 0; i < bits; ++i) doubled = (doubled << 1) & 0xffffffffUL;
        long colors = doubled == 0 ? 16777216L : long(doubled);
        long viewColors = GetNumColors(o->parentWnd);
        if (colors < viewColors) viewColors = colors;
        SetSizeLine(m_hWnd, IDC_INFO_FILEINFO, width, height, colors);
        const RECT view = o->propRect != nullptr ? *o->propRect : RECT{};
        SetSizeLine(m_hWnd, IDC_INFO_VIEWINFO, view.right - view.left, view.bottom - view.top, viewColors);
        char line[kLineSize] = "";
        std::snprintf(line, sizeof line, LoadText(IDS_INFO_RES_LINE).c_str(), int(xRes), int(yRes), pages);
        ::SetDlgItemTextA(m_hWnd, IDC_INFO_FILERES, line);
        ::SetDlgItemTextA(m_hWnd, IDC_INFO_VIEWRES, line);
    }
    if (IsTiffKey(key)) PostMessageA(kFillListingMessage);
    HideApplyButton(m_hWnd);
}

void CInfoPropPage::FillListing()
{
    char* buffer = static_cast<char*>(OkiAllocSMem(ZV_TIFF_LISTING_SIZE));
    if (buffer == nullptr) return;  // the box stays empty
    buffer[0] = '\0';
    ::SetFocus(::GetDlgItem(m_hWnd, IDC_INFO_LISTING));
    short code = 0;
    OptionContext* o = Options();
    CvtScanTiff(o->openPath, &code, 1, buffer);
    std::string text = buffer;
    if (code != 0) text += ScanErrorText(code);
    text += "\r\n";
    ::SetDlgItemTextA(m_hWnd, IDC_INFO_LISTING, text.c_str());
    OkiFreeSMem(buffer);
}

LRESULT CInfoPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return 0;
    case kFillListingMessage:
        FillListing();
        return 1;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == PSN_HELP) {
            ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, 0), kPropertiesHelp);
            return 0;
        }
        break;
    case WM_HELP:
        ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, 0), kPropertiesHelp);
        return TRUE;
    case WM_CONTEXTMENU:
        ShowContextHelp(message, wParam, lParam);
        return 0;
    case WM_DESTROY:
        if (g_infoFont != nullptr) {
            DeleteObject(g_infoFont);
            g_infoFont = nullptr;
        }
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}
