#include "setup/dialog/interactive_flow.h"

#include "localization/text_ids.h"
#include "setup/exit_codes.h"

namespace velquin::setup {
namespace {

int install(InteractiveSteps& steps, const SetupChoice& choice) {
    const std::wstring folder = steps.resolveInstallDir(choice.installDir);
    if (folder.empty()) {
        steps.showMessage(text::kInstallFolderInvalidTitle, text::kInstallFolderInvalid, true);
        return kExitInstallFailed;
    }
    // A reinstall keeps what the installed product has; its layout has no check boxes.
    const bool isNew = choice.action == SetupAction::Install;
    const bool desktopShortcut = isNew ? choice.desktopShortcut : steps.desktopShortcutExists();
    const bool startWithWindows = isNew ? choice.startWithWindows : steps.readStartupRegistration();
    const bool ok = steps.installProduct(choice.action, desktopShortcut, startWithWindows, folder);
    steps.showResult(!ok ? text::kInstallFailed : isNew ? text::kInstalled : text::kReinstalled, !ok);
    if (ok) {
        steps.launchInstalledApp();
    }
    return ok ? kExitOk : kExitInstallFailed;
}

int repair(InteractiveSteps& steps) {
    const bool desktopShortcut = steps.desktopShortcutExists();
    const bool ok = steps.repairProduct(desktopShortcut, steps.readStartupRegistration());
    steps.showResult(ok ? text::kRepaired : text::kRepairFailed, !ok);
    return ok ? kExitOk : kExitRepairFailed;
}

int uninstall(InteractiveSteps& steps) {
    const int code = steps.uninstallProduct(false);
    const bool ok = code == kExitOk;
    steps.showResult(ok ? text::kUninstalled : text::kUninstallFailed, !ok);
    return code;
}

}  // namespace

int runInteractive(InteractiveSteps& steps) {
    const SetupChoice choice = steps.showSetupChoice(steps.isProductInstalled());
    switch (choice.action) {
        case SetupAction::Install:
        case SetupAction::Reinstall:
            return install(steps, choice);
        case SetupAction::Repair:
            return repair(steps);
        case SetupAction::Uninstall:
            return uninstall(steps);
        default:
            return kExitOk;
    }
}

}  // namespace velquin::setup
