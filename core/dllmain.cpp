#include <windows.h>

#include "module.h"

#ifdef ZV_WITH_SUITE
#include "core_win.h"
#endif

namespace {
HINSTANCE g_module = nullptr;
}

HINSTANCE LibraryModule()
{
    return g_module;
}

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        g_module = instance;
        DisableThreadLibraryCalls(instance);
#ifdef ZV_WITH_SUITE
        if (!CreateOptionContext())
            return FALSE;
#endif
    }
#ifdef ZV_WITH_SUITE
    if (reason == DLL_PROCESS_DETACH)
        DestroyOptionContext();
#endif
    return TRUE;
}
