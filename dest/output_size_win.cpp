// The size logic of the output pages on their controls: it keeps the width,
// height and resolution edits in step while the user types, enables the
// size controls by scaling mode, units and flavour, and moves everything
// between the controls and the tags. The numbers themselves are worked out
// in output_size.cpp.
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "module.h"
#include "option_core.h"
#include "ravicli.h"
#include "resource_ids.h"
#include "scoped_flag.h"
#include "seams.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::OutputSizeState;

namespace {

constexpr int kNumberText = 32;  // an edit's number is read from at most 31 characters

using Key = zv::TagKey;

TagSet* Tags()
{
    return Options()->tags;
}

const char* DestKey()
{
    return Options()->destKey;
}

// The internal extension of the source, as the first part of conversion keys.
void SourcePart(char (&out)[zv::kKeySize])
{
    OptionContext* context = Options();
    const char* internal = context->srcExt[0] ? ZvGetInternalExt(context->formats, context->srcExt) : "";
    zv::CopyBounded(out, internal ? internal : "");
}

bool Exists(HWND dialog, int id)
{
    return GetDlgItem(dialog, id) != nullptr;
}

void Enable(HWND dialog, int id, bool enable)
{
    if (HWND control = GetDlgItem(dialog, id))
        EnableWindow(control, enable ? TRUE : FALSE);
}

void SetText(HWND dialog, int id, const char* text)
{
    if (HWND control = GetDlgItem(dialog, id))
        SetWindowTextA(control, text);
}

bool IsChecked(HWND dialog, int id)
{
    HWND box = GetDlgItem(dialog, id);
    return box != nullptr && SendMessageA(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void SetCheck(HWND dialog, int id, bool checked)
{
    if (HWND box = GetDlgItem(dialog, id))
        SendMessageA(box, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

int Selection(HWND dialog, int id)
{
    HWND combo = GetDlgItem(dialog, id);
    return combo ? static_cast<int>(SendMessageA(combo, CB_GETCURSEL, 0, 0)) : CB_ERR;
}

// The shown text of a combo's selection; empty when nothing is selected.
void SelectedText(HWND dialog, int id, char (&out)[256])
{
    out[0] = '\0';
    HWND combo = GetDlgItem(dialog, id);
    const int selection = Selection(dialog, id);
    if (combo == nullptr || selection < 0)
        return;
    const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, selection, 0);
    if (length < 0 || length >= static_cast<LRESULT>(sizeof out))
        return;
    SendMessageA(combo, CB_GETLBTEXT, selection, reinterpret_cast<LPARAM>(out));
}

double ReadNumber(HWND dialog, int id)
{
    char text[kNumberText] = {};
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return StringToDouble(text);
}

// The text a size edit shows for a number: rounded to the step of the unit.
void WriteRounded(HWND dialog, int id, double value, double step)
{
    char text[kNumberText];
    DoubleToString(text, RoundOff(value, step));
    SetText(dialog, id, text);
}

int ScalingListId()
{
    return Options()->operation == 0 ? IDS_SCALING_IN_HAND : IDS_SCALING_FILE;
}

// Writes an edit of the page itself: its EN_CHANGE is not a user's.
void WriteGuarded(HWND dialog, int id, double value, OutputSizeState* state)
{
    ScopedFlag updating(state->updating);
    WriteRounded(dialog, id, value, state->roundStep);
}

bool TypedByUser(HWND dialog, WPARAM wParam, const OutputSizeState* state)
{
    if (state->updating != 0 || HIWORD(wParam) != EN_CHANGE)
        return false;
    // In the distorting modes width and height are independent numbers:
    // the text stands as typed until the page is left.
    const int mode = Selection(dialog, IDC_OUT_SCALING);
    return mode != 3 && mode != 4;
}

void ShowMetafileControls(HWND dialog)
{
    for (int id : {IDC_VEC_CURVE_LABEL, IDC_VEC_CURVE, IDC_VEC_STROKE_FONTS, IDC_VEC_STROKE_LINES,
                   IDC_VEC_STROKE_GRADIENTS})
        if (HWND control = GetDlgItem(dialog, id))
            ShowWindow(control, SW_SHOW);
}

// The sheet's caption: the metafile title for a metafile destination, and
// the destination's extension in front of it when converting to a file.
void SetSheetCaption(HWND dialog)
{
    OptionContext* context = Options();
    HWND sheet = GetParent(dialog);
    if (sheet == nullptr || !IsWindow(sheet))
        return;
    if (context->destType == 3) {
        char caption[128];
        if (LoadStringA(LibraryModule(), IDS_METAFILE_OPTIONS, caption, sizeof caption) > 0)
            SetWindowTextA(sheet, caption);
    }
    if (context->operation == 2)
        PutDestinationInCaption(sheet);
}

void DisplayChecks(HWND dialog, const char* prefix)
{
    TagSet* tags = Tags();
    const char* k = DestKey();
    DisplayCheckBoxTag(dialog, IDC_OUT_SMOOTH, prefix, "SMOOTH", tags);
    DisplayCheckBoxTag(dialog, IDC_OUT_COMPRESS, k, "COMP", tags);
    DisplayCheckBoxTag(dialog, IDC_OUT_REVERSE, prefix, "REVBW", tags);
    DisplayCheckBoxTag(dialog, IDC_OUT_INVERT, prefix, "INV", tags);
    DisplayCheckBoxTag(dialog, IDC_OUT_REVEAL, prefix, "BVIS", tags);
    DisplayCheckBoxTag(dialog, IDC_OUT_MEMORIZE, nullptr, "MEMORIZE", tags);
    const char* cog = ZvGetTag(tags, Key(prefix, "COG"));
    if (cog != nullptr && zv::EqualNoCase(cog, "G"))
        SetCheck(dialog, IDC_OUT_GRAYSCALE, true);
    else if (cog != nullptr && zv::EqualNoCase(cog, "B"))
        SetCheck(dialog, IDC_OUT_ALLBLACK, true);
}

void DisplayMetafileChoices(HWND dialog, const char* prefix)
{
    OptionContext* context = Options();
    const char* k = DestKey();
    ZvLoadFlavorsList(context->formats, dialog, IDC_VEC_FLAVOR, IDC_VEC_FLAVOR_LABEL, k, context->tags);
    LoadList(dialog, IDC_VEC_CURVE, IDC_VEC_CURVE_LABEL, IDS_CURVE_SHOWN, IDS_CURVE_VALUES, k, "CRV", LibraryModule(),
             context->tags);
    DisplayCheckBoxTag(dialog, IDC_VEC_STROKE_FONTS, k, "STK", context->tags);
    DisplayCheckBoxTag(dialog, IDC_VEC_STROKE_LINES, prefix, "STKLINE", context->tags);
    DisplayCheckBoxTag(dialog, IDC_VEC_STROKE_GRADIENTS, k, "STKGRAD", context->tags);
}

int PreviewFlagsWith(int id, int checked)
{
    OptionContext* c = Options();
    int reverse = c->previewReverseBW, invert = c->previewInvert, reveal = c->previewBVis;
    int gray = c->previewGrayize, black = c->previewBlackize;
    switch (id) {
    case IDC_OUT_REVERSE: reverse = checked; break;
    case IDC_OUT_INVERT: invert = checked; break;
    case IDC_OUT_REVEAL: reveal = checked; break;
    case IDC_OUT_GRAYSCALE: gray = checked; break;
    case IDC_OUT_ALLBLACK: black = checked; break;
    default: break;
    }
    return SetPreviewFlags(reverse, invert, reveal, gray, black);
}

// A Macintosh picture saved to a file has a size of its own.
bool MacintoshFile()
{
    OptionContext* context = Options();
    return context->operation == 2 && zv::EqualNoCase(ZvGetInternalExt(context->formats, context->destKey), "MAC");
}

void OnScalingChange(HWND dialog)
{
    UpdateScalingControls(dialog);
    UpdateResolutionControls(dialog);
}

}  // namespace

void MakeOutputKeys(char* keyPrefix, std::size_t keyPrefixSize, char (&prefix)[zv::kKeySize])
{
    OptionContext* context = Options();
    if (context->operation == 5)
        zv::CopyBounded(context->destKey, "CLP");
    else if (context->operation != 2 && context->operation != 6)
        zv::CopyBounded(context->destKey, "~~~");
    char source[zv::kKeySize];
    SourcePart(source);
    zv::MakeKey(prefix, source, context->destKey);
    zv::CopyBounded(keyPrefix, keyPrefixSize, prefix);
}

void PutDestinationInCaption(HWND window)
{
    char present[zv::kCaptionSize] = {};
    GetWindowTextA(window, present, sizeof present);
    char caption[zv::kCaptionSize];
    zv::CopyBounded(caption, Options()->destExt);
    zv::AppendBounded(caption, " ");
    zv::AppendBounded(caption, present);
    SetWindowTextA(window, caption);
}

void InitOutputPage(HWND dialog, OutputSizeState* state)
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    state->updating = 0;

    char prefix[zv::kKeySize];
    MakeOutputKeys(state->keyPrefix, sizeof state->keyPrefix, prefix);
    const char* k = context->destKey;

    const char* units = ZvGetTag(tags, Key(k, "UNITS"));
    zv::CopyBounded(state->units, units != nullptr && units[0] ? units : "IN");
    zv::CopyBounded(state->lastUnits, state->units);
    if (!zv::EqualNoCase(k, "PCL") && !zv::EqualNoCase(k, "OGF"))
        Enable(dialog, IDC_OUT_COMPRESS, false);

    // While the page lives its resolutions are in dots per inch.
    ResolutionToDPI(tags, k);
    state->horzRes = zv::ResolutionOrDefault(ZvGetFloatTag(tags, Key(k, "HR")));
    state->vertRes = zv::ResolutionOrDefault(ZvGetFloatTag(tags, Key(k, "VR")));
    state->width = ZvGetFloatTag(tags, Key(k, "W"));
    state->height = ZvGetFloatTag(tags, Key(k, "H"));
    if (state->width == 0.0 && state->height == 0.0 && ZvGetFloatTag(tags, Key(k, "A")) == 0.0)
        ZvSetTag(tags, Key(k, "A"), "1");
    state->pixelWidth = zv::ToPixels(state->width, state->units, state->horzRes);
    state->pixelHeight = zv::ToPixels(state->height, state->units, state->vertRes);

    if (context->destType == 3)
        ShowMetafileControls(dialog);
    SetSheetCaption(dialog);
    state->roundStep = zv::RoundStepFor(state->units);

    ZvLoadFlavorsList(context->formats, dialog, IDC_OUT_FLAVOR, IDC_OUT_FLAVOR_LABEL, k, tags);
    LoadList(dialog, IDC_OUT_UNITS, IDC_OUT_UNITS_LABEL, IDS_UNITS_SHOWN, IDS_UNITS_VALUES, k, "UNITS", LibraryModule(),
             tags);
    LoadList(dialog, IDC_OUT_SCALING, IDC_OUT_SCALING_LABEL, ScalingListId(), 0, k, "SCALING", LibraryModule(), tags);

    state->width = ZvGetFloatTag(tags, Key(k, "W"));
    state->height = ZvGetFloatTag(tags, Key(k, "H"));
    state->horzRes = ZvGetFloatTag(tags, Key(k, "HR"));
    state->vertRes = ZvGetFloatTag(tags, Key(k, "VR"));
    state->aspect = DisplayEditFloatTag(dialog, IDC_OUT_ASPECT, k, "A", tags);
    if (state->aspect == 0.0)
        state->aspect = 1.0;

    // With no size of its own the page starts from the image in hand, so
    // that its ratio links the first size typed.
    if (context->sourceDewey != nullptr && state->width == 0.0 && state->height == 0.0) {
        long w = 0, h = 0;
        short xPitch = 0, yPitch = 0;
        context->sourceDewey->GetInfo(&w, &h, &xPitch, &yPitch, nullptr);
        state->width = static_cast<double>(w);
        state->height = static_cast<double>(h);
        state->horzRes = zv::PitchToResolution(xPitch);
        state->vertRes = zv::PitchToResolution(yPitch);
    }
    const double physical = zv::PhysicalAspect(state->width, state->height, state->horzRes, state->vertRes);
    if (physical != 0.0)
        state->aspect = physical;

    // These writes come back through OnOutputCommand as if typed.
    DisplayEditFloatTag(dialog, IDC_OUT_WIDTH, k, "W", tags);
    DisplayEditFloatTag(dialog, IDC_OUT_HEIGHT, k, "H", tags);
    DisplayEditFloatTag(dialog, IDC_OUT_HORZRES, k, "HR", tags);
    DisplayEditFloatTag(dialog, IDC_OUT_VERTRES, k, "VR", tags);

    // A resolution switched off shows as "0", not as an empty edit.
    const char* xres = ZvGetTag(tags, Key(k, "XRES"));
    if (ZvGetFloatTag(tags, Key(k, "HR")) == 0.0 && xres != nullptr && zv::EqualNoCase(xres, "OFF"))
        SetText(dialog, IDC_OUT_HORZRES, "0");
    const char* yres = ZvGetTag(tags, Key(k, "YRES"));
    if (ZvGetFloatTag(tags, Key(k, "VR")) == 0.0 && yres != nullptr && zv::EqualNoCase(yres, "OFF"))
        SetText(dialog, IDC_OUT_VERTRES, "0");

    DisplayChecks(dialog, prefix);
    UpdateScalingControls(dialog);
    UpdateResolutionControls(dialog);
    if (context->destType == 3)
        DisplayMetafileChoices(dialog, prefix);
}

int OnOutputCommand(HWND dialog, WPARAM wParam, LPARAM lParam, OutputSizeState* state)
{
    (void)lParam;
    const int id = LOWORD(wParam);
    switch (id) {
    case IDHELP:
        ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, 0), kOutputPagesHelp);
        return 1;
    case IDC_OUT_FLAVOR:
        UpdateResolutionControls(dialog);
        return 1;
    case IDC_OUT_UNITS:
        OnUnitsChange(dialog, wParam, state);
        return 1;
    case IDC_OUT_SCALING:
        OnScalingChange(dialog);
        return 1;
    case IDC_OUT_WIDTH:
        state->width = OnWidthChange(dialog, wParam, state);
        return 1;
    case IDC_OUT_HEIGHT:
        state->height = OnHeightChange(dialog, wParam, state);
        return 1;
    case IDC_OUT_HORZRES:
        state->horzRes = OnHorzResChange(dialog, wParam, state);
        return 1;
    case IDC_OUT_VERTRES:
        state->vertRes = OnVertResChange(dialog, wParam, state);
        return 1;
    case IDC_OUT_GRAYSCALE:
        OnGrayscaleClick(dialog);
        return 1;
    case IDC_OUT_ALLBLACK:
        OnAllBlackClick(dialog);
        return 1;
    case IDC_OUT_REVERSE:
    case IDC_OUT_INVERT:
    case IDC_OUT_REVEAL:
        PreviewFlagsWith(id, IsChecked(dialog, id) ? 1 : 0);
        return 1;
    default:
        return 0;
    }
}

