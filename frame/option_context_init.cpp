// The option context in a dialog: what every entry puts into the record
// before its dialog runs, the key prefix of the tags, and the thumbnails.
#include <cmath>
#include <cstring>

#include "bounded_text.h"
#include "core_win.h"
#include "frame.h"
#include "module.h"
#include "option_core.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvwio32.h"

namespace {

short TypeOf(OKAMOD* formats, const char* ext)
{
    if (formats == nullptr || ext == nullptr)
        return 0;
    return static_cast<short>(formats->GetType(ZvGetIndex(formats, ext)));
}

}  // namespace

OptionContext* CurrentOptionContext()
{
    return Options();
}

void SetSource(const char* srcExt, short srcType)
{
    OptionContext* o = Options();
    if (srcExt != nullptr)
        zv::CopyBounded(o->srcExt, srcExt);
    if (srcType != 0) {
        o->srcType = srcType;
        return;
    }
    // No type given: a metafile unless the registry knows better.
    o->srcType = 3;
    if (srcExt != nullptr)
        o->srcType = TypeOf(o->formats, srcExt);
}

void SetDestination(const char* destExt)
{
    OptionContext* o = Options();
    // A null destination keeps the last one: a source dialog opened after a
    // save still reads the tags of that save.
    if (destExt == nullptr)
        return;
    zv::CopyBounded(o->destExt, destExt);
    const char* key = o->formats != nullptr ? ZvGetInternalExt(o->formats, destExt) : destExt;
    zv::CopyBounded(o->destKey, key != nullptr ? key : "");
    o->destType = TypeOf(o->formats, destExt);
    // A metafile's content may be forced to one kind by the user.
    if (o->destType == kFormatMetafile) {
        if (short chosen = ChosenMetafileClass())
            o->destType = chosen;
    }
}

bool TagIsOn(TagSet* tags, const char* key)
{
    return zv::IsOn(ZvGetTag(tags, key));
}

void DefaultHelpFile(char (&path)[zv::kPathSize])
{
    // A path that can't be had gives "?", a name that no viewer opens.
    if (LibraryFolder(path))
        zv::AppendBounded(path, "\\ZAVRIN.HLP");
    else
        zv::CopyBounded(path, "?");
}

short ChosenMetafileClass()
{
    OptionContext* o = Options();
    return static_cast<short>(zv::MetafileClassType(ZvGetTag(o->tags, zv::TagKey(o->destKey, zv::kMetafileClassTag))));
}

void MakeKeyPrefix(char* out)
{
    OptionContext* o = Options();
    char source[256];
    const char* internal = ZvGetInternalExt(o->formats, o->srcExt);
    zv::CopyBounded(source, internal != nullptr ? internal : "");
    switch (o->operation) {
    case 2:
    case 3: {
        // Only a real destination has keys of its own; the internal
        // extension of an internal extension is itself.
        const char* key = ZvGetInternalExt(o->formats, o->destKey);
        char copy[256];
        zv::CopyBounded(copy, key != nullptr ? key : "");
        zv::CopyBounded(o->destKey, copy);
        break;
    }
    case 5:
        zv::CopyBounded(o->destKey, "CLP");
        break;
    default:
        // The image in hand and its outputs keep their options under the
        // neutral key.
        zv::CopyBounded(o->destKey, "~~~");
        break;
    }
    zv::CopyBounded(out, zv::kKeySize, zv::TagKey(source, o->destKey));
}

