// Until the dialog frame brings its own, the few steps of the option
// context that the save road relies on, and a destination sheet that shows
// nothing. Built only when the frame doesn't define them (source's
// CMakeLists looks), so the frame's versions replace these when they land.
#include <cstring>

#include "bounded_text.h"
#include "module.h"
#include "okamod32.h"
#include "source.h"
#include "zvopt32.h"
#include "zvwio32.h"

#ifndef ZV_FRAME_HAS_CONTEXT
namespace {

short TypeOf(const char* ext)
{
    OKAMOD* formats = Options()->formats;
    return static_cast<short>(formats != nullptr && ext != nullptr ? formats->GetType(ZvGetIndex(formats, ext)) : 0);
}

}  // namespace

void SetSource(char* srcExt, short srcType)
{
    OptionContext* options = Options();
    if (srcExt != nullptr)
        zv::CopyBounded(options->srcExt, srcExt);
    if (srcType != 0) {
        options->srcType = srcType;
        return;
    }
    options->srcType = 3;
    if (srcExt != nullptr)
        options->srcType = TypeOf(srcExt);
}

void SetDestination(char* destExt)
{
    OptionContext* options = Options();
    if (destExt == nullptr)
        return;
    zv::CopyBounded(options->destExt, destExt);
    const char* key = options->formats ? ZvGetInternalExt(options->formats, destExt) : destExt;
    zv::CopyBounded(options->destKey, key != nullptr ? key : "");
    options->destType = TypeOf(options->destKey);
    if (options->destType != 3)
        return;
    char tag[64];
    zv::CopyBounded(tag, options->destKey);
    zv::AppendBounded(tag, "RVFORCE");
    if (const char* force = ZvGetTag(options->tags, tag)) {
        if (lstrcmpiA(force, "R") == 0)
            options->destType = 1;
        else if (lstrcmpiA(force, "V") == 0)
            options->destType = 2;
        else if (lstrcmpiA(force, "M") == 0)
            options->destType = 3;
    }
}

void InitOptionContext(HWND parent, TagSet* tags, char* appTitle, char* helpFile, OKAMOD* formats, char* srcExt,
                       char* destExt, short operation, short srcType, Dewey* image, int)
{
    OptionContext* options = Options();
    char path[MAX_PATH] = {};
    DWORD length = GetModuleFileNameA(LibraryModule(), path, sizeof path);
    if (char* slash = length ? strrchr(path, '\\') : nullptr)
        slash[1] = '\0';
    zv::CopyBounded(options->moduleDir, path);
    options->operation = operation;
    options->propRect = nullptr;
    options->printFlag = operation == 0 ? 0 : 1;
    if (parent != nullptr)
        options->parentWnd = parent;
    if (tags != nullptr)
        options->tags = tags;
    if (formats != nullptr)
        options->formats = formats;
    options->sourceDewey = image;
    if (appTitle != nullptr)
        zv::CopyBounded(options->appTitle, appTitle);
    if (helpFile != nullptr && ZvCanReadFile(helpFile)) {
        zv::CopyBounded(options->helpFile, helpFile);
    } else if (path[0] != '\0') {
        zv::CopyBounded(options->helpFile, path);
        zv::AppendBounded(options->helpFile, "ZAVRIN.HLP");
    } else {
        zv::CopyBounded(options->helpFile, "?");
    }
    if (srcType == 0)
        srcType = options->formats != nullptr && srcExt != nullptr ? TypeOf(srcExt) : 1;
    SetSource(srcExt, srcType);
    SetDestination(destExt);
    zv::CopyBounded(options->translatedKey, "~~~");
}
#endif

#ifndef ZV_FRAME_HAS_DEST_SHEET
// The sheet itself comes with the frame; until then the Options button
// leads nowhere.
extern "C" ZVOPT32_API int DoDestOptionsDlg(HWND, unsigned short, TagSet*, char*, char*, OKAMOD*, char*, char*, short,
                                            short, Dewey*)
{
    return 0;
}
#endif