double OnWidthChange(HWND dialog, WPARAM wParam, OutputSizeState* state)
{
    double result = state->width;
    const bool multiples = zv::IsMultiples(state->units);
    if (TypedByUser(dialog, wParam, state)) {
        result = ReadNumber(dialog, IDC_OUT_WIDTH);
        const double other = zv::LinkedHeight(result, state->aspect, multiples);
        if (other != state->height) {
            state->height = other;
            WriteGuarded(dialog, IDC_OUT_HEIGHT, state->height, state);
        }
    }
    if (!multiples)
        state->pixelWidth = zv::ToPixels(result, state->units, state->horzRes);
    return result;
}

double OnHeightChange(HWND dialog, WPARAM wParam, OutputSizeState* state)
{
    double result = state->height;
    const bool multiples = zv::IsMultiples(state->units);
    if (TypedByUser(dialog, wParam, state)) {
        result = ReadNumber(dialog, IDC_OUT_HEIGHT);
        const double other = zv::LinkedWidth(result, state->aspect, multiples);
        if (other != state->width) {
            state->width = other;
            WriteGuarded(dialog, IDC_OUT_WIDTH, state->width, state);
        }
    }
    if (!multiples)
        state->pixelHeight = zv::ToPixels(result, state->units, state->vertRes);
    return result;
}

