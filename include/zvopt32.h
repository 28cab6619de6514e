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

// The trace controls on any dialog that carries their numbers (4800 to
// 4826); a control that a dialog lacks is passed over. The string lists
// come from this library whatever module is given. prefix is the
// conversion prefix (64 bytes) that TraceInitDialog composes.
ZVOPT32_API void TraceCopyOneTag(TagSet* from, TagSet* to, const char* prefix, const char* name);
// The seven option tags of the method that from holds for prefix.
ZVOPT32_API void TraceCopyTags(TagSet* from, TagSet* to, const char* prefix);
// Fills the controls and writes the defaults that are absent; destKey (64
// bytes) becomes "CLP" for the clipboard (5) and "~~~" for anything but a
// conversion to a file (2), whose extension goes in front of the caption.
ZVOPT32_API void TraceInitDialog(HWND dialog, HINSTANCE module, TagSet* tags, const char* srcKey, char* destKey,
                                 const char* destExt, char* prefix, short operation);
// Reads the controls back; a bad tolerance clears *valid.
ZVOPT32_API void TraceRetrieveTags(HWND dialog, HINSTANCE module, TagSet* tags, const char* prefix, int* valid);
// The method buttons (wParam 0 acts whatever the button shows).
ZVOPT32_API void TraceDoCenterlineButton(HWND dialog, HINSTANCE module, TagSet* tags, const char* prefix,
                                         WPARAM wParam, LPARAM lParam);
ZVOPT32_API void TraceDoOutlineButton(HWND dialog, HINSTANCE module, TagSet* tags, const char* prefix,
                                      WPARAM wParam, LPARAM lParam);
// The tolerance's edit moves its track bar, and the bar its edit.
ZVOPT32_API void TraceDoGenTolEdit(HWND dialog, WPARAM wParam, LPARAM lParam);
ZVOPT32_API int TraceDoHScroll(HWND dialog, WPARAM wParam, LPARAM lParam);
// Help from "zvtrace.hlp" beside helpFile, for WM_COMMAND of the Help
// button (9), WM_HELP and WM_CONTEXTMENU. The message arguments have the
// width of the platform's, since WM_HELP and WM_CONTEXTMENU carry a pointer
// and a window in them.
ZVOPT32_API void TraceDoHelp(HWND window, const char* helpFile, unsigned int message, WPARAM wParam,
                             LPARAM lParam);

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

// ---- Warnings: one modeless list of the engine's warnings for the whole
// session, outside the one-dialog rule, owned by parent and served by the
// host's message loop. The line "code text" is in the list when DoWarning
// returns (always 1); closing the dialog empties it for the next warning.
extern "C" {
ZVOPT32_API int DoWarning(HWND parent, int code);
ZVOPT32_API INT_PTR CALLBACK WarningsDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
}  // extern "C"

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

// The source dialogs: how a file of one source format is read. Each is the
// procedure of its template (GetSrcDlgId gives both) and writes its tags at
// OK, none at Cancel.
extern "C" {
ZVOPT32_API INT_PTR CALLBACK CGMSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK Src2dOr3dDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK PIXOGFSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK PCDSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK CLPSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK InputOptionsDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API INT_PTR CALLBACK Zv3dSrcOptionsDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
// The pen table of the plotter formats (templates 211 and 212): written at
// each change of a list, so Cancel keeps it.
ZVOPT32_API INT_PTR CALLBACK PICPGLSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
// The soft fonts of a PCL file (template 214): every change goes into a
// child set of the tags, fused at OK and dropped at Cancel. The hook is the
// one of its classic file dialog that asks for a font file.
ZVOPT32_API INT_PTR CALLBACK PCLSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
ZVOPT32_API UINT_PTR CALLBACK PCLFontHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
}  // extern "C"

// Asks for the image file to read (or, with multiple, several: path then
// gets the system's raw list, up to 25,860 bytes, ended by two NULs); the
// Options button runs the source dialog of the format under the cursor. A
// title keeps the host's own reading: only the formats' own dialogs are
// offered. Non-zero when a file was accepted.
extern "C" {
ZVOPT32_API int DoOpenDlg(HWND owner, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats, char* path,
                          char* title, int multiple);
// The same for a host with neither tags nor format registry of its own.
ZVOPT32_API int OkaOpenDlg(HWND owner, char* appTitle, char* helpFile, char* path, char* title);
// The CUT reading: the palette file of the picture name (its base name),
// on a classic file dialog with the scaling choice beside it; 1 when a
// palette was chosen.
ZVOPT32_API int CUTSrcDlg(HWND owner, char* name);
ZVOPT32_API UINT_PTR CALLBACK CUTSrcOptionsHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
}  // extern "C"

