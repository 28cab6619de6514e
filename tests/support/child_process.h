// Runs this test program again as a second process, limited to one test
// and with one environment variable set for it, and gives its exit code:
// for what must hold across two processes.
#pragma once

#include <windows.h>

#include <string>

namespace zvtest {

inline DWORD RunThisProgram(const std::string& testFilter, const char* variable, const char* value)
{
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, sizeof exe);
    std::string command = std::string("\"") + exe + "\" --gtest_filter=" + testFilter;
    SetEnvironmentVariableA(variable, value);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    const BOOL started =
        CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process);
    SetEnvironmentVariableA(variable, nullptr);
    if (!started)
        return 0xFFFFFFFF;
    WaitForSingleObject(process.hProcess, 60000);
    DWORD code = 0xFFFFFFFE;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

}  // namespace zvtest
