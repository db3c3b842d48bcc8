// The command line of Velquin.exe.
#pragma once

#include <string>
#include <vector>

namespace velquin::app {

struct CommandLine {
    bool mount = false;              // --mount: mount the active mappings
    bool quiet = false;              // --quiet: no messages
    bool tray = false;               // --tray: start in the notification area
    std::wstring config;             // --config <file>; empty: the user's own
    std::vector<std::wstring> rest;  // what it does not know
};

// Options are compared without regard to case; the value of --config is the next argument.
CommandLine parseCommandLine(const std::vector<std::wstring>& arguments);

}  // namespace velquin::app
