// Install, upgrade and repair.
#include <windows.h>

#include <shellapi.h>

#include "base/argument_quoting.h"
#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/process.h"
#include "base/win32/registry.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/delayed_delete.h"
#include "core/log.h"
#include "core/product.h"
#include "core/product_paths.h"
#include "setup/file_steps.h"
#include "setup/flows.h"
#include "setup/install_folder.h"
#include "setup/msi.h"
#include "setup/msi_command.h"
#include "setup/own_file.h"
#include "setup/payload.h"
#include "setup/payload_table.h"
#include "setup/registration.h"
#include "setup/running_copies.h"
#include "setup/shortcut.h"
#include "setup/startup.h"

namespace velquin::setup {
namespace {

constexpr wchar_t kShortcutDescription[] = L"Manage VeraCrypt startup mappings.";

bool createProductShortcut(const std::wstring& linkPath) {
    return createShortcut(linkPath, installedApp(), L"", kShortcutDescription, kAppUserModelId);
}

bool updateStartup(bool startWithWindows) {
    try {
        if (startWithWindows) {
            registerStartup(configurationFile());
        } else {
            removeStartup();
        }
        return true;
    } catch (const std::exception& failure) {
        writeSetupLog(L"startup registration failed: " + base::toWide(failure.what()));
        return false;
    }
}

bool copySetup() {
    return holdOwnFile() && copyFileReplace(ownFile(), installedSetup());
}

bool msiInstall(const std::wstring& action, bool desktopShortcut, bool startWithWindows, const std::wstring& folder) {
    base::HeldFile package;
    if (!extractMsiPayload(package)) {
        return false;
    }
    stopRunningInstances();
    if (!removeExistingProducts()) {
        writeSetupLog(L"MSI install aborted: existing product removal failed");
        return false;
    }
    uint32_t exitCode = 0;
    bool ok =
        runMsiexec(action, msiInstallArguments({package.path(), folder, startWithWindows, desktopShortcut}), exitCode);
    package.release();
    if (ok) {
        ok = copySetup();
        ok = repairProduct(desktopShortcut, startWithWindows) && ok;
    }
    writeSetupLog(ok ? L"MSI install ok" : L"MSI install failed");
    return ok;
}

bool hasFilePayloads() {
    for (const PayloadEntry& entry : payloadTable()) {
        if (entry.isValid()) {
            return true;
        }
    }
    return false;
}

bool extractAllPayloads(const std::wstring& folder) {
    bool ok = true;
    for (const PayloadEntry& entry : payloadTable()) {
        if (entry.isValid()) {
            ok = extractPayload(entry.resourceId, base::joinPath(folder, entry.relativePath)) && ok;
        }
    }
    return ok;
}

// Copies the files of one folder beside the setup that have the given extension.
bool copyBeside(const std::wstring& subfolder, const std::wstring& extension, const std::wstring& folder) {
    const std::wstring source = base::joinPath(ownFolder(), subfolder);
    bool ok = true;
    for (const base::FolderEntry& entry : base::listFolder(source)) {
        if (!entry.isFolder && base::endsWithIgnoringCase(entry.name, extension)) {
            ok = copyFileReplace(base::joinPath(source, entry.name),
                                 base::joinPath(base::joinPath(folder, subfolder), entry.name)) &&
                 ok;
        }
    }
    return ok;
}

// The way of a setup that carries no installer package.
bool fileInstall(bool desktopShortcut, bool startWithWindows, const std::wstring& folder) {
    stopRunningInstances();
    bool ok = true;
    if (hasFilePayloads()) {
        ok = extractAllPayloads(folder);
    } else {
        ok = copyFileReplace(base::joinPath(ownFolder(), kAppFileName), installedApp());
        ok = copyBeside(L"skins", L".json", folder) && ok;
        ok = copyBeside(L"assets", L".png", folder) && ok;
    }
    ok = copySetup() && ok;
    ok = repairProduct(desktopShortcut, startWithWindows) && ok;
    writeSetupLog(ok ? L"install ok" : L"install failed");
    return ok;
}

// What the installed files and the package in its cache take, generously: the setup carries all of it compressed or
// not, and a copy of the setup is installed, too.
uint64_t neededBytes() {
    return 2 * base::fileSize(ownFile());
}

// After a move to another folder the package's files are gone from the old one. The setup copy is left, which no
// package owns, and folders. What the user keeps there stays.
void removeRemains(const std::wstring& oldFolder) {
    writeSetupLog(L"moved from: " + oldFolder);
    const std::wstring oldSetup = base::joinPath(oldFolder, kSetupFileName);
    if (deleteFileOrScheduleOnReboot(oldSetup) && !base::pathExists(oldSetup)) {
        writeSetupLog(L"file deleted: " + oldSetup);
    }
    for (const wchar_t* name : {L"skins", L"assets"}) {
        removeFolderIfEmpty(base::joinPath(oldFolder, name));
    }
    if (RemoveDirectoryW(base::extendedLengthPath(oldFolder).c_str())) {
        writeSetupLog(L"old install folder removed: " + oldFolder);
    } else {
        const DWORD error = GetLastError();
        writeSetupLog(L"old install folder kept: " + oldFolder + L" : " + base::errorText(error));
    }
}

}  // namespace

bool installProduct(bool desktopShortcut, bool startWithWindows, const std::optional<std::wstring>& installDir) {
    const std::optional<std::wstring> registered = registeredInstallFolder();
    const std::wstring folder = normalizePathText(installDir.value_or(resolveInstallDir()));
    const InstallDirOverride inFolder(folder);
    writeSetupLog(L"install started");
    writeSetupLog(L"install folder: " + folder +
                  (installDir   ? L" (chosen)"
                   : registered ? L" (registered)"
                                : L" (default)"));
    const std::wstring problem = installFolderProblem(folder, neededBytes());
    if (!problem.empty()) {
        writeSetupLog(L"install folder refused, nothing was changed: " + folder + L": " + problem);
        writeSetupLog(L"install failed");
        return false;
    }
    const bool ok = hasMsiPayload() ? msiInstall(L"install", desktopShortcut, startWithWindows, folder)
                                    : fileInstall(desktopShortcut, startWithWindows, folder);
    if (base::fileExists(installedApp())) {
        // Whatever else failed: what is here now must not go at the next restart.
        cancelDeleteOnReboot({folder, installedApp(), installedSetup()});
    }
    // One folder may be spelled in many ways; the files tell.
    if (ok && registered && base::folderExists(*registered) && !base::isSameFile(*registered, folder)) {
        removeRemains(*registered);
    }
    return ok;
}

bool repairProduct(bool desktopShortcut, bool startWithWindows) {
    const std::wstring folder = resolveInstallDir();
    const InstallDirOverride inFolder(folder);
    const UserPaths paths = userPaths();
    writeSetupLog(L"registering in: " + folder + L" desktop shortcut=" + (desktopShortcut ? L"yes" : L"no") +
                  L" start with Windows=" + (startWithWindows ? L"yes" : L"no"));
    bool ok = true;
    for (const std::wstring& file : {installedApp(), installedSetup()}) {
        if (!base::fileExists(file)) {
            writeSetupLog(L"installed file missing: " + file);
            ok = false;
        }
    }
    ok = createProductShortcut(paths.startMenuShortcut()) && ok;
    removeLegacyStartMenuShortcut();
    ok = (desktopShortcut ? createProductShortcut(paths.desktopShortcut()) : deleteShortcut(paths.desktopShortcut())) &&
         ok;
    ok = updateStartup(startWithWindows) && ok;
    ok = writeUninstallEntry(folder) && ok;
    for (const ApplicationRegistration& application : kApplications) {
        ok = writeApplicationRegistration(application, folder) && ok;
    }
    writeSetupLog(ok ? L"repair ok" : L"repair failed");
    return ok;
}

bool isProductInstalled() {
    return base::registryKeyExists(HKEY_LOCAL_MACHINE, kUninstallKey) || base::fileExists(installedApp());
}

void launchInstalledApp() {
    const std::wstring app = installedApp();
    const std::wstring folder = resolveInstallDir();
    const auto open = [&folder](const std::wstring& program, const wchar_t* arguments) {
        return reinterpret_cast<INT_PTR>(
            ShellExecuteW(nullptr, L"open", program.c_str(), arguments, folder.c_str(), SW_SHOWNORMAL));
    };
    if (base::isProcessElevated()) {
        // Explorer runs with the user's own rights and passes them on.
        const std::wstring explorer = base::joinPath(base::windowsFolder(), L"explorer.exe");
        const INT_PTR result = open(explorer, base::quotePath(app).c_str());
        if (result > 32) {
            writeSetupLog(L"installed app launch requested through Explorer");
            return;
        }
        writeSetupLog(L"Explorer launch failed; falling back to direct launch error=" + std::to_wstring(result));
    }
    const INT_PTR result = open(app, nullptr);
    writeSetupLog(result > 32 ? L"installed app launched: " + app
                              : L"installed app launch failed: " + app + L" error=" + std::to_wstring(result));
}

}  // namespace velquin::setup
