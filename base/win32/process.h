// Starting programs and looking at running ones. Every program is started by its full path, never by searching.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/win32/unique_handle.h"

namespace base {

// The exit code recorded for a process that was ended at its time limit.
inline constexpr uint32_t kTimedOutExitCode = 124;

// Runs `program` (a full path) with `arguments` appended unchanged behind its quoted path, and waits up to `timeoutMs`.
// True only when it ended in time with 0. The exit code, where asked for: the program's own; 124 for one that was
// killed at its limit; the system error code when it could not be started. `hidden` starts it without a visible window.
bool runProcessAndWait(const std::wstring& program, std::wstring_view arguments, uint32_t timeoutMs, uint32_t* exitCode,
                       bool hidden);

// Starts `program` (a full path) with a whole command line and lets it go. False with GetLastError() on failure.
bool startProcess(const std::wstring& program, std::wstring commandLine, bool hidden);

struct RunningProcess {
    DWORD id = 0;
    DWORD parentId = 0;
    std::wstring fileName;  // of the executable, without its folder
};
// A snapshot of all processes; false when Windows gives none.
bool listProcesses(std::vector<RunningProcess>& processes);

// The full path of a running process's executable, empty when it cannot be told.
std::wstring processImagePath(HANDLE process);

// OpenProcessToken and TokenElevation; any failure counts as not elevated.
bool isProcessElevated();

}  // namespace base
