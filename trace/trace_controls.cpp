// The trace routines: they fill the trace controls from the tags, read them
// back, answer the method buttons, the tolerance's edit and slider, and give
// help. They serve any dialog that carries the control numbers, a host's as
// well as the trace page, and touch neither the option context nor any
// module but this library's: the string lists always come from here.
//
// Each method keeps its own seven option tags under prefix + method + name,
// so a choice made for one method survives a trip to the other.
#include <windows.h>

#include <commctrl.h>

#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "module.h"
#include "resource_ids.h"
#include "seams.h"
#include "trace_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

constexpr const char* kOutline = "OTL";
constexpr const char* kCenterline = "CTR";

// The seven option tags of a method, in the order in which they are copied.
constexpr const char* kMethodTags[] = {"UNDITHER", "SPECKREM", "MAXCOLORS", "GENTOL", "BEZGEN", "ARCGEN", "R2VFW"};

// Context help of the trace controls: pairs of control and topic, ended by
// a pair of zeros, as WinHelpA takes them.
const DWORD kTraceHelpTable[] = {
    4800, 4001, 4801, 4001, 4802, 4001,
    4805, 4002, 4806, 4002, 4807, 4002,
    4808, 4003, 4809, 4003, 4810, 4003,
    4811, 4004,
    4812, 4005,
    4803, 4006, 4804, 4006,
    4813, 4007, 4814, 4007,
    4815, 4008, 4816, 4008,
    4817, 4009, 4818, 4009,
    4822, 4010, 4823, 4010, 4824, 4010, 4825, 4010, 4826, 4010,
    4819, 4011, 4820, 4011, 4821, 4011,
    0, 0,
};

constexpr unsigned long kTraceHelpTopic = 98642;
constexpr int kHelpButton = 9;

void SetDefault(TagSet* tags, const char* key, const char* value)
{
    if (ZvGetTag(tags, key) == nullptr)
        ZvSetTag(tags, key, value);
}

void EnableControl(HWND dialog, int id, bool enable)
{
    if (HWND control = GetDlgItem(dialog, id))
        EnableWindow(control, enable ? TRUE : FALSE);
}

bool ButtonChecked(HWND dialog, int id)
{
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

// The method chosen holds for the source with any destination: the
// destination part of the prefix becomes "?" characters and the tag goes
// to the root, where a cancelled sheet can't take it back.
void StoreGlobalMethod(TagSet* tags, const char* prefix, const char* method)
{
    char key[zv::kKeySize];
    zv::CopyBounded(key, prefix ? prefix : "");
    for (char* c = key; *c; ++c)
        if (*c == '~')
            *c = '?';
    ZvSetGlobalTag(tags, TagKey(key, "TRACE"), method);
}

// Shows the method's speck removal (or its default) in list 4816 by the
// text that stands at the value's place in the shown list.
void ShowSpeckRemoval(HWND dialog, TagSet* tags, const char* prefix, const char* method, const char* fallback)
{
    HWND list = GetDlgItem(dialog, IDC_TRACE_SPECKREM);
    if (!list)
        return;
    const char* value = ZvGetTag(tags, TagKey(prefix, method, "SPECKREM"));
    const int index = GetListIndex(IDS_SPECKREM_VALUES, value ? value : fallback, LibraryModule());
    char text[zv::kCaptionSize] = {};
    GetListItem(IDS_SPECKREM_SHOWN, index, LibraryModule(), text, sizeof text);
    const LRESULT found = SendMessageA(list, CB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text));
    if (found != CB_ERR)
        SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(found), 0);
}

// Shows the method's tolerance (or its default) in edit 4807; its change
// moves the track bar through TraceDoGenTolEdit.
void ShowTolerance(HWND dialog, TagSet* tags, const char* prefix, const char* method, int fallback)
{
    if (!GetDlgItem(dialog, IDC_TRACE_GENTOL))
        return;
    const TagKey key(prefix, method, "GENTOL");
    const int value = ZvGetTag(tags, key) != nullptr ? ZvGetIntTag(tags, key) : fallback;
    SetDlgItemInt(dialog, IDC_TRACE_GENTOL, static_cast<UINT>(value), TRUE);
}

// The controls that differ by method; the rest keep what they show.
void ShowMethod(HWND dialog, TagSet* tags, const char* prefix, bool centerline)
{
    EnableControl(dialog, IDC_TRACE_ARCGEN, centerline);
    EnableControl(dialog, IDC_TRACE_LINEWIDTH_LABEL, centerline);
    EnableControl(dialog, IDC_TRACE_LINEWIDTH, centerline);
    EnableControl(dialog, IDC_TRACE_MAXCOLORS_LABEL, !centerline);
    EnableControl(dialog, IDC_TRACE_MAXCOLORS, !centerline);
    const char* method = centerline ? kCenterline : kOutline;
    StoreGlobalMethod(tags, prefix, method);
    ShowSpeckRemoval(dialog, tags, prefix, method, centerline ? "OFF" : "M");
    ShowTolerance(dialog, tags, prefix, method, centerline ? 6 : 3);
}

}  // namespace

