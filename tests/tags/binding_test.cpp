// Controls bound to tags on a real dialog, driven from inside its modal
// loop by thread timers: text is typed into the edits, the Retrieve
// functions run as a page's kill-active would run them, and the message box
// that refuses a value is read and dismissed like a user would.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

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
    EXPECT_EQ(GetListItem(IDS_UNITS_SHOWN, 0, Self(), item, sizeof item), 6);
    EXPECT_STREQ(item, "Inches");
    GetListItem(IDS_UNITS_SHOWN, 3, Self(), item, sizeof item);
    EXPECT_STREQ(item, "Pixels");
    GetListItem(IDS_UNITS_SHOWN, 4, Self(), item, sizeof item);
    EXPECT_STREQ(item, "Multiples");
    EXPECT_EQ(GetListItem(IDS_UNITS_SHOWN, 5, Self(), item, sizeof item), -1);
    EXPECT_STREQ(item, "");
    char small[4];
    EXPECT_EQ(GetListItem(IDS_UNITS_SHOWN, 1, Self(), small, sizeof small), 3);
    EXPECT_STREQ(small, "Cen");

    EXPECT_EQ(GetListIndex(IDS_UNITS_SHOWN, "multiples", Self()), 4);
    EXPECT_EQ(GetListIndex(IDS_UNITS_VALUES, "PIX", Self()), 3);
    EXPECT_EQ(GetListIndex(IDS_UNITS_VALUES, "FEET", Self()), -1);
    EXPECT_EQ(GetListIndex(IDS_UNITS_VALUES, nullptr, Self()), -1);
    // A chain whose last entry ends in "~" stops where the table does.
    EXPECT_EQ(GetListIndex(IDS_OPEN_CHAIN, "second", Self()), 1);
    EXPECT_EQ(GetListItem(IDS_OPEN_CHAIN, 2, Self(), item, sizeof item), -1);
    EXPECT_EQ(GetListIndex(9999, "x", Self()), -1);
}

// --- A dialog template in memory ---------------------------------------------

enum : int {
    kWidthLabel = 1508, kWidth = 1507, kUnitsLabel = 1503, kUnits = 1501, kSmooth = 1506,
    kQualityLabel = 4700, kQualityBar = 4701, kQuality = 4702, kTransFirst = 5201, kTransLast = 5203,
};

class Template {
public:
    Template(const char* caption, short cx, short cy)
    {
        Align(4);
        Put32(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT);
        Put32(0);
        countAt_ = words_.size();
        Put16(0);
        Put16(10), Put16(10), Put16(cx), Put16(cy);
        Put16(0), Put16(0);  // no menu, default class
        PutText(caption);
        Put16(8);
        PutText("MS Shell Dlg");
    }
    void Add(const char* cls, WORD atom, const char* text, DWORD style, int id, short x, short y, short cx, short cy)
    {
        Align(4);
        Put32(WS_CHILD | WS_VISIBLE | style);
        Put32(0);
        Put16(x), Put16(y), Put16(cx), Put16(cy);
        Put16(static_cast<WORD>(id));
        if (cls) {
            PutText(cls);
        } else {
            Put16(0xFFFF);
            Put16(atom);
        }
        PutText(text);
        Put16(0);
        ++words_[countAt_];
    }
    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

private:
    void Put16(WORD w) { words_.push_back(w); }
    void Put32(DWORD d) { Put16(LOWORD(d)), Put16(HIWORD(d)); }
    void PutText(const char* s)
    {
        for (; *s; ++s)
            Put16(static_cast<WORD>(static_cast<unsigned char>(*s)));
        Put16(0);
    }
    void Align(size_t bytes)
    {
        while ((words_.size() * 2) % bytes)
            Put16(0);
    }
    std::vector<WORD> words_;
    size_t countAt_ = 0;
};

// --- What the driver saw ----------------------------------------------------

