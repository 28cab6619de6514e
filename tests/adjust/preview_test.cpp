// The preview: every rebuild must show what the same engine calls give on a
// fresh copy of the thumbnail, in the fixed order, and the setters must do
// no work for values already shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "core_win.h"
#include "frame.h"
#include "okamod32.h"
#include "preview.h"
#include "ravicli.h"
#include "zvwio32.h"

namespace {

std::vector<unsigned char> DibBytes(Dewey* image)
{
    BITMAPINFOHEADER* header = image->GetDib();
    if (header == nullptr)
        return {};
    std::size_t colours = header->biBitCount <= 8 ? (std::size_t(1) << header->biBitCount) : 0;
    std::size_t row = ((header->biBitCount * header->biWidth + 31) >> 3) & ~3u;
    std::size_t height = header->biHeight < 0 ? -header->biHeight : header->biHeight;
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(header);
    return std::vector<unsigned char>(bytes, bytes + 40 + 4 * colours + row * height);
}

// A 24-bit picture whose pixel at x, y has the colour colour(x, y), blue
// first as the rows hold it.
template <class Colour>
void Paint(Dewey& image, long width, long height, Colour colour)
{
    ASSERT_EQ(image.CreateRaster(width, height, 24), 0);
    unsigned char* rows = reinterpret_cast<unsigned char*>(image.GetDib()) + 40;
    std::size_t row = ((24 * width + 31) >> 3) & ~3u;
    for (long y = 0; y < height; ++y)
        for (long x = 0; x < width; ++x) {
            std::array<unsigned char, 3> bgr = colour(x, y);
            std::copy(bgr.begin(), bgr.end(), rows + y * row + x * 3);
        }
}

class Preview : public ::testing::Test {
protected:
    void SetUp() override
    {
        // Colour everywhere, so that every effect changes the picture.
        Paint(image, 120, 80, [](long x, long y) {
            return std::array<unsigned char, 3>{static_cast<unsigned char>(x * 255 / 119),
                                                static_cast<unsigned char>(y * 255 / 79),
                                                static_cast<unsigned char>((x + y) % 3 == 0 ? 200 : 30)};
        });
        InitOptionContext(nullptr, &tags, "Host", nullptr, &formats, "bmp", "TIF", 2, 0, &image, 1);
        ASSERT_NE(o->previewDewey, nullptr);
        ASSERT_NE(o->previewBase, nullptr);
    }
    void TearDown() override { FreePreviews(); }

    // A fresh copy of the pristine thumbnail.
    Dewey* Fresh()
    {
        Dewey* copy = new Dewey;
        EXPECT_EQ(DoClone(o->previewBase, &copy), 0);
        return copy;
    }

