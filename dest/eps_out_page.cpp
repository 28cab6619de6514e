// The EPS page: the whole size logic, and what a PostScript file needs: the
// colour model with its gray replacement, an embedded preview, a form feed
// and the curve quality. What it offers, and its title, follow the source:
// a vector source is always written in CMYK and is never smoothed.
#include "core_win.h"

#include <commctrl.h>

#include "format_pages.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

// The gray replacement is kept as a fraction and shown as a percentage.
constexpr double kPercent = 100.0;

void EnableGrayReplacement(HWND dialog, bool enable)
{
    ::EnableWindow(::GetDlgItem(dialog, IDC_EPS_UCR_LABEL), enable);
    ::EnableWindow(::GetDlgItem(dialog, IDC_EPS_UCR), enable);
}

// The sheet's tab shows the page's caption; it is set before the page is
// made, so a new caption goes to the tab as well.
void SetPageCaption(HWND page, const char* caption)
{
    ::SetWindowTextA(page, caption);
    HWND sheet = GetParent(page);
    if (sheet == nullptr)
        return;
    HWND tabs = PropSheet_GetTabControl(sheet);
    int index = PropSheet_HwndToIndex(sheet, page);
    if (tabs == nullptr || index < 0)
        return;
    TCITEMA item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<char*>(caption);
    ::SendMessageA(tabs, TCM_SETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

}  // namespace

void CEPSOutPropPage::BeforeInit()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;

    zv::CopyBounded(m_title, context->destExt);
    zv::AppendBounded(m_title, " ");
    int titleId = 0;
    curveList = 0;
    switch (context->srcType) {
    case 1:
    case 5: titleId = IDS_RASTER_OPTIONS; break;
    case 2:
        titleId = IDS_VECTOR_OPTIONS;
        curveList = IDS_CURVE_SHOWN;
        ::EnableWindow(::GetDlgItem(m_hWnd, IDC_OUT_SMOOTH), FALSE);
        break;
    case 3:
        titleId = IDS_METAFILE_OPTIONS;
        curveList = IDS_CURVE_SHOWN;
        break;
    default: break;
    }
    if (titleId != 0) {
        char text[128] = {};
        LoadStringA(LibraryModule(), static_cast<UINT>(titleId), text, sizeof text);
        zv::AppendBounded(m_title, text);
    }

    double ucr = ZvGetFloatTag(tags, TagKey(k, "UCR"));
    if (ucr != 0.0)
        ZvSetFloatTag(tags, TagKey(k, "UCR"), ucr * kPercent, 32);
}

void CEPSOutPropPage::AfterInit()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;

    SetPageCaption(m_hWnd, m_title);
    // For a metafile destination InitOutputPage filled this combo for
    // another tag; this load replaces it.
    ::SendDlgItemMessageA(m_hWnd, IDC_VEC_CURVE, CB_RESETCONTENT, 0, 0);
    LoadList(m_hWnd, IDC_VEC_CURVE, IDC_VEC_CURVE_LABEL, curveList, 0, k, "CURVE", LibraryModule(), tags);
    LoadList(m_hWnd, IDC_EPS_VIEW, IDC_EPS_VIEW_LABEL, IDS_EMBVIEW_SHOWN, IDS_EMBVIEW_VALUES, k, "EMBVIEW",
             LibraryModule(), tags);
    DisplayEditFloatTag(m_hWnd, IDC_EPS_UCR, k, "UCR", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_STROKE_FONTS, k, "STK", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_EPS_FORMFEED, k, "FF", tags);

    const char* model = ZvGetTag(tags, TagKey(k, "MODEL"));
    colorModelButton = model != nullptr && zv::EqualNoCase(model, "CMYK") ? IDC_EPS_CMYK : IDC_EPS_RGB;
    if (context->srcType == 2) {
        colorModelButton = IDC_EPS_CMYK;
        ::EnableWindow(::GetDlgItem(m_hWnd, IDC_EPS_RGB), FALSE);
    }
    ::CheckRadioButton(m_hWnd, IDC_EPS_RGB, IDC_EPS_CMYK, colorModelButton);
    if (colorModelButton == IDC_EPS_RGB)
        EnableGrayReplacement(m_hWnd, false);
}

void CEPSOutPropPage::OnCommand(WPARAM wParam, LPARAM)
{
    int id = LOWORD(wParam);
    if (id != IDC_EPS_RGB && id != IDC_EPS_CMYK)
        return;
    colorModelButton = id;
    EnableGrayReplacement(m_hWnd, ::IsDlgButtonChecked(m_hWnd, IDC_EPS_RGB) != BST_CHECKED);
}

void CEPSOutPropPage::Retrieve()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;

    RetrieveList(m_hWnd, IDC_VEC_CURVE, curveList, k, "CURVE", LibraryModule(), tags);
    RetrieveList(m_hWnd, IDC_EPS_VIEW, IDS_EMBVIEW_VALUES, k, "EMBVIEW", LibraryModule(), tags);
    RetrieveEditFloatTag(m_hWnd, IDC_EPS_UCR, IDC_EPS_UCR_LABEL, k, "UCR", 0.0, kPercent, tags, &context->pageValid);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_STROKE_FONTS, k, "STK", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_EPS_FORMFEED, k, "FF", tags);
    double ucr = ZvGetFloatTag(tags, TagKey(k, "UCR"));
    if (ucr != 0.0)
        ZvSetFloatTag(tags, TagKey(k, "UCR"), ucr / kPercent, 32);
    ZvSetTag(tags, TagKey(k, "MODEL"), colorModelButton == IDC_EPS_CMYK ? "CMYK" : "RGB");
}