struct DriveLog {
    TagSet* tags = nullptr;
    HWND dialog = nullptr;
    std::vector<std::string> boxes;  // text of each message box, as it came
    std::vector<std::string> boxCaptions;
    void (*scenario)(DriveLog&) = nullptr;
    // Results, checked after the dialog has gone.
    int validAfterBadWidth = -1, validAfterSecondBadWidth = -1, validAfterGoodWidth = -1;
    int boxesAfterSecondBadWidth = -1;
    bool focusOnWidthAfterRefusal = false;
    std::string widthEditAfterTracking;
    std::string qualityEdit;
    int validAfterBadQuality = -1;
    int validAfterBadFloat = -1;
    int radioShown = 0;
    std::string unitsSelected;
    char* listResult = nullptr;
    int checked = -1;
};

DriveLog* g_run = nullptr;

// Reads and closes every message box that the dialog owns. A thread timer
// fires inside the message box's own modal loop, so this runs while the
// Retrieve function that raised the box is still waiting for it.
BOOL CALLBACK CloseBoxOf(HWND window, LPARAM)
{
    char cls[32] = {};
    GetClassNameA(window, cls, sizeof cls);
    if (g_run && IsWindowVisible(window) && lstrcmpA(cls, "#32770") == 0 && window != g_run->dialog &&
        GetWindow(window, GW_OWNER) == g_run->dialog) {
        char text[512] = {}, caption[128] = {};
        GetDlgItemTextA(window, 0xFFFF, text, sizeof text);
        GetWindowTextA(window, caption, sizeof caption);
        g_run->boxes.push_back(text);
        g_run->boxCaptions.push_back(caption);
        SendMessageA(GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
    }
    return TRUE;
}

void CALLBACK DismissBoxes(HWND, UINT, UINT_PTR, DWORD)
{
    EnumThreadWindows(GetCurrentThreadId(), CloseBoxOf, 0);
}

// Types text into an edit as keystrokes: select all, then one WM_CHAR each.
void Type(HWND dialog, int id, const char* text)
{
    HWND edit = GetDlgItem(dialog, id);
    SetFocus(edit);
    SendMessageA(edit, EM_SETSEL, 0, -1);
    for (const char* c = text; *c; ++c)
        SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(*c)), 1);
}

std::string EditText(HWND dialog, int id)
{
    char text[128] = {};
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return text;
}

void CALLBACK RunScenario(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    DriveLog& run = *g_run;
    const UINT_PTR dismisser = SetTimer(nullptr, 0, 100, DismissBoxes);
    run.scenario(run);
    KillTimer(nullptr, dismisser);
    EndDialog(run.dialog, 1);
}

INT_PTR CALLBACK TestDialogProc(HWND dialog, UINT message, WPARAM, LPARAM)
{
    if (message == WM_INITDIALOG) {
        g_run->dialog = dialog;
        SetTimer(nullptr, 0, 50, RunScenario);
        return TRUE;
    }
    return FALSE;
}

int ShowOptionsDialog(DriveLog& run)
{
    INITCOMMONCONTROLSEX icc = {sizeof icc, ICC_BAR_CLASSES};
    InitCommonControlsEx(&icc);
    Template t("Test Options", 260, 160);
    t.Add(nullptr, 0x0082, "Maximum &width:", SS_LEFT, kWidthLabel, 7, 9, 60, 8);
    t.Add(nullptr, 0x0081, "", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, kWidth, 70, 7, 50, 12);
    t.Add(nullptr, 0x0082, "&Units:", SS_LEFT, kUnitsLabel, 7, 26, 60, 8);
    t.Add(nullptr, 0x0085, "", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, kUnits, 70, 24, 80, 80);
    t.Add(nullptr, 0x0080, "S&moothing", BS_AUTOCHECKBOX | WS_TABSTOP, kSmooth, 7, 44, 80, 10);
    t.Add(nullptr, 0x0082, "&Quality:", SS_LEFT, kQualityLabel, 7, 62, 60, 8);
    t.Add(TRACKBAR_CLASSA, 0, "", TBS_HORZ | WS_TABSTOP, kQualityBar, 70, 60, 100, 14);
    t.Add(nullptr, 0x0081, "", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, kQuality, 175, 60, 30, 12);
    for (int i = 0; i < 3; ++i)
        t.Add(nullptr, 0x0080, i == 0 ? "&None" : (i == 1 ? "&White" : "&Black"), BS_AUTORADIOBUTTON,
              kTransFirst + i, 7, static_cast<short>(80 + 12 * i), 60, 10);
    t.Add(nullptr, 0x0080, "OK", BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, 200, 140, 50, 14);
    g_run = &run;
    const INT_PTR r = DialogBoxIndirectParamA(Self(), t.Get(), nullptr, TestDialogProc, 0);
    g_run = nullptr;
    return static_cast<int>(r);
}

