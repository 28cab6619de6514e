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

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_INITDIALOG) {
            Note("init");
            return 0;
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
    return static_cast<int>(driver.Run([&] { return static_cast<INT_PTR>(sheet.DoModal()); }));
}

// OK reaching only the pages that have a window is shown on the library's
// own sheet road; Cancel and the pages' objects are the toolkit's alone.
TEST(TwoPageSheet, CancelReachesThePagesThatHaveAWindowAndEachPageIsItsWindowsObject)
{
    Events events;
    TestPage first{IDD_FIRST_PAGE, "first", &events};
    TestPage second{IDD_SECOND_PAGE, "second", &events};
    CPropertySheet sheet{"Test Sheet"};
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    zvtest::DialogDriver driver;
    driver.WaitWindow("Test Sheet").PressCancel();
    EXPECT_EQ(RunSheet(driver, sheet), IDCANCEL);
    EXPECT_EQ(events, (Events{"first:init", "first:cancel"}));
    // Both windows are gone with the sheet, and the same objects run again.
    EXPECT_EQ(first.m_hWnd, nullptr);
    EXPECT_EQ(sheet.m_hWnd, nullptr);

    events.clear();
    driver.WaitWindow("Test Sheet").SelectTab(1).ExpectPage(1).Do([&](HWND s) {
        EXPECT_EQ(CWnd::FromHandle(second.m_hWnd), &second);
        EXPECT_EQ(CWnd::FromHandle(s), &sheet);
        EXPECT_EQ(second.GetParent(), &sheet);
    });
    driver.PressCancel();
    EXPECT_EQ(RunSheet(driver, sheet), IDCANCEL);
    std::sort(events.begin(), events.end());
    EXPECT_EQ(events, (Events{"first:cancel", "first:init", "second:cancel", "second:init"}));

    events.clear();
    driver.WaitWindow("Test Sheet").SelectTab(1).PressOk();
    EXPECT_EQ(RunSheet(driver, sheet), IDOK);
    std::sort(events.begin(), events.end());
    EXPECT_EQ(events, (Events{"first:init", "first:ok", "second:init", "second:ok"}));
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
}

TEST(Sheet, RefusesToRunWithoutPages)
{
    CPropertySheet sheet("Empty");
    EXPECT_EQ(sheet.DoModal(), -1);
}

}  // namespace
