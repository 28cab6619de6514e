// A tag store in memory for the native tests and the fuzz targets: keys
// compared exactly, searches in key order over a snapshot taken when they
// open, and a record of every key read so that tests can tell which tags a
// rule looked at.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "option_core.h"

namespace zvtest {

class MemoryTags : public zv::TagAccess {
public:
    std::map<std::string, std::string> tags;
    std::vector<std::string> reads;

    MemoryTags() = default;
    MemoryTags(std::initializer_list<std::pair<const std::string, std::string>> init) : tags(init) {}

    const char* Get(const char* key) override
    {
        reads.emplace_back(key);
        auto it = tags.find(key);
        return it == tags.end() ? nullptr : it->second.c_str();
    }
    int GetInt(const char* key) override
    {
        const char* value = Get(key);
        if (value == nullptr)
            return 0;
        char* end = nullptr;
        long n = std::strtol(value, &end, 10);
        if (end == value || n > 2147483647L || n < -2147483647L - 1)
            return 0;
        return static_cast<int>(n);
    }
    double GetFloat(const char* key) override
    {
        const char* value = Get(key);
        return value ? std::strtod(value, nullptr) : 0.0;
    }
    void Set(const char* key, const char* value) override
    {
        std::string k(key);
        if (k.size() > 63)
            k.resize(63);
        if (value[0] == '\0')
            tags.erase(k);
        else
            tags[k] = value;
    }
    void* OpenSearch(const char* prefix) override
    {
        auto search = std::make_unique<Search>();
        std::string p(prefix);
        for (auto& [k, v] : tags)
            if (k.compare(0, p.size(), p) == 0)
                search->keys.push_back(k.substr(p.size()));
        return searches.emplace_back(std::move(search)).get();
    }
    const char* NextKey(void* search) override
    {
        auto* s = static_cast<Search*>(search);
        return s->next < s->keys.size() ? s->keys[s->next++].c_str() : nullptr;
    }
    void CloseSearch(void* search) override
    {
        std::erase_if(searches, [search](const auto& s) { return s.get() == search; });
    }

    bool WasRead(const std::string& key) const { return std::find(reads.begin(), reads.end(), key) != reads.end(); }
    std::string Value(const std::string& key) const
    {
        auto it = tags.find(key);
        return it == tags.end() ? "<absent>" : it->second;
    }
    std::size_t OpenSearches() const { return searches.size(); }

private:
    struct Search {
        std::vector<std::string> keys;
        std::size_t next = 0;
    };
    std::vector<std::unique_ptr<Search>> searches;
};

// The two lists of the string table that the trace numbers look in.
class TraceLists : public zv::ListSource {
public:
    int IndexOf(int listId, const char* text) override
    {
        if (listId == zv::kUnditherList)
            return zv::ListPosition("0~2x2~3x3~4x4", text);
        if (listId == zv::kSpeckList)
            return zv::ListPosition("OFF~S~M~L", text);
        return -1;
    }
};

}  // namespace zvtest
