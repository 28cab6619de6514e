// The JPEG page: the raster page with the quality, a track bar and an edit
// that move together. The low number is the left end and means high quality.
#include "core_win.h"

#include <commctrl.h>

#include "format_pages.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {
constexpr int kQualityMin = 2;
constexpr int kQualityMax = 255;
constexpr int kQualityDefault = 20;
}  // namespace

void CJPGOutPropPage::BeforeInit()
{
    OptionContext* context = Options();
    const char* k = context->destKey;
    if (ZvGetTag(context->tags, TagKey(k, "Q")) == nullptr)
        ZvSetIntTag(context->tags, TagKey(k, "Q"), kQualityDefault);
    DisplayTrackBarTag(m_hWnd, IDC_JPG_QUALITY_BAR, IDC_JPG_QUALITY, k, "Q", kQualityMin, kQualityMax,
                       context->tags);
}

void CJPGOutPropPage::OnCommand(WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) != IDC_JPG_QUALITY || HIWORD(wParam) != EN_CHANGE)
        return;
    char text[128] = {};
    ::GetDlgItemTextA(m_hWnd, IDC_JPG_QUALITY, text, sizeof text);
    ::SendDlgItemMessageA(m_hWnd, IDC_JPG_QUALITY_BAR, TBM_SETPOS, 1, StringToLong(text));
}

bool CJPGOutPropPage::OnOther(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* answer)
{
    if (message != WM_HSCROLL)
        return false;
    *answer = HandleTrackBarScroll(m_hWnd, wParam, lParam);
    return true;
}

void CJPGOutPropPage::Retrieve()
{
    OptionContext* context = Options();
    RetrieveTrackBarTag(m_hWnd, IDC_JPG_QUALITY_BAR, IDC_JPG_QUALITY, IDC_JPG_QUALITY_LABEL, context->destKey, "Q",
                        kQualityMin, kQualityMax, context->tags, &context->pageValid);
}
