#include <windows.h>

#include <stdexcept>

#include "base/win32/files.h"
#include "base/win32/process.h"
#include "base/win32/system.h"
#include "core/log.h"
#include "core/product.h"
#include "core/product_paths.h"
#include "setup/shortcut.h"
#include "setup/startup.h"
#include "setup/startup_command.h"
#include "setup/time_limits.h"

namespace velquin::setup {
namespace {

bool runSchtasks(const std::wstring& arguments, uint32_t& exitCode) {
    return base::runProcessAndWait(base::systemProgram(L"schtasks.exe"), arguments, kSchtasksLimitMs, &exitCode, true);
}

bool taskExists(const wchar_t* name) {
    uint32_t exitCode = 0;
    return runSchtasks(queryTaskArguments(name), exitCode);
}

void deleteTask(const wchar_t* name) {
    uint32_t exitCode = 0;
    if (runSchtasks(deleteTaskArguments(name), exitCode)) {
        writeSetupLog(std::wstring(L"scheduled task deleted: ") + name);
    } else {
        writeSetupLog(std::wstring(L"scheduled task not deleted: ") + name + L" exit=" + std::to_wstring(exitCode));
    }
}

}  // namespace

bool readStartupRegistration() {
    const UserPaths paths = userPaths();
    return taskExists(kTaskName) || taskExists(kLegacyTaskName) || base::fileExists(paths.startupShortcut()) ||
           base::fileExists(paths.legacyStartupShortcut());
}

std::wstring registerStartup(const std::wstring& configPath) {
    const UserPaths paths = userPaths();
    const std::wstring program = base::fileExists(installedApp()) ? installedApp() : ownFile();
    uint32_t exitCode = 0;
    if (runSchtasks(createTaskArguments(kTaskName, taskCommand(program, configPath)), exitCode)) {
        deleteShortcut(paths.startupShortcut());
        deleteShortcut(paths.legacyStartupShortcut());
        writeSetupLog(std::wstring(L"Scheduled task installed: ") + kTaskName);
        return L"Scheduled Task";
    }
    writeSetupLog(std::wstring(L"scheduled task not created: ") + kTaskName + L" exit=" + std::to_wstring(exitCode));
    const bool created = createShortcut(paths.startupShortcut(), program, startupArguments(configPath),
                                        L"Mount configured VeraCrypt mappings at Windows logon.", kAppUserModelId);
    deleteShortcut(paths.legacyStartupShortcut());
    if (!created) {
        throw std::runtime_error("Autostart registration failed.");
    }
    writeSetupLog(L"Scheduled task failed; Startup shortcut installed.");
    return L"Startup shortcut";
}

void removeStartup() {
    const UserPaths paths = userPaths();
    deleteTask(kTaskName);
    deleteTask(kLegacyTaskName);
    deleteShortcut(paths.startupShortcut());
    deleteShortcut(paths.legacyStartupShortcut());
}

}  // namespace velquin::setup
