#include <windows.h>

#include "module.h"

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
    }
    return TRUE;
}
