// Uninstall.
#include <windows.h>

#include "base/win32/files.h"
#include "base/windows_path.h"
#include "core/delayed_delete.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "setup/exit_codes.h"
#include "setup/file_steps.h"
#include "setup/flows.h"
#include "setup/msi.h"
#include "setup/payload_table.h"
#include "setup/registration.h"
#include "setup/running_copies.h"
#include "setup/shortcut.h"
#include "setup/startup.h"

namespace velquin::setup {
namespace {

bool msiUninstall(bool removeConfig) {
    const std::vector<std::wstring> codes = listInstalledProductCodes();
    if (codes.empty()) {
        return false;
    }
    stopRunningInstances();
    removeStartup();
    removeLegacyStartMenuShortcut();
    bool ok = removeProducts(L"uninstall", codes);
    ok = removeInstalledFiles(removeConfig) == kExitOk && ok;
    writeSetupLog(ok ? L"MSI uninstall ok" : L"MSI uninstall failed");
    return ok;
}

// The Start Menu shortcut and the publisher's folder there, if nothing else is in it.
void removeStartMenuShortcut(const std::wstring& linkPath) {
    deleteShortcut(linkPath);
    removeFolderIfEmpty(base::parentPath(linkPath));
}

// False when the file could be deleted neither now nor at the next restart.
bool removeInstalledFile(const std::wstring& file) {
    if (!base::pathExists(file)) {
        writeSetupLog(L"file already gone: " + file);
        return true;
    }
    if (!deleteFileOrScheduleOnReboot(file)) {
        writeSetupLog(L"delete failed: " + file);
        return false;
    }
    if (!base::pathExists(file)) {
        writeSetupLog(L"file deleted: " + file);
    }
    return true;
}

void removeEmptyInstallFolder(const std::wstring& folder) {
    if (!base::pathExists(folder)) {
        writeSetupLog(L"install folder already gone: " + folder);
    } else if (RemoveDirectoryW(base::extendedLengthPath(folder).c_str())) {
        writeSetupLog(L"install folder removed: " + folder);
    } else if (GetLastError() != ERROR_FILE_NOT_FOUND) {
        scheduleDeleteOnReboot(folder);
    }
}

}  // namespace

int uninstallProduct(bool removeConfig) {
    // The uninstall entry, from which the folder is read, goes before the files do.
    const InstallDirOverride inFolder(resolveInstallDir());
    writeSetupLog(L"uninstall started");
    writeSetupLog(L"install folder: " + resolveInstallDir());
    if (hasMsiPayload()) {
        if (msiUninstall(removeConfig)) {
            return kExitOk;
        }
        writeSetupLog(L"MSI uninstall unavailable or failed; falling back to legacy uninstall path");
    }
    stopRunningInstances();
    const int code = removeInstalledFiles(removeConfig);
    writeSetupLog(code == kExitOk ? L"uninstall ok" : L"uninstall completed with errors");
    return code;
}

int removeInstalledFiles(bool removeConfig) {
    const std::wstring folder = resolveInstallDir();
    const InstallDirOverride inFolder(folder);
    const UserPaths paths = userPaths();
    removeStartup();
    removeStartMenuShortcut(paths.startMenuShortcut());
    removeLegacyStartMenuShortcut();
    deleteShortcut(paths.desktopShortcut());
    deleteRegistration();
    removeFolder(skinsFolder());
    removeFolder(assetsFolder());
    int code = kExitOk;
    for (const std::wstring& file : {installedApp(), installedSetup()}) {
        if (!removeInstalledFile(file)) {
            code = kExitFilesLeft;
        }
    }
    removeEmptyInstallFolder(folder);
    if (removeConfig) {
        removeUserData();
    }
    return code;
}

void removeUserData() {
    const UserPaths paths = userPaths();
    const std::wstring folder = paths.dataFolder();
    if (const std::wstring link = base::firstLinkBelow(paths.dataFolderBase(), folder); !link.empty()) {
        writeSetupLog(L"user data not removed, a link lies in its path: " + link);
        return;
    }
    // What it left is logged only afterwards: the log lies in the folder.
    std::vector<std::wstring> links;
    if (base::removeTree(
            folder, [&links](const std::wstring& link) { links.push_back(link); }, paths.dataFolderBase())) {
        RemoveDirectoryW(base::extendedLengthPath(base::parentPath(folder)).c_str());
        return;  // and no line, which would make the folder and the log anew
    }
    for (const std::wstring& left : links) {
        writeSetupLog(L"link left in place, not followed: " + left);
    }
    writeSetupLog(L"user data folder not removed completely: " + folder);
}

}  // namespace velquin::setup
