// The option core's Windows side: the suite's objects behind the portable
// interfaces, and the one record of the process.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include "okaio32.h"
#include "option_core.h"

class Dewey;
class OKAMOD;

// The tags of a TagSet chain through ZVWIO32, with its chain rules.
class TagSetAccess : public zv::TagAccess {
public:
    explicit TagSetAccess(TagSet* tags) : tags_(tags) {}
    const char* Get(const char* key) override;
    int GetInt(const char* key) override;
    double GetFloat(const char* key) override;
    void Set(const char* key, const char* value) override;
    void* OpenSearch(const char* prefix) override;
    const char* NextKey(void* search) override;
    void CloseSearch(void* search) override;

private:
    TagSet* tags_;
};

// The value lists of this library's own string table.
class StringTableLists : public zv::ListSource {
public:
    int IndexOf(int listId, const char* text) override;
};

// The one record behind every dialog of the library, made when the library
// loads (zeroed) and freed when it unloads.
struct OptionContext {
    int inDialog;
    int pageValid;
    int printFlag;
    int previewHist;
    int previewFlipV;
    int previewFlipH;
    int previewGrayize;
    int previewBlackize;
    int previewReverseBW;
    int previewInvert;
    int previewBVis;
    Dewey* sourceDewey;
    Dewey* previewDewey;
    Dewey* previewBase;
    float previewRotation;
    TagSet* tags;
    TagSet* sheetTags;
    HWND parentWnd;
    HWND warningsDlg;
    OKAMOD* formats;
    char* openPath;
    char* savePath;
    char** filterList;
    RECT* propRect;
    tagPDA* printDlgData;
    short srcType;
    short destType;
    short operation;
    short previewContrast;
    short previewBright;
    short previewGamma;
    char appTitle[256];
    char helpFile[260];
    char moduleDir[260];
    char srcExt[256];
    char destExt[256];
    char destKey[256];
    char translatedKey[256];
    char printerName[128];
};

// The record, or null before the library has loaded.
OptionContext* Options();
// Made and freed by the entry point of the library.
bool CreateOptionContext();
void DestroyOptionContext();
