// What the setup does with the dialog's choice: which flow runs, which box tells its result, and the exit code. The
// machine and the windows are behind an interface, so that all of it is tested without them.
#pragma once

#include <string>

#include "setup/dialog/setup_choice.h"

namespace velquin::setup {

class InteractiveSteps {
public:
    virtual bool isProductInstalled() = 0;
    virtual SetupChoice showSetupChoice(bool installed) = 0;
    // The folder that was asked for, normalised; empty when the text is no full path.
    virtual std::wstring resolveInstallDir(const std::wstring& requested) = 0;
    virtual bool desktopShortcutExists() = 0;
    virtual bool readStartupRegistration() = 0;
    // The flows (setup/flows.h), with their progress shown meanwhile.
    virtual bool installProduct(SetupAction action, bool desktopShortcut, bool startWithWindows,
                                const std::wstring& installDir) = 0;
    virtual bool repairProduct(bool desktopShortcut, bool startWithWindows) = 0;
    virtual int uninstallProduct(bool removeConfig) = 0;
    virtual void launchInstalledApp() = 0;
    // Boxes that return when they were closed; texts are ids of the catalog.
    virtual void showMessage(int titleId, int messageId, bool isError) = 0;
    virtual void showResult(int titleId, bool isError) = 0;

protected:
    ~InteractiveSteps() = default;
};

// Runs it from the question to the exit code.
int runInteractive(InteractiveSteps& steps);

}  // namespace velquin::setup
