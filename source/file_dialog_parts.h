// Parts of the system's Explorer-style file dialog that the library's file
// dialogs share: its name box, and the place of the child's buttons.
//
// The name box of the system's Explorer-style file dialog. Older systems
// give it as edt1 (1152), whose EN_CHANGE reaches the dialog; Wine gives
// cmb13 (1148), a ComboBoxEx that holds a combo box that holds the edit,
// and only the inner combo box hears the edit change. The file dialogs of
// the library serve both through these.
#pragma once

#include <windows.h>

constexpr int kFileNameEdit = 1152;   // edt1
constexpr int kFileNameCombo = 1148;  // cmb13

// The system dialog around the library's child dialog.
HWND FileDialogFrame(HWND child);

// The edit that holds the file name.
HWND FileNameBox(HWND frame);

// Where the frame does not hear the name box itself, calls onChange(frame)
// after each change of the name; at most one dialog is watched at a time.
void WatchFileNameBox(HWND frame, void (*onChange)(HWND frame));
void UnwatchFileNameBox();

// The child template is laid out for the narrow dialog of older systems;
// where the system dialog is wider, the child's buttons (ids) line up under
// the system's own column of buttons, as a user expects.
void AlignWithOkButton(HWND frame, HWND child, const int* ids, int count);
