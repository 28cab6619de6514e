// Huey paints into a real window; the pixels are read back from the screen.
#include <gtest/gtest.h>

#include "engine_test_support.h"

using namespace enginetest;

namespace {

class ViewTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        WNDCLASSA windowClass = {};
        windowClass.lpfnWndProc = DefWindowProcA;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "RaviViewTest";
        windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
        RegisterClassA(&windowClass);
        window_ = CreateWindowExA(WS_EX_TOPMOST, "RaviViewTest", "", WS_POPUP | WS_VISIBLE, 50, 50, 200, 100, nullptr,
                                  nullptr, GetModuleHandleA(nullptr), nullptr);
        ASSERT_NE(window_, nullptr);
        // Painted now, black: what Huey does not paint stays so.
        UpdateWindow(window_);
    }
    void TearDown() override
    {
        if (window_) DestroyWindow(window_);
    }
    // What the window shows at a point of its client area.
    uint32_t ScreenRgb(int x, int y)
    {
        HDC dc = GetDC(window_);
        COLORREF colour = GetPixel(dc, x, y);
        ReleaseDC(window_, dc);
        return ravi::RgbFromColorRef(colour);
    }
    HWND window_ = nullptr;
};

TEST_F(ViewTest, PaintsASourcePartIntoATargetPart)
{
    Dewey document;
    ASSERT_EQ(MakeQuadrants(document, 20, 20), 0);
    Huey view(&document);
    RECT source = {0, 0, 20, 20}, target = {0, 0, 40, 40};
    EXPECT_EQ(view.Paint(&source, &target), kRavicliNoWindow);
    ASSERT_EQ(view.AttachWindow(window_, nullptr), 0);
    ASSERT_EQ(view.Paint(&source, &target), 0);
    GdiFlush();
    EXPECT_TRUE(Near(ScreenRgb(5, 5), 0xFF0000, 8)) << std::hex << ScreenRgb(5, 5);
    EXPECT_TRUE(Near(ScreenRgb(35, 5), 0x00FF00, 8));
    EXPECT_TRUE(Near(ScreenRgb(5, 35), 0x0000FF, 8));
    EXPECT_TRUE(Near(ScreenRgb(35, 35), 0xFFFFFF, 8));
    EXPECT_TRUE(Near(ScreenRgb(100, 50), 0x000000, 8)) << "outside the target stays as it was";

    // Only the bottom right quadrant, stretched over another place.
    RECT corner = {10, 10, 20, 20}, place = {100, 0, 160, 60};
    ASSERT_EQ(view.Paint(&corner, &place), 0);
    EXPECT_TRUE(Near(ScreenRgb(130, 30), 0xFFFFFF, 8));
}

TEST_F(ViewTest, PlaysAVectorIntoTheTarget)
{
    std::string path = TempPath("view.emf");
    ASSERT_TRUE(WriteTwoColourMetafile(path, 40, 20));
    Dewey document;
    ASSERT_EQ(document.Open(path.c_str()), 0);
    Huey view(&document);
    ASSERT_EQ(view.AttachWindow(window_, nullptr), 0);
    RECT source = {0, 0, 40, 20}, target = {0, 0, 80, 40};
    ASSERT_EQ(view.Paint(&source, &target), 0);
    GdiFlush();
    EXPECT_TRUE(Near(ScreenRgb(10, 20), 0xFF0000, 8)) << std::hex << ScreenRgb(10, 20);
    EXPECT_TRUE(Near(ScreenRgb(70, 20), 0x0000FF, 8));
    // Only the right half of the picture: blue fills the target.
    RECT right = {20, 0, 40, 20}, place = {100, 0, 140, 40};
    ASSERT_EQ(view.Paint(&right, &place), 0);
    GdiFlush();
    EXPECT_TRUE(Near(ScreenRgb(105, 20), 0x0000FF, 8));
    EXPECT_TRUE(Near(ScreenRgb(150, 20), 0x000000, 8)) << "the target clips the picture";
    DeleteFileA(path.c_str());
}

}  // namespace
