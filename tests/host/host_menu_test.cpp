#include <gtest/gtest.h>

#include "engine_test_support.h"
#include "save_road.h"
#include "trace_ids.h"
#include "trace_menu.h"
#include "output_ids.h"
#include "ravicli.h"
#include "host_dialogs.h"

namespace {

using zvtest::TempFolder;
using zvtest::TypeName;

TEST(HostMenu, OpenThenSaveAsPngWritesTheImageWithTheSheetsOptions)
{
    std::string source = TempFolder() + "\\hostmenu.bmp";
    std::string target = TempFolder() + "\\hostmenu.png";
    ASSERT_TRUE(CopyFileA(ZV_SAMPLE_BMP, source.c_str(), FALSE));
    DeleteFileA(target.c_str());
    // The host's stored choices from an earlier run would change the sheet.
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Zavrin\\Tags\\zvhost");

    // The host's main window, with no menu of its own yet.
    HWND window = CreateWindowA("STATIC", "Zavrin Host", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr, nullptr,
                                nullptr, nullptr);
    AddFileMenu(window);

    zvtest::DialogDriver open;
    open.WaitWindow("Open");
    TypeName(open, source);
    open.PressOk();
    open.Run([&] { return INT_PTR(OnFileCommand(window, 100)); });
    EXPECT_EQ(zvtest::DialogDriver::TextOf(window), "Zavrin Host - " + source);

    // Save As: a PNG, half as wide in pixels, the height following.
    zvtest::DialogDriver save;
    save.WaitWindow("Save As").WaitControl(zvtest::kTypeList);
    TypeName(save, target);
    save.Click(zvtest::kOptions).WaitWindow("PNG Processing Options").WaitControl(IDC_OUT_SCALING);
    save.PickCombo(IDC_OUT_SCALING, "Maintain Aspect Ratio").PickCombo(IDC_OUT_UNITS, "Pixels");
    save.Type(IDC_OUT_WIDTH, "32").ExpectText(IDC_OUT_HEIGHT, "24").PressOk();
    save.WaitWindow("Save As").WaitControl(zvtest::kTypeList).PressOk();
    std::string written;
    save.AnswerMessageBox(IDOK, "Written", &written);
    save.Run([&] { return INT_PTR(OnFileCommand(window, 101)); });
    EXPECT_EQ(written, "Written: " + target);

    Dewey result;
    ASSERT_EQ(result.Open(target.c_str()), 0);
    long width = 0, height = 0;
    result.GetInfo(&width, &height, nullptr, nullptr, nullptr);
    EXPECT_EQ(width, 32);
    EXPECT_EQ(height, 24);

    CloseFileMenu();
    DestroyWindow(window);
}

}  // namespace

namespace {

// Image > Trace with the dialog's defaults (outline, 16 colours): the image
// in hand becomes a drawing, which Save As writes as a WMF that reads back
// as a vector drawing of the sample's bands.
TEST(HostMenu, TraceMakesADrawingThatSaveAsWritesAsAMetafile)
{
    std::string source = zvtest::TempFolder() + "\\hosttrace.bmp";
    std::string target = zvtest::TempFolder() + "\\hosttrace.wmf";
    ASSERT_TRUE(CopyFileA(ZV_SAMPLE_BMP, source.c_str(), FALSE));
    DeleteFileA(target.c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Zavrin\\Tags\\zvhost");
    HWND window = CreateWindowA("STATIC", "Zavrin Host", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr, nullptr,
                                nullptr, nullptr);
    AddFileMenu(window);
    AddTraceMenu(window);

    zvtest::DialogDriver open;
    open.WaitWindow("Open");
    TypeName(open, source);
    open.PressOk();
    open.Run([&] { return INT_PTR(OnFileCommand(window, 100)); });

    zvtest::DialogDriver trace;
    trace.WaitControl(IDC_TRACE_OUTLINE).SetCheck(IDC_TRACE_BEZGEN, true).PressOk();
    trace.Run([&] { return INT_PTR(OnTraceCommand(window, 200)); });
    ASSERT_NE(HostImage(), nullptr);
    EXPECT_FALSE(HostImage()->IsRaster());
    EXPECT_NE(zvtest::DialogDriver::TextOf(window).find("zvhost_traced.emf"), std::string::npos);

    zvtest::DialogDriver save;
    save.WaitWindow("Save As").WaitControl(zvtest::kTypeList);
    TypeName(save, target);
    save.PressOk().AnswerMessageBox(IDOK, "Written");
    save.Run([&] { return INT_PTR(OnFileCommand(window, 101)); });

    Dewey drawing;
    ASSERT_EQ(drawing.Open(target.c_str()), 0);
    EXPECT_FALSE(drawing.IsRaster());
    ASSERT_EQ(drawing.Rasterize(64, 48, 24), 0);
    EXPECT_EQ(enginetest::Rgb(drawing, 8, 8), 0xFF0000u);
    EXPECT_EQ(enginetest::Rgb(drawing, 56, 8), 0x0000FFu);
    EXPECT_EQ(enginetest::Rgb(drawing, 32, 23), 0xFFFF00u);
    CloseFileMenu();
    DestroyWindow(window);
}

}  // namespace
