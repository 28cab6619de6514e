#include <cstring>
#include <memory>
#include <vector>

#include "engine_codes.h"
#include "engine_test_util.h"

using namespace ravi;

namespace {

std::vector<uint8_t> DibBytes(int32_t w, int32_t h, int bits)
{
    Image image = test::MakeOrDie(w, h, bits);
    return std::vector<uint8_t>(image.Data(), image.Data() + image.Size());
}

void Patch(std::vector<uint8_t>& bytes, size_t offset, const void* value, size_t n)
{
    std::memcpy(bytes.data() + offset, value, n);
}

}  // namespace

TEST(Dib, SizesFollowWidthDepthAndFullTable)
{
    DibLayout l;
    ASSERT_EQ(ComputeDibLayout(100, 10, 1, &l), 0);
    EXPECT_EQ(l.totalBytes, 208u);
    ASSERT_EQ(ComputeDibLayout(10, 10, 8, &l), 0);
    EXPECT_EQ(l.totalBytes, 1184u);
    ASSERT_EQ(ComputeDibLayout(3, 1, 4, &l), 0);
    EXPECT_EQ(l.stride, 4u);
    EXPECT_EQ(l.pixelOffset, 40u + 64u);
}

TEST(Dib, BadHeadersGiveCodesNotReads)
{
    std::vector<uint8_t> good = DibBytes(9, 4, 24);
    Image image;
    // Shorter than a header, and one byte short of the rows.
    EXPECT_EQ(ImageFromDib(good.data(), 39, &image), kEngineTruncated);
    EXPECT_EQ(ImageFromDib(good.data(), good.size() - 1, &image), kEngineTruncated);

    auto with = [&](size_t offset, auto value) {
        std::vector<uint8_t> b = good;
        Patch(b, offset, &value, sizeof value);
        return ImageFromDib(b.data(), b.size(), &image);
    };
    EXPECT_EQ(with(0, uint32_t(108)), kEngineBadHeader);      // another header size
    EXPECT_EQ(with(16, uint32_t(1)), kEngineBadHeader);       // compressed
    EXPECT_EQ(with(8, int32_t(-4)), kEngineBadSize);          // top-down is not ours
    EXPECT_EQ(with(4, int32_t(0x7FFFFFFF)), kEngineBadSize);
    EXPECT_EQ(with(14, uint16_t(16)), kEngineBadDepth);
    EXPECT_EQ(with(14, uint16_t(32)), kEngineTruncated);      // more rows than bytes
    std::vector<uint8_t> pal = DibBytes(4, 4, 4);
    uint32_t tooMany = 17;
    Patch(pal, 32, &tooMany, 4);
    EXPECT_EQ(ImageFromDib(pal.data(), pal.size(), &image), kEngineBadHeader);
    // Large but legal sides whose product would not fit a section.
    EXPECT_EQ(MakeImage(65535, 65535, 32, &image), kEngineNoMemory);
}

TEST(Dib, ABorrowedBufferStaysAliveWhileAnImageLooksAtItAndCopiesAreTheirOwn)
{
    std::vector<uint8_t> bytes = DibBytes(6, 3, 24);
    uint32_t sizeImage = 1;  // a header that readers tidy up
    Patch(bytes, 20, &sizeImage, 4);
    std::weak_ptr<void> watch;
    {
        auto keeper = std::make_shared<int>(0);
        watch = keeper;
        Image image;
        EXPECT_EQ(ImageOverDib(bytes.data(), bytes.size() - 1, keeper, &image), kEngineTruncated);
        EXPECT_TRUE(image.Empty());
        ASSERT_EQ(ImageOverDib(bytes.data(), bytes.size(), keeper, &image), 0);
        keeper.reset();
        EXPECT_EQ(image.Data(), bytes.data()) << "no copy of the rows";
        EXPECT_EQ(image.Header()->sizeImage, 3u * 20u);

        // A copy owns its bytes: writing either leaves the other alone.
        Image copy = image;
        EXPECT_FALSE(copy.Borrowed());
        copy.SetPixelValue(0, 0, 0x123456);
        image.SetPixelValue(1, 0, 0x654321);
        EXPECT_EQ(image.PixelValue(0, 0), 0u);
        EXPECT_EQ(copy.PixelValue(1, 0), 0u);
        EXPECT_EQ(Image(copy).PixelValue(0, 0), 0x123456u);

        // Moved on, the buffer goes with the image; let go, it is released.
        Image moved = std::move(image);
        EXPECT_TRUE(image.Empty());
        EXPECT_TRUE(moved.Borrowed());
        EXPECT_FALSE(watch.expired());
        moved = std::move(copy);
        EXPECT_TRUE(watch.expired());
        EXPECT_EQ(moved.PixelValue(0, 0), 0x123456u);
    }
}
