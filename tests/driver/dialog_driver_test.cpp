// The dialog driver against a dialog and a property sheet of its own: each
// step must reach the dialog with the messages a user's action sends, and
// a run that goes wrong must end with a failure instead of hanging.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <prsht.h>
#include <wincodec.h>

#include <set>
#include <string>
#include <vector>

#include "dialog_driver.h"
#include "driver_test_ids.h"

namespace {

using zvtest::DialogDriver;

// What the test dialog and pages saw.
struct Seen {
    int nameChanges = 0;
    std::string name;
    int countClicks = 0;
    std::vector<std::string> colour;
    int sizeChanges = 0;
    int size = -1;
    int askAnswer = 0;
    int helpControl = 0;
    int contextControl = 0;
    int helpButton = 0;
    std::vector<std::string> sheet;
};
Seen g_seen;

std::string ControlText(HWND dialog, int id)
{
    char text[256] = {};
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return text;
}

void OnCommand(HWND dialog, int id, int code)
{
    switch (id) {
    case IDC_NAME:
        if (code == EN_CHANGE) {
            ++g_seen.nameChanges;
            g_seen.name = ControlText(dialog, IDC_NAME);
        }
        break;
    case IDC_COUNT:
        ++g_seen.countClicks;
        break;
    case IDC_COLOUR: {
        int index = static_cast<int>(SendDlgItemMessageA(dialog, IDC_COLOUR, CB_GETCURSEL, 0, 0));
        if (code == CBN_SELCHANGE)
            g_seen.colour.push_back("selchange " + std::to_string(index));
        if (code == CBN_SELENDOK)
            g_seen.colour.push_back("selendok " + std::to_string(index));
        break;
    }
    case IDC_SIZES:
        if (code == LBN_SELCHANGE) {
            ++g_seen.sizeChanges;
            g_seen.size = static_cast<int>(SendDlgItemMessageA(dialog, IDC_SIZES, LB_GETCURSEL, 0, 0));
        }
        break;
    case IDC_ASK:
        g_seen.askAnswer = MessageBoxA(dialog, "Keep the changes?", "Driver Test", MB_YESNO | MB_ICONQUESTION);
        break;
    case IDHELP:
        ++g_seen.helpButton;
        break;
    case IDOK:
    case IDCANCEL:
        EndDialog(dialog, id);
        break;
    }
}

INT_PTR CALLBACK TestDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        for (const char* colour : {"Red", "Green", "Blue"})
            SendDlgItemMessageA(dialog, IDC_COLOUR, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(colour));
        for (const char* size : {"Small", "Medium", "Large"})
            SendDlgItemMessageA(dialog, IDC_SIZES, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(size));
        SendDlgItemMessageA(dialog, IDC_SHORT, EM_LIMITTEXT, 4, 0);
        return TRUE;
    case WM_COMMAND:
        OnCommand(dialog, LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    case WM_HELP:
        g_seen.helpControl = reinterpret_cast<HELPINFO*>(lParam)->iCtrlId;
        return TRUE;
    case WM_CONTEXTMENU:
        g_seen.contextControl = GetDlgCtrlID(reinterpret_cast<HWND>(wParam));
        return TRUE;
    }
    return FALSE;
}

INT_PTR ShowDialog()
{
    return DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_DRIVER_TEST), nullptr,
                           TestDialogProc, 0);
}

