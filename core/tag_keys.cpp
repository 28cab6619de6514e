// Spelling of tag keys and of their values.
#include <cstring>
#include <initializer_list>

#include "bounded_text.h"
#include "option_core.h"

namespace zv {

namespace {

char Lower(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool MakeKey(char (&key)[kKeySize], const char* a, const char* b, const char* c, const char* d)
{
    key[0] = '\0';
    bool whole = true;
    for (const char* part : {a, b, c, d}) {
        if (part == nullptr)
            continue;
        std::size_t before = std::strlen(key);
        std::size_t after = AppendBounded(key, part);
        if (after - before != std::strlen(part))
            whole = false;
    }
    return whole;
}

int MetafileClassType(const char* value)
{
    if (EqualNoCase(value, "R"))
        return kFormatRaster;
    if (EqualNoCase(value, "V"))
        return kFormatVector;
    if (EqualNoCase(value, "M"))
        return kFormatMetafile;
    return kFormatNone;
}

void MakeWildcardPrefix(char (&out)[kKeySize], const char* prefix)
{
    CopyBounded(out, prefix);
    for (char* p = out; *p; ++p) {
        if (*p == '~')
            *p = '?';
    }
}

bool EqualNoCase(const char* a, const char* b)
{
    if (a == nullptr || b == nullptr)
        return a == b;
    while (*a && Lower(*a) == Lower(*b)) {
        ++a;
        ++b;
    }
    return *a == '\0' && *b == '\0';
}

bool StartsWithNoCase(const char* text, const char* prefix)
{
    if (text == nullptr || prefix == nullptr)
        return false;
    while (*prefix) {
        if (*text == '\0' || Lower(*text) != Lower(*prefix))
            return false;
        ++text;
        ++prefix;
    }
    return true;
}

bool IsOn(const char* value)
{
    return value != nullptr && EqualNoCase(value, "ON");
}

int ListPosition(const char* list, const char* text)
{
    if (list == nullptr || text == nullptr)
        return -1;
    std::size_t length = std::strlen(text);
    int index = 0;
    const char* item = list;
    for (;;) {
        const char* end = std::strchr(item, '~');
        std::size_t itemLength = end ? static_cast<std::size_t>(end - item) : std::strlen(item);
        if (itemLength == length && std::strncmp(item, text, length) == 0)
            return index;
        if (end == nullptr)
            return -1;
        item = end + 1;
        ++index;
    }
}

}  // namespace zv
