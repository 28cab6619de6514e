#include <cstring>

#include "core_win.h"
#include "frame.h"
#include "module.h"

namespace {
HINSTANCE g_module = nullptr;
}

HINSTANCE LibraryModule()
{
    return g_module;
}

void KeepLibraryModule(HINSTANCE module)
{
    g_module = module;
}

bool LibraryFolder(char (&folder)[zv::kPathSize])
{
    folder[0] = '\0';
    DWORD length = GetModuleFileNameA(LibraryModule(), folder, sizeof folder);
    char* slash = length != 0 && length < sizeof folder ? strrchr(folder, '\\') : nullptr;
    if (slash == nullptr) {
        folder[0] = '\0';
        return false;
    }
    *slash = '\0';
    return true;
}

bool AttachLibrary(HINSTANCE module)
{
    KeepLibraryModule(module);
    return CreateOptionContext();
}

void DetachLibrary()
{
    // The thumbnails go with the record; a modeless warnings dialog is left
    // to the host's window, which owns it.
    if (Options() == nullptr)
        return;
    FreePreviews();
    DestroyOptionContext();
}