void BoundsScenario(DriveLog& run)
{
    HWND d = run.dialog;
    Type(d, kWidth, "50000");
    int valid = 1;
    RetrieveEditIntTag(d, kWidth, kWidthLabel, "TIF", "W", run.tags, 1, 32000, &valid);
    run.validAfterBadWidth = valid;
    run.focusOnWidthAfterRefusal = GetFocus() == GetDlgItem(d, kWidth);

    // Later bad values of the same retrieval are not told again.
    RetrieveEditIntTag(d, kWidth, kWidthLabel, "TIF", "W", run.tags, 1, 32000, &valid);
    run.validAfterSecondBadWidth = valid;
    run.boxesAfterSecondBadWidth = static_cast<int>(run.boxes.size());

    Type(d, kWidth, "800");
    valid = 1;
    RetrieveEditIntTag(d, kWidth, kWidthLabel, "TIF", "W", run.tags, 1, 32000, &valid);
    run.validAfterGoodWidth = valid;

    valid = 1;
    Type(d, kWidth, "2.5cm");
    RetrieveEditFloatTag(d, kWidth, kWidthLabel, "TIF", "W", run.tags, 0.0, 999999.99, &valid);
    run.validAfterBadFloat = valid;

    // The track bar carries its position over to its edit.
    DisplayTrackBarTag(d, kQualityBar, kQuality, "JPG", "Q", run.tags, 2, 255);
    HWND bar = GetDlgItem(d, kQualityBar);
    SendMessageA(bar, TBM_SETPOS, TRUE, 100);
    HandleTrackBarScroll(d, TB_THUMBPOSITION, reinterpret_cast<LPARAM>(bar));
    run.qualityEdit = EditText(d, kQuality);
    run.widthEditAfterTracking = HandleTrackBarScroll(d, 0, reinterpret_cast<LPARAM>(GetDlgItem(d, kWidth))) ? "handled" : "passed";
    valid = 1;
    RetrieveTrackBarTag(d, kQualityBar, kQuality, kQualityLabel, "JPG", "Q", run.tags, 2, 255, &valid);
    Type(d, kQuality, "300");
    RetrieveTrackBarTag(d, kQualityBar, kQuality, kQualityLabel, "JPG", "Q2", run.tags, 2, 255, &valid);
    valid = 1;
    RetrieveTrackBarTag(d, kQualityBar, kQuality, kQualityLabel, "JPG", "Q2", run.tags, 2, 255, &valid);
    run.validAfterBadQuality = valid;

    // Lists, check box and radio buttons.
    LoadList(d, kUnits, kUnitsLabel, "TIF", "UNITS", run.tags, IDS_UNITS_SHOWN, IDS_UNITS_VALUES, Self());
    char shown[64] = {};
    GetDlgItemTextA(d, kUnits, shown, sizeof shown);
    run.unitsSelected = shown;
    SendDlgItemMessageA(d, kUnits, CB_SETCURSEL, 4, 0);
    run.listResult = RetrieveList(d, kUnits, "TIF", "UNITS", run.tags, IDS_UNITS_VALUES, Self());
    DisplayCheckBoxTag(d, kSmooth, "BMPTIF", "SMOOTH", run.tags);
    SendDlgItemMessageA(d, kSmooth, BM_CLICK, 0, 0);
    run.checked = RetrieveCheckBoxTag(d, kSmooth, "BMPTIF", "SMOOTH", run.tags);
    run.radioShown = DisplayRadioButtonTag(d, kTransFirst, kTransLast, "GIF", "TRANS", run.tags, IDS_TRANS_VALUES, Self());
    SendDlgItemMessageA(d, kTransFirst + 1, BM_CLICK, 0, 0);
    RetrieveRadioButtonTag(d, kTransFirst, kTransLast, "GIF", "TRANS", run.tags, IDS_TRANS_VALUES, Self());
}

