// The resize page. It is the output size logic for the image in hand: it
// always opens in pixels at the image's own size, knows the two modes that
// fit the display, and on OK resizes the image by the rule the command
// script uses.
#include <initializer_list>

#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "frame.h"
#include "module.h"
#include "okaheap40.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::OutputSizeState;
using zv::TagKey;

namespace {

constexpr unsigned long kResizeHelp = 1119;
constexpr char kInHand[] = "~~~";
constexpr int kMaintainAspect = 5;
constexpr int kFitInDisplay = 6;
constexpr int kFitInDisplayWidth = 7;

// The physical size of the image when the page opened: the reference of
// "MULT" in the display modes.
double g_imageWidthInches = 0.0;
double g_imageHeightInches = 0.0;

void ShowSize(HWND dialog, int id, double value, double step)
{
    char text[32] = {};
    DoubleToString(text, RoundOff(value, step));
    SetDlgItemTextA(dialog, id, text);
}

}  // namespace

CResizePropPage::CResizePropPage() : CPropertyPage(IDD_RESIZE), m_state(nullptr) {}

CResizePropPage::~CResizePropPage()
{
    OkiFreeSMem(m_state);
}

void CResizePropPage::InitPage()
{
    OptionContext* o = Options();
    TagSet* tags = o->tags;
    // The image in hand, whatever the host asked for: all eight scaling
    // modes, and sizes of at least one pixel.
    zv::CopyBounded(o->destKey, kInHand);
    o->operation = 0;
    m_state = static_cast<OutputSizeState*>(OkiAllocSMem(sizeof(OutputSizeState)));
    if (m_state == nullptr) {
        ReportPageOutOfMemory(m_hWnd);
        return;
    }
    ResolutionToDPI(tags, kInHand);
    zv::CopyBounded(m_state->units, "PIX");
    zv::CopyBounded(m_state->lastUnits, "PIX");
    ZvSetTag(tags, TagKey(kInHand, "UNITS"), "PIX");
    double width = 0, height = 0, horzRes = 0, vertRes = 0;
    if (o->sourceDewey != nullptr) {
        long w = 0, h = 0;
        short xPitch = 0, yPitch = 0;
        o->sourceDewey->GetInfo(&w, &h, &xPitch, &yPitch, nullptr);
        width = static_cast<double>(w);
        height = static_cast<double>(h);
        horzRes = zv::PitchToResolution(xPitch);
        vertRes = zv::PitchToResolution(yPitch);
    }
    ZvSetFloatTag(tags, TagKey(kInHand, "W"), width, 32);
    ZvSetFloatTag(tags, TagKey(kInHand, "H"), height, 32);
    ZvSetFloatTag(tags, TagKey(kInHand, "HR"), horzRes, 32);
    ZvSetFloatTag(tags, TagKey(kInHand, "VR"), vertRes, 32);
    if (ZvGetTag(tags, TagKey(kInHand, "A")) == nullptr)
        ZvSetTag(tags, TagKey(kInHand, "A"), "1");
    // Without an image there is no size to refer to.
    g_imageWidthInches = horzRes != 0.0 ? width / horzRes : 0.0;
    g_imageHeightInches = vertRes != 0.0 ? height / vertRes : 0.0;
    if (ZvGetTag(tags, TagKey(kInHand, "SCALING")) == nullptr) {
        char mode[64] = {};
        GetListItem(IDS_SCALING_IN_HAND, kMaintainAspect, LibraryModule(), mode, sizeof mode);
        ZvSetTag(tags, TagKey(kInHand, "SCALING"), mode);
    }
    InitOutputPage(m_hWnd, m_state);
    // After the dialog is up, so that a stored display mode takes effect.
    PostMessageA(WM_COMMAND, IDC_OUT_SCALING, 0);
}

