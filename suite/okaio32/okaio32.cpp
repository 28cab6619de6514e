// OKAIO32 on the platform: the sets themselves, their stored places in the
// registry, searches, temporary files.
#include <windows.h>

#include <new>
#include <string>
#include <vector>

#include "okaio32.h"
#include "tag_store.h"

static_assert(OKI_ERR_BADKEY == oki::kBadKey && OKI_ERR_STORE == oki::kStoreFailed &&
              OKI_ERR_OPEN == oki::kCannotOpen && OKI_ERR_NOPARENT == oki::kNoParent &&
              OKI_ERR_ARGUMENT == oki::kBadArgument && OKI_ERR_MEMORY == oki::kNoMemory &&
              OKI_ERR_TEMPFILE == oki::kNoTempFile && OKI_ERR_WRITE == oki::kWriteFailed);

namespace {

// Every stored set lives below this key of the current user.
const char kTagsRoot[] = "Software\\Zavrin\\Tags\\";

// A bound set writes through: each write reaches the registry at once, so
// that a set is never behind its stored place, even when the process ends
// without tidying up.
class RegistryBacking : public oki::TagBacking {
public:
    explicit RegistryBacking(HKEY key) : key_(key) {}
    ~RegistryBacking() override { RegCloseKey(key_); }

    bool Write(const std::string& key, const std::string& value) override
    {
        return RegSetValueExA(key_, key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                              static_cast<DWORD>(value.size() + 1)) == ERROR_SUCCESS;
    }

    bool Remove(const std::string& key) override
    {
        const LONG r = RegDeleteValueA(key_, key.c_str());
        return r == ERROR_SUCCESS || r == ERROR_FILE_NOT_FOUND;
    }

private:
    HKEY key_;
};

// Reads every text value of a key. Values of other types are not tags of
// ours and are passed over; texts longer than a tag may be are cut.
std::map<std::string, std::string, oki::NoCaseLess> ReadValues(HKEY key)
{
    std::map<std::string, std::string, oki::NoCaseLess> values;
    DWORD maxName = 0, maxData = 0;
    if (RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &maxName, &maxData,
                         nullptr, nullptr) != ERROR_SUCCESS)
        return values;
    std::vector<char> name(maxName + 2);
    std::vector<BYTE> data(maxData + 2);
    for (DWORD i = 0;; ++i) {
        DWORD nameSize = static_cast<DWORD>(name.size());
        DWORD dataSize = static_cast<DWORD>(data.size() - 1);
        DWORD type = 0;
        const LONG r = RegEnumValueA(key, i, name.data(), &nameSize, nullptr, &type, data.data(), &dataSize);
        if (r == ERROR_NO_MORE_ITEMS)
            break;
        if (r != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ))
            continue;
        data[dataSize] = 0;
        std::string k;
        if (oki::MakeKey(name.data(), k))
            values[k] = oki::MakeValue(reinterpret_cast<const char*>(data.data()));
    }
    return values;
}

}  // namespace

// --- TagSet -----------------------------------------------------------------

TagSet::TagSet() : store_(new (std::nothrow) oki::TagStore(this)) {}

TagSet::~TagSet()
{
    delete store_;
}

void TagSet::SetChild(TagSet* child)
{
    if (store_)
        store_->SetChild(child ? child->store_ : nullptr);
}

TagSet* TagSet::GetLastChild()
{
    if (!store_ || !store_->Child())
        return nullptr;
    return static_cast<TagSet*>(store_->Deepest()->Owner());
}

TagSet* TagSet::GetParent()
{
    if (!store_ || !store_->Parent())
        return nullptr;
    return static_cast<TagSet*>(store_->Parent()->Owner());
}

TagSet* TagSet::Root()
{
    return store_ ? static_cast<TagSet*>(store_->Root()->Owner()) : this;
}

short TagSet::FuseWithParent()
{
    return store_ ? store_->Fuse() : OKI_ERR_MEMORY;
}

short TagSet::SetPath(const char* path, int mode)
{
    if (!store_)
        return OKI_ERR_MEMORY;
    store_->SetBacking(nullptr);
    store_->Clear();
    store_->path = path ? path : "";
    if (!path || mode != 1)
        return OKI_ERR_ARGUMENT;

    // Leading backslashes would make an empty first subkey: "\Wildcards"
    // below a set without a path means the key "Wildcards".
    const char* sub = path;
    while (*sub == '\\')
        ++sub;
    if (!*sub)
        return OKI_ERR_ARGUMENT;
    std::string full = std::string(kTagsRoot) + sub;
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, full.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_READ | KEY_WRITE, nullptr, &key, nullptr) != ERROR_SUCCESS)
        return OKI_ERR_OPEN;
    store_->Replace(ReadValues(key));
    store_->SetBacking(std::make_unique<RegistryBacking>(key));
    return OKI_OK;
}

const char* TagSet::GetPath()
{
    if (!store_ || store_->path.empty())
        return nullptr;
    return store_->path.c_str();
}

const char* TagSet::Get(const char* key)
{
    return store_ ? store_->Get(key) : nullptr;
}

short TagSet::Set(const char* key, const char* value)
{
    return store_ ? store_->Set(key, value) : OKI_ERR_MEMORY;
}

short TagSet::SetOwn(const char* key, const char* value)
{
    return store_ ? store_->SetOwn(key, value) : OKI_ERR_MEMORY;
}

const char* TagSet::GetNote(const char* key)
{
    return store_ ? store_->GetNote(key) : nullptr;
}

short TagSet::SetNote(const char* key, const char* value)
{
    return store_ ? store_->SetNote(key, value) : OKI_ERR_MEMORY;
}

// --- TagSearch --------------------------------------------------------------

class TagSearchState {
public:
    std::vector<std::string> keys;
    std::size_t next = 0;
};

TagSearch::TagSearch(TagSet* tags, const char* prefix) : state_(new (std::nothrow) TagSearchState)
{
    oki::TagStore* store = tags ? tags->store_ : nullptr;
    if (state_ && store)
        state_->keys = store->Keys(prefix);
}

TagSearch::~TagSearch()
{
    delete state_;
}

const char* TagSearch::Next()
{
    if (!state_ || state_->next >= state_->keys.size())
        return nullptr;
    return state_->keys[state_->next++].c_str();
}
