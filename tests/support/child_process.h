// Second processes for what must hold across two processes: another
// program beside this one, or this test program again, limited to one test
// and with one environment variable set for it.
#pragma once

#include <windows.h>

#include <cstdio>
#include <map>
#include <string>

namespace zvtest {

// Where each started process writes its output, by process id. The output
// goes to a file of its own and not to the test's: a process that lingers
// after it has ended for Windows (Wine ends the Windows side first) would
// otherwise keep ctest waiting for the test's output to close.
inline std::map<DWORD, std::string>& ChildOutputs()
{
    static std::map<DWORD, std::string> outputs;
    return outputs;
}

// Starts exe with the command line. Wine's loader now and then ends a new
// process before its program runs, and CreateProcessA then fails for a
// program that is there; that alone is tried once more, and said on the
// test's output.
inline bool StartProcess(const char* exe, std::string command, PROCESS_INFORMATION* process)
{
    char folder[MAX_PATH] = {}, output[MAX_PATH] = {};
    GetTempPathA(sizeof folder, folder);
    GetTempFileNameA(folder, "zvc", 0, output);
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE file = CreateFileA(output, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    for (int attempt = 1;; ++attempt) {
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
        startup.hStdOutput = startup.hStdError = file;
        if (CreateProcessA(exe, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, process)) {
            CloseHandle(file);
            ChildOutputs()[process->dwProcessId] = output;
            return true;
        }
        const DWORD error = GetLastError();
        const bool there = GetFileAttributesA(exe) != INVALID_FILE_ATTRIBUTES;
        std::printf("note: %s did not start (error %lu)%s\n", exe, error,
                    there && attempt == 1 ? "; Wine's loader may have ended it, starting it once more" : "");
        if (!there || attempt == 2) {
            CloseHandle(file);
            DeleteFileA(output);
            return false;
        }
    }
}

// Waits for the process to end, within a minute, and gives its exit code;
// 0xFFFFFFFE when it did not end. What the process wrote joins the test's
// output.
inline DWORD FinishProcess(PROCESS_INFORMATION& process)
{
    DWORD code = 0xFFFFFFFE;
    if (WaitForSingleObject(process.hProcess, 60000) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    const auto output = ChildOutputs().find(process.dwProcessId);
    if (output != ChildOutputs().end()) {
        if (FILE* file = std::fopen(output->second.c_str(), "rb")) {
            char buffer[4096];
            for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, file)) > 0;)
                std::fwrite(buffer, 1, n, stdout);
            std::fclose(file);
        }
        std::fflush(stdout);
        DeleteFileA(output->second.c_str());
        ChildOutputs().erase(output);
    }
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
