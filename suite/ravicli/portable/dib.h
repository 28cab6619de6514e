// The in-memory raster image of the engine: a device-independent bitmap as
// it lies in a named section. A 40-byte header, then a colour table of
// 1 << bits entries of four bytes (blue, green, red, 0) when there are 8 bits
// per pixel or fewer, then the rows from the bottom up, each padded to four
// bytes. The table always has its full length, so that a reader that only
// knows the width, height and depth (as the clone of a section does) finds
// the rows where they are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace ravi {

// An allocator that leaves new bytes as they come, so that an operation
// that writes every pixel of a new image does not pay for clearing it first.
template <class T>
struct UninitAllocator : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = UninitAllocator<U>;
    };
    UninitAllocator() = default;
    template <class U>
    UninitAllocator(const UninitAllocator<U>&) noexcept {}
    template <class U>
    void construct(U* p) noexcept
    {
        ::new (static_cast<void*>(p)) U;
    }
    template <class U, class... Args>
    void construct(U* p, Args&&... args)
    {
        ::new (static_cast<void*>(p)) U(std::forward<Args>(args)...);
    }
};

// Same layout as the platform's BITMAPINFOHEADER; little-endian fields.
struct DibHeader {
    uint32_t size;           // 40
    int32_t width;
    int32_t height;          // positive: rows bottom-up
    uint16_t planes;         // 1
    uint16_t bitCount;       // 1, 4, 8, 24 or 32
    uint32_t compression;    // 0 (uncompressed)
    uint32_t sizeImage;      // bytes of the rows, may be 0
    int32_t xPelsPerMeter;   // 0 when unknown
    int32_t yPelsPerMeter;
    uint32_t clrUsed;        // 0, or at most 1 << bitCount
    uint32_t clrImportant;
};
static_assert(sizeof(DibHeader) == 40, "DibHeader must match BITMAPINFOHEADER");

struct RgbQuad {
    uint8_t blue, green, red, reserved;
};
static_assert(sizeof(RgbQuad) == 4);

// Largest side we accept. Keeps every size computation far from overflow
// on a 32-bit build and any image within what a section can map.
constexpr int32_t kMaxSide = 65535;
// Largest whole image in bytes (header, table and rows).
constexpr size_t kMaxImageBytes = size_t(1) << 30;

// Where everything of a DIB lies, worked out from its header.
struct DibLayout {
    int32_t width = 0;
    int32_t height = 0;
    int bits = 0;
    uint32_t colors = 0;       // entries of the colour table, 0 above 8 bits
    size_t stride = 0;         // bytes of one row, padded to four
    size_t tableOffset = 40;
    size_t pixelOffset = 40;   // first byte of the bottom row
    size_t totalBytes = 0;     // header + table + rows
};

// Row size in bytes for a width and depth, padded to four: 0 on overflow.
size_t DibStride(int32_t width, int bits);

// Checks width, height and depth and works out the layout. kEngineBadSize,
// kEngineBadDepth or kEngineNoMemory.
short ComputeDibLayout(int32_t width, int32_t height, int bits, DibLayout* out);

// Reads the header at the start of a buffer of `size` bytes and checks that
// the whole image lies inside it. Never reads past `size`. Gives 0, or
// kEngineTruncated, kEngineBadHeader, kEngineBadSize, kEngineBadDepth,
// kEngineNoMemory. `header` may be null.
short ReadDibHeader(const uint8_t* data, size_t size, DibLayout* out, DibHeader* header);

// An image: header, table and rows in one block, ready to be copied into a
// section as it is. The block is its own, or one that it borrows together
// with a keeper that holds the memory (a mapped view) alive for as long as
// any image looks at it; the borrowed block is the image's to write. A copy
// always owns its bytes, so no two images ever write the same memory.
class Image {
public:
    Image() = default;
    Image(const Image& other);
    Image(Image&& other) noexcept;
    Image& operator=(const Image& other);
    Image& operator=(Image&& other) noexcept;
    ~Image() = default;

