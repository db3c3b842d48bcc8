// Windows Installer: which versions of the product are installed, and running msiexec.exe with a log of its own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velquin::setup {

// The product codes ("{…}") of every installed version, found by the package's upgrade code.
std::vector<std::wstring> listInstalledProductCodes();

// Where the run of an action logs to; makes the folder.
std::wstring msiLogPath(std::wstring_view action);

// Runs msiexec.exe hidden, with verbose logging, for at most ten minutes. True for exit code 0 and 3010.
bool runMsiexec(std::wstring_view action, std::wstring_view arguments, uint32_t& exitCode);

// Removes every given product; all are tried. True when all succeeded.
bool removeProducts(std::wstring_view action, const std::vector<std::wstring>& productCodes);

// Removes every installed version before an install. True when none is left.
bool removeExistingProducts();

}  // namespace velquin::setup
