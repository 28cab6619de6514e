// The command script over any tags, image kind and sizes. Every line must
// be a word and decimal numbers with single blanks, ended by LF CR.
#include <cctype>
#include <string>

#include "../core_tag_rules/tag_lines.h"
#include "fake_script_host.h"

namespace {

void CheckScript(const std::string& script)
{
    std::size_t start = 0;
    while (start < script.size()) {
        std::size_t end = script.find("\n\r", start);
        if (end == std::string::npos || end == start)
            __builtin_trap();
        std::string line = script.substr(start, end - start);
        if (!std::isalpha(static_cast<unsigned char>(line[0])) || line.back() == ' ' ||
            line.find("  ") != std::string::npos)
            __builtin_trap();
        start = end + 2;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    zvtest::FakeScriptHost host;
    if (size >= 4) {
        host.raster = data[0] & 1;
        host.resizeResult = data[0] & 2;
        host.width = static_cast<long>(data[1]) * 97;
        host.height = static_cast<long>(data[2]) * 61;
        host.resizeWidth = static_cast<long>(data[3]) * 131;
        host.resizeHeight = static_cast<long>(data[3]) * 17;
        data += 4;
        size -= 4;
    }
    zvfuzz::TagInput input = zvfuzz::ParseTagLines(data, size);
    host.tags.tags = input.tags.tags;
    zv::WriteOptionScript(host, input.src.c_str(), input.dest.c_str());
    CheckScript(host.Script());
    if (host.tags.OpenSearches() != 0)
        __builtin_trap();
    return 0;
}
