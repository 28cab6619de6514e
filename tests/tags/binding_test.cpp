// Controls bound to tags on a real dialog, driven from inside its modal
// loop by the dialog driver: text is typed into the edits, the Retrieve
// functions run as a page's kill-active would run them, and the message box
// that refuses a value is read and answered as a user would.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "dialog_driver.h"
#include "tags_test_ids.h"
#include "zvwio32.h"

namespace {

HINSTANCE Self()
{
    return GetModuleHandleA(nullptr);
}

TEST(StringLists, ItemsAndIndexesFollowChainedEntries)
{
    char item[32];
    GetListItem(IDS_UNITS_SHOWN, 4, Self(), item, sizeof item);
    EXPECT_STREQ(item, "Multiples");  // in the second string of the chain
    EXPECT_EQ(GetListItem(IDS_UNITS_SHOWN, 5, Self(), item, sizeof item), -1);
    char small[4];
    EXPECT_EQ(GetListItem(IDS_UNITS_SHOWN, 1, Self(), small, sizeof small), 3);
    EXPECT_STREQ(small, "Cen");
    EXPECT_EQ(GetListIndex(IDS_UNITS_SHOWN, "multiples", Self()), 4);
    EXPECT_EQ(GetListIndex(IDS_UNITS_VALUES, nullptr, Self()), -1);
    // A chain whose last entry ends in "~" stops where the table does.
    EXPECT_EQ(GetListIndex(IDS_OPEN_CHAIN, "second", Self()), 1);
    EXPECT_EQ(GetListItem(IDS_OPEN_CHAIN, 2, Self(), item, sizeof item), -1);
}

INT_PTR CALLBACK PlainDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(dialog, LOWORD(wParam) == IDOK);
        return TRUE;
    }
    return FALSE;
}

INT_PTR ShowOptionsDialog(zvtest::DialogDriver& driver)
{
    INITCOMMONCONTROLSEX icc = {sizeof icc, ICC_BAR_CLASSES};
    InitCommonControlsEx(&icc);
    return driver.Run(
        [&] { return DialogBoxParamA(Self(), MAKEINTRESOURCEA(IDD_TEST_OPTIONS), nullptr, PlainDialogProc, 0); });
}

std::string Tag(TagSet* tags, const char* key)
{
    const char* v = ZvGetTag(tags, key);
    return v ? v : "<absent>";
}

std::string EditText(HWND dialog, int id)
{
    char text[128] = {};
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return text;
}

