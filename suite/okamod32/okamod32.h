// okamod32: the registry of the suite's image formats.
#pragma once

#include <windows.h>

#include <cstddef>

#include "format_types.h"

#ifdef OKAMOD32_BUILD
#define OKAMOD32_API __declspec(dllexport)
#else
#define OKAMOD32_API __declspec(dllimport)
#endif

class TagSet;

// Base of the registry's objects: they come from the registry's allocator.
class OKAMOD32_API RegistrationDataBase {
public:
    static void* operator new(std::size_t size);
    static void operator delete(void* object);
};

struct FormatTable;  // the format table, loaded from the library's resources

class OKAMOD32_API OKAMOD : public RegistrationDataBase {
public:
    explicit OKAMOD(const char* name);  // hosts and dialogs pass null
    ~OKAMOD();
    OKAMOD(const OKAMOD&) = delete;
    OKAMOD& operator=(const OKAMOD&) = delete;

    // A format index: a handle-sized value, null for an unknown extension.
    HKEY GetIndex(const char* ext);
    int GetType(HKEY index);  // a ZvFormatType; 0 for null
    int IsSource(HKEY index);
    int IsDest(HKEY index);
    // Fills a colour depth list for the destination key and selects the
    // value of its tag.
    void LoadDepthList(HWND dialog, int listId, int labelId, const char* key, TagSet* tags);

    const FormatTable* Table() const { return table_; }
    // The table row of a format index (format_table.h), -1 for null or a
    // value that no registry handed out.
    int Row(HKEY index) const;

private:
    const FormatTable* table_;
};
