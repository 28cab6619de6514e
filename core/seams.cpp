// Every call of the three reaches the diagnostics too, since what the user
// was told or shown is what a report from the field most needs.
#include "seams.h"

#include "diagnostics.h"

namespace {

ZvPlatformSeams g_seams = {};

}  // namespace

extern "C" ZVOPT32_API void ZvSetPlatformSeams(const ZvPlatformSeams* seams)
{
    g_seams = seams ? *seams : ZvPlatformSeams{};
}

BOOL SeamWinHelp(HWND window, LPCSTR helpFile, UINT command, ULONG_PTR data)
{
    Diagnostic("help: %s, command %u", helpFile != nullptr ? helpFile : "(none)", command);
    if (g_seams.winHelp)
        return g_seams.winHelp(window, helpFile, command, data);
    return WinHelpA(window, helpFile, command, data);
}

BOOL SeamMessageBeep(UINT type)
{
    Diagnostic("beep");
    if (g_seams.messageBeep)
        return g_seams.messageBeep(type);
    return MessageBeep(type);
}

int SeamMessageBox(HWND owner, LPCSTR text, LPCSTR caption, UINT type)
{
    Diagnostic("message box: %s", text != nullptr ? text : "");
    if (g_seams.messageBox)
        return g_seams.messageBox(owner, text, caption, type);
    return MessageBoxA(owner, text, caption, type);
}
