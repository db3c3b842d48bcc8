#include "setup/uninstall_worker.h"

#include "base/argument_quoting.h"

namespace velquin::setup {

std::wstring workerFileName(uint32_t processId) {
    return L"VelquinSetup-uninstall-worker-" + std::to_wstring(processId) + L".exe";
}

std::wstring workerCommandLine(const std::wstring& workerPath, const Arguments& arguments) {
    std::vector<std::wstring> all = arguments.list();
    all.emplace_back(kTempWorkerOption);
    return base::quoteArgument(workerPath) + L" " + base::joinArguments(all);
}

}  // namespace velquin::setup
