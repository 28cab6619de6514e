// The Target Application dialog and the metafile class choice, run on their
// own after a save dialog has given the library its tags and registry, and
// through the save dialog's buttons.
#include <gtest/gtest.h>

#include <string>

#include "host_dialogs.h"

namespace zvtest {
namespace {

constexpr int kAppList = 2400;

class TargetApp : public SaveDialogTest {
protected:
    INT_PTR RunDialog(int id, DLGPROC proc)
    {
        return d.Run([&] { return DialogBoxParamA(GetModuleHandleA("ZVOPT32.dll"), MAKEINTRESOURCEA(id), nullptr,
                                                  proc, 0); });
    }
    INT_PTR RunTargetApp() { return RunDialog(225, TargetAppDlgProc); }
};

// The text of a row of the list, by default the selected one.
std::string Row(HWND dialog, LRESULT index = -1)
{
    char text[256] = {};
    if (index < 0)
        index = SendDlgItemMessageA(dialog, kAppList, LB_GETCURSEL, 0, 0);
    SendDlgItemMessageA(dialog, kAppList, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text));
    return text;
}

TEST_F(TargetApp, TheTableOfTheSourcesKindShowsInItsOwnOrder)
{
    Prime("PCX", 1);
    d.WaitWindow("Target Application").Do([](HWND dialog) {
        ASSERT_EQ(SendDlgItemMessageA(dialog, kAppList, LB_GETCOUNT, 0, 0), 32);
        EXPECT_EQ(Row(dialog, 11), "Zavrin Paint");  // not sorted
        EXPECT_EQ(Row(dialog, 31), "WordStar for Windows");
        EXPECT_EQ(Row(dialog), "Ami Pro");  // nothing stored yet
    });
    d.Screenshot("target_application").PressCancel();
    EXPECT_EQ(RunTargetApp(), 0);
}

TEST_F(TargetApp, ARowWritesItsTagsKeyedByTheSourceAndIsFoundAgainInAnyCase)
{
    Prime("PCX", 1);
    d.WaitWindow("Target Application").PickList(kAppList, "Powerpoint").PressOk();
    EXPECT_EQ(RunTargetApp(), 1);
    EXPECT_EQ(Tag("RAPPTYPE"), "Powerpoint");
    EXPECT_EQ(Tag("RDESTTYPE"), "BMP");
    EXPECT_EQ(Tag("BMPFLAV"), "Windows 3");
    EXPECT_EQ(Tag("BMPHR"), "96");
    EXPECT_EQ(Tag("PCXBMPCPROC"), "SNAP");
    EXPECT_EQ(tags.GetLastChild(), nullptr);  // the dialog's child set is gone

    ZvSetTag(&tags, "RAPPTYPE", "powerPOINT");
    d.WaitWindow("Target Application").Do([](HWND dialog) { EXPECT_EQ(Row(dialog), "Powerpoint"); });
    d.PressCancel();
    RunTargetApp();
}

TEST_F(TargetApp, SameNameDiffersByTableAndCancelWritesNothing)
{
    Prime("CGM", 2);
    d.WaitWindow("Target Application").PickList(kAppList, "Zavrin Draw").PressCancel();
    EXPECT_EQ(RunTargetApp(), 0);
    EXPECT_EQ(Tag("VAPPTYPE"), "<absent>");

    // A double click accepts at once.
    d.WaitWindow("Target Application").PickList(kAppList, "Zavrin Draw").Do([](HWND dialog) {
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kAppList, LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, kAppList)));
    });
    EXPECT_EQ(RunTargetApp(), 1);
    EXPECT_EQ(Tag("VAPPTYPE"), "Zavrin Draw");
    EXPECT_EQ(Tag("VDESTTYPE"), "WMF");
    EXPECT_EQ(Tag("WMFFLAV"), "Pagemaker");
    EXPECT_EQ(Tag("RDESTTYPE"), "<absent>");
}

