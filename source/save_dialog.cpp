// DoSaveDlg: where to write an image and in which format, on the system's
// Explorer-style save dialog with the library's child template and hook.
#include <cstring>
#include <string>
#include <string_view>

#include "bounded_text.h"
#include "diagnostics.h"
#include "dialog_guard.h"
#include "module.h"
#include "okamod32.h"
#include "okaio32.h"
#include "resource_ids.h"
#include "source.h"
#include "zvopt32.h"
#include "zvwio32.h"

int saveFixupBusy = 0;
DLGPROC saveOldDlgProc = nullptr;
HWND saveHookDlg = nullptr;

namespace {

constexpr int kFilterKindDest = 'D';
static_assert(ZV_SAVE_PATH_SIZE == zv::kLongPathSize, "the host's path buffer is the dialog's file buffer");

bool IsRawCapture(const char* ext)
{
    // Captures and scans have no format of their own: they are keyed as
    // bitmaps and can only go to raster formats.
    return ext != nullptr && (lstrcmpiA(ext, "CAP") == 0 || lstrcmpiA(ext, "TWN") == 0);
}

void DefaultExtension(TagSet* tags, short srcType, char (&ext)[MAX_PATH])
{
    const char* tag = nullptr;
    const char* fallback = nullptr;
    switch (srcType) {
    case 0:
    case 1:
    case 5:
        tag = "RDESTTYPE", fallback = "BMP";
        break;
    case 2:
    case 3:
        tag = "VDESTTYPE", fallback = "WMF";
        break;
    case 6:
        tag = "EDESTTYPE", fallback = "WRL";
        break;
    default:
        return;  // no format known to suggest
    }
    const char* stored = ZvGetTag(tags, tag);
    zv::CopyBounded(ext, stored != nullptr ? stored : fallback);
}

// The list entry that shows the extension: the first destination entries of
// the filter list are compared, one for each destination format.
DWORD StartFilterIndex(OKAMOD* formats, char** filterList, const char* ext, bool rasterOnly)
{
    DWORD index = 1;
    if (formats == nullptr || filterList == nullptr)
        return index;
    char** all = ZvGetAllExtensions(formats);
    int count = 0;
    for (char** e = all; e != nullptr && *e != nullptr; ++e) {
        HKEY format = ZvGetIndex(formats, *e);
        if (!formats->IsDest(format))
            continue;
        int type = formats->GetType(format);
        if (!rasterOnly || IsRasterType(type))
            ++count;
    }
    ZvFreeAllExtensions(formats, all);

    for (int i = 0; i < count; ++i) {
        if (filterList[2 * i] == nullptr || filterList[2 * i + 1] == nullptr)
            break;
        const char* dot = strchr(filterList[2 * i + 1], '.');
        if (dot != nullptr && lstrcmpiA(dot + 1, ext) == 0) {
            index = static_cast<DWORD>(i + 1);
            break;
        }
    }
    return index;
}

// srcType is the caller's: a source of type 0 took its start from the
// raster default, but its outcome is kept apart from the raster sources'.
void StoreOutcome(OptionContext* options, short srcType, char* path)
{
    PathParts parts;
    SplitPath(options->savePath, parts);
    ZvSetGlobalTag(options->tags, "SAVEDIR", parts.dir);
    const char* typeTag = IsRasterType(srcType)                                     ? "RDESTTYPE"
                          : srcType == kFormatVector || srcType == kFormatMetafile ? "VDESTTYPE"
                                                                                   : "EDESTTYPE";
    ZvSetGlobalTag(options->tags, typeTag, parts.ext);
    ComposePath(parts, path, zv::kLongPathSize);
    SetDestination(parts.ext);
}

}  // namespace

void SplitPath(const char* path, PathParts& parts)
{
    parts.dir[0] = parts.name[0] = parts.ext[0] = '\0';
    ZvSplitPath(path, parts.dir, parts.name, parts.ext);
}

void ComposePath(const PathParts& parts, char* out, size_t size)
{
    std::string_view dir(parts.dir);
    std::string text(dir);
    if (!dir.empty() && dir.back() != '\\' && dir.back() != ':')
        text += '\\';
    text += parts.name;
    text += '.';
    text += parts.ext;
    lstrcpynA(out, text.c_str(), static_cast<int>(size));
}

