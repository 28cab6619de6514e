// The text and byte layouts that two processes agree on when they share an
// image through a named section.
#include <cstdio>
#include <cstring>

#include "bounded_text.h"
#include "option_core.h"

namespace zv {

namespace {

// Scans 8 characters of the description as "%lX" does, from a terminated
// copy so that the scan cannot run into the next field.
unsigned long ScanHex8(const char* field)
{
    char buffer[9];
    std::memcpy(buffer, field, 8);
    buffer[8] = '\0';
    unsigned long value = 0;
    if (std::sscanf(buffer, "%lX", &value) != 1)
        return 0;
    return value;
}

std::size_t LengthWithin(const char* text, std::size_t limit)
{
    std::size_t n = 0;
    while (n < limit && text[n] != '\0')
        ++n;
    return n;
}

std::uint32_t Read32(const unsigned char* p)
{
    return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
           static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

}  // namespace

DescriptionResult ParseSectionDescription(const char* text, SectionDescription* out)
{
    out->id = 0;
    out->owner = 0;
    out->name[0] = '\0';
    if (text == nullptr || LengthWithin(text, kDescriptionHead) < kDescriptionHead)
        return DescriptionResult::kTooShort;
    out->id = ScanHex8(text);
    out->owner = ScanHex8(text + 8);
    const char* name = text + kDescriptionHead;
    // A cut name would open some other section; take none instead.
    if (!FitsIn(kSectionNameSize, name))
        return DescriptionResult::kNameTooLong;
    CopyBounded(out->name, name);
    return DescriptionResult::kOk;
}

void WidenSectionName(const char* name, std::uint16_t* wide)
{
    std::size_t i = 0;
    for (; i + 1 < kSectionNameSize && name[i] != '\0'; ++i) {
        // As a signed char widens: bytes above 0x7F become 0xFF80 and up.
        wide[i] = static_cast<std::uint16_t>(static_cast<short>(static_cast<signed char>(name[i])));
    }
    wide[i] = 0;
}

bool MakeSectionCandidate(const char* stem, unsigned long counter, char (&candidate)[kCandidateSize])
{
    char number[24];
    std::snprintf(number, sizeof number, "%lu", counter);
    CopyBounded(candidate, stem);
    std::size_t stemLength = std::strlen(candidate);
    std::size_t total = AppendBounded(candidate, number);
    return stemLength == std::strlen(stem) && total == stemLength + std::strlen(number);
}

bool DibByteCount(const unsigned char* view, std::size_t available, std::size_t* bytes)
{
    constexpr std::size_t kHeader = 40;
    if (view == nullptr || available < kHeader)
        return false;
    long long width = static_cast<std::int32_t>(Read32(view + 4));
    long long height = static_cast<std::int32_t>(Read32(view + 8));
    unsigned bits = static_cast<unsigned>(view[14]) | static_cast<unsigned>(view[15]) << 8;
    // A top-down image gives its height negative; its rows are as many.
    if (height < 0)
        height = -height;
    if (width <= 0 || height == 0 || bits == 0 || bits > 32)
        return false;
    unsigned long long count = kHeader;
    if (bits <= 8)
        count += 4ull << bits;
    unsigned long long row = ((static_cast<unsigned long long>(bits) * width + 31) >> 3) & ~3ull;
    if (count > available || static_cast<unsigned long long>(height) > (available - count) / row)
        return false;
    count += row * static_cast<unsigned long long>(height);
    if (count > available)
        return false;
    *bytes = static_cast<std::size_t>(count);
    return true;
}

}  // namespace zv
