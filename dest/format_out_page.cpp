// What every page of a single format does alike; the pages themselves say
// only how they differ (format_pages.h).
#include "core_win.h"
#include "format_pages.h"
#include "okaheap40.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::OutputSizeState;
using zv::TagKey;

FormatOutPage::~FormatOutPage()
{
    // A page whose window never got its WM_DESTROY still gives back its record.
    OkiFreeSMem(m_state);
}

LRESULT FormatOutPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_HELP) {
        // F1 opens the page's topic the way the Help button does.
        PostMessageA(WM_COMMAND, MAKEWPARAM(IDHELP, 0), 0);
        return TRUE;
    }
    LRESULT answer = 0;
    if (AnswerOutputPageHelp(message, wParam, lParam, &answer))
        return answer;
    if (m_state != nullptr && OnOther(message, wParam, lParam, &answer))
        return answer;
    switch (message) {
    case WM_INITDIALOG:
        m_state = static_cast<OutputSizeState*>(OkiAllocSMem(sizeof(OutputSizeState)));
        if (m_state == nullptr) {
            ReportPageOutOfMemory(m_hWnd);
            return 0;
        }
        BeforeInit();
        InitOutputPage(m_hWnd, m_state);
        AfterInit();
        HideApplyButton(m_hWnd);
        return 0;
    case WM_COMMAND:
        if (m_state != nullptr && OnOutputCommand(m_hWnd, wParam, lParam, m_state) == 0)
            OnCommand(wParam, lParam);
        break;
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->code == PSN_KILLACTIVE && m_state != nullptr) {
            OptionContext* context = Options();
            RetrieveOutputPage(m_hWnd, m_state);
            Retrieve();
            if (context->pageValid == 0)
                return 1;
            if (WritesSize()) {
                // The edits, as the user left them, are the size.
                ZvSetFloatTag(context->tags, TagKey(context->destKey, "W"), m_state->width, 32);
                ZvSetFloatTag(context->tags, TagKey(context->destKey, "H"), m_state->height, 32);
            }
        }
        break;
    }
    case WM_DESTROY:
        // Between dialogs the store holds tenths of microns per dot.
        if (ConvertsResolutionBack())
            ResolutionToDeciMicrons(Options()->tags, Options()->destKey);
        OkiFreeSMem(m_state);
        m_state = nullptr;
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}
