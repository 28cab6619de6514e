// The number of colours page. The depth tag "DEP" is kept in bits per pixel;
// while the page is open it holds the list's own text, and it is turned back
// however the page closes: at PSN_KILLACTIVE and in OnCancel.
#include "adjust.h"

#include <initializer_list>
#include "bounded_text.h"
#include "core_win.h"
#include "depth_forms.h"
#include "dest.h"
#include "frame.h"
#include "image_ids.h"
#include "module.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

constexpr unsigned long kNumColorsHelp = 1226;
constexpr int kHalftoneOnlyIds[] = {IDC_NUM_SFREQ_LABEL, IDC_NUM_SFREQ};

struct Text {
    char text[512] = {};
    explicit Text(UINT id) { LoadStringA(LibraryModule(), id, text, sizeof text); }
};

// A destination whose depths the registry names by bits rather than by
// numbers of colours.
bool DepthsNamedByBits()
{
    const OptionContext* o = Options();
    const char* internal = ZvGetInternalExt(o->formats, o->destKey);
    return internal != nullptr && zv::EqualNoCase(internal, "TGA");
}

const char* DepthKey()
{
    static char key[zv::kKeySize];
    zv::MakeKey(key, Options()->destKey, "DEP");
    return key;
}

void ConvertDepthTag(bool toList)
{
    TagSet* tags = Options()->tags;
    const char* value = ZvGetTag(tags, DepthKey());
    if (value == nullptr)
        return;
    char stored[64];
    zv::CopyBounded(stored, value);
    char converted[64] = {};
    if (toList)
        zv::DepthTagToList(stored, DepthsNamedByBits(), Text(IDS_BIT_SUFFIX).text, converted, sizeof converted);
    else
        zv::DepthListToTag(stored, DepthsNamedByBits(), converted, sizeof converted);
    ZvSetTag(tags, DepthKey(), converted);
}

void EnableIds(HWND dialog, std::initializer_list<int> ids, BOOL enable)
{
    for (int id : ids)
        EnableWindow(GetDlgItem(dialog, id), enable);
}

void FillDepthList(HWND dialog)
{
    const OptionContext* o = Options();
    const char* value = ZvGetTag(o->tags, DepthKey());
    const long current = value != nullptr ? StringToLong(value) : 0;
    HWND list = GetDlgItem(dialog, IDC_NUM_LIST);
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Text(IDS_SAME_DEPTH).text));
    for (long colours : zv::kDepthListColours) {
        char text[16];
        LongToString(colours, text);
        SendMessageA(list, LB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(colours == 2 ? Text(IDS_TWO_COLOURS).text : text));
    }
    SendMessageA(list, LB_SETCURSEL, zv::DepthListEntry(current, o->operation == 0), 0);
}

// A format's own list names two colours "2"; the page shows it as black and
// white, keeping the selection.
void NameTwoColours(HWND dialog)
{
    HWND list = GetDlgItem(dialog, IDC_NUM_LIST);
    const int count = static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        if (SendMessageA(list, LB_GETTEXTLEN, i, 0) != 1)
            continue;
        char text[8] = {};
        SendMessageA(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
        if (lstrcmpiA(text, "2") != 0)
            continue;
        const LRESULT selected = SendMessageA(list, LB_GETCURSEL, 0, 0);
        SendMessageA(list, LB_INSERTSTRING, i, reinterpret_cast<LPARAM>(Text(IDS_TWO_COLOURS).text));
        SendMessageA(list, LB_DELETESTRING, i + 1, 0);
        if (selected != LB_ERR)
            SendMessageA(list, LB_SETCURSEL, selected, 0);
        return;
    }
}

void InitNumColorsPage(HWND dialog)
{
    OptionContext* o = Options();
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    if (o->operation == 2)
        PutDestinationInCaption(dialog);
    const long display = GetNumColors(o->parentWnd);
    ConvertDepthTag(true);
    const bool vector = o->operation == 2 ? o->destType == 2 : o->srcType == 2;
    if (vector) {
        EnableIds(dialog, {IDC_NUM_OPAL, IDC_NUM_HALFTONE, IDC_NUM_DIFFUSE, IDC_NUM_LIST_LABEL, IDC_NUM_LIST}, FALSE);
        if (o->operation == 3) {
            EnableIds(dialog, {IDC_NUM_SNAP}, FALSE);
            EnableIds(dialog, {IDC_NUM_HALFTONE}, TRUE);
            ZvSetTag(o->tags, TagKey(prefix, "CPROC"), "HALF");
        } else if (o->operation == 0 && display < 256) {
            EnableIds(dialog, {IDC_NUM_SNAP}, FALSE);
            ZvSetTag(o->tags, TagKey(prefix, "CPROC"), "DITH");
        }
    }
    if (o->operation == 4)
        ZvSetTag(o->tags, DepthKey(), "2");
    if (o->operation == 3 || o->operation == 0)
        FillDepthList(dialog);
    else
        o->formats->LoadDepthList(dialog, IDC_NUM_LIST, IDC_NUM_LIST_LABEL, o->destKey, o->tags);
    NameTwoColours(dialog);
    DisplayEditIntTag(dialog, IDC_NUM_SFREQ, o->destKey, "SFREQ", o->tags);
    DisplayCheckBoxTag(dialog, IDC_NUM_OPAL, prefix, "OPAL", o->tags);
    const int method = DisplayRadioButtonTag(dialog, IDC_NUM_SNAP, IDC_NUM_DIFFUSE, IDS_REDUCTION_VALUES, prefix,
                                             "CPROC", LibraryModule(), o->tags);
    // The screen frequency only applies to halftoning.
    if (method != IDC_NUM_HALFTONE)
        for (int id : kHalftoneOnlyIds)
            EnableWindow(GetDlgItem(dialog, id), FALSE);
    HideApplyButton(dialog);
}

