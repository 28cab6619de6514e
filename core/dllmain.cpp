#include <windows.h>

#include "module.h"

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    // Every call brings the handle, and every call keeps it.
    KeepLibraryModule(instance);
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        DisableThreadLibraryCalls(instance);
        return AttachLibrary(instance) ? TRUE : FALSE;
    case DLL_PROCESS_DETACH:
        DetachLibrary();
        return TRUE;
    default:
        return TRUE;
    }
}
