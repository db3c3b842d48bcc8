// Start with Windows: a logon task made by schtasks.exe or, where that fails, a shortcut in the user's Startup folder.
#pragma once

#include <string>

namespace velquin::setup {

// True when the logon task, the task of an older version, or one of their Startup shortcuts exists.
bool readStartupRegistration();

// Registers the installed application with `configPath` and returns the method used, "Scheduled Task" or "Startup
// shortcut". Throws std::runtime_error("Autostart registration failed.") when both fail.
std::wstring registerStartup(const std::wstring& configPath);

// Ends start with Windows by whatever method it was registered: deletes the logon tasks of this and of older versions
// and their Startup shortcuts, which would otherwise go on starting the product.
void removeStartup();

}  // namespace velquin::setup
