// OKAHEAP40: one allocator for every library of the suite. Blocks come from
// the process heap, so a block taken in one DLL can be given back by another
// whatever C runtime each was linked with.
#include <windows.h>

#include "okaheap40.h"

OKAHEAP40_API void* OkiAllocSMem(unsigned long size)
{
    // A request of 0 bytes still gets a block of its own, so that a caller
    // can tell "no memory" (null) from "nothing asked for".
    return HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size ? size : 1);
}

OKAHEAP40_API void OkiFreeSMem(void* memory)
{
    if (memory)
        HeapFree(GetProcessHeap(), 0, memory);
}

OKAHEAP40_API void OkiSound(unsigned short frequency, unsigned short duration)
{
    // Beep takes frequencies from 37 Hz up to 32767 Hz; anything outside
    // that would make the call fail without a sound, so it is brought in.
    DWORD hz = frequency < 37 ? 37 : frequency;
    if (hz > 32767)
        hz = 32767;
    if (!Beep(hz, duration))
        MessageBeep(MB_ICONHAND);
}

void* OKAObject::operator new(std::size_t size) noexcept
{
    return OkiAllocSMem(static_cast<unsigned long>(size));
}

void OKAObject::operator delete(void* object)
{
    OkiFreeSMem(object);
}
