// The open dialog: the parts that DoOpenDlg shares with its hook and the
// procedure that replaces the system dialog's own.
#pragma once

#include <windows.h>

#include <cstddef>

// The work buffer of a running open dialog (the context's openPath): room
// for the system's list of a multiple selection.
constexpr unsigned long kOpenBufferSize = 25860;

UINT_PTR CALLBACK OpenDlgHookProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK OpenDlgFrameProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Values of the running open dialog.
extern DLGPROC openOldDlgProc;  // the system dialog's own procedure
extern HWND openHookDlg;        // the child dialog with the library's controls

// The folder the dialog starts in when no "OPENDIR" is stored, from the
// library's own path: "tutorial" beside the library's folder, so that a
// library in C:\APP\BIN starts in C:\APP\tutorial; a library directly in a
// root folder starts in that drive.
void TutorialFolder(const char* libraryPath, char* out, std::size_t size);

// The length of a raw list of a multiple selection (strings ended by NUL,
// the list by a second NUL), both closing NULs counted; never more than
// size.
std::size_t RawListLength(const char* list, std::size_t size);
// The first chosen path of such a list: the folder and the first name, or
// the one full path when a single file was chosen.
void FirstPathOfList(const char* list, char* out, std::size_t size);