// Pages log their notifications; the first refuses to be left while its
// "Hold this page" box is checked.
INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(page, DWLP_USER, reinterpret_cast<PROPSHEETPAGEA*>(lParam)->lParam);
        return TRUE;
    }
    if (message != WM_NOTIFY)
        return FALSE;
    std::string index = std::to_string(GetWindowLongPtrA(page, DWLP_USER));
    switch (reinterpret_cast<NMHDR*>(lParam)->code) {
    case PSN_SETACTIVE:
        g_seen.sheet.push_back("setactive " + index);
        SetWindowLongPtrA(page, DWLP_MSGRESULT, 0);
        return TRUE;
    case PSN_KILLACTIVE: {
        bool hold = IsDlgButtonChecked(page, IDC_HOLD) == BST_CHECKED;
        g_seen.sheet.push_back((hold ? "refuse " : "killactive ") + index);
        SetWindowLongPtrA(page, DWLP_MSGRESULT, hold);
        return TRUE;
    }
    case PSN_APPLY:
        g_seen.sheet.push_back("apply " + index);
        SetWindowLongPtrA(page, DWLP_MSGRESULT, PSNRET_NOERROR);
        return TRUE;
    case PSN_RESET:
        g_seen.sheet.push_back("reset " + index);
        return TRUE;
    }
    return FALSE;
}

INT_PTR ShowSheet()
{
    PROPSHEETPAGEA pages[2] = {};
    int templates[2] = {IDD_PAGE_FIRST, IDD_PAGE_SECOND};
    for (int i = 0; i < 2; ++i) {
        pages[i].dwSize = sizeof pages[i];
        pages[i].hInstance = GetModuleHandleA(nullptr);
        pages[i].pszTemplate = MAKEINTRESOURCEA(templates[i]);
        pages[i].pfnDlgProc = PageProc;
        pages[i].lParam = i;
    }
    PROPSHEETHEADERA header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW;
    header.hInstance = GetModuleHandleA(nullptr);
    header.pszCaption = "Driver Sheet";
    header.nPages = 2;
    header.ppsp = pages;
    return PropertySheetA(&header);
}

using Strings = std::vector<std::string>;

TEST(DialogDriver, TypesClicksAndPicksWithTheNotificationsOfAUser)
{
    DialogDriver d;
    d.WaitWindow("Driver Test")
        .Type(IDC_NAME, "12")
        .ExpectText(IDC_NAME, "12")
        .SetText(IDC_NAME, "abc")
        .Click(IDC_COUNT)
        .Click(IDC_COUNT)
        .SetCheck(IDC_KEEP, true)
        .ExpectChecked(IDC_KEEP, true)
        .PickCombo(IDC_COLOUR, "Blue")
        .PickCombo(IDC_COLOUR, 0)
        .PickList(IDC_SIZES, 1)
        .Type(IDC_SHORT, "123456")
        .ExpectText(IDC_SHORT, "1234")
        .PressOk();
    EXPECT_EQ(d.Run(ShowDialog), IDOK);
    EXPECT_FALSE(d.Failed());
    // Two keystrokes, then one WM_SETTEXT.
    EXPECT_EQ(g_seen.nameChanges, 3);
    EXPECT_EQ(g_seen.name, "abc");
    EXPECT_EQ(g_seen.countClicks, 2);
    EXPECT_EQ(g_seen.colour, (Strings{"selendok 2", "selchange 2", "selendok 0", "selchange 0"}));
    EXPECT_EQ(g_seen.sizeChanges, 1);
    EXPECT_EQ(g_seen.size, 1);
}

TEST(DialogDriver, SendsHelpAndContextMenuAndPressesHelpAndCancel)
{
    DialogDriver d;
    d.SendHelp(IDC_NAME).ContextMenu(IDC_KEEP).PressHelp().PressCancel();
    EXPECT_EQ(d.Run(ShowDialog), IDCANCEL);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(g_seen.helpControl, IDC_NAME);
    EXPECT_EQ(g_seen.contextControl, IDC_KEEP);
    EXPECT_EQ(g_seen.helpButton, 1);
}

TEST(DialogDriver, AnswersAMessageBoxFromInsideItsNestedLoop)
{
    std::string text;
    DialogDriver d;
    d.WaitWindow("Driver Test")
        .Click(IDC_ASK)
        .ScreenshotMessageBox("driver_test_message_box", "changes")
        .AnswerMessageBox(IDNO, "changes", &text)
        .Type(IDC_NAME, "after")
        .PressOk();
    EXPECT_EQ(d.Run(ShowDialog), IDOK);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(text, "Keep the changes?");
    EXPECT_EQ(g_seen.askAnswer, IDNO);
    EXPECT_EQ(g_seen.name, "after");
}

