// Dialogs and their owners.
#include <algorithm>
#include <thread>

#include "tavi/core/dialog_window.h"
#include "tests/windows/window_support.h"

namespace {

using namespace testing_windows;

// What a dialog's owner sees while the dialog runs and when it ends.
struct Owner : Window {
    using Window::Window;
    bool enabledBeforeDialogWent = false;
    HWND dialog = nullptr;
    bool handleMessage(uint32_t message, uintptr_t wParam, intptr_t, intptr_t&) override {
        if (message == WM_ENABLE && wParam != 0) {
            enabledBeforeDialogWent = IsWindow(dialog) != FALSE;
        }
        return false;
    }
};

struct TaviDialog : testing::Test {
    Owner owner{kInstance};
    std::unique_ptr<DialogWindow> dialog = std::make_unique<DialogWindow>(kInstance);
    Box* button = nullptr;

    void SetUp() override {
        owner.root().add<Box>(L"owner's", Rect{0, 0, 50, 50});
        ASSERT_TRUE(owner.create({.title = L"owner", .clientSize = {500, 400}}));
        SetWindowPos(owner.handle(), nullptr, 20, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        owner.show();
        button = dialog->root().add<Box>(L"button", Rect{10, 10, 80, 30});
        ASSERT_TRUE(dialog->create({.title = L"dialog", .clientSize = {200, 100}, .owner = owner.handle()}));
        owner.dialog = dialog->handle();
    }
    // Posts the message once the dialog runs, and runs it.
    DialogResult run(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        PostMessageW(dialog->handle(), message, wParam, lParam);
        return dialog->runModal();
    }
};

TEST_F(TaviDialog, LiesInTheMiddleOfItsOwner) {
    const RECT made = rectOf(dialog->handle());
    const RECT around = rectOf(owner.handle());
    EXPECT_LE(std::abs(made.left + made.right - around.left - around.right), 1);
    EXPECT_LE(std::abs(made.top + made.bottom - around.top - around.bottom), 1);
    dialog->centerOn(nullptr);
    EXPECT_EQ(EqualRect(&made, std::initializer_list<RECT>{rectOf(dialog->handle())}.begin()), FALSE);
    dialog->centerOn(owner.handle());
    EXPECT_EQ(EqualRect(&made, std::initializer_list<RECT>{rectOf(dialog->handle())}.begin()), TRUE);
}

TEST_F(TaviDialog, EndsWithItsResult) {
    button->then = [&](const std::wstring& hook) {
        if (hook == L"activate") {
            EXPECT_FALSE(IsWindowEnabled(owner.handle()));
            dialog->end(DialogResult::Yes);
            dialog->end(DialogResult::No);
        }
    };
    dialog->setDefaultControl(button);
    EXPECT_EQ(run(WM_KEYDOWN, VK_RETURN), DialogResult::Yes);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
    EXPECT_TRUE(owner.enabledBeforeDialogWent);
    EXPECT_EQ(dialog->handle(), nullptr);
    EXPECT_EQ(GetActiveWindow(), owner.handle());
    EXPECT_EQ(dialog->runModal(), DialogResult::None) << "it is not there any more";
    ASSERT_TRUE(dialog->create({.title = L"again", .clientSize = {200, 100}, .owner = owner.handle()}));
    EXPECT_EQ(run(WM_KEYDOWN, VK_ESCAPE), DialogResult::Close);
}

TEST_F(TaviDialog, EndedBeforeItRunsItEndsAtOnce) {
    std::thread worker([&] { dialog->end(DialogResult::No); });
    worker.join();
    EXPECT_EQ(dialog->runModal(), DialogResult::No);
    ASSERT_TRUE(dialog->create({.clientSize = {200, 100}, .owner = owner.handle()}));
    dialog->end(DialogResult::Yes);
    EXPECT_EQ(dialog->runModal(), DialogResult::Yes);
}

// Return opens it: the character that Windows has made of the key must not be typed into the owner meanwhile.
TEST_F(TaviDialog, KeepsTheCharacterOfItsKeyFromItsOwner) {
    Log typed;
    Box* const field = owner.root().add<Box>(L"field", Rect{100, 0, 50, 50}, &typed);
    owner.tree().setFocus(field);
    field->handledKey = VK_RETURN;
    field->then = [&](const std::wstring& hook) {
        if (hook == L"key") {
            PostMessageW(dialog->handle(), WM_KEYDOWN, VK_ESCAPE, 0);
            dialog->runModal();
        }
    };
    PostMessageW(owner.handle(), WM_KEYDOWN, VK_RETURN, 0);
    PostMessageW(owner.handle(), WM_CHAR, '\r', 0);
    pump(200);
    EXPECT_EQ(std::ranges::count(typed, L"text \r"), 0);
    EXPECT_EQ(std::ranges::count(typed, L"key"), 1);
}

TEST_F(TaviDialog, ClosesWithoutAButton) {
    EXPECT_EQ(run(WM_SYSCOMMAND, SC_CLOSE), DialogResult::Close);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
}

TEST_F(TaviDialog, LeavesAnOwnerDisabledThatWasDisabled) {
    EnableWindow(owner.handle(), FALSE);
    EXPECT_EQ(run(WM_CLOSE), DialogResult::Close);
    EXPECT_FALSE(IsWindowEnabled(owner.handle()));
}

TEST_F(TaviDialog, PassesOnTheEndOfTheProgram) {
    dialog->tree().root().setTreeNotification([](Control&) { PostQuitMessage(77); });
    EXPECT_EQ(run(WM_FONTCHANGE), DialogResult::Close);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 77U);
}

TEST_F(TaviDialog, Nests) {
    DialogResult innerResult = DialogResult::None;
    button->then = [&](const std::wstring& hook) {
        if (hook == L"activate" && innerResult == DialogResult::None) {
            DialogWindow inner(kInstance);
            ASSERT_TRUE(inner.create({.clientSize = {100, 80}, .owner = dialog->handle()}));
            // The outer one ends while the inner one still runs.
            dialog->end(DialogResult::Ok);
            PostMessageW(inner.handle(), WM_KEYDOWN, VK_ESCAPE, 0);
            innerResult = inner.runModal();
            EXPECT_TRUE(IsWindowEnabled(dialog->handle()));
            EXPECT_FALSE(IsWindowEnabled(owner.handle()));
        }
    };
    EXPECT_EQ(run(WM_KEYDOWN, VK_SPACE), DialogResult::Ok);
    EXPECT_EQ(innerResult, DialogResult::Close);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
}

TEST_F(TaviDialog, MayBeDestroyedByItsOwnButton) {
    for (const bool altogether : {false, true}) {
        button->then = [&, altogether](const std::wstring& hook) {
            if (hook == L"activate" && altogether) {
                dialog.reset();
            } else if (hook == L"activate") {
                DestroyWindow(dialog->handle());
            }
        };
        EXPECT_EQ(run(WM_KEYDOWN, VK_SPACE), DialogResult::Close);
        EXPECT_TRUE(IsWindowEnabled(owner.handle()));
        EXPECT_TRUE(std::exchange(owner.enabledBeforeDialogWent, false));
        if (!altogether) {
            ASSERT_TRUE(dialog->create({.clientSize = {200, 100}, .owner = owner.handle()}));
            owner.dialog = dialog->handle();
        }
    }
}

TEST_F(TaviDialog, GoesWithItsOwner) {
    button->then = [&](const std::wstring& hook) {
        if (hook == L"activate") {
            DestroyWindow(owner.handle());
        }
    };
    EXPECT_EQ(run(WM_KEYDOWN, VK_SPACE), DialogResult::Close);
    EXPECT_EQ(owner.handle(), nullptr);
}

}  // namespace
