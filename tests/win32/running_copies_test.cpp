#include "setup/running_copies.h"

#include "base/text.h"
#include "base/windows_path.h"
#include "core/product_paths.h"
#include "setup/time_limits.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using testing::UnorderedElementsAre;
using velquin::setup::stopProcessesNamed;

std::wstring pidOf(const Child& child) {
    return L"pid=" + std::to_wstring(child.id());
}

class RunningCopies : public UnitTest {
protected:
    // How long it takes to stop one process in the given mode, in milliseconds.
    ULONGLONG timeToTerminate(const std::wstring& mode) {
        const std::wstring name = mode + uniqueName() + L".exe";
        const Child child = Child::ready(copyOf(closeTarget(), name), mode);
        const ULONGLONG start = GetTickCount64();
        stopProcessesNamed(name);
        const ULONGLONG elapsed = GetTickCount64() - start;
        EXPECT_EQ(child.exitCode(), 0u);
        EXPECT_EQ(log().back(), L"process force terminated " + pidOf(child));
        return elapsed;
    }
};

TEST_F(RunningCopies, WindowsOfAllCopiesAreAskedToClose) {
    const std::wstring name = L"Copy-" + uniqueName();
    const Child first = Child::ready(copyOf(closeTarget(), L"one\\" + name + L".exe"), L"window");
    const Child second = Child::ready(copyOf(closeTarget(), L"two\\" + name + L".EXE"), L"window");
    const Child longer = Child::ready(copyOf(closeTarget(), L"three\\" + name + L".exe.exe"), L"window");
    const Child prefixed = Child::ready(copyOf(closeTarget(), L"four\\x" + name + L".exe"), L"window");
    stopProcessesNamed(base::lowered(name) + L".exe");
    EXPECT_EQ(first.exitCode(), 7u);
    EXPECT_EQ(second.exitCode(), 7u);
    EXPECT_TRUE(longer.runs());
    EXPECT_TRUE(prefixed.runs());
    EXPECT_THAT(log(), UnorderedElementsAre(L"process closed " + pidOf(first), L"process closed " + pidOf(second)));
}

TEST_F(RunningCopies, OnesThatDoNotCloseAreTerminatedAndOnlyThoseWithAWindowAreWaitedFor) {
    const ULONGLONG stubborn = timeToTerminate(L"stubborn");
    const ULONGLONG windowless = timeToTerminate(L"windowless");
    EXPECT_GE(stubborn + 100, velquin::setup::kCloseLimitMs) << "it was not given the time to close";
    EXPECT_LT(windowless * 4, stubborn) << "it was waited for although there was nothing to ask";
}

TEST_F(RunningCopies, SaysWhenThereIsNothingToStop) {
    const std::wstring name = uniqueName() + L".exe";
    stopProcessesNamed(name);
    EXPECT_THAT(log(), ElementsAre(L"no running copy of " + name));
}

// In a copy with a name of its own: by this program's real name it would stop the tests that run beside it.
TEST_F(RunningCopies, TheCallerItselfIsSpared) {
    if (isCopy()) {
        stopProcessesNamed(base::lowered(base::fileName(velquin::ownFile())));
        return;
    }
    const std::wstring name = uniqueName() + L".exe";
    const Child twin = Child::ready(copyOf(closeTarget(), L"other folder\\" + name), L"window");
    EXPECT_TRUE(passesInCopy(name)) << "it ended itself";
    EXPECT_EQ(twin.exitCode(), 7u);
}

}  // namespace