namespace {

double OnResolutionChange(HWND dialog, int id, WPARAM wParam, double present)
{
    if (HIWORD(wParam) != EN_CHANGE)
        return present;
    return zv::ResolutionOrDefault(ReadNumber(dialog, id));
}

}  // namespace

double OnHorzResChange(HWND dialog, WPARAM wParam, OutputSizeState* state)
{
    return OnResolutionChange(dialog, IDC_OUT_HORZRES, wParam, state->horzRes);
}

double OnVertResChange(HWND dialog, WPARAM wParam, OutputSizeState* state)
{
    return OnResolutionChange(dialog, IDC_OUT_VERTRES, wParam, state->vertRes);
}

void OnUnitsChange(HWND dialog, WPARAM wParam, OutputSizeState* state)
{
    ScopedFlag updating(state->updating);
    UpdateScalingControls(dialog);
    UpdateResolutionControls(dialog);
    if (HIWORD(wParam) == CBN_SELCHANGE) {
        char shown[256];
        SelectedText(dialog, IDC_OUT_UNITS, shown);
        const int index = GetListIndex(IDS_UNITS_SHOWN, shown, LibraryModule());
        char value[64] = {};
        GetListItem(IDS_UNITS_VALUES, index, LibraryModule(), value, sizeof value);
        if (zv::ChangeRecordUnits(*state, value[0] ? value : "IN")) {
            // A size that was not set stays empty in any unit.
            if (state->width == 0.0)
                SetText(dialog, IDC_OUT_WIDTH, "");
            else
                WriteRounded(dialog, IDC_OUT_WIDTH, state->width, state->roundStep);
            if (state->height == 0.0)
                SetText(dialog, IDC_OUT_HEIGHT, "");
            else
                WriteRounded(dialog, IDC_OUT_HEIGHT, state->height, state->roundStep);
        }
    }
}

