#include "tag_file.h"

namespace zvconv {

namespace {

// The longest key a reader of the library can build: 63 characters.
const std::size_t kMaxKey = 63;

std::string Trim(const std::string& text)
{
    std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return "";
    std::size_t last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

}  // namespace

void ParseTagFile(const std::string& text, std::vector<TagLine>* tags, std::vector<TagFileError>* errors)
{
    bool wildcard = false;
    int number = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        start = end + 1;
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        std::string trimmed = Trim(line);
        if (trimmed.empty() || trimmed[0] == '#')
            continue;
        if (trimmed[0] == '[') {
            if (trimmed == "[Wildcards]")
                wildcard = true;
            else if (trimmed == "[Tags]")
                wildcard = false;
            else
                errors->push_back({number, "unknown heading " + trimmed});
            continue;
        }
        std::size_t equals = line.find('=');
        if (equals == std::string::npos) {
            errors->push_back({number, "no \"=\" between key and value"});
            continue;
        }
        // The key is taken without blanks around it; the value as it stands,
        // since blanks may belong to it.
        std::string key = Trim(line.substr(0, equals));
        if (key.empty()) {
            errors->push_back({number, "empty key"});
            continue;
        }
        if (key.size() > kMaxKey) {
            errors->push_back({number, "key longer than 63 characters"});
            continue;
        }
        if (key.find_first_of(" \t\\") != std::string::npos) {
            errors->push_back({number, "blank or backslash in the key"});
            continue;
        }
        tags->push_back({key, line.substr(equals + 1), wildcard, number});
    }
}

}  // namespace zvconv
