// The preview thumbnail and its effects. All state is in the option
// context; see preview.h for the rule of the rebuild.
#include "preview.h"

#include <algorithm>
#include <cmath>

#include "bounded_text.h"
#include "core_win.h"
#include "option_core.h"
#include "ravicli.h"
#include "zvwio32.h"

namespace {

// The key of "BVIS": the caller's own source text, not its internal
// extension as in the other preview tags.
void WriteBVis(int bvis)
{
    OptionContext* o = Options();
    ZvSetTag(o->tags, zv::TagKey(o->srcExt, o->destKey, "BVIS"), bvis ? "ON" : "OFF");
}

// The stored flags and adjustments, with one effect changed; the rebuild of
// an effect being switched off.
short RebuildWithStored(int reverseBW, int invert, int bvis, int grayize, int blackize)
{
    const OptionContext* o = Options();
    return RebuildPreview(reverseBW, invert, bvis, grayize, blackize, static_cast<int>(std::trunc(o->previewRotation)),
                          o->previewFlipV, o->previewFlipH, o->previewContrast, o->previewBright, o->previewGamma,
                          o->previewHist);
}

}  // namespace

void PaintPreview(HWND control)
{
    OptionContext* o = Options();
    RECT client = {};
    GetClientRect(control, &client);
    long width = 0, height = 0;
    o->previewDewey->GetInfo(&width, &height, nullptr, nullptr, nullptr);
    // The control's size gives the aspect (FitPreview's work): the picture
    // is stretched over all of it.
    RECT source = {0, 0, static_cast<LONG>(width), static_cast<LONG>(height)};
    RECT target = {0, 0, client.right - client.left, client.bottom - client.top};
    Huey* view = new Huey(o->previewDewey);
    if (view == nullptr)
        return;
    view->AttachWindow(control, nullptr);
    view->Paint(&source, &target);
    delete view;
}

void FitPreview(HWND control, float angle, int frameId)
{
    const OptionContext* o = Options();
    HWND parent = GetParent(control);
    RECT frame = {};
    GetWindowRect(GetDlgItem(parent, frameId), &frame);
    long fw = frame.right - frame.left;
    long fh = frame.bottom - frame.top;
    long width = 0, height = 0;
    o->sourceDewey->GetInfo(&width, &height, nullptr, nullptr, nullptr);
    // The real image's aspect, not the thumbnail's, which has lost to
    // rounding.
    double s = std::min(double(fw) / double(width), double(fh) / double(height));
    double rw = 0, rh = 0;
    GetRotatedSize(angle, width * s, height * s, &rw, &rh);
    double s2 = std::min(double(fw) / rw, double(fh) / rh);
    long cw = static_cast<long>(std::trunc(s2 * rw));
    long ch = static_cast<long>(std::trunc(s2 * rh));
    POINT corner = {static_cast<LONG>(frame.left + (fw - cw) / 2), static_cast<LONG>(frame.top + (fh - ch) / 2)};
    ScreenToClient(parent, &corner);
    MoveWindow(control, corner.x, corner.y, cw, ch, FALSE);
}

short RebuildPreview(int reverseBW, int invert, int bvis, int grayize, int blackize, int angle, int flipV,
                     int flipH, short contrast, short bright, short gamma, int hist)
{
    OptionContext* o = Options();
    if (o->previewDewey == nullptr || o->previewBase == nullptr)
        return 1;
    delete o->previewDewey;
    o->previewDewey = new Dewey;
    if (o->previewDewey == nullptr)
        return 1;
    short status = DoClone(o->previewBase, &o->previewDewey);
    if (status != 0)
        return status;
    Dewey* picture = o->previewDewey;
    picture->Rotate(static_cast<short>(angle), static_cast<short>(flipV), static_cast<short>(flipH));
    // Equalisation stands in place of the three values, not on top of them.
    if (hist)
        picture->Equalize();
    else
        picture->Gamma(contrast, bright, gamma);
    WriteBVis(bvis);
    if (reverseBW)
        picture->ReverseBW();
    if (invert)
        picture->Invert();
    if (grayize)
        picture->Grayize();
    if (blackize)
        picture->Blackize();
    return 0;
}

short SetPreviewGamma(short contrast, short bright, short gamma, int hist)
{
    OptionContext* o = Options();
    if (contrast == o->previewContrast && bright == o->previewBright && gamma == o->previewGamma &&
        hist == o->previewHist)
        return 0;
    short status = RebuildPreview(o->previewReverseBW, o->previewInvert, o->previewBVis, o->previewGrayize,
                                  o->previewBlackize, static_cast<int>(std::trunc(o->previewRotation)),
                                  o->previewFlipV, o->previewFlipH, contrast, bright, gamma, hist);
    // Stored whatever the status: a repeat of the same values does nothing.
    o->previewContrast = contrast;
    o->previewBright = bright;
    o->previewGamma = gamma;
    o->previewHist = hist;
    return status;
}

