// File dialogs and the dialogs they open: the save dialog, the target
// application tables and the metafile class choice.
#pragma once

#include <windows.h>

#include "bounded_text.h"
#include "core_win.h"
#include "frame.h"
#include "zvopt32.h"

// Runs one of the library's dialog templates modally under the guard:
// refused (0) while another dialog runs.
INT_PTR RunGuardedDialog(HWND parent, int templateId, DLGPROC proc);

// --- Target application.
// Fills list 2400 with the names of the table for the source type; 1 when
// the table ended regularly, 0 when a string was missing.
int LoadTargetAppList(HWND dialog, short type);
// Writes the tags of the named row into the context's tags; 1 when found.
int ApplyTargetApp(const char* name, short type);
// A built-in TIFF flavour is defined by the default value of its key below
// kTiffFlavorsKey under the classes root, at most 128 bytes. Gives false when
// there is no such text; definition is always terminated.
constexpr char kTiffFlavorsKey[] = "Zavrin.Image\\Formats\\TIF\\Flavors\\";
constexpr unsigned kTiffFlavorDefinitionSize = 128;
bool ReadTiffFlavorDefinition(const char* flavor, char (&definition)[kTiffFlavorDefinitionSize + 1]);
// The name of a custom TIFF flavour, shown and edited by TiffAppDlgProc.
char* TiffCustomFlavorName();  // 256 bytes

// --- Metafile class.
int DoMetafileClassDlg(HWND parent, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats, char* srcExt,
                       char* destExt, short operation);

// --- Save dialog.
// DoSaveDlg and OkaSaveDlg: the library's header.

// The parts of the save dialog shared by its hook and its frame procedure.
UINT_PTR CALLBACK SaveDlgHookProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK SaveDlgFrameProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Values of the running save dialog.
extern int saveFixupBusy;        // 1 while a change of type or name is carried through
extern DLGPROC saveOldDlgProc;   // the system dialog's own procedure
extern HWND saveHookDlg;         // the child dialog with the library's buttons

// Path pieces of the save road: the sizes its working strings keep (the
// splitter fills each part up to MAX_PATH).
struct PathParts {
    char dir[zv::kPathSize];
    char name[zv::kPathSize];
    char ext[zv::kPathSize];
};
void SplitPath(const char* path, PathParts& parts);
// The directory, a "\" unless it is empty or already ends in "\" or ":",
// the name, ".", the extension.
void ComposePath(const PathParts& parts, char* out, size_t size);
