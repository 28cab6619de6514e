// CPropertySheet and CPropertyPage over the platform's property sheet. The
// platform draws the sheet, its tabs and buttons, creates a page's window
// the first time its tab is shown, and sends the notifications only to pages
// that have a window; this layer ties each page window to its object and
// turns the notifications into the page's virtual calls.
#include "toolkit.h"

namespace {

// The sheet that is being started: the platform's callback tells its window
// before any page exists and gives no way to pass an object along.
CPropertySheet* g_startingSheet = nullptr;

void CopyText(char* dst, int size, LPCSTR src)
{
    lstrcpynA(dst, src ? src : "", size);
}

}  // namespace

// --- CPropertyPage

CPropertyPage::CPropertyPage(UINT templateId, UINT captionId) : m_captionId(0), m_caption{}, m_sheet(nullptr)
{
    ZeroMemory(&m_psp, sizeof m_psp);
    m_psp.dwSize = sizeof m_psp;
    m_psp.hInstance = GetModuleHandleA(nullptr);
    Construct(templateId, captionId);
}

CPropertyPage::~CPropertyPage() = default;

void CPropertyPage::Construct(UINT templateId, UINT captionId)
{
    m_psp.pszTemplate = MAKEINTRESOURCEA(templateId);
    m_captionId = captionId;
}

BOOL CPropertyPage::OnSetActive()
{
    return TRUE;
}

BOOL CPropertyPage::OnKillActive()
{
    return TRUE;
}

BOOL CPropertyPage::OnApply()
{
    OnOK();
    return TRUE;
}

void CPropertyPage::OnReset()
{
    OnCancel();
}

void CPropertyPage::OnOK() {}

void CPropertyPage::OnCancel() {}

BOOL CPropertyPage::OnQueryCancel()
{
    return TRUE;
}

BOOL CPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (!header)
        return CWnd::OnNotify(wParam, lParam, result);
    switch (header->code) {
    case PSN_SETACTIVE:
        // -1 asks the sheet to skip the page.
        *result = OnSetActive() ? 0 : -1;
        return TRUE;
    case PSN_KILLACTIVE:
        *result = OnKillActive() ? FALSE : TRUE;
        return TRUE;
    case PSN_APPLY: {
        BOOL accepted = OnApply();
        *result = accepted ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE;
        // lParam of the notification tells OK (the sheet closes) from
        // Apply Now (it stays).
        if (accepted && m_sheet && reinterpret_cast<const PSHNOTIFY*>(lParam)->lParam)
            m_sheet->m_result = IDOK;
        return TRUE;
    }
    case PSN_RESET:
        OnReset();
        if (m_sheet)
            m_sheet->m_result = IDCANCEL;
        *result = 0;
        return TRUE;
    case PSN_QUERYCANCEL:
        *result = OnQueryCancel() ? FALSE : TRUE;
        return TRUE;
    default:
        return CWnd::OnNotify(wParam, lParam, result);
    }
}

// The dialog procedure the platform calls for every page. It sees
// WM_INITDIALOG only: there the page's window is given to its object, whose
// WindowProc from then on gets every message first; what the page passes on
// comes back here through the dialog's own procedure and gets the platform's
// default handling.
INT_PTR CALLBACK CPropertyPage::PageDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG)
        return FALSE;
    auto* sheetPage = reinterpret_cast<const PROPSHEETPAGEA*>(lParam);
    auto* page = sheetPage ? reinterpret_cast<CPropertyPage*>(sheetPage->lParam) : nullptr;
    if (!page)
        return TRUE;
    // A page that hands WM_INITDIALOG to the base arrives here a second time:
    // the default is to let the dialog set the focus.
    if (page->m_hWnd == dialog)
        return TRUE;
    page->SubclassWindow(dialog);
    return page->WindowProc(WM_INITDIALOG, wParam, lParam);
}

// --- CPropertySheet

CPropertySheet::CPropertySheet(LPCSTR caption, CWnd* parent, UINT selectPage)
    : m_caption{}, m_parent(parent), m_startPage(selectPage), m_pages{}, m_pageCount(0), m_overflow(FALSE),
      m_result(IDCANCEL)
{
    CopyText(m_caption, sizeof m_caption, caption);
}

CPropertySheet::~CPropertySheet() = default;

void CPropertySheet::AddPage(CPropertyPage* page)
{
    if (!page)
        return;
    if (m_pageCount == kMaxPages) {
        m_overflow = TRUE;
        return;
    }
    page->m_sheet = this;
    m_pages[m_pageCount++] = page;
}

CPropertyPage* CPropertySheet::GetPage(int index) const
{
    return index >= 0 && index < m_pageCount ? m_pages[index] : nullptr;
}

int CALLBACK CPropertySheet::SheetCallback(HWND sheet, UINT message, LPARAM)
{
    if (message == PSCB_INITIALIZED && g_startingSheet) {
        g_startingSheet->BindWindow(sheet);
        g_startingSheet = nullptr;
    }
    return 0;
}

int CPropertySheet::DoModal()
{
    if (m_pageCount == 0 || m_overflow)
        return -1;

    // The sheet's tab control is one of the common controls.
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};
    InitCommonControlsEx(&classes);

    PROPSHEETPAGEA pages[kMaxPages] = {};
    for (int i = 0; i < m_pageCount; ++i) {
        CPropertyPage* page = m_pages[i];
        pages[i] = page->m_psp;
        pages[i].dwSize = sizeof pages[i];
        // Every page of the suite answers the Help button.
        pages[i].dwFlags |= PSP_HASHELP;
        pages[i].pfnDlgProc = &CPropertyPage::PageDialogProc;
        pages[i].lParam = reinterpret_cast<LPARAM>(page);
        if (page->m_captionId &&
            LoadStringA(page->m_psp.hInstance, page->m_captionId, page->m_caption, sizeof page->m_caption) > 0) {
            pages[i].pszTitle = page->m_caption;
            pages[i].dwFlags |= PSP_USETITLE;
        }
    }

    PROPSHEETHEADERA header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_HASHELP | PSH_USECALLBACK;
    header.hwndParent = m_parent ? m_parent->m_hWnd : nullptr;
    header.hInstance = GetModuleHandleA(nullptr);
    header.pszCaption = m_caption;
    header.nPages = static_cast<UINT>(m_pageCount);
    header.nStartPage = m_startPage < static_cast<UINT>(m_pageCount) ? m_startPage : 0;
    header.ppsp = pages;
    header.pfnCallback = &CPropertySheet::SheetCallback;

    m_result = IDCANCEL;
    g_startingSheet = this;
    INT_PTR shown = PropertySheetA(&header);
    g_startingSheet = nullptr;
    // The sheet's window is gone now; its property went with it.
    m_hWnd = nullptr;
    if (shown < 0)
        return -1;
    return m_result;
}