void RetrieveNumColors(HWND dialog)
{
    OptionContext* o = Options();
    o->pageValid = 1;
    char prefix[zv::kKeySize] = {};
    MakeKeyPrefix(prefix);
    RetrieveList(dialog, IDC_NUM_LIST, 0, o->destKey, "DEP", LibraryModule(), o->tags);
    const char* depth = ZvGetTag(o->tags, DepthKey());
    if (depth != nullptr && lstrcmpiA(depth, Text(IDS_TWO_COLOURS).text) == 0)
        ZvSetTag(o->tags, DepthKey(), "2");
    RetrieveEditIntTag(dialog, IDC_NUM_SFREQ, IDC_NUM_SFREQ_LABEL, o->destKey, "SFREQ", 0, 10000, o->tags,
                       &o->pageValid);
    RetrieveCheckBoxTag(dialog, IDC_NUM_OPAL, prefix, "OPAL", o->tags);
    RetrieveRadioButtonTag(dialog, IDC_NUM_SNAP, IDC_NUM_DIFFUSE, IDS_REDUCTION_VALUES, prefix, "CPROC",
                           LibraryModule(), o->tags);
    ConvertDepthTag(false);
}

void OnPaletteClick(HWND dialog)
{
    const OptionContext* o = Options();
    if (o->operation != 0 || IsDlgButtonChecked(dialog, IDC_NUM_OPAL) != BST_CHECKED ||
        GetNumColors(o->parentWnd) >= 256)
        return;
    MessageBoxA(dialog, Text(IDS_OPAL_NEEDS_256).text, o->appTitle, MB_ICONINFORMATION);
}

}  // namespace

CNumColorsPropPage::CNumColorsPropPage() : CPropertyPage(IDD_NUM_COLORS) {}

CNumColorsPropPage::~CNumColorsPropPage() = default;

LRESULT CNumColorsPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    if (AnswerPageHelp(message, wParam, lParam, kNumColorsHelp, &answer))
        return answer;
    HWND dialog = m_hWnd;
    switch (message) {
    case WM_INITDIALOG:
        InitNumColorsPage(dialog);
        return 0;
    case WM_COMMAND: {
        const int id = LOWORD(wParam);
        if (id == IDC_NUM_OPAL) {
            OnPaletteClick(dialog);
        } else if (id >= IDC_NUM_SNAP && id <= IDC_NUM_DIFFUSE) {
            for (int control : kHalftoneOnlyIds)
                ::EnableWindow(::GetDlgItem(dialog, control), id == IDC_NUM_HALFTONE);
        }
        break;
    }
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == PSN_KILLACTIVE) {
            RetrieveNumColors(dialog);
            if (Options()->pageValid == 0)
                return 1;
        }
        break;
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CNumColorsPropPage::OnOK()
{
    OptionContext* o = Options();
    if (o->operation == 0) {
        char prefix[zv::kKeySize] = {};
        MakeKeyPrefix(prefix);
        short bits = 0;
        if (o->sourceDewey != nullptr)
            o->sourceDewey->GetInfo(nullptr, nullptr, nullptr, nullptr, &bits);
        else
            bits = static_cast<short>(zv::BitsOfColours(GetNumColors(o->parentWnd)));
        const char* depth = ZvGetTag(o->tags, DepthKey());
        if (depth != nullptr && lstrcmpiA(depth, Text(IDS_SAME_DEPTH).text) != 0)
            bits = static_cast<short>(StringToInt(depth));
        const short method = static_cast<short>(zv::ReductionMethod(ZvGetTag(o->tags, TagKey(prefix, "CPROC"))));
        const short optimise = TagIsOn(o->tags, TagKey(prefix, "OPAL")) ? 1 : 0;
        // With operation 0 the destination key is "~~~" whatever it was.
        const short screen = static_cast<short>(ZvGetIntTag(o->tags, "~~~SFREQ"));
        if (o->sourceDewey != nullptr)
            o->sourceDewey->Reduce(bits, method, optimise, screen);
    }
    CPropertyPage::OnOK();
}

void CNumColorsPropPage::OnCancel()
{
    // The tag holds the list's form since the page opened.
    ConvertDepthTag(false);
    CPropertyPage::OnCancel();
}
