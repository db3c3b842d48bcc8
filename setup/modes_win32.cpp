#include <windows.h>

#include <shobjidl.h>

#include <algorithm>
#include <exception>

#include "base/argument_quoting.h"
#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/process.h"
#include "base/win32/system.h"
#include "core/delayed_delete.h"
#include "core/log.h"
#include "core/product.h"
#include "core/product_paths.h"
#include "setup/exit_codes.h"
#include "setup/file_steps.h"
#include "setup/flows.h"
#include "setup/interactive.h"
#include "setup/modes.h"
#include "setup/options.h"
#include "setup/own_file.h"
#include "setup/startup.h"
#include "setup/uninstall_worker.h"
#include "update/self_test.h"

namespace velquin::setup {
namespace {

// All that a mode may look at.
struct Run {
    HINSTANCE instance;
    const Arguments& arguments;
    std::wstring installDir;  // normalised; empty: none was given
    bool startWithWindows;
};

int runInstall(const Run& run) {
    const auto installDir = run.installDir.empty() ? std::nullopt : std::optional(run.installDir);
    const bool ok = installProduct(run.arguments.has(kDesktopOption), run.startWithWindows, installDir);
    if (ok && shouldLaunchAfterInstall(run.arguments)) {
        launchInstalledApp();
    } else {
        writeSetupLog(ok ? L"installed app not started, as asked" : L"installed app not started, the install failed");
    }
    return ok ? kExitOk : kExitInstallFailed;
}

int runRepair(const Run& run) {
    return repairProduct(desktopShortcutExists(), run.startWithWindows) ? kExitOk : kExitRepairFailed;
}

int runUninstall(const Run& run) {
    const bool isWorker = run.arguments.has(kTempWorkerOption);
    if (!isWorker && isRunningFromInstallFolder()) {
        return relaunchUninstallFromTempCopy(run.arguments) ? kExitOk : kExitWorkerFailed;
    }
    if (isWorker) {
        waitForLaunchingSetup();
    }
    const bool removeConfig = run.arguments.has(kRemoveConfigOption);
    const int code = uninstallProduct(removeConfig);
    if (isWorker) {
        scheduleDeleteOnReboot(ownFile());
    }
    if (removeConfig && code == kExitOk) {
        // The lines written since the folder went have made it anew, with nothing but the log in it.
        removeUserData();
    }
    return code;
}

// Runs a self-test, which gives its reason when it fails.
template <bool (*kTest)(std::wstring&), int kFailureCode>
int runSelfTest(const Run& run) {
    std::wstring error;
    const bool ok = kTest(error);
    writeSetupLog(std::wstring(modeName(run.arguments.mode())) + (ok ? L" passed" : L" failed: " + singleLine(error)));
    return ok ? kExitOk : kFailureCode;
}

// For a self-test whose subject is not part of the program yet.
bool failMissingSelfTest(std::wstring& error) {
    error = L"not part of this build";
    return false;
}

int runInteractive(const Run& run) {
    return runInteractiveSetup(run.instance);
}

struct ModeRunner {
    Mode mode;
    int (*run)(const Run&);
    int failureCode;
};
constexpr ModeRunner kRunners[] = {
    {Mode::install, runInstall, kExitInstallFailed},
    {Mode::repair, runRepair, kExitRepairFailed},
    {Mode::uninstall, runUninstall, kExitWorkerFailed},
    {Mode::selfTest, runSelfTest<failMissingSelfTest, kExitSelfTestUnavailable>, kExitSelfTestUnavailable},
    {Mode::updateServiceSelfTest, runSelfTest<update::runUpdateServiceSelfTest, kExitUpdateServiceFailed>,
     kExitUpdateServiceFailed},
    {Mode::mountDiagnosticsSelfTest, runSelfTest<failMissingSelfTest, kExitMountDiagnosticsFailed>,
     kExitMountDiagnosticsFailed},
    {Mode::liveUpdateManifestSelfTest,
     runSelfTest<update::runLiveUpdateManifestSelfTest, kExitLiveUpdateManifestFailed>, kExitLiveUpdateManifestFailed},
    {Mode::interactive, runInteractive, kExitInstallFailed},
};

int runMode(Mode mode, const Run& run) {
    const auto* runner = std::ranges::find(kRunners, mode, &ModeRunner::mode);
    try {
        return runner->run(run);
    } catch (const std::exception& failure) {
        // Only running out of memory gets here; the run ends with its own code and a line all the same.
        writeSetupLog(L"setup broke off: " + base::toWide(failure.what()));
        return runner->failureCode;
    }
}

void logStart(const Arguments& arguments) {
    // A command line may be 32,000 characters long; its beginning tells enough.
    constexpr size_t kMaxLoggedLength = 2000;
    std::wstring text = base::joinArguments(arguments.list());
    if (text.size() > kMaxLoggedLength) {
        text.resize(kMaxLoggedLength);
        text += L" …";
    }
    writeSetupLog(std::wstring(L"setup ") + kVersion + L" started: mode=" + modeName(arguments.mode()) + L" pid=" +
                  std::to_wstring(GetCurrentProcessId()) + L" elevated=" +
                  (base::isProcessElevated() ? L"yes" : L"no") + L" file=" + ownFile() + L" arguments=" + text);
}

}  // namespace

int runSetup(HINSTANCE instance) {
    const Arguments arguments(base::processArguments());
    std::wstring installDir = normalizePathText(arguments.valueOf(kInstallDirOption));
    SetCurrentProcessExplicitAppUserModelID(kSetupUserModelId);
    // Child programs inherit the current folder. The one this program was started in may be anybody's, and may be the
    // very folder that an uninstall removes.
    SetCurrentDirectoryW(base::windowsFolder().c_str());
    logStart(arguments);
    holdOwnFile();
    const bool installed = isProductInstalled();
    const bool startWithWindows = chooseStartWithWindows(arguments, installed, installed && readStartupRegistration());
    writeSetupLog(std::wstring(L"product installed=") + (installed ? L"yes" : L"no") + L" start with Windows=" +
                  (startWithWindows ? L"yes" : L"no"));
    const int code = runMode(arguments.mode(), {instance, arguments, std::move(installDir), startWithWindows});
    // After a complete removal with the user's data there is no log to end, and none is begun.
    if (base::folderExists(dataFolder())) {
        writeSetupLog(L"setup finished: exit=" + std::to_wstring(code));
    }
    return code;
}

}  // namespace velquin::setup
