// The host's regions mode end to end: an image opened through the File
// menu, the region file beside it loaded through the Regions menu, a region
// selected and stretched by its right handle with mouse messages, and the
// outcome in the caption and in the mapped file.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>

#include "engine_test_support.h"
#include "host_dialogs.h"
#include "okacvt32.h"
#include "regions_mode.h"
#include "save_road.h"
#include "zvopt32.h"

namespace {

using zvtest::DialogDriver;

// The host window's own dispatch, as zvhost's window procedure has it.
LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        if (OnRegionsMouse(window, message, lParam)) return 0;
        break;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(window, &paint);
        PaintImage(window, dc);
        PaintRegions(window, dc);
        EndPaint(window, &paint);
        return 0;
    }
    default:
        break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LPARAM At(int x, int y) { return MAKELPARAM(x, y); }

TEST(HostRegions, ARegionIsSelectedAndStretchedByTheMouseOverAHalfSizeView)
{
    // A 640 x 400 picture in a client area 200 high: shown at half size.
    std::string image = zvtest::TempFolder() + "\\regions.bmp";
    std::string regionFile = zvtest::TempFolder() + "\\regions.rgn";
    Dewey picture;
    ASSERT_EQ(enginetest::MakeQuadrants(picture, 640, 400), 0);
    ASSERT_EQ(picture.Save(image.c_str()), 0);
    {
        std::int32_t header[2] = {2, 1};  // a selection of an earlier run, cleared at loading
        RECTS regions[2] = {{40, 40, 240, 120, 0, 0}, {200, 300, 600, 360, 0, 0}};
        std::ofstream file(regionFile, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(header), sizeof header);
        file.write(reinterpret_cast<const char*>(regions), sizeof regions);
    }
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = HostProc;
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    windowClass.lpszClassName = "HostRegionsTest";
    RegisterClassA(&windowClass);
    HWND window = CreateWindowA("HostRegionsTest", "Zavrin Host", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300, nullptr,
                                nullptr, nullptr, nullptr);
    AddFileMenu(window);
    AddRegionsMenu(window);
    RECT frame = {0, 0, 400, 200};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, TRUE);
    SetWindowPos(window, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top, SWP_NOZORDER);

    DialogDriver open;
    open.WaitWindow("Open");
    zvtest::TypeName(open, image);
    open.PressOk();
    open.Run([&] { return INT_PTR(OnFileCommand(window, 100)); });
    RECT source = {}, device = {};
    ASSERT_TRUE(ImageView(window, &source, &device));
    // The picture stands in the middle of the window at half its size.
    ASSERT_EQ(device.right - device.left, 320);
    ASSERT_EQ(device.bottom - device.top, 200);
    auto inView = [&](int x, int y) { return At(device.left + x, device.top + y); };

    // The dialog offers the region file beside the image.
    DialogDriver load;
    load.WaitWindow("Load Regions").PressOk();
    load.Run([&] { return INT_PTR(OnRegionsCommand(window, 300)); });
    EXPECT_EQ(zvtest::DialogDriver::TextOf(window), "Zavrin Host - 2 regions");
    FMap second(const_cast<char*>(regionFile.c_str()), 0, 0);
    ASSERT_EQ(second.status, 0);
    auto selected = [&] { return *reinterpret_cast<std::int32_t*>(second.data + 4); };
    EXPECT_EQ(selected(), -1);

    // Region 1 lies at 150..300 x 100..180 of the view; its left edge is
    // hit. Its right handle is centred at 300, 140 and reaches 16 each way.
    DialogDriver user;
    user.LeaveOpen("Warnings");
    std::string caption;
    // Shown only now: the drivers before close what their entry leaves up.
    ShowWindow(window, SW_SHOWNORMAL);
    user.WaitWindow("Zavrin Host - 2 regions")
        .Do([&](HWND) { SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, inView(150, 140)); })
        .WaitUntil("region 1 selected in the file", [&] { return selected() == 1; })
        .Do([&](HWND) {
            SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, inView(310, 130));
            SendMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, inView(340, 150));
            SendMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, inView(360, 150));
            SendMessageA(window, WM_LBUTTONUP, 0, inView(360, 150));
            caption = zvtest::DialogDriver::TextOf(window);
        })
        .Screenshot("zvhost_regions")
        .Do([&](HWND) { DestroyWindow(window); });
    user.Run([&] {
        MSG message;
        while (IsWindow(window) && GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
        return INT_PTR(0);
    });
    // The right edge went to 720 in source units: 420 wide for 300.
    EXPECT_NE(caption.find("region 1: width x1.40, height x1.00"), std::string::npos) << caption;
    EXPECT_EQ(selected(), 1);
    CloseRegions();
    CloseFileMenu();
}

}  // namespace
