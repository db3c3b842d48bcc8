// The command lines, names and verdicts of Windows Installer runs, as pure text. Running them is msi.h's job.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velquin::setup {

// 0 (success) and 3010 (success, restart required) are success; every other code, 1641 and 1605 among them, is a
// failure.
bool isMsiSuccess(uint32_t exitCode);
inline constexpr uint32_t kMsiRestartRequired = 3010;

struct MsiInstallRequest {
    std::wstring packagePath;
    std::wstring folder;  // normalised
    bool startWithWindows = false;
    bool desktopShortcut = false;
};
// "/i <package> /qn /norestart INSTALLFOLDER=… STARTWITHWINDOWS=… DESKTOPSHORTCUT=…"
std::wstring msiInstallArguments(const MsiInstallRequest& request);

// "/x <product code> /qn /norestart"
std::wstring msiRemoveArguments(std::wstring_view productCode);

// The arguments with verbose logging to `logPath` appended.
std::wstring withMsiLog(std::wstring_view arguments, std::wstring_view logPath);

// "msi-<action>-<version>-<UTC stamp>.log"; in action and stamp every character but letters, digits, "-" and "_"
// becomes
// "-".
std::wstring msiLogFileName(std::wstring_view action, std::wstring_view utcStamp);

// "<version>-<file name of the payload's path>", the package's name in the cache; "Velquin.msi" stands for an empty
// name.
std::wstring cachedPackageName(std::wstring_view payloadPath);

}  // namespace velquin::setup
