// PIXOGFSrcDlgProc: the text formats PIX and OGF are drawn with a font of
// the chosen fineness, or one the file asks for (Auto).
#include "core_win.h"
#include "frame_tables.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

char g_pixKey[zv::kKeySize];
int g_pixFont = IDC_PIX_AUTO;

// The stored value of each radio, Auto storing none.
const char* FontValue(int radio)
{
    switch (radio) {
    case IDC_PIX_COARSE: return "IBMPCCRS";
    case IDC_PIX_MEDIUM: return "IBMPCMED";
    case IDC_PIX_FINE: return "IBMPC";
    default: return "";
    }
}

int FontRadio(const char* value)
{
    if (value == nullptr)
        return IDC_PIX_AUTO;
    if (zv::EqualNoCase(value, "IBMPCCRS"))
        return IDC_PIX_COARSE;
    if (zv::EqualNoCase(value, "IBMPCMED"))
        return IDC_PIX_MEDIUM;
    // Any other font is shown, and then stored, as the fine one.
    return IDC_PIX_FINE;
}

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK PIXOGFSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelpPixOgfSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_pixKey);
        g_pixFont = FontRadio(ZvGetTag(Options()->tags, zv::TagKey(g_pixKey, "SFDEFAULT")));
        CheckRadioButton(dialog, IDC_PIX_COARSE, IDC_PIX_AUTO, g_pixFont);
        DisplayScalingChoice(dialog, g_pixKey);
        SetFocus(GetDlgItem(dialog, g_pixFont));
        break;
    case WM_COMMAND: {
        const int id = LOWORD(wParam);
        if (id >= IDC_PIX_COARSE && id <= IDC_PIX_AUTO && HIWORD(wParam) == BN_CLICKED && id != g_pixFont) {
            // Plain radios: the mark moves only when the value changes.
            g_pixFont = id;
            CheckRadioButton(dialog, IDC_PIX_COARSE, IDC_PIX_AUTO, id);
        } else if (id == IDOK) {
            ZvSetTag(Options()->tags, zv::TagKey(g_pixKey, "SFDEFAULT"), FontValue(g_pixFont));
            RetrieveScalingChoice(dialog, g_pixKey);
            EndDialog(dialog, 1);
        }
        break;
    }
    }
    return 0;
}
