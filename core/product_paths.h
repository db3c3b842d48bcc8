// Where everything of the product lies: its own file, the install folder, the per-user data, the shortcuts. Nothing
// here fails: a missing folder or variable falls back to a fixed default. All paths are wide and use backslashes.
#pragma once

#include <optional>
#include <string>

namespace velquin {

inline constexpr wchar_t kDefaultProgramFiles[] = LR"(C:\Program Files)";

// What Windows says about the user's folders; empty where it says nothing.
struct UserFolders {
    std::wstring localAppData;    // %LOCALAPPDATA%
    std::wstring appData;         // %APPDATA%
    std::wstring userProfile;     // %USERPROFILE%
    std::wstring temporary;       // never empty
    std::wstring commonPrograms;  // the Start Menu's programs of all users
    std::wstring desktop;
};

// The per-user data and shortcut paths that follow from the folders: pure text.
class UserPaths {
public:
    explicit UserPaths(UserFolders folders) : folders_(std::move(folders)) {}

    std::wstring dataFolderBase() const;  // what dataFolder() lies below
    std::wstring dataFolder() const;
    std::wstring roamingFolder() const;
    std::wstring configurationFile() const;
    std::wstring legacyConfigurationFile() const;
    std::wstring startMenuShortcut() const;
    std::wstring legacyStartMenuShortcut() const;
    std::wstring startupShortcut() const;
    std::wstring legacyStartupShortcut() const;
    std::wstring desktopShortcut() const;

private:
    std::wstring startMenuPrograms() const;
    std::wstring roamingPrograms() const;

    UserFolders folders_;
};

// The password file and the log lie beside the configuration file and share its name.
std::wstring passwordFileBeside(const std::wstring& configurationFile);
std::wstring logFileBeside(const std::wstring& configurationFile);

// base::normalizePathText against the current folder of the process.
std::wstring normalizePathText(const std::wstring& text);

std::wstring ownFile();
std::wstring ownFolder();

// Asks Windows anew on every call.
UserPaths userPaths();
std::wstring dataFolder();
std::wstring configurationFile();
std::wstring legacyConfigurationFile();
std::wstring setupLogFile();
std::wstring passwordFile();

std::wstring defaultInstallFolder();

// The value InstallLocation of the uninstall key, normalised; nothing where it is missing, empty, no string, no full
// path or a root.
std::optional<std::wstring> registeredInstallFolder();

// The override of a running flow, else the registered install folder, else the default one.
std::wstring resolveInstallDir();

// Sets the install-folder override for its own lifetime and restores the one before. A flow holds one, so that all its
// steps work in one folder even while it rewrites or deletes the registered one.
class InstallDirOverride {
public:
    explicit InstallDirOverride(std::wstring folder);
    ~InstallDirOverride();
    InstallDirOverride(const InstallDirOverride&) = delete;
    InstallDirOverride& operator=(const InstallDirOverride&) = delete;

private:
    std::optional<std::wstring> previous_;
};

std::wstring installedApp();
std::wstring installedSetup();
std::wstring skinsFolder();
std::wstring assetsFolder();

}  // namespace velquin
