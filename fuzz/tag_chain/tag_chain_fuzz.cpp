// Drives a chain of three stores with arbitrary operations, and feeds the
// same bytes to the text readers of ZVWIO32. After every step the chain must
// still answer a read of every key it reports in a search.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "portable/zvw_portable.h"
#include "tag_store.h"

namespace {

std::string Take(const uint8_t*& p, const uint8_t* end)
{
    std::size_t n = p < end ? (*p++ % 16) : 0;
    std::string s;
    while (n-- && p < end) {
        const uint8_t b = *p++;
        s += static_cast<char>(b % 4 == 0 ? '~' : 'a' + (b % 5) - (b & 8 ? 32 : 0));
    }
    return s;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    zvw::ParseLong(text.c_str());
    zvw::ParseDouble(text.c_str());
    double d = 0;
    zvw::ParseDoubleStrict(text.c_str(), &d);
    char dir[16], name[16], ext[16];
    zvw::SplitPath(text.c_str(), dir, name, ext, sizeof dir);
    std::vector<std::string> items;
    zvw::AppendListEntry(text.c_str(), items);
    zvw::LeadingNumber(text.c_str(), 8);
    zvw::WithCommas(text);

    oki::TagStore stores[3];
    const uint8_t* p = data;
    const uint8_t* end = data + size;
    while (p < end) {
        const uint8_t op = *p++;
        oki::TagStore& s = stores[op % 3];
        const std::string key = Take(p, end);
        const std::string value = Take(p, end);
        switch ((op / 3) % 7) {
        case 0: s.Set(key.c_str(), value.c_str()); break;
        case 1: s.SetOwn(key.c_str(), ""); break;
        case 2: s.Fuse(); break;
        case 3: s.SetChild(&stores[(op / 21) % 3]); break;
        case 4: s.SetChild(nullptr); break;
        case 5: s.SetNote(key.c_str(), value.c_str()); break;
        default: s.Get(key.c_str()); break;
        }
        for (const std::string& k : s.Keys(""))
            if (!s.Get(k.c_str()))
                __builtin_trap();  // a search gave a key that a read cannot find
    }
    return 0;
}
