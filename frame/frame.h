// The dialog frame inside the library: the option context's life in a
// dialog, the common road of every option sheet, and the procedures behind
// the source dialog numbers.
#pragma once

#include <windows.h>

#include "bounded_text.h"
#include "frame_tables.h"
#include "zvopt32.h"

struct OptionContext;
class Dewey;
class TagSet;
class OKAMOD;
class CPropertySheet;
class CPropertyPage;

// The help file, the host's window and the operation of the dialog in hand,
// read from the option context. Before the first dialog the help file is
// A switch tag: on only for "ON", in any case; an absent tag is off.
bool TagIsOn(TagSet* tags, const char* key);
// "ZAVRIN.HLP" beside the library.
const char* CurrentHelpFile();
HWND CurrentParentWindow();
short CurrentOperation();

// The dialog procedure of a source dialog, or null when it has none.
DLGPROC SourceDialogProcedure(zv::SourceDialogProc which);

// ---- The option context in a dialog.

// The one record of the process (null only before the library has loaded).
OptionContext* CurrentOptionContext();

// Fills the record for a dialog entry from its arguments and the tags. A
// null parent, tags, formats or appTitle keeps what the last dialog left.
void InitOptionContext(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                                        OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                                        short srcType, Dewey* image, int wantPreview);
// The source and the destination of the dialog; the file dialogs call them
// again with what the user chose.
void SetSource(const char* srcExt, short srcType);
void SetDestination(const char* destExt);
// A switch tag: on only for "ON", in any case; an absent tag is off.
bool TagIsOn(TagSet* tags, const char* key);
// "ZAVRIN.HLP" beside the library, or "?" when the library's path can't be
// had: the help file of a dialog that was given none it can read.
void DefaultHelpFile(char (&path)[zv::kPathSize]);
// The format type the user chose for a metafile destination, from the tag
// destKey + "RVFORCE" of the context: 1 raster, 2 vector, 3 both; 0 when
// there is no choice.
short ChosenMetafileClass();
// Sets destKey for the operation and writes the key prefix (internal source
// extension + destKey) into out, at least 64 bytes.
void MakeKeyPrefix(char* out);
// The two thumbnails of source, fitted into maxWidth by maxHeight.
short MakePreviews(Dewey* source, int maxWidth, int maxHeight);
void FreePreviews();

// ---- Option sheets.

// The arguments that every sheet entry hands to the context, and the
// entry's name for the diagnostics.
struct SheetArgs {
    const char* entry;
    HWND parent;
    TagSet* tags;
    const char* appTitle;
    const char* helpFile;
    OKAMOD* formats;
    const char* srcExt;
    const char* destExt;
    short operation;
    short srcType;
    Dewey* image;
};

// Builds the pages of a sheet on its own stack, adds them and runs the
// sheet with RunOptionSheet; gives what the entry returns. The pages are
// constructed only here, after the guard was taken, since some of their
// destructors free the previews of the dialog in hand.
using SheetBody = int (*)(CPropertySheet& sheet, void* data);

// The road of every sheet entry: the guard, the context, the caption
// (string captionId), then body; the guard is given back on every way out.
// Gives 0 at once when another dialog runs.
int RunSheetEntry(const SheetArgs& args, int wantPreview, UINT captionId, SheetBody body,
                                   void* data);

// Puts a page's template into this library; before AddPage.
void UseLibraryTemplate(CPropertyPage& page);

// Runs a sheet whose pages are added. With childSet the pages work on a
// child of the host's tags (hung below its deepest child), merged on OK and
// dropped in any case. Gives DoModal's result: 1 OK, 2 Cancel, -1 when the
// sheet could not be shown (no pages).
int RunOptionSheet(CPropertySheet& sheet, bool childSet);

// Takes the Apply Now button off the sheet of page and moves OK and Cancel
// into its place; every page calls it at the end of its WM_INITDIALOG.
void HideApplyButton(HWND page);

// The common runner of the dialogs that are no sheet: guard, the dialog
// template dlgId of this library, guard given back; the dialog's result, or
// 0 when another dialog runs.
INT_PTR RunCommonDialog(unsigned short dlgId, HWND parent, DLGPROC proc);
