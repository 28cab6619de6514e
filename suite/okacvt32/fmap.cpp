// FMap: a file shared through a mapping, so that two processes (a host and
// the program that wrote the file) see each other's writes at once.
#include "okacvt32.h"

namespace {

// The codes of the file errors, as MsgLib names them.
constexpr short kFileNotFound = -202;
constexpr short kAccessDenied = -213;
constexpr short kOpenFailure = -250;
constexpr short kInvalidParameter = -1001;

short CodeOfLastError()
{
    switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND: return kFileNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION: return kAccessDenied;
    default: return kOpenFailure;
    }
}

}  // namespace

FMap::FMap(char* name, long wanted, unsigned short flags)
    : data(nullptr), size(0), status(0), file_(INVALID_HANDLE_VALUE), mapping_(nullptr)
{
    if (name == nullptr || wanted < 0 || flags != 0) {
        status = kInvalidParameter;
        return;
    }
    file_ = CreateFileA(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file_ == INVALID_HANDLE_VALUE) {
        status = CodeOfLastError();
        return;
    }
    LARGE_INTEGER length = {};
    if (!GetFileSizeEx(file_, &length) || length.HighPart != 0 || length.LowPart > 0x7fffffffUL) {
        status = kOpenFailure;
        return;
    }
    unsigned long mapped = length.LowPart;
    if (static_cast<unsigned long>(wanted) > mapped) mapped = static_cast<unsigned long>(wanted);
    // An empty file can't be mapped; it is a file of no bytes all the same.
    if (mapped == 0) return;
    mapping_ = CreateFileMappingA(file_, nullptr, PAGE_READWRITE, 0, DWORD(mapped), nullptr);
    if (mapping_ == nullptr) {
        status = CodeOfLastError();
        return;
    }
    data = static_cast<unsigned char*>(MapViewOfFile(mapping_, FILE_MAP_WRITE, 0, 0, mapped));
    if (data == nullptr) {
        status = CodeOfLastError();
        return;
    }
    size = mapped;
}

FMap::~FMap()
{
    if (data != nullptr) UnmapViewOfFile(data);
    if (mapping_ != nullptr) CloseHandle(mapping_);
    if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
}