// Wine's file dialog nests its name box: a ComboBoxEx holding a combo
// holding an edit, all of one id.
TEST(DialogDriver, TypesANameIntoTheSystemSaveDialog)
{
    char folder[MAX_PATH] = {};
    GetTempPathA(MAX_PATH, folder);
    char file[MAX_PATH] = {};
    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.lpstrFile = file;
    ofn.nMaxFile = MAX_PATH;
    ofn.lpstrInitialDir = folder;
    ofn.lpstrFilter = "PNG files\0*.png\0";
    ofn.lpstrDefExt = "png";
    ofn.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST;
    constexpr int kFileName = 1148;
    DialogDriver d;
    d.WaitWindow("Save As").Type(kFileName, "driver_test_name").ExpectText(kFileName, "driver_test_name").PressOk();
    EXPECT_EQ(d.Run([&] { return static_cast<INT_PTR>(GetSaveFileNameA(&ofn)); }), TRUE);
    EXPECT_FALSE(d.Failed());
    EXPECT_STREQ(file + ofn.nFileOffset, "driver_test_name.png");
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
    EXPECT_EQ(d.Failures().size(), 1u);
    EXPECT_TRUE(DialogDriver::ThreadWindows().empty());
}

TEST(DialogDriver, WaitForAWindowThatNeverComesFailsWithinItsBound)
{
    DialogDriver d;
    d.SetStepTimeout(300).WaitWindow("Never Shown").PressOk();
    ExpectBoundedFailure(d, "step 1 WaitWindow(\"Never Shown\") did not succeed within 300 ms");
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
    d.SetRunTimeout(400).Pause(3000).PressOk();
    ExpectBoundedFailure(d, "did not end within 400 ms (next step: step 1 Pause(3000))");
}

TEST(DialogDriver, StepsLeftWhenTheDialogEndsAreAFailure)
{
    DialogDriver d;
    d.PressOk().Click(IDC_COUNT);
    INT_PTR result = 0;
    EXPECT_NONFATAL_FAILURE(result = d.Run(ShowDialog), "steps still queued: step 2 Click(1002)");
    EXPECT_EQ(result, IDOK);
}

TEST(DialogDriver, ClickOnADisabledButtonFailsAsAUserCouldNotClickIt)
{
    DialogDriver d;
    d.SetStepTimeout(200)
        .Do([](HWND dialog) { EnableWindow(GetDlgItem(dialog, IDC_COUNT), FALSE); })
        .Click(IDC_COUNT);
    EXPECT_NONFATAL_FAILURE(d.Run(ShowDialog), "control 1002 is disabled");
    EXPECT_EQ(g_seen.countClicks, 0);
}

