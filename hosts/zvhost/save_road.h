// The host's File menu: open an image, save it as another file through the
// library's save dialog, and convert it with the options that were chosen.
#pragma once

#include <windows.h>

class Dewey;

// Adds "Open..." and "Save As..." to the window's menu bar.
void AddFileMenu(HWND window);
// Handles a command of that menu; false for any other command.
bool OnFileCommand(HWND window, WORD command);
// Paints the image in hand, if any, into the client area.
void PaintImage(HWND window, HDC dc);
// Frees the image and the tags.
void CloseFileMenu();

// The image in hand and its path (null and "" when none), and where
// PaintImage shows it: the part of the image in pixels and the part of the
// client area it lies in. False when there is no image.
Dewey* CurrentImage();
const char* CurrentImagePath();
bool ImageView(HWND window, RECT* source, RECT* target);
