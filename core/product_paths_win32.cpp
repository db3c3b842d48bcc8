// The half of the product paths that asks Windows: folders of the user, the registry, the own file.
#include <windows.h>

#include <shlobj.h>

#include "base/text.h"
#include "base/win32/registry.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/product.h"
#include "core/product_paths.h"

namespace velquin {
namespace {

constexpr uint32_t kInstallLocationLimitBytes = 8192;

std::optional<std::wstring>& installDirOverride() {
    static std::optional<std::wstring> folder;
    return folder;
}

std::wstring knownFolder(const KNOWNFOLDERID& id) {
    wchar_t* text = nullptr;
    const HRESULT result = SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &text);
    std::wstring folder = SUCCEEDED(result) && text != nullptr ? text : L"";
    CoTaskMemFree(text);
    return folder;
}

// The folders that come from the environment: all that the data folder and the log need.
UserFolders environmentFolders() {
    UserFolders folders;
    folders.localAppData = base::environmentVariable(L"LOCALAPPDATA", L"");
    folders.appData = base::environmentVariable(L"APPDATA", L"");
    folders.userProfile = base::environmentVariable(L"USERPROFILE", L"");
    folders.temporary = base::temporaryFolder();
    return folders;
}

}  // namespace

std::wstring normalizePathText(const std::wstring& text) {
    return base::normalizePathText(text, [](const std::wstring& path) -> std::optional<std::wstring> {
        std::wstring full = base::fullPathName(path);
        return full.empty() ? std::nullopt : std::optional(std::move(full));
    });
}

std::wstring ownFile() {
    return base::ownFilePath();
}

std::wstring ownFolder() {
    return base::parentPath(ownFile());
}

UserPaths userPaths() {
    UserFolders folders = environmentFolders();
    folders.commonPrograms = knownFolder(FOLDERID_CommonPrograms);
    folders.desktop = knownFolder(FOLDERID_Desktop);
    return UserPaths(std::move(folders));
}

std::wstring dataFolder() {
    return UserPaths(environmentFolders()).dataFolder();
}

std::wstring configurationFile() {
    return UserPaths(environmentFolders()).configurationFile();
}

std::wstring legacyConfigurationFile() {
    return UserPaths(environmentFolders()).legacyConfigurationFile();
}

std::wstring setupLogFile() {
    return logFileBeside(configurationFile());
}

std::wstring passwordFile() {
    return passwordFileBeside(configurationFile());
}

std::wstring defaultInstallFolder() {
    return base::joinPath(kDefaultProgramFiles, kProductName);
}

std::optional<std::wstring> registeredInstallFolder() {
    const std::wstring stored =
        base::readRegistryString(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation", kInstallLocationLimitBytes)
            .value_or(L"");
    // Text from the registry is not trusted: an uninstall deletes in this folder. A relative path or a root is none.
    const std::wstring folder = base::isFullyQualified(base::trimmed(stored)) ? normalizePathText(stored) : L"";
    return folder.size() > base::rootLength(folder) ? std::optional(folder) : std::nullopt;
}

std::wstring resolveInstallDir() {
    const std::optional<std::wstring>& chosen = installDirOverride();
    return chosen ? *chosen : registeredInstallFolder().value_or(defaultInstallFolder());
}

InstallDirOverride::InstallDirOverride(std::wstring folder) : previous_(installDirOverride()) {
    installDirOverride() = std::move(folder);
}

InstallDirOverride::~InstallDirOverride() {
    installDirOverride() = std::move(previous_);
}

std::wstring installedApp() {
    return base::joinPath(resolveInstallDir(), kAppFileName);
}

std::wstring installedSetup() {
    return base::joinPath(resolveInstallDir(), kSetupFileName);
}

std::wstring skinsFolder() {
    return base::joinPath(resolveInstallDir(), L"skins");
}

std::wstring assetsFolder() {
    return base::joinPath(resolveInstallDir(), L"assets");
}

}  // namespace velquin
