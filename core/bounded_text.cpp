#include "bounded_text.h"

#include <cstring>

namespace zv {

static std::size_t LengthWithin(const char* text, std::size_t limit)
{
    std::size_t n = 0;
    while (n < limit && text[n] != '\0')
        ++n;
    return n;
}

std::size_t CopyBounded(char* dst, std::size_t size, const char* src)
{
    if (dst == nullptr || size == 0)
        return 0;
    // A record's own field may come back as the source (a caller hands the
    // context's text to a routine that copies it into the same field), so
    // the source may overlap the buffer: move, don't empty first.
    std::size_t n = src != nullptr ? LengthWithin(src, size - 1) : 0;
    if (n != 0 && dst != src)
        std::memmove(dst, src, n);
    dst[n] = '\0';
    return n;
}

std::size_t AppendBoundedN(char* dst, std::size_t size, const char* src, std::size_t count)
{
    if (dst == nullptr || size == 0)
        return 0;
    // A buffer handed in without a terminator is treated as full.
    std::size_t used = LengthWithin(dst, size);
    if (used == size) {
        dst[size - 1] = '\0';
        return size - 1;
    }
    if (src == nullptr)
        return used;
    std::size_t room = size - 1 - used;
    std::size_t n = LengthWithin(src, count < room ? count : room);
    std::memcpy(dst + used, src, n);
    dst[used + n] = '\0';
    return used + n;
}

std::size_t AppendBounded(char* dst, std::size_t size, const char* src)
{
    return AppendBoundedN(dst, size, src, static_cast<std::size_t>(-1));
}

bool FitsIn(std::size_t size, const char* src)
{
    if (src == nullptr)
        return size > 0;
    return size > 0 && LengthWithin(src, size) < size;
}

}  // namespace zv
