// The host's Image menu: the library's image pages change the image in hand
// at once (operation 0), and Undo takes the last change back through the
// engine's history.
#pragma once

#include <windows.h>

// Adds "Image" after the menus already on the window's bar.
void AddImageMenu(HWND window);
// Handles a command of that menu; false for any other command.
bool OnImageCommand(HWND window, WORD command);
