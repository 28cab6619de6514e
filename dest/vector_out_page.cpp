// The page of vector destinations. It keeps a smaller model than the other
// output pages: a width and a height in inches, centimetres or picas, no
// link between them, no pixels, no resolution. Its text is always rounded
// to hundredths, and the rounded text is what goes back into the numbers,
// so every change of unit rounds once more.
#include "bounded_text.h"
#include "core_win.h"
#include "dest.h"
#include "module.h"
#include "zvopt32.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

// The unit shown now, and the one the two numbers are in.
char g_units[64];
char g_lastUnits[64];

constexpr int kNumberText = 32;

double ReadNumber(HWND dialog, int id)
{
    char text[kNumberText] = {};
    GetDlgItemTextA(dialog, id, text, sizeof text);
    return StringToDouble(text);
}

// Writes the number rounded to hundredths; its EN_CHANGE takes the rounded
// number back into the page.
void ShowSize(HWND dialog, int id, double value)
{
    char text[kNumberText] = {};
    if (value != 0.0)
        DoubleToString(text, RoundOff(value, 0.01));
    SetDlgItemTextA(dialog, id, text);
}

bool IsChecked(HWND dialog, int id)
{
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

}  // namespace

CVectorOutPropPage::CVectorOutPropPage()
    : CPropertyPage(IDD_VECTOR_OUT), m_width(0.0), m_height(0.0), m_keyPrefix{}
{
}

CVectorOutPropPage::~CVectorOutPropPage() = default;

void CVectorOutPropPage::InitPage()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    zv::CopyBounded(context->destKey, ZvGetInternalExt(context->formats, context->destKey));
    if (context->operation == 2)
        PutDestinationInCaption(m_hWnd);
    char prefix[zv::kKeySize];
    MakeOutputKeys(m_keyPrefix, sizeof m_keyPrefix, prefix);
    const char* k = context->destKey;

    const char* units = ZvGetTag(tags, TagKey(k, "UNITS"));
    zv::CopyBounded(g_units, units != nullptr && units[0] ? units : "IN");
    zv::CopyBounded(g_lastUnits, g_units);

    m_width = ZvGetFloatTag(tags, TagKey(k, "W"));
    m_height = ZvGetFloatTag(tags, TagKey(k, "H"));
    const double aspect = ZvGetFloatTag(tags, TagKey(k, "A"));
    if (m_width == 0.0 && m_height == 0.0 && aspect == 0.0)
        ZvSetTag(tags, TagKey(k, "A"), "1");
    if (!zv::EqualNoCase(k, "OGF"))
        ::EnableWindow(::GetDlgItem(m_hWnd, IDC_VEC_COMPRESS), FALSE);

    ZvLoadFlavorsList(context->formats, m_hWnd, IDC_VEC_FLAVOR, IDC_VEC_FLAVOR_LABEL, k, tags);
    LoadList(m_hWnd, IDC_VEC_CURVE, IDC_VEC_CURVE_LABEL, IDS_CURVE_SHOWN, IDS_CURVE_VALUES, k, "CRV", LibraryModule(),
             tags);
    LoadList(m_hWnd, IDC_VEC_UNITS, IDC_VEC_UNITS_LABEL, IDS_VECTOR_UNITS_SHOWN, IDS_VECTOR_UNITS_VALUES, k, "UNITS",
             LibraryModule(), tags);

    DisplayEditFloatTag(m_hWnd, IDC_VEC_WIDTH, k, "W", tags);
    DisplayEditFloatTag(m_hWnd, IDC_VEC_HEIGHT, k, "H", tags);
    DisplayEditFloatTag(m_hWnd, IDC_VEC_ASPECT, k, "A", tags);

    DisplayCheckBoxTag(m_hWnd, IDC_VEC_COMPRESS, k, "COMP", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_REVERSE, prefix, "REVBW", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_INVERT, prefix, "INV", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_REVEAL, prefix, "BVIS", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_STROKE_FONTS, k, "STK", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_STROKE_LINES, prefix, "STKLINE", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_STROKE_GRADIENTS, k, "STKGRAD", tags);
    DisplayCheckBoxTag(m_hWnd, IDC_VEC_MEMORIZE, nullptr, "MEMORIZE", tags);
    const char* cog = ZvGetTag(tags, TagKey(prefix, "COG"));
    if (cog != nullptr && zv::EqualNoCase(cog, "G"))
        ::CheckDlgButton(m_hWnd, IDC_VEC_GRAYSCALE, BST_CHECKED);
    else if (cog != nullptr && zv::EqualNoCase(cog, "B"))
        ::CheckDlgButton(m_hWnd, IDC_VEC_ALLBLACK, BST_CHECKED);
}

