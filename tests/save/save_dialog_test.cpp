// The save dialog as a user meets it: the real system dialog with the
// library's child template, driven from inside its own modal loop.
#include <gtest/gtest.h>

#include <string>

#include "host_dialogs.h"

#include <commctrl.h>

namespace zvtest {
namespace {

using SaveStart = SaveDialogTest;
using SaveType = SaveDialogTest;
using SaveAccept = SaveDialogTest;
using SaveHelp = SaveDialogTest;

// ---- Where the dialog starts.

TEST_F(SaveStart, NoSourceKeysAsBitmapInTheLibrarysFolder)
{
    Open().Do([](HWND dialog) {
        EXPECT_EQ(SelectedType(dialog).find("Windows Bitmap"), 0u) << SelectedType(dialog);
        EXPECT_GE(TypeIndexOf(dialog, "WMF"), 0);  // every destination is offered
        EXPECT_EQ(DialogDriver::FindControl(dialog, kWarnings), nullptr);  // not "Zavrin PRO"
    });
    d.PressCancel();
    EXPECT_EQ(Save(nullptr, 1), 0);
    EXPECT_EQ(std::string(path), LibraryFolder() + "\\*.BMP");
    EXPECT_EQ(Tag("OWNOTIFY"), "ON");
    EXPECT_EQ(Tag("SAVEDIR"), "<absent>");  // cancel stores nothing
}

TEST_F(SaveStart, CapturesAndScansOfferRasterFormatsKeyedAsBitmaps)
{
    ZvSetTag(&tags, "BMP~~~CPROC", "SNAP");  // a conversion tag of the bitmap source
    for (const char* capture : {"CAP", "twn"}) {
        Open().Do([](HWND dialog) {
            EXPECT_GE(TypeIndexOf(dialog, "GIF"), 0);
            EXPECT_LT(TypeIndexOf(dialog, "WMF"), 0);
            EXPECT_LT(TypeIndexOf(dialog, "CGM"), 0);
        });
        d.PressCancel();
        path[0] = '\0';
        Save(capture, 1);
        EXPECT_EQ(std::string(path), LibraryFolder() + "\\*.BMP") << capture;
        EXPECT_EQ(Tag("BMPBMPCPROC"), "SNAP") << capture;
    }
}

TEST_F(SaveStart, ACallersFullPathOpensAsGiven)
{
    ZvSetTag(&tags, "SAVEDIR", "C:\\nowhere");
    ZvSetTag(&tags, "RDESTTYPE", "PCX");
    SetPath(TempFolder() + "\\holiday.gif");
    Open().Do([](HWND dialog) {
        char folder[MAX_PATH] = {};
        SendMessageA(dialog, CDM_GETFOLDERPATH, sizeof folder, reinterpret_cast<LPARAM>(folder));
        EXPECT_EQ(lstrcmpiA(folder, TempFolder().c_str()), 0) << folder;
        EXPECT_EQ(SelectedType(dialog).find("CompuServe GIF"), 0u) << SelectedType(dialog);
    });
    d.PressCancel();
    Save();
    EXPECT_EQ(std::string(path), TempFolder() + "\\holiday.gif");
}

TEST_F(SaveStart, AVectorSourceGetsAMetafileNameAndAnUnknownTypeNoExtension)
{
    Open().Do([](HWND dialog) { EXPECT_EQ(SelectedType(dialog).find("Windows Metafile"), 0u); });
    d.PressCancel();
    Save("CGM", 2);
    EXPECT_EQ(std::string(path), LibraryFolder() + "\\*.WMF");

    // No entry matches type 7: the first one stays selected.
    Open().Do([](HWND dialog) { EXPECT_EQ(SendDlgItemMessageA(dialog, kTypeList, CB_GETCURSEL, 0, 0), 0); });
    d.PressCancel();
    path[0] = '\0';
    Save("BMP", 7);
    EXPECT_EQ(std::string(path), LibraryFolder() + "\\*.");
}

TEST_F(SaveStart, BrowseShowsThePlainDialogAndProKeepsTheWarningsBox)
{
    Open("bRoWsE").Do([](HWND dialog) {
        for (int id : {kOptions, kTargetApp, kWarnings})
            EXPECT_EQ(DialogDriver::FindControl(dialog, id), nullptr) << id;
    });
    d.PressCancel();
    Save("BMP", 1, "Zavrin PRO", "bRoWsE");

    ZvSetTag(&tags, "SHOWWARNINGS", "on");
    Open().ExpectChecked(kWarnings, true).ExpectEnabled(kOptions, true).Screenshot("save_dialog").PressCancel();
    Save("BMP", 1, "zavrin pro");
}

TEST_F(SaveStart, ACustomListOffersItsFormatsOnly)
{
    char custom[] = "gif;*.pcx";
    Open().Do([](HWND dialog) {
        EXPECT_EQ(TypeIndexOf(dialog, "GIF"), 0);
        EXPECT_EQ(TypeIndexOf(dialog, "PCX"), 1);
        EXPECT_LT(TypeIndexOf(dialog, "WMF"), 0);
        EXPECT_EQ(SendDlgItemMessageA(dialog, kTypeList, CB_GETCURSEL, 0, 0), 0);  // BMP isn't offered
    });
    d.PressCancel();
    Save("BMP", 1, "Zavrin", "Save Image", custom);
}

TEST(OkaSaveDlg, AHostWithoutTagsOrRegistrySavesAsItsPathSays)
{
    // The extension of the path is the source, and the accepted path comes back.
    SeamRecorder seams;
    std::string given = TempFolder() + "\\scan.pcx";
    char path[516];
    lstrcpynA(path, given.c_str(), sizeof path);
    DialogDriver d;
    d.WaitWindow("Save Image").WaitControl(kTypeList).Do([](HWND dialog) {
        EXPECT_EQ(DialogDriver::TextOf(NameBox(dialog)), "scan.pcx");
        EXPECT_EQ(SelectedType(dialog).find("PC Paintbrush"), 0u) << SelectedType(dialog);
    });
    d.PressOk();
    char name[] = "Zavrin", title[] = "Save Image";
    EXPECT_NE(d.Run([&] { return OkaSaveDlg(nullptr, name, nullptr, path, title); }), 0);
    EXPECT_EQ(std::string(path), given);
}

// ---- Changing the type and the name.

TEST_F(SaveType, ANameGainsTheTypesExtensionAndAnEmptyBoxChangesNothing)
{
    ZvSetTag(&tags, "GIFW", "7");
    Open();
    TypeName(d, "photo");
    PickType(d, "PCX");
    // The list gives the extension as its pattern spells it.
    ExpectName(d, "photo.PCX");
    TypeName(d, "");
    PickType(d, "GIF");
    ExpectName(d, "").ExpectEnabled(kOptions, true).PressCancel();
    Save();
    EXPECT_EQ(Tag("GIFW"), "7");
}

TEST_F(SaveType, TagsMoveOnlyBackToTheDestinationLastTranslated)
{
    ZvSetTag(&tags, "~~~W", "5");
    ZvSetTag(&tags, "GIFW", "7");
    Open().Do([this](HWND) { EXPECT_EQ(Tag("BMPW"), "5"); });  // from the neutral key
    PickType(d, "GIF").Do([this](HWND dialog) {
        EXPECT_EQ(DialogDriver::TextOf(NameBox(dialog)), "*.GIF");
        EXPECT_EQ(Tag("GIFW"), "7");  // GIF was never translated to: left alone
        EXPECT_EQ(Tag("BMPW"), "5");
    });
    PickType(d, "BMP").PressCancel();
    Save(nullptr, 1);
    // Back at BMP: GIF's tags go to it, and it keeps what it had.
    EXPECT_EQ(Tag("GIFW"), "<absent>");
    EXPECT_EQ(Tag("BMPW"), "5");
}

TEST_F(SaveType, ATypedExtensionSelectsItsEntry)
{
    Open();
    TypeName(d, "scan.pcx");
    d.Do([](HWND dialog) { EXPECT_EQ(SelectedType(dialog).find("PC Paintbrush"), 0u) << SelectedType(dialog); });
    d.ExpectEnabled(kOptions, true).PressCancel();
    Save();
}

// ---- Accepting a name.

TEST_F(SaveAccept, ANameWhoseExtensionIsNoFormatKeepsItAndGainsTheTypes)
{
    SetPath(TempFolder() + "\\x.gif");
    Open();
    TypeName(d, "NOTES.XYZ");
    d.PressOk();
    EXPECT_NE(Save(), 0);
    EXPECT_EQ(std::string(path), TempFolder() + "\\NOTES.XYZ.GIF");
    EXPECT_EQ(Tag("SAVEDIR"), TempFolder() + "\\");
    EXPECT_EQ(Tag("RDESTTYPE"), "GIF");
    EXPECT_EQ(Tag("EDESTTYPE"), "<absent>");
}

TEST_F(SaveAccept, AnExistingFileIsAskedAboutAndTheWarningsBoxIsStoredAtOk)
{
    std::string existing = TempFolder() + "\\kept.gif";
    CloseHandle(CreateFileA(existing.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ZvSetTag(&tags, "SHOWWARNINGS", "ON");
    SetPath(existing);
    // "OWNOTIFY" is "ON" from the start: the system asks before replacing.
    std::string asked;
    Open().SetCheck(kWarnings, false).PressOk().AnswerMessageBox(IDYES, "already exists", &asked);
    EXPECT_NE(Save("BMP", 1, "Zavrin PRO"), 0);
    EXPECT_FALSE(asked.empty());
    EXPECT_EQ(std::string(path), existing);
    EXPECT_EQ(Tag("SHOWWARNINGS"), "OFF");
    DeleteFileA(existing.c_str());
}

TEST_F(SaveAccept, EachKindOfSourceStoresTheTypeInATagOfItsOwn)
{
    SetPath(TempFolder() + "\\drawing.cgm");
    Open().PressOk();
    EXPECT_NE(Save("WMF", 2), 0);
    EXPECT_EQ(Tag("VDESTTYPE"), "cgm");
    EXPECT_EQ(Tag("RDESTTYPE"), "<absent>");

    // Type 0 starts from the raster default but stores a tag of its own.
    ZvSetTag(&tags, "RDESTTYPE", "PCX");
    path[0] = '\0';
    ExpectName(Open(), "*.PCX");
    PickType(d, "GIF");
    ExpectName(d, "*.GIF").PressOk();
    EXPECT_NE(Save("BMP", 0), 0);
    EXPECT_EQ(Tag("EDESTTYPE"), "GIF");
    EXPECT_EQ(Tag("RDESTTYPE"), "PCX");
}

TEST_F(SaveAccept, A256CharacterPathPassesAnd257AreRefused)
{
    // folder + "\" + name + ".GIF"
    auto nameFor = [](size_t total) { return std::string(total - TempFolder().size() - 1 - 4, 'n') + ".GIF"; };
    SetPath(TempFolder() + "\\x.gif");
    Open();
    TypeName(d, nameFor(257));
    d.PressOk().WaitUntil("the refusal", [this] { return !seams.messageBoxes.empty(); });
    d.WaitHandled().Do([](HWND dialog) { EXPECT_TRUE(IsWindowVisible(dialog)); });
    TypeName(d, nameFor(256));
    d.PressOk();
    EXPECT_NE(Save(), 0);
    ASSERT_EQ(seams.messageBoxes.size(), 1u);
    EXPECT_EQ(seams.messageBoxes[0].text, "The file name exceeds the maximum number of characters.  Please reenter.");
    EXPECT_EQ(seams.messageBoxes[0].caption, "Zavrin");
    EXPECT_EQ(seams.messageBoxes[0].type, static_cast<UINT>(MB_ICONHAND));
    EXPECT_EQ(strlen(path), 256u);
}

TEST_F(SaveAccept, AWildcardNameGoesBackWithItsFolder)
{
    SetPath(TempFolder() + "\\x.gif");
    Open();
    TypeName(d, "*.gif");
    d.PressOk();
    EXPECT_NE(Save(), 0);
    EXPECT_EQ(std::string(path), TempFolder() + "\\*.gif");
    EXPECT_EQ(Tag("RDESTTYPE"), "gif");
}

// ---- The buttons of the child template.

constexpr int kRasterWidth = 1507, kVectorWidth = 1404;

class SaveOptions : public SaveDialogTest {
protected:
    // Names a metafile, answers the class dialog that Options opens with
    // `choice`, and cancels the sheet that follows once it shows control
    // `id`: the size edits tell the raster page from the vector page.
    void ChooseClass(const char* name, int choice, int id)
    {
        Open();
        TypeName(d, name);
        d.Click(kOptions).WaitWindow("Metafile Options").Click(choice).PressOk();
        d.WaitControl(id).PressCancel();
        Open().PressCancel();
    }
};

TEST_F(SaveOptions, AMetafileForARasterSourceAsksForTheClassFirst)
{
    Open();
    TypeName(d, "chart.wmf");
    d.Click(kOptions).WaitWindow("Metafile Options").ExpectChecked(5401, true).PressCancel();
    Open().PressCancel();
    EXPECT_EQ(Save(), 0);
    EXPECT_EQ(Tag("WMFRVFORCE"), "<absent>");

    // Vector only: the sheet that follows is that of a vector destination.
    ChooseClass("chart.wmf", 5402, kVectorWidth);
    Save();
    EXPECT_EQ(Tag("WMFRVFORCE"), "V");
}

TEST_F(SaveOptions, AfterTheClassDialogTheSheetFollowsTheRegistrysTypeOfTheSource)
{
    // A CGM source handed in as raster asks for the class; the class dialog
    // then takes the source's type from the registry, a vector format, and
    // a metafile of both kinds from a vector source has the vector page.
    ChooseClass("chart.wmf", 5403, kVectorWidth);
    Save("CGM", 1);
    EXPECT_EQ(Tag("WMFRVFORCE"), "M");
}

TEST_F(SaveOptions, PixCountsAsRasterWhateverTheClassChosen)
{
    // PIX is a metafile format: the class is asked for, and Vector only
    // would give the vector page to any other metafile.
    ChooseClass("scan.pix", 5402, kRasterWidth);
    Save();
    EXPECT_EQ(Tag("PIXRVFORCE"), "V");
}

TEST_F(SaveHelp, HelpButtonAndControlsOpenTheirTopics)
{
    Open().SendHelp(kTargetApp).ContextMenu(kOptions).PressCancel();
    Save();
    auto& calls = seams.helpCalls;
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
    OFNOTIFYA notice = {};
    notice.hdr.hwndFrom = dialog;
    notice.hdr.code = CDN_HELP;
    SendMessageA(GetParent(DialogDriver::FindControl(dialog, kOptions)), WM_NOTIFY, 0,
                 reinterpret_cast<LPARAM>(&notice));
}

TEST_F(SaveHelp, TheOptionsButtonOpensTheNamedFormatsSheetAndHelpThenComesFromTheLibrarysFile)
{
    std::string own = TempFolder() + "\\host.hlp";
    CloseHandle(CreateFileA(own.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    Open().Do(NotifyHelp);
    TypeName(d, "photo.pcx");
    // The sheet's caption names the destination; it is entered with no
    // help file of its own.
    d.Click(kOptions).WaitWindow("PCX Processing Options").WaitControl(kRasterWidth);
    d.Screenshot("save_options_sheet").PressCancel();
    Open().Do(NotifyHelp).PressCancel();
    Save("BMP", 1, "Zavrin", "Save Image", nullptr, own.c_str());
    auto& calls = seams.helpCalls;
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].file, own);
    EXPECT_EQ(calls[0].data, 1036u);
    EXPECT_EQ(calls[1].file, LibraryFolder() + "\\ZAVRIN.HLP");
    DeleteFileA(own.c_str());
}

TEST_F(SaveDialogTest, ASecondEntryWhileOneRunsBeeps)
{
    int nested = -1;
    Open().Do([&](HWND) {
        char other[516] = {};
        nested = DoSaveDlg(nullptr, &tags, nullptr, nullptr, &formats, nullptr, other, nullptr, nullptr, nullptr, 1);
    });
    d.PressCancel();
    Save();
    EXPECT_EQ(nested, 0);
    EXPECT_EQ(seams.beeps, (std::vector<UINT>{0}));
}

}  // namespace
}  // namespace zvtest
