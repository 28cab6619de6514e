// The save dialog as a user meets it: the real system dialog with the
// library's child template, driven from inside its own modal loop.
#include <gtest/gtest.h>

#include <string>

#include "save_test_support.h"

#include <commctrl.h>

namespace {

using namespace savetest;
using zvtest::DialogDriver;

constexpr char kCaption[] = "Save Image";

DialogDriver& OpenSave(DialogDriver& d)
{
    return d.WaitWindow(kCaption).WaitControl(kTypeList);
}

// ---- Where the dialog starts.

TEST(SaveStart, NoSourceKeysAsBitmapInTheLibrarysFolder)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d).Do([](HWND dialog) {
        EXPECT_EQ(SelectedType(dialog).find("Windows Bitmap"), 0u) << SelectedType(dialog);
        EXPECT_GE(TypeIndexOf(dialog, "WMF"), 0);  // every destination is offered
        EXPECT_NE(DialogDriver::FindControl(dialog, kOptions), nullptr);
        EXPECT_EQ(DialogDriver::FindControl(dialog, kWarnings), nullptr);  // not "Zavrin PRO"
    });
    d.PressCancel();
    EXPECT_EQ(road.Save(d, nullptr, 1), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(road.path), LibraryFolder() + "\\*.BMP");
    EXPECT_EQ(Tag(road.tags, "OWNOTIFY"), "ON");
    EXPECT_EQ(Tag(road.tags, "SAVEDIR"), "<none>");  // cancel stores nothing
}

TEST(SaveStart, CapturesAndScansOfferRasterFormatsOnly)
{
    for (const char* capture : {"CAP", "twn"}) {
        SaveRoad road;
        ZvSetTag(road.tags, "BMP~~~CPROC", "SNAP");  // a conversion tag of the bitmap source
        DialogDriver d;
        OpenSave(d).Do([](HWND dialog) {
            EXPECT_GE(TypeIndexOf(dialog, "GIF"), 0);
            EXPECT_LT(TypeIndexOf(dialog, "WMF"), 0);
            EXPECT_LT(TypeIndexOf(dialog, "CGM"), 0);
        });
        d.PressCancel();
        road.Save(d, capture, 1);
        EXPECT_FALSE(d.Failed()) << capture;
        EXPECT_EQ(std::string(road.path), LibraryFolder() + "\\*.BMP") << capture;
        EXPECT_EQ(Tag(road.tags, "BMPBMPCPROC"), "SNAP") << capture;  // keyed as a bitmap
    }
}

TEST(SaveStart, ACallersFullPathOpensAsGiven)
{
    SaveRoad road;
    ZvSetTag(road.tags, "SAVEDIR", "C:\\nowhere");
    ZvSetTag(road.tags, "RDESTTYPE", "PCX");
    std::string given = TempFolder() + "\\holiday.gif";
    lstrcpynA(road.path, given.c_str(), sizeof road.path);
    DialogDriver d;
    OpenSave(d).Do([](HWND dialog) {
        char folder[MAX_PATH] = {};
        SendMessageA(dialog, CDM_GETFOLDERPATH, sizeof folder, reinterpret_cast<LPARAM>(folder));
        EXPECT_EQ(lstrcmpiA(folder, TempFolder().c_str()), 0) << folder;
        EXPECT_EQ(SelectedType(dialog).find("CompuServe GIF"), 0u) << SelectedType(dialog);
    });
    d.PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(road.path), given);
}

TEST(SaveStart, AVectorSourceWithoutTagsGetsAMetafileName)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d).Do([](HWND dialog) {
        EXPECT_EQ(SelectedType(dialog).find("Windows Metafile"), 0u) << SelectedType(dialog);
    });
    d.PressCancel();
    road.Save(d, "CGM", 2);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(road.path), LibraryFolder() + "\\*.WMF");
}

TEST(SaveStart, AnUnknownSourceTypeLeavesTheExtensionEmpty)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d).Do([](HWND dialog) {
        // No entry matches: the first one stays selected.
        EXPECT_EQ(SendDlgItemMessageA(dialog, kTypeList, CB_GETCURSEL, 0, 0), 0);
    });
    d.PressCancel();
    road.Save(d, "BMP", 7);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(road.path), LibraryFolder() + "\\*.");
}

