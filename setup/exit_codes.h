// The exit codes of VelquinSetup.exe. Scripts depend on them; docs/command-line.md lists them.
#pragma once

namespace velquin::setup {

enum ExitCode : int {
    kExitOk = 0,
    kExitSelfTestUnavailable = 1,  // --self-test: the first check of the product core, which is not there yet
    kExitFilesLeft = 2,
    kExitInstallFailed = 4,
    kExitRepairFailed = 5,
    kExitWorkerFailed = 6,
    kExitUpdateServiceFailed = 20,
    kExitLiveUpdateManifestFailed = 21,
    kExitMountDiagnosticsFailed = 22,
};

}  // namespace velquin::setup