std::string Tag(TagSet* tags, const char* key)
{
    const char* v = ZvGetTag(tags, key);
    return v ? v : "<absent>";
}

TEST(BoundControls, AValueOutOfBoundsIsRefusedToldOnceAndNotStored)
{
    TagSet tags;
    ZvSetTag(&tags, "TIFUNITS", "pix");
    ZvSetTag(&tags, "JPGQ", "20");
    ZvSetTag(&tags, "GIFTRANS", "black");
    ZvSetTag(&tags, "BMPTIFSMOOTH", "on");
    DriveLog run;
    run.tags = &tags;
    run.scenario = BoundsScenario;
    ASSERT_EQ(ShowOptionsDialog(run), 1);

    // 50000 for a width of 1 to 32000: one message, naming the field and
    // its bounds, in a box captioned like the dialog.
    ASSERT_GE(run.boxes.size(), 1u);
    EXPECT_NE(run.boxes[0].find("Maximum width"), std::string::npos) << run.boxes[0];
    EXPECT_NE(run.boxes[0].find(" 1 "), std::string::npos) << run.boxes[0];
    EXPECT_NE(run.boxes[0].find("32000"), std::string::npos) << run.boxes[0];
    EXPECT_EQ(run.boxCaptions[0], "Test Options");
    EXPECT_EQ(run.validAfterBadWidth, 0);
    EXPECT_TRUE(run.focusOnWidthAfterRefusal);
    EXPECT_EQ(run.validAfterSecondBadWidth, 0);
    EXPECT_EQ(run.boxesAfterSecondBadWidth, 1);
    EXPECT_EQ(run.validAfterGoodWidth, 1);

    // "2.5cm" is no number: refused too, and the stored width stays 800.
    EXPECT_EQ(run.validAfterBadFloat, 0);
    EXPECT_EQ(Tag(&tags, "TIFW"), "800");

    // The track bar: its position reached the edit, a scroll of a control
    // that is no track bar is passed on, 300 is refused for 2 to 255.
    EXPECT_EQ(run.qualityEdit, "100");
    EXPECT_EQ(run.widthEditAfterTracking, "passed");
    EXPECT_EQ(Tag(&tags, "JPGQ"), "100");
    EXPECT_EQ(Tag(&tags, "JPGQ2"), "<absent>");
    EXPECT_EQ(run.validAfterBadQuality, 0);
    ASSERT_EQ(run.boxes.size(), 4u);
    EXPECT_NE(run.boxes[3].find("Quality"), std::string::npos) << run.boxes[3];
    EXPECT_NE(run.boxes[3].find("255"), std::string::npos) << run.boxes[3];

    // The list showed the entry of the stored value and stored the new one.
    EXPECT_EQ(run.unitsSelected, "Pixels");
    ASSERT_NE(run.listResult, nullptr);
    EXPECT_STREQ(run.listResult, "MULT");
    EXPECT_EQ(Tag(&tags, "TIFUNITS"), "MULT");
    EXPECT_EQ(run.checked, 0);  // "on" showed checked, the click cleared it
    EXPECT_EQ(Tag(&tags, "BMPTIFSMOOTH"), "OFF");
    EXPECT_EQ(run.radioShown, kTransLast);
    EXPECT_EQ(Tag(&tags, "GIFTRANS"), "WHITE");
}

