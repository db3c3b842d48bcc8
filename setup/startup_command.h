// How the product is registered to start with Windows, as pure text: the command of the logon task and the arguments of
// schtasks.exe and of the Startup shortcut.
#pragma once

#include <string>
#include <string_view>

namespace velquin::setup {

// "--mount --quiet --tray --config <configuration file>"
std::wstring startupArguments(std::wstring_view configPath);

// The program with those arguments: what the logon task runs.
std::wstring taskCommand(std::wstring_view program, std::wstring_view configPath);

std::wstring createTaskArguments(std::wstring_view taskName, std::wstring_view command);
std::wstring deleteTaskArguments(std::wstring_view taskName);
std::wstring queryTaskArguments(std::wstring_view taskName);

}  // namespace velquin::setup
