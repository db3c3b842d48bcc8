// The command lines that the setup writes: for the Task Scheduler, Windows Installer, its own worker and the product.
#include <gtest/gtest.h>

#include "core/product.h"
#include "product/command_line.h"
#include "setup/msi_command.h"
#include "setup/startup_command.h"
#include "setup/uninstall_worker.h"
#include "tests/portable/argv_reference.h"
#include "tests/portable/table.h"

namespace {

using namespace velquin::setup;
using testing_reference::splitArguments;
using List = std::vector<std::wstring>;

// All that the product reads, as one text.
std::wstring parsed(const List& arguments) {
    const velquin::app::CommandLine line = velquin::app::parseCommandLine(arguments);
    std::wstring out = line.mount ? L"mount " : L"";
    out += line.quiet ? L"quiet " : L"";
    out += line.tray ? L"tray " : L"";
    out += L"config='" + line.config + L"'";
    for (const std::wstring& argument : line.rest) {
        out += L" '" + argument + L"'";
    }
    return out;
}

TEST(SetupCommands, ProductReadsItsArguments) {
    const std::pair<List, const wchar_t*> cases[] = {
        {{}, L"config=''"},
        {{L"--TRAY", L"--Mount"}, L"mount tray config=''"},
        {{L"--config", L"a", L"--Config", L"--mount", L"--quiet"}, L"quiet config='--mount'"},
        {{L"--tray", L"--config"}, L"tray config='' '--config'"},
        {{L"x", L"--mounts", L""}, L"config='' 'x' '--mounts' ''"},
    };
    for (const auto& [arguments, expected] : cases) {
        EXPECT_EQ(parsed(arguments), expected);
    }
}

// The command passes two parsers: that of schtasks.exe and, at logon, that of the product.
TEST(SetupCommands, TaskReadsBackWhatWasMeant) {
    EXPECT_EQ(createTaskArguments(L"Lumora Velquin", taskCommand(LR"(C:\a b\v.exe)", LR"(C:\d\v.json)")),
              LR"(/Create /TN "Lumora Velquin" /TR "\"C:\a b\v.exe\" --mount --quiet --tray --config C:\d\v.json" )"
              LR"(/SC ONLOGON /F)");
    EXPECT_EQ(deleteTaskArguments(L"Lumora Velquin"), LR"(/Delete /TN "Lumora Velquin" /F)");
    EXPECT_EQ(queryTaskArguments(L"Old - mount"), LR"(/Query /TN "Old - mount")");

    const std::wstring command = taskCommand(LR"(C:\a b\v.exe)", LR"(C:\Users\A B\v.json)");
    EXPECT_EQ(splitArguments(createTaskArguments(L"x", command)).at(4), command);
    List read = splitArguments(command);
    EXPECT_EQ(read.at(0), LR"(C:\a b\v.exe)");
    read.erase(read.begin());
    EXPECT_EQ(parsed(read), LR"(mount quiet tray config='C:\Users\A B\v.json')");
}

TEST(SetupCommands, WorkerGetsAllArguments) {
    EXPECT_EQ(workerFileName(4294967295u), L"VelquinSetup-uninstall-worker-4294967295.exe");
    EXPECT_EQ(workerCommandLine(LR"(C:\Temp\w.exe)", Arguments({})), LR"(C:\Temp\w.exe --temp-uninstall-worker)");
    const List list = {L"--uninstall", L"", L"a \"b\\", LR"(C:\x y\)", L"--quiet"};
    List expected = {LR"(C:\Temp Files\w.exe)"};
    expected.insert(expected.end(), list.begin(), list.end());
    expected.emplace_back(L"--temp-uninstall-worker");
    EXPECT_EQ(splitArguments(workerCommandLine(expected.front(), Arguments(list))), expected);
}

TEST(SetupCommands, WindowsInstaller) {
    EXPECT_EQ(msiInstallArguments({LR"(C:\A B\v.msi)", LR"(D:\Velquin)", true, false}),
              LR"(/i "C:\A B\v.msi" /qn /norestart INSTALLFOLDER=D:\Velquin STARTWITHWINDOWS=1 DESKTOPSHORTCUT=0)");
    EXPECT_EQ(msiInstallArguments({LR"(C:\v.msi)", LR"(C:\Program Files\V)", false, true}),
              LR"(/i C:\v.msi /qn /norestart INSTALLFOLDER="C:\Program Files\V" STARTWITHWINDOWS=0 DESKTOPSHORTCUT=1)");
    EXPECT_EQ(withMsiLog(msiRemoveArguments(L"{5C8BB41F}"), LR"(C:\my logs\a.log)"),
              LR"(/x {5C8BB41F} /qn /norestart /L*V "C:\my logs\a.log")");
    const std::wstring version = velquin::kVersion;
    EXPECT_EQ(msiLogFileName(L"remove-existing", L"2024-05-01T08:30:12.045Z"),
              L"msi-remove-existing-" + version + L"-2024-05-01T08-30-12-045Z.log");
    EXPECT_EQ(msiLogFileName(LR"(..\a_b c/)", L"x"), L"msi----a_b-c--" + version + L"-x.log") << "no way out";
    for (const uint32_t code : {0u, 1u, 124u, 1602u, 1603u, 1641u, 3009u, 3010u, 3011u, 0xFFFFFFFFu}) {
        EXPECT_EQ(isMsiSuccess(code), code == 0 || code == 3010) << code;
    }
    const testing_table::Pairs packages = {
        {LR"(installer\Velquin.msi)", version + L"-Velquin.msi"},
        {L"a/b/Other.MSI", version + L"-Other.MSI"},
        {LR"(installer\)", version + L"-Velquin.msi"},
    };
    testing_table::expectEach(cachedPackageName, packages);
}

}  // namespace
