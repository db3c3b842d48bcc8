#include "setup/uninstall_worker.h"

#include <gtest/gtest.h>

#include "tests/portable/argv_reference.h"

namespace {

using namespace velquin::setup;

TEST(UninstallWorker, TheFileNameHoldsTheProcessId) {
    EXPECT_EQ(workerFileName(4711), L"VelquinSetup-uninstall-worker-4711.exe");
    EXPECT_EQ(workerFileName(4294967295u), L"VelquinSetup-uninstall-worker-4294967295.exe");
}

TEST(UninstallWorker, TheCommandLineCarriesAllArguments) {
    const std::wstring path = LR"(C:\Temp Files\w.exe)";
    EXPECT_EQ(workerCommandLine(LR"(C:\Temp\w.exe)", Arguments({L"--uninstall"})),
              LR"(C:\Temp\w.exe --uninstall --temp-uninstall-worker)");
    EXPECT_EQ(workerCommandLine(path, Arguments({})), LR"("C:\Temp Files\w.exe" --temp-uninstall-worker)");

    const std::vector<std::wstring> list = {L"--uninstall", L"", L"a \"b\\", LR"(C:\x y\)", L"--quiet"};
    std::vector<std::wstring> expected = list;
    expected.insert(expected.begin(), path);
    expected.emplace_back(L"--temp-uninstall-worker");
    EXPECT_EQ(testing_reference::splitArguments(workerCommandLine(path, Arguments(list))), expected);
}

}  // namespace
