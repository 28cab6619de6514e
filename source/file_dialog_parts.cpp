// The parts of the system's file dialog that the library's file dialogs
// share, on every system the library runs on.
#include "file_dialog_parts.h"

namespace {

HWND g_watchedCombo = nullptr;
WNDPROC g_watchedComboProc = nullptr;
void (*g_onNameChange)(HWND frame) = nullptr;

LRESULT CALLBACK WatchedComboProc(HWND combo, UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = CallWindowProcA(g_watchedComboProc, combo, message, wParam, lParam);
    if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE && g_onNameChange != nullptr) {
        // The frame is the parent of cmb13, which holds this combo box.
        if (HWND frame = GetParent(GetParent(combo)))
            g_onNameChange(frame);
    }
    return result;
}

}  // namespace

HWND FileDialogFrame(HWND child)
{
    HWND frame = GetParent(child);
    return frame != nullptr ? frame : child;
}

HWND FileNameBox(HWND frame)
{
    if (HWND edit = GetDlgItem(frame, kFileNameEdit))
        return edit;
    HWND outer = GetDlgItem(frame, kFileNameCombo);
    if (outer == nullptr)
        return nullptr;
    HWND combo = FindWindowExA(outer, nullptr, "ComboBox", nullptr);
    HWND edit = FindWindowExA(combo != nullptr ? combo : outer, nullptr, "Edit", nullptr);
    return edit != nullptr ? edit : outer;
}

void WatchFileNameBox(HWND frame, void (*onChange)(HWND frame))
{
    if (GetDlgItem(frame, kFileNameEdit) != nullptr)
        return;  // edt1 tells the frame itself
    HWND outer = GetDlgItem(frame, kFileNameCombo);
    HWND combo = outer != nullptr ? FindWindowExA(outer, nullptr, "ComboBox", nullptr) : nullptr;
    if (combo == nullptr)
        return;
    UnwatchFileNameBox();
    g_watchedCombo = combo;
    g_onNameChange = onChange;
    g_watchedComboProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(combo, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WatchedComboProc)));
}

void UnwatchFileNameBox()
{
    if (g_watchedCombo != nullptr && IsWindow(g_watchedCombo))
        SetWindowLongPtrA(g_watchedCombo, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_watchedComboProc));
    g_watchedCombo = nullptr;
    g_watchedComboProc = nullptr;
    g_onNameChange = nullptr;
}

void AlignWithOkButton(HWND frame, HWND child, const int* ids, int count)
{
    HWND ok = GetDlgItem(frame, IDOK);
    RECT okRect, childRect;
    if (ok == nullptr || !GetWindowRect(ok, &okRect) || !GetClientRect(child, &childRect))
        return;
    MapWindowPoints(nullptr, child, reinterpret_cast<POINT*>(&okRect), 2);
    for (int i = 0; i < count; ++i) {
        HWND button = GetDlgItem(child, ids[i]);
        RECT r;
        if (button == nullptr || !GetWindowRect(button, &r))
            continue;
        MapWindowPoints(nullptr, child, reinterpret_cast<POINT*>(&r), 2);
        int width = r.right - r.left;
        if (okRect.right > width && okRect.right <= childRect.right && okRect.right > r.right)
            SetWindowPos(button, nullptr, okRect.right - width, r.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }
}