TEST(BoundControls, AValueOutOfBoundsIsRefusedToldOnceAndNotStored)
{
    TagSet tags;
    ZvSetTag(&tags, "TIFUNITS", "pix");
    ZvSetTag(&tags, "JPGQ", "20");
    ZvSetTag(&tags, "GIFTRANS", "black");
    ZvSetTag(&tags, "BMPTIFSMOOTH", "on");
    TagSet* t = &tags;
    int valid = 1;
    std::string widthBox, caption, floatBox, qualityBox;

    zvtest::DialogDriver d;
    d.WaitWindow("Test Options")
        // 50000 for a width of 1 to 32000, as a page's kill-active retrieves
        // it: refused, told once, the focus on the field.
        .Type(IDC_WIDTH, "50000")
        .Do([&](HWND dlg) {
            RetrieveEditIntTag(dlg, IDC_WIDTH, IDC_WIDTH_LABEL, "TIF", "W", 1, 32000, t, &valid);
            EXPECT_EQ(valid, 0);
            EXPECT_EQ(GetFocus(), GetDlgItem(dlg, IDC_WIDTH));
            // A later bad value of the same retrieval is not told again: a
            // box here would have no one to answer it and would fail the run.
            RetrieveEditIntTag(dlg, IDC_WIDTH, IDC_WIDTH_LABEL, "TIF", "W", 1, 32000, t, &valid);
            EXPECT_EQ(valid, 0);
        })
        .Step("caption of the message box",
              [&](zvtest::DialogDriver&, HWND dlg) {
                  HWND box = zvtest::DialogDriver::ThreadWindows().front();
                  caption = zvtest::DialogDriver::TextOf(box);
                  return zvtest::DialogDriver::Result{
                      box != dlg ? zvtest::DialogDriver::Outcome::Done : zvtest::DialogDriver::Outcome::Retry,
                      "no message box yet"};
              })
        .AnswerMessageBox(IDOK, "Maximum width", &widthBox)
        .Type(IDC_WIDTH, "800")
        .Do([&](HWND dlg) {
            valid = 1;
            RetrieveEditIntTag(dlg, IDC_WIDTH, IDC_WIDTH_LABEL, "TIF", "W", 1, 32000, t, &valid);
            EXPECT_EQ(valid, 1);
        })
        // "2.5cm" is no number: refused too, and the stored width stays 800.
        .Type(IDC_WIDTH, "2.5cm")
        .Do([&](HWND dlg) {
            RetrieveEditFloatTag(dlg, IDC_WIDTH, IDC_WIDTH_LABEL, "TIF", "W", 0.0, 999999.99, t, &valid);
            EXPECT_EQ(valid, 0);
        })
        .AnswerMessageBox(IDOK, "Maximum width", &floatBox)
        // The track bar carries its position to its edit; 300 is refused.
        .Do([&](HWND dlg) {
            DisplayTrackBarTag(dlg, IDC_QUALITY_BAR, IDC_QUALITY, "JPG", "Q", 2, 255, t);
            HWND bar = GetDlgItem(dlg, IDC_QUALITY_BAR);
            SendMessageA(bar, TBM_SETPOS, TRUE, 100);
            HandleTrackBarScroll(dlg, TB_THUMBPOSITION, reinterpret_cast<LPARAM>(bar));
            EXPECT_EQ(EditText(dlg, IDC_QUALITY), "100");
            EXPECT_EQ(HandleTrackBarScroll(dlg, 0, reinterpret_cast<LPARAM>(GetDlgItem(dlg, IDC_WIDTH))), 0);
            valid = 1;
            RetrieveTrackBarTag(dlg, IDC_QUALITY_BAR, IDC_QUALITY, IDC_QUALITY_LABEL, "JPG", "Q", 2, 255, t, &valid);
        })
        .Type(IDC_QUALITY, "300")
        .Do([&](HWND dlg) {
            RetrieveTrackBarTag(dlg, IDC_QUALITY_BAR, IDC_QUALITY, IDC_QUALITY_LABEL, "JPG", "Q2", 2, 255, t, &valid);
            EXPECT_EQ(valid, 0);
        })
        .AnswerMessageBox(IDOK, "Quality", &qualityBox)
        // A list, a check box and radio buttons, each shown and taken back.
        .Do([&](HWND dlg) {
            LoadList(dlg, IDC_UNITS, IDC_UNITS_LABEL, IDS_UNITS_SHOWN, IDS_UNITS_VALUES, "TIF", "UNITS", Self(), t);
            EXPECT_EQ(EditText(dlg, IDC_UNITS), "Pixels");
            DisplayCheckBoxTag(dlg, IDC_SMOOTH, "BMPTIF", "SMOOTH", t);
            EXPECT_EQ(DisplayRadioButtonTag(dlg, IDC_TRANS_FIRST, IDC_TRANS_LAST, IDS_TRANS_VALUES, "GIF", "TRANS",
                                            Self(), t),
                      IDC_TRANS_LAST);
        })
        .PickCombo(IDC_UNITS, "Multiples")
        .Click(IDC_SMOOTH)
        .Click(IDC_TRANS_FIRST + 1)
        .Do([&](HWND dlg) {
            char* list = RetrieveList(dlg, IDC_UNITS, IDS_UNITS_VALUES, "TIF", "UNITS", Self(), t);
            EXPECT_STREQ(list, "MULT");
            // "on" showed checked, the click cleared it.
            EXPECT_EQ(RetrieveCheckBoxTag(dlg, IDC_SMOOTH, "BMPTIF", "SMOOTH", t), 0);
            RetrieveRadioButtonTag(dlg, IDC_TRANS_FIRST, IDC_TRANS_LAST, IDS_TRANS_VALUES, "GIF", "TRANS", Self(), t);
        })
        .PressOk();
    ASSERT_EQ(ShowOptionsDialog(d), 1);

    // The message names the field and its bounds, in a box captioned like
    // the dialog.
    EXPECT_NE(widthBox.find(" 1 "), std::string::npos) << widthBox;
    EXPECT_NE(widthBox.find("32000"), std::string::npos) << widthBox;
    EXPECT_EQ(caption, "Test Options");
    EXPECT_NE(floatBox.find("999999.99"), std::string::npos) << floatBox;
    EXPECT_NE(qualityBox.find("255"), std::string::npos) << qualityBox;
    EXPECT_EQ(Tag(&tags, "TIFW"), "800");
    EXPECT_EQ(Tag(&tags, "JPGQ"), "100");
    EXPECT_EQ(Tag(&tags, "JPGQ2"), "<absent>");
    EXPECT_EQ(Tag(&tags, "TIFUNITS"), "MULT");
    EXPECT_EQ(Tag(&tags, "BMPTIFSMOOTH"), "OFF");
    EXPECT_EQ(Tag(&tags, "GIFTRANS"), "WHITE");
}

