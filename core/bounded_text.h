// Bounded copies into the fixed buffers that the library's records keep
// (tag keys of 64 bytes, captions of 128, paths of 260 or 516). A value that
// does not fit is cut; nothing is written past the end and the result is
// always terminated when the buffer has room for at least the terminator.
#pragma once
#include <cstddef>

namespace zv {

// The sizes of the library's fixed text buffers, besides the tag keys
// (kKeySize in option_core.h): a caption, a path of the system's length,
// and the long path that file dialogs and the engine's file names take.
constexpr std::size_t kCaptionSize = 128;
constexpr std::size_t kPathSize = 260;
constexpr std::size_t kLongPathSize = 516;

// Copies src into dst[size]. A null src copies as the empty text.
// Returns the length written (without the terminator).
std::size_t CopyBounded(char* dst, std::size_t size, const char* src);

// Appends src to the text already in dst[size], cutting what does not fit.
// Returns the new length.
std::size_t AppendBounded(char* dst, std::size_t size, const char* src);

// Appends at most count characters of src.
std::size_t AppendBoundedN(char* dst, std::size_t size, const char* src, std::size_t count);

// True when src would fit in a buffer of size bytes without being cut.
bool FitsIn(std::size_t size, const char* src);

template <std::size_t N>
inline std::size_t CopyBounded(char (&dst)[N], const char* src) { return CopyBounded(dst, N, src); }
template <std::size_t N>
inline std::size_t AppendBounded(char (&dst)[N], const char* src) { return AppendBounded(dst, N, src); }

}  // namespace zv
