#include <windows.h>

#include "module.h"

#ifdef ZV_WITH_SUITE
#include "core_win.h"
#include "frame.h"
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
    // Every call brings the handle, and every call keeps it.
    g_module = instance;
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(instance);
#ifdef ZV_WITH_SUITE
        if (!CreateOptionContext())
            return FALSE;
#endif
    }
#ifdef ZV_WITH_SUITE
    // The thumbnails go with the record; a modeless warnings dialog is left
    // to the host's window, which owns it.
    if (reason == DLL_PROCESS_DETACH && Options() != nullptr) {
        FreePreviews();
        DestroyOptionContext();
    }
#endif
    return TRUE;
}
