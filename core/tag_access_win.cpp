// The portable rules reach a TagSet through ZVWIO32's tag functions, so
// that they see the chain (deepest child first, then the ancestors) as
// every other reader does.
#include "core_win.h"
#include "module.h"
#include "zvwio32.h"

const char* TagSetAccess::Get(const char* key)
{
    return ZvGetTag(tags_, key);
}

int TagSetAccess::GetInt(const char* key)
{
    return ZvGetIntTag(tags_, key);
}

double TagSetAccess::GetFloat(const char* key)
{
    return ZvGetFloatTag(tags_, key);
}

void TagSetAccess::Set(const char* key, const char* value)
{
    ZvSetTag(tags_, key, value);
}

void* TagSetAccess::OpenSearch(const char* prefix)
{
    return ZvOpenTagSearch(tags_, prefix);
}

const char* TagSetAccess::NextKey(void* search)
{
    return ZvTagSearch(static_cast<TagSearch*>(search));
}

void TagSetAccess::CloseSearch(void* search)
{
    delete static_cast<TagSearch*>(search);
}

int StringTableLists::IndexOf(int listId, const char* text)
{
    // The lists are this library's, whatever module a caller works in.
    return GetListIndex(listId, text, LibraryModule());
}

