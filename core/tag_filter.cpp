// Moving tags between keys: the filter that prepares the engine's options
// for one conversion, and the translation of a conversion's options from one
// destination to another in the save dialog.
#include <cstring>
#include <iterator>

#include "bounded_text.h"
#include "option_core.h"

namespace zv {

namespace {

// Work buffer of a key taken from a search; longer keys are cut.
constexpr std::size_t kFilterKeySize = 256;

// Conversion tags (after source and destination) and destination tags
// (after the destination) that the command script already carries: they
// would be applied twice if the engine also saw them as options.
const char* const kScriptConversionNames[] = {
    "REVBW", "APPLYCOLORS", "COG",    "BRIGHT", "CONTRAST", "GAMMA", "INV",
    "FLIPV", "FLIPH",       "SMOOTH", "HIST",   "CPROC",    "OPAL",
};
const char* const kScriptDestinationNames[] = {"ROT", "DEP", "SFREQ"};

bool OneOf(const char* text, const char* const* names, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (EqualNoCase(text, names[i]))
            return true;
    }
    return false;
}

// target = head + the key from place `from` on. False when the key is too
// short to have that place: such a key names nothing that could be copied.
bool Resolve(char (&target)[kFilterKeySize], const char* head1, const char* head2, const char* key,
             std::size_t from)
{
    if (from > std::strlen(key))
        return false;
    CopyBounded(target, head1);
    AppendBounded(target, head2);
    AppendBounded(target, key + from);
    return true;
}

}  // namespace

bool IsScriptTag(const char* key, std::size_t srcLength, std::size_t destLength)
{
    if (StartsWithNoCase(key, "RGB"))
        return true;
    std::size_t length = std::strlen(key);
    if (srcLength + destLength <= length &&
        OneOf(key + srcLength + destLength, kScriptConversionNames, std::size(kScriptConversionNames)))
        return true;
    return destLength <= length &&
           OneOf(key + destLength, kScriptDestinationNames, std::size(kScriptDestinationNames));
}

void FilterTagList(TagAccess& list, TagAccess& out, const char* src, const char* dest)
{
    std::size_t a = std::strlen(src);
    std::size_t b = std::strlen(dest);
    void* search = list.OpenSearch("");
    if (search == nullptr)
        return;
    while (const char* found = list.NextKey(search)) {
        char key[kFilterKeySize];
        CopyBounded(key, found);
        char target[kFilterKeySize];
        bool copy;
        // Only the first rule that fits applies.
        if (StartsWithNoCase(key, "??????"))
            copy = Resolve(target, src, dest, key, a + b);
        else if (StartsWithNoCase(key, "???"))
            copy = Resolve(target, src, "", key, a);
        else if (StartsWithNoCase(key, src) && std::strncmp(key + a, "???", 3) == 0)
            copy = Resolve(target, src, dest, key, a + b);
        else
            copy = !IsScriptTag(key, a, b) && Resolve(target, key, "", "", 0);
        if (!copy)
            continue;
        const char* value = list.Get(key);
        if (value != nullptr && value[0] != '\0')
            out.Set(target, value);
    }
    list.CloseSearch(search);
}

const TranslationRow kTranslationRows[] = {
    {"DEP", false},      {"CPROC", true},    {"COG", true},       {"SFREQ", false},  {"REVBW", true},
    {"BVIS", true},      {"INV", true},      {"APPLYCOLORS", true}, {"OPAL", true},  {"HIST", true},
    {"CONTRAST", true},  {"BRIGHT", true},   {"GAMMA", true},     {"FLIPV", true},   {"FLIPH", true},
    {"UNITS", false},    {"W", false},       {"H", false},        {"A", false},      {"ROT", false},
    {"TRACE", true},     {"MAXCOLORS", true}, {"UNDITHER", true}, {"SPECKREM", true}, {"GENTOL", true},
    {"BEZGEN", true},    {kMetafileClassTag, false}, {"SCALING", false},  {"HR", false},     {"VR", false},
    {"XRES", false},     {"YRES", false},    {"SMOOTH", true},    {"CRV", false},    {"STK", false},
    {"STKLINE", true},   {"STKGRAD", false},
};
const std::size_t kTranslationRowCount = std::size(kTranslationRows);

void TranslateOneTag(TagAccess& tags, const char* prefix, const char* oldKey, const char* newKey,
                     const char* name)
{
    char key[kKeySize];
    MakeKey(key, prefix, oldKey, name);
    const char* found = tags.Get(key);
    if (found == nullptr)
        return;
    // The store may move its text on the next write; 63 characters survive.
    char value[kKeySize];
    CopyBounded(value, found);

    char newTag[kKeySize];
    MakeKey(newTag, prefix, newKey, name);
    if (tags.Get(newTag) == nullptr)
        tags.Set(newTag, value);

    // The neutral "~~~" keeps its tags for the next destination; a real
    // destination gives them up to the one they moved to.
    if (std::strcmp(oldKey, "~~~") != 0 && !EqualNoCase(oldKey, newKey))
        tags.Set(key, "");
}

void TranslateAllTags(TagAccess& tags, char (&translatedKey)[kTranslatedKeySize], const char* prefix,
                      const char* oldKey, const char* newKey)
{
    if (!EqualNoCase(oldKey, "~~~") && !EqualNoCase(newKey, translatedKey))
        return;
    CopyBounded(translatedKey, newKey);
    for (const TranslationRow& row : kTranslationRows)
        TranslateOneTag(tags, row.withPrefix ? prefix : "", oldKey, newKey, row.name);
}

}  // namespace zv
