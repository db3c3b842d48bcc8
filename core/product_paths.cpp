#include "core/product_paths.h"

#include "base/windows_path.h"
#include "core/product.h"

namespace velquin {

using base::joinPath;

std::wstring UserPaths::dataFolderBase() const {
    return folders_.localAppData.empty() ? folders_.temporary : folders_.localAppData;
}

std::wstring UserPaths::dataFolder() const {
    return joinPath(dataFolderBase(), LR"(LumoraPrivateMemory\Velquin)");
}

std::wstring UserPaths::roamingFolder() const {
    return folders_.appData.empty() ? dataFolder() : folders_.appData;
}

std::wstring UserPaths::configurationFile() const {
    return joinPath(dataFolder(), L"velquin.json");
}

std::wstring UserPaths::legacyConfigurationFile() const {
    return joinPath(dataFolder(), L"quenbria.veracrypt.json");
}

std::wstring UserPaths::roamingPrograms() const {
    return joinPath(roamingFolder(), LR"(Microsoft\Windows\Start Menu\Programs)");
}

std::wstring UserPaths::startMenuPrograms() const {
    return folders_.commonPrograms.empty() ? roamingPrograms() : folders_.commonPrograms;
}

std::wstring UserPaths::startMenuShortcut() const {
    return joinPath(joinPath(startMenuPrograms(), kStartMenuFolder), kShortcutFileName);
}

std::wstring UserPaths::legacyStartMenuShortcut() const {
    return joinPath(joinPath(startMenuPrograms(), kLegacyStartMenuFolder), kShortcutFileName);
}

std::wstring UserPaths::startupShortcut() const {
    return joinPath(joinPath(roamingPrograms(), L"Startup"), kShortcutFileName);
}

std::wstring UserPaths::legacyStartupShortcut() const {
    return joinPath(joinPath(roamingPrograms(), L"Startup"), kLegacyShortcutFileName);
}

std::wstring UserPaths::desktopShortcut() const {
    const std::wstring& home = folders_.userProfile.empty() ? roamingFolder() : folders_.userProfile;
    return joinPath(folders_.desktop.empty() ? joinPath(home, L"Desktop") : folders_.desktop, kShortcutFileName);
}

std::wstring passwordFileBeside(const std::wstring& configurationFile) {
    return base::withExtension(configurationFile, L".password.dpapi");
}

std::wstring logFileBeside(const std::wstring& configurationFile) {
    return base::withExtension(configurationFile, L".log");
}

}  // namespace velquin
