#include "setup/startup_command.h"

#include "base/argument_quoting.h"

namespace velquin::setup {

using base::quoteArgument;

std::wstring startupArguments(std::wstring_view configPath) {
    return L"--mount --quiet --tray --config " + quoteArgument(configPath);
}

std::wstring taskCommand(std::wstring_view program, std::wstring_view configPath) {
    return quoteArgument(program) + L" " + startupArguments(configPath);
}

std::wstring createTaskArguments(std::wstring_view taskName, std::wstring_view command) {
    return L"/Create /TN " + quoteArgument(taskName) + L" /TR " + quoteArgument(command) + L" /SC ONLOGON /F";
}

std::wstring deleteTaskArguments(std::wstring_view taskName) {
    return L"/Delete /TN " + quoteArgument(taskName) + L" /F";
}

std::wstring queryTaskArguments(std::wstring_view taskName) {
    return L"/Query /TN " + quoteArgument(taskName);
}

}  // namespace velquin::setup
