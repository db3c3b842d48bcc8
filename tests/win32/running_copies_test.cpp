#include "setup/running_copies.h"

#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/process.h"
#include "base/windows_path.h"
#include "core/product_paths.h"
#include "setup/time_limits.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using velquin::setup::stopProcessesNamed;

class RunningCopies : public UnitTest {
protected:
    // How long it takes to stop one process in the given mode, in milliseconds.
    ULONGLONG timeToTerminate(const std::wstring& mode) {
        const std::wstring name = mode + uniqueName() + L".exe";
        const Child child(copyOf(closeTarget(), name), mode);
        const ULONGLONG start = GetTickCount64();
        stopProcessesNamed(name);
        const ULONGLONG elapsed = GetTickCount64() - start;
        EXPECT_EQ(child.exitCode(), 0u);
        EXPECT_EQ(log().back(), L"process force terminated pid=" + std::to_wstring(child.id()));
        return elapsed;
    }
};

TEST_F(RunningCopies, WindowsOfAllCopiesAreAskedToClose) {
    const std::wstring name = L"Copy-" + uniqueName();
    const Child first(copyOf(closeTarget(), L"one\\" + name + L".exe"), L"window");
    const Child second(copyOf(closeTarget(), L"two\\" + name + L".EXE"), L"window");
    const Child other(copyOf(closeTarget(), name + L".exe.exe"), L"windowless");
    stopProcessesNamed(base::lowered(name) + L".exe");
    EXPECT_EQ(first.exitCode(), 7u);
    EXPECT_EQ(second.exitCode(), 7u);
    EXPECT_TRUE(other.runs());
    stopProcessesNamed(base::lowered(name) + L".exe");
    const std::wstring closed = L"process closed pid=";
    EXPECT_THAT(log(), testing::UnorderedElementsAre(closed + std::to_wstring(first.id()),
                                                     closed + std::to_wstring(second.id()),
                                                     L"no running copy of " + base::lowered(name) + L".exe"));
}

TEST_F(RunningCopies, OnesThatDoNotCloseAreTerminatedAndOnlyThoseWithAWindowAreWaitedFor) {
    const ULONGLONG stubborn = timeToTerminate(L"stubborn");
    const ULONGLONG windowless = timeToTerminate(L"windowless");
    EXPECT_GE(stubborn + 100, velquin::setup::kCloseLimitMs) << "it was not given the time to close";
    EXPECT_LT(windowless * 4, stubborn) << "it was waited for although there was nothing to ask";
}

// In a copy with a name of its own: by this program's real name it would stop the tests that run beside it.
TEST_F(RunningCopies, TheCallerItselfIsSpared) {
    const std::wstring own = velquin::ownFile();
    if (base::fileName(own).starts_with(L"velquin-unit-")) {
        stopProcessesNamed(base::fileName(own));
        writeFile(own + L".spared", "");
        return;
    }
    const std::wstring copy = copyOf(own, uniqueName() + L".exe");
    base::runProcessAndWait(copy, L"--gtest_filter=RunningCopies.TheCallerItselfIsSpared", kPatienceMs, nullptr, true);
    EXPECT_TRUE(base::fileExists(copy + L".spared"));
}

}  // namespace
