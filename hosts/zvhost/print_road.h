// The host's File > Print: the library's print dialog, its Options (the
// print options sheet), then the image printed where the tags put it.
#pragma once

#include <windows.h>

class Dewey;
class OKAMOD;
class TagSet;

// Prints the image in hand, read from path, as the document docName. 1 when
// a page was printed, 0 when the user cancelled, else a negative code of the
// engine or the printer.
int PrintFromHost(HWND owner, TagSet* tags, OKAMOD* formats, Dewey* image, const char* path, const char* docName);
