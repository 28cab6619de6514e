// The GIF page: the raster page with interlacing and the transparent colour.
// Multi-page output is no choice here (its box stays hidden), but its tag
// travels through the page unchanged.
#include "core_win.h"
#include "format_pages.h"
#include "zvwio32.h"

void CGIFOutPropPage::BeforeInit()
{
    OptionContext* context = Options();
    const char* k = context->destKey;
    DisplayCheckBoxTag(m_hWnd, IDC_GIF_INTERLACE, k, "INT", context->tags);
    DisplayCheckBoxTag(m_hWnd, IDC_GIF_MPAGE, k, "MPAGE", context->tags);
    DisplayRadioButtonTag(m_hWnd, IDC_GIF_TRANS_NONE, IDC_GIF_TRANS_WHITE, IDS_GIF_TRANS_VALUES, k, "TRANS",
                          LibraryModule(), context->tags);
}

void CGIFOutPropPage::Retrieve()
{
    OptionContext* context = Options();
    const char* k = context->destKey;
    RetrieveCheckBoxTag(m_hWnd, IDC_GIF_INTERLACE, k, "INT", context->tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_GIF_MPAGE, k, "MPAGE", context->tags);
    RetrieveRadioButtonTag(m_hWnd, IDC_GIF_TRANS_NONE, IDC_GIF_TRANS_WHITE, IDS_GIF_TRANS_VALUES, k, "TRANS",
                           LibraryModule(), context->tags);
}
