// What the print tests share: the printer of the test run, or the reason
// why there is none, and a host's tags, registry and print record.
#pragma once

#include <windows.h>

#include <commdlg.h>
#include <winspool.h>

#include <string>

#include "host_dialogs.h"
#include "ravicli.h"

namespace zvtest {

// The default printer's name, or "" when the machine has none. A prefix
// may still name a printer that its spooler no longer has.
inline std::string DefaultPrinter()
{
    char device[256] = {};
    GetProfileStringA("windows", "device", "", device, sizeof device);
    std::string name = device;
    name = name.substr(0, name.find(','));
    HANDLE printer = nullptr;
    if (name.empty() || !OpenPrinterA(name.data(), &printer, nullptr))
        return "";
    ClosePrinter(printer);
    return name;
}

// A test that prints needs a printer; without one it ends as skipped with
// the reason, never as passed.
#define ZV_REQUIRE_PRINTER()                                                                             \
    do {                                                                                                 \
        if (zvtest::DefaultPrinter().empty())                                                            \
            GTEST_SKIP() << "no printer: this machine has no default printer (the test run makes the "   \
                            "PDF printer of CUPS; see docs/print.md)";                                   \
    } while (0)

class PrintTest : public ::testing::Test {
protected:
    ~PrintTest() override
    {
        if (print.hDC)
            DeleteDC(print.hDC);
        if (print.hDevMode)
            GlobalFree(print.hDevMode);
        if (print.hDevNames)
            GlobalFree(print.hDevNames);
    }
    int PrinterDlg(Dewey* image, int start = 1)
    {
        return static_cast<int>(d.Run([&] {
            return static_cast<INT_PTR>(DoPrinterDlg(nullptr, &tags, "Zavrin", nullptr, &formats, "BMP", "PRN", 3,
                                                     &print, 0, image, start));
        }));
    }
    int PrintPosDlg(Dewey* image)
    {
        return static_cast<int>(d.Run([&] {
            return static_cast<INT_PTR>(
                DoPrintPosDlg(nullptr, &tags, "Zavrin", nullptr, &formats, "BMP", "PRN", 3, image));
        }));
    }
    double Number(const char* key) { return ZvGetFloatTag(&tags, key); }
    std::string Tag(const char* key) { return TagOf(&tags, key); }

    SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    PRINTDLGA print = {};
    DialogDriver d;
};

}  // namespace zvtest
