// The preview of the image pages: a thumbnail of the host's image that shows
// an adjustment before anything is done to the image itself.
//
// previewBase keeps the thumbnail as it came; previewDewey is what the pages
// show. An effect that is switched on is applied to previewDewey in place;
// anything else rebuilds previewDewey from previewBase with every effect
// still in force, always in one order: rotate and flip, equalise or gamma,
// reverse black and white, invert, grey, all black. There is no undo stack.
//
// The setters compare with what the option context says is shown and do no
// work for equal values, so a page may call them on every paint. A short
// status is 0, 1 when there is no preview or no object could be made, or
// DoClone's code.
#pragma once

#include <windows.h>

#include "frame.h"

// Stretches previewDewey over the control's client area; the caller sees to
// it that there is a preview.
void PaintPreview(HWND control);
// Sizes and centres control inside the sibling frameId so that the image,
// rotated by angle degrees, fills it with the aspect of the host's image.
void FitPreview(HWND control, float angle, int frameId);
// Throws previewDewey away and makes it anew from previewBase with these
// effects; stores nothing in the context (its callers do).
short RebuildPreview(int reverseBW, int invert, int bvis, int grayize, int blackize, int angle, int flipV,
                     int flipH, short contrast, short bright, short gamma, int hist);
short SetPreviewGamma(short contrast, short bright, short gamma, int hist);
short SetPreviewRotation(float angle, int flipV, int flipH);
// 1 when any value changed, else 0.
int SetPreviewFlags(int reverseBW, int invert, int bvis, int grayize, int blackize);
// Brings a fresh preview in line with the tags of rotKey and prefix.
short ReplayPreviewTags(const char* rotKey, const char* prefix);
