// Waiting for what passes: another process has a file open for a moment, a writer or a virus scanner.
#pragma once

#include <windows.h>

namespace base {

// Calls `attempt` until it succeeds, fails for a reason that does not pass by itself, or has been called often enough:
// for about a second. False with the last reason in GetLastError().
template <typename Attempt>
bool persistently(Attempt attempt) {
    constexpr int kAttempts = 40;
    constexpr DWORD kPauseMs = 25;
    for (int i = 1; !attempt(); ++i) {
        const DWORD error = GetLastError();
        const bool passes =
            error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED || error == ERROR_FILE_EXISTS;
        if (!passes || i == kAttempts) {
            SetLastError(error);
            return false;
        }
        Sleep(kPauseMs);
    }
    return true;
}

}  // namespace base
