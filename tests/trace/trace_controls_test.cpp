// The exported trace routines on a host's dialog of this program's own, with
// the trace control numbers but without the line width: what they show,
// what they write, and which tags each method keeps. The dialog hands the
// routines this program's module, so the lists it shows prove that they
// come from the library.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "host_dialogs.h"
#include "trace_ids.h"

namespace zvtest {
namespace {

constexpr int kHostTrace = 100;
constexpr int kHelpButton = 9;

struct HostTrace {
    TagSet* tags;
    const char* srcKey;
    short operation;
    char destKey[64];
    char prefix[64];
    int valid;
};
HostTrace g_host;

INT_PTR CALLBACK HostTraceProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HINSTANCE self = GetModuleHandleA(nullptr);
    switch (message) {
    case WM_INITDIALOG:
        TraceInitDialog(dialog, self, g_host.tags, g_host.srcKey, g_host.destKey, "TIF", g_host.prefix,
                        g_host.operation);
        return FALSE;
    case WM_HSCROLL:
        return TraceDoHScroll(dialog, wParam, lParam);
    case WM_HELP:
    case WM_CONTEXTMENU:
        TraceDoHelp(dialog, "C:\\Apps\\Zavrin\\ZAVRIN.HLP", message, wParam, lParam);
        return TRUE;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDC_TRACE_CENTERLINE:
            TraceDoCenterlineButton(dialog, self, g_host.tags, g_host.prefix, wParam, lParam);
            break;
        case IDC_TRACE_OUTLINE:
            TraceDoOutlineButton(dialog, self, g_host.tags, g_host.prefix, wParam, lParam);
            break;
        case IDC_TRACE_GENTOL:
            TraceDoGenTolEdit(dialog, wParam, lParam);
            break;
        case kHelpButton:
            TraceDoHelp(dialog, "ZAVRIN.HLP", message, wParam, lParam);
            break;
        case IDOK:
            g_host.valid = 1;
            TraceRetrieveTags(dialog, self, g_host.tags, g_host.prefix, &g_host.valid);
            if (g_host.valid)
                EndDialog(dialog, IDOK);
            break;
        case IDCANCEL:
            EndDialog(dialog, IDCANCEL);
            break;
        default:
            break;
        }
        return TRUE;
    default:
        return FALSE;
    }
}

class TraceControls : public ::testing::Test {
protected:
    void SetUp() override
    {
        INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES};
        InitCommonControlsEx(&classes);
    }
    INT_PTR Run(const char* srcKey = "BMP", short operation = 0)
    {
        g_host = HostTrace{&tags, srcKey, operation, {}, {}, 0};
        return d.Run([] {
            return DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kHostTrace), nullptr, HostTraceProc, 0);
        });
    }
    void Set(const char* key, const char* value) { ZvSetTag(&tags, key, value); }
    std::string Tag(const char* key) { return TagOf(&tags, key); }
    static LRESULT BarPosition(HWND dialog)
    {
        return SendMessageA(DialogDriver::FindControl(dialog, IDC_TRACE_GENTOL_BAR), TBM_GETPOS, 0, 0);
    }

    SeamRecorder seams;
    TagSet tags;
    DialogDriver d;
};