void UpdateScalingControls(HWND dialog)
{
    if (!Exists(dialog, IDC_OUT_SCALING))
        return;
    OptionContext* context = Options();
    const char* internal = ZvGetInternalExt(context->formats, context->destKey);
    const double factor = ZvGetFloatTag(context->tags, Key(internal, "A"));
    char aspectText[kNumberText];
    if (factor == 0.0)
        zv::CopyBounded(aspectText, "1");
    else
        DoubleToString(aspectText, factor);

    const zv::ScalingRule& rule = zv::ScalingRuleOf(Selection(dialog, IDC_OUT_SCALING));
    Enable(dialog, IDC_OUT_WIDTH, rule.widthEnabled);
    Enable(dialog, IDC_OUT_WIDTH_LABEL, rule.widthEnabled);
    Enable(dialog, IDC_OUT_HEIGHT, rule.heightEnabled);
    Enable(dialog, IDC_OUT_HEIGHT_LABEL, rule.heightEnabled);
    Enable(dialog, IDC_OUT_ASPECT, rule.aspectEnabled);
    Enable(dialog, IDC_OUT_ASPECT_LABEL, rule.aspectEnabled);
    SetText(dialog, IDC_OUT_ASPECT, rule.aspectShown ? aspectText : "");

    if (MacintoshFile()) {
        for (int id : {IDC_OUT_WIDTH, IDC_OUT_WIDTH_LABEL, IDC_OUT_HEIGHT, IDC_OUT_HEIGHT_LABEL, IDC_OUT_SCALING,
                       IDC_OUT_SCALING_LABEL, IDC_OUT_UNITS, IDC_OUT_UNITS_LABEL, IDC_OUT_HORZRES,
                       IDC_OUT_HORZRES_LABEL, IDC_OUT_VERTRES, IDC_OUT_VERTRES_LABEL})
            Enable(dialog, id, false);
    }
}

