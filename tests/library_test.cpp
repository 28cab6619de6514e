// The library loads, answers from its own string table and routes the
// three platform calls through the table a host installs.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "resource_ids.h"
#include "zvopt32.h"

namespace {

HMODULE Library()
{
    return GetModuleHandleA("ZVOPT32.dll");
}

TEST(Library, LoadsStringsFromItsOwnTable)
{
    ASSERT_NE(Library(), nullptr);
    char text[128] = {};
    ASSERT_GT(LoadStringA(Library(), IDS_PROCESSING_OPTIONS, text, sizeof text), 0);
    EXPECT_STREQ(text, "Processing Options");
    ASSERT_GT(LoadStringA(Library(), IDS_FILE_NAME_TOO_LONG, text, sizeof text), 0);
    EXPECT_STREQ(text, "The file name exceeds the maximum number of characters.  Please reenter.");
}

TEST(Library, CarriesItsVersionResource)
{
    char path[MAX_PATH] = {};
    ASSERT_GT(GetModuleFileNameA(Library(), path, sizeof path), 0u);
    DWORD handle = 0;
    DWORD size = GetFileVersionInfoSizeA(path, &handle);
    EXPECT_GT(size, 0u);
}

}  // namespace

namespace {

// What the library tells a debugger: OutputDebugStringA raises the
// exception that debuggers listen for, and a vectored handler sees it
// first, in the process itself.
std::vector<std::string> g_debugLines;

LONG CALLBACK KeepDebugLine(EXCEPTION_POINTERS* info)
{
    const EXCEPTION_RECORD* record = info->ExceptionRecord;
    if (record->ExceptionCode == DBG_PRINTEXCEPTION_C && record->NumberParameters >= 2)
        g_debugLines.emplace_back(reinterpret_cast<const char*>(record->ExceptionInformation[1]));
    return EXCEPTION_CONTINUE_SEARCH;
}

BOOL WINAPI NoHelp(HWND, LPCSTR, UINT, ULONG_PTR)
{
    return TRUE;
}

TEST(Library, DiagnosticsReachTheDebuggerOnlyWhileSwitchedOn)
{
    ZvPlatformSeams seams = {};
    seams.winHelp = &NoHelp;
    ZvSetPlatformSeams(&seams);
    PVOID handler = AddVectoredExceptionHandler(1, &KeepDebugLine);
    auto help = [] { ShowContextHelp(WM_COMMAND, IDHELP, 1400); };

    help();
    SetEnvironmentVariableA("ZVOPT32_DIAGNOSTICS", "0");
    help();
    EXPECT_TRUE(g_debugLines.empty());

    SetEnvironmentVariableA("ZVOPT32_DIAGNOSTICS", "1");
    help();
    SetEnvironmentVariableA("ZVOPT32_DIAGNOSTICS", nullptr);
    help();
    RemoveVectoredExceptionHandler(handler);
    ZvSetPlatformSeams(nullptr);

    ASSERT_EQ(g_debugLines.size(), 1u);
    EXPECT_EQ(g_debugLines[0].rfind("ZVOPT32: help: ", 0), 0u) << g_debugLines[0];
    EXPECT_NE(g_debugLines[0].find("ZAVRIN.HLP, command 1\n"), std::string::npos) << g_debugLines[0];
}

// Every name the DLL exports stands in the header a host includes: nothing
// is exported for the library's own tests.
TEST(Library, ExportsOnlyWhatItsHeaderDeclares)
{
    auto* base = reinterpret_cast<const unsigned char*>(Library());
    ASSERT_NE(base, nullptr);
    auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& entry = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    ASSERT_NE(entry.VirtualAddress, 0u);
    auto* exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + entry.VirtualAddress);
    auto* names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);

    std::ifstream file(ZV_PUBLIC_HEADER);
    std::stringstream text;
    text << file.rdbuf();
    const std::string header = text.str();
    ASSERT_FALSE(header.empty());
    EXPECT_GT(exports->NumberOfNames, 40u);
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
        std::string name = reinterpret_cast<const char*>(base + names[i]);
        // A class member is exported under its mangled name: the class name
        // is what the header must declare.
        for (const char* cls : {"CapSection", "EFont"})
            if (name.rfind("_Z", 0) == 0 && name.find(cls) != std::string::npos)
                name = cls;
        EXPECT_NE(header.find(name), std::string::npos) << name << " is exported but not in the header";
    }
}

}  // namespace
