// Message boxes as a person meets them: real windows over a real owner.
#include <cstdlib>

#include "tavi/controls/message_box.h"
#include "tests/windows/window_support.h"

namespace {

using namespace testing_windows;

struct TaviMessageBox : testing::Test {
    Window owner{kInstance};
    HWND box = nullptr;
    MessageBoxOptions options{
        .title = L"A title",
        .message = L"A message",
        .kind = MessageBoxKind::kQuestion,
        .buttons = {{.id = L"yes", .caption = L"Yes", .result = DialogResult::Yes}, cancelButton()}};

    void SetUp() override {
        ASSERT_TRUE(owner.create({.title = L"owner", .clientSize = {600, 400}}));
        owner.show();
        SetForegroundWindow(owner.handle());
        pump(50);
    }
    // Runs the box; `then` is called with its window before it is shown: what it posts comes afterwards.
    DialogResult run(const std::function<void(HWND)>& then) {
        options.created = [&](HWND made) {
            box = made;
            then(made);
        };
        return showMessageBox(kInstance, owner.handle(), options);
    }
    static void key(HWND window, WPARAM code) {
        PostMessageW(window, WM_KEYDOWN, code, 0);
        PostMessageW(window, WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
    }
    // So many pixels from the left, or with a negative number from the right, in the row of buttons.
    static void click(HWND window, int x) {
        RECT client{};
        GetClientRect(window, &client);
        const LPARAM at = MAKELPARAM(x < 0 ? client.right + x : x, client.bottom - 35);
        PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(window, WM_LBUTTONUP, 0, at);
    }
};

TEST_F(TaviMessageBox, EndsWithTheResultOfAKey) {
    const std::vector<MessageBoxButton> both = options.buttons;
    const struct {
        const char* about;
        std::vector<MessageBoxButton> buttons;
        std::vector<WPARAM> keys;
        DialogResult expected;
    } cases[] = {
        {"the first is the default", both, {VK_RETURN}, DialogResult::Yes},
        {"the next one", both, {VK_TAB, VK_RETURN}, DialogResult::Cancel},
        {"Escape presses Cancel", both, {VK_ESCAPE}, DialogResult::Cancel},
        {"Escape without a Cancel", {both.front()}, {VK_ESCAPE}, DialogResult::Close},
        {"there is an OK", {}, {VK_RETURN}, DialogResult::Ok},
    };
    for (const auto& each : cases) {
        options.buttons = each.buttons;
        EXPECT_EQ(run([&](HWND made) {
                      for (const WPARAM code : each.keys) {
                          key(made, code);
                      }
                  }),
                  each.expected)
            << each.about;
        EXPECT_TRUE(IsWindowEnabled(owner.handle())) << each.about;
        EXPECT_FALSE(IsWindow(box)) << each.about;
    }
    EXPECT_EQ(run([](HWND made) { PostMessageW(made, WM_CLOSE, 0, 0); }), DialogResult::Close);
}

TEST_F(TaviMessageBox, EndsWithTheResultOfTheButtonThatIsClicked) {
    EXPECT_EQ(run([](HWND made) { click(made, -60); }), DialogResult::Cancel);
    EXPECT_EQ(run([](HWND made) { click(made, -170); }), DialogResult::Yes);
    options.rightToLeft = true;
    EXPECT_EQ(run([](HWND made) { click(made, 60); }), DialogResult::Cancel) << "mirrored";
    options.buttons.front().id = options.buttons.back().id = L"";
    EXPECT_EQ(run([](HWND made) { click(made, 60); }), DialogResult::Cancel) << "ids need not tell them apart";
}

TEST_F(TaviMessageBox, StaysOpenForAButtonWithAnActionOfItsOwn) {
    int actions = 0;
    options.buttons.insert(options.buttons.begin(), {.id = L"act", .caption = L"Act", .action = [&](HWND window) {
                                                         EXPECT_EQ(window, box);
                                                         EXPECT_FALSE(IsWindowEnabled(owner.handle()));
                                                         if (++actions == 2) {
                                                             key(window, VK_ESCAPE);
                                                         }
                                                     }});
    EXPECT_EQ(run([](HWND made) {
                  key(made, VK_RETURN);
                  key(made, VK_RETURN);
              }),
              DialogResult::Cancel);
    EXPECT_EQ(actions, 2);
}

TEST_F(TaviMessageBox, LiesOverItsOwnerAsLargeAsItsTextNeeds) {
    RECT small{};
    RECT large{};
    const RECT around = rectOf(owner.handle());
    run([&](HWND made) {
        small = rectOf(made);
        key(made, VK_ESCAPE);
    });
    EXPECT_LE(std::abs(small.left + small.right - around.left - around.right), 1);
    EXPECT_LE(std::abs(small.top + small.bottom - around.top - around.bottom), 1);
    for (int i = 0; i < 2000; ++i) {
        options.message += L" and more of it";
    }
    run([&](HWND made) {
        large = rectOf(made);
        key(made, VK_ESCAPE);
    });
    EXPECT_GT(large.right - large.left, small.right - small.left);
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_EQ(large.top, work.top) << "all of the work area and not more";
    EXPECT_EQ(large.bottom, work.bottom);
}

// Letters do not grow evenly: at another scale a text may take another line.
TEST_F(TaviMessageBox, FitsItsTextAgainWhenTheScaleChanges) {
    const auto heightAt = [](HWND made, int dpi) {
        RECT place = rectOf(made);
        SendMessageW(made, WM_DPICHANGED, static_cast<WPARAM>(MAKEWPARAM(dpi, dpi)), reinterpret_cast<LPARAM>(&place));
        place = rectOf(made);
        return MulDiv(place.bottom - place.top, 96, dpi);
    };
    int others = 0;
    for (int words = 0; words < 40; ++words) {
        options.message += L" willing";
        run([&](HWND made) {
            key(made, VK_ESCAPE);
            const int before = heightAt(made, 96);
            others += std::abs(heightAt(made, 120) - before) > 10 ? 1 : 0;
            EXPECT_EQ(heightAt(made, 96), before) << words;
        });
    }
    EXPECT_GT(others, 0) << "a line more or less";
}

TEST_F(TaviMessageBox, IsCopiedAsText) {
    BYTE keys[256]{};
    GetKeyboardState(keys);
    const auto holdControl = [&](BYTE state) {
        keys[VK_CONTROL] = state;
        SetKeyboardState(keys);
    };
    run([&](HWND made) {
        holdControl(0x80);
        PostMessageW(made, WM_KEYDOWN, 'C', 0);
        PostMessageW(made, WM_CLOSE, 0, 0);
    });
    holdControl(0);
    EXPECT_EQ(owner.tree().clipboardText(),
              L"---------------------------\r\nA title\r\n---------------------------\r\nA message\r\n"
              L"---------------------------\r\nYes   Cancel   \r\n---------------------------\r\n");
}

TEST_F(TaviMessageBox, NestsAndEndsWithItsOwner) {
    DialogResult inner = DialogResult::None;
    options.buttons.front().action = [&](HWND outer) {
        MessageBoxOptions second{.title = L"inner", .message = L"again"};
        second.created = [&](HWND made) {
            EXPECT_EQ(GetWindow(made, GW_OWNER), outer);
            key(made, VK_RETURN);
        };
        inner = showMessageBox(kInstance, outer, second);
        EXPECT_TRUE(IsWindowEnabled(outer));
        EXPECT_FALSE(IsWindowEnabled(owner.handle()));
        DestroyWindow(owner.handle());
    };
    EXPECT_EQ(run([](HWND made) { key(made, VK_RETURN); }), DialogResult::Close);
    EXPECT_EQ(inner, DialogResult::Ok);
    EXPECT_EQ(owner.handle(), nullptr);
}

}  // namespace