void MissingControlsScenario(DriveLog& run)
{
    HWND d = run.dialog;
    int valid = 1;
    // Controls this template lacks: nothing is stored and nothing is told.
    RetrieveEditIntTag(d, 9001, 9002, "", "MISSINGINT", run.tags, 0, 10, &valid);
    RetrieveCheckBoxTag(d, 9003, "", "MISSINGCHECK", run.tags);
    run.listResult = RetrieveList(d, 9004, "", "MISSINGLIST", run.tags, IDS_UNITS_VALUES, Self());
    run.validAfterBadWidth = valid;
    // A disabled edit with a bad value is left alone without a word.
    Type(d, kWidth, "-5");
    EnableWindow(GetDlgItem(d, kWidth), FALSE);
    RetrieveEditIntTag(d, kWidth, kWidthLabel, "TIF", "W", run.tags, 1, 32000, &valid);
    run.validAfterGoodWidth = valid;
    // An empty edit removes its tag, and an empty list is disabled.
    EnableWindow(GetDlgItem(d, kWidth), TRUE);
    Type(d, kWidth, "");
    SetDlgItemTextA(d, kWidth, "");
    RetrieveEditFloatTag(d, kWidth, kWidthLabel, "TIF", "H", run.tags, 1.0, 10.0, &valid);
    LoadList(d, kUnits, kUnitsLabel, "EPS", "CURVE", run.tags, 0, 0, Self());
    run.checked = IsWindowEnabled(GetDlgItem(d, kUnits)) || IsWindowEnabled(GetDlgItem(d, kUnitsLabel));
    run.validAfterBadFloat = valid;
}

TEST(BoundControls, MissingDisabledAndEmptyControlsStoreQuietly)
{
    TagSet tags;
    ZvSetTag(&tags, "TIFW", "640");
    ZvSetTag(&tags, "TIFH", "4");
    DriveLog run;
    run.tags = &tags;
    run.scenario = MissingControlsScenario;
    ASSERT_EQ(ShowOptionsDialog(run), 1);
    EXPECT_TRUE(run.boxes.empty());
    EXPECT_EQ(run.validAfterBadWidth, 1);
    EXPECT_EQ(run.validAfterGoodWidth, 1);
    EXPECT_EQ(run.validAfterBadFloat, 1);
    EXPECT_EQ(run.listResult, nullptr);
    EXPECT_EQ(Tag(&tags, "MISSINGCHECK"), "<absent>");
    EXPECT_EQ(Tag(&tags, "TIFW"), "640");
    EXPECT_EQ(Tag(&tags, "TIFH"), "<absent>");
    EXPECT_EQ(run.checked, 0);
}

TEST(TextHelpers, ColoursKeepTheirByteOrderAndCommasGoInPlace)
{
    // The text is red first; a COLORREF holds red in its low byte.
    EXPECT_EQ(GetColorRefFromTextRGB("FF8000"), RGB(0xFF, 0x80, 0x00));
    char text[32];
    GetTextHexRGB(RGB(1, 2, 0xAB), text);
    EXPECT_STREQ(text, "0102AB");
    strcpy(text, "-16777216");
    InsertCommas(text);
    EXPECT_STREQ(text, "-16,777,216");
    InsertCommas(-1234567L, text);
    EXPECT_STREQ(text, "-1,234,567");
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
    char date[64] = "untouched";
    EXPECT_EQ(GetFileDateAndSize(path, date), 5);
    EXPECT_GT(strlen(date), 0u);
    EXPECT_EQ(ZvCanReadFile(path), 1);
    DeleteFileA(path);
    EXPECT_EQ(GetFileDateAndSize(path, date), -1);
    EXPECT_STREQ(date, "");
    EXPECT_EQ(ZvCanReadFile(path), 0);
    EXPECT_GE(GetNumColors(nullptr), 256);
}

}  // namespace
