// The host's File menu: open an image, save it as another file through the
// library's save dialog, and convert it with the options that were chosen.
#pragma once

#include <windows.h>

class Dewey;
class TagSet;
class OKAMOD;

// Adds "Open..." and "Save As..." to the window's menu bar.
void AddFileMenu(HWND window);
// Opens the image file at path (relative to the current folder or full),
// shows it and names it in the window's title; tells the user and keeps
// the image in hand when the file can't be read.
bool OpenImageFile(HWND window, const char* path);
// Handles a command of that menu; false for any other command.
bool OnFileCommand(HWND window, WORD command);
// Paints the image in hand, if any, into the client area.
void PaintImage(HWND window, HDC dc);
// Frees the image and the tags.
void CloseFileMenu();

// What the other menus work on: the image in hand (null when none), the
// path it came from, and the host's tags and registry, made on first use.
Dewey* ImageInHand();
const char* ImagePathInHand();
TagSet* HostTags();
OKAMOD* HostFormats();
