// The Target Application dialog and the metafile class choice, run on their
// own after a save dialog has given the library its tags and registry, and
// through the save dialog's buttons.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "save_test_support.h"

namespace {

using namespace savetest;
using zvtest::DialogDriver;

constexpr int kAppList = 2400;

HMODULE Library()
{
    return GetModuleHandleA("ZVOPT32.dll");
}

INT_PTR RunDialog(DialogDriver& d, int id, DLGPROC proc)
{
    return d.Run([&] { return DialogBoxParamA(Library(), MAKEINTRESOURCEA(id), nullptr, proc, 0); });
}

std::vector<std::string> ListNames(HWND dialog)
{
    std::vector<std::string> names;
    HWND list = GetDlgItem(dialog, kAppList);
    LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        char text[256] = {};
        SendMessageA(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
        names.emplace_back(text);
    }
    return names;
}

DialogDriver& Choose(DialogDriver& d, const char* name)
{
    return d.Do([name](HWND dialog) {
        LRESULT at = SendDlgItemMessageA(dialog, kAppList, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(name));
        ASSERT_NE(at, LB_ERR) << name;
        SendDlgItemMessageA(dialog, kAppList, LB_SETCURSEL, at, 0);
    });
}

std::string Selected(HWND dialog)
{
    char text[256] = {};
    LRESULT at = SendDlgItemMessageA(dialog, kAppList, LB_GETCURSEL, 0, 0);
    SendDlgItemMessageA(dialog, kAppList, LB_GETTEXT, at, reinterpret_cast<LPARAM>(text));
    return text;
}

// A flavour definition as other parts of the suite leave it.
class FlavourKey {
public:
    FlavourKey(const char* name, const char* definition)
    {
        path_ = std::string("Zavrin.Image\\Formats\\TIF\\Flavors\\") + name;
        HKEY key = nullptr;
        RegCreateKeyExA(HKEY_CLASSES_ROOT, path_.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
        RegSetValueExA(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(definition),
                       static_cast<DWORD>(strlen(definition) + 1));
        RegCloseKey(key);
    }
    ~FlavourKey() { RegDeleteKeyA(HKEY_CLASSES_ROOT, path_.c_str()); }

private:
    std::string path_;
};

TEST(TargetApp, BothTablesListInTheirOwnOrder)
{
    {
    SaveRoad road;
    road.Prime("PCX", 1);
    DialogDriver d;
    d.WaitWindow("Target Application").Do([](HWND dialog) {
        auto names = ListNames(dialog);
        ASSERT_EQ(names.size(), 32u);
        EXPECT_EQ(names.front(), "Ami Pro");
        EXPECT_EQ(names[11], "Zavrin Paint");  // not sorted
        EXPECT_EQ(names.back(), "WordStar for Windows");
        EXPECT_EQ(Selected(dialog), "Ami Pro");  // nothing stored yet
    });
    d.Screenshot("target_application").PressCancel();
    EXPECT_EQ(RunDialog(d, 225, TargetAppDlgProc), 0);
    EXPECT_FALSE(d.Failed());
    }

    SaveRoad vector;
    vector.Prime("CGM", 2);
    DialogDriver v;
    v.WaitWindow("Target Application").Do([](HWND dialog) {
        auto names = ListNames(dialog);
        ASSERT_EQ(names.size(), 31u);
        EXPECT_EQ(names[2], "AutoCAD");
        EXPECT_EQ(names[12], "Illustrator");
        EXPECT_EQ(names.back(), "WordStar for Windows");
    });
    v.PressCancel();
    RunDialog(v, 225, TargetAppDlgProc);
    EXPECT_FALSE(v.Failed());
}

TEST(TargetApp, ARowWritesItsTagsKeyedByTheSource)
{
    SaveRoad road;
    road.Prime("PCX", 1);
    DialogDriver d;
    d.WaitWindow("Target Application");
    Choose(d, "Powerpoint").PressOk();
    EXPECT_EQ(RunDialog(d, 225, TargetAppDlgProc), 1);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "RAPPTYPE"), "Powerpoint");
    EXPECT_EQ(Tag(road.tags, "RDESTTYPE"), "BMP");
    EXPECT_EQ(Tag(road.tags, "BMPFLAV"), "Windows 3");
    EXPECT_EQ(Tag(road.tags, "BMPMAT"), "ON");
    EXPECT_EQ(Tag(road.tags, "BMPHR"), "96");
    EXPECT_EQ(Tag(road.tags, "BMPVR"), "96");
    EXPECT_EQ(Tag(road.tags, "PCXBMPCPROC"), "SNAP");
    EXPECT_EQ(road.tags->GetLastChild(), nullptr);  // the dialog's child set is gone

    // The stored name is found again, without regard to case.
    ZvSetTag(road.tags, "RAPPTYPE", "powerPOINT");
    DialogDriver again;
    again.WaitWindow("Target Application").Do([](HWND dialog) { EXPECT_EQ(Selected(dialog), "Powerpoint"); });
    again.PressCancel();
    RunDialog(again, 225, TargetAppDlgProc);
}

