#include "dib.h"

#include <cstring>

#include "engine_codes.h"

namespace ravi {

namespace {

bool KnownDepth(int bits)
{
    return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
}

// The default table of a palette depth: black and white, the 16 colours of
// the classic display, or a grey ramp.
void FillDefaultTable(RgbQuad* table, int bits)
{
    static const uint8_t kStandard16[16][3] = {
        {0, 0, 0}, {128, 0, 0}, {0, 128, 0}, {128, 128, 0},
        {0, 0, 128}, {128, 0, 128}, {0, 128, 128}, {192, 192, 192},
        {128, 128, 128}, {255, 0, 0}, {0, 255, 0}, {255, 255, 0},
        {0, 0, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};
    if (bits == 1) {
        table[0] = {0, 0, 0, 0};
        table[1] = {255, 255, 255, 0};
    } else if (bits == 4) {
        for (int i = 0; i < 16; ++i)
            table[i] = {kStandard16[i][2], kStandard16[i][1], kStandard16[i][0], 0};
    } else if (bits == 8) {
        for (int i = 0; i < 256; ++i)
            table[i] = {uint8_t(i), uint8_t(i), uint8_t(i), 0};
    }
}

}  // namespace

size_t DibStride(int32_t width, int bits)
{
    if (width <= 0 || width > kMaxSide || bits <= 0 || bits > 32)
        return 0;
    // At most 65535 x 32 + 31 bits: no overflow even in 32 bits.
    uint64_t rowBits = uint64_t(width) * uint64_t(bits) + 31;
    return size_t((rowBits >> 3) & ~uint64_t(3));
}

short ComputeDibLayout(int32_t width, int32_t height, int bits, DibLayout* out)
{
    if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide)
        return kEngineBadSize;
    if (!KnownDepth(bits))
        return kEngineBadDepth;
    DibLayout l;
    l.width = width;
    l.height = height;
    l.bits = bits;
    l.colors = bits <= 8 ? (1u << bits) : 0;
    l.stride = DibStride(width, bits);
    l.tableOffset = sizeof(DibHeader);
    l.pixelOffset = l.tableOffset + size_t(l.colors) * sizeof(RgbQuad);
    uint64_t rows = uint64_t(l.stride) * uint64_t(height);
    uint64_t total = uint64_t(l.pixelOffset) + rows;
    if (total > kMaxImageBytes)
        return kEngineNoMemory;
    l.totalBytes = size_t(total);
    *out = l;
    return kEngineOk;
}

short ReadDibHeader(const uint8_t* data, size_t size, DibLayout* out, DibHeader* header)
{
    if (data == nullptr || size < sizeof(DibHeader))
        return kEngineTruncated;
    DibHeader h;
    std::memcpy(&h, data, sizeof h);  // the buffer need not be aligned
    if (h.size != sizeof(DibHeader) || h.planes != 1 || h.compression != 0)
        return kEngineBadHeader;
    DibLayout l;
    short rc = ComputeDibLayout(h.width, h.height, h.bitCount, &l);
    if (rc != kEngineOk)
        return rc;
    if (h.clrUsed > l.colors)
        return kEngineBadHeader;
    if (l.totalBytes > size)
        return kEngineTruncated;
    if (out)
        *out = l;
    if (header)
        *header = h;
    return kEngineOk;
}

short MakeImage(int32_t width, int32_t height, int bits, Image* out, bool clear)
{
    DibLayout l;
    short rc = ComputeDibLayout(width, height, bits, &l);
    if (rc != kEngineOk)
        return rc;
    std::vector<uint8_t, UninitAllocator<uint8_t>> bytes;
    try {
        bytes.resize(l.totalBytes);
    } catch (...) {
        return kEngineNoMemory;
    }
    std::memset(bytes.data(), 0, l.pixelOffset);
    if (clear) {
        std::memset(bytes.data() + l.pixelOffset, 0, l.totalBytes - l.pixelOffset);
    } else {
        const size_t used = (size_t(width) * size_t(bits) + 7) / 8;
        for (int32_t y = 0; y < height; ++y)
            std::memset(bytes.data() + l.pixelOffset + size_t(y) * l.stride + used, 0, l.stride - used);
    }
    DibHeader h{};
    h.size = sizeof(DibHeader);
    h.width = width;
    h.height = height;
    h.planes = 1;
    h.bitCount = uint16_t(bits);
    h.sizeImage = uint32_t(l.stride * size_t(height));
    std::memcpy(bytes.data(), &h, sizeof h);
    FillDefaultTable(reinterpret_cast<RgbQuad*>(bytes.data() + l.tableOffset), bits);
    out->Own(std::move(bytes), l);
    return kEngineOk;
}

namespace {

// Says what every reader of our images expects: the table is always full
// and the rows are counted.
void NormaliseHeader(uint8_t* data, const DibLayout& l)
{
    DibHeader h;
    std::memcpy(&h, data, sizeof h);
    h.clrUsed = 0;
    h.sizeImage = uint32_t(l.stride * size_t(l.height));
    std::memcpy(data, &h, sizeof h);
}

}  // namespace

short ImageFromDib(const uint8_t* data, size_t size, Image* out)
{
    DibLayout l;
    short rc = ReadDibHeader(data, size, &l, nullptr);
    if (rc != kEngineOk)
        return rc;
    Image::Bytes bytes;
    try {
        bytes.assign(data, data + l.totalBytes);
    } catch (...) {
        return kEngineNoMemory;
    }
    NormaliseHeader(bytes.data(), l);
    out->Own(std::move(bytes), l);
    return kEngineOk;
}

short ImageOverDib(uint8_t* data, size_t size, std::shared_ptr<void> keeper, Image* out)
{
    DibLayout l;
    short rc = ReadDibHeader(data, size, &l, nullptr);
    if (rc != kEngineOk)
        return rc;
    NormaliseHeader(data, l);
    out->owned_ = Image::Bytes();
    out->data_ = data;
    out->size_ = l.totalBytes;
    out->keeper_ = std::move(keeper);
    out->layout_ = l;
    return kEngineOk;
}

void Image::Own(Bytes&& bytes, const DibLayout& layout)
{
    owned_ = std::move(bytes);
    data_ = owned_.data();
    size_ = owned_.size();
    keeper_.reset();
    layout_ = layout;
}

Image::Image(const Image& other)
    : owned_(other.data_, other.data_ + other.size_), data_(owned_.data()), size_(other.size_),
      layout_(other.layout_)
{
}

Image::Image(Image&& other) noexcept
    : owned_(std::move(other.owned_)), data_(other.data_), size_(other.size_), keeper_(std::move(other.keeper_)),
      layout_(other.layout_)
{
    other.owned_.clear();
    other.data_ = nullptr;
    other.size_ = 0;
    other.layout_ = DibLayout();
}

Image& Image::operator=(const Image& other)
{
    if (this != &other) {
        Image copy(other);
        *this = std::move(copy);
    }
    return *this;
}

Image& Image::operator=(Image&& other) noexcept
{
    if (this != &other) {
        owned_ = std::move(other.owned_);
        data_ = other.data_;
        size_ = other.size_;
        keeper_ = std::move(other.keeper_);
        layout_ = other.layout_;
        other.owned_ = Bytes();
        other.data_ = nullptr;
        other.size_ = 0;
        other.layout_ = DibLayout();
    }
    return *this;
}

uint32_t Image::PixelValue(int32_t x, int32_t y) const
{
    const uint8_t* r = Row(y);
    switch (layout_.bits) {
    case 1: return (r[x >> 3] >> (7 - (x & 7))) & 1;
    case 4: return (r[x >> 1] >> ((x & 1) ? 0 : 4)) & 15;
    case 8: return r[x];
    case 24: return uint32_t(r[3 * x + 2]) << 16 | uint32_t(r[3 * x + 1]) << 8 | r[3 * x];
    default: return uint32_t(r[4 * x + 2]) << 16 | uint32_t(r[4 * x + 1]) << 8 | r[4 * x];
    }
}

uint32_t Image::PixelRgb(int32_t x, int32_t y) const
{
    uint32_t v = PixelValue(x, y);
    if (layout_.bits > 8)
        return v;
    const RgbQuad& q = Table()[v];
    return uint32_t(q.red) << 16 | uint32_t(q.green) << 8 | q.blue;
}

void Image::SetPixelValue(int32_t x, int32_t y, uint32_t value)
{
    uint8_t* r = Row(y);
    switch (layout_.bits) {
    case 1: {
        uint8_t m = uint8_t(0x80 >> (x & 7));
        r[x >> 3] = uint8_t((r[x >> 3] & ~m) | ((value & 1) ? m : 0));
        break;
    }
    case 4:
        if (x & 1)
            r[x >> 1] = uint8_t((r[x >> 1] & 0xF0) | (value & 15));
        else
            r[x >> 1] = uint8_t((r[x >> 1] & 0x0F) | ((value & 15) << 4));
        break;
    case 8: r[x] = uint8_t(value); break;
    case 24:
        r[3 * x] = uint8_t(value);
        r[3 * x + 1] = uint8_t(value >> 8);
        r[3 * x + 2] = uint8_t(value >> 16);
        break;
    default:
        r[4 * x] = uint8_t(value);
        r[4 * x + 1] = uint8_t(value >> 8);
        r[4 * x + 2] = uint8_t(value >> 16);
        r[4 * x + 3] = 0;
        break;
    }
}

}  // namespace ravi
