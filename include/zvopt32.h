// ZVOPT32: the options library of the Zavrin graphics suite.
// This is the header a host includes to call the library.
#pragma once

#include <windows.h>

#ifdef ZVOPT32_BUILD
#define ZVOPT32_API __declspec(dllexport)
#else
#define ZVOPT32_API __declspec(dllimport)
#endif

// The three platform calls whose real versions leave the process or block
// where no caller can answer them. A host (or a test) may replace them; any
// null member, or a null table, means the platform's own call.
struct ZvPlatformSeams {
    BOOL(WINAPI* winHelp)(HWND window, LPCSTR helpFile, UINT command, ULONG_PTR data);
    BOOL(WINAPI* messageBeep)(UINT type);
    int(WINAPI* messageBox)(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
};

extern "C" {

// Installs a table of replacements; null restores the platform's calls.
ZVOPT32_API void ZvSetPlatformSeams(const ZvPlatformSeams* seams);

}  // extern "C"

// ===================================================================== option core
// Replaying options without a dialog, moving tags between keys, cloning
// images through named sections. Strings are 8-bit and zero-terminated; a
// short result is 0 for success or a negative code of the engine or the
// library.
#include <oleauto.h>

class Dewey;
class TagSet;
class OKAMOD;
struct IRGB;

extern "C" {

// Writes the commands that the tags of srcExt to destExt ask for into a
// temporary file, runs it over image with Dewey::Test, and removes it.
ZVOPT32_API short DoOptions(Dewey* image, TagSet* tags, const char* srcExt, const char* destExt, OKAMOD* formats);

// The script that DoOptions would run with the same first five arguments, as
// text: one command a line, each line ended by LF CR ("\n\r"), the empty
// text when the tags ask for no command. text (size bytes) gets as much of
// it as fits before a zero; nothing is written past size bytes, and the text
// always ends in a zero when size is 1 or more (text may be null with a size
// of 0). Gives the whole script's length in bytes without the zero: a result
// of size or more means the text was cut, and result + 1 bytes hold it all.
// It changes nothing: the image is only asked about, and the trace settings
// that DoOptions also hands the engine directly (PrepRaster, Vectorize) are
// not handed to it.
ZVOPT32_API int GetOptionsScript(Dewey* image, TagSet* tags, const char* srcExt, const char* destExt,
                                 OKAMOD* formats, char* text, int size);

// Gives the engine the stored options of one conversion that are not
// commands: the wildcard set under the root's path + "\Wildcards", the root
// and tags, resolved for src and dest, land in out, whose path the engine
// then reads.
ZVOPT32_API void FilterOptions(Dewey* image, TagSet* tags, TagSet* out, const char* src, const char* dest);
ZVOPT32_API void FilterTagList(TagSet* list, TagSet* out, const char* src, const char* dest);

// Carry a conversion's options from one destination key to another.
ZVOPT32_API void TranslateAllTags(TagSet* tags, const char* prefix, const char* oldKey, const char* newKey);
ZVOPT32_API void TranslateOneTag(TagSet* tags, const char* prefix, const char* oldKey, const char* newKey,
                                 const char* name);

// A copy of a raster image in a section of its own (a vector image is
// shared); *clone is an empty Dewey that the caller made.
ZVOPT32_API short DoClone(Dewey* source, Dewey** clone);
// name holds a stem and gets stem + the first counter whose section nobody
// uses; -250 when that doesn't fit in size bytes.
ZVOPT32_API short CreateUniqueStatusSectionName(char* name, int size);

// The numbers of the trace commands, from the tags of a conversion prefix.
ZVOPT32_API short TraceGetMethod(TagSet* tags, const char* prefix);
ZVOPT32_API short TraceGetUndither(TagSet* tags, const char* prefix);
ZVOPT32_API short TraceGetDespec(TagSet* tags, const char* prefix);
ZVOPT32_API short TraceGetMaxColors(TagSet* tags, const char* prefix);
ZVOPT32_API short TraceGetGenTol(TagSet* tags, const char* prefix);
ZVOPT32_API short TraceGetBezGen(TagSet* tags, const char* prefix);
ZVOPT32_API short TraceGetArcGen(TagSet* tags, const char* prefix);
ZVOPT32_API short TraceGetLineWidth(TagSet* tags, const char* prefix);
// key (64 bytes) = prefix + the value of prefix+"TRACE" + name.
ZVOPT32_API void TraceMakeTag(TagSet* tags, const char* prefix, const char* name, char* key);

}  // extern "C"

// The message that a CapSection posts to the owner of its section when it
// lets go of it; lParam is the id of the description.
#define ZV_WM_SECTION_RELEASED 2026

// A host's side of a section that another process made. The description is
// 8 hex digits of the id, 8 of the owner window, then the section name (at
// most 49 characters). A host tests view; after an assignment only one of
// the two objects may be destroyed, since they share the section.
class ZVOPT32_API CapSection {
public:
    explicit CapSection(char* description);
    ~CapSection();
    CapSection& operator=(const CapSection& other);
    // Made and freed by the library, so that a host built with another
    // runtime can delete what it got.
    static void* operator new(size_t size);
    static void operator delete(void* object);