TEST(SaveStart, BrowseShowsThePlainDialogAndProKeepsTheWarningsBox)
{
    SaveRoad road;
    DialogDriver d;
    d.WaitWindow("bRoWsE").WaitControl(kTypeList).Do([](HWND dialog) {
        EXPECT_EQ(DialogDriver::FindControl(dialog, kOptions), nullptr);
        EXPECT_EQ(DialogDriver::FindControl(dialog, kTargetApp), nullptr);
        EXPECT_EQ(DialogDriver::FindControl(dialog, kWarnings), nullptr);
    });
    d.PressCancel();
    road.Save(d, "BMP", 1, "Zavrin PRO", "bRoWsE");
    EXPECT_FALSE(d.Failed());

    ZvSetTag(road.tags, "SHOWWARNINGS", "on");
    DialogDriver pro;
    OpenSave(pro).ExpectChecked(kWarnings, true).ExpectEnabled(kOptions, true).Screenshot("save_dialog");
    pro.PressCancel();
    road.Save(pro, "BMP", 1, "zavrin pro");
    EXPECT_FALSE(pro.Failed());
}

TEST(SaveStart, ACustomListOffersItsFormatsAndOkaSaveDlgWorksAlone)
{
    {
        SaveRoad road;
        char custom[] = "gif;*.pcx";
        DialogDriver d;
        OpenSave(d).Do([](HWND dialog) {
            EXPECT_EQ(TypeIndexOf(dialog, "GIF"), 0);
            EXPECT_EQ(TypeIndexOf(dialog, "PCX"), 1);
            EXPECT_LT(TypeIndexOf(dialog, "WMF"), 0);
            EXPECT_EQ(SendDlgItemMessageA(dialog, kTypeList, CB_GETCURSEL, 0, 0), 0);  // BMP isn't offered
        });
        d.PressCancel();
        road.Save(d, "BMP", 1, "Zavrin", kCaption, custom);
        EXPECT_FALSE(d.Failed());
    }
    // A host with neither tags nor registry: the extension of its path is
    // the source, and the accepted path comes back.
    zvtest::SeamRecorder recorder;
    std::string given = TempFolder() + "\\scan.pcx";
    char path[516];
    lstrcpynA(path, given.c_str(), sizeof path);
    DialogDriver d;
    OpenSave(d).Do([](HWND dialog) {
        EXPECT_EQ(zvtest::DialogDriver::TextOf(NameBox(dialog)), "scan.pcx");
        EXPECT_EQ(SelectedType(dialog).find("PC Paintbrush"), 0u) << SelectedType(dialog);
    });
    d.PressOk();
    char name[] = "Zavrin", title[] = "Save Image";
    EXPECT_NE(d.Run([&] { return OkaSaveDlg(nullptr, name, nullptr, path, title); }), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(path), given);
}

// ---- Changing the type and the name.

TEST(SaveType, AnEmptyNameBoxChangesNothing)
{
    SaveRoad road;
    ZvSetTag(road.tags, "GIFW", "7");
    DialogDriver d;
    OpenSave(d).Do([](HWND dialog) { SetWindowTextA(NameBox(dialog), ""); });
    PickType(d, "GIF");
    ExpectName(d, "").ExpectEnabled(kOptions, true).PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "GIFW"), "7");
}

TEST(SaveType, ANameWithoutDotGainsTheTypesExtension)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "photo");
    PickType(d, "PCX");
    // The list gives the extension as its pattern spells it.
    ExpectName(d, "photo.PCX").PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_FALSE(d.Failed());
}

TEST(SaveType, TagsMoveOnlyBackToTheDestinationLastTranslated)
{
    SaveRoad road;
    ZvSetTag(road.tags, "~~~W", "5");
    ZvSetTag(road.tags, "GIFW", "7");
    TagSet* tags = road.tags;
    DialogDriver d;
    OpenSave(d).Do([tags](HWND) { EXPECT_EQ(Tag(tags, "BMPW"), "5"); });  // from the neutral key
    PickType(d, "GIF").Do([tags](HWND dialog) {
        EXPECT_EQ(DialogDriver::TextOf(NameBox(dialog)), "*.GIF");
        EXPECT_EQ(Tag(tags, "GIFW"), "7");  // GIF was never translated to: left alone
        EXPECT_EQ(Tag(tags, "BMPW"), "5");
    });
    PickType(d, "BMP").PressCancel();
    road.Save(d, nullptr, 1);
    EXPECT_FALSE(d.Failed());
    // Back at BMP: GIF's tags go to it, and it keeps what it had.
    EXPECT_EQ(Tag(road.tags, "GIFW"), "<none>");
    EXPECT_EQ(Tag(road.tags, "BMPW"), "5");
}

