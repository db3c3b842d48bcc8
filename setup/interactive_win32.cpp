#include <windows.h>

#include <string>

#include "core/log.h"
#include "core/product.h"
#include "setup/exit_codes.h"
#include "setup/interactive.h"

namespace velquin::setup {
namespace {

constexpr wchar_t kMessage[] =
    L"The setup dialog is not part of this build yet. Start the setup with one of these options instead:\n\n"
    L"--install\tinstall or upgrade, unattended\n"
    L"    --install-dir <folder>\tinto this folder\n"
    L"    --desktop\tcreate a desktop shortcut\n"
    L"    --no-startup\tdo not start with Windows\n"
    L"    --no-start\tdo not start the app afterwards\n"
    L"--repair\trestore shortcuts and registration\n"
    L"--uninstall\tremove the product\n"
    L"    --remove-config\tremove the settings, too\n\n"
    L"The setup log tells what was done:\n%LOCALAPPDATA%\\LumoraPrivateMemory\\Velquin\\velquin.log";

}  // namespace

int runInteractiveSetup(HINSTANCE) {
    writeSetupLog(L"interactive setup: the dialog is not part of this build");
    MessageBoxW(nullptr, kMessage, kSetupName, MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
    return kExitInstallFailed;
}

}  // namespace velquin::setup