void CVectorOutPropPage::OnUnitChange()
{
    char shown[256] = {};
    const int selection = static_cast<int>(SendDlgItemMessageA(IDC_VEC_UNITS, CB_GETCURSEL));
    if (selection >= 0 && SendDlgItemMessageA(IDC_VEC_UNITS, CB_GETLBTEXTLEN, selection) < LRESULT(sizeof shown))
        SendDlgItemMessageA(IDC_VEC_UNITS, CB_GETLBTEXT, selection, reinterpret_cast<LPARAM>(shown));
    const int index = GetListIndex(IDS_VECTOR_UNITS_SHOWN, shown, LibraryModule());
    char value[64] = {};
    GetListItem(IDS_VECTOR_UNITS_VALUES, index, LibraryModule(), value, sizeof value);
    zv::CopyBounded(g_units, value[0] ? value : "IN");
    if (zv::EqualNoCase(g_units, g_lastUnits))
        return;
    m_width = ConvertUnits(g_lastUnits, g_units, m_width, 0.0, 0.0);
    ShowSize(m_hWnd, IDC_VEC_WIDTH, m_width);
    m_height = ConvertUnits(g_lastUnits, g_units, m_height, 0.0, 0.0);
    ShowSize(m_hWnd, IDC_VEC_HEIGHT, m_height);
    zv::CopyBounded(g_lastUnits, g_units);
}

void CVectorOutPropPage::Retrieve()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;
    context->pageValid = 1;
    int* valid = &context->pageValid;

    ZvRetrieveFlavorsList(context->formats, m_hWnd, IDC_VEC_FLAVOR, k, tags);
    RetrieveList(m_hWnd, IDC_VEC_CURVE, IDS_CURVE_VALUES, k, "CRV", LibraryModule(), tags);
    const char *retrieved =
        RetrieveList(m_hWnd, IDC_VEC_UNITS, IDS_VECTOR_UNITS_VALUES, k, "UNITS", LibraryModule(), tags);
    char units[64];
    zv::CopyBounded(units, retrieved ? retrieved : "");
    const zv::SizeBounds bounds = zv::OutputSizeBounds(units, zv::kDefaultResolution, false);
    RetrieveEditFloatTag(m_hWnd, IDC_VEC_WIDTH, IDC_VEC_WIDTH_LABEL, k, "W", bounds.min, bounds.max, tags, valid);
    RetrieveEditFloatTag(m_hWnd, IDC_VEC_HEIGHT, IDC_VEC_HEIGHT_LABEL, k, "H", bounds.min, bounds.max, tags, valid);
    RetrieveEditFloatTag(m_hWnd, IDC_VEC_ASPECT, IDC_VEC_ASPECT_LABEL, k, "A", 0.0, zv::kMaxSizeValue, tags, valid);

    char source[zv::kKeySize] = {};
    if (context->srcExt[0])
        zv::CopyBounded(source, ZvGetInternalExt(context->formats, context->srcExt));
    char prefix[zv::kKeySize];
    zv::MakeKey(prefix, source, k);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_COMPRESS, k, "COMP", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_REVERSE, prefix, "REVBW", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_INVERT, prefix, "INV", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_REVEAL, prefix, "BVIS", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_STROKE_FONTS, k, "STK", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_STROKE_LINES, prefix, "STKLINE", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_STROKE_GRADIENTS, k, "STKGRAD", tags);
    RetrieveCheckBoxTag(m_hWnd, IDC_VEC_MEMORIZE, nullptr, "MEMORIZE", tags);

    const char* cog = "C";
    if (::GetDlgItem(m_hWnd, IDC_VEC_GRAYSCALE) && IsChecked(m_hWnd, IDC_VEC_GRAYSCALE))
        cog = "G";
    else if (::GetDlgItem(m_hWnd, IDC_VEC_ALLBLACK) && IsChecked(m_hWnd, IDC_VEC_ALLBLACK))
        cog = "B";
    ZvSetTag(tags, TagKey(prefix, "COG"), cog);

    if (context->pageValid == 0)
        return;
    if (const char* memorize = ZvGetTag(tags, "MEMORIZE")) {
        char value[16];
        zv::CopyBounded(value, memorize);
        ZvSetGlobalTag(tags, "MEMORIZE", value);
    }
    ZvSetFloatTag(tags, TagKey(k, "W"), m_width, 32);
    ZvSetFloatTag(tags, TagKey(k, "H"), m_height, 32);
}

