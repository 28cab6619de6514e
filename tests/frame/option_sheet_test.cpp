// Sheets of the test program's own pages run through the library's common
// road, driven as a user would.
#include <gtest/gtest.h>

#include <algorithm>

#include "dialog_driver.h"
#include "frame_test_ids.h"
#include "frame_test_support.h"
#include "seam_recorder.h"

namespace {

using frametest::Events;
using frametest::Tag;
using frametest::TagPage;

bool Has(const Events& events, const std::string& event)
{
    return std::find(events.begin(), events.end(), event) != events.end();
}

class OptionSheet : public ::testing::Test {
protected:
    void SetUp() override
    {
        ZvSetTag(&host, "FIRST", "1");
        ZvSetTag(&host, "SECOND", "5");
        sheet.pages = {&first, &second};
    }

    SheetArgs Args()
    {
        return SheetArgs{"test sheet", nullptr, &host, "Test host", nullptr, &formats, "BMP", "TIF", 2, 0, nullptr};
    }

    OKAMOD formats{nullptr};
    TagSet host;
    Events events;
    TagPage first{IDD_TEST_FIRST, IDC_TEST_FIRST_EDIT, "FIRST", &events};
    TagPage second{IDD_TEST_SECOND, IDC_TEST_SECOND_EDIT, "SECOND", &events};
    frametest::TestSheet sheet;
    zvtest::DialogDriver driver;
};

TEST_F(OptionSheet, CancelDropsWhatTheRetrievalWroteOnLeavingATab)
{
    std::string inChild;
    driver.WaitWindow("Processing Options").Type(IDC_TEST_FIRST_EDIT, "2").SelectTab(1).ExpectPage(1).Do([&](HWND) {
        // The retrieval wrote into the sheet's own child set.
        inChild = Tag(CurrentOptionContext()->sheetTags, "FIRST");
    }).PressCancel();
    EXPECT_EQ(driver.Run([&] { return frametest::RunTestSheet(Args(), &sheet); }), 0);

    EXPECT_EQ(inChild, "2");
    EXPECT_EQ(sheet.modal, IDCANCEL);
    EXPECT_EQ(Tag(&host, "FIRST"), "1");
    EXPECT_EQ(host.GetLastChild(), nullptr);
    EXPECT_EQ(CurrentOptionContext()->sheetTags, nullptr);
    EXPECT_EQ(CurrentOptionContext()->inDialog, 0);
}

TEST_F(OptionSheet, OkMergesThePagesThatWereOpenedAndNoOther)
{
    driver.WaitWindow("Processing Options").Type(IDC_TEST_FIRST_EDIT, "3").PressOk();
    EXPECT_EQ(driver.Run([&] { return frametest::RunTestSheet(Args(), &sheet); }), 1);

    EXPECT_EQ(Tag(&host, "FIRST"), "3");
    EXPECT_TRUE(Has(events, "FIRST:ok"));
    // The second tab was never shown: no window, no retrieval, no OnOK.
    EXPECT_EQ(Tag(&host, "SECOND"), "5");
    EXPECT_FALSE(Has(events, "SECOND:init"));
    EXPECT_FALSE(Has(events, "SECOND:ok"));
    EXPECT_EQ(host.GetLastChild(), nullptr);
}

TEST_F(OptionSheet, ABadValueOnTheFrontPageKeepsTheSheetOnItAndRunsNoOnOK)
{
    driver.WaitWindow("Processing Options")
        .Type(IDC_TEST_FIRST_EDIT, "bad")
        .SelectTab(1)
        .ExpectPage(0)
        .PressOk()
        .WaitHandled()
        .ExpectPage(0)
        .Do([&](HWND) { EXPECT_FALSE(Has(events, "FIRST:ok")); })
        .PressCancel();
    EXPECT_EQ(driver.Run([&] { return frametest::RunTestSheet(Args(), &sheet); }), 0);

    EXPECT_FALSE(Has(events, "FIRST:ok"));
    EXPECT_EQ(Tag(&host, "FIRST"), "1");
}

TEST_F(OptionSheet, OkAndCancelTakeTheApplyButtonsPlaceOnce)
{
    RECT okAfterFirst = {}, cancelAfterFirst = {}, applyRect = {};
    bool applyVisible = true;
    auto rectOf = [](HWND sheet, int id) {
        RECT r = {};
        GetWindowRect(GetDlgItem(sheet, id), &r);
        return r;
    };
    driver.WaitWindow("Processing Options")
        .Do([&](HWND target) {
            okAfterFirst = rectOf(target, IDOK);
            cancelAfterFirst = rectOf(target, IDCANCEL);
            applyRect = rectOf(target, kSheetApplyButton);
            applyVisible = IsWindowVisible(GetDlgItem(target, kSheetApplyButton)) != 0;
        })
        .SelectTab(1)
        .Do([&](HWND target) {
            RECT ok = rectOf(target, IDOK), cancel = rectOf(target, IDCANCEL);
            EXPECT_TRUE(EqualRect(&okAfterFirst, &ok) != 0);
            EXPECT_TRUE(EqualRect(&cancelAfterFirst, &cancel) != 0);
        })
        .PressCancel();
    driver.Run([&] { return frametest::RunTestSheet(Args(), &sheet); });

    EXPECT_TRUE(Has(events, "SECOND:init"));
    EXPECT_FALSE(applyVisible);
    EXPECT_TRUE(EqualRect(&cancelAfterFirst, &applyRect) != 0);
    EXPECT_LT(okAfterFirst.left, cancelAfterFirst.left);
    EXPECT_EQ(okAfterFirst.top, cancelAfterFirst.top);
}

TEST_F(OptionSheet, HangsBelowAChildThatTheHostsSetAlreadyHas)
{
    TagSet fileDialogChild;
    host.SetChild(&fileDialogChild);
    TagSet* parentOfSheet = nullptr;
    driver.WaitWindow("Processing Options")
        .Do([&](HWND) { parentOfSheet = CurrentOptionContext()->sheetTags->GetParent(); })
        .Type(IDC_TEST_FIRST_EDIT, "4")
        .PressOk();
    EXPECT_EQ(driver.Run([&] { return frametest::RunTestSheet(Args(), &sheet); }), 1);

    EXPECT_EQ(parentOfSheet, &fileDialogChild);
    EXPECT_EQ(fileDialogChild.GetLastChild(), nullptr);
    // The merge went into the child, which the host may still drop.
    host.SetChild(nullptr);
    EXPECT_EQ(Tag(&fileDialogChild, "FIRST"), "4");
    EXPECT_EQ(Tag(&host, "FIRST"), "1");
}

TEST_F(OptionSheet, ASecondEntryWhileOneRunsBeepsAndGivesZero)
{
    zvtest::SeamRecorder recorder;
    int inner = -1, innerSource = -1;
    TagSet* sheetTags = nullptr;
    TagSet* sheetTagsAfter = nullptr;
    driver.WaitWindow("Processing Options")
        .Do([&](HWND) {
            sheetTags = CurrentOptionContext()->sheetTags;
            inner = DoRotateDlg(nullptr, &host, "Other", nullptr, &formats, "BMP", "BMP", 0, nullptr);
            innerSource = DoSrcOptionsDlg(nullptr, nullptr, 218, &host, "Other", nullptr, &formats, "PCX", nullptr,
                                          0, 0, nullptr);
            sheetTagsAfter = CurrentOptionContext()->sheetTags;
        })
        .Type(IDC_TEST_FIRST_EDIT, "6")
        .PressOk();
    EXPECT_EQ(driver.Run([&] { return frametest::RunTestSheet(Args(), &sheet); }), 1);

    EXPECT_EQ(inner, 0);
    EXPECT_EQ(innerSource, 0);
    EXPECT_EQ(recorder.beeps, (std::vector<UINT>{0, 0}));
    EXPECT_EQ(sheetTagsAfter, sheetTags);
    // The refused calls left the running sheet's context alone.
    EXPECT_EQ(Tag(&host, "FIRST"), "6");
    EXPECT_STREQ(CurrentOptionContext()->appTitle, "Test host");
}

}  // namespace
