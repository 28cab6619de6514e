// What the source dialogs share: the format key of the dialog in hand, the
// caption, and the groups that recur (scaling, memorize, the 2D or 3D
// reading with its registry value, viewpoint and rendering).
#pragma once

#include <windows.h>

#include "bounded_text.h"
#include "option_core.h"

// The operation of a host that opens with its own title and its own
// reading: only the formats' own source dialogs are offered, and those
// offer no scaling.
constexpr short kOperationOpenWithTitle = 7;

// The key of the dialog's format: the internal extension of the context's
// srcExt, upper case. Every option tag of a source dialog is key + NAME.
void LoadSourceKey(char (&key)[zv::kKeySize]);

// Puts srcExt in front of the caption once ("PIX Source Options") and shows
// the memorize box with it; a second call changes nothing.
void ShowSrcDlgCaption(HWND dialog);

// Scaling: 1901 off, 1902 to the window, 1903 page in width. With operation
// 7 the three are disabled and nothing is shown or stored.
void DisplayScalingChoice(HWND dialog, const char* key);
void RetrieveScalingChoice(HWND dialog, const char* key);
// The memorize box (1904), stored for good; on, it also takes what the host
// keeps in its deepest child set into that set's parent.
void RetrieveMemorizeChoice(HWND dialog);

// Viewpoint (2001 to 2003), rendering (2005 to 2007) and perspective
// (2008, which stays disabled).
void Display3dChoice(HWND dialog, const char* key);
void Retrieve3dChoice(HWND dialog, const char* key);

// The registry key that says whether a format is read as a 2D or a 3D file,
// under the classes root; its default value begins with "E" for 3D.
void MakeClassKeyPath(char* out, size_t size, const char* key);
// A click on 1905 (2D) or 1906 (3D) switches the groups that belong to the
// kind and gives the id; any other command gives 0.
int SwitchClassControls(HWND dialog, const char* key, WPARAM wParam, LPARAM lParam);
// Shows the stored kind with its groups; 0, and nothing shown, when the
// registry value can't be read; else the radio that is selected.
int DisplayClassChoice(HWND dialog, const char* key);
// Writes the kind into the registry and stores the groups of that kind.
void RetrieveClassChoice(HWND dialog, const char* key);

// The messages every source dialog answers alike: F1, right click, Help
// (with the dialog's help context) and Cancel. True when handled.
bool HandleCommonSourceMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, DWORD helpContext);

// The PCL font list: asks for a font file and lists it (non-zero when one
// was chosen); the type list's pairs, the last added font's extension
// first, with count the number of pairs.
int AddPclFontFile(HWND dialog);
char** LoadPclFilterList(int stringId, int* count);
void FreePclFilterList(char** list);
