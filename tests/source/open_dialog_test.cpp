// The open dialog as a host runs it: the system's dialog with the library's
// child, names typed and files chosen, the Options button reaching the
// source dialogs, and what the caller and the tags get back.
#include <gtest/gtest.h>

#include <string>

#include "host_dialogs.h"
#include "source_ids.h"

namespace zvtest {
namespace {

constexpr int kOpenOptions = 1036;

// An empty file of this name in the folder.
void Touch(const std::string& folder, const char* name)
{
    HANDLE file = CreateFileA((folder + "\\" + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    CloseHandle(file);
}

std::string FolderOf(HWND dialog)
{
    char folder[MAX_PATH] = {};
    SendMessageA(dialog, CDM_GETFOLDERPATH, sizeof folder, reinterpret_cast<LPARAM>(folder));
    return folder;
}

class OpenDialog : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = TempFolder() + "\\opendialog";
        CreateDirectoryA(folder.c_str(), nullptr);
        for (const char* name : {"a.pcx", "b.bmp", "pic.cut", "pic.pal"})
            Touch(folder, name);
        ZvSetTag(&tags, "OPENDIR", folder.c_str());
    }
    int Open(const char* title = nullptr, int multiple = 0, const char* appTitle = "Zavrin",
             const char* helpFile = nullptr)
    {
        return static_cast<int>(d.Run([&] {
            return DoOpenDlg(nullptr, &tags, const_cast<char*>(appTitle), const_cast<char*>(helpFile), &formats,
                             path, const_cast<char*>(title), multiple);
        }));
    }
    DialogDriver& Wait(const std::string& caption = "Open") { return d.WaitWindow(caption).WaitControl(kTypeList); }
    std::string Tag(const char* key) { return TagOf(&tags, key); }

    std::string folder;
    SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    char path[25860] = {};
    DialogDriver d;
};

TEST_F(OpenDialog, WithoutAStoredFolderItStartsInTheTutorialFolderBesideTheLibrarysFolder)
{
    std::string library = LibraryFolder();
    std::string tutorial = library.substr(0, library.rfind('\\')) + "\\tutorial";
    CreateDirectoryA(tutorial.c_str(), nullptr);
    ZvSetTag(&tags, "OPENDIR", "");
    Wait().Do([&](HWND dialog) { EXPECT_EQ(FolderOf(dialog), tutorial); }).PressCancel();
    EXPECT_EQ(Open(), 0);
    EXPECT_EQ(Tag("OPENDIR"), "<absent>");
    RemoveDirectoryA(tutorial.c_str());
}

// The typed name decides the source: a format with a dialog makes Options
// live and selects its type; a host's own title leaves only the formats'
// own dialogs.
TEST_F(OpenDialog, TheTypedExtensionSelectsItsTypeAndMakesOptionsLiveByTheDialogsOnOffer)
{
    Wait().Do([&](HWND dialog) { EXPECT_EQ(FolderOf(dialog), folder); });
    TypeName(d, "a.pcx").ExpectEnabled(kOpenOptions, true).Do([](HWND dialog) {
        EXPECT_EQ(SelectedType(dialog).rfind("PC Paintbrush", 0), 0u) << SelectedType(dialog);
    });
    TypeName(d, "notes.xyz").ExpectEnabled(kOpenOptions, false).Do([](HWND dialog) {
        EXPECT_EQ(SendDlgItemMessageA(dialog, kTypeList, CB_GETCURSEL, 0, 0), 0);
    });
    TypeName(d, "pic.cut").ExpectEnabled(kOpenOptions, true);
    TypeName(d, "noextension").ExpectEnabled(kOpenOptions, false).PressCancel();
    EXPECT_EQ(Open(), 0);

    Wait("Import");
    TypeName(d, "a.pcx").ExpectEnabled(kOpenOptions, false);
    TypeName(d, "drawing.cgm").ExpectEnabled(kOpenOptions, true).PressCancel();
    EXPECT_EQ(Open("Import"), 0);
}

TEST_F(OpenDialog, OptionsRunsTheFormatsSourceDialogWhoseTagsOutliveACancel)
{
    Wait();
    TypeName(d, "a.pcx").Screenshot("open_dialog").Click(kOpenOptions);
    d.WaitWindow("PCX Source Options").Click(IDC_SRC_SCALE_WIDTH).PressOk();
    Wait().PressCancel();
    EXPECT_EQ(Open(), 0);
    EXPECT_EQ(Tag("PCXMAXWIDTH"), "ON");
    EXPECT_EQ(Tag("PCXSCALE"), "OFF");
    EXPECT_EQ(path[0], '\0');
}

TEST_F(OpenDialog, ACutPictureAsksForItsPaletteAndOffersTheOneOfTheSameName)
{
    Wait();
    TypeName(d, "pic.cut").Click(kOpenOptions);
    // The system's classic dialog names itself; the source comes first.
    d.WaitWindow("CUT Open File").ExpectText(1152, "pic.pal").ExpectChecked(IDC_SRC_SCALE_WINDOW, true);
    d.Screenshot("source_cut").PressOk();
    Wait().PressCancel();
    EXPECT_EQ(Open(), 0);
    EXPECT_EQ(Tag("CUTIPAL"), folder + "\\pic.pal");
    EXPECT_EQ(Tag("CUTPATH"), folder + "\\");
}

TEST_F(OpenDialog, OneChosenFileGivesItsPathAndTheFolderIsKeptForNextTime)
{
    ZvSetTag(&tags, "SHOWWARNINGS", "on");
    Wait().ExpectChecked(kWarnings, true).Click(kWarnings);
    TypeName(d, "b.bmp").PressOk();
    EXPECT_NE(Open(nullptr, 0, "Zavrin PRO"), 0);
    EXPECT_EQ(std::string(path), folder + "\\b.bmp");
    EXPECT_EQ(Tag("OPENDIR"), folder + "\\");
    EXPECT_EQ(Tag("SHOWWARNINGS"), "OFF");
}

TEST_F(OpenDialog, SeveralChosenFilesComeBackAsTheSystemsRawList)
{
    Wait().Do([](HWND dialog) { EXPECT_EQ(DialogDriver::FindControl(dialog, kWarnings), nullptr); });
    TypeName(d, "\"a.pcx\" \"b.bmp\"").PressOk();
    EXPECT_NE(Open(nullptr, 1), 0);
    std::string list(path, folder.size() + 1 + 6 + 6 + 1);
    EXPECT_EQ(list, folder + '\0' + "a.pcx" + '\0' + "b.bmp" + '\0' + '\0');
    EXPECT_EQ(Tag("OPENDIR"), folder + "\\");

    // One file in multiple mode: its full path with two closing NULs.
    Wait();
    TypeName(d, "b.bmp").PressOk();
    EXPECT_NE(Open(nullptr, 1), 0);
    std::string one = folder + "\\b.bmp";
    EXPECT_EQ(std::string(path, one.size() + 2), one + '\0' + '\0');
}

}  // namespace
}  // namespace zvtest
