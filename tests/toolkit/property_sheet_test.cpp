// The sheet and its pages driven as a user would, by the sheet's own
// messages, from steps that run inside the sheet's modal loop.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dialog_driver.h"
#include "sheet_pages.h"
#include "toolkit.h"

namespace {

using Events = std::vector<std::string>;

// A page as the library writes them: all dispatch in WindowProc, the rest
// to the base, and OnOK/OnCancel ending in the base.
class TestPage : public CPropertyPage {
public:
    TestPage(UINT templateId, std::string name, Events* events)
        : CPropertyPage(templateId), name_(std::move(name)), events_(events)
    {
    }

    bool refuseLeave = false;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message) {
        case WM_INITDIALOG:
            Note("init");
            return 0;
        case WM_NOTIFY:
            if (reinterpret_cast<NMHDR*>(lParam)->code == PSN_KILLACTIVE && refuseLeave) {
                Note("refused");
                return 1;
            }
            if (reinterpret_cast<NMHDR*>(lParam)->code == PSN_HELP)
                Note("help");
            break;
        }
        return CPropertyPage::WindowProc(message, wParam, lParam);
    }

    void OnOK() override
    {
        Note("ok");
        CPropertyPage::OnOK();
    }

    void OnCancel() override
    {
        Note("cancel");
        CPropertyPage::OnCancel();
    }

private:
    void Note(const char* what) { events_->push_back(name_ + ":" + what); }
    std::string name_;
    Events* events_;
};

bool Has(const Events& events, const char* event)
{
    return std::find(events.begin(), events.end(), event) != events.end();
}

std::string TabText(HWND sheet, int index)
{
    char text[64] = {};
    TCITEMA item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    SendMessageA(PropSheet_GetTabControl(sheet), TCM_GETITEMA, index, reinterpret_cast<LPARAM>(&item));
    return text;
}

int RunSheet(zvtest::DialogDriver& driver, CPropertySheet& sheet)
{
    int result = static_cast<int>(driver.Run([&] { return static_cast<INT_PTR>(sheet.DoModal()); }));
    return result;
}

struct TwoPageSheet : ::testing::Test {
    Events events;
    TestPage first{IDD_FIRST_PAGE, "first", &events};
    TestPage second{IDD_SECOND_PAGE, "second", &events};
    CPropertySheet sheet{"Test Sheet"};
    zvtest::DialogDriver driver;

    void SetUp() override
    {
        sheet.AddPage(&first);
        sheet.AddPage(&second);
        driver.WaitWindow("Test Sheet");
    }
};

TEST_F(TwoPageSheet, OkOnTheFirstPageLeavesTheUnopenedPageAlone)
{
    HWND secondWindowWhileOpen = reinterpret_cast<HWND>(1);
    driver.Do([&](HWND) { secondWindowWhileOpen = second.m_hWnd; }).PressOk();
    int result = RunSheet(driver, sheet);

    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(secondWindowWhileOpen, nullptr);
    EXPECT_EQ(events, (Events{"first:init", "first:ok"}));
    // Both windows are gone with the sheet.
    EXPECT_EQ(first.m_hWnd, nullptr);
    EXPECT_EQ(sheet.m_hWnd, nullptr);
}

TEST_F(TwoPageSheet, OkAndCancelAfterVisitingBothPagesReachEach)
{
    driver.SelectTab(1).ExpectPage(1).PressOk();
    EXPECT_EQ(RunSheet(driver, sheet), IDOK);
    EXPECT_EQ(std::count(events.begin(), events.end(), "first:ok"), 1);
    EXPECT_EQ(std::count(events.begin(), events.end(), "second:ok"), 1);
    EXPECT_FALSE(Has(events, "first:cancel"));

    events.clear();
    driver.WaitWindow("Test Sheet").SelectTab(1).PressCancel();
    EXPECT_EQ(RunSheet(driver, sheet), IDCANCEL);
    EXPECT_TRUE(Has(events, "first:cancel") && Has(events, "second:cancel"));
    EXPECT_FALSE(Has(events, "first:ok") || Has(events, "second:ok"));
}

