// The helpers that work on list controls, on a real dialog: the flavour
// combo bound to "FLAV" (with flavours defined in the system registry) and
// the colour depth list. The file type combo is driven in the save dialog.
#include <gtest/gtest.h>

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

class Controls : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_NE(dialog, nullptr); }
    void TearDown() override
    {
        DestroyWindow(dialog);
        // Other tests keep flavours under the same key: remove only ours.
        for (const std::string& path : created)
            RegDeleteKeyA(HKEY_CLASSES_ROOT, path.c_str());
    }

    void DefineFlavour(const std::string& name, const char* definition)
    {
        created.push_back("Zavrin.Image\\Formats\\TIF\\Flavors\\" + name);
        RegSetValueA(HKEY_CLASSES_ROOT, created.back().c_str(), REG_SZ, definition, 0);
    }

    std::vector<std::string> Items(int id, bool listBox = false)
    {
        HWND control = GetDlgItem(dialog, id);
        std::vector<std::string> items(SendMessageA(control, listBox ? LB_GETCOUNT : CB_GETCOUNT, 0, 0));
        for (size_t i = 0; i < items.size(); ++i) {
            char text[256] = "";
            SendMessageA(control, listBox ? LB_GETTEXT : CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
            items[i] = text;
        }
        return items;
    }

    std::string Selected(int id, bool listBox = false)
    {
        LRESULT at = SendDlgItemMessageA(dialog, id, listBox ? LB_GETCURSEL : CB_GETCURSEL, 0, 0);
        return at < 0 ? "(none)" : Items(id, listBox)[at];
    }

    std::vector<std::string> created;
    OKAMOD formats{nullptr};
    TagSet tags;
    HWND dialog = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_LISTS), nullptr, QuietDialog, 0);
};

TEST_F(Controls, FlavoursComeFromTheTableAndTheSystemRegistry)
{
    // A name of this process, so that tests running side by side don't meet.
    std::string ours = "Fax Group " + std::to_string(GetCurrentProcessId());
    DefineFlavour(ours, "II*4");
    // The table's own, spelt otherwise, is listed once. Other tests define
    // the table's Freehand 3.1: this one leaves it to them.
    DefineFlavour("freelance", "II*F");
    std::string upper = ours;
    for (char& c : upper)
        c = static_cast<char>(toupper(static_cast<unsigned char>(c)));
    tags.Set("TIFFLAV", upper.c_str());
    ZvLoadFlavorsList(&formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, "TIF", &tags);

    std::vector<std::string> items = Items(IDC_FLAVOR);
    int freelance = 0, fax = 0;
    for (const std::string& item : items) {
        freelance += _stricmp(item.c_str(), "Freelance") == 0;
        fax += item == ours;
    }
    EXPECT_EQ(freelance, 1);
    EXPECT_EQ(fax, 1);
    EXPECT_EQ(Selected(IDC_FLAVOR), ours);

    SendDlgItemMessageA(dialog, IDC_FLAVOR, CB_SETCURSEL, 1, 0);
    ZvRetrieveFlavorsList(&formats, dialog, IDC_FLAVOR, "TIF", &tags);
    EXPECT_EQ(std::string(tags.Get("TIFFLAV")), items[1]);
}

TEST_F(Controls, AFlavourNoLongerListedSelectsTheFirstAndAFormatWithoutFlavoursNone)
{
    tags.Set("BMPFLAV", "Gone");
    ZvLoadFlavorsList(&formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, "BMP", &tags);
    EXPECT_EQ(Selected(IDC_FLAVOR), "Windows 3");
    tags.Set("BMPFLAV", "doc to help");
    ZvLoadFlavorsList(&formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, "BMP", &tags);
    EXPECT_EQ(Selected(IDC_FLAVOR), "Doc to Help");

    tags.Set("PNGFLAV", "Kept");
    for (const char* key : {"PNG", "~~~"}) {
        ZvLoadFlavorsList(&formats, dialog, IDC_FLAVOR, IDC_FLAVOR_LABEL, key, &tags);
        EXPECT_TRUE(Items(IDC_FLAVOR).empty()) << key;
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_FLAVOR_LABEL))) << key;
    }
    ZvRetrieveFlavorsList(&formats, dialog, IDC_FLAVOR, "PNG", &tags);
    EXPECT_STREQ(tags.Get("PNGFLAV"), "Kept");
}

TEST_F(Controls, DepthListFollowsTheFormatAndSelectsTheTag)
{
    tags.Set("GIFDEP", "16");
    formats.LoadDepthList(dialog, IDC_DEPTH, IDC_DEPTH_LABEL, "GIF", &tags);
    EXPECT_EQ(Items(IDC_DEPTH, true).back(), "256");
    EXPECT_EQ(Selected(IDC_DEPTH, true), "16");

    // No destination: the default list; no tag: "Same".
    formats.LoadDepthList(dialog, IDC_DEPTH, IDC_DEPTH_LABEL, "~~~", &tags);
    EXPECT_EQ(Items(IDC_DEPTH, true).back(), "16777216");
    EXPECT_EQ(Selected(IDC_DEPTH, true), "Same");

    formats.LoadDepthList(dialog, IDC_DEPTH, IDC_DEPTH_LABEL, "CGM", &tags);
    EXPECT_TRUE(Items(IDC_DEPTH, true).empty());
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_DEPTH_LABEL)));
}

}  // namespace