TEST(BoundControls, MissingDisabledAndEmptyControlsStoreQuietly)
{
    TagSet tags;
    ZvSetTag(&tags, "TIFW", "640");
    ZvSetTag(&tags, "TIFH", "4");
    TagSet* t = &tags;
    int valid = 1, listEnabled = -1;
    char* listResult = reinterpret_cast<char*>(1);

    // Any message box here would go unanswered and fail the run.
    zvtest::DialogDriver d;
    d.WaitWindow("Test Options")
        .Do([&](HWND dlg) {
            // Controls this template lacks: nothing is stored, nothing told.
            RetrieveEditIntTag(dlg, 9001, 9002, "", "MISSINGINT", 0, 10, t, &valid);
            RetrieveCheckBoxTag(dlg, 9003, "", "MISSINGCHECK", t);
            listResult = RetrieveList(dlg, 9004, IDS_UNITS_VALUES, "", "MISSINGLIST", Self(), t);
        })
        .Type(IDC_WIDTH, "-5")
        .Do([&](HWND dlg) {
            // A disabled edit with a bad value is left alone without a word.
            EnableWindow(GetDlgItem(dlg, IDC_WIDTH), FALSE);
            RetrieveEditIntTag(dlg, IDC_WIDTH, IDC_WIDTH_LABEL, "TIF", "W", 1, 32000, t, &valid);
            EnableWindow(GetDlgItem(dlg, IDC_WIDTH), TRUE);
        })
        .SetText(IDC_WIDTH, "")
        .Do([&](HWND dlg) {
            // An empty edit removes its tag; an empty list is disabled.
            RetrieveEditFloatTag(dlg, IDC_WIDTH, IDC_WIDTH_LABEL, "TIF", "H", 1.0, 10.0, t, &valid);
            LoadList(dlg, IDC_UNITS, IDC_UNITS_LABEL, 0, 0, "EPS", "CURVE", Self(), t);
            listEnabled = IsWindowEnabled(GetDlgItem(dlg, IDC_UNITS)) || IsWindowEnabled(GetDlgItem(dlg, IDC_UNITS_LABEL));
        })
        .PressOk();
    ASSERT_EQ(ShowOptionsDialog(d), 1);
    EXPECT_EQ(valid, 1);
    EXPECT_EQ(listResult, nullptr);
    EXPECT_EQ(Tag(&tags, "MISSINGCHECK"), "<absent>");
    EXPECT_EQ(Tag(&tags, "TIFW"), "640");
    EXPECT_EQ(Tag(&tags, "TIFH"), "<absent>");
    EXPECT_EQ(listEnabled, 0);
}

TEST(TextHelpers, ColoursKeepTheirByteOrder)
{
    // The text is red first; a COLORREF holds red in its low byte.
    EXPECT_EQ(GetColorRefFromTextRGB("FF8000"), RGB(0xFF, 0x80, 0x00));
    char text[16];
    GetTextHexRGB(RGB(1, 2, 0xAB), text);
    EXPECT_STREQ(text, "0102AB");
}

TEST(FileHelpers, SizeAndDateOfAFile)
{
    char path[MAX_PATH] = {}, dir[MAX_PATH] = {};
    GetTempPathA(sizeof dir, dir);
    GetTempFileNameA(dir, "zvt", 0, path);
    HANDLE h = CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD n = 0;
    WriteFile(h, "12345", 5, &n, nullptr);
    CloseHandle(h);
    char date[64] = "untouched", today[64] = {};
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, today, sizeof today);
    EXPECT_EQ(GetFileDateAndSize(path, date), 5);
    EXPECT_EQ(std::string(date).rfind(today, 0), 0u) << date;  // written just now
    EXPECT_EQ(ZvCanReadFile(path), 1);
    DeleteFileA(path);
    EXPECT_EQ(GetFileDateAndSize(path, date), -1);
    EXPECT_STREQ(date, "");
    EXPECT_EQ(ZvCanReadFile(path), 0);
}

}  // namespace
