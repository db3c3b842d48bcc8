#include <windows.h>

#include "base/text.h"
#include "base/windows_path.h"
#include "core/configuration.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "localization/catalog.h"
#include "setup/dialog/interactive_flow.h"
#include "setup/dialog/progress_window.h"
#include "setup/dialog/setup_messages.h"
#include "setup/dialog/setup_window.h"
#include "setup/exit_codes.h"
#include "setup/file_steps.h"
#include "setup/flows.h"
#include "setup/interactive.h"
#include "setup/startup.h"

namespace velquin::setup {
namespace {

// The machine and the screen behind the dispatch.
class RealSteps final : public InteractiveSteps {
public:
    explicit RealSteps(HINSTANCE instance) : instance_(instance), config_(loadProductConfig()) {}

    bool isProductInstalled() override { return setup::isProductInstalled(); }
    SetupChoice showSetupChoice(bool installed) override {
        SetupChoice choice = setup::showSetupChoice(instance_, installed);
        writeSetupLog(L"setup dialog closed: action=" + std::to_wstring(static_cast<int>(choice.action)));
        return choice;
    }
    // What is no full path would be looked up in the folder where the program happens to stand.
    std::wstring resolveInstallDir(const std::wstring& requested) override {
        return base::isFullyQualified(base::trimmed(requested)) ? normalizePathText(requested) : std::wstring();
    }
    bool desktopShortcutExists() override { return setup::desktopShortcutExists(); }
    bool readStartupRegistration() override { return setup::readStartupRegistration(); }
    bool installProduct(SetupAction action, bool desktopShortcut, bool startWithWindows,
                        const std::wstring& installDir) override {
        return runWithProgress(instance_, config_, action,
                               [&] { return setup::installProduct(desktopShortcut, startWithWindows, installDir); });
    }
    bool repairProduct(bool desktopShortcut, bool startWithWindows) override {
        return runWithProgress(instance_, config_, SetupAction::Repair,
                               [&] { return setup::repairProduct(desktopShortcut, startWithWindows); });
    }
    int uninstallProduct(bool removeConfig) override {
        int code = kExitWorkerFailed;  // that of a flow that breaks off
        runWithProgress(instance_, config_, SetupAction::Uninstall, [&] {
            code = setup::uninstallProduct(removeConfig);
            return code == kExitOk;
        });
        return code;
    }
    void launchInstalledApp() override { setup::launchInstalledApp(); }
    void showMessage(int titleId, int messageId, bool isError) override {
        showSetupMessageBox(instance_, nullptr, config_, localizedText(config_, titleId),
                            localizedText(config_, messageId), isError);
    }
    void showResult(int titleId, bool isError) override { showOperationResult(instance_, config_, titleId, isError); }

private:
    HINSTANCE instance_;
    ProductConfig config_;
};

}  // namespace

int runInteractiveSetup(HINSTANCE instance) {
    RealSteps steps(instance);
    return runInteractive(steps);
}

}  // namespace velquin::setup
