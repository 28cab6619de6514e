// The host's Image menu: a page run on the open image changes it at once,
// and Undo takes the change back through the engine's history.
#include <gtest/gtest.h>

#include "host_dialogs.h"
#include "image_ids.h"
#include "image_menu.h"
#include "ravicli.h"
#include "save_road.h"

namespace {

std::string Size(Dewey* image)
{
    long width = 0, height = 0;
    image->GetInfo(&width, &height, nullptr, nullptr, nullptr);
    return std::to_string(width) + " x " + std::to_string(height);
}

TEST(HostImageMenu, RotateTurnsTheOpenImageAndUndoTurnsItBack)
{
    std::string source = zvtest::TempFolder() + "\\imagemenu.bmp";
    ASSERT_TRUE(CopyFileA(ZV_SAMPLE_BMP, source.c_str(), FALSE));
    HWND window = CreateWindowA("STATIC", "Zavrin Host", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr, nullptr,
                                nullptr, nullptr);
    AddFileMenu(window);
    AddImageMenu(window);

    zvtest::DialogDriver open;
    open.WaitWindow("Open");
    zvtest::TypeName(open, source);
    open.PressOk();
    open.Run([&] { return INT_PTR(OnFileCommand(window, 100)); });
    ASSERT_NE(HostImage(), nullptr);
    const std::string before = Size(HostImage());

    zvtest::DialogDriver rotate;
    rotate.WaitControl(IDC_ROT_ANGLE).SetText(IDC_ROT_ANGLE, "90").PressOk();
    rotate.Run([&] { return INT_PTR(OnImageCommand(window, 201)); });
    const std::string turned = Size(HostImage());
    EXPECT_NE(turned, before);
    EXPECT_EQ(turned, before.substr(before.find(" x ") + 3) + " x " + before.substr(0, before.find(" x ")));

    EXPECT_TRUE(OnImageCommand(window, 299));  // Undo
    EXPECT_EQ(Size(HostImage()), before);

    CloseFileMenu();
    DestroyWindow(window);
    DeleteFileA(source.c_str());
}

}  // namespace
