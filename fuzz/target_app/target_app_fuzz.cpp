// The table grammar on arbitrary strings: the input is cut at zero bytes
// into consecutive table strings, and every entry is split into its fields.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "target_app_table.h"

namespace {

struct Input {
    std::vector<std::string_view> strings;
};

bool Load(void* context, int id, char* text, std::size_t size)
{
    auto* input = static_cast<Input*>(context);
    if (id < 0 || static_cast<std::size_t>(id) >= input->strings.size())
        return false;
    std::string_view s = input->strings[id];
    std::size_t n = s.size() < size - 1 ? s.size() : size - 1;
    std::memcpy(text, s.data(), n);
    text[n] = '\0';
    return true;
}

bool Visit(void* context, std::string_view entry)
{
    const char* srcExt = static_cast<const char*>(context);
    std::string_view name = zv::TargetAppName(entry);
    std::string_view rest = entry.substr(name.size());
    zv::TargetAppField field;
    while (zv::NextTargetAppField(rest, srcExt, field)) {
        if (std::strlen(field.key) >= sizeof field.key || std::strlen(field.value) >= sizeof field.value)
            __builtin_trap();
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input;
    std::string_view all(reinterpret_cast<const char*>(data), size);
    while (!all.empty()) {
        std::size_t zero = all.find('\0');
        input.strings.push_back(all.substr(0, zero));
        all = zero == std::string_view::npos ? std::string_view() : all.substr(zero + 1);
    }
    char srcExt[] = "PCX";
    zv::WalkTargetAppTable(0, Load, &input, Visit, srcExt);
    return 0;
}
