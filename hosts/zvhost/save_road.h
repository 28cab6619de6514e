// The host's File menu: open an image, save it as another file through the
// library's save dialog, and convert it with the options that were chosen.
#pragma once

#include <windows.h>

class Dewey;
class TagSet;
class OKAMOD;

// Adds the File menu (open, save as, print, properties, exit) to the window's menu bar.
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

// The image in hand, for the host's other menus: the document (null before
// one is open), its file (the source of a conversion), and the host's tags
// and formats, made on first use.
Dewey* HostImage();
const char* HostImagePath();
TagSet* HostTags();
OKAMOD* HostFormats();
// Makes path the file of the image in hand, as after opening it.
void SetHostImagePath(HWND window, const char* path);
// Where PaintImage shows the image in hand: the part of the image in pixels
// and the part of the client area it lies in. False when there is no image.
bool ImageView(HWND window, RECT* source, RECT* target);
