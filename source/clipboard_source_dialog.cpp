// CLPSrcDlgProc: the clipboard file holds the same picture in several
// forms; the dialog says which form to take. The choice holds for every
// clipboard file, so its tag has no format key in front.
#include "core_win.h"
#include "frame_tables.h"
#include "source_dialogs.h"
#include "source_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

char g_clpKey[zv::kKeySize];
int g_clpForm = IDC_CLP_DIB;

struct ClipboardForm {
    int radio;
    const char* value;
};
constexpr ClipboardForm kForms[] = {
    {IDC_CLP_DIB, "DIB"}, {IDC_CLP_WMF, "WMF"}, {IDC_CLP_DDB, "DDB"}, {IDC_CLP_TXT, "TXT"}, {IDC_CLP_TIF, "TIF"},
};

int FormRadio(const char* value)
{
    for (const ClipboardForm& form : kForms)
        if (value != nullptr && zv::EqualNoCase(value, form.value))
            return form.radio;
    return IDC_CLP_DIB;
}

const char* FormValue(int radio)
{
    for (const ClipboardForm& form : kForms)
        if (form.radio == radio)
            return form.value;
    return kForms[0].value;
}

}  // namespace

extern "C" ZVOPT32_API INT_PTR CALLBACK CLPSrcDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (HandleCommonSourceMessage(dialog, message, wParam, lParam, zv::kHelpClipboardSource))
        return 0;
    switch (message) {
    case WM_INITDIALOG:
        LoadSourceKey(g_clpKey);
        g_clpForm = FormRadio(ZvGetTag(Options()->tags, "CLPPREF"));
        CheckRadioButton(dialog, IDC_CLP_DIB, IDC_CLP_TIF, g_clpForm);
        DisplayScalingChoice(dialog, g_clpKey);
        break;
    case WM_COMMAND: {
        const int id = LOWORD(wParam);
        if (id >= IDC_CLP_DIB && id <= IDC_CLP_TIF && HIWORD(wParam) == BN_CLICKED && id != g_clpForm) {
            // Plain radios: the mark moves only when the value changes.
            g_clpForm = id;
            CheckRadioButton(dialog, IDC_CLP_DIB, IDC_CLP_TIF, id);
        } else if (id == IDOK) {
            RetrieveScalingChoice(dialog, g_clpKey);
            ZvSetTag(Options()->tags, "CLPPREF", FormValue(g_clpForm));
            EndDialog(dialog, 1);
        }
        break;
    }
    }
    return 0;
}
