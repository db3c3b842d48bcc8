#include "product/command_line.h"

#include <gtest/gtest.h>

#include "setup/startup_command.h"
#include "tests/portable/argv_reference.h"

namespace {

using List = std::vector<std::wstring>;

// All that was read, as one text.
std::wstring parsed(const List& arguments) {
    const velquin::app::CommandLine line = velquin::app::parseCommandLine(arguments);
    std::wstring out = line.mount ? L"mount " : L"";
    out += line.quiet ? L"quiet " : L"";
    out += line.tray ? L"tray " : L"";
    out += L"config='" + line.config + L"'";
    for (const std::wstring& argument : line.rest) {
        out += L" '" + argument + L"'";
    }
    return out;
}

TEST(ProductCommandLine, Parsing) {
    const std::pair<List, const wchar_t*> cases[] = {
        {{}, L"config=''"},
        {{L"--mount"}, L"mount config=''"},
        {{L"--quiet"}, L"quiet config=''"},
        {{L"--TRAY", L"--Mount"}, L"mount tray config=''"},
        {{L"--Config", L"C:\\a b.json", L"--quiet"}, L"quiet config='C:\\a b.json'"},
        {{L"--config", L"--mount", L"--tray"}, L"tray config='--mount'"},
        {{L"--config", L"a", L"--config", L"b"}, L"config='b'"},
        {{L"--tray", L"--config"}, L"tray config='' '--config'"},
        {{L"x", L"--mounts", L"--quiet", L""}, L"quiet config='' 'x' '--mounts' ''"},
    };
    for (const auto& [arguments, expected] : cases) {
        EXPECT_EQ(parsed(arguments), expected);
    }
}

// What the setup registers is what the product understands.
TEST(ProductCommandLine, UnderstandsItsStartupArguments) {
    const std::wstring arguments = velquin::setup::startupArguments(LR"(C:\A B\velquin.json)");
    EXPECT_EQ(parsed(testing_reference::splitArguments(arguments)),
              LR"(mount quiet tray config='C:\A B\velquin.json')");
}

}  // namespace
