#include "tag_store.h"

#include <cstring>

namespace oki {

namespace {

char Lower(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool NoCaseLess::operator()(const std::string& a, const std::string& b) const
{
    const std::size_t n = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < n; ++i) {
        const unsigned char x = static_cast<unsigned char>(Lower(a[i]));
        const unsigned char y = static_cast<unsigned char>(Lower(b[i]));
        if (x != y)
            return x < y;
    }
    return a.size() < b.size();
}

bool StartsWithNoCase(const std::string& text, const std::string& prefix)
{
    if (prefix.size() > text.size())
        return false;
    for (std::size_t i = 0; i < prefix.size(); ++i)
        if (Lower(text[i]) != Lower(prefix[i]))
            return false;
    return true;
}

bool EqualNoCase(const char* a, const char* b)
{
    if (!a || !b)
        return a == b;
    for (; *a && *b; ++a, ++b)
        if (Lower(*a) != Lower(*b))
            return false;
    return *a == *b;
}

bool MakeKey(const char* key, std::string& out)
{
    if (!key || !*key)
        return false;
    out.assign(key, strnlen(key, kMaxKey));
    return true;
}

std::string MakeValue(const char* value)
{
    if (!value)
        return std::string();
    return std::string(value, strnlen(value, kMaxValue));
}

TagStore::~TagStore()
{
    if (parent_ && parent_->child_ == this)
        parent_->child_ = nullptr;
    if (child_ && child_->parent_ == this)
        child_->parent_ = nullptr;
}

TagStore* TagStore::Deepest()
{
    TagStore* s = this;
    while (s->child_)
        s = s->child_;
    return s;
}

const TagStore* TagStore::DeepestConst() const
{
    const TagStore* s = this;
    while (s->child_)
        s = s->child_;
    return s;
}

TagStore* TagStore::Root()
{
    TagStore* s = this;
    while (s->parent_)
        s = s->parent_;
    return s;
}

bool TagStore::SetChild(TagStore* child)
{
    // A store may not hang below itself or below one of its own children.
    for (TagStore* s = this; s && child; s = s->parent_)
        if (s == child)
            return false;
    if (child_ == child)
        return true;
    if (child_ && child_->parent_ == this)
        child_->parent_ = nullptr;
    child_ = child;
    if (child) {
        if (child->parent_ && child->parent_->child_ == child)
            child->parent_->child_ = nullptr;
        child->parent_ = this;
    }
    return true;
}

const char* TagStore::Lookup(const TagStore* from, Map TagStore::*which, const std::string& key)
{
    for (const TagStore* s = from; s; s = s->parent_) {
        const Map& map = s->*which;
        auto it = map.find(key);
        if (it != map.end())
            return it->second.removed ? nullptr : it->second.value.c_str();
    }
    return nullptr;
}

const char* TagStore::Get(const char* key) const
{
    std::string k;
    if (!MakeKey(key, k))
        return nullptr;
    return Lookup(DeepestConst(), &TagStore::tags_, k);
}

short TagStore::Put(Map TagStore::*which, const std::string& key, const std::string& value, bool persist)
{
    Map& map = this->*which;
    bool stored = true;
    if (value.empty()) {
        // A removal in a child must hide what the ancestors hold until the
        // child is fused or dropped; at the root there is nothing to hide.
        if (parent_)
            map[key] = Entry{std::string(), true};
        else
            map.erase(key);
        if (persist && backing_)
            stored = backing_->Remove(key);
    } else {
        auto it = map.find(key);
        if (it != map.end())
            it->second = Entry{value, false};
        else
            map.emplace(key, Entry{value, false});
        if (persist && backing_)
            stored = backing_->Write(key, value);
    }
    return stored ? kOk : kStoreFailed;
}

short TagStore::Set(const char* key, const char* value)
{
    return Deepest()->SetOwn(key, value);
}

short TagStore::SetOwn(const char* key, const char* value)
{
    std::string k;
    if (!MakeKey(key, k))
        return kBadKey;
    return Put(&TagStore::tags_, k, MakeValue(value), true);
}

short TagStore::Fuse()
{
    if (!parent_)
        return kNoParent;
    short result = kOk;
    for (const auto& [key, entry] : tags_) {
        short r = parent_->Put(&TagStore::tags_, key, entry.removed ? std::string() : entry.value, true);
        if (r != kOk && result == kOk)
            result = r;
    }
    // Once merged, the values live in the parent; an empty child lets later
    // writes into the parent (global ones) show through it.
    if (!backing_)
        tags_.clear();
    return result;
}

std::vector<std::string> TagStore::Keys(const char* prefix) const
{
    const std::string p = prefix ? std::string(prefix, strnlen(prefix, kMaxKey)) : std::string();
    std::map<std::string, bool, NoCaseLess> seen;  // key -> visible
    for (const TagStore* s = DeepestConst(); s; s = s->parent_) {
        for (auto it = p.empty() ? s->tags_.begin() : s->tags_.lower_bound(p); it != s->tags_.end(); ++it) {
            if (!StartsWithNoCase(it->first, p))
                break;
            seen.emplace(it->first, !it->second.removed);
        }
    }
    std::vector<std::string> keys;
    keys.reserve(seen.size());
    for (const auto& [key, visible] : seen)
        if (visible)
            keys.push_back(key.substr(p.size()));
    return keys;
}

const char* TagStore::GetNote(const char* key) const
{
    std::string k;
    if (!MakeKey(key, k))
        return nullptr;
    return Lookup(DeepestConst(), &TagStore::notes_, k);
}

short TagStore::SetNote(const char* key, const char* value)
{
    std::string k;
    if (!MakeKey(key, k))
        return kBadKey;
    return Deepest()->Put(&TagStore::notes_, k, MakeValue(value), false);
}

void TagStore::Replace(const std::map<std::string, std::string, NoCaseLess>& values)
{
    tags_.clear();
    for (const auto& [key, value] : values) {
        std::string k;
        if (MakeKey(key.c_str(), k) && !value.empty())
            tags_.emplace(k, Entry{MakeValue(value.c_str()), false});
    }
}

void TagStore::Clear()
{
    tags_.clear();
}

}  // namespace oki
