// The helpers that work on list controls, on a real dialog: the file type
// combo, the flavour combo bound to "FLAV" (with flavours defined in the
// system registry) and the colour depth list.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "formats_test_ids.h"
#include "okaio32.h"
#include "okamod32.h"
#include "zvwio32.h"

namespace {

INT_PTR CALLBACK QuietDialog(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

const char kFlavorsKey[] = "Zavrin.Image\\Formats\\TIF\\Flavors";

std::vector<std::string> Items(HWND dialog, int id, bool listBox = false)
{
    HWND control = GetDlgItem(dialog, id);
    int count = static_cast<int>(SendMessageA(control, listBox ? LB_GETCOUNT : CB_GETCOUNT, 0, 0));
    std::vector<std::string> items;
    for (int i = 0; i < count; ++i) {
        char text[256] = "";
        SendMessageA(control, listBox ? LB_GETTEXT : CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
        items.emplace_back(text);
    }
    return items;
}

std::string Selected(HWND dialog, int id, bool listBox = false)
{
    HWND control = GetDlgItem(dialog, id);
    int selection = static_cast<int>(SendMessageA(control, listBox ? LB_GETCURSEL : CB_GETCURSEL, 0, 0));
    if (selection < 0) return "(none)";
    return Items(dialog, id, listBox)[selection];
}

class Controls : public ::testing::Test {
protected:
    void SetUp() override
    {
        formats = new OKAMOD(nullptr);
        tags = new TagSet();
        dialog = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_LISTS), nullptr, QuietDialog, 0);
        ASSERT_NE(dialog, nullptr);
    }
    void TearDown() override
    {
        DestroyWindow(dialog);
        delete tags;
        delete formats;
        // Other tests keep flavours under the same key: remove only ours.
        for (const std::string& path : created) RegDeleteKeyA(HKEY_CLASSES_ROOT, path.c_str());
    }

    void DefineFlavour(const std::string& name, const char* definition)
    {
        std::string path = std::string(kFlavorsKey) + "\\" + name;
        HKEY key = nullptr;
        DWORD disposition = 0;
        ASSERT_EQ(RegCreateKeyExA(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                                  &disposition),
                  ERROR_SUCCESS);
        if (disposition == REG_CREATED_NEW_KEY) created.push_back(path);
        RegSetValueExA(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(definition),
                       static_cast<DWORD>(strlen(definition) + 1));
        RegCloseKey(key);
    }

    std::vector<std::string> created;

    OKAMOD* formats = nullptr;
    TagSet* tags = nullptr;
    HWND dialog = nullptr;
};

TEST_F(Controls, TypeComboMapsBetweenPositionAndExtension)
{
    char** list = ZvCreateFilterList(formats, GetModuleHandleA(nullptr), 'D', IDS_KNOWN_FORMATS, 0);
    HWND combo = GetDlgItem(dialog, IDC_TYPES);
    int n = 0;
    for (; list[2 * n] != nullptr; ++n) SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(list[2 * n]));

    int gif = GetFormatIndex(dialog, IDC_TYPES, "GIF");
    ASSERT_GE(gif, 0);
    EXPECT_STREQ(strchr(list[2 * gif + 1], '.') + 1, "GIF");
    char ext[256];
    EXPECT_EQ(GetIndexExt(dialog, IDC_TYPES, gif, ext), 3);
    EXPECT_STREQ(ext, "GIF");
    // Each format's own entry wins over the known-formats entry, which holds
    // every extension too; that one gives its first.
    EXPECT_EQ(GetFormatIndex(dialog, IDC_TYPES, "bmp"), 0);
    EXPECT_EQ(GetIndexExt(dialog, IDC_TYPES, n - 1, ext), 3);
    EXPECT_STREQ(ext, "BMP");

