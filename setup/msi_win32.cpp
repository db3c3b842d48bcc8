#include <windows.h>

#include <msi.h>

#include "base/win32/files.h"
#include "base/win32/process.h"
#include "base/win32/system.h"
#include "base/win32/system_library.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product.h"
#include "core/product_paths.h"
#include "setup/msi.h"
#include "setup/msi_command.h"
#include "setup/time_limits.h"

namespace velquin::setup {
namespace {

// A single bad entry is skipped, but an enumeration that answers nothing but errors must end.
constexpr DWORD kMaxProductIndex = 1000;

}  // namespace

std::vector<std::wstring> listInstalledProductCodes() {
    std::vector<std::wstring> codes;
    static base::SystemLibrary library(L"msi.dll");
    auto* enumerate = library.function<decltype(MsiEnumRelatedProductsW)>("MsiEnumRelatedProductsW");
    if (enumerate == nullptr) {
        writeSetupLog(L"MSI products not listed: Windows Installer is unavailable");
        return codes;
    }
    for (DWORD index = 0; index < kMaxProductIndex; ++index) {
        wchar_t code[39] = {};
        const UINT result = enumerate(kUpgradeCode, 0, index, code);
        if (result == ERROR_NO_MORE_ITEMS) {
            break;
        }
        if (result == ERROR_SUCCESS && code[0] != L'\0') {
            codes.emplace_back(code);
        }
    }
    return codes;
}

std::wstring msiLogPath(std::wstring_view action) {
    const std::wstring folder = base::joinPath(dataFolder(), L"setup-msi-logs");
    base::createFolders(folder);
    return base::joinPath(folder, msiLogFileName(action, utcTimeStamp()));
}

bool runMsiexec(std::wstring_view action, std::wstring_view arguments, uint32_t& exitCode) {
    const std::wstring name(action);
    exitCode = 1;
    const UserPaths paths = userPaths();
    const std::wstring logPath = msiLogPath(action);
    if (const std::wstring link = base::firstLinkBelow(paths.dataFolderBase(), logPath); !link.empty()) {
        writeSetupLog(L"msiexec " + name + L" not started, a link lies in the path of its log: " + link);
        return false;
    }
    const std::wstring fullArguments = withMsiLog(arguments, logPath);
    writeSetupLog(L"msiexec launch " + name + L": " + fullArguments);
    base::runProcessAndWait(base::systemProgram(L"msiexec.exe"), fullArguments, kMsiexecLimitMs, &exitCode, true);
    writeSetupLog(L"msiexec " + name + L" exit=" + std::to_wstring(exitCode) + L" log=" + logPath);
    if (exitCode == kMsiRestartRequired) {
        writeSetupLog(L"msiexec " + name + L": Windows has to be restarted to complete it");
    }
    return isMsiSuccess(exitCode);
}

bool removeProducts(std::wstring_view action, const std::vector<std::wstring>& productCodes) {
    bool ok = true;
    for (const std::wstring& code : productCodes) {
        uint32_t exitCode = 0;
        ok = runMsiexec(action, msiRemoveArguments(code), exitCode) && ok;
    }
    return ok;
}

bool removeExistingProducts() {
    const std::vector<std::wstring> codes = listInstalledProductCodes();
    if (codes.empty()) {
        return true;
    }
    writeSetupLog(L"removing existing MSI products before install: " + std::to_wstring(codes.size()));
    return removeProducts(L"remove-existing", codes);
}

}  // namespace velquin::setup