extern "C" ZVOPT32_API int DoSaveDlg(HWND owner, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats,
                                     char* srcExt, char* path, char* customList, char* title, Dewey* image,
                                     short srcType)
{
    DialogGuard guard(__func__);
    if (!guard.Held())
        return 0;
    OptionContext* options = Options();
    saveFixupBusy = 0;

    char sourceKey[MAX_PATH] = "BMP";
    bool rasterOnly = IsRawCapture(srcExt);
    if (srcExt != nullptr && !rasterOnly)
        zv::CopyBounded(sourceKey, srcExt);
    InitOptionContext(owner, tags, appTitle, helpFile, formats, sourceKey, nullptr, 2, srcType, image, 0);
    options->savePath = path;

    PathParts parts;
    SplitPath(path, parts);
    if (ZvGetTag(options->tags, "OWNOTIFY") == nullptr)
        ZvSetGlobalTag(options->tags, "OWNOTIFY", "ON");
    if (parts.dir[0] == '\0') {
        if (const char* saved = ZvGetTag(options->tags, "SAVEDIR"))
            zv::CopyBounded(parts.dir, saved);
        if (parts.dir[0] == '\0')
            LibraryFolder(parts.dir);  // the last resort for where to save
    }
    if (parts.ext[0] == '\0')
        DefaultExtension(options->tags, srcType, parts.ext);
    if (parts.name[0] == '\0')
        zv::CopyBounded(parts.name, "*");

    ComposePath(parts, options->savePath, zv::kLongPathSize);
    zv::CopyBounded(options->destExt, parts.ext);
    char file[zv::kLongPathSize];
    zv::CopyBounded(file, options->savePath);
    char fileTitle[zv::kLongPathSize] = {};

    TranslateAllTags(options->tags, options->srcExt, "~~~", options->destExt);
    options->destType = static_cast<short>(
        options->formats ? options->formats->GetType(ZvGetIndex(options->formats, parts.ext)) : 0);

    options->filterList =
        customList != nullptr
            ? ZvCreateCustomList(options->formats, LibraryModule(), kFilterKindDest, IDS_KNOWN_FORMATS, customList)
            : ZvCreateFilterList(options->formats, LibraryModule(), kFilterKindDest, IDS_KNOWN_FORMATS,
                                 rasterOnly ? 1 : 0);

    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = owner;
    ofn.hInstance = LibraryModule();
    ofn.lpstrFilter = options->filterList != nullptr ? options->filterList[0] : nullptr;
    ofn.nFilterIndex = StartFilterIndex(options->formats, options->filterList, parts.ext, rasterOnly);
    ofn.lpstrFile = file;
    ofn.nMaxFile = zv::kLongPathSize;
    ofn.lpstrFileTitle = fileTitle;
    ofn.nMaxFileTitle = zv::kLongPathSize;
    ofn.lpstrInitialDir = parts.dir;
    ofn.lpstrTitle = title;
    ofn.lpstrDefExt = parts.ext;
    ofn.lpfnHook = SaveDlgHookProc;
    ofn.lpTemplateName = MAKEINTRESOURCEA(IDD_SAVE_CHILD);
    ofn.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_ENABLEHOOK | OFN_HIDEREADONLY;
    if (TagIsOn(options->tags, "OWNOTIFY"))
        ofn.Flags |= OFN_OVERWRITEPROMPT;
    if (options->helpFile[0] != '\0')
        ofn.Flags |= OFN_SHOWHELP;
    bool browse = title != nullptr && lstrcmpiA(title, "Browse") == 0;
    if (!browse)
        ofn.Flags |= OFN_ENABLETEMPLATE;

    BOOL accepted = GetSaveFileNameA(&ofn);
    if (accepted)
        StoreOutcome(options, srcType, path);
    Diagnostic("%s: %s", __func__, accepted ? options->savePath : "no file accepted");

    ZvDeleteFilterList(options->formats, options->filterList);
    options->filterList = nullptr;
    return accepted;
}

extern "C" ZVOPT32_API int OkaSaveDlg(HWND owner, char* name, char* helpFile, char* path, char* title)
{
    ZvSetCursor(owner, LoadCursorA(nullptr, IDC_WAIT));
    TagSet* tags = new TagSet;
    OKAMOD* formats = new OKAMOD(nullptr);
    ZvSetCursor(owner, LoadCursorA(nullptr, IDC_ARROW));

    char srcExt[MAX_PATH] = "BMP";
    if (const char* dot = path != nullptr ? strrchr(path, '.') : nullptr)
        zv::CopyBounded(srcExt, dot + 1);
    int result = DoSaveDlg(owner, tags, name, helpFile, formats, srcExt, path, name, title, nullptr, 0);

    delete tags;
    delete formats;
    return result;
}
