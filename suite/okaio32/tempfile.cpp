// Temporary files: a record whose entries hosts call through the fixed
// offsets of tagSFILE.
#include <windows.h>

#include <cstring>

#include "okaio32.h"

namespace {

void NoteError(tagSFILE* file, short code)
{
    if (file->error == 0)
        file->error = code;
}

short WriteTempFile(tagSFILE* file, const void* bytes, unsigned long length)
{
    if (!file)
        return OKI_ERR_ARGUMENT;
    if (length == 0)
        return OKI_OK;
    DWORD done = 0;
    if (!bytes || !file->handle || !WriteFile(file->handle, bytes, length, &done, nullptr) || done != length) {
        NoteError(file, OKI_ERR_WRITE);
        return OKI_ERR_WRITE;
    }
    file->written += done;
    return OKI_OK;
}

short CloseTempFile(tagSFILE* file)
{
    if (!file)
        return OKI_ERR_ARGUMENT;
    if (file->handle && !CloseHandle(file->handle))
        NoteError(file, OKI_ERR_WRITE);
    file->handle = nullptr;
    // With name still set the file was only scratch; a caller that wants it
    // kept has taken the path (and the block that holds it) out already.
    if (file->name) {
        DeleteFileA(file->name);
        OkiFreeSMem(file->name);
        file->name = nullptr;
    }
    const short error = file->error;
    OkiFreeSMem(file);
    return error;
}

}  // namespace

OKAIO32_API short OkiOpenTempFile(tagSFILE** file, unsigned short mode, unsigned short flags)
{
    (void)flags;  // no flag changes how a temporary file is made
    if (!file)
        return OKI_ERR_ARGUMENT;
    *file = nullptr;

    char dir[MAX_PATH] = {};
    const DWORD n = GetTempPathA(sizeof dir, dir);
    if (n == 0 || n >= sizeof dir)
        return OKI_ERR_TEMPFILE;
    auto* name = static_cast<char*>(OkiAllocSMem(MAX_PATH));
    auto* f = static_cast<tagSFILE*>(OkiAllocSMem(sizeof(tagSFILE)));
    if (!name || !f) {
        OkiFreeSMem(name);
        OkiFreeSMem(f);
        return OKI_ERR_MEMORY;
    }
    // GetTempFileNameA makes the file itself, so the name is ours alone.
    if (GetTempFileNameA(dir, "zvo", 0, name) == 0) {
        OkiFreeSMem(name);
        OkiFreeSMem(f);
        return OKI_ERR_TEMPFILE;
    }
    HANDLE h = CreateFileA(name, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
    if (h == INVALID_HANDLE_VALUE) {
        DeleteFileA(name);
        OkiFreeSMem(name);
        OkiFreeSMem(f);
        return OKI_ERR_TEMPFILE;
    }
    f->handle = h;
    f->mode = mode;
    f->name = name;
    f->write = &WriteTempFile;
    f->close = &CloseTempFile;
    *file = f;
    return OKI_OK;
}