extern "C" {

ZVOPT32_API void TraceCopyOneTag(TagSet* from, TagSet* to, const char* prefix, const char* name)
{
    char key[zv::kKeySize];
    TagSetAccess access(from);
    zv::TraceMakeTag(access, prefix, name, key);
    // An absent tag is handed on as null, which the store takes as no value.
    ZvSetTag(to, key, ZvGetTag(from, key));
}

ZVOPT32_API void TraceCopyTags(TagSet* from, TagSet* to, const char* prefix)
{
    for (const char* name : kMethodTags)
        TraceCopyOneTag(from, to, prefix, name);
}

ZVOPT32_API void TraceInitDialog(HWND dialog, HINSTANCE, TagSet* tags, const char* srcKey, char* destKey,
                                 const char* destExt, char* prefix, short operation)
{
    const HINSTANCE module = LibraryModule();
    if (operation == 2) {
        char old[zv::kCaptionSize] = {};
        GetWindowTextA(dialog, old, sizeof old);
        char caption[zv::kCaptionSize] = {};
        zv::CopyBounded(caption, destExt);
        zv::AppendBounded(caption, " ");
        zv::AppendBounded(caption, old);
        SetWindowTextA(dialog, caption);
    } else if (operation == 5) {
        zv::CopyBounded(destKey, zv::kKeySize, "CLP");
    } else {
        // Unlike the output pages, a destination given by a host (3) traces
        // under the wildcard key too.
        zv::CopyBounded(destKey, zv::kKeySize, "~~~");
    }
    zv::CopyBounded(prefix, zv::kKeySize, TagKey(srcKey ? srcKey : "", destKey));

    SetDefault(tags, TagKey(prefix, "TRACE"), kOutline);
    DisplayRadioButtonTag(dialog, IDC_TRACE_CENTERLINE, IDC_TRACE_OUTLINE, IDS_TRACE_METHOD_VALUES, prefix, "TRACE",
                          module, tags);
    const char* chosen = ZvGetTag(tags, TagKey(prefix, "TRACE"));
    char method[zv::kKeySize];
    zv::CopyBounded(method, TagKey(prefix, chosen ? chosen : ""));
    const bool centerline = chosen != nullptr && zv::EqualNoCase(chosen, kCenterline);

    SetDefault(tags, "TRACEVIEW", "NEW");
    DisplayRadioButtonTag(dialog, IDC_TRACE_VIEW_NEW, IDC_TRACE_VIEW_OVERLAY, IDS_TRACE_VIEW_VALUES, "", "TRACEVIEW",
                          module, tags);

    SetDefault(tags, TagKey(method, "MAXCOLORS"), "16");
    LoadList(dialog, IDC_TRACE_MAXCOLORS, IDC_TRACE_MAXCOLORS_LABEL, IDS_MAXCOLORS_SHOWN, IDS_MAXCOLORS_VALUES, method,
             "MAXCOLORS", module, tags);
    LoadList(dialog, IDC_TRACE_UNDITHER, IDC_TRACE_UNDITHER_LABEL, IDS_UNDITHER_SHOWN, IDS_UNDITHER_VALUES, method,
             "UNDITHER", module, tags);
    LoadList(dialog, IDC_TRACE_SPECKREM, IDC_TRACE_SPECKREM_LABEL, IDS_SPECKREM_SHOWN, IDS_SPECKREM_VALUES, method,
             "SPECKREM", module, tags);
    LoadList(dialog, IDC_TRACE_LINEWIDTH, IDC_TRACE_LINEWIDTH_LABEL, IDS_LINEWIDTH_SHOWN, IDS_LINEWIDTH_VALUES, method,
             "R2VFW", module, tags);

    // Only the outline method starts tight; any other starts looser.
    const bool outline = chosen != nullptr && zv::EqualNoCase(chosen, kOutline);
    SetDefault(tags, TagKey(method, "GENTOL"), outline ? "3" : "6");
    DisplayTrackBarTag(dialog, IDC_TRACE_GENTOL_BAR, IDC_TRACE_GENTOL, method, "GENTOL", 0, 16, tags);
    DisplayCheckBoxTag(dialog, IDC_TRACE_BEZGEN, method, "BEZGEN", tags);
    DisplayCheckBoxTag(dialog, IDC_TRACE_ARCGEN, method, "ARCGEN", tags);

    // A cancelled sheet drops this with the rest of its child set.
    ZvSetTag(tags, TagKey(destKey, "RVFORCE"), "V");

    if (centerline)
        TraceDoCenterlineButton(dialog, module, tags, prefix, 0, 0);
    else
        TraceDoOutlineButton(dialog, module, tags, prefix, 0, 0);
    if (HWND first = GetDlgItem(dialog, IDOK))
        SetFocus(first);
}

ZVOPT32_API void TraceRetrieveTags(HWND dialog, HINSTANCE, TagSet* tags, const char* prefix, int* valid)
{
    const HINSTANCE module = LibraryModule();
    RetrieveRadioButtonTag(dialog, IDC_TRACE_CENTERLINE, IDC_TRACE_OUTLINE, IDS_TRACE_METHOD_VALUES, prefix, "TRACE",
                           module, tags);
    const TagKey methodKey(prefix, "TRACE");
    char chosen[zv::kKeySize] = {};
    if (const char* value = ZvGetTag(tags, methodKey))
        zv::CopyBounded(chosen, value);
    ZvSetGlobalTag(tags, methodKey, chosen);
    char method[zv::kKeySize];
    zv::CopyBounded(method, TagKey(prefix, chosen));

    RetrieveRadioButtonTag(dialog, IDC_TRACE_VIEW_NEW, IDC_TRACE_VIEW_OVERLAY, IDS_TRACE_VIEW_VALUES, "", "TRACEVIEW",
                           module, tags);
    if (const char* view = ZvGetTag(tags, "TRACEVIEW")) {
        char kept[zv::kKeySize];
        zv::CopyBounded(kept, view);
        ZvSetGlobalTag(tags, "TRACEVIEW", kept);
    }

    RetrieveList(dialog, IDC_TRACE_MAXCOLORS, IDS_MAXCOLORS_VALUES, method, "MAXCOLORS", module, tags);
    RetrieveList(dialog, IDC_TRACE_UNDITHER, IDS_UNDITHER_VALUES, method, "UNDITHER", module, tags);
    RetrieveList(dialog, IDC_TRACE_SPECKREM, IDS_SPECKREM_VALUES, method, "SPECKREM", module, tags);
    RetrieveList(dialog, IDC_TRACE_LINEWIDTH, IDS_LINEWIDTH_VALUES, method, "R2VFW", module, tags);
    RetrieveTrackBarTag(dialog, IDC_TRACE_GENTOL_BAR, IDC_TRACE_GENTOL, IDC_TRACE_GENTOL_GROUP, method, "GENTOL", 0, 16,
                        tags, valid);
    RetrieveCheckBoxTag(dialog, IDC_TRACE_BEZGEN, method, "BEZGEN", tags);
    RetrieveCheckBoxTag(dialog, IDC_TRACE_ARCGEN, method, "ARCGEN", tags);
}

ZVOPT32_API void TraceDoCenterlineButton(HWND dialog, HINSTANCE, TagSet* tags, const char* prefix, WPARAM wParam,
                                         LPARAM)
{
    if (wParam == 0 || ButtonChecked(dialog, IDC_TRACE_CENTERLINE))
        ShowMethod(dialog, tags, prefix, true);
}

ZVOPT32_API void TraceDoOutlineButton(HWND dialog, HINSTANCE, TagSet* tags, const char* prefix, WPARAM wParam, LPARAM)
{
    if (wParam == 0 || ButtonChecked(dialog, IDC_TRACE_OUTLINE))
        ShowMethod(dialog, tags, prefix, false);
}

ZVOPT32_API void TraceDoGenTolEdit(HWND dialog, WPARAM wParam, LPARAM)
{
    if (HIWORD(wParam) != EN_CHANGE)
        return;
    const int edit = LOWORD(wParam);
    char text[zv::kCaptionSize] = {};
    GetDlgItemTextA(dialog, edit, text, sizeof text);
    // The track bar carries the number one below its edit.
    SendDlgItemMessageA(dialog, edit - 1, TBM_SETPOS, 1, StringToLong(text));
}

ZVOPT32_API int TraceDoHScroll(HWND dialog, WPARAM wParam, LPARAM lParam)
{
    return HandleTrackBarScroll(dialog, wParam, lParam);
}

ZVOPT32_API void TraceDoHelp(HWND window, const char* helpFile, unsigned int message, WPARAM wParam, LPARAM lParam)
{
    // The help file's folder, with its backslash, and the trace help file.
    char path[zv::kPathSize] = {};
    if (const char* slash = helpFile ? StrChrLast(helpFile, '\\') : nullptr)
        zv::AppendBoundedN(path, sizeof path, helpFile, static_cast<std::size_t>(slash - helpFile) + 1);
    zv::AppendBounded(path, "zvtrace.hlp");

    const auto table = reinterpret_cast<ULONG_PTR>(kTraceHelpTable);
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == kHelpButton)
            SeamWinHelp(window, path, HELP_CONTEXT, kTraceHelpTopic);
        break;
    case WM_HELP:
        if (const auto* info = reinterpret_cast<const HELPINFO*>(lParam))
            SeamWinHelp(static_cast<HWND>(info->hItemHandle), path, HELP_WM_HELP, table);
        break;
    case WM_CONTEXTMENU:
        SeamWinHelp(reinterpret_cast<HWND>(wParam), path, HELP_CONTEXTMENU, table);
        break;
    default:
        break;
    }
}

}  // extern "C"