TEST(SaveType, ATypedExtensionSelectsItsEntry)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "scan.pcx");
    d.Do([](HWND dialog) { EXPECT_EQ(SelectedType(dialog).find("PC Paintbrush"), 0u) << SelectedType(dialog); });
    d.ExpectEnabled(kOptions, true);
    TypeName(d, "scan.xyz");
    d.ExpectEnabled(kOptions, false).PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_FALSE(d.Failed());
}

// ---- Accepting a name.

TEST(SaveAccept, ANameWhoseExtensionIsNoFormatKeepsItAndGainsTheTypes)
{
    SaveRoad road;
    std::string folder = TempFolder();
    lstrcpynA(road.path, (folder + "\\x.gif").c_str(), sizeof road.path);
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "NOTES.XYZ");
    d.PressOk();
    EXPECT_NE(road.Save(d, "BMP", 1), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(road.path), folder + "\\NOTES.XYZ.GIF");
    EXPECT_EQ(Tag(road.tags, "SAVEDIR"), folder + "\\");
    EXPECT_EQ(Tag(road.tags, "RDESTTYPE"), "GIF");
    EXPECT_EQ(Tag(road.tags, "EDESTTYPE"), "<none>");
}

TEST(SaveAccept, AnExistingFileIsAskedAboutAndTheWarningsBoxIsStoredAtOk)
{
    std::string existing = TempFolder() + "\\kept.gif";
    HANDLE file = CreateFileA(existing.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    SaveRoad road;
    ZvSetTag(road.tags, "SHOWWARNINGS", "ON");
    lstrcpynA(road.path, existing.c_str(), sizeof road.path);
    DialogDriver d;
    OpenSave(d).SetCheck(kWarnings, false).PressOk();
    // "OWNOTIFY" is "ON" from the start: the system asks before replacing.
    std::string asked;
    d.AnswerMessageBox(IDYES, "already exists", &asked);
    EXPECT_NE(road.Save(d, "BMP", 1, "Zavrin PRO"), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_FALSE(asked.empty());
    EXPECT_EQ(std::string(road.path), existing);
    EXPECT_EQ(Tag(road.tags, "SHOWWARNINGS"), "OFF");
    DeleteFileA(existing.c_str());
}

TEST(SaveAccept, AVectorSourceStoresItsTypeTag)
{
    SaveRoad road;
    std::string folder = TempFolder();
    lstrcpynA(road.path, (folder + "\\drawing.cgm").c_str(), sizeof road.path);
    DialogDriver d;
    OpenSave(d).PressOk();
    EXPECT_NE(road.Save(d, "WMF", 2), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "VDESTTYPE"), "cgm");
    EXPECT_EQ(Tag(road.tags, "RDESTTYPE"), "<none>");
}

TEST(SaveAccept, ASourceOfTypeZeroStartsFromTheRasterDefaultButStoresItsOwnTag)
{
    SaveRoad road;
    ZvSetTag(road.tags, "RDESTTYPE", "PCX");
    DialogDriver d;
    ExpectName(OpenSave(d), "*.PCX");
    PickType(d, "GIF");
    ExpectName(d, "*.GIF").PressOk();
    EXPECT_NE(road.Save(d, "BMP", 0), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "EDESTTYPE"), "GIF");
    EXPECT_EQ(Tag(road.tags, "RDESTTYPE"), "PCX");
}

