// The temporary copy of the setup that uninstalls: the setup kept in the install folder cannot remove the folder that
// it runs from, so it copies itself to the temporary folder and lets that copy do the work.
#pragma once

#include <cstdint>
#include <string>

#include "setup/options.h"

namespace velquin::setup {

// "VelquinSetup-uninstall-worker-<process id>.exe"
std::wstring workerFileName(uint32_t processId);

// The worker's command line: its path, all arguments of this process, and the option that marks it.
std::wstring workerCommandLine(const std::wstring& workerPath, const Arguments& arguments);

// True when the running program is the setup copy kept in the install folder.
bool isRunningFromInstallFolder();

// Copies the running program and starts the copy; logs what became of it. Does not wait.
bool relaunchUninstallFromTempCopy(const Arguments& arguments);

// Called by the worker: waits until the setup in the install folder that started it has ended, so that its file can be
// deleted at once and not only at the next restart.
void waitForLaunchingSetup();

}  // namespace velquin::setup
