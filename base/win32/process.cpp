#include "base/win32/process.h"

#include <tlhelp32.h>

#include "base/argument_quoting.h"

namespace base {
namespace {

UniqueHandle createProcess(const std::wstring& program, std::wstring commandLine, bool hidden) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    DWORD flags = 0;
    if (hidden) {
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_HIDE;
        flags = CREATE_NO_WINDOW;
    }
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr, &startup,
                        &process)) {
        return {};
    }
    CloseHandle(process.hThread);
    return UniqueHandle(process.hProcess);
}

}  // namespace

bool runProcessAndWait(const std::wstring& program, std::wstring_view arguments, uint32_t timeoutMs, uint32_t* exitCode,
                       bool hidden) {
    std::wstring commandLine = quoteArgument(program);
    if (!arguments.empty()) {
        commandLine.push_back(L' ');
        commandLine += arguments;
    }
    const UniqueHandle process = createProcess(program, std::move(commandLine), hidden);
    DWORD code = 1;
    bool succeeded = false;
    if (!process) {
        code = GetLastError();
    } else {
        const DWORD waited = WaitForSingleObject(process.get(), timeoutMs);
        if (waited == WAIT_OBJECT_0) {
            succeeded = GetExitCodeProcess(process.get(), &code) && code == 0;
        } else if (waited == WAIT_TIMEOUT) {
            TerminateProcess(process.get(), kTimedOutExitCode);
            code = kTimedOutExitCode;
        }
    }
    if (exitCode != nullptr) {
        *exitCode = code;
    }
    return succeeded;
}

bool startProcess(const std::wstring& program, std::wstring commandLine, bool hidden) {
    return static_cast<bool>(createProcess(program, std::move(commandLine), hidden));
}

bool listProcesses(std::vector<RunningProcess>& processes) {
    const UniqueFile snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!snapshot) {
        return false;
    }
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more; more = Process32NextW(snapshot.get(), &entry)) {
        processes.push_back({entry.th32ProcessID, entry.th32ParentProcessID, entry.szExeFile});
    }
    return true;
}

std::wstring processImagePath(HANDLE process) {
    std::wstring path(32768, L'\0');
    auto length = static_cast<DWORD>(path.size());
    path.resize(QueryFullProcessImageNameW(process, 0, path.data(), &length) ? length : 0);
    return path;
}

bool isProcessElevated() {
    UniqueHandle token;
    TOKEN_ELEVATION elevation{};
    DWORD length = 0;
    return OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.put()) &&
           GetTokenInformation(token.get(), TokenElevation, &elevation, sizeof(elevation), &length) &&
           elevation.TokenIsElevated != 0;
}

}  // namespace base
