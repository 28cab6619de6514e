#include <gtest/gtest.h>

#include "engine_test_support.h"
#include "save_road.h"
#include "trace_ids.h"
#include "trace_menu.h"
#include "output_ids.h"
#include "ravicli.h"
#include "host_dialogs.h"
#include "child_process.h"

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
    EXPECT_EQ(zvtest::DialogDriver::TextOf(window), "Zavrin Host - " + source + " - 64 x 48, 24 bits");

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

// The picture fills the window as far as its proportions allow: the
// sample's corners and its yellow middle bar land where the fit puts them.
TEST(HostMenu, AnOpenedImageIsPaintedFittedToTheWindow)
{
    HWND window = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr, nullptr,
                                nullptr);
    ASSERT_TRUE(OpenImageFile(window, ZV_SAMPLE_BMP));
    HDC dc = GetDC(window);
    PaintImage(window, dc);
    EXPECT_EQ(GetPixel(dc, 10, 10), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(dc, 390, 10), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(dc, 200, 150), RGB(255, 255, 0));
    ReleaseDC(window, dc);
    CloseFileMenu();
    DestroyWindow(window);
}

// A file of a format the engine doesn't read is told by the format's name
// and by what the engine found.
TEST(HostMenu, AFormatTheEngineCannotReadIsNamedInTheMessage)
{
    std::string source = TempFolder() + "\\unreadable.pcd";
    HANDLE file = CreateFileA(source.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    CloseHandle(file);
    HWND window = CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    zvtest::DialogDriver d;
    std::string told;
    d.AnswerMessageBox(IDOK, "could not be opened", &told);
    EXPECT_EQ(d.Run([&] { return INT_PTR(OpenImageFile(window, source.c_str())); }), 0);
    EXPECT_NE(told.find("as Kodak Photo CD (pcd) (engine code -4142: The image file format is unknown or damaged)"),
              std::string::npos)
        << told;
    CloseFileMenu();
    DestroyWindow(window);
}

// The host started with a file on its command line shows it at once and
// names it, its size and its depth in the title.
TEST(HostMenu, TheFileOnTheCommandLineIsOpenedAtStart)
{
    std::string exe = zvtest::LibraryFolder() + "\\zvhost.exe";
    PROCESS_INFORMATION process = {};
    ASSERT_TRUE(zvtest::StartProcess(exe.c_str(), "zvhost.exe " ZV_SAMPLE_BMP " --exit-after 20000", &process));
    WaitForInputIdle(process.hProcess, 20000);
    std::string title;
    const ULONGLONG deadline = GetTickCount64() + 20000;
    while (GetTickCount64() < deadline) {
        char text[700] = {};
        if (HWND host = FindWindowA("ZvHostWindow", nullptr)) {
            GetWindowTextA(host, text, sizeof text);
            title = text;
            if (title.find("64 x 48") != std::string::npos) {
                PostMessageA(host, WM_CLOSE, 0, 0);
                break;
            }
        }
        // Wakes early when the host ends, which ends the wait too.
        if (WaitForSingleObject(process.hProcess, 50) == WAIT_OBJECT_0)
            break;
    }
    char full[MAX_PATH] = {};
    GetFullPathNameA(ZV_SAMPLE_BMP, sizeof full, full, nullptr);
    EXPECT_EQ(title, std::string("Zavrin Host - ") + full + " - 64 x 48, 24 bits");
    EXPECT_EQ(zvtest::FinishProcess(process), 0u);
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
    trace.Run([&] { return INT_PTR(OnTraceCommand(window, 210)); });
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