    // Which texts match an entry is tested natively; here the combo's side.
    EXPECT_EQ(GetFormatIndex(dialog, IDC_TYPES, "PCD"), -1);  // read only: not in a save list
    EXPECT_EQ(GetFormatIndex(dialog, IDC_TYPES, nullptr), -1);
    EXPECT_EQ(GetFormatIndex(dialog, 4242, "GIF"), -1);
    EXPECT_EQ(GetIndexExt(dialog, IDC_TYPES, n, ext), 0);
    EXPECT_STREQ(ext, "");
    EXPECT_EQ(GetIndexExt(dialog, IDC_TYPES, 0, nullptr), 0);
    ZvDeleteFilterList(formats, list);
}

TEST_F(Controls, FlavoursComeFromTheTableAndTheSystemRegistry)
{
    // A name of this process, so that tests running side by side don't meet.
    std::string ours = "Fax Group " + std::to_string(GetCurrentProcessId());
    DefineFlavour(ours, "II*4");
    // The table's own, spelt otherwise, is listed once. Other tests define
    // the table's Freehand 3.1: this one leaves it to them.
    DefineFlavour("freelance", "II*F");
    std::string upper = ours;
    for (char& c : upper) c = static_cast<char>(toupper(static_cast<unsigned char>(c)));
    tags->Set("TIFFLAV", upper.c_str());
    ZvLoadFlavorsList(formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, "TIF", tags);

    std::vector<std::string> items = Items(dialog, IDC_FLAVOR);
    ASSERT_GE(items.size(), 3u);
    int freelance = 0, fax = 0;
    for (const std::string& item : items) {
        freelance += _stricmp(item.c_str(), "Freelance") == 0;
        fax += item == ours;
    }
    EXPECT_EQ(freelance, 1);
    EXPECT_EQ(fax, 1);
    EXPECT_EQ(Selected(dialog, IDC_FLAVOR), ours);
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, IDC_FLAVOR)));

    SendMessageA(GetDlgItem(dialog, IDC_FLAVOR), CB_SETCURSEL, 1, 0);
    ZvRetrieveFlavorsList(formats, dialog, IDC_FLAVOR, "TIF", tags);
    EXPECT_EQ(std::string(tags->Get("TIFFLAV")), items[1]);
}

TEST_F(Controls, AFlavourNoLongerListedSelectsTheFirstAndAFormatWithoutFlavoursNone)
{
    tags->Set("BMPFLAV", "Gone");
    ZvLoadFlavorsList(formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, "BMP", tags);
    EXPECT_EQ(Selected(dialog, IDC_FLAVOR), "Windows 3");
    tags->Set("BMPFLAV", "doc to help");
    ZvLoadFlavorsList(formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, "BMP", tags);
    EXPECT_EQ(Selected(dialog, IDC_FLAVOR), "Doc to Help");

    tags->Set("PNGFLAV", "Kept");
    for (const char* key : {"PNG", "~~~"}) {
        ZvLoadFlavorsList(formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, key, tags);
        EXPECT_TRUE(Items(dialog, IDC_FLAVOR).empty()) << key;
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_FLAVOR_LABEL))) << key;
    }
    ZvRetrieveFlavorsList(formats, dialog, IDC_FLAVOR, "PNG", tags);
    EXPECT_STREQ(tags->Get("PNGFLAV"), "Kept");
}

TEST_F(Controls, DepthListFollowsTheFormatAndSelectsTheTag)
{
    tags->Set("GIFDEP", "16");
    formats->LoadDepthList(dialog, IDC_DEPTH, IDC_DEPTH_LABEL, "GIF", tags);
    EXPECT_EQ(Items(dialog, IDC_DEPTH, true).back(), "256");
    EXPECT_EQ(Selected(dialog, IDC_DEPTH, true), "16");

    // No destination: the default list; no tag: "Same".
    formats->LoadDepthList(dialog, IDC_DEPTH, IDC_DEPTH_LABEL, "~~~", tags);
    EXPECT_EQ(Items(dialog, IDC_DEPTH, true).back(), "16777216");
    EXPECT_EQ(Selected(dialog, IDC_DEPTH, true), "Same");

    formats->LoadDepthList(dialog, IDC_DEPTH, IDC_DEPTH_LABEL, "CGM", tags);
    EXPECT_TRUE(Items(dialog, IDC_DEPTH, true).empty());
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_DEPTH_LABEL)));
}

}  // namespace
