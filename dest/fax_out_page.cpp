// The fax page: the size controls without flavour or resolution edits. A
// fax has one of two fixed resolutions; its options belong to the fax file
// kind (the prefix F, the host's "FAXTYPE"), not to the destination.
#include "core_win.h"
#include "format_pages.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

// Both resolutions share one horizontal pitch; the vertical one is the
// choice. Dots per inch in the record, tenths of a micron in the tags.
constexpr double kFineDpi = 196.0;
constexpr double kCoarseDpi = 98.0;
constexpr int kHorzPitch = 1245;
constexpr int kFinePitch = 1296;
constexpr int kCoarsePitch = 2592;

double VerticalDpi(int button)
{
    return button == IDC_FAX_FINE ? kFineDpi : kCoarseDpi;
}

}  // namespace

void CFAXOutPropPage::BeforeInit()
{
    OptionContext* context = Options();
    zv::CopyBounded(context->destKey, ZvGetInternalExt(context->formats, context->destKey));
    const char* type = ZvGetTag(context->tags, "FAXTYPE");
    zv::CopyBounded(faxType, type != nullptr ? type : context->destKey);
    resolutionButton = ZvGetIntTag(context->tags, TagKey(faxType, "CF"));
    if (resolutionButton != IDC_FAX_FINE && resolutionButton != IDC_FAX_COARSE)
        resolutionButton = zv::EqualNoCase(faxType, "DCX") || zv::EqualNoCase(faxType, "SCI") ? IDC_FAX_FINE
                                                                                              : IDC_FAX_COARSE;
}

void CFAXOutPropPage::AfterInit()
{
    OptionContext* context = Options();
    DisplayCheckBoxTag(m_hWnd, IDC_FAX_MPAGE, context->destKey, "MPAGE", context->tags);
    ::CheckRadioButton(m_hWnd, IDC_FAX_FINE, IDC_FAX_COARSE, resolutionButton);
    // Without a stored resolution the record would start from the common
    // default; the height in pixels must start from the button that is on.
    if (ZvGetTag(context->tags, TagKey(context->destKey, "VR")) == nullptr)
        m_state->vertRes = VerticalDpi(resolutionButton);
}

void CFAXOutPropPage::OnCommand(WPARAM wParam, LPARAM)
{
    int id = LOWORD(wParam);
    if (id != IDC_FAX_FINE && id != IDC_FAX_COARSE)
        return;
    double before = m_state->vertRes != 0.0 ? m_state->vertRes : VerticalDpi(resolutionButton);
    resolutionButton = id;
    m_state->vertRes = VerticalDpi(id);
    if (!zv::EqualNoCase(m_state->units, "PIX"))
        return;
    // The height in pixels follows the new dot density; writing the edit
    // runs the size link for the height.
    double inches = ConvertUnits("PIX", "IN", m_state->height, before, 0.0);
    m_state->height = ConvertUnits("IN", "PIX", inches, m_state->vertRes, 0.0);
    char text[32] = {};
    if (m_state->height != 0.0)
        DoubleToString(text, RoundOff(m_state->height, m_state->roundStep));
    ::SetDlgItemTextA(m_hWnd, IDC_OUT_HEIGHT, text);
}

void CFAXOutPropPage::Retrieve()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;
    RetrieveEditFloatTag(m_hWnd, IDC_FAX_HOFF, IDC_FAX_HOFF_LABEL, faxType, "HOFF", -150.0, 150.0, tags,
                         &context->pageValid);
    RetrieveEditFloatTag(m_hWnd, IDC_FAX_VOFF, IDC_FAX_VOFF_LABEL, faxType, "VOFF", 0.0, 150.0, tags,
                         &context->pageValid);
    RetrieveCheckBoxTag(m_hWnd, IDC_FAX_MPAGE, k, "MPAGE", tags);
    ZvSetIntTag(tags, TagKey(faxType, "CF"), resolutionButton);
    ZvSetIntTag(tags, TagKey(k, "HR"), kHorzPitch);
    ZvSetIntTag(tags, TagKey(k, "VR"), resolutionButton == IDC_FAX_FINE ? kFinePitch : kCoarsePitch);
}
