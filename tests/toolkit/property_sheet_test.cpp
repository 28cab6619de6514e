// The sheet and its pages driven as a user would, by the sheet's own
// messages, from a thread timer that fires inside the sheet's modal loop.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <string>
#include <vector>

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
        case WM_APP:
            return 77;
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

// Runs the steps one per tick of a thread timer while the sheet is up. If
// the steps leave the sheet open, the driver cancels it after a while so
// that a broken test fails instead of hanging.
class SheetDriver {
public:
    using Step = std::function<void(HWND sheet)>;

    static int Run(CPropertySheet& sheet, std::vector<Step> steps)
    {
        sheet_ = &sheet;
        steps_.assign(steps.begin(), steps.end());
        idleTicks_ = 0;
        forcedClose_ = false;
        UINT_PTR timer = SetTimer(nullptr, 0, 20, &SheetDriver::Tick);
        int result = sheet.DoModal();
        KillTimer(nullptr, timer);
        sheet_ = nullptr;
        return result;
    }

    static bool ForcedClose() { return forcedClose_; }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD)
    {
        HWND window = sheet_ ? sheet_->m_hWnd : nullptr;
        if (!window)
            return;
        if (!steps_.empty()) {
            Step step = steps_.front();
            steps_.pop_front();
            step(window);
        } else if (++idleTicks_ > 100) {
            forcedClose_ = true;
            PropSheet_PressButton(window, PSBTN_CANCEL);
        }
    }

    static inline CPropertySheet* sheet_ = nullptr;
    static inline std::deque<Step> steps_;
    static inline int idleTicks_ = 0;
    static inline bool forcedClose_ = false;
};

void PressOk(HWND sheet)
{
    PropSheet_PressButton(sheet, PSBTN_OK);
}

void PressCancel(HWND sheet)
{
    PropSheet_PressButton(sheet, PSBTN_CANCEL);
}

void GoToPage(HWND sheet, int index)
{
    PropSheet_SetCurSel(sheet, nullptr, index);
}

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

struct TwoPageSheet : ::testing::Test {
    Events events;
    TestPage first{IDD_FIRST_PAGE, "first", &events};
    TestPage second{IDD_SECOND_PAGE, "second", &events};
    CPropertySheet sheet{"Test Sheet"};

    void SetUp() override
    {
        sheet.AddPage(&first);
        sheet.AddPage(&second);
    }

    void TearDown() override { EXPECT_FALSE(SheetDriver::ForcedClose()); }
};

TEST_F(TwoPageSheet, OkOnTheFirstPageLeavesTheUnopenedPageAlone)
{
    HWND secondWindowWhileOpen = reinterpret_cast<HWND>(1);
    int result = SheetDriver::Run(sheet, {
        [&](HWND) { secondWindowWhileOpen = second.m_hWnd; },
        PressOk,
    });

    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(secondWindowWhileOpen, nullptr);
    EXPECT_EQ(events, (Events{"first:init", "first:ok"}));
    // Both windows are gone with the sheet.
    EXPECT_EQ(first.m_hWnd, nullptr);
    EXPECT_EQ(sheet.m_hWnd, nullptr);
}

TEST_F(TwoPageSheet, OkAfterVisitingBothPagesRunsOnOkOnEach)
{
    int result = SheetDriver::Run(sheet, {[](HWND s) { GoToPage(s, 1); }, PressOk});

    EXPECT_EQ(result, IDOK);
    EXPECT_TRUE(Has(events, "first:ok"));
    EXPECT_TRUE(Has(events, "second:ok"));
    EXPECT_FALSE(Has(events, "first:cancel"));
    EXPECT_EQ(std::count_if(events.begin(), events.end(), [](auto& e) { return e.ends_with(":ok"); }), 2);
}

TEST_F(TwoPageSheet, CancelRunsOnCancelOnThePagesThatHaveAWindow)
{
    int result = SheetDriver::Run(sheet, {PressCancel});
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(events, (Events{"first:init", "first:cancel"}));

    events.clear();
    result = SheetDriver::Run(sheet, {[](HWND s) { GoToPage(s, 1); }, PressCancel});
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_TRUE(Has(events, "first:cancel"));
    EXPECT_TRUE(Has(events, "second:cancel"));
    EXPECT_FALSE(Has(events, "first:ok"));
    EXPECT_FALSE(Has(events, "second:ok"));
}

TEST_F(TwoPageSheet, ApplyNowThenCancelStillGivesCancel)
{
    int result = SheetDriver::Run(sheet, {
        [](HWND s) {
            PropSheet_Changed(s, PropSheet_GetCurrentPageHwnd(s));
            PropSheet_PressButton(s, PSBTN_APPLYNOW);
        },
        PressCancel,
    });
    // Apply Now runs OnOK and leaves the sheet open; what closes it decides.
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(events, (Events{"first:init", "first:ok", "first:cancel"}));
}

TEST_F(TwoPageSheet, RefusedLeaveKeepsThePageAndTheSheet)
{
    first.refuseLeave = true;
    bool stayedOnFirst = false;
    bool stillOpenAfterOk = false;
    int result = SheetDriver::Run(sheet, {
        [](HWND s) { GoToPage(s, 1); },
        [&](HWND s) { stayedOnFirst = PropSheet_GetCurrentPageHwnd(s) == first.m_hWnd; },
        PressOk,
        [&](HWND s) {
            stillOpenAfterOk = IsWindow(s);
            first.refuseLeave = false;
        },
        PressOk,
    });

    EXPECT_TRUE(stayedOnFirst);
    EXPECT_TRUE(stillOpenAfterOk);
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(events, (Events{"first:init", "first:refused", "first:refused", "first:ok"}));
}

TEST_F(TwoPageSheet, PageObjectsOwnTheirWindowsAndGetEveryMessage)
{
    bool checked = false;
    SheetDriver::Run(sheet, {
        [&](HWND s) {
            EXPECT_EQ(CWnd::FromHandle(first.m_hWnd), &first);
            EXPECT_EQ(CWnd::FromHandle(s), &sheet);
            EXPECT_EQ(first.GetParent(), &sheet);
            EXPECT_EQ(SendMessageA(first.m_hWnd, WM_APP, 0, 0), 77);

            first.SetDlgItemInt(IDC_FIRST_EDIT, 42);
            char text[16] = {};
            first.GetDlgItem(IDC_FIRST_EDIT)->GetWindowTextA(text, sizeof text);
            EXPECT_STREQ(text, "42");
            BOOL translated = FALSE;
            EXPECT_EQ(first.GetDlgItemInt(IDC_FIRST_EDIT, &translated), 42u);
            EXPECT_TRUE(translated);
            first.CheckDlgButton(IDC_FIRST_CHECK, BST_CHECKED);
            EXPECT_EQ(first.IsDlgButtonChecked(IDC_FIRST_CHECK), static_cast<UINT>(BST_CHECKED));
            checked = true;
        },
        [](HWND s) { PropSheet_PressButton(s, PSBTN_HELP); },
        PressCancel,
    });
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

    std::string caption, tabs;
    bool buttons = false;
    int result = SheetDriver::Run(sheet, {
        [&](HWND s) {
            char text[128] = {};
            GetWindowTextA(s, text, sizeof text);
            caption = text;
            tabs = TabText(s, 0) + "," + TabText(s, 1) + "," + TabText(s, 2);
            buttons = GetDlgItem(s, kSheetOkButton) && GetDlgItem(s, kSheetCancelButton) &&
                      GetDlgItem(s, kSheetApplyButton) && GetDlgItem(s, kSheetHelpButton);
        },
        PressCancel,
    });

    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(caption, "Processing Options");
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
