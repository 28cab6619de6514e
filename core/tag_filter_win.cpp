// FilterOptions and the translation of conversion tags, on the host's
// TagSet chains.
#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "ravicli.h"
#include "zvopt32.h"

extern "C" ZVOPT32_API void FilterTagList(TagSet* list, TagSet* out, const char* src, const char* dest)
{
    TagSetAccess from(list);
    TagSetAccess to(out);
    zv::FilterTagList(from, to, src, dest);
}

extern "C" ZVOPT32_API void FilterOptions(Dewey* image, TagSet* tags, TagSet* out, const char* src,
                                          const char* dest)
{
    TagSet* root = tags;
    while (TagSet* parent = root->GetParent())
        root = parent;

    // Wildcards stand below the root's stored place; a root with no place
    // has none. The order is the precedence: wildcards, the root, tags.
    const char* rootPath = root->GetPath();
    if (rootPath != nullptr && rootPath[0] != '\0') {
        char path[zv::kLongPathSize];
        zv::CopyBounded(path, rootPath);
        zv::AppendBounded(path, "\\Wildcards");
        TagSet* wildcards = new TagSet;
        wildcards->SetPath(path, 1);
        FilterTagList(wildcards, out, src, dest);
        delete wildcards;
    }
    FilterTagList(root, out, src, dest);
    FilterTagList(tags, out, src, dest);

    const char* outPath = out->GetPath();
    short refreshed = image->RefreshOptions(outPath != nullptr ? outPath : "");
    Diagnostic("FilterOptions: %s to %s, the engine reads %s and gives %d", src, dest,
               outPath != nullptr ? outPath : "(no stored set)", refreshed);
}

extern "C" ZVOPT32_API void TranslateOneTag(TagSet* tags, const char* prefix, const char* oldKey,
                                            const char* newKey, const char* name)
{
    TagSetAccess access(tags);
    zv::TranslateOneTag(access, prefix, oldKey, newKey, name);
}

extern "C" ZVOPT32_API void TranslateAllTags(TagSet* tags, const char* prefix, const char* oldKey,
                                             const char* newKey)
{
    OptionContext* options = Options();
    if (options == nullptr)
        return;
    TagSetAccess access(tags);
    zv::TranslateAllTags(access, options->translatedKey, prefix, oldKey, newKey);
}
