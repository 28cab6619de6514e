#include "save_test_support.h"

#include <gtest/gtest.h>

namespace savetest {

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
    while (!text.empty() && text.back() == '\\')
        text.pop_back();
    return text;
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
    HWND list = GetDlgItem(saveDialog, kTypeList);
    LRESULT index = SendMessageA(list, CB_GETCURSEL, 0, 0);
    char text[300] = {};
    if (index != CB_ERR)
        SendMessageA(list, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text));
    return text;
}

int TypeIndexOf(HWND saveDialog, const std::string& ext)
{
    return GetFormatIndex(saveDialog, kTypeList, ext.c_str());
}

std::string Tag(TagSet* tags, const char* key)
{
    const char* value = ZvGetTag(tags, key);
    return value ? value : "<none>";
}

SaveRoad::SaveRoad() : tags(new TagSet), formats(new OKAMOD(nullptr))
{
}

SaveRoad::~SaveRoad()
{
    delete tags;
    delete formats;
}

int SaveRoad::Save(zvtest::DialogDriver& d, const char* srcExt, short srcType, const char* appTitle,
                   const char* title, char* customList)
{
    return static_cast<int>(d.Run([&] {
        return DoSaveDlg(nullptr, tags, const_cast<char*>(appTitle), nullptr, formats, const_cast<char*>(srcExt),
                         path, customList, const_cast<char*>(title), nullptr, srcType);
    }));
}

void SaveRoad::Prime(const char* srcExt, short srcType, bool accept)
{
    zvtest::DialogDriver d;
    d.WaitWindow("Save Image").WaitControl(kTypeList);
    if (accept)
        d.PressOk();
    else
        d.PressCancel();
    Save(d, srcExt, srcType);
}

zvtest::DialogDriver& TypeName(zvtest::DialogDriver& d, const std::string& name)
{
    return d.Do([name](HWND dialog) {
        HWND box = NameBox(dialog);
        ASSERT_NE(box, nullptr);
        SetFocus(box);
        SendMessageA(box, EM_SETSEL, 0, -1);
        SendMessageA(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(name.c_str()));
    });
}

zvtest::DialogDriver& PickType(zvtest::DialogDriver& d, const std::string& ext)
{
    return d.Do([ext](HWND dialog) {
        SendDlgItemMessageA(dialog, kTypeList, CB_SETCURSEL, TypeIndexOf(dialog, ext), 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kTypeList, CBN_SELENDOK),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, kTypeList)));
    });
}

zvtest::DialogDriver& ExpectName(zvtest::DialogDriver& d, const std::string& name)
{
    return d.Do([name](HWND dialog) { EXPECT_EQ(zvtest::DialogDriver::TextOf(NameBox(dialog)), name); });
}

}  // namespace savetest
