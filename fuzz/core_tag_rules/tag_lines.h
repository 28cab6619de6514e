// Turns fuzz input into extensions and tags: the first line is "src dest",
// every other line KEY=VALUE (a line without "=" is a key with the value
// "ON"). Bytes are taken as they come, zeros excepted.
#pragma once

#include <string>
#include <string_view>

#include "memory_tags.h"

namespace zvfuzz {

struct TagInput {
    std::string src = "BMP";
    std::string dest = "TIF";
    zvtest::MemoryTags tags;
};

inline TagInput ParseTagLines(const unsigned char* data, std::size_t size)
{
    TagInput input;
    std::string text(reinterpret_cast<const char*>(data), size);
    for (auto& c : text)
        if (c == '\0')
            c = ' ';
    std::size_t start = 0;
    bool first = true;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        start = end + 1;
        if (first) {
            first = false;
            std::size_t blank = line.find(' ');
            if (blank != std::string::npos) {
                input.src = line.substr(0, blank);
                input.dest = line.substr(blank + 1);
                continue;
            }
        }
        if (line.empty())
            continue;
        std::size_t eq = line.find('=');
        if (eq == std::string::npos)
            input.tags.tags[line] = "ON";
        else if (eq > 0 && eq + 1 < line.size())
            input.tags.tags[line.substr(0, eq)] = line.substr(eq + 1);
    }
    return input;
}

}  // namespace zvfuzz