TEST(SaveAccept, A256CharacterPathPassesAnd257AreRefused)
{
    std::string folder = TempFolder();
    // folder + "\" + name + ".GIF"
    auto nameFor = [&](size_t total) { return std::string(total - folder.size() - 1 - 4, 'n'); };
    {
        SaveRoad road;
        lstrcpynA(road.path, (folder + "\\x.gif").c_str(), sizeof road.path);
        DialogDriver d;
        OpenSave(d);
        TypeName(d, nameFor(257) + ".GIF");
        d.PressOk().Pause(300).Do([](HWND dialog) { EXPECT_TRUE(IsWindowVisible(dialog)); }).PressCancel();
        EXPECT_EQ(road.Save(d, "BMP", 1), 0);
        EXPECT_FALSE(d.Failed());
        ASSERT_EQ(road.recorder.messageBoxes.size(), 1u);
        EXPECT_EQ(road.recorder.messageBoxes[0].text,
                  "The file name exceeds the maximum number of characters.  Please reenter.");
        EXPECT_EQ(road.recorder.messageBoxes[0].caption, "Zavrin");
        EXPECT_EQ(road.recorder.messageBoxes[0].type, static_cast<UINT>(MB_ICONHAND));
    }
    {
        SaveRoad road;
        lstrcpynA(road.path, (folder + "\\x.gif").c_str(), sizeof road.path);
        DialogDriver d;
        OpenSave(d);
        TypeName(d, nameFor(256) + ".GIF");
        d.PressOk();
        EXPECT_NE(road.Save(d, "BMP", 1), 0);
        EXPECT_FALSE(d.Failed());
        EXPECT_TRUE(road.recorder.messageBoxes.empty());
        EXPECT_EQ(strlen(road.path), 256u);
    }
}

TEST(SaveAccept, AWildcardNameGoesBackWithItsFolder)
{
    SaveRoad road;
    std::string folder = TempFolder();
    lstrcpynA(road.path, (folder + "\\x.gif").c_str(), sizeof road.path);
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "*.gif");
    d.PressOk();
    EXPECT_NE(road.Save(d, "BMP", 1), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(std::string(road.path), folder + "\\*.gif");
    EXPECT_EQ(Tag(road.tags, "RDESTTYPE"), "gif");
}

// ---- The buttons of the child template.

// Cancels the option sheet once it is up.
DialogDriver& CancelSheet(DialogDriver& d)
{
    return d.Step("cancel the option sheet", [](DialogDriver&, HWND) {
        for (HWND window : DialogDriver::ThreadWindows())
            if (DialogDriver::IsPropertySheet(window)) {
                PostMessageA(window, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
                return DialogDriver::Result{DialogDriver::Outcome::Done, {}};
            }
        return DialogDriver::Result{DialogDriver::Outcome::Retry, "no sheet is up"};
    });
}

// Waits for the option sheet and checks that its first page holds the
// control: the size edits tell the raster page from the vector page.
DialogDriver& ExpectSheetControl(DialogDriver& d, int id)
{
    return d.Step("the sheet shows control " + std::to_string(id), [id](DialogDriver&, HWND) {
        for (HWND window : DialogDriver::ThreadWindows())
            if (DialogDriver::IsPropertySheet(window)) {
                HWND control = DialogDriver::FindControl(window, id);
                if (control == nullptr || !IsWindowVisible(control))
                    return DialogDriver::Result{DialogDriver::Outcome::Retry, "the sheet has no such control"};
                return DialogDriver::Result{DialogDriver::Outcome::Done, {}};
            }
        return DialogDriver::Result{DialogDriver::Outcome::Retry, "no sheet is up"};
    });
}

constexpr int kRasterWidth = 1507, kVectorWidth = 1404;

TEST(SaveOptions, AMetafileForARasterSourceAsksForTheClassFirst)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "chart.wmf");
    d.Click(kOptions).WaitWindow("Metafile Options").ExpectChecked(5401, true).PressCancel();
    d.WaitWindow(kCaption).WaitControl(kTypeList).PressCancel();
    EXPECT_EQ(road.Save(d, "BMP", 1), 0);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "WMFRVFORCE"), "<none>");

    DialogDriver again;
    OpenSave(again);
    TypeName(again, "chart.wmf");
    // Vector only: the sheet that follows is that of a vector destination.
    again.Click(kOptions).WaitWindow("Metafile Options").Click(5402).PressOk();
    ExpectSheetControl(again, kVectorWidth);
    CancelSheet(again);
    again.WaitWindow(kCaption).WaitControl(kTypeList).PressCancel();
    road.Save(again, "BMP", 1);
    EXPECT_FALSE(again.Failed());
    EXPECT_EQ(Tag(road.tags, "WMFRVFORCE"), "V");
}

TEST(SaveOptions, AfterTheClassDialogTheSheetFollowsTheRegistrysTypeOfTheSource)
{
    // A CGM source handed in as raster asks for the class; the class dialog
    // then takes the source's type from the registry, a vector format, and
    // a metafile of both kinds from a vector source has the vector page.
    SaveRoad road;
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "chart.wmf");
    d.Click(kOptions).WaitWindow("Metafile Options").Click(5403).PressOk();
    ExpectSheetControl(d, kVectorWidth);
    CancelSheet(d).WaitWindow(kCaption).WaitControl(kTypeList).PressCancel();
    road.Save(d, "CGM", 1);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "WMFRVFORCE"), "M");
}

