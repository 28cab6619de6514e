// The system's font key, read the way the region files count fonts: by the
// order in which the key gives its values.
#include "font_key.h"

#include <windows.h>

#include <cstring>
#include <new>

#include "bounded_text.h"

const char kFontKey[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Fonts";

namespace {

constexpr char kTrueTypeSuffix[] = " (TrueType)";
// The room of a value name while the key is searched.
constexpr DWORD kValueNameSize = 100;
// The room a name gets for the suffix and the blank that may be cut.
constexpr std::size_t kSuffixRoom = 50;

// Drops the blank at the end of a one-word name: "Arial " is "Arial", but
// "Times New Roman " keeps its blank (and so finds nothing).
void DropLoneTrailingBlank(char* name)
{
    char* blank = std::strchr(name, ' ');
    if (blank != nullptr && blank[1] == '\0') *blank = '\0';
}

}  // namespace

int FindFontIndex(const char* name)
{
    if (name == nullptr) return -1;
    std::size_t room = std::strlen(name) + kSuffixRoom;
    char* wanted = new (std::nothrow) char[room];
    if (wanted == nullptr) return -1;
    zv::CopyBounded(wanted, room, name);
    DropLoneTrailingBlank(wanted);
    zv::AppendBounded(wanted, room, kTrueTypeSuffix);
    std::size_t length = std::strlen(wanted);

    int found = -1;
    HKEY key = nullptr;
    if (RegOpenKeyA(HKEY_LOCAL_MACHINE, kFontKey, &key) == ERROR_SUCCESS) {
        for (DWORD index = 0;; ++index) {
            char value[kValueNameSize + 1] = "";
            DWORD valueSize = kValueNameSize;
            LONG status = RegEnumValueA(key, index, value, &valueSize, nullptr, nullptr, nullptr, nullptr);
            if (status == ERROR_NO_MORE_ITEMS) break;
            if (status != ERROR_SUCCESS) continue;  // a name longer than the room: not the one
            if (_strnicmp(value, wanted, length) == 0) {
                found = int(index);
                break;
            }
        }
        RegCloseKey(key);
    }
    delete[] wanted;
    return found;
}

char* GetFontNameAt(int index, char* out, std::size_t size)
{
    if (out == nullptr || size == 0 || index < 0) return nullptr;
    HKEY key = nullptr;
    if (RegOpenKeyA(HKEY_LOCAL_MACHINE, kFontKey, &key) != ERROR_SUCCESS) return nullptr;
    char* result = nullptr;
    DWORD valueSize = DWORD(size);
    char value[256] = "";
    if (valueSize > sizeof value) valueSize = sizeof value;
    if (RegEnumValueA(key, DWORD(index), value, &valueSize, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS) {
        if (char* suffix = std::strstr(value, kTrueTypeSuffix)) *suffix = '\0';
        zv::CopyBounded(out, size, value);
        result = out;
    }
    RegCloseKey(key);
    return result;
}