namespace {

// "Scalable" and "Doc to Help" bitmaps carry no resolution of their own.
bool FlavourWithoutResolution(HWND dialog)
{
    OptionContext* context = Options();
    if (!zv::EqualNoCase(ZvGetInternalExt(context->formats, context->destKey), "BMP"))
        return false;
    char flavour[256];
    SelectedText(dialog, IDC_OUT_FLAVOR, flavour);
    return zv::EqualNoCase(flavour, "Scalable") || zv::EqualNoCase(flavour, "Doc to Help");
}

constexpr int kUnitsPixels = 3;
constexpr int kUnitsMultiples = 4;

}  // namespace

void UpdateResolutionControls(HWND dialog)
{
    if (!Exists(dialog, IDC_OUT_UNITS))
        return;
    const int units = Selection(dialog, IDC_OUT_UNITS);
    // The units and the flavour come second to the Macintosh rule of
    // UpdateScalingControls, which runs first and would be undone here.
    const bool enable = units != kUnitsPixels && !FlavourWithoutResolution(dialog) && !MacintoshFile();
    for (int id : {IDC_OUT_HORZRES_LABEL, IDC_OUT_HORZRES, IDC_OUT_VERTRES_LABEL, IDC_OUT_VERTRES})
        Enable(dialog, id, enable);
    if (units == kUnitsMultiples) {
        Enable(dialog, IDC_OUT_ASPECT_LABEL, false);
        Enable(dialog, IDC_OUT_ASPECT, false);
        SetText(dialog, IDC_OUT_ASPECT, "");
    }
}

