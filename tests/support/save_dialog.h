// The save dialog as a host runs it: the host's tags and format registry,
// the library's folder, and the name box and type list of the system's
// dialog. A test of the save road queues steps on `d`, then calls Save():
//
//   Open();
//   TypeName(d, "scan.xyz");
//   PickType(d, "GIF");
//   d.PressOk();
//   EXPECT_NE(Save(), 0);
//   EXPECT_EQ(Tag("RDESTTYPE"), "GIF");
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

namespace zvtest {

constexpr int kTypeList = 1136;
constexpr int kOptions = 1036;
constexpr int kTargetApp = 1037;
constexpr int kWarnings = 1052;

std::string LibraryFolder();  // without the closing "\"
std::string TempFolder();     // without the closing "\"
// The edit that holds the file name: edt1, or the edit inside cmb13.
HWND NameBox(HWND saveDialog);
std::string SelectedType(HWND saveDialog);  // the entry's text
int TypeIndexOf(HWND saveDialog, const std::string& ext);

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
    std::string Tag(const char* key);  // "<absent>" when absent

    SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    char path[516] = {};
    DialogDriver d;
};

}  // namespace zvtest