// The display's size in the page's unit, one side dropped when the other
// limits, and the link of the size logic brings it back with the aspect.
void CResizePropPage::FitDisplay(bool widthOnly)
{
    HDC dc = ::GetDC(m_hWnd);
    const OutputSizeState& s = *m_state;
    double width = ConvertUnits("PIX", s.units, GetDeviceCaps(dc, HORZRES), s.horzRes, g_imageWidthInches);
    double height = ConvertUnits("PIX", s.units, GetDeviceCaps(dc, VERTRES), s.vertRes, g_imageHeightInches);
    if (!widthOnly && height * s.aspect > width)
        height = 0.0;
    else if (width / s.aspect > height)
        width = 0.0;
    if (width > 0.0)
        ShowSize(m_hWnd, IDC_OUT_WIDTH, width, s.roundStep);
    if (height > 0.0)
        ShowSize(m_hWnd, IDC_OUT_HEIGHT, height, s.roundStep);
    ::ReleaseDC(m_hWnd, dc);
}

LRESULT CResizePropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    if (AnswerPageHelp(message, wParam, lParam, kResizeHelp, &answer))
        return answer;
    switch (message) {
    case WM_INITDIALOG:
        InitPage();
        HideApplyButton(m_hWnd);
        ::SetFocus(::GetDlgItem(m_hWnd, IDC_OUT_WIDTH));
        SendDlgItemMessageA(IDC_OUT_WIDTH, EM_SETSEL, 0, -1);
        return 0;
    case WM_COMMAND:
        if (m_state == nullptr)
            break;
        OnOutputCommand(m_hWnd, wParam, lParam, m_state);
        if (LOWORD(wParam) == IDC_OUT_SCALING) {
            const LRESULT mode = SendDlgItemMessageA(IDC_OUT_SCALING, CB_GETCURSEL);
            if (mode == kFitInDisplay || mode == kFitInDisplayWidth)
                FitDisplay(mode == kFitInDisplayWidth);
        }
        break;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == PSN_KILLACTIVE && m_state != nullptr) {
            OptionContext* o = Options();
            RetrieveOutputPage(m_hWnd, m_state);
            if (o->pageValid == 0)
                return 1;
            // A side that the scaling mode leaves to the other isn't the
            // user's: only an enabled edit rewrites its tag.
            if (::IsWindowEnabled(::GetDlgItem(m_hWnd, IDC_OUT_WIDTH)))
                ZvSetFloatTag(o->tags, TagKey(kInHand, "W"), m_state->width, 32);
            if (::IsWindowEnabled(::GetDlgItem(m_hWnd, IDC_OUT_HEIGHT)))
                ZvSetFloatTag(o->tags, TagKey(kInHand, "H"), m_state->height, 32);
        }
        break;
    case WM_DESTROY:
        // Between dialogs the store holds tenths of microns per dot.
        ResolutionToDeciMicrons(Options()->tags, kInHand);
        OkiFreeSMem(m_state);
        m_state = nullptr;
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CResizePropPage::OnOK()
{
    OptionContext* o = Options();
    if (o->operation == 0) {
        zv::CopyBounded(o->destKey, kInHand);
        const char* internal = o->srcExt[0] ? ZvGetInternalExt(o->formats, o->srcExt) : "";
        char smoothKey[zv::kKeySize] = {};
        zv::MakeKey(smoothKey, internal != nullptr ? internal : "", kInHand, "SMOOTH");
        const short smooth = TagIsOn(o->tags, smoothKey) ? 1 : 0;
        if (o->sourceDewey != nullptr) {
            long width = 0, height = 0, newWidth = 0, newHeight = 0;
            o->sourceDewey->GetInfo(&width, &height, nullptr, nullptr, nullptr);
            if (CalculateResize(o->tags, kInHand, width, height, &newWidth, &newHeight) != 0)
                o->sourceDewey->Resize(newWidth, newHeight, smooth);
            // The size belonged to this image: the next opening starts anew.
            for (const char* name : {"W", "H", "A"})
                ZvSetTag(o->tags, TagKey(kInHand, name), "");
        }
    }
    CPropertyPage::OnOK();
}

void CResizePropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