TEST_F(TraceControls, AFirstShowingWritesTheDefaultsButNotTheSpeckRemovalItShows)
{
    d.WaitWindow("Host Trace").ExpectChecked(IDC_TRACE_OUTLINE, true).ExpectChecked(IDC_TRACE_VIEW_NEW, true);
    d.ExpectText(IDC_TRACE_MAXCOLORS, "16").ExpectText(IDC_TRACE_UNDITHER, "None");
    d.ExpectText(IDC_TRACE_SPECKREM, "Medium").ExpectText(IDC_TRACE_GENTOL, "3");
    d.ExpectEnabled(IDC_TRACE_MAXCOLORS, true).ExpectEnabled(IDC_TRACE_ARCGEN, false);
    d.Do([this](HWND dialog) {
        EXPECT_EQ(BarPosition(dialog), 3);
        EXPECT_EQ(Tag("BMP~~~TRACE"), "OTL");
        EXPECT_EQ(Tag("TRACEVIEW"), "NEW");
        EXPECT_EQ(Tag("BMP~~~OTLMAXCOLORS"), "16");
        EXPECT_EQ(Tag("BMP~~~OTLGENTOL"), "3");
        EXPECT_EQ(Tag("BMP~~~OTLSPECKREM"), "<absent>");
        EXPECT_EQ(Tag("BMP???TRACE"), "OTL");
        EXPECT_EQ(Tag("~~~RVFORCE"), "V");
    });
    d.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_STREQ(g_host.prefix, "BMP~~~");
    EXPECT_EQ(Tag("BMP~~~OTLSPECKREM"), "M");
    EXPECT_EQ(Tag("BMP~~~OTLBEZGEN"), "OFF");
    // The dialog has no line width: nothing is written for it.
    EXPECT_EQ(Tag("BMP~~~OTLR2VFW"), "<absent>");
}

TEST_F(TraceControls, EachMethodKeepsItsOwnTagsAndAStoredZeroTolerance)
{
    Set("BMP~~~OTLGENTOL", "0");
    Set("BMP~~~CTRGENTOL", "9");
    Set("BMP~~~CTRSPECKREM", "L");
    d.WaitWindow("Host Trace").ExpectText(IDC_TRACE_GENTOL, "0");
    d.Click(IDC_TRACE_CENTERLINE).ExpectText(IDC_TRACE_GENTOL, "9").ExpectText(IDC_TRACE_SPECKREM, "Large");
    d.ExpectEnabled(IDC_TRACE_ARCGEN, true).ExpectEnabled(IDC_TRACE_MAXCOLORS_LABEL, false);
    d.Do([this](HWND dialog) {
        EXPECT_EQ(BarPosition(dialog), 9);
        EXPECT_EQ(Tag("BMP???TRACE"), "CTR");
        EXPECT_EQ(Tag("BMP~~~TRACE"), "OTL");  // the choice is stored at OK
    });
    d.SetCheck(IDC_TRACE_ARCGEN, true);
    d.Click(IDC_TRACE_OUTLINE).ExpectText(IDC_TRACE_GENTOL, "0").ExpectText(IDC_TRACE_SPECKREM, "Medium");
    d.Click(IDC_TRACE_CENTERLINE).PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Tag("BMP~~~TRACE"), "CTR");
    EXPECT_EQ(Tag("BMP~~~CTRGENTOL"), "9");
    EXPECT_EQ(Tag("BMP~~~CTRARCGEN"), "ON");
    EXPECT_EQ(Tag("BMP~~~OTLGENTOL"), "0");
    EXPECT_EQ(Tag("BMP~~~OTLARCGEN"), "<absent>");
    // The numbers of the script come from the same tags.
    EXPECT_EQ(TraceGetMethod(&tags, "BMP~~~"), 1);
    EXPECT_EQ(TraceGetGenTol(&tags, "BMP~~~"), 9);
    EXPECT_EQ(TraceGetDespec(&tags, "BMP~~~"), 3);
    EXPECT_EQ(TraceGetArcGen(&tags, "BMP~~~"), 1);
}

TEST_F(TraceControls, TheSliderAndTheEditMoveTogetherAndATooLooseToleranceIsRefused)
{
    std::string told;
    d.WaitWindow("Host Trace").Type(IDC_TRACE_GENTOL, "12");
    d.Do([](HWND dialog) {
        EXPECT_EQ(BarPosition(dialog), 12);
        HWND bar = DialogDriver::FindControl(dialog, IDC_TRACE_GENTOL_BAR);
        SendMessageA(bar, TBM_SETPOS, TRUE, 5);
        SendMessageA(dialog, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, 5), reinterpret_cast<LPARAM>(bar));
    });
    d.ExpectText(IDC_TRACE_GENTOL, "5");
    d.Type(IDC_TRACE_GENTOL, "20").Click(IDOK).AnswerMessageBox(IDOK, "", &told);
    d.Type(IDC_TRACE_GENTOL, "16").Click(IDOK);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_NE(told.find("16"), std::string::npos) << told;
    EXPECT_EQ(Tag("BMP~~~OTLGENTOL"), "16");
}

