// What the tests of the save road share: a host's tags and format registry,
// the library's folder, and the name box of the system's save dialog.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include <string>

#include "dialog_driver.h"
#include "okaio32.h"
#include "okamod32.h"
#include "seam_recorder.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace savetest {

constexpr int kTypeList = 1136;
constexpr int kOptions = 1036;
constexpr int kTargetApp = 1037;
constexpr int kWarnings = 1052;

std::string LibraryFolder();
std::string TempFolder();  // without the closing "\"
// The edit that holds the file name: edt1, or the edit inside cmb13.
HWND NameBox(HWND saveDialog);
std::string SelectedType(HWND saveDialog);  // the entry's text
int TypeIndexOf(HWND saveDialog, const std::string& ext);
std::string Tag(TagSet* tags, const char* key);  // "<none>" when absent

class SaveRoad {
public:
    SaveRoad();
    ~SaveRoad();
    // DoSaveDlg with the host's tags and registry; path is in and out.
    int Save(zvtest::DialogDriver& d, const char* srcExt, short srcType, const char* appTitle = "Zavrin",
             const char* title = "Save Image", char* customList = nullptr);
    // A save dialog that is cancelled at once: the library then holds these
    // tags, this registry and this source for the dialogs run directly.
    // With accept, the default wildcard name is accepted instead, which also
    // sets the destination.
    void Prime(const char* srcExt, short srcType, bool accept = false);

    TagSet* tags;
    OKAMOD* formats;
    char path[516] = {};
    zvtest::SeamRecorder recorder;
};

// A step that types a name into the name box the way an edit sees typing.
zvtest::DialogDriver& TypeName(zvtest::DialogDriver& d, const std::string& name);
// Picks the type entry of the extension as the list tells the dialog.
zvtest::DialogDriver& PickType(zvtest::DialogDriver& d, const std::string& ext);
zvtest::DialogDriver& ExpectName(zvtest::DialogDriver& d, const std::string& name);

}  // namespace savetest
