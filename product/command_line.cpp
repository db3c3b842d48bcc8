#include "product/command_line.h"

#include <algorithm>

#include "base/text.h"

namespace velquin::app {
namespace {

struct Flag {
    const wchar_t* name;
    bool CommandLine::* member;
};
constexpr Flag kFlags[] = {
    {L"--mount", &CommandLine::mount},
    {L"--quiet", &CommandLine::quiet},
    {L"--tray", &CommandLine::tray},
};

}  // namespace

CommandLine parseCommandLine(const std::vector<std::wstring>& arguments) {
    CommandLine line;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring& argument = arguments[i];
        const auto* flag = std::ranges::find_if(
            kFlags, [&argument](const Flag& row) { return base::equalsIgnoringCase(argument, row.name); });
        if (flag != std::end(kFlags)) {
            line.*flag->member = true;
        } else if (base::equalsIgnoringCase(argument, L"--config") && i + 1 < arguments.size()) {
            line.config = arguments[++i];
        } else {
            line.rest.push_back(argument);
        }
    }
    return line;
}

}  // namespace velquin::app
