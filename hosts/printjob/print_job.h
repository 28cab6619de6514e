// The hosts' print job: an image file printed on a printer's DC where the
// print tags put it, with the print options of the tags applied.
#pragma once

#include <windows.h>

class OKAMOD;
class TagSet;

// Where the tags put the image, in the printer's dots on its printable
// area: "PRTLEFT", "PRTTOP", "PRNW" and "PRNH" in "PRNUNITS" ("IN" when
// absent), counted from the sheet's margins of 0.25 in those units unless
// "MARGINS" is "OFF".
RECT PrintTargetRect(HDC printer, TagSet* tags);

// Reads the image at path afresh, replays the print options of the tags on
// it (FilterOptions and DoOptions for the destination "PRN": rotation and
// colour effects) and prints it as one page named docName into the target
// rectangle. 0, or the engine's code, or -1 when the printer refused the
// job.
short PrintImageFile(HDC printer, TagSet* tags, OKAMOD* formats, const char* path, const char* docName);
