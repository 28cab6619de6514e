// The filter and the translation over any keys, values and extensions.
#include <cstring>

#include "tag_lines.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    zvfuzz::TagInput input = zvfuzz::ParseTagLines(data, size);
    zvtest::MemoryTags out;
    zv::FilterTagList(input.tags, out, input.src.c_str(), input.dest.c_str());

    char translated[zv::kTranslatedKeySize] = "~~~";
    zv::TranslateAllTags(input.tags, translated, input.src.c_str(), "~~~", input.dest.c_str());
    zv::TranslateAllTags(input.tags, translated, input.src.c_str(), input.dest.c_str(), "GIF");
    zv::TranslateAllTags(input.tags, translated, input.src.c_str(), "GIF", input.dest.c_str());
    if (std::strlen(translated) >= sizeof translated)
        __builtin_trap();
    return 0;
}