LRESULT CVectorOutPropPage::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT answer = 0;
    if (AnswerOutputPageHelp(message, wParam, lParam, &answer))
        return answer;
    switch (message) {
    case WM_INITDIALOG:
        InitPage();
        HideApplyButton(m_hWnd);
        return 0;
    case WM_COMMAND: {
        OptionContext* context = Options();
        const int id = LOWORD(wParam);
        const int code = HIWORD(wParam);
        switch (id) {
        case IDC_VEC_WIDTH:
            if (code == EN_CHANGE)
                m_width = ReadNumber(m_hWnd, IDC_VEC_WIDTH);
            break;
        case IDC_VEC_HEIGHT:
            if (code == EN_CHANGE)
                m_height = ReadNumber(m_hWnd, IDC_VEC_HEIGHT);
            break;
        case IDC_VEC_UNITS:
            if (code == CBN_SELCHANGE)
                OnUnitChange();
            break;
        case IDC_VEC_GRAYSCALE: {
            const int gray = IsChecked(m_hWnd, IDC_VEC_GRAYSCALE) ? 1 : 0;
            if (gray)
                ::CheckDlgButton(m_hWnd, IDC_VEC_ALLBLACK, BST_UNCHECKED);
            SetPreviewFlags(context->previewReverseBW, context->previewInvert, context->previewBVis, gray,
                            context->previewBlackize);
            return 1;
        }
        case IDC_VEC_ALLBLACK: {
            const int black = IsChecked(m_hWnd, IDC_VEC_ALLBLACK) ? 1 : 0;
            if (black)
                ::CheckDlgButton(m_hWnd, IDC_VEC_GRAYSCALE, BST_UNCHECKED);
            SetPreviewFlags(context->previewReverseBW, context->previewInvert, context->previewBVis,
                            context->previewGrayize, black);
            return 1;
        }
        case IDC_VEC_REVERSE:
            SetPreviewFlags(IsChecked(m_hWnd, id) ? 1 : 0, context->previewInvert, context->previewBVis,
                            context->previewGrayize, context->previewBlackize);
            return 1;
        case IDC_VEC_INVERT:
            SetPreviewFlags(context->previewReverseBW, IsChecked(m_hWnd, id) ? 1 : 0, context->previewBVis,
                            context->previewGrayize, context->previewBlackize);
            return 1;
        case IDC_VEC_REVEAL:
            SetPreviewFlags(context->previewReverseBW, context->previewInvert, IsChecked(m_hWnd, id) ? 1 : 0,
                            context->previewGrayize, context->previewBlackize);
            return 1;
        default:
            break;
        }
        break;
    }
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->code == PSN_KILLACTIVE) {
            Retrieve();
            if (Options()->pageValid == 0)
                return 1;
        }
        break;
    }
    default:
        break;
    }
    return CPropertyPage::WindowProc(message, wParam, lParam);
}

void CVectorOutPropPage::OnOK()
{
    CPropertyPage::OnOK();
}

void CVectorOutPropPage::OnCancel()
{
    CPropertyPage::OnCancel();
}
