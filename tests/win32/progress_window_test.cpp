// The window that is shown while a flow runs on a thread of its own.
#include "setup/dialog/progress_window.h"

#include <optional>
#include <stdexcept>

#include "core/configuration.h"
#include "core/log.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::setup;
using velquin::test::UnitTest;

// The program's window of the UI framework, whether it is shown or not.
HWND ownWindow() {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, L"TaviDesignWindow", nullptr)) != nullptr) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process == GetCurrentProcessId()) {
            break;
        }
    }
    return window;
}

struct ProgressWindowOf : UnitTest {
    static bool run(const std::function<bool()>& flow) {
        return runWithProgress(GetModuleHandleW(nullptr), {}, SetupAction::Repair, flow);
    }
};

TEST_F(ProgressWindowOf, AQuickFlowIsNotSeen) {
    bool seen = false;
    for (const bool ok : {true, false}) {
        EXPECT_EQ(run([&] {
                      Sleep(50);
                      seen = seen || IsWindowVisible(ownWindow());
                      return ok;
                  }),
                  ok);
    }
    EXPECT_FALSE(seen);
    EXPECT_FALSE(run([]() -> bool { throw std::runtime_error("no more"); }));
    ASSERT_FALSE(log().empty());
    EXPECT_EQ(log().back(), L"setup broke off: no more");
}

TEST_F(ProgressWindowOf, ASlowFlowIsSeenUntilItsEndWhateverCloses) {
    const DWORD caller = GetCurrentThreadId();
    std::optional<LRESULT> mayEnd;
    bool isOtherThread = false;
    bool stays = false;
    EXPECT_TRUE(run([&] {
        isOtherThread = GetCurrentThreadId() != caller;
        const HWND window = ownWindow();
        const ULONGLONG end = GetTickCount64() + velquin::test::kPatienceMs;
        while (!IsWindowVisible(window) && GetTickCount64() < end) {
            Sleep(10);
        }
        DWORD_PTR answer = TRUE;
        if (SendMessageTimeoutW(window, WM_QUERYENDSESSION, 0, 0, SMTO_NORMAL, velquin::test::kPatienceMs, &answer)) {
            mayEnd = static_cast<LRESULT>(answer);
        }
        SendMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
        SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
        Sleep(50);
        stays = IsWindowVisible(window) != FALSE;
        return true;
    }));
    EXPECT_TRUE(isOtherThread);
    EXPECT_EQ(mayEnd, FALSE);
    EXPECT_TRUE(stays);
    EXPECT_EQ(ownWindow(), nullptr);
}

// The end of the program ends the window; the flow goes on.
TEST_F(ProgressWindowOf, AFlowOutlivesItsWindow) {
    bool isOver = false;
    EXPECT_TRUE(run([&] {
        const HWND window = ownWindow();
        PostThreadMessageW(GetWindowThreadProcessId(window, nullptr), WM_QUIT, 7, 0);
        const ULONGLONG end = GetTickCount64() + velquin::test::kPatienceMs;
        while (IsWindow(window) && GetTickCount64() < end) {
            Sleep(10);
        }
        velquin::writeSetupLog(L"copied: C:\\a -> C:\\b");
        isOver = !IsWindow(window);
        return true;
    }));
    EXPECT_TRUE(isOver);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the outer loop has to end, too";
}

}  // namespace
