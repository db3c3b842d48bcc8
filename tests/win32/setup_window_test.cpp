// The setup's dialog as a window: what Windows knows of it, and the choices that keyboard and title bar lead to.
#include "setup/dialog/setup_window.h"

#include <thread>

#include "base/windows_path.h"
#include "core/product_paths.h"
#include "setup/startup.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::setup;
using velquin::test::UnitTest;

// What is seen of the dialog before something is done to it.
struct Seen {
    std::wstring title;
    LONG_PTR style = 0;
    SIZE client = {};
    bool hasIcons = false;
};

struct SetupWindow : UnitTest {
    Seen seen;

    // Shows the dialog, looks at it once it is there, sends it a message, and gives the choice.
    SetupChoice choiceAfter(bool installed, UINT message, WPARAM wParam) {
        const DWORD shower = GetCurrentThreadId();
        const std::jthread person([&, shower] {
            HWND window = nullptr;
            const ULONGLONG end = GetTickCount64() + velquin::test::kPatienceMs;
            while (!IsWindowVisible(window) && GetTickCount64() < end) {
                Sleep(10);
                EnumThreadWindows(
                    shower,
                    [](HWND each, LPARAM found) -> BOOL {
                        wchar_t name[40] = {};
                        GetClassNameW(each, name, 40);
                        const bool isDialog = std::wstring_view(name) == L"TaviDesignWindow" && IsWindowVisible(each);
                        *reinterpret_cast<HWND*>(found) = isDialog ? each : nullptr;
                        return !isDialog;
                    },
                    reinterpret_cast<LPARAM>(&window));
            }
            wchar_t title[80] = {};
            GetWindowTextW(window, title, 80);
            RECT client{};
            GetClientRect(window, &client);
            seen = {.title = title,
                    .style = GetWindowLongPtrW(window, GWL_STYLE),
                    .client = {client.right, client.bottom},
                    .hasIcons = SendMessageW(window, WM_GETICON, ICON_BIG, 0) != 0 &&
                                SendMessageW(window, WM_GETICON, ICON_SMALL, 0) != 0};
            PostMessageW(window, message, wParam, 0);
        });
        return showSetupChoice(GetModuleHandleW(nullptr), installed);
    }
};

TEST_F(SetupWindow, IsWhatItSaysAndClosesWithoutAnAction) {
    velquin::test::OwnLocalMachine machine;
    const std::wstring folder = velquin::defaultInstallFolder();
    EXPECT_EQ(choiceAfter(false, WM_CLOSE, 0), (SetupChoice{SetupAction::Close, true, false, folder}));
    EXPECT_EQ(seen.title, L"Lumora Velquin Setup");
    EXPECT_EQ(static_cast<uint32_t>(seen.style) & ~uint32_t{WS_VISIBLE | WS_CLIPSIBLINGS}, kSetupWindowStyle);
    const UINT dpi = GetDpiForSystem();
    EXPECT_EQ(seen.client.cx, MulDiv(690, static_cast<int>(dpi), 96));
    EXPECT_EQ(seen.client.cy, MulDiv(344, static_cast<int>(dpi), 96));
    EXPECT_TRUE(seen.hasIcons);
    EXPECT_EQ(choiceAfter(false, WM_KEYDOWN, VK_ESCAPE).action, SetupAction::Close);
}

TEST_F(SetupWindow, ReturnTakesThePrimaryButton) {
    velquin::test::OwnLocalMachine machine;
    const std::wstring folder = velquin::defaultInstallFolder();
    EXPECT_EQ(choiceAfter(false, WM_KEYDOWN, VK_RETURN), (SetupChoice{SetupAction::Install, true, false, folder}));
    const SetupChoice installed = choiceAfter(true, WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(installed.action, SetupAction::Repair);
    EXPECT_EQ(installed.startWithWindows, readStartupRegistration());
    EXPECT_EQ(installed.installDir, folder);
}

}  // namespace
