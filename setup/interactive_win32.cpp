#include <windows.h>

#include <string>

#include "core/configuration.h"
#include "core/log.h"
#include "localization/catalog.h"
#include "setup/exit_codes.h"
#include "setup/interactive.h"

namespace velquin::setup {
namespace {

constexpr wchar_t kMessage[] =
    L"The setup dialog is not part of this build yet. Please start the setup with one of these options:\n\n"
    L"--install\n"
    L"    installs or upgrades the product; takes --install-dir <folder>, --desktop, --no-startup and --no-start\n"
    L"--repair\n"
    L"    restores shortcuts, start with Windows and registration\n"
    L"--uninstall\n"
    L"    removes the product; with --remove-config its settings, too\n\n"
    L"The setup log tells what was done:\n%LOCALAPPDATA%\\LumoraPrivateMemory\\Velquin\\velquin.log";

}  // namespace

int runInteractiveSetup(HINSTANCE) {
    writeSetupLog(L"interactive setup: the dialog is not part of this build");
    const std::wstring title = localizedText(loadProductConfig(), text::kSetupTitle);
    MessageBoxW(nullptr, kMessage, title.c_str(), MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
    return kExitInstallFailed;
}

}  // namespace velquin::setup
