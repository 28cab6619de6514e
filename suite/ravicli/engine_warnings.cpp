// The handler of the engine's warnings. One per process, like the host's
// warnings list that it usually feeds; the engine runs on the host's thread.
#include "engine_warnings.h"
#include "ravicli.h"

namespace {

RavicliWarningHandler g_handler = nullptr;
HWND g_owner = nullptr;

}  // namespace

void RavicliSetWarningHandler(RavicliWarningHandler handler, HWND owner)
{
    g_handler = handler;
    g_owner = owner;
}

namespace ravi {

void ReportWarning(short code)
{
    if (g_handler != nullptr) g_handler(g_owner, code);
}

}  // namespace ravi
