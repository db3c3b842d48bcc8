#include <windows.h>

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/held_file.h"
#include "base/win32/process.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "setup/own_file.h"
#include "setup/time_limits.h"
#include "setup/uninstall_worker.h"

namespace velquin::setup {
namespace {

bool isInstalledSetup(const std::wstring& program) {
    const std::wstring installed = installedSetup();
    return base::isSameFile(program, installed) ||
           base::equalsIgnoringCase(normalizePathText(program), normalizePathText(installed));
}

}  // namespace

bool isRunningFromInstallFolder() {
    return isInstalledSetup(ownFile());
}

bool relaunchUninstallFromTempCopy(const Arguments& arguments) {
    const std::wstring folder = base::temporaryFolder();
    const std::wstring target = base::joinPath(folder, workerFileName(GetCurrentProcessId()));
    if (!holdOwnFile()) {
        return false;
    }
    const auto bytes = base::readWholeFile(ownFile());
    base::HeldFile copy = bytes ? base::HeldFile::write(folder, target, *bytes) : base::HeldFile();
    if (!copy) {
        const DWORD error = GetLastError();
        writeSetupLog(L"temp uninstall worker copy failed: " + target + L" : " + base::errorText(error));
        return false;
    }
    // The copy stays held until Windows has opened it to run it; a running program cannot be written to.
    if (!base::startProcess(copy.path(), workerCommandLine(copy.path(), arguments), arguments.has(kQuietOption))) {
        const DWORD error = GetLastError();
        writeSetupLog(L"temp uninstall worker launch failed: error=" + std::to_wstring(error));
        copy.release();
        DeleteFileW(target.c_str());
        return false;
    }
    writeSetupLog(L"temp uninstall worker launched: " + copy.path());
    return true;
}

void waitForLaunchingSetup() {
    std::vector<base::RunningProcess> processes;
    base::listProcesses(processes);
    const auto own = std::ranges::find(processes, GetCurrentProcessId(), &base::RunningProcess::id);
    if (own == processes.end()) {
        return;
    }
    const base::UniqueHandle parent(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, own->parentId));
    // The parent's id may already belong to another program, which is not waited for.
    if (!parent || !isInstalledSetup(base::processImagePath(parent.get()))) {
        return;
    }
    const bool ended = WaitForSingleObject(parent.get(), kParentExitLimitMs) == WAIT_OBJECT_0;
    writeSetupLog((ended ? L"uninstall worker: the installed setup has ended pid="
                         : L"uninstall worker: the installed setup still runs pid=") +
                  std::to_wstring(own->parentId));
}

}  // namespace velquin::setup
