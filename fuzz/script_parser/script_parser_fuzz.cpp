// Any bytes as a command script: the parser must answer, never crash, and
// keep its promises about the lines before a bad one.
#include <cstdlib>

#include "script_parser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ravi::ScriptParse p;
    short rc = ravi::ParseScript(data, size, &p);
    if (rc != p.code)
        std::abort();
    if (rc == 0 && p.badLine != 0)
        std::abort();
    if (rc != 0 && p.commands.size() != size_t(p.badLine - 1))
        std::abort();
    for (const ravi::ScriptCommand& c : p.commands)
        if (c.argCount < 0 || c.argCount > ravi::kScriptMaxArgs || ravi::ScriptWord(c.op)[0] == 0)
            std::abort();
    return 0;
}
