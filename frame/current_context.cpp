// What the frame reads of the dialog in hand. These answer from the module
// alone; the option context takes them over when it comes (its helpFile,
// parentWnd and operation fields), and the callers stay as they are.
#include <cstring>

#include "bounded_text.h"
#include "frame.h"
#include "module.h"

namespace {

char g_helpFile[260];

}  // namespace

// The help file lies beside the library. A path that can't be had gives
// "?", a name that no viewer opens.
const char* CurrentHelpFile()
{
    char path[260] = {};
    DWORD length = GetModuleFileNameA(LibraryModule(), path, sizeof path);
    char* slash = length ? strrchr(path, '\\') : nullptr;
    if (!slash) {
        zv::CopyBounded(g_helpFile, "?");
        return g_helpFile;
    }
    slash[1] = '\0';
    zv::CopyBounded(g_helpFile, path);
    zv::AppendBounded(g_helpFile, "ZAVRIN.HLP");
    return g_helpFile;
}

HWND CurrentParentWindow()
{
    return nullptr;
}

short CurrentOperation()
{
    return 0;
}
