// OKAHEAP40: the suite's memory and sound library.
#pragma once

#include <cstddef>

#ifdef OKAHEAP40_BUILD
#define OKAHEAP40_API __declspec(dllexport)
#else
#define OKAHEAP40_API __declspec(dllimport)
#endif

// Memory filled with zeros, or null when it cannot be had.
OKAHEAP40_API void* OkiAllocSMem(unsigned long size);
// Gives back memory of OkiAllocSMem; null is allowed.
OKAHEAP40_API void OkiFreeSMem(void* memory);
// Sounds an alarm of the given frequency (Hz) for the given time (ms).
OKAHEAP40_API void OkiSound(unsigned short frequency, unsigned short duration);

// Base of the suite's objects: they come from the suite's own allocator, so
// that an object made in one library can be deleted by another. It adds no
// data and no virtual table, so a derived class's first field stays first.
// operator new gives null when memory runs out (no exception crosses a
// library's boundary); a new-expression then yields null and runs no
// constructor, so callers test the pointer.
class OKAHEAP40_API OKAObject {
public:
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* object);
};