    void* view;
    char name[50];
    BSTR wideName;
    unsigned long id;
    HANDLE mapping;
    HWND owner;
};
// =============================================================== end option core

// ---- Dialog frame: the dialog that belongs to a format, and context help.
extern "C" {

// The first page of a destination's option sheet, the number that
// DoDestOptionsDlg takes, or 0 when the destination has no options. destKey
// is the internal extension. Needs no dialog running.
ZVOPT32_API unsigned short GetDestDlgId(const char* destKey, short destType, short srcType);

// The dialog of a source format, the number that DoSrcOptionsDlg takes, with
// its procedure in *dlgProc; 0 and null when the format has none. "CUT"
// gives 1 and null: CUTSrcDlg runs that one. wantInputOptions 0 means no
// dialog for a format without one of its own. Reads the operation of the
// last dialog.
ZVOPT32_API unsigned short GetSrcDlgId(const char* srcExt, DLGPROC* dlgProc, short srcType, int wantInputOptions);

// Help of every dialog and page. WM_COMMAND with IDHELP (9) in the low word
// opens the topic given in lParam; WM_HELP and WM_CONTEXTMENU open the
// pop-up help of the control they name. Other messages are ignored.
ZVOPT32_API void ShowContextHelp(UINT message, WPARAM wParam, LPARAM lParam);

}  // extern "C"

// ---- Option sheets: tabbed pages of options over a host's tag set.
// Every sheet works on a child of tags: OK merges what the user did, Cancel
// drops it. Only one dialog of the library runs at a time; a call while one
// runs beeps and gives 0. A null parent, tags, formats or appTitle keeps
// what the last dialog was given. Strings are 8-bit and zero-terminated.
class Dewey;
class TagSet;
class OKAMOD;

extern "C" {

// The options of a conversion from srcExt to destExt; dlgId is the number
// GetDestDlgId gave, the sheet's first page. 1 for OK, else 0.
ZVOPT32_API int DoDestOptionsDlg(HWND parent, unsigned short dlgId, TagSet* tags, const char* appTitle,
                                 const char* helpFile, OKAMOD* formats, const char* srcExt, const char* destExt,
                                 short operation, short srcType, Dewey* image);
// The source dialog dlgId with its procedure (both from GetSrcDlgId); gives
// the dialog's own result, 0 when another dialog runs.
ZVOPT32_API int DoSrcOptionsDlg(HWND parent, DLGPROC dlgProc, unsigned short dlgId, TagSet* tags,
                                const char* appTitle, const char* helpFile, OKAMOD* formats, const char* srcExt,
                                const char* destExt, short operation, short srcType, Dewey* image);
// Sheets of the image in hand; with operation 0 OK applies the change to
// image. 1 for OK, else 0.
ZVOPT32_API int DoAdjColorsDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                               OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                               Dewey* image);
ZVOPT32_API int DoEditColorsDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                                OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                                Dewey* image);
ZVOPT32_API int DoNumColorsDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                               OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                               Dewey* image);
ZVOPT32_API int DoPrintPosDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                              OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                              Dewey* image);
ZVOPT32_API int DoResizeDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                            OKAMOD* formats, const char* srcExt, const char* destExt, short operation, Dewey* image);
ZVOPT32_API int DoRotateDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                            OKAMOD* formats, const char* srcExt, const char* destExt, short operation, Dewey* image);
ZVOPT32_API int DoTraceDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                           OKAMOD* formats, const char* srcExt, const char* destExt, short operation, Dewey* image);
// The attributes of the image in fileName, shown at rect (may be null); it
// edits nothing. The sheet's result: 1 OK, 2 Cancel, 0 when refused.
ZVOPT32_API int DoPropertiesDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                                OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                                Dewey* image, RECT* rect, char* fileName);

// The colour picker: the system's colour dialog starting on `in`, with `in`
// and fifteen greys as its custom colours. `out` gets the colour chosen, or
// `in` on Cancel. Non-zero for OK; 0 for Cancel or while a dialog runs.
ZVOPT32_API int DoColorDlg(HWND parent, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats, char* srcExt,
                           char* destExt, short operation, IRGB* in, IRGB* out);

}  // extern "C"
// ============================================================ end option sheets

// ---- The save road: the save dialog and the dialogs it opens.
extern "C" {

// The room of the path buffer that DoSaveDlg fills: the system's dialog
// writes the name into it with this limit.
#define ZV_SAVE_PATH_SIZE 516

// Asks where to write an image and in which format. path (ZV_SAVE_PATH_SIZE
// bytes) holds a start path or "", and gets the accepted path. srcExt null
// means "BMP"; "CAP" and "TWN" offer raster formats only. A title of
// "Browse" shows the plain system dialog. srcType 0 takes the type from the
// registry. Non-zero when a path was accepted.
ZVOPT32_API int DoSaveDlg(HWND owner, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats, char* srcExt,
                          char* path, char* customList, char* title, Dewey* image, short srcType);
// The same for a host with neither tags nor format registry of its own.
ZVOPT32_API int OkaSaveDlg(HWND owner, char* name, char* helpFile, char* path, char* title);

// Dialog 225 (the receiving program), 219 (a custom TIFF flavour's name) and
// 223 (what a metafile made from a raster image holds).
ZVOPT32_API INT_PTR CALLBACK TargetAppDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK TiffAppDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK ForceToRasterDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // extern "C"