TEST(DialogDriver, SwitchesTabsAndAPageMayRefuseToBeLeft)
{
    DialogDriver d;
    d.WaitWindow("Driver Sheet")
        .ExpectPage(0)
        .SelectTab(1)
        .ExpectPage(1)
        .SelectTab("First")
        .SetCheck(IDC_HOLD, true)
        .SelectTab(1)
        .ExpectPage(0)
        .SetCheck(IDC_HOLD, false)
        .Type(IDC_FIRST_EDIT, "kept")
        .PressOk();
    EXPECT_GT(d.Run(ShowSheet), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(g_seen.sheet, (Strings{"setactive 0", "killactive 0", "setactive 1", "killactive 1", "setactive 0",
                                     "refuse 0", "killactive 0", "apply 0", "apply 1"}));
}

TEST(DialogDriver, CancelsASheetAndClosesOneAfterAFailedStep)
{
    DialogDriver cancel;
    cancel.WaitWindow("Driver Sheet").PressCancel();
    EXPECT_EQ(cancel.Run(ShowSheet), 0);
    EXPECT_EQ(g_seen.sheet, (Strings{"setactive 0", "reset 0"}));

    g_seen.sheet.clear();
    DialogDriver failing;
    failing.SetStepTimeout(200).WaitControl(4242);
    EXPECT_NONFATAL_FAILURE(failing.Run(ShowSheet), "shows no control 4242");
    EXPECT_EQ(g_seen.sheet, (Strings{"setactive 0", "reset 0"}));
    EXPECT_TRUE(DialogDriver::ThreadWindows().empty());
}

// Reads a PNG back through WIC: its size and how many colours it shows.
void ReadPng(const std::string& path, UINT* width, UINT* height, size_t* colours)
{
    *width = *height = 0;
    *colours = 0;
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    IWICImagingFactory* factory = nullptr;
    IWICBitmapDecoder* decoder = nullptr;
    IWICBitmapFrameDecode* frame = nullptr;
    IWICFormatConverter* converter = nullptr;
    std::wstring wide(path.begin(), path.end());
    HRESULT hr = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                  reinterpret_cast<void**>(&factory));
    if (SUCCEEDED(hr))
        hr = factory->CreateDecoderFromFilename(wide.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand,
                                                &decoder);
    if (SUCCEEDED(hr))
        hr = decoder->GetFrame(0, &frame);
    if (SUCCEEDED(hr))
        hr = frame->GetSize(width, height);
    if (SUCCEEDED(hr))
        hr = factory->CreateFormatConverter(&converter);
    if (SUCCEEDED(hr))
        hr = converter->Initialize(frame, GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone, nullptr, 0,
                                   WICBitmapPaletteTypeCustom);
    if (SUCCEEDED(hr)) {
        std::vector<UINT32> pixels(static_cast<size_t>(*width) * *height);
        hr = converter->CopyPixels(nullptr, *width * 4, static_cast<UINT>(pixels.size() * 4),
                                   reinterpret_cast<BYTE*>(pixels.data()));
        std::set<UINT32> distinct;
        for (UINT32 p : pixels)
            distinct.insert(p & 0xFFFFFF);
        *colours = distinct.size();
    }
    EXPECT_TRUE(SUCCEEDED(hr)) << std::hex << hr;
    for (IUnknown* p : std::initializer_list<IUnknown*>{converter, frame, decoder, factory})
        if (p)
            p->Release();
    CoUninitialize();
}

TEST(DialogDriver, ScreenshotIsAPngOfTheWholeWindow)
{
    RECT dialogRect = {}, sheetRect = {};
    DialogDriver d;
    d.WaitWindow("Driver Test")
        .Type(IDC_NAME, "Gallery")
        .Screenshot("driver_test_dialog")
        .Do([&](HWND w) { GetWindowRect(w, &dialogRect); })
        .PressCancel();
    d.Run(ShowDialog);
    DialogDriver s;
    s.WaitWindow("Driver Sheet")
        .Screenshot("driver_test_sheet")
        .Do([&](HWND w) { GetWindowRect(w, &sheetRect); })
        .PressCancel();
    s.Run(ShowSheet);
    EXPECT_FALSE(d.Failed() || s.Failed());

    struct Shot {
        const char* name;
        RECT rect;
    };
    for (const Shot& shot : {Shot{"driver_test_dialog", dialogRect}, Shot{"driver_test_sheet", sheetRect}}) {
        UINT width, height;
        size_t colours;
        ReadPng(DialogDriver::GalleryPath(shot.name), &width, &height, &colours);
        EXPECT_EQ(static_cast<LONG>(width), shot.rect.right - shot.rect.left) << shot.name;
        EXPECT_EQ(static_cast<LONG>(height), shot.rect.bottom - shot.rect.top) << shot.name;
        // A blank capture has one colour; a dialog has a face, text, frames.
        EXPECT_GT(colours, 3u) << shot.name;
    }
}

}  // namespace