int OnGrayscaleClick(HWND dialog)
{
    const bool gray = IsChecked(dialog, IDC_OUT_GRAYSCALE);
    if (gray)
        SetCheck(dialog, IDC_OUT_ALLBLACK, false);
    return PreviewFlagsWith(IDC_OUT_GRAYSCALE, gray ? 1 : 0);
}

int OnAllBlackClick(HWND dialog)
{
    const bool black = IsChecked(dialog, IDC_OUT_ALLBLACK);
    if (black)
        SetCheck(dialog, IDC_OUT_GRAYSCALE, false);
    return PreviewFlagsWith(IDC_OUT_ALLBLACK, black ? 1 : 0);
}

void CopyMultiplesSize(HWND dialog)
{
    if (!Exists(dialog, IDC_OUT_UNITS) || Selection(dialog, IDC_OUT_UNITS) != kUnitsMultiples)
        return;
    TagSet* tags = Options()->tags;
    const char* k = DestKey();
    const char* w = ZvGetTag(tags, Key(k, "W"));
    const char* h = ZvGetTag(tags, Key(k, "H"));
    char copy[64];
    if (w != nullptr && h == nullptr) {
        zv::CopyBounded(copy, w);
        ZvSetTag(tags, Key(k, "H"), copy);
    } else if (w == nullptr && h != nullptr) {
        zv::CopyBounded(copy, h);
        ZvSetTag(tags, Key(k, "W"), copy);
    }
}

