#include "setup/install_folder.h"

#include "base/win32/files.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using velquin::setup::installFolderProblem;

class InstallFolder : public UnitTest {};

TEST_F(InstallFolder, UsableOnesAreLeftAsTheyWere) {
    base::createFolders(path(L"there"));
    EXPECT_EQ(installFolderProblem(path(L"there"), 1), L"");
    EXPECT_EQ(installFolderProblem(path(L"new\\and deep"), 1), L"");
    EXPECT_THAT(namesIn(folder_.path()), ElementsAre(L"there"));
    EXPECT_THAT(namesIn(path(L"there")), IsEmpty());
}

TEST_F(InstallFolder, UnusableOnesAreToldWithTheirReason) {
    writeFile(path(L"file"), "in the way");
    EXPECT_EQ(installFolderProblem(path(L"file"), 1), L"a file stands in its way: " + path(L"file"));
    EXPECT_EQ(installFolderProblem(path(L"file\\below\\it"), 1), L"a file stands in its way: " + path(L"file"));
    EXPECT_EQ(installFolderProblem(LR"(relative\folder)", 1),
              velquin::setup::installFolderTextProblem(LR"(relative\folder)"));
    for (wchar_t drive = L'D'; drive <= L'Z'; ++drive) {
        if ((GetLogicalDrives() & (1u << (drive - L'A'))) == 0) {
            EXPECT_EQ(installFolderProblem(std::wstring(1, drive) + LR"(:\Apps\Velquin)", 1),
                      L"its drive or share cannot be reached");
            break;
        }
    }
    EXPECT_THAT(installFolderProblem(path(L"new"), uint64_t{1} << 60),
                testing::AllOf(StartsWith(L"its disk has "),
                               testing::EndsWith(L" KiB left, the product needs 1125899906842624 KiB")));
    EXPECT_THAT(namesIn(folder_.path()), ElementsAre(L"file"));
}

TEST_F(InstallFolder, OneThatCannotBeWrittenToIsRefused) {
    const std::wstring systemFolder = LR"(Z:\proc)";
    if (!base::folderExists(systemFolder)) {
        GTEST_SKIP() << "this machine has no folder in which nobody can make a file";
    }
    EXPECT_THAT(installFolderProblem(systemFolder + L"\\Velquin", 1), StartsWith(L"it cannot be written to: "));
}

}  // namespace
