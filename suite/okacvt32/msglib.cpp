// MsgLib: the texts of the codes that the suite's libraries give. The texts
// stand in this library's string table (okacvt32.rc, engine_messages.rc)
// under the ids of message_codes.h.
#include <cstdio>

#include "gamma_curve.h"
#include "message_codes.h"
#include "okacvt32.h"

namespace {

HMODULE ThisModule()
{
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&ThisModule), &module);
    return module;
}

// The caller's buffer holds at least this much.
constexpr int kTextSize = 256;

}  // namespace

MsgLib::MsgLib() = default;
MsgLib::~MsgLib() = default;

char* MsgLib::GetMessageA(short code, char* text)
{
    if (text == nullptr) return nullptr;
    int id = zvcvt::MessageStringId(code);
    if (id != 0 && LoadStringA(ThisModule(), static_cast<UINT>(id), text, kTextSize) > 0) return text;
    // A code without a text of its own still tells the user its number.
    if (code < 0)
        std::snprintf(text, kTextSize, "Unknown error (code %d)", code);
    else
        std::snprintf(text, kTextSize, "Warning (code %d)", code);
    return text;
}

short CvtCreateGammaValue(short count, short gamma, short contrast, short bright, unsigned char* table)
{
    return zvcvt::FillGammaTable(count, gamma, contrast, bright, table);
}
