// The tag file of zvconv: one KEY=VALUE a line, "#" comments, and an
// optional "[Wildcards]" heading after which the lines go to the stored
// wildcard set instead of the tag set itself. See docs/zvconv.md.
#pragma once

#include <string>
#include <vector>

namespace zvconv {

struct TagLine {
    std::string key;
    std::string value;
    bool wildcard;  // below the "[Wildcards]" heading
    int line;
};

struct TagFileError {
    int line;
    std::string message;
};

// Splits the text of a tag file. Lines that break a rule are left out and
// reported; the others are kept in the order of the file.
void ParseTagFile(const std::string& text, std::vector<TagLine>* tags, std::vector<TagFileError>* errors);

}  // namespace zvconv
