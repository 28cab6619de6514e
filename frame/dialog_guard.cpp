#include "dialog_guard.h"

#include "core_win.h"
#include "diagnostics.h"
#include "seams.h"

namespace {

bool DialogRuns()
{
    return Options()->inDialog != 0;
}

// The one place that writes the field.
void MarkDialog(bool running)
{
    Options()->inDialog = running ? 1 : 0;
}

}  // namespace

bool RefuseWhileDialogRuns(const char* entry)
{
    if (!DialogRuns())
        return false;
    Diagnostic("%s: refused, a dialog of the library runs already", entry);
    SeamMessageBeep(0);
    return true;
}

DialogGuard::DialogGuard(const char* entry) : entry_(entry), held_(!RefuseWhileDialogRuns(entry))
{
    if (!held_)
        return;
    MarkDialog(true);
    Diagnostic("%s: starts", entry_);
}

DialogGuard::~DialogGuard()
{
    if (!held_)
        return;
    MarkDialog(false);
    Diagnostic("%s: ends", entry_);
}

DialogGuardRelease::DialogGuardRelease() : wasHeld_(DialogRuns())
{
    MarkDialog(false);
}

DialogGuardRelease::~DialogGuardRelease()
{
    MarkDialog(wasHeld_);
}
