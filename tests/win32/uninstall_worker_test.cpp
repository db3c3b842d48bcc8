#include "setup/uninstall_worker.h"

#include "base/win32/files.h"
#include "core/product_paths.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;

class UninstallWorker : public UnitTest {};

// In a copy, since the file of a running program cannot be removed, under its second name neither, as long as it runs.
TEST_F(UninstallWorker, OnlyTheInstalledFileItselfRunsFromTheInstallFolder) {
    if (!isCopy()) {
        EXPECT_TRUE(passesInCopy(L"setup.exe"));
        return;
    }
    const velquin::InstallDirOverride inFolder(velquin::ownFolder() + L"\\installed");
    EXPECT_FALSE(velquin::setup::isRunningFromInstallFolder()) << "nothing is installed";
    const std::wstring setupFile = velquin::installedSetup();
    ASSERT_TRUE(base::createFolders(velquin::resolveInstallDir()));
    ASSERT_TRUE(CopyFileW(velquin::ownFile().c_str(), setupFile.c_str(), TRUE));
    EXPECT_FALSE(velquin::setup::isRunningFromInstallFolder()) << "a copy is another program";
    ASSERT_TRUE(DeleteFileW(setupFile.c_str()));
    ASSERT_TRUE(CreateHardLinkW(setupFile.c_str(), velquin::ownFile().c_str(), nullptr));
    EXPECT_TRUE(velquin::setup::isRunningFromInstallFolder()) << "it is the same file under another name";
}

// In a copy, whose parent is this program: one that the copy can look at.
TEST_F(UninstallWorker, ParentThatIsNotTheInstalledSetupIsNotWaitedFor) {
    if (!isCopy()) {
        EXPECT_TRUE(passesInCopy(L"worker.exe"));
        return;
    }
    writeFile(path(L"app\\VelquinSetup.exe"), "another program");
    const velquin::InstallDirOverride inFolder(path(L"app"));
    velquin::setup::waitForLaunchingSetup();
    EXPECT_THAT(log(), testing::IsEmpty()) << "a wait is logged, whatever comes of it";
}

}  // namespace
