// The dialog driver's failure paths against a dialog and a sheet of its own:
// a run that goes wrong must end with a failure instead of hanging, and
// leave no window behind. Its steps are exercised by every dialog test.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <string>

#include "dialog_driver.h"
#include "driver_test_ids.h"

namespace {

using zvtest::DialogDriver;

// What the test dialog and sheet saw.
struct Seen {
    int countClicks = 0;
    int askAnswer = 0;
    int sheetResets = 0;
};
Seen g_seen;

INT_PTR CALLBACK TestDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message != WM_COMMAND)
        return FALSE;
    switch (LOWORD(wParam)) {
    case IDC_COUNT:
        ++g_seen.countClicks;
        break;
    case IDC_ASK:
        g_seen.askAnswer = MessageBoxA(dialog, "Keep the changes?", "Driver Test", MB_YESNO | MB_ICONQUESTION);
        break;
    case IDOK:
    case IDCANCEL:
        EndDialog(dialog, LOWORD(wParam));
        break;
    }
    return TRUE;
}

INT_PTR ShowDialog()
{
    return DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_DRIVER_TEST), nullptr,
                           TestDialogProc, 0);
}

// The page counts the Cancels that reach it.
INT_PTR CALLBACK PageProc(HWND, UINT message, WPARAM, LPARAM lParam)
{
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == PSN_RESET)
        ++g_seen.sheetResets;
    return message == WM_INITDIALOG;
}

INT_PTR ShowSheet()
{
    PROPSHEETPAGEA page = {};
    page.dwSize = sizeof page;
    page.hInstance = GetModuleHandleA(nullptr);
    page.pszTemplate = MAKEINTRESOURCEA(IDD_PAGE_FIRST);
    page.pfnDlgProc = PageProc;
    PROPSHEETHEADERA header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW;
    header.hInstance = GetModuleHandleA(nullptr);
    header.pszCaption = "Driver Sheet";
    header.nPages = 1;
    header.ppsp = &page;
    return PropertySheetA(&header);
}

// A run that goes wrong must fail with `message` well inside the default
// step bound of 5 s and leave no window behind; the modal entry returns as
// if cancelled.
void ExpectBoundedFailure(DialogDriver& d, const std::string& message)
{
    INT_PTR result = 0;
    ULONGLONG start = GetTickCount64();
    EXPECT_NONFATAL_FAILURE(result = d.Run(ShowDialog), message);
    EXPECT_LT(GetTickCount64() - start, 4000u);
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_TRUE(DialogDriver::ThreadWindows().empty());
}

TEST(DialogDriver, ClickOnADisabledButtonWaitsAsAUserWouldAndFailsWithinItsBound)
{
    DialogDriver d;
    d.SetStepTimeout(300)
        .Do([](HWND dialog) { EnableWindow(GetDlgItem(dialog, IDC_COUNT), FALSE); })
        .Click(IDC_COUNT);
    ExpectBoundedFailure(d, "step 2 Click(1002) did not succeed within 300 ms: control 1002 is disabled");
    EXPECT_EQ(g_seen.countClicks, 0);
}

TEST(DialogDriver, UnansweredMessageBoxIsClosedWithItsDialog)
{
    DialogDriver d;
    d.SetStepTimeout(300).Click(IDC_ASK);
    ExpectBoundedFailure(d, "still up 300 ms after the last step");
    EXPECT_NE(g_seen.askAnswer, 0);
}

TEST(DialogDriver, RunThatOutlastsItsBoundIsEnded)
{
    DialogDriver d;
    d.SetRunTimeout(400).WaitUntil("what never holds", [] { return false; }).PressOk();
    ExpectBoundedFailure(d, "did not end within 400 ms (next step: step 1 WaitUntil(\"what never holds\"))");
}

TEST(DialogDriver, StepsLeftWhenTheDialogEndsAreAFailure)
{
    DialogDriver d;
    d.PressOk().Click(IDC_COUNT);
    INT_PTR result = 0;
    EXPECT_NONFATAL_FAILURE(result = d.Run(ShowDialog), "steps still queued: step 2 Click(1002)");
    EXPECT_EQ(result, IDOK);
}

TEST(DialogDriver, SheetIsClosedAfterAFailedStep)
{
    DialogDriver failing;
    failing.SetStepTimeout(200).WaitControl(4242);
    EXPECT_NONFATAL_FAILURE(failing.Run(ShowSheet), "shows no control 4242");
    EXPECT_EQ(g_seen.sheetResets, 1);  // closed by its Cancel
    EXPECT_TRUE(DialogDriver::ThreadWindows().empty());
}

}  // namespace
