// The host's text regions mode: a region file loaded beside the image, its
// regions drawn over the picture, and the mouse selecting a region,
// stretching it by its handles and re-fonting it through the library's
// EFont. The outcome of each change (FontChange) stands in the caption.
#pragma once

#include <windows.h>

// Adds the "&Regions" menu to the window's menu bar.
void AddRegionsMenu(HWND window);
// Handles a command of that menu; false for any other command.
bool OnRegionsCommand(HWND window, WORD command);
// Handles a mouse message over the picture while regions are loaded; false
// when the message is not the mode's.
bool OnRegionsMouse(HWND window, UINT message, LPARAM lParam);
// Draws the regions and the selected one's handles after the picture.
void PaintRegions(HWND window, HDC dc);
// Unmaps the region file.
void CloseRegions();