// ---- Printing: the print dialog with the fit of the image to the paper.
#include <commdlg.h>

extern "C" {

// Shows the system's print dialog on the host's record print (the first
// call must have start non-zero and brings the record; a later call with
// start 0 shows it again with what the last one left). Around the dialog
// the image is fitted to the chosen paper and the result written into the
// tags in inches: "PRTLEFT", "PRTTOP", "PRNW", "PRNH", the printer's
// "PRNHR" and "PRNVR", and "PRNUNITS" "IN". The record's hDC is the
// printer's DC, the host's to delete. 1 for OK, 2 when "Options..." ended
// the dialog (the host then shows DoPrintPosDlg), 0 for Cancel or when
// another dialog runs.
ZVOPT32_API int DoPrinterDlg(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile,
                             OKAMOD* formats, const char* srcExt, const char* destExt, short operation,
                             PRINTDLGA* print, int printFlag, Dewey* image, int start);
// The print dialog's hook: 1 when it took the message.
ZVOPT32_API UINT_PTR CALLBACK PrintHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // extern "C"
// ---- Text regions over a displayed image. A file mapped with FMap holds a
// count, the selected index and the regions (RECTS); EFont shows them in the
// host's window, finds the one under the mouse, stretches it with a rubber
// frame by three handles and tells the outcome in a FontChange. It opens no
// window: the host calls it from its mouse and paint code with the view's
// taghueyinfo. Frames and handles invert the pixels below them, so drawing
// one twice removes it. A file whose numbers don't fit its size is refused:
// status (FMap) then holds the code of MsgLib, and the object shows no
// region.
#include "okacvt32.h"

struct taghueyinfo;

#pragma pack(push, 2)
struct RECTS {
    short top;  // top before left, unlike RECT
    short left;
    short right;
    short bottom;
    short fontIndex;  // position of the font among the values of the system's font key
    short reserved;
};
#pragma pack(pop)
static_assert(sizeof(RECTS) == 12);

struct FontChange {
    float widthRatio;   // new width over old width of the region
    float heightRatio;  // new height over old height
    char oldFont[100];  // the region's font, without " (TrueType)"
    char newFont[100];  // the chosen font
};

// The four sides of the rubber frame, in source units.
struct RubberSides {
    short top;
    short left;
    short right;
    short bottom;
};

class ZVOPT32_API EFont : public FMap {
public:
    explicit EFont(char* fileName);
    ~EFont();

    // Points in device units. A hit selects the first region that holds the
    // point, edges included, and writes its index into the file.
    unsigned short TextRectHit(taghueyinfo* info, int x, int y);
    unsigned short HandleHit(taghueyinfo* info, int x, int y);  // 1 right, 2 top, 3 corner, 0 none
    void DrawAllRects(HDC dc, taghueyinfo* info);
    void DrawFontRects(HDC dc, taghueyinfo* info);  // the regions in the selected one's font
    void DrawRect(HDC dc, taghueyinfo* info, RECTS* rect);
    void DrawHandles(HDC dc, taghueyinfo* info);
    void StartRubberRect(HDC dc, taghueyinfo* info, unsigned short handle, int x, int y);
    void UpdateRubberRect(HDC dc, taghueyinfo* info, int x, int y);
    void EndRubberRect(HDC dc, taghueyinfo* info, int x, int y);
    FontChange* GetResults();
    // 1 when name is installed as a TrueType font; newFont takes it anyway.
    unsigned short SetNewFont(char* name);
    void SetFontHeightRatio(float ratio);
    long GetFontHeight(float unused);  // the selected region's height in source units, 0 without one
    void D2S(taghueyinfo* info, int& x, int& y);
    void S2D(taghueyinfo* info, RECTS* rect, RECT* out);

    int rectCount;
    RECTS* rects;
    RECTS* current;
    RubberSides rubber;
    RubberSides rubberOld;
    unsigned short rubberHandle;
    short rubberActive;
    short rubberDone;
    int* selectedSlot;
    FontChange results;

private:
    void DrawSides(HDC dc, taghueyinfo* info, const RubberSides& sides);
};
