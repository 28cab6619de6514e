// DoOpenDlg and OkaOpenDlg: which image file (or files) to read, on the
// system's Explorer-style open dialog with the library's child template and
// hook; the source options of the format are one button away.
#include "open_dialog.h"

#include <cstring>

#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "dialog_guard.h"
#include "module.h"
#include "okaheap40.h"
#include "okaio32.h"
#include "okamod32.h"
#include "resource_ids.h"
#include "seams.h"
#include "source.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

DLGPROC openOldDlgProc = nullptr;
HWND openHookDlg = nullptr;

namespace {

constexpr int kFilterKindSource = 'S';

void StartFolder(TagSet* tags, char (&dir)[zv::kLongPathSize])
{
    if (const char* stored = ZvGetTag(tags, "OPENDIR")) {
        zv::CopyBounded(dir, stored);
        return;
    }
    char library[zv::kLongPathSize] = {};
    GetModuleFileNameA(LibraryModule(), library, sizeof library - 1);
    TutorialFolder(library, dir, sizeof dir);
}

void TellOutOfMemory(OptionContext* options)
{
    SeamMessageBeep(0);
    char text[256] = {};
    LoadStringA(LibraryModule(), IDS_OUT_OF_MEMORY, text, sizeof text);
    SeamMessageBox(options->parentWnd, text, options->appTitle, MB_ICONHAND);
}

// What the caller gets and what the tags keep of an accepted choice.
void StoreOutcome(OptionContext* options, char* work, char* path, bool multiple)
{
    if (multiple) {
        std::memcpy(path, work, RawListLength(work, kOpenBufferSize));
        char first[kOpenBufferSize];
        FirstPathOfList(work, first, sizeof first);
        zv::CopyBounded(work, kOpenBufferSize, first);
    } else {
        std::memcpy(path, work, std::strlen(work) + 1);
    }
    char dir[zv::kLongPathSize] = {}, name[zv::kLongPathSize] = {}, ext[zv::kLongPathSize] = {};
    ZvSplitPath(work, dir, name, ext);
    ZvSetGlobalTag(options->tags, "OPENDIR", dir);
    SetSource(ext, options->srcType);
}

}  // namespace

void TutorialFolder(const char* libraryPath, char* out, std::size_t size)
{
    zv::CopyBounded(out, size, libraryPath);
    char* last = std::strrchr(out, '\\');
    if (last == nullptr)
        return;
    *last = '\0';
    if (char* parent = std::strrchr(out, '\\')) {
        parent[1] = '\0';
        zv::AppendBounded(out, size, "tutorial");
    }
}

std::size_t RawListLength(const char* list, std::size_t size)
{
    std::size_t at = 0;
    while (at + 1 < size) {
        if (list[at] == '\0' && list[at + 1] == '\0')
            return at + 2;
        ++at;
    }
    return size;
}

void FirstPathOfList(const char* list, char* out, std::size_t size)
{
    zv::CopyBounded(out, size, list);
    std::size_t firstLength = std::strlen(list);
    const char* second = list + firstLength + 1;
    if (firstLength > 0 && list[firstLength - 1] != '\\')
        zv::AppendBounded(out, size, "\\");
    zv::AppendBounded(out, size, second);
    // One chosen file: its full path alone, without the separator added.
    std::size_t length = std::strlen(out);
    if (length > 0 && out[length - 1] == '\\')
        out[length - 1] = '\0';
}

extern "C" ZVOPT32_API int DoOpenDlg(HWND owner, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats,
                                     char* path, char* title, int multiple)
{
    DialogGuard guard(__func__);
    if (!guard.Held())
        return 0;
    OptionContext* options = Options();
    InitOptionContext(owner, tags, appTitle, helpFile, formats, nullptr, nullptr, 0, 0, nullptr, 0);
    char* work = static_cast<char*>(OkiAllocSMem(kOpenBufferSize));
    if (work == nullptr) {
        TellOutOfMemory(options);
        return 0;
    }
    work[0] = '\0';
    options->openPath = work;
    if (title != nullptr)
        options->operation = kOperationOpenWithTitle;
    options->filterList = ZvCreateFilterList(options->formats, LibraryModule(), kFilterKindSource, IDS_ALL_FILES, 0);
    if (options->filterList != nullptr && options->filterList[1] != nullptr)
        zv::CopyBounded(work, kOpenBufferSize, options->filterList[1]);

    char fileTitle[zv::kLongPathSize] = "*.*";
    char dir[zv::kLongPathSize] = {};
    StartFolder(options->tags, dir);

    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = owner;
    ofn.hInstance = LibraryModule();
    ofn.lpstrFilter = options->filterList != nullptr ? options->filterList[0] : nullptr;
    ofn.nFilterIndex = 0;
    ofn.lpstrFile = work;
    ofn.nMaxFile = kOpenBufferSize;
    ofn.lpstrFileTitle = fileTitle;
    ofn.nMaxFileTitle = zv::kLongPathSize;
    ofn.lpstrInitialDir = dir;
    ofn.lpstrTitle = title;
    ofn.lpstrDefExt = "*";
    ofn.lpfnHook = OpenDlgHookProc;
    ofn.lpTemplateName = MAKEINTRESOURCEA(IDD_OPEN_CHILD);
    ofn.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_ENABLETEMPLATE | OFN_ENABLEHOOK | OFN_HIDEREADONLY;
    if (multiple != 0)
        ofn.Flags |= OFN_ALLOWMULTISELECT;
    if (options->helpFile[0] != '\0')
        ofn.Flags |= OFN_SHOWHELP;

    BOOL accepted = GetOpenFileNameA(&ofn);
    if (accepted)
        StoreOutcome(options, work, path, multiple != 0);
    Diagnostic("%s: %s", __func__, accepted ? work : "no file accepted");

    ZvDeleteFilterList(options->formats, options->filterList);
    options->filterList = nullptr;
    options->openPath = nullptr;
    OkiFreeSMem(work);
    return accepted;
}

extern "C" ZVOPT32_API int OkaOpenDlg(HWND owner, char* appTitle, char* helpFile, char* path, char* title)
{
    ZvSetCursor(owner, LoadCursorA(nullptr, IDC_WAIT));
    TagSet* tags = new TagSet;
    OKAMOD* formats = new OKAMOD(nullptr);
    ZvSetCursor(owner, LoadCursorA(nullptr, IDC_ARROW));
    // What the dialog wrote into the tags goes with them.
    int result = DoOpenDlg(owner, tags, appTitle, helpFile, formats, path, title, 0);
    delete tags;
    delete formats;
    return result;
}
