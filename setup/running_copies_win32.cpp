#include <windows.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "base/win32/process.h"
#include "core/log.h"
#include "core/product.h"
#include "setup/running_copies.h"
#include "setup/time_limits.h"

namespace velquin::setup {
namespace {

struct CloseRequest {
    DWORD processId;
    int posted;
};

BOOL CALLBACK postClose(HWND window, LPARAM parameter) {
    auto& request = *reinterpret_cast<CloseRequest*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    if (processId == request.processId && GetWindow(window, GW_OWNER) == nullptr &&
        PostMessageW(window, WM_CLOSE, 0, 0)) {
        ++request.posted;
    }
    return TRUE;
}

void terminate(DWORD processId) {
    const std::wstring id = std::to_wstring(processId);
    const base::UniqueHandle process(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, processId));
    if (!process) {
        writeSetupLog(L"process terminate open failed pid=" + id);
    } else if (TerminateProcess(process.get(), 0)) {
        writeSetupLog(L"process force terminated pid=" + id);
        WaitForSingleObject(process.get(), kTerminateLimitMs);
    } else {
        writeSetupLog(L"process terminate failed pid=" + id);
    }
}

void stopProcess(DWORD processId) {
    const base::UniqueHandle process(OpenProcess(SYNCHRONIZE, FALSE, processId));
    if (!process) {
        writeSetupLog(L"process stop open failed pid=" + std::to_wstring(processId));
        return;
    }
    CloseRequest request{processId, 0};
    EnumWindows(postClose, reinterpret_cast<LPARAM>(&request));
    if (request.posted > 0 && WaitForSingleObject(process.get(), kCloseLimitMs) == WAIT_OBJECT_0) {
        writeSetupLog(L"process closed pid=" + std::to_wstring(processId));
    } else {
        terminate(processId);
    }
}

}  // namespace

void stopProcessesNamed(std::wstring_view fileName) {
    std::vector<base::RunningProcess> processes;
    if (!base::listProcesses(processes)) {
        writeSetupLog(L"process stop skipped: snapshot unavailable");
        return;
    }
    const DWORD own = GetCurrentProcessId();
    bool found = false;
    for (const base::RunningProcess& process : processes) {
        if (process.id != own && base::lowered(process.fileName) == fileName) {
            found = true;
            stopProcess(process.id);
        }
    }
    if (!found) {
        writeSetupLog(L"no running copy of " + std::wstring(fileName));
    }
}

void stopRunningInstances() {
    stopProcessesNamed(base::lowered(kAppFileName));
}

}  // namespace velquin::setup
