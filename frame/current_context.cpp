// What context help and the dialog choice read of the dialog in hand: the
// option context's fields.
#include "bounded_text.h"
#include "core_win.h"
#include "frame.h"
#include "module.h"

namespace {

char g_defaultHelpFile[zv::kPathSize];

}  // namespace

// Before the first dialog the record holds no help file yet: the one beside
// the library, as a dialog without a help file of its own gets.
const char* CurrentHelpFile()
{
    const OptionContext* o = Options();
    if (o != nullptr && o->helpFile[0] != '\0')
        return o->helpFile;
    DefaultHelpFile(g_defaultHelpFile);
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