TEST_F(TraceControls, OperationsChooseTheKeyAndAConversionNamesItsDestinationInTheCaption)
{
    d.WaitWindow("TIF Host Trace").PressCancel();
    EXPECT_EQ(Run("BMP", 2), IDCANCEL);
    d.WaitWindow("Host Trace").PressCancel();
    EXPECT_EQ(Run("BMP", 5), IDCANCEL);
    EXPECT_STREQ(g_host.prefix, "BMPCLP");
    EXPECT_EQ(Tag("BMPCLPTRACE"), "OTL");
    EXPECT_EQ(Tag("CLPRVFORCE"), "V");
}

TEST_F(TraceControls, HelpComesFromTheTraceHelpFileBesideTheHostsOwn)
{
    d.WaitWindow("Host Trace").SendHelp(IDC_TRACE_SPECKREM).ContextMenu(IDC_TRACE_GENTOL_BAR).Click(kHelpButton);
    d.WaitUntil("three help calls", [this] { return seams.helpCalls.size() == 3; }).PressCancel();
    Run();
    ASSERT_EQ(seams.helpCalls.size(), 3u);
    EXPECT_EQ(seams.helpCalls[0].file, "C:\\Apps\\Zavrin\\zvtrace.hlp");
    EXPECT_EQ(seams.helpCalls[0].command, static_cast<UINT>(HELP_WM_HELP));
    const std::vector<DWORD>& pairs = seams.helpCalls[0].idPairs;
    ASSERT_EQ(pairs.size() % 2, 0u);
    int topics = 0;
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2)
        topics += pairs[i] == IDC_TRACE_SPECKREM && pairs[i + 1] == 4008;
    EXPECT_EQ(topics, 1);
    EXPECT_EQ(seams.helpCalls[1].command, static_cast<UINT>(HELP_CONTEXTMENU));
    EXPECT_EQ(seams.helpCalls[2].file, "zvtrace.hlp");
    EXPECT_EQ(seams.helpCalls[2].command, static_cast<UINT>(HELP_CONTEXT));
    EXPECT_EQ(seams.helpCalls[2].data, 98642u);
}

TEST(TraceCopy, CopiesTheSevenTagsOfTheChosenMethodAndNothingElse)
{
    TagSet from, to;
    ZvSetTag(&from, "BMP~~~TRACE", "CTR");
    ZvSetTag(&from, "TRACEVIEW", "OVERLAY");
    ZvSetTag(&from, "BMP~~~CTRGENTOL", "7");
    ZvSetTag(&from, "BMP~~~CTRR2VFW", "3");
    ZvSetTag(&from, "BMP~~~OTLGENTOL", "2");
    ZvSetTag(&to, "BMP~~~CTRBEZGEN", "ON");
    TraceCopyTags(&from, &to, "BMP~~~");
    EXPECT_EQ(TagOf(&to, "BMP~~~CTRGENTOL"), "7");
    EXPECT_EQ(TagOf(&to, "BMP~~~CTRR2VFW"), "3");
    EXPECT_EQ(TagOf(&to, "BMP~~~OTLGENTOL"), "<absent>");
    EXPECT_EQ(TagOf(&to, "BMP~~~TRACE"), "<absent>");
    EXPECT_EQ(TagOf(&to, "TRACEVIEW"), "<absent>");
    // A tag absent at the source is handed on as no value.
    EXPECT_EQ(TagOf(&to, "BMP~~~CTRBEZGEN"), "<absent>");
}

}  // namespace
}  // namespace zvtest
