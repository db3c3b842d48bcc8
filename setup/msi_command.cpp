#include "setup/msi_command.h"

#include <algorithm>
#include <cwctype>

#include "base/argument_quoting.h"
#include "base/windows_path.h"
#include "core/product.h"

namespace velquin::setup {
namespace {

std::wstring asFileNamePart(std::wstring_view text) {
    std::wstring out(text);
    std::ranges::replace_if(
        out, [](wchar_t c) { return std::iswalnum(static_cast<wint_t>(c)) == 0 && c != L'-' && c != L'_'; }, L'-');
    return out;
}

std::wstring flagProperty(std::wstring_view name, bool value) {
    return L" " + std::wstring(name) + (value ? L"=1" : L"=0");
}

}  // namespace

bool isMsiSuccess(uint32_t exitCode) {
    return exitCode == 0 || exitCode == kMsiRestartRequired;
}

std::wstring msiInstallArguments(const MsiInstallRequest& request) {
    return L"/i " + base::quoteArgument(request.packagePath) + L" /qn /norestart INSTALLFOLDER=" +
           base::quoteArgument(request.folder) + flagProperty(L"STARTWITHWINDOWS", request.startWithWindows) +
           flagProperty(L"DESKTOPSHORTCUT", request.desktopShortcut);
}

std::wstring msiRemoveArguments(std::wstring_view productCode) {
    return L"/x " + base::quoteArgument(productCode) + L" /qn /norestart";
}

std::wstring withMsiLog(std::wstring_view arguments, std::wstring_view logPath) {
    return std::wstring(arguments) + L" /L*V " + base::quoteArgument(logPath);
}

std::wstring msiLogFileName(std::wstring_view action, std::wstring_view utcStamp) {
    return L"msi-" + asFileNamePart(action) + L"-" + kVersion + L"-" + asFileNamePart(utcStamp) + L".log";
}

std::wstring cachedPackageName(std::wstring_view payloadPath) {
    const std::wstring name = base::fileName(payloadPath);
    return std::wstring(kVersion) + L"-" + (name.empty() ? L"Velquin.msi" : name);
}

}  // namespace velquin::setup
