// The setup's three operations on the machine. Each blocks until it is done, never shows a message, writes one log line
// for every step, and goes on after a failed step: its result says whether all steps succeeded.
#pragma once

#include <optional>
#include <string>

namespace velquin::setup {

// Installs, upgrades or reinstalls. Without `installDir` an installed product stays in its registered folder and a new
// one goes to the default folder; all steps work in that one folder.
bool installProduct(bool desktopShortcut, bool startWithWindows, const std::optional<std::wstring>& installDir);

// Restores shortcuts, start with Windows and registry entries; also the last step of every install.
bool repairProduct(bool desktopShortcut, bool startWithWindows);

// 0, or 2 when a file could be deleted neither now nor at the next restart.
int uninstallProduct(bool removeConfig);

// The file-by-file part of an uninstall, with the same results.
int removeInstalledFiles(bool removeConfig);

// Removes the per-user data folder, the setup log in it included. Links in it are left in place.
void removeUserData();

// Starts the installed application, with the user's own rights where Explorer is there to do it.
void launchInstalledApp();

// True when the uninstall entry exists or the application's file is in the install folder.
bool isProductInstalled();

}  // namespace velquin::setup
