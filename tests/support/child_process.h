// Second processes for what must hold across two processes: another
// program beside this one, or this test program again, limited to one test
// and with one environment variable set for it.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

namespace zvtest {

// Starts exe with the command line. Wine's loader now and then ends a new
// process before its program runs, and CreateProcessA then fails for a
// program that is there; that alone is tried once more, and said on the
// test's output.
inline bool StartProcess(const char* exe, std::string command, PROCESS_INFORMATION* process)
{
    for (int attempt = 1;; ++attempt) {
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        if (CreateProcessA(exe, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, process))
            return true;
        const DWORD error = GetLastError();
        const bool there = GetFileAttributesA(exe) != INVALID_FILE_ATTRIBUTES;
        std::printf("note: %s did not start (error %lu)%s\n", exe, error,
                    there && attempt == 1 ? "; Wine's loader may have ended it, starting it once more" : "");
        if (!there || attempt == 2)
            return false;
    }
}

// Waits for the process to end, within a minute, and gives its exit code;
// 0xFFFFFFFE when it did not end.
inline DWORD FinishProcess(PROCESS_INFORMATION& process)
{
    DWORD code = 0xFFFFFFFE;
    if (WaitForSingleObject(process.hProcess, 60000) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

// Runs this test program again for one test, with variable set to value
// in its environment; its exit code, or 0xFFFFFFFF when it did not start.
inline DWORD RunThisProgram(const std::string& testFilter, const char* variable, const char* value)
{
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, sizeof exe);
    SetEnvironmentVariableA(variable, value);
    PROCESS_INFORMATION process = {};
    const bool started = StartProcess(exe, std::string("\"") + exe + "\" --gtest_filter=" + testFilter, &process);
    SetEnvironmentVariableA(variable, nullptr);
    return started ? FinishProcess(process) : 0xFFFFFFFF;
}

}  // namespace zvtest