void InitOptionContext(HWND parent, TagSet* tags, const char* appTitle, const char* helpFile, OKAMOD* formats,
                       const char* srcExt, const char* destExt, short operation, short srcType, Dewey* image,
                       int wantPreview)
{
    OptionContext* o = Options();

    char folder[zv::kPathSize];
    LibraryFolder(folder);
    zv::CopyBounded(o->moduleDir, folder);

    o->operation = operation;
    o->propRect = nullptr;
    o->printFlag = operation == 0 ? 0 : 1;

    // A null keeps what the last dialog left, so that a source dialog can be
    // opened with only the arguments that changed.
    if (parent != nullptr)
        o->parentWnd = parent;
    if (tags != nullptr)
        o->tags = tags;
    if (formats != nullptr)
        o->formats = formats;

    // The shown thumbnail belongs to the last dialog; its pristine base is
    // replaced only when new thumbnails are made.
    delete o->previewDewey;
    o->previewDewey = nullptr;
    o->sourceDewey = image;
    if (image != nullptr && wantPreview != 0)
        MakePreviews(image, 256, 256);

    if (appTitle != nullptr)
        zv::CopyBounded(o->appTitle, appTitle);

    if (helpFile != nullptr && ZvCanReadFile(helpFile))
        zv::CopyBounded(o->helpFile, helpFile);
    else
        DefaultHelpFile(o->helpFile);

    if (srcType == 0)
        srcType = o->formats != nullptr && srcExt != nullptr ? TypeOf(o->formats, srcExt) : 1;
    SetSource(srcExt, srcType);
    SetDestination(destExt);

    char prefix[zv::kKeySize];
    MakeKeyPrefix(prefix);

    // The preview starts with what the tags say, so that a setter given the
    // tags' values finds nothing to do.
    o->previewRotation = static_cast<float>(ZvGetFloatTag(o->tags, zv::TagKey(o->destKey, "ROT")));
    o->previewFlipV = TagIsOn(o->tags, zv::TagKey(prefix, "FLIPV"));
    o->previewFlipH = TagIsOn(o->tags, zv::TagKey(prefix, "FLIPH"));
    o->previewHist = TagIsOn(o->tags, zv::TagKey(prefix, "HIST"));
    o->previewContrast = static_cast<short>(ZvGetIntTag(o->tags, zv::TagKey(prefix, "CONTRAST")));
    o->previewBright = static_cast<short>(ZvGetIntTag(o->tags, zv::TagKey(prefix, "BRIGHT")));
    o->previewGamma = static_cast<short>(ZvGetIntTag(o->tags, zv::TagKey(prefix, "GAMMA")));

    o->previewReverseBW = 0;
    o->previewInvert = 0;
    o->previewBVis = 0;
    o->previewGrayize = 0;
    o->previewBlackize = 0;

    zv::CopyBounded(o->translatedKey, "~~~");
}

short MakePreviews(Dewey* source, int maxWidth, int maxHeight)
{
    OptionContext* o = Options();
    ZvSetCursor(o->parentWnd, LoadCursorA(nullptr, IDC_WAIT));
    short status = 1;
    if (source != nullptr && o->previewDewey == nullptr) {
        o->previewDewey = new Dewey;
        if (o->previewDewey != nullptr && (status = DoClone(source, &o->previewDewey)) == 0) {
            long width = 0, height = 0;
            source->GetInfo(&width, &height, nullptr, nullptr, nullptr);
            // The width is fixed first and the height follows, so the
            // longer side meets its limit and the aspect stays.
            double ratio = DivideDouble(width, height);
            long w = static_cast<long>(std::trunc(maxHeight * ratio));
            if (w >= maxWidth)
                w = maxWidth;
            long h = static_cast<long>(std::trunc(DivideDouble(w, ratio)));
            if (!o->previewDewey->IsRaster()) {
                o->previewDewey->Rasterize(w, h, 24);
            } else {
                o->previewDewey->Resize(w, h, 0);
                // Leaves the picture as it was; kept for what the engine
                // keeps of its last change.
                o->previewDewey->Invert();
                o->previewDewey->UndoRedo();
            }
            delete o->previewBase;
            o->previewBase = new Dewey;
            if (o->previewBase != nullptr)
                DoClone(o->previewDewey, &o->previewBase);
        }
    }
    ZvSetCursor(o->parentWnd, LoadCursorA(nullptr, IDC_ARROW));
    return status;
}

void FreePreviews()
{
    OptionContext* o = Options();
    if (o == nullptr)
        return;
    delete o->previewDewey;
    delete o->previewBase;
    o->previewDewey = nullptr;
    o->previewBase = nullptr;
}
