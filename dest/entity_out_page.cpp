// The page of three-dimensional destinations: units, flavour, curve quality
// and the colour and stroke switches. It has no size edits of its own and
// fills its controls itself, but shares the command handling and the
// retrieval of the other output pages.
#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "module.h"
#include "okaheap40.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::OutputSizeState;
using zv::TagKey;

CEntityOutPropPage::CEntityOutPropPage() : CPropertyPage(IDD_ENTITY_OUT), m_state(nullptr) {}

CEntityOutPropPage::~CEntityOutPropPage()
{
    OkiFreeSMem(m_state);
}

void CEntityOutPropPage::InitPage()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    m_state->updating = 0;

    char prefix[zv::kKeySize];
    MakeOutputKeys(m_state->keyPrefix, sizeof m_state->keyPrefix, prefix);
    const char* k = context->destKey;

    const char* units = ZvGetTag(tags, TagKey(k, "UNITS"));
    zv::CopyBounded(m_state->units, units != nullptr && units[0] ? units : "IN");
    zv::CopyBounded(m_state->lastUnits, m_state->units);
    if (context->operation == 2)
        PutDestinationInCaption(m_hWnd);
    m_state->roundStep = zv::RoundStepFor(m_state->units);

    ZvLoadFlavorsList(context->formats, m_hWnd, IDC_OUT_FLAVOR, IDC_OUT_FLAVOR_LABEL, k, tags);
    LoadList(m_hWnd, IDC_OUT_UNITS, IDC_OUT_UNITS_LABEL, IDS_UNITS_SHOWN, IDS_UNITS_VALUES, k, "UNITS", LibraryModule(),
             tags);

    DisplayCheckBoxTag(m_hWnd, IDC_OUT_REVERSE, prefix, "REVBW", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_OUT_INVERT, prefix, "INV", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_OUT_REVEAL, prefix, "BVIS", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_OUT_MEMORIZE, nullptr, "MEMORIZE", tags);
    const char* cog = ZvGetTag(tags, TagKey(prefix, "COG"));
    if (cog != nullptr && zv::EqualNoCase(cog, "G"))
        ::CheckDlgButton(m_hWnd, IDC_OUT_GRAYSCALE, BST_CHECKED);
    else if (cog != nullptr && zv::EqualNoCase(cog, "B"))
        ::CheckDlgButton(m_hWnd, IDC_OUT_ALLBLACK, BST_CHECKED);

    UpdateResolutionControls(m_hWnd);

    // Shown from the tags; the shared retrieval stores them back only for
    // a metafile destination.
    LoadList(m_hWnd, IDC_VEC_CURVE, IDC_VEC_CURVE_LABEL, IDS_CURVE_SHOWN, IDS_CURVE_VALUES, k, "CRV", LibraryModule(),
             tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_STROKE_FONTS, k, "STK", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_STROKE_LINES, prefix, "STKLINE", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_STROKE_GRADIENTS, k, "STKGRAD", tags);
}

LRESULT CEntityOutPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    if (AnswerOutputPageHelp(message, wParam, lParam, &answer))
        return answer;
    switch (message) {
    case WM_INITDIALOG:
        m_state = static_cast<OutputSizeState*>(OkiAllocSMem(sizeof(OutputSizeState)));
        if (m_state == nullptr) {
            ReportPageOutOfMemory(m_hWnd);
            return 0;
        }
        InitPage();
        HideApplyButton(m_hWnd);
        return 0;
    case WM_COMMAND:
        if (m_state != nullptr)
            OnOutputCommand(m_hWnd, wParam, lParam, m_state);
        break;
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->code == PSN_KILLACTIVE && m_state != nullptr) {
            RetrieveOutputPage(m_hWnd, m_state);
            if (Options()->pageValid == 0)
                return 1;
        }
        break;
    }
    case WM_DESTROY:
        OkiFreeSMem(m_state);
        m_state = nullptr;
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CEntityOutPropPage::OnOK()
{
    CPropertyPage::OnOK();
}

void CEntityOutPropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