short SetPreviewRotation(float angle, int flipV, int flipH)
{
    OptionContext* o = Options();
    if (angle == o->previewRotation && flipV == o->previewFlipV && flipH == o->previewFlipH)
        return 0;
    short status = RebuildPreview(o->previewReverseBW, o->previewInvert, o->previewBVis, o->previewGrayize,
                                  o->previewBlackize, static_cast<int>(std::trunc(angle)), flipV, flipH,
                                  o->previewContrast, o->previewBright, o->previewGamma, o->previewHist);
    o->previewRotation = angle;
    o->previewFlipV = flipV;
    o->previewFlipH = flipH;
    return status;
}

int SetPreviewFlags(int reverseBW, int invert, int bvis, int grayize, int blackize)
{
    OptionContext* o = Options();
    if (o->previewDewey == nullptr)
        return 0;
    int changed = 0;
    if (bvis != o->previewBVis) {
        WriteBVis(bvis);
        o->previewBVis = bvis;
        changed = 1;
    }
    // Switching an effect on is one call on the picture as it is; switching
    // it off rebuilds, which puts the others back in their order. The
    // rebuild takes this call's arguments, the effect in question cleared.
    if (reverseBW != o->previewReverseBW) {
        if (reverseBW)
            o->previewDewey->ReverseBW();
        else
            RebuildWithStored(0, invert, bvis, grayize, blackize);
        o->previewReverseBW = reverseBW;
        changed = 1;
    }
    if (invert != o->previewInvert) {
        if (invert)
            o->previewDewey->Invert();
        else
            RebuildWithStored(reverseBW, 0, bvis, grayize, blackize);
        o->previewInvert = invert;
        changed = 1;
    }
    if (grayize != o->previewGrayize) {
        if (grayize)
            o->previewDewey->Grayize();
        else
            RebuildWithStored(reverseBW, invert, bvis, 0, blackize);
        o->previewGrayize = grayize;
        changed = 1;
    }
    if (blackize != o->previewBlackize) {
        if (blackize)
            o->previewDewey->Blackize();
        else
            RebuildWithStored(reverseBW, invert, bvis, grayize, 0);
        o->previewBlackize = blackize;
        changed = 1;
    }
    return changed;
}

short ReplayPreviewTags(const char* rotKey, const char* prefix)
{
    OptionContext* o = Options();
    if (o->previewDewey == nullptr)
        return 1;
    using Key = zv::TagKey;
    float angle = static_cast<float>(360.0 - ZvGetFloatTag(o->tags, Key(rotKey, "ROT")));
    int flipV = TagIsOn(o->tags, Key(prefix, "FLIPV"));
    int flipH = TagIsOn(o->tags, Key(prefix, "FLIPH"));
    short status = SetPreviewRotation(angle, flipV, flipH);
    if (status != 0)
        return status;
    int hist = TagIsOn(o->tags, Key(prefix, "HIST"));
    short contrast = static_cast<short>(ZvGetIntTag(o->tags, Key(prefix, "CONTRAST")));
    short bright = static_cast<short>(ZvGetIntTag(o->tags, Key(prefix, "BRIGHT")));
    short gamma = static_cast<short>(ZvGetIntTag(o->tags, Key(prefix, "GAMMA")));
    status = SetPreviewGamma(contrast, bright, gamma, hist);
    if (status != 0)
        return status;
    // The effects go straight to the picture, after the rebuild above.
    o->previewReverseBW = TagIsOn(o->tags, Key(prefix, "REVBW"));
    if (o->previewReverseBW)
        o->previewDewey->ReverseBW();
    o->previewInvert = TagIsOn(o->tags, Key(prefix, "INV"));
    if (o->previewInvert)
        o->previewDewey->Invert();
    o->previewGrayize = 0;
    o->previewBlackize = 0;
    const char* cog = ZvGetTag(o->tags, Key(prefix, "COG"));
    if (cog != nullptr && lstrcmpiA(cog, "G") == 0) {
        o->previewDewey->Grayize();
        o->previewGrayize = 1;
    } else if (cog != nullptr && lstrcmpiA(cog, "B") == 0) {
        o->previewDewey->Blackize();
        o->previewBlackize = 1;
    }
    o->previewBVis = TagIsOn(o->tags, Key(prefix, "BVIS"));
    return 0;
}