TEST(TargetApp, SameNameDiffersByTableAndCancelWritesNothing)
{
    SaveRoad road;
    road.Prime("CGM", 2);
    DialogDriver d;
    d.WaitWindow("Target Application");
    Choose(d, "Zavrin Draw").PressCancel();
    EXPECT_EQ(RunDialog(d, 225, TargetAppDlgProc), 0);
    EXPECT_EQ(Tag(road.tags, "VDESTTYPE"), "<none>");
    EXPECT_EQ(Tag(road.tags, "VAPPTYPE"), "<none>");

    DialogDriver ok;
    ok.WaitWindow("Target Application");
    // A double click accepts at once.
    Choose(ok, "Zavrin Draw").Do([](HWND dialog) {
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kAppList, LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, kAppList)));
    });
    EXPECT_EQ(RunDialog(ok, 225, TargetAppDlgProc), 1);
    EXPECT_FALSE(ok.Failed());
    EXPECT_EQ(Tag(road.tags, "VAPPTYPE"), "Zavrin Draw");
    EXPECT_EQ(Tag(road.tags, "VDESTTYPE"), "WMF");
    EXPECT_EQ(Tag(road.tags, "WMFFLAV"), "Pagemaker");
    EXPECT_EQ(Tag(road.tags, "RDESTTYPE"), "<none>");
}

TEST(TargetApp, TiffFlavourReadsItsDefinitionFromTheRegistry)
{
    // A definition fills its 128 bytes with 127 characters and the end.
    const std::string definition = "II*-FH31" + std::string(119, 'x');
    FlavourKey freehand("Freehand 3.1", definition.c_str());
    SaveRoad road;
    road.Prime("CGM", 2);
    DialogDriver d;
    d.WaitWindow("Target Application");
    Choose(d, "Freehand").PressOk();
    RunDialog(d, 225, TargetAppDlgProc);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "VDESTTYPE"), "TIF");
    EXPECT_EQ(Tag(road.tags, "TIFFLAV"), "Freehand 3.1");
    EXPECT_EQ(Tag(road.tags, "TIFTYPE"), definition);
}

TEST(TargetApp, AFlavourWithoutDefinitionKeepsTheOneThereWas)
{
    SaveRoad road;
    road.Prime("BMP", 1);
    ZvSetTag(road.tags, "TIFTYPE", "kept");
    DialogDriver d;
    d.WaitWindow("Target Application");
    Choose(d, "Describe").PressOk();
    RunDialog(d, 225, TargetAppDlgProc);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "TIFFLAV"), "Class G Uncompressed");
    EXPECT_EQ(Tag(road.tags, "TIFTYPE"), "kept");
}

TEST(TargetApp, TheSaveDialogsButtonSelectsTheChosenFormatAndTheNameFollows)
{
    SaveRoad road;
    std::string folder = TempFolder();
    lstrcpynA(road.path, (folder + "\\page.bmp").c_str(), sizeof road.path);
    DialogDriver d;
    d.WaitWindow("Save Image").WaitControl(kTypeList);
    // A typed extension that is no format leaves Options off...
    TypeName(d, "page.xyz").ExpectEnabled(kOptions, false).Click(kTargetApp).WaitWindow("Target Application");
    Choose(d, "Publisher").PressOk();
    d.WaitWindow("Save Image").WaitControl(kTypeList).Do([](HWND dialog) {
        EXPECT_EQ(SelectedType(dialog).find("CompuServe GIF"), 0u) << SelectedType(dialog);
        EXPECT_EQ(zvtest::DialogDriver::TextOf(NameBox(dialog)), "page.GIF");
    });
    // ...and the name the button writes is handled as if typed: GIF has options.
    d.ExpectEnabled(kOptions, true).PressOk();
    EXPECT_NE(road.Save(d, "BMP", 1), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(road.path), folder + "\\page.GIF");
    EXPECT_EQ(Tag(road.tags, "RAPPTYPE"), "Publisher");
}

TEST(TiffApp, TheFlavourNameIsShownAndTakenBack)
{
    SaveRoad road;
    road.Prime("BMP", 1);
    DialogDriver d;
    d.WaitWindow("TIFF Custom Flavors").Type(3501, "Studio Scan").PressHelp().PressOk();
    EXPECT_EQ(RunDialog(d, 219, TiffAppDlgProc), 1);
    EXPECT_FALSE(d.Failed());
    ASSERT_EQ(road.recorder.helpCalls.size(), 1u);
    EXPECT_EQ(road.recorder.helpCalls[0].data, 1010u);

    DialogDriver again;
    again.WaitWindow("TIFF Custom Flavors").ExpectText(3501, "Studio Scan").PressCancel();
    EXPECT_EQ(RunDialog(again, 219, TiffAppDlgProc), 0);
    EXPECT_FALSE(again.Failed());
}

TEST(MetafileClass, AStoredClassIsSelectedAndOkStoresItUpperCase)
{
    SaveRoad road;
    road.Prime("BMP", 1, true);
    // The record's destination is what the primed dialog accepted: BMP.
    ZvSetTag(road.tags, "BMPRVFORCE", "m");
    DialogDriver d;
    d.WaitWindow("Metafile Options").ExpectChecked(5403, true).Screenshot("metafile_class").PressOk();
    EXPECT_EQ(RunDialog(d, 223, ForceToRasterDlgProc), 1);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "BMPRVFORCE"), "M");

    DialogDriver help;
    help.WaitWindow("Metafile Options").SendHelp().Pause(200).PressCancel();
    EXPECT_EQ(RunDialog(help, 223, ForceToRasterDlgProc), 0);
    ASSERT_EQ(road.recorder.helpCalls.size(), 1u);
    EXPECT_EQ(road.recorder.helpCalls[0].data, 1428u);
}

}  // namespace
