// The library's dialogs as a host runs them, with the host's tags and
// format registry and the library's seams recorded: the save dialog, with
// the name box and type list of the system's dialog, and a destination's
// option sheet. A test queues steps on `d`, then runs the dialog:
//
//   Open();                                 // the save dialog
//   TypeName(d, "scan.xyz");
//   PickType(d, "GIF");
//   d.PressOk();
//   EXPECT_NE(Save(), 0);
//   EXPECT_EQ(Tag("RDESTTYPE"), "GIF");
//
//   Set("BMPHR", "846");                    // a destination's sheet
//   d.WaitControl(IDC_OUT_WIDTH).PressOk();
//   EXPECT_EQ(Run(IDD_RASTER_OUT, "BMP"), 1);
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <gtest/gtest.h>

#include <string>

#include "dialog_driver.h"
#include "okaio32.h"
#include "okamod32.h"
#include "seam_recorder.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace zvtest {

constexpr int kTypeList = 1136;
constexpr int kOptions = 1036;
constexpr int kTargetApp = 1037;
constexpr int kWarnings = 1052;

// A tag's value, "<absent>" when there is none.
inline std::string TagOf(TagSet* tags, const char* key)
{
    const char* value = ZvGetTag(tags, key);
    return value ? value : "<absent>";
}

std::string LibraryFolder();  // without the closing "\"
std::string TempFolder();     // without the closing "\"
// The edit that holds the file name: edt1, or the edit inside cmb13.
HWND NameBox(HWND saveDialog);
std::string SelectedType(HWND saveDialog);  // the entry's text
inline int TypeIndexOf(HWND dialog, const std::string& ext) { return GetFormatIndex(dialog, kTypeList, ext.c_str()); }

// Types a name into the name box the way the box's edit sees typing.
DialogDriver& TypeName(DialogDriver& d, const std::string& name);
// Picks the type entry of the extension as the list tells the dialog.
DialogDriver& PickType(DialogDriver& d, const std::string& ext);
DialogDriver& ExpectName(DialogDriver& d, const std::string& name);

class SaveDialogTest : public ::testing::Test {
protected:
    // Waits for the dialog with its type list filled.
    DialogDriver& Open(const std::string& caption = "Save Image");
    // DoSaveDlg with the host's tags and registry; `path` goes in and out.
    int Save(const char* srcExt = "BMP", short srcType = 1, const char* appTitle = "Zavrin",
             const char* title = "Save Image", char* customList = nullptr, const char* helpFile = nullptr);
    // A save dialog cancelled at once (or, with accept, its wildcard name
    // accepted): the library then holds these tags, this registry and this
    // source for the dialogs that a test runs directly.
    void Prime(const char* srcExt, short srcType, bool accept = false);
    void SetPath(const std::string& text) { lstrcpynA(path, text.c_str(), sizeof path); }
    std::string Tag(const char* key) { return TagOf(&tags, key); }

    SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    char path[516] = {};
    DialogDriver d;
};

class DestSheetTest : public ::testing::Test {
protected:
    // DoDestOptionsDlg on the output page dlgId, for an operation (2: a
    // save) from a source to a destination.
    int Run(unsigned short dlgId, const char* destExt, short operation = 2, Dewey* image = nullptr,
            const char* srcExt = "BMP", short srcType = 1)
    {
        return static_cast<int>(d.Run([&] {
            return static_cast<INT_PTR>(DoDestOptionsDlg(nullptr, dlgId, &tags, "Zavrin", nullptr, &formats, srcExt,
                                                         destExt, operation, srcType, image));
        }));
    }
    void Set(const char* key, const char* value) { ZvSetTag(&tags, key, value); }
    std::string Tag(const char* key) { return TagOf(&tags, key); }

    SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    DialogDriver d;
};

}  // namespace zvtest
