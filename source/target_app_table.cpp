#include "target_app_table.h"

#include <cstring>

#include "format_types.h"

namespace zv {

namespace {

// Copies text into a fixed buffer, cutting what doesn't fit.
template <std::size_t N>
void CopyView(char (&out)[N], std::string_view text)
{
    std::size_t n = text.size() < N - 1 ? text.size() : N - 1;
    if (n != 0)
        std::memcpy(out, text.data(), n);
    out[n] = '\0';
}

template <std::size_t N>
void AppendView(char (&out)[N], std::string_view text)
{
    std::size_t used = std::strlen(out);
    std::size_t room = N - 1 - used;
    std::size_t n = text.size() < room ? text.size() : room;
    if (n != 0)
        std::memcpy(out + used, text.data(), n);
    out[used + n] = '\0';
}

// The tables hold a few dozen strings; a loader that never reports a
// missing string must still not keep the walk going for ever.
constexpr int kMaxTableStrings = 1000;

}  // namespace

int TargetAppTableFor(short srcType)
{
    return IsRasterType(srcType) ? kRasterAppTable : kVectorAppTable;
}

TableEnd WalkTargetAppTable(int firstId, TableStringLoader load, void* loadContext, TableEntryVisitor visit,
                            void* visitContext)
{
    for (int i = 0; i < kMaxTableStrings; ++i) {
        char text[kTableStringRoom + 1] = {};
        if (!load(loadContext, firstId + i, text, sizeof text))
            return TableEnd::kMissingString;
        text[kTableStringRoom] = '\0';
        std::string_view rest(text);
        bool goesOn = !rest.empty() && rest.back() == '~';
        while (!rest.empty()) {
            std::size_t tilde = rest.find('~');
            std::string_view entry = rest.substr(0, tilde);
            rest = tilde == std::string_view::npos ? std::string_view() : rest.substr(tilde + 1);
            if (!entry.empty() && !visit(visitContext, entry))
                return TableEnd::kStopped;
        }
        if (!goesOn)
            return TableEnd::kRegular;
    }
    return TableEnd::kMissingString;
}

std::string_view TargetAppName(std::string_view entry)
{
    return entry.substr(0, entry.find('|'));
}

bool NextTargetAppField(std::string_view& rest, const char* srcExt, TargetAppField& field)
{
    while (!rest.empty()) {
        std::size_t bar = rest.find('|');
        std::string_view text = rest.substr(0, bar);
        rest = bar == std::string_view::npos ? std::string_view() : rest.substr(bar + 1);

        std::size_t equals = text.find('=');
        if (equals == std::string_view::npos || equals == 0)
            continue;
        std::string_view key = text.substr(0, equals);
        std::size_t question = key.rfind('?');
        if (question != std::string_view::npos) {
            // The question marks stand for the letters of the source
            // extension, as in the conversion keys.
            CopyView(field.key, srcExt != nullptr ? std::string_view(srcExt) : std::string_view());
            AppendView(field.key, key.substr(question + 1));
        } else {
            CopyView(field.key, key);
        }
        if (field.key[0] == '\0')
            continue;
        CopyView(field.value, text.substr(equals + 1));
        return true;
    }
    return false;
}

}  // namespace zv
