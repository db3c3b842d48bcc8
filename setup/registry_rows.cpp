#include "setup/registry_rows.h"

#include <algorithm>
#include <limits>

#include "base/argument_quoting.h"
#include "base/windows_path.h"
#include "core/product.h"

namespace velquin::setup {
namespace {

constexpr uint32_t kMax32 = std::numeric_limits<uint32_t>::max();

std::wstring appPathsKey(std::wstring_view fileName) {
    return base::joinPath(LR"(Software\Microsoft\Windows\CurrentVersion\App Paths)", fileName);
}

std::wstring classesKey(std::wstring_view fileName) {
    return base::joinPath(LR"(Software\Classes\Applications)", fileName);
}

}  // namespace

const ApplicationRegistration kApplications[kApplicationCount] = {
    {kAppFileName, kProductName, L"" PRODUCT_APP_DESCRIPTION},
    {kSetupFileName, kSetupName, L"" PRODUCT_SETUP_DESCRIPTION},
};

std::vector<std::wstring> applicationKeys(const ApplicationRegistration& application) {
    return {appPathsKey(application.fileName), classesKey(application.fileName)};
}

std::vector<RegistryRow> applicationRows(const ApplicationRegistration& application,
                                         const std::wstring& installFolder) {
    const std::wstring path = base::joinPath(installFolder, application.fileName);
    const std::wstring appPaths = appPathsKey(application.fileName);
    const std::wstring classes = classesKey(application.fileName);
    return {
        {appPaths, L"", path},
        {appPaths, L"Path", installFolder},
        {classes, L"FriendlyAppName", application.displayName},
        {classes, L"ApplicationCompany", kPublisher},
        {classes, L"ApplicationDescription", application.description},
        // An icon location is not a command line: Windows takes all before the last comma as the path.
        {classes + LR"(\ApplicationIcon)", L"", path + L",0"},
        {classes + LR"(\shell\open\command)", L"", base::quotePath(path)},
    };
}

std::vector<RegistryRow> uninstallRows(const std::wstring& installFolder, const std::wstring& installDate,
                                       uint32_t sizeKib) {
    const std::wstring key = kUninstallKey;
    const std::wstring app = base::quotePath(base::joinPath(installFolder, kAppFileName));
    const std::wstring setup = base::quotePath(base::joinPath(installFolder, kSetupFileName));
    return {
        {key, L"DisplayName", kProductName},
        {key, L"DisplayVersion", kVersion},
        {key, L"Publisher", kPublisher},
        {key, L"InstallLocation", installFolder},
        {key, L"DisplayIcon", app + L",0"},
        {key, L"UninstallString", setup + L" --uninstall"},
        {key, L"QuietUninstallString", setup + L" --uninstall --quiet"},
        {key, L"InstallDate", installDate},
        {key, L"NoModify", 1u},
        {key, L"NoRepair", 1u},
        {key, L"EstimatedSize", sizeKib},
    };
}

uint32_t kibOf(uint64_t bytes) {
    const uint64_t kib = bytes / 1024 + (bytes % 1024 != 0 ? 1 : 0);
    return static_cast<uint32_t>(std::min<uint64_t>(kib, kMax32));
}

uint32_t totalKib(const std::vector<uint32_t>& sizes) {
    uint64_t total = 0;
    for (const uint32_t size : sizes) {
        total = std::min<uint64_t>(total + size, kMax32);
    }
    return static_cast<uint32_t>(total);
}

}  // namespace velquin::setup
