// OKAIO32: the suite's tag store, list service and temporary files.
#pragma once

#include <cstddef>

#include "okaheap40.h"

#ifdef OKAIO32_BUILD
#define OKAIO32_API __declspec(dllexport)
#else
#define OKAIO32_API __declspec(dllimport)
#endif

namespace oki {
class TagStore;  // the inner working of a set, private to OKAIO32
}

// Result codes of OKAIO32 (and of the Zv tag functions built on it).
constexpr short OKI_OK = 0;
constexpr short OKI_ERR_BADKEY = -1;     // null or empty key
constexpr short OKI_ERR_STORE = -2;      // the stored place refused a write; kept in memory
constexpr short OKI_ERR_OPEN = -3;       // the stored place cannot be opened; the set is empty
constexpr short OKI_ERR_NOPARENT = -4;   // FuseWithParent on a set without a parent
constexpr short OKI_ERR_ARGUMENT = -5;   // a null or meaningless argument
constexpr short OKI_ERR_MEMORY = -6;
constexpr short OKI_ERR_TEMPFILE = -7;   // no temporary file could be made
constexpr short OKI_ERR_WRITE = -8;      // a write to a file failed

// A set of named text values. Sets hang in chains: while a child hangs under
// a set, reads and writes through the parent go to the deepest child first,
// and reads fall back through the ancestors. A set bound with SetPath keeps
// its tags in a stored place that outlives the process.
class OKAIO32_API TagSet : public OKAObject {
public:
    TagSet();
    ~TagSet();
    TagSet(const TagSet&) = delete;
    TagSet& operator=(const TagSet&) = delete;

    // Hangs a child under this set in place of any child it had; null takes
    // it off. The set does not own its child.
    void SetChild(TagSet* child);
    TagSet* GetLastChild();  // the deepest child, or null
    TagSet* GetParent();     // the parent, or null at the root
    // Merges this set's tags, removals included, into its parent.
    short FuseWithParent();
    // Binds the set to a stored place (1 is the only mode); the set then
    // holds what is stored there, and every later write to the set reaches
    // the stored place at once. The place is the registry key
    // HKEY_CURRENT_USER\Software\Zavrin\Tags\<path> (backslashes in the path
    // make subkeys). Gives 0, or a negative code when the place cannot be
    // opened (the set is then empty and bound to nothing).
    short SetPath(const char* path, int mode);
    const char* GetPath();  // the text given to SetPath, or null

    // Access with the chain rules: Get looks in the deepest child first,
    // then in each ancestor up to the root; Set writes into the deepest
    // child ("" records a removal, which hides the ancestors' value until
    // the child is fused or dropped). Keys are cut to 255 characters and
    // values to 4095; keys are matched without regard to case. A null or
    // empty key reads as absent and is refused (a negative result) on
    // write. The text given by Get stays readable until the next write to
    // the chain. The Zv functions of ZVWIO32 are built on these.
    const char* Get(const char* key);
    short Set(const char* key, const char* value);
    // A write into this very set, whatever child hangs below it (the Zv
    // global writes use it on the root).
    short SetOwn(const char* key, const char* value);
    TagSet* Root();  // the topmost ancestor (this set at the root)

    // Notes: values for the running process only, read and written with
    // the chain rules but never stored, fused or searched. ZVWIO32 keeps
    // in them which unit the resolution tags of a live page are in.
    const char* GetNote(const char* key);
    short SetNote(const char* key, const char* value);

private:
    friend class TagSearch;
    oki::TagStore* store_;  // values, notes, path, and the links of the chain
};

class TagSearchState;

// A search over the keys of a set chain that begin with a prefix (case
// ignored). The matching keys are taken when the search is made, in sorted
// order, so reads and writes during the search do not disturb it: a key
// removed meanwhile is still given (a read of it then finds nothing).
class OKAIO32_API TagSearch : public OKAObject {
public:
    TagSearch(TagSet* tags, const char* prefix);
    ~TagSearch();
    // The next key without the prefix, or null at the end.
    const char* Next();

private:
    TagSearchState* state_;
};

// Temporary files. The offsets of error, name, write and close are fixed
// (6, 38, 62 and 74 in the 32-bit build) because hosts read them directly.
#pragma pack(push, 2)
struct tagSFILE {
    void* handle;               // the open file
    unsigned short mode;        // how it was opened
    short error;                // the first error of the file, 0 when none
    unsigned long written;      // bytes written so far
    char reserved1[26];
    char* name;                 // the path; set to null to keep the file at close
    char reserved2[62 - 38 - sizeof(char*)];
    short (*write)(tagSFILE* file, const void* bytes, unsigned long length);
    char reserved3[74 - 62 - sizeof(void*)];
    short (*close)(tagSFILE* file);
};
#pragma pack(pop)

#if defined(_WIN32) && !defined(_WIN64)
static_assert(offsetof(tagSFILE, error) == 6);
static_assert(offsetof(tagSFILE, name) == 38);
static_assert(offsetof(tagSFILE, write) == 62);
static_assert(offsetof(tagSFILE, close) == 74);
#endif

// Opens a new temporary file for writing, in the user's temporary folder.
// Gives 0 and the file, or a negative code. write gives 0 or a negative
// code and keeps the first error in error. close closes the file, frees the
// record and gives the file's first error (or the close's own); with name
// set it also deletes the file and frees name. name is a block of
// OkiAllocSMem: a caller that keeps the file takes the pointer out, sets
// name to null before close, and later frees the path with OkiFreeSMem.
OKAIO32_API short OkiOpenTempFile(tagSFILE** file, unsigned short mode, unsigned short flags);

// The list service: a doubly linked list of nodes with a payload.
struct OkiNode;
struct OkiList;
OKAIO32_API OkiList* OkiCreateList();
OKAIO32_API void OkiDestroyList(OkiList* list);  // destroys its nodes too
OKAIO32_API OkiNode* OkiCreateNode(unsigned long size);  // payload zeroed
OKAIO32_API void OkiDestroyNode(OkiNode* node);
OKAIO32_API void OkiAddTail(OkiList* list, OkiNode* node);
OKAIO32_API OkiNode* OkiExtractNode(OkiList* list, OkiNode* node);
// The first node when node is null, else the one after it; null at the end.
OKAIO32_API OkiNode* OkiNextNode(OkiList* list, OkiNode* node);
OKAIO32_API void* OkiNodeData(OkiNode* node);
