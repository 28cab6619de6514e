// The page of raster and metafile destinations that have no page of their
// own: size, units, resolution, flavour and the colour switches. For a
// metafile destination it also shows the curve quality and the stroke
// switches, which the template keeps hidden otherwise.
#include "core_win.h"
#include "dest.h"
#include "okaheap40.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::OutputSizeState;
using zv::TagKey;

CRasterOutPropPage::CRasterOutPropPage() : CPropertyPage(IDD_RASTER_OUT), m_state(nullptr) {}

CRasterOutPropPage::~CRasterOutPropPage()
{
    // A page whose window never got its WM_DESTROY still gives back its record.
    OkiFreeSMem(m_state);
}

LRESULT CRasterOutPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_HELP) {
        // F1 opens the page's topic the way the Help button does: through
        // the command that the sheet's Help button sends.
        PostMessageA(WM_COMMAND, MAKEWPARAM(IDHELP, 0), 0);
        return TRUE;
    }
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
        InitOutputPage(m_hWnd, m_state);
        HideApplyButton(m_hWnd);
        return 0;
    case WM_COMMAND:
        if (m_state != nullptr)
            OnOutputCommand(m_hWnd, wParam, lParam, m_state);
        break;
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->code == PSN_KILLACTIVE && m_state != nullptr) {
            OptionContext* context = Options();
            RetrieveOutputPage(m_hWnd, m_state);
            if (context->pageValid == 0)
                return 1;
            // The edits, as the user left them, are the size: the rounded
            // text of the link, not the unrounded number behind it.
            ZvSetFloatTag(context->tags, TagKey(context->destKey, "W"), m_state->width, 32);
            ZvSetFloatTag(context->tags, TagKey(context->destKey, "H"), m_state->height, 32);
        }
        break;
    }
    case WM_DESTROY:
        // Between dialogs the store holds tenths of microns per dot.
        ResolutionToDeciMicrons(Options()->tags, Options()->destKey);
        OkiFreeSMem(m_state);
        m_state = nullptr;
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CRasterOutPropPage::OnOK()
{
    CPropertyPage::OnOK();
}

void CRasterOutPropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
