// Until the dialog frame brings them: the Apply Now button taken off a
// sheet, and the preview switches kept in the option context.
#include "core_win.h"
#include "dest.h"

void HideApplyButton(HWND page)
{
    HWND sheet = GetParent(page);
    if (sheet == nullptr)
        return;
    HWND apply = GetDlgItem(sheet, 12321);
    if (apply == nullptr)
        return;
    ShowWindow(apply, SW_HIDE);
    HWND ok = GetDlgItem(sheet, IDOK);
    HWND cancel = GetDlgItem(sheet, IDCANCEL);
    if (ok == nullptr || cancel == nullptr)
        return;
    RECT cancelRect, applyRect;
    GetWindowRect(cancel, &cancelRect);
    GetWindowRect(apply, &applyRect);
    if (EqualRect(&cancelRect, &applyRect))
        return;
    MapWindowPoints(nullptr, sheet, reinterpret_cast<POINT*>(&cancelRect), 2);
    MapWindowPoints(nullptr, sheet, reinterpret_cast<POINT*>(&applyRect), 2);
    MoveWindow(cancel, applyRect.left, applyRect.top, applyRect.right - applyRect.left,
               applyRect.bottom - applyRect.top, FALSE);
    MoveWindow(ok, cancelRect.left, cancelRect.top, cancelRect.right - cancelRect.left,
               cancelRect.bottom - cancelRect.top, FALSE);
}

int SetPreviewFlags(int reverse, int invert, int reveal, int grayize, int blackize)
{
    OptionContext* context = Options();
    context->previewReverseBW = reverse;
    context->previewInvert = invert;
    context->previewBVis = reveal;
    context->previewGrayize = grayize;
    context->previewBlackize = blackize;
    return 0;
}