void RetrieveOutputPage(HWND dialog, OutputSizeState* state)
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;
    context->pageValid = 1;
    int* valid = &context->pageValid;

    state->horzRes = RetrieveEditFloatTag(dialog, IDC_OUT_HORZRES, IDC_OUT_HORZRES_LABEL, k, "HR", 0.0,
                                          zv::kMaxSizeValue, tags, valid);
    state->vertRes = RetrieveEditFloatTag(dialog, IDC_OUT_VERTRES, IDC_OUT_VERTRES_LABEL, k, "VR", 0.0,
                                          zv::kMaxSizeValue, tags, valid);
    state->horzRes = zv::ResolutionOrDefault(state->horzRes);
    state->vertRes = zv::ResolutionOrDefault(state->vertRes);

    const char* internal = ZvGetInternalExt(context->formats, k);
    if (!zv::EqualNoCase(internal, "TIF")) {
        ZvRetrieveFlavorsList(context->formats, dialog, IDC_OUT_FLAVOR, k, tags);
        if (FlavourWithoutResolution(dialog)) {
            SetText(dialog, IDC_OUT_HORZRES, "0");
            SetText(dialog, IDC_OUT_VERTRES, "0");
        }
    }

    const char* scaling = RetrieveList(dialog, IDC_OUT_SCALING, 0, k, "SCALING", LibraryModule(), tags);
    const int mode = scaling ? GetListIndex(ScalingListId(), scaling, LibraryModule()) : -1;
    ZvSetTag(tags, Key(k, "DISTORT"), mode == 3 || mode == 4 ? "ON" : "OFF");

    const char* retrieved = RetrieveList(dialog, IDC_OUT_UNITS, IDS_UNITS_VALUES, k, "UNITS", LibraryModule(), tags);
    char units[64];
    zv::CopyBounded(units, retrieved ? retrieved : "");
    const bool inHand = context->operation == 0;
    const zv::SizeBounds widthBounds = zv::OutputSizeBounds(units, state->horzRes, inHand);
    const zv::SizeBounds heightBounds = zv::OutputSizeBounds(units, state->vertRes, inHand);
    state->width = RetrieveEditFloatTag(dialog, IDC_OUT_WIDTH, IDC_OUT_WIDTH_LABEL, k, "W", widthBounds.min,
                                        widthBounds.max, tags, valid);
    state->height = RetrieveEditFloatTag(dialog, IDC_OUT_HEIGHT, IDC_OUT_HEIGHT_LABEL, k, "H", heightBounds.min,
                                         heightBounds.max, tags, valid);
    // The link divides by the aspect when the user comes back to the page.
    // An edit that the scaling mode emptied says nothing about the picture,
    // so the ratio the link had stays: the size typed next keeps the
    // image's proportions, as it did before the page was left.
    const double aspect =
        RetrieveEditFloatTag(dialog, IDC_OUT_ASPECT, IDC_OUT_ASPECT_LABEL, k, "A", 0.0, zv::kMaxSizeValue, tags, valid);
    if (aspect != 0.0)
        state->aspect = aspect;

    char source[zv::kKeySize];
    SourcePart(source);
    char prefix[zv::kKeySize];
    zv::MakeKey(prefix, source, k);
    RetrieveCheckBoxTag(dialog, IDC_OUT_SMOOTH, prefix, "SMOOTH", tags);
    RetrieveCheckBoxTag(dialog, IDC_OUT_COMPRESS, k, "COMP", tags);
    RetrieveCheckBoxTag(dialog, IDC_OUT_REVERSE, prefix, "REVBW", tags);
    RetrieveCheckBoxTag(dialog, IDC_OUT_INVERT, prefix, "INV", tags);
    RetrieveCheckBoxTag(dialog, IDC_OUT_REVEAL, prefix, "BVIS", tags);
    RetrieveCheckBoxTag(dialog, IDC_OUT_MEMORIZE, nullptr, "MEMORIZE", tags);
    if (const char* memorize = ZvGetTag(tags, "MEMORIZE")) {
        char value[16];
        zv::CopyBounded(value, memorize);
        ZvSetGlobalTag(tags, "MEMORIZE", value);
    }

    const char* cog = "C";
    if (IsChecked(dialog, IDC_OUT_GRAYSCALE))
        cog = "G";
    else if (IsChecked(dialog, IDC_OUT_ALLBLACK))
        cog = "B";
    ZvSetTag(tags, Key(prefix, "COG"), cog);

    if (context->destType == 3) {
        RetrieveList(dialog, IDC_VEC_CURVE, IDS_CURVE_VALUES, k, "CRV", LibraryModule(), tags);
        RetrieveCheckBoxTag(dialog, IDC_VEC_STROKE_FONTS, k, "STK", tags);
        RetrieveCheckBoxTag(dialog, IDC_VEC_STROKE_LINES, prefix, "STKLINE", tags);
        RetrieveCheckBoxTag(dialog, IDC_VEC_STROKE_GRADIENTS, k, "STKGRAD", tags);
    }

    char text[kNumberText] = {};
    GetDlgItemTextA(dialog, IDC_OUT_HORZRES, text, sizeof text);
    ZvSetTag(tags, Key(k, "XRES"), Exists(dialog, IDC_OUT_HORZRES) && std::strcmp(text, "0") == 0 ? "OFF" : "");
    text[0] = '\0';
    GetDlgItemTextA(dialog, IDC_OUT_VERTRES, text, sizeof text);
    ZvSetTag(tags, Key(k, "YRES"), Exists(dialog, IDC_OUT_VERTRES) && std::strcmp(text, "0") == 0 ? "OFF" : "");

    CopyMultiplesSize(dialog);
}

void ReportPageOutOfMemory(HWND dialog)
{
    OptionContext* context = Options();
    SeamMessageBeep(0);
    char text[128] = {};
    LoadStringA(LibraryModule(), IDS_OUT_OF_MEMORY, text, sizeof text);
    SeamMessageBox(context->parentWnd, text, context->appTitle, MB_ICONHAND);
    EndDialog(dialog, 0);
}

bool AnswerOutputPageHelp(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* answer)
{
    return AnswerPageHelp(message, wParam, lParam, kOutputPagesHelp, answer);
}

bool AnswerPageHelp(UINT message, WPARAM wParam, LPARAM lParam, unsigned long topic, LRESULT* answer)
{
    switch (message) {
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code != PSN_HELP)
            return false;
        ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, 0), topic);
        *answer = 0;
        return true;
    case WM_HELP:
        ShowContextHelp(WM_COMMAND, MAKEWPARAM(IDHELP, 0), topic);
        *answer = TRUE;
        return true;
    case WM_CONTEXTMENU:
        ShowContextHelp(message, wParam, lParam);
        *answer = 0;
        return true;
    default:
        return false;
    }
}
