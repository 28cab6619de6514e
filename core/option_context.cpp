// The one record of the process, made when the library loads.
#include "core_win.h"
#include "okaheap40.h"

namespace {
OptionContext* g_options = nullptr;
}

OptionContext* Options()
{
    return g_options;
}

bool CreateOptionContext()
{
    // The allocator gives zeroed memory: every pointer starts null and
    // every text empty.
    g_options = static_cast<OptionContext*>(OkiAllocSMem(sizeof(OptionContext)));
    if (g_options == nullptr)
        return false;
    g_options->inDialog = 0;
    // No destination has been translated yet: the neutral key.
    lstrcpynA(g_options->translatedKey, "~~~", sizeof g_options->translatedKey);
    return true;
}

void DestroyOptionContext()
{
    OkiFreeSMem(g_options);
    g_options = nullptr;
}