TEST(SaveOptions, PixCountsAsRasterWhateverTheClassChosen)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "scan.pix");
    // PIX is a metafile format: the class is asked for, and Vector only
    // would give the vector page to any other metafile.
    d.Click(kOptions).WaitWindow("Metafile Options").Click(5402).PressOk();
    ExpectSheetControl(d, kRasterWidth);
    CancelSheet(d).WaitWindow(kCaption).WaitControl(kTypeList).PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_FALSE(d.Failed());
    EXPECT_EQ(Tag(road.tags, "PIXRVFORCE"), "V");
}

TEST(SaveOptions, TheButtonOpensTheSheetOfTheNamedFormat)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d);
    TypeName(d, "photo.pcx");
    d.Click(kOptions);
    // The sheet's caption names the destination.
    d.WaitWindow("PCX Processing Options").Screenshot("save_options_sheet");
    CancelSheet(d).WaitWindow(kCaption).WaitControl(kTypeList).PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_FALSE(d.Failed());
}

TEST(SaveHelp, HelpButtonAndControlsOpenTheirTopics)
{
    SaveRoad road;
    DialogDriver d;
    OpenSave(d).SendHelp(kTargetApp).ContextMenu(kOptions).PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_FALSE(d.Failed());
    auto& calls = road.recorder.helpCalls;
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].command, static_cast<UINT>(HELP_WM_HELP));
    EXPECT_EQ(calls[0].idPairs, (std::vector<DWORD>{1036, 1041, 1037, 1028, 1052, 1067}));
    EXPECT_EQ(calls[1].command, static_cast<UINT>(HELP_CONTEXTMENU));
}

// The system dialog's Help button tells the hook with CDN_HELP; the Wine we
// run on leaves that button without an action, so the test sends the hook
// the notification that the system would send.
void NotifyHelp(HWND dialog)
{
    HWND child = GetParent(DialogDriver::FindControl(dialog, kOptions));
    OFNOTIFYA notice = {};
    notice.hdr.hwndFrom = dialog;
    notice.hdr.code = CDN_HELP;
    SendMessageA(child, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
}

TEST(SaveHelp, AfterTheOptionsButtonHelpComesFromTheLibrarysHelpFile)
{
    std::string own = TempFolder() + "\\host.hlp";
    HANDLE file = CreateFileA(own.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    SaveRoad road;
    DialogDriver d;
    OpenSave(d).Do(NotifyHelp);
    TypeName(d, "photo.pcx");
    d.Click(kOptions).WaitWindow("PCX Processing Options");
    // The sheet is entered with no help file of its own.
    CancelSheet(d).WaitWindow(kCaption).WaitControl(kTypeList).Do(NotifyHelp).PressCancel();
    d.Run([&] {
        return static_cast<INT_PTR>(DoSaveDlg(nullptr, road.tags, const_cast<char*>("Zavrin"),
                                              const_cast<char*>(own.c_str()), road.formats,
                                              const_cast<char*>("BMP"), road.path, nullptr,
                                              const_cast<char*>(kCaption), nullptr, 1));
    });
    EXPECT_FALSE(d.Failed());
    auto& calls = road.recorder.helpCalls;
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].file, own);
    EXPECT_EQ(calls[0].data, 1036u);
    EXPECT_EQ(calls[1].file, LibraryFolder() + "\\ZAVRIN.HLP");
    DeleteFileA(own.c_str());
}

TEST(SaveGuard, ASecondEntryWhileOneRunsBeeps)
{
    SaveRoad road;
    int nested = -1;
    DialogDriver d;
    OpenSave(d).Do([&](HWND) {
        char path[516] = {};
        nested = DoSaveDlg(nullptr, road.tags, nullptr, nullptr, road.formats, nullptr, path, nullptr, nullptr,
                           nullptr, 1);
    });
    d.PressCancel();
    road.Save(d, "BMP", 1);
    EXPECT_EQ(nested, 0);
    EXPECT_EQ(road.recorder.beeps, (std::vector<UINT>{0}));
}

}  // namespace
