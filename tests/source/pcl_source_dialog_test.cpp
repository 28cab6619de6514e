// The PCL font list as a host runs it: fonts added through the real classic
// file dialog by typing a path, deleted, and what reaches the caller's tags
// at OK and at Cancel.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host_dialogs.h"
#include "source_ids.h"

namespace zvtest {
namespace {

// The system's classic dialog names itself when no title is given.
constexpr char kFontDialog[] = "Open File";
constexpr int kFontName = 1152;
constexpr int kFontTypes = 1136;

class PclSourceDialog : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = TempFolder() + "\\pclfonts";
        CreateDirectoryA(folder.c_str(), nullptr);
        for (const char* name : {"a.sfp", "b.sfp"}) {
            HANDLE file = CreateFileA((folder + "\\" + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0,
                                      nullptr);
            CloseHandle(file);
        }
    }
    int Run()
    {
        DLGPROC proc = nullptr;
        unsigned short id = GetSrcDlgId("PCL", &proc, 2, 1);
        EXPECT_EQ(id, IDD_PCL_SOURCE);
        EXPECT_NE(proc, nullptr);
        return static_cast<int>(d.Run([&] {
            return DoSrcOptionsDlg(nullptr, proc, id, &tags, "Zavrin", nullptr, &formats, "PCL", nullptr, 0, 2,
                                   nullptr);
        }));
    }
    // Add, then the font's path typed into the font dialog.
    DialogDriver& AddFont(const std::string& name)
    {
        d.WaitWindow("PCL Source Options").Click(IDC_PCL_ADD);
        return d.WaitWindow(kFontDialog).Type(kFontName, folder + "\\" + name).PressOk();
    }
    void ExpectListed(std::vector<std::string> paths)
    {
        d.WaitWindow("PCL Source Options").Do([paths](HWND dialog) {
            HWND list = GetDlgItem(dialog, IDC_PCL_FONTS);
            ASSERT_EQ(SendMessageA(list, LB_GETCOUNT, 0, 0), static_cast<LRESULT>(paths.size()));
            for (std::size_t i = 0; i < paths.size(); ++i) {
                char text[600] = {};
                SendMessageA(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
                EXPECT_EQ(text, paths[i]);
            }
        });
    }
    std::string Tag(const std::string& key) { return TagOf(&tags, key.c_str()); }

    std::string folder;
    SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    DialogDriver d;
};

TEST_F(PclSourceDialog, AddAndDeleteThenCancelLeaveTheCallersTagsAndChildAsTheyWere)
{
    const std::string kept = folder + "\\b.sfp";
    ZvSetTag(&tags, ("PCLLF" + kept).c_str(), "1");
    TagSet hostChild;
    tags.SetChild(&hostChild);

    AddFont("a.sfp");
    ExpectListed({folder + "\\a.sfp", kept});
    // The last entry deleted: the one before it is selected.
    d.PickList(IDC_PCL_FONTS, kept).Click(IDC_PCL_DELETE).Do([](HWND dialog) {
        EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_PCL_FONTS, LB_GETCURSEL, 0, 0), 0);
    });
    d.Click(IDC_PCL_DELETE).ExpectEnabled(IDC_PCL_DELETE, false).PressCancel();
    EXPECT_EQ(Run(), 0);

    EXPECT_EQ(tags.GetLastChild(), &hostChild);
    tags.SetChild(nullptr);
    EXPECT_EQ(Tag("PCLLF" + kept), "1");
    EXPECT_EQ(Tag("PCLLF" + folder + "\\a.sfp"), "<absent>");
    EXPECT_EQ(Tag("PCLFPATH"), "<absent>");
    EXPECT_EQ(Tag("PCLIEXT"), "<absent>");
}

TEST_F(PclSourceDialog, AFontAddedTwiceIsListedOnceAndOkFusesTheFontsIntoTheCallersTags)
{
    const std::string font = folder + "\\a.sfp";
    ZvSetTag(&tags, "OPENDIR", folder.c_str());
    AddFont("a.sfp");
    // The second time the last font's extension is offered first.
    d.WaitWindow("PCL Source Options").Click(IDC_PCL_ADD).WaitWindow(kFontDialog).Do([](HWND dialog) {
        char first[100] = {};
        SendDlgItemMessageA(dialog, kFontTypes, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(first));
        EXPECT_STREQ(first, "Font files (*.SFP)");
    });
    d.Screenshot("source_pcl_fonts").Type(kFontName, font).PressOk();
    ExpectListed({font});
    d.ExpectEnabled(IDC_PCL_DELETE, true).Click(IDC_PCL_TRIM).Screenshot("source_pcl").PressOk();
    EXPECT_EQ(Run(), 1);

    EXPECT_EQ(tags.GetLastChild(), nullptr);
    EXPECT_EQ(Tag("PCLLF" + font), "1");
    EXPECT_EQ(Tag("PCLFPATH"), folder + "\\");
    EXPECT_EQ(Tag("PCLIEXT"), "sfp");
    EXPECT_EQ(Tag("PCLMINMAX"), "ON");
}

}  // namespace
}  // namespace zvtest
