// What context help and the dialog choice read of the dialog in hand: the
// option context's fields.
#include <cstring>

#include "bounded_text.h"
#include "core_win.h"
#include "frame.h"
#include "module.h"

namespace {

char g_defaultHelpFile[260];

}  // namespace

// Before the first dialog the record holds no help file yet: the one beside
// the library, as a dialog without a help file of its own gets. A path that
// can't be had gives "?", a name that no viewer opens.
const char* CurrentHelpFile()
{
    const OptionContext* o = Options();
    if (o != nullptr && o->helpFile[0] != '\0')
        return o->helpFile;
    char path[260] = {};
    DWORD length = GetModuleFileNameA(LibraryModule(), path, sizeof path);
    char* slash = length ? strrchr(path, '\\') : nullptr;
    if (!slash) {
        zv::CopyBounded(g_defaultHelpFile, "?");
        return g_defaultHelpFile;
    }
    slash[1] = '\0';
    zv::CopyBounded(g_defaultHelpFile, path);
    zv::AppendBounded(g_defaultHelpFile, "ZAVRIN.HLP");
    return g_defaultHelpFile;
}

HWND CurrentParentWindow()
{
    const OptionContext* o = Options();
    return o != nullptr ? o->parentWnd : nullptr;
}

short CurrentOperation()
{
    const OptionContext* o = Options();
    return o != nullptr ? o->operation : 0;
}
