// A tag store in memory for the native tests and the fuzz targets: keys
// compared exactly, searches in key order over a snapshot taken when they
// open, and a record of every key read so that tests can tell which tags a
// rule looked at.
#pragma once

#include <cstdlib>
#include <map>
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
        auto* keys = new std::vector<std::string>;
        std::string p(prefix);
        for (auto& [k, v] : tags) {
            if (k.compare(0, p.size(), p) == 0)
                keys->push_back(k.substr(p.size()));
        }
        searches.push_back(keys);
        positions.push_back(0);
        return keys;
    }
    const char* NextKey(void* search) override
    {
        for (std::size_t i = 0; i < searches.size(); ++i) {
            if (searches[i] == search) {
                if (positions[i] >= searches[i]->size())
                    return nullptr;
                return (*searches[i])[positions[i]++].c_str();
            }
        }
        return nullptr;
    }
    void CloseSearch(void* search) override
    {
        for (std::size_t i = 0; i < searches.size(); ++i) {
            if (searches[i] == search) {
                delete searches[i];
                searches.erase(searches.begin() + static_cast<long>(i));
                positions.erase(positions.begin() + static_cast<long>(i));
                return;
            }
        }
    }
    ~MemoryTags() override
    {
        for (auto* s : searches)
            delete s;
    }

    bool WasRead(const std::string& key) const
    {
        for (auto& r : reads)
            if (r == key)
                return true;
        return false;
    }
    std::string Value(const std::string& key) const
    {
        auto it = tags.find(key);
        return it == tags.end() ? "<absent>" : it->second;
    }
    std::size_t OpenSearches() const { return searches.size(); }

private:
    std::vector<std::vector<std::string>*> searches;
    std::vector<std::size_t> positions;
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
