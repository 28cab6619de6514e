// Section descriptions and image headers as another process may hand them.
#include <cstring>
#include <string>
#include <vector>

#include "option_core.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    // The description: the input up to its first zero, in a buffer of its
    // own size so that any read past the terminator is caught.
    std::size_t length = 0;
    while (length < size && data[length] != 0)
        ++length;
    std::vector<char> text(data, data + length);
    text.push_back('\0');
    zv::SectionDescription d;
    if (zv::ParseSectionDescription(text.data(), &d) == zv::DescriptionResult::kOk) {
        std::uint16_t wide[zv::kSectionNameSize];
        zv::WidenSectionName(d.name, wide);
        char candidate[zv::kCandidateSize];
        zv::MakeSectionCandidate(d.name, d.id, candidate);
    }
    // The header: the whole input, exactly as long as given.
    std::vector<unsigned char> view(data, data + size);
    std::size_t bytes = 0;
    if (zv::DibByteCount(view.data(), view.size(), &bytes) && bytes > view.size())
        __builtin_trap();
    return 0;
}