TEST_F(TwoPageSheet, ApplyNowThenCancelStillGivesCancelOnlyOnThePageWithAWindow)
{
    driver.Do([](HWND s) { PropSheet_Changed(s, PropSheet_GetCurrentPageHwnd(s)); }).PressApply().PressCancel();
    int result = RunSheet(driver, sheet);

    // Apply Now runs OnOK and leaves the sheet open; what closes it decides.
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(events, (Events{"first:init", "first:ok", "first:cancel"}));
}

TEST_F(TwoPageSheet, RefusedLeaveKeepsThePageAndTheSheet)
{
    first.refuseLeave = true;
    bool stillOpenAfterOk = false;
    driver.SelectTab(1)
        .ExpectPage(0)
        .PressOk()
        .Do([&](HWND s) {
            stillOpenAfterOk = IsWindow(s) && s == sheet.m_hWnd;
            first.refuseLeave = false;
        })
        .PressOk();
    int result = RunSheet(driver, sheet);

    EXPECT_TRUE(stillOpenAfterOk);
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(events, (Events{"first:init", "first:refused", "first:refused", "first:ok"}));
}

TEST_F(TwoPageSheet, PageObjectsOwnTheirWindowsAndHelpReachesThePage)
{
    bool checked = false;
    driver
        .Do([&](HWND s) {
            EXPECT_EQ(CWnd::FromHandle(first.m_hWnd), &first);
            EXPECT_EQ(CWnd::FromHandle(s), &sheet);
            EXPECT_EQ(first.GetParent(), &sheet);

            // A control's object is a temporary one around its window.
            first.SetDlgItemInt(IDC_FIRST_EDIT, 42);
            char text[16] = {};
            first.GetDlgItem(IDC_FIRST_EDIT)->GetWindowTextA(text, sizeof text);
            EXPECT_STREQ(text, "42");
            checked = true;
        })
        .PressHelp()
        .PressCancel();
    RunSheet(driver, sheet);

    EXPECT_TRUE(checked);
    // The sheet's Help button reaches the page in front as PSN_HELP.
    EXPECT_EQ(events, (Events{"first:init", "first:help", "first:cancel"}));
}

TEST(Sheet, ShowsItsCaptionThePagesInOrderAndItsButtons)
{
    Events events;
    TestPage third(IDD_FIRST_PAGE, "third", &events);
    third.Construct(IDD_THIRD_PAGE);  // a page moved to another template before it is added
    TestPage first(IDD_FIRST_PAGE, "first", &events);
    TestPage second(IDD_SECOND_PAGE, "second", &events);
    CPropertySheet sheet("Processing Options");
    sheet.AddPage(&third);
    sheet.AddPage(&first);
    sheet.AddPage(&second);

    std::string tabs;
    bool buttons = false;
    zvtest::DialogDriver driver;
    driver.WaitWindow("Processing Options")
        .Do([&](HWND s) {
            tabs = TabText(s, 0) + "," + TabText(s, 1) + "," + TabText(s, 2);
            buttons = GetDlgItem(s, kSheetOkButton) && GetDlgItem(s, kSheetCancelButton) &&
                      GetDlgItem(s, kSheetApplyButton) && GetDlgItem(s, kSheetHelpButton);
        })
        .PressCancel();

    EXPECT_EQ(RunSheet(driver, sheet), IDCANCEL);
    EXPECT_EQ(tabs, "Third,First,Second");
    EXPECT_TRUE(buttons);
    EXPECT_EQ(events, (Events{"third:init", "third:cancel"}));
}

TEST(Sheet, RefusesToRunWithoutPages)
{
    CPropertySheet sheet("Empty");
    EXPECT_EQ(sheet.DoModal(), -1);
}

}  // namespace