    int32_t Width() const { return layout_.width; }
    int32_t Height() const { return layout_.height; }
    int Bits() const { return layout_.bits; }
    uint32_t Colors() const { return layout_.colors; }
    size_t Stride() const { return layout_.stride; }
    bool Empty() const { return size_ == 0; }
    bool Borrowed() const { return keeper_ != nullptr; }
    const DibLayout& Layout() const { return layout_; }

    // Row y counted from the top of the picture (the DIB keeps it bottom-up).
    uint8_t* Row(int32_t y) { return data_ + layout_.pixelOffset + size_t(layout_.height - 1 - y) * layout_.stride; }
    const uint8_t* Row(int32_t y) const { return data_ + layout_.pixelOffset + size_t(layout_.height - 1 - y) * layout_.stride; }
    RgbQuad* Table() { return reinterpret_cast<RgbQuad*>(data_ + layout_.tableOffset); }
    const RgbQuad* Table() const { return reinterpret_cast<const RgbQuad*>(data_ + layout_.tableOffset); }
    DibHeader* Header() { return reinterpret_cast<DibHeader*>(data_); }
    const DibHeader* Header() const { return reinterpret_cast<const DibHeader*>(data_); }

    // The whole DIB.
    const uint8_t* Data() const { return data_; }
    uint8_t* Data() { return data_; }
    size_t Size() const { return size_; }

    // Pixel access for tests and slow paths: the colour at (x, y) from the
    // top as 0x00RRGGBB (through the table on palette images), and the raw
    // value (palette index, or the colour on 24 and 32 bits).
    uint32_t PixelRgb(int32_t x, int32_t y) const;
    uint32_t PixelValue(int32_t x, int32_t y) const;
    void SetPixelValue(int32_t x, int32_t y, uint32_t value);

    friend short MakeImage(int32_t, int32_t, int, Image*, bool);
    friend short ImageFromDib(const uint8_t*, size_t, Image*);
    friend short ImageOverDib(uint8_t*, size_t, std::shared_ptr<void>, Image*);

private:
    using Bytes = std::vector<uint8_t, UninitAllocator<uint8_t>>;
    void Own(Bytes&& bytes, const DibLayout& layout);

    Bytes owned_;                   // empty while the bytes are borrowed
    uint8_t* data_ = nullptr;       // owned_.data(), or the borrowed block
    size_t size_ = 0;
    std::shared_ptr<void> keeper_;  // set only while borrowing
    DibLayout layout_;
};

// A new image, pixels 0, with the default table of its depth: black and
// white for 1 bit, the 16 standard colours for 4, a grey ramp for 8.
// Resolution 0. Gives 0 or an engine code. With `clear` false the pixels
// are left as the memory holds them, for an operation that writes every
// pixel byte at once; the padding at the end of each row is cleared anyway.
short MakeImage(int32_t width, int32_t height, int bits, Image* out, bool clear = true);

// A checked copy of a DIB held in a buffer (for example a mapped section).
short ImageFromDib(const uint8_t* data, size_t size, Image* out);

// The same checks, but the image keeps the buffer as its own storage instead
// of copying it: for a buffer that no one else writes, such as a private
// copy-on-write view of a section. `keeper` holds the buffer alive and is
// released with the last image that looks at it. The header is brought to
// the form ImageFromDib gives, in the buffer. `out` is untouched on failure.
short ImageOverDib(uint8_t* data, size_t size, std::shared_ptr<void> keeper, Image* out);

// Colours as the engine passes them: 0x00BBGGRR, red in the low byte (the
// platform's COLORREF), and as the kernels compare them: 0x00RRGGBB.
inline uint32_t RgbFromColorRef(uint32_t c) { return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF); }
inline uint32_t ColorRefFromRgb(uint32_t c) { return RgbFromColorRef(c); }

}  // namespace ravi