// A flavour definition as other parts of the suite leave it.
class FlavourKey {
public:
    FlavourKey(const char* name, const char* definition)
        : path_(std::string("Zavrin.Image\\Formats\\TIF\\Flavors\\") + name)
    {
        RegSetValueA(HKEY_CLASSES_ROOT, path_.c_str(), REG_SZ, definition, 0);
    }
    ~FlavourKey() { RegDeleteKeyA(HKEY_CLASSES_ROOT, path_.c_str()); }

private:
    std::string path_;
};

TEST_F(TargetApp, ATiffFlavourTakesItsDefinitionFromTheRegistryOrKeepsTheOneThereWas)
{
    // A definition fills its 128 bytes with 127 characters and the end.
    const std::string definition = "II*-FH31" + std::string(119, 'x');
    FlavourKey freehand("Freehand 3.1", definition.c_str());
    Prime("CGM", 2);
    d.WaitWindow("Target Application").PickList(kAppList, "Freehand").PressOk();
    RunTargetApp();
    EXPECT_EQ(Tag("VDESTTYPE"), "TIF");
    EXPECT_EQ(Tag("TIFFLAV"), "Freehand 3.1");
    EXPECT_EQ(Tag("TIFTYPE"), definition);

    Prime("BMP", 1);
    ZvSetTag(&tags, "TIFTYPE", "kept");
    d.WaitWindow("Target Application").PickList(kAppList, "Describe").PressOk();
    RunTargetApp();
    EXPECT_EQ(Tag("TIFFLAV"), "Class G Uncompressed");
    EXPECT_EQ(Tag("TIFTYPE"), "kept");
}

TEST_F(TargetApp, TheSaveDialogsButtonSelectsTheChosenFormatAndTheNameFollows)
{
    SetPath(TempFolder() + "\\page.bmp");
    // A typed extension that is no format leaves Options off...
    TypeName(Open(), "page.xyz").ExpectEnabled(kOptions, false);
    d.Click(kTargetApp).WaitWindow("Target Application").PickList(kAppList, "Publisher").PressOk();
    Open().Do([](HWND dialog) {
        EXPECT_EQ(SelectedType(dialog).find("CompuServe GIF"), 0u) << SelectedType(dialog);
        EXPECT_EQ(DialogDriver::TextOf(NameBox(dialog)), "page.GIF");
    });
    // ...and the name the button writes is handled as if typed: GIF has options.
    d.ExpectEnabled(kOptions, true).PressOk();
    EXPECT_NE(Save(), 0);
    EXPECT_EQ(std::string(path), TempFolder() + "\\page.GIF");
    EXPECT_EQ(Tag("RAPPTYPE"), "Publisher");
}

TEST_F(TargetApp, TheTiffFlavourNameIsShownAndTakenBack)
{
    Prime("BMP", 1);
    d.WaitWindow("TIFF Custom Flavors").Type(3501, "Studio Scan").PressHelp().PressOk();
    EXPECT_EQ(RunDialog(219, TiffAppDlgProc), 1);
    ASSERT_EQ(seams.helpCalls.size(), 1u);
    EXPECT_EQ(seams.helpCalls[0].data, 1010u);

    d.WaitWindow("TIFF Custom Flavors").ExpectText(3501, "Studio Scan").PressCancel();
    EXPECT_EQ(RunDialog(219, TiffAppDlgProc), 0);
}

TEST_F(TargetApp, AStoredMetafileClassIsSelectedAndOkStoresItUpperCase)
{
    Prime("BMP", 1, true);
    // The record's destination is what the primed dialog accepted: BMP.
    ZvSetTag(&tags, "BMPRVFORCE", "m");
    d.WaitWindow("Metafile Options").ExpectChecked(5403, true).Screenshot("metafile_class").PressOk();
    EXPECT_EQ(RunDialog(223, ForceToRasterDlgProc), 1);
    EXPECT_EQ(Tag("BMPRVFORCE"), "M");

    d.WaitWindow("Metafile Options").SendHelp();
    d.WaitUntil("a help call", [this] { return !seams.helpCalls.empty(); }).PressCancel();
    EXPECT_EQ(RunDialog(223, ForceToRasterDlgProc), 0);
    EXPECT_EQ(seams.helpCalls[0].data, 1428u);
}

}  // namespace
}  // namespace zvtest
