// OKACVT32: conversion helpers of the suite: texts of the engine's codes and
// gamma values.
#pragma once

#include <windows.h>

#ifdef OKACVT32_BUILD
#define OKACVT32_API __declspec(dllexport)
#else
#define OKACVT32_API __declspec(dllimport)
#endif

#include "okaheap40.h"

class OKACVT32_API MsgLib : public OKAObject {
public:
    MsgLib();
    ~MsgLib();
    // Writes the text of an engine code into text (at least 256 bytes) and
    // gives text.
    char* GetMessageA(short code, char* text);
};

// Fills count bytes of table with the intensity curve of the three values
// (each -100 to 100): byte x is the height, in pixels of a box count pixels
// wide and high, of the curve at column x. Note the order: gamma first.
OKACVT32_API short CvtCreateGammaValue(short count, short gamma, short contrast, short bright,
                                       unsigned char* table);

// Scans the first image of a TIFF file. With mode 0 it gives the image's
// type text (grammar in docs/tiff_type_text.md) in a block of OkiAllocSMem
// that the caller frees, and 0 in *code; on failure null and in *code the
// negative id of the options library's string that tells what went wrong
// (tiff_type_text.h). No other mode is served: it gives null and
// kCvtInvalidParameter. buffer is not used in mode 0.
// With mode 1 it writes the listing of every IFD and entry of the file into
// buffer (32000 bytes: ZV_TIFF_LISTING_SIZE), as far as the file could be
// read, and gives buffer; *code is 0 when the whole file was listed, else
// the code of why the listing stopped (its last line says where).
#define ZV_TIFF_LISTING_SIZE 32000
OKACVT32_API char* CvtScanTiff(const char* path, short* code, int mode, char* buffer);

// A file mapped into memory for reading and writing, for the life of the
// object; what is written through data lands in the file and is seen by
// every other mapping of it. size 0 maps the whole file; a larger size
// grows the file to it. flags are kept for the suite's other uses and must
// be 0. status is 0, or a negative code of MsgLib when the file could not
// be opened or mapped; then data is null and size 0.
class OKACVT32_API FMap : public OKAObject {
public:
    FMap(char* name, long size, unsigned short flags);
    ~FMap();
    FMap(const FMap&) = delete;
    FMap& operator=(const FMap&) = delete;

    unsigned char* data;
    unsigned long size;
    short status;

private:
    HANDLE file_;
    HANDLE mapping_;
};