    OptionContext* o = CurrentOptionContext();
    OKAMOD formats{nullptr};
    TagSet tags;
    Dewey image;
};

TEST_F(Preview, RebuildsInTheFixedOrderWhateverTheOrderOfTheChanges)
{
    ASSERT_EQ(SetPreviewGamma(20, -10, 30, 0), 0);
    ASSERT_EQ(SetPreviewRotation(90.0f, 1, 0), 0);
    // Switched on in place, out of the order...
    EXPECT_EQ(SetPreviewFlags(0, 1, 0, 0, 0), 1);
    EXPECT_EQ(SetPreviewFlags(1, 1, 0, 0, 0), 1);
    EXPECT_EQ(SetPreviewFlags(1, 1, 0, 1, 0), 1);
    // ...and a switch off puts the rest back in order.
    EXPECT_EQ(SetPreviewFlags(1, 0, 0, 1, 0), 1);

    Dewey* expected = Fresh();
    expected->Rotate(90, 1, 0);
    expected->Gamma(20, -10, 30);
    expected->ReverseBW();
    expected->Grayize();
    EXPECT_EQ(DibBytes(o->previewDewey), DibBytes(expected));
    EXPECT_NE(DibBytes(o->previewDewey), DibBytes(o->previewBase));
    delete expected;

    // Equalisation stands in place of the three values.
    ASSERT_EQ(SetPreviewGamma(50, 50, 50, 1), 0);
    Dewey* equalised = Fresh();
    equalised->Rotate(90, 1, 0);
    equalised->Equalize();
    equalised->ReverseBW();
    equalised->Grayize();
    EXPECT_EQ(DibBytes(o->previewDewey), DibBytes(equalised));
    delete equalised;
}

TEST_F(Preview, SettersDoNoWorkForValuesAlreadyShown)
{
    // A mark on the shown picture survives a setter that does no work and
    // is gone after a rebuild from the pristine thumbnail.
    auto mark = [&] { reinterpret_cast<unsigned char*>(o->previewDewey->GetDib())[40] ^= 0xFF; };
    auto marked = [&](const std::vector<unsigned char>& before) { return DibBytes(o->previewDewey) == before; };

    ASSERT_EQ(SetPreviewRotation(45.0f, 0, 1), 0);
    mark();
    auto before = DibBytes(o->previewDewey);
    EXPECT_EQ(SetPreviewRotation(45.0f, 0, 1), 0);
    EXPECT_TRUE(marked(before));

    // -101 is no track bar value: the next real one rebuilds.
    ASSERT_EQ(SetPreviewGamma(-101, -101, -101, 1), 0);
    mark();
    before = DibBytes(o->previewDewey);
    ASSERT_EQ(SetPreviewGamma(0, 0, 0, 0), 0);
    EXPECT_FALSE(marked(before));

    mark();
    before = DibBytes(o->previewDewey);
    EXPECT_EQ(SetPreviewFlags(0, 0, 0, 0, 0), 0);
    // Only "BVIS": the tag of the caller's own source text, no picture work.
    EXPECT_EQ(SetPreviewFlags(0, 0, 1, 0, 0), 1);
    EXPECT_TRUE(marked(before));
    EXPECT_STREQ(ZvGetTag(&tags, "bmpTIFBVIS"), "ON");
    EXPECT_EQ(SetPreviewFlags(0, 0, 1, 0, 0), 0);
}

TEST_F(Preview, ReplayBringsAFreshPreviewInLineWithTheTags)
{
    ZvSetTag(&tags, "TIFROT", "270");
    ZvSetTag(&tags, "BMPTIFFLIPH", "on");
    ZvSetTag(&tags, "BMPTIFBRIGHT", "25");
    ZvSetTag(&tags, "BMPTIFINV", "ON");
    ZvSetTag(&tags, "BMPTIFCOG", "g");
    // A fresh context: the stored values are the tags', the picture plain.
    InitOptionContext(nullptr, &tags, "Host", nullptr, &formats, "bmp", "TIF", 2, 0, &image, 1);
    ASSERT_EQ(ReplayPreviewTags("TIF", "BMPTIF"), 0);

    Dewey* expected = Fresh();
    expected->Rotate(90, 0, 1);
    expected->Gamma(0, 25, 0);
    expected->Invert();
    expected->Grayize();
    EXPECT_EQ(DibBytes(o->previewDewey), DibBytes(expected));
    delete expected;
    EXPECT_EQ(o->previewInvert, 1);
    EXPECT_EQ(o->previewGrayize, 1);
    EXPECT_EQ(o->previewBlackize, 0);

    FreePreviews();
    EXPECT_EQ(ReplayPreviewTags("TIF", "BMPTIF"), 1);
}

TEST_F(Preview, FitCentresTheRotatedImageInItsFrameWithTheSourcesAspect)
{
    HWND dialog = CreateWindowA("STATIC", "", WS_POPUP, 100, 100, 400, 300, nullptr, nullptr, nullptr, nullptr);
    HWND frame = CreateWindowA("STATIC", "", WS_CHILD, 20, 10, 200, 100, dialog, reinterpret_cast<HMENU>(77), nullptr,
                               nullptr);
    HWND control = CreateWindowA("STATIC", "", WS_CHILD, 0, 0, 10, 10, dialog, nullptr, nullptr, nullptr);
    ASSERT_TRUE(dialog && frame && control);
    auto placed = [&] {
        RECT r = {};
        GetWindowRect(control, &r);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&r), 2);
        return r;
    };
    // The source is 120 by 80, 3:2; the frame 2:1.
    FitPreview(control, 0.0f, 77);
    RECT r = placed();
    EXPECT_EQ(r.right - r.left, 150);
    EXPECT_EQ(r.bottom - r.top, 100);
    EXPECT_EQ(r.left, 20 + 25);
    EXPECT_EQ(r.top, 10);

    // Upright, the picture is 2:3 and the frame's height decides.
    FitPreview(control, 90.0f, 77);
    r = placed();
    EXPECT_NEAR(r.right - r.left, 66, 1);
    EXPECT_NEAR(r.bottom - r.top, 100, 1);
    EXPECT_NEAR(r.left, 20 + 67, 1);
    DestroyWindow(dialog);
}

TEST_F(Preview, PaintsTheThumbnailOverTheWholeControl)
{
    HWND control = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 60, 40, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(control, nullptr);
    // A picture of one colour, so that stretching gives that colour anywhere.
    FreePreviews();
    Dewey solid;
    Paint(solid, 90, 30, [](long, long) { return std::array<unsigned char, 3>{10, 40, 200}; });
    InitOptionContext(nullptr, &tags, "Host", nullptr, &formats, "bmp", "TIF", 2, 0, &solid, 1);
    ASSERT_NE(o->previewDewey, nullptr);
    UpdateWindow(control);
    PaintPreview(control);
    HDC dc = GetDC(control);
    COLORREF centre = GetPixel(dc, 30, 20);
    COLORREF corner = GetPixel(dc, 58, 38);
    ReleaseDC(control, dc);
    DestroyWindow(control);
    EXPECT_EQ(centre, RGB(200, 40, 10));
    EXPECT_EQ(corner, RGB(200, 40, 10));
}

}  // namespace
