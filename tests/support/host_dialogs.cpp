#include "host_dialogs.h"

namespace zvtest {

std::string LibraryFolder()
{
    char path[MAX_PATH] = {};
    GetModuleFileNameA(GetModuleHandleA("ZVOPT32.dll"), path, sizeof path);
    std::string text = path;
    return text.substr(0, text.rfind('\\'));
}

std::string TempFolder()
{
    char path[MAX_PATH] = {};
    GetTempPathA(sizeof path, path);
    std::string text = path;
    return text.substr(0, text.find_last_not_of('\\') + 1);
}

HWND NameBox(HWND saveDialog)
{
    if (HWND edit = GetDlgItem(saveDialog, 1152))
        return edit;
    HWND outer = GetDlgItem(saveDialog, 1148);
    HWND combo = outer ? FindWindowExA(outer, nullptr, "ComboBox", nullptr) : nullptr;
    return combo ? FindWindowExA(combo, nullptr, "Edit", nullptr) : nullptr;
}

std::string SelectedType(HWND saveDialog)
{
    LRESULT index = SendDlgItemMessageA(saveDialog, kTypeList, CB_GETCURSEL, 0, 0);
    char text[300] = {};
    if (index != CB_ERR)
        SendDlgItemMessageA(saveDialog, kTypeList, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text));
    return text;
}

DialogDriver& TypeName(DialogDriver& d, const std::string& name)
{
    return d.Do([name](HWND dialog) {
        HWND box = NameBox(dialog);
        ASSERT_NE(box, nullptr);
        SetFocus(box);
        SendMessageA(box, EM_SETSEL, 0, -1);
        SendMessageA(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(name.c_str()));
    });
}

DialogDriver& PickType(DialogDriver& d, const std::string& ext)
{
    return d.Do([ext](HWND dialog) {
        SendDlgItemMessageA(dialog, kTypeList, CB_SETCURSEL, TypeIndexOf(dialog, ext), 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kTypeList, CBN_SELENDOK),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, kTypeList)));
    });
}

DialogDriver& ExpectName(DialogDriver& d, const std::string& name)
{
    return d.Do([name](HWND dialog) { EXPECT_EQ(DialogDriver::TextOf(NameBox(dialog)), name); });
}

DialogDriver& SaveDialogTest::Open(const std::string& caption)
{
    return d.WaitWindow(caption).WaitControl(kTypeList);
}

int SaveDialogTest::Save(const char* srcExt, short srcType, const char* appTitle, const char* title,
                         char* customList, const char* helpFile)
{
    return static_cast<int>(d.Run([&] {
        return DoSaveDlg(nullptr, &tags, const_cast<char*>(appTitle), const_cast<char*>(helpFile), &formats,
                         const_cast<char*>(srcExt), path, customList, const_cast<char*>(title), nullptr, srcType);
    }));
}

void SaveDialogTest::Prime(const char* srcExt, short srcType, bool accept)
{
    accept ? Open().PressOk() : Open().PressCancel();
    Save(srcExt, srcType);
}

}  // namespace zvtest
