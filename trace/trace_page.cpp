// The trace page of the option sheets. It keeps nothing of its own: the
// exported trace routines do the work, with the tags, keys and operation of
// the option context. It has no controls for "ARCGEN" and "TRACEVIEW",
// which the routines then pass over, so those keep what they hold.
#include "trace.h"

#include "bounded_text.h"
#include "core_win.h"
#include "frame.h"
#include "module.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The key prefix of the conversion in hand (source + destination key).
struct KeyPrefix {
    char text[zv::kKeySize] = {};
    KeyPrefix() { MakeKeyPrefix(text); }
};

}  // namespace

CTracePropPage::CTracePropPage() : CPropertyPage(IDD_TRACE) {}

CTracePropPage::~CTracePropPage() = default;

void CTracePropPage::InitPage()
{
    OptionContext* context = Options();
    KeyPrefix prefix;
    char source[zv::kKeySize] = {};
    zv::CopyBounded(source, ZvGetInternalExt(context->formats, context->srcExt));
    char destKey[zv::kKeySize];
    zv::CopyBounded(destKey, context->destKey);
    TraceInitDialog(m_hWnd, LibraryModule(), context->tags, source, destKey, context->destExt, prefix.text,
                    context->operation);
    zv::CopyBounded(context->destKey, destKey);
}

void CTracePropPage::Retrieve()
{
    OptionContext* context = Options();
    context->pageValid = 1;
    KeyPrefix prefix;
    TraceRetrieveTags(m_hWnd, LibraryModule(), context->tags, prefix.text, &context->pageValid);
}

LRESULT CTracePropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    OptionContext* context = Options();
    switch (message) {
    case WM_INITDIALOG:
        InitPage();
        HideApplyButton(m_hWnd);
        return 0;
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->code == PSN_KILLACTIVE) {
            Retrieve();
            if (context->pageValid == 0)
                return 1;
        } else if (header->code == static_cast<UINT>(PSN_HELP)) {
            TraceDoHelp(context->parentWnd, context->helpFile, WM_COMMAND, IDHELP, 98642);
        }
        break;
    }
    case WM_HELP:
        TraceDoHelp(context->parentWnd, context->helpFile, WM_COMMAND, IDHELP, 98642);
        return 1;
    case WM_CONTEXTMENU:
        TraceDoHelp(context->parentWnd, context->helpFile, WM_CONTEXTMENU, wParam, lParam);
        return 1;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_TRACE_CENTERLINE:
            TraceDoCenterlineButton(m_hWnd, LibraryModule(), context->tags, KeyPrefix().text, wParam, lParam);
            break;
        case IDC_TRACE_OUTLINE:
            TraceDoOutlineButton(m_hWnd, LibraryModule(), context->tags, KeyPrefix().text, wParam, lParam);
            break;
        case IDC_TRACE_GENTOL:
            TraceDoGenTolEdit(m_hWnd, wParam, lParam);
            break;
        default:
            break;
        }
        break;
    case WM_HSCROLL:
        return TraceDoHScroll(m_hWnd, wParam, lParam);
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CTracePropPage::OnOK()
{
    CPropertyPage::OnOK();
}

void CTracePropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
