// The inner working of a TagSet, free of any platform call: named text
// values in a case-blind map, hung in chains of parent and child, with the
// rules by which reads, writes, removals and fusing travel along a chain.
// Where a set keeps its values beyond the process is left to a TagBacking.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace oki {

// The longest key and value a set keeps; longer ones are cut. A key holds a
// whole path for some tags (a font file's tag names the file), so keys get
// the room of the longest key buffer any reader uses, not only of the
// everyday 64-byte one.
constexpr std::size_t kMaxKey = 255;
constexpr std::size_t kMaxValue = 4095;

// Result codes; they travel up to the host as the suite's short codes.
constexpr short kOk = 0;
constexpr short kBadKey = -1;        // null or empty key
constexpr short kStoreFailed = -2;   // the stored place refused a write; the value is kept in memory
constexpr short kCannotOpen = -3;    // the stored place cannot be opened; the set is empty
constexpr short kNoParent = -4;      // fusing a set that has no parent
constexpr short kBadArgument = -5;   // a null or meaningless argument
constexpr short kNoMemory = -6;
constexpr short kNoTempFile = -7;    // no temporary file could be made
constexpr short kWriteFailed = -8;   // a write to a file failed

// ASCII comparison that ignores case: keys are matched the way the system's
// registry matches value names, so a set reads the same whether it lives in
// memory or in a stored place.
struct NoCaseLess {
    bool operator()(const std::string& a, const std::string& b) const;
};
bool StartsWithNoCase(const std::string& text, const std::string& prefix);
bool EqualNoCase(const char* a, const char* b);

// A key as the store keeps it: cut to kMaxKey. False for a null or empty key.
bool MakeKey(const char* key, std::string& out);
// A value cut to kMaxValue; null reads as the empty text.
std::string MakeValue(const char* value);

// Where one set's own values outlive the process.
class TagBacking {
public:
    virtual ~TagBacking() = default;
    virtual bool Write(const std::string& key, const std::string& value) = 0;
    virtual bool Remove(const std::string& key) = 0;
};

class TagStore {
public:
    explicit TagStore(void* owner = nullptr) : owner_(owner) {}
    ~TagStore();  // takes itself out of its chain
    TagStore(const TagStore&) = delete;
    TagStore& operator=(const TagStore&) = delete;

    void* Owner() const { return owner_; }
    TagStore* Parent() const { return parent_; }
    TagStore* Child() const { return child_; }
    TagStore* Deepest();
    TagStore* Root();

    // Hangs child under this store in place of the one it had; null takes
    // the child off. A store already hanging elsewhere is taken from there.
    // A child that would close a loop is refused (false).
    bool SetChild(TagStore* child);

    // Reads start at the deepest child and climb to the root; the first
    // store that knows the key answers, and a recorded removal answers
    // "absent". Writes go into the deepest child.
    const char* Get(const char* key) const;
    short Set(const char* key, const char* value);
    // A write into this very store, whatever hangs below it.
    short SetOwn(const char* key, const char* value);
    // Moves this store's values and removals into its parent and empties
    // this store (a store with a backing keeps its own copy).
    short Fuse();

    // The keys that a read through this store would find, beginning with
    // prefix (case ignored), sorted, each without the prefix.
    std::vector<std::string> Keys(const char* prefix) const;

    // Notes: values that belong to the running process only. They follow
    // the chain like tags but are never stored, fused or searched, so a
    // dropped child takes its notes with it.
    const char* GetNote(const char* key) const;
    short SetNote(const char* key, const char* value);

    // This store's own values, as a stored place gives them.
    void Replace(const std::map<std::string, std::string, NoCaseLess>& values);
    void Clear();
    void SetBacking(std::unique_ptr<TagBacking> backing) { backing_ = std::move(backing); }
    bool HasBacking() const { return backing_ != nullptr; }
    std::size_t OwnCount() const { return tags_.size(); }

    // The text the set was bound with, kept even when binding failed.
    std::string path;

private:
    struct Entry {
        std::string value;
        bool removed = false;  // hides what the ancestors hold
    };
    using Map = std::map<std::string, Entry, NoCaseLess>;

    const TagStore* DeepestConst() const;
    static const char* Lookup(const TagStore* from, Map TagStore::*which, const std::string& key);
    short Put(Map TagStore::*which, const std::string& key, const std::string& value, bool persist);

    Map tags_;
    Map notes_;
    TagStore* parent_ = nullptr;
    TagStore* child_ = nullptr;
    void* owner_;
    std::unique_ptr<TagBacking> backing_;
};

}  // namespace oki
