// The process entry of Velquin.exe: one instance for each signed-in user, its options, its log line, its tray icon.
#include <windows.h>

#include <shobjidl.h>

#include "base/win32/system.h"
#include "base/win32/unique_handle.h"
#include "core/log.h"
#include "core/product.h"
#include "core/product_paths.h"
#include "product/command_line.h"
#include "product/tray.h"

namespace {

using velquin::app::CommandLine;

constexpr wchar_t kInstanceMutex[] = L"Local\\" PRODUCT_APP_ID;

std::wstring describe(const CommandLine& line, const std::wstring& config) {
    std::wstring text = std::wstring(velquin::kVersion) + L" pid=" + std::to_wstring(GetCurrentProcessId()) +
                        L" mount=" + (line.mount ? L"yes" : L"no") + L" quiet=" + (line.quiet ? L"yes" : L"no") +
                        L" tray=" + (line.tray ? L"yes" : L"no") + L" config=" + config;
    for (const std::wstring& argument : line.rest) {
        text += L" unknown=" + argument;
    }
    return text;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    if (!SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32)) {
        return 1;
    }
    SetCurrentProcessExplicitAppUserModelID(velquin::kAppUserModelId);
    const CommandLine line = velquin::app::parseCommandLine(base::processArguments());
    const std::wstring config = line.config.empty() ? velquin::configurationFile() : line.config;
    const base::UniqueHandle mutex(CreateMutexW(nullptr, FALSE, kInstanceMutex));
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
        velquin::writeLogBeside(config, L"app already runs: " + describe(line, config));
        return 0;
    }
    velquin::writeLogBeside(config, L"app started: " + describe(line, config));
    if (line.mount) {
        velquin::writeLogBeside(config, L"app cannot mount yet: the mount engine is not part of this build");
    }
    const bool ran = velquin::app::runTray(instance, config);
    velquin::writeLogBeside(config, ran ? L"app ended" : L"app failed: no window");
    return ran ? 0 : 1;
}
