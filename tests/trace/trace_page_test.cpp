// The trace page alone (DoTraceDlg) and in the destination sheet of a
// raster source going to a metafile, driven as a user drives it.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "host_dialogs.h"
#include "output_ids.h"
#include "trace_ids.h"

namespace zvtest {
namespace {

using TracePage = DestSheetTest;

TEST_F(TracePage, ACancelledSheetKeepsOnlyTheMethodChosenForTheSourceWithAnyDestination)
{
    d.WaitControl(IDC_TRACE_CENTERLINE).ExpectEnabled(IDC_TRACE_LINEWIDTH, false);
    d.Click(IDC_TRACE_CENTERLINE).ExpectText(IDC_TRACE_GENTOL, "6").ExpectEnabled(IDC_TRACE_LINEWIDTH, true);
    d.ExpectText(IDC_TRACE_SPECKREM, "None").PressCancel();
    const INT_PTR result = d.Run([this] {
        return static_cast<INT_PTR>(DoTraceDlg(nullptr, &tags, "Zavrin", nullptr, &formats, "BMP", nullptr, 0, nullptr));
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Tag("BMP~~~TRACE"), "<absent>");
    EXPECT_EQ(Tag("BMP???TRACE"), "CTR");
    EXPECT_EQ(Tag("~~~RVFORCE"), "<absent>");
}

TEST_F(TracePage, InAMetafilesSheetItNamesTheDestinationAndKeepsTheUserOnABadTolerance)
{
    std::string told;
    std::string caption;
    // The trace page comes last, after the output, rotation and the three
    // colour pages.
    constexpr int kTraceTab = 5;
    d.WaitControl(IDC_VEC_WIDTH).SelectTab(kTraceTab).WaitControl(IDC_TRACE_OUTLINE);
    d.Do([&caption](HWND sheet) {
        caption = DialogDriver::TextOf(PropSheet_GetCurrentPageHwnd(sheet));
    });
    d.Screenshot("trace_page");
    d.Click(IDC_TRACE_CENTERLINE).SetCheck(IDC_TRACE_BEZGEN, true).PickCombo(IDC_TRACE_LINEWIDTH, "Fixed at 2");
    d.Type(IDC_TRACE_GENTOL, "20").PressOk().AnswerMessageBox(IDOK, "", &told);
    d.ExpectPage(kTraceTab).Type(IDC_TRACE_GENTOL, "8").PressOk();
    EXPECT_EQ(Run(IDD_VECTOR_OUT, "WMF", 2), 1);
    EXPECT_EQ(caption, "WMF Trace Options");
    EXPECT_FALSE(told.empty());
    EXPECT_EQ(Tag("BMPWMFTRACE"), "CTR");
    EXPECT_EQ(Tag("BMPWMFCTRGENTOL"), "8");
    EXPECT_EQ(Tag("BMPWMFCTRBEZGEN"), "ON");
    EXPECT_EQ(Tag("BMPWMFCTRR2VFW"), "2");
    EXPECT_EQ(Tag("BMPWMFCTRARCGEN"), "<absent>");  // the page has no control for it
    EXPECT_EQ(Tag("WMFRVFORCE"), "V");
    EXPECT_EQ(TraceGetLineWidth(&tags, "BMPWMF"), 2);
    EXPECT_EQ(TraceGetBezGen(&tags, "BMPWMF"), 1);
}

}  // namespace
}  // namespace zvtest
