// Pop-up windows beside a real one: lists, menus, and all that closes them.
#include "tavi/controls/context_menu.h"
#include "tavi/controls/select_box.h"
#include "tests/windows/window_support.h"

namespace {

using namespace testing_windows;

// The visible pop-up window of an owner; null for none.
HWND popupOf(HWND owner) {
    struct Search {
        HWND owner;
        HWND found = nullptr;
    } search{owner};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND each, LPARAM data) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(data);
            const bool isPopup = (GetWindowLongW(each, GWL_EXSTYLE) & WS_EX_NOACTIVATE) != 0;
            if (GetWindow(each, GW_OWNER) == wanted.owner && isPopup && IsWindowVisible(each)) {
                wanted.found = each;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

struct TaviPopupWin32 : TaviWin32 {
    SelectBox* select = nullptr;
    Log events;

    void SetUp() override {
        open();
        select = window.root().add<SelectBox>(L"select", Rect{20, 100, 160, 32},
                                              std::vector<std::wstring>{L"one", L"two", L"three", L"four"});
        select->popupChanged.connect([this](PopupEvent& event) {
            events.push_back(event.open ? L"open" : event.dismissed ? L"dismissed" : L"chosen");
        });
        window.tree().setFocus(select);
        pump(50);
    }
    void key(WORD code) {
        sendKey(code, true);
        sendKey(code, false);
    }
    void click(HWND target, Point at) {
        sendMouse(target, at, MOUSEEVENTF_LEFTDOWN);
        sendMouse(target, at, MOUSEEVENTF_LEFTUP);
    }
    HWND popup() const { return popupOf(window.handle()); }
};

TEST_F(TaviPopupWin32, OpensBesideItsFieldWithoutTheActivation) {
    click(window.handle(), {30, 110});
    ASSERT_TRUE(pumpUntil([&] { return popup() != nullptr; }));
    pump(50);
    EXPECT_TRUE(select->isOpen()) << "the click itself does not close it";
    EXPECT_EQ(GetActiveWindow(), window.handle());
    EXPECT_EQ(GetFocus(), window.handle());
    EXPECT_EQ(SendMessageW(popup(), WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    POINT field{20, 132};
    ClientToScreen(window.handle(), &field);
    const RECT place = rectOf(popup());
    EXPECT_NEAR(place.left, field.x, 2);
    EXPECT_NEAR(place.top, field.y, 2);
    EXPECT_GE(place.right - place.left, 150);

    click(popup(), {20, 4 + 28 + 10});
    EXPECT_TRUE(pumpUntil([&] { return !select->isOpen(); }));
    EXPECT_EQ(select->selected(), 1);
    EXPECT_EQ(GetActiveWindow(), window.handle());
    EXPECT_EQ(popup(), nullptr);
    EXPECT_EQ(events, (Log{L"open", L"chosen"}));
}

TEST_F(TaviPopupWin32, ClosesWithWhatHappensToItsOwner) {
    Window other(kInstance);
    ASSERT_TRUE(other.create({.title = L"other", .clientSize = {100, 100}}));
    const struct {
        const char* name;
        std::function<void()> action;
    } kCases[] = {
        {"a press on it", [&] { click(window.handle(), {300, 250}); }},
        {"a press on the field", [&] { click(window.handle(), {30, 110}); }},
        {"Escape", [&] { key(VK_ESCAPE); }},
        {"a press on its frame", [&] { PostMessageW(window.handle(), WM_NCMBUTTONDOWN, HTCAPTION, 0); }},
        {"a move", [&] { SetWindowPos(window.handle(), nullptr, 77, 66, 0, 0, SWP_NOSIZE | SWP_NOZORDER); }},
        {"the loss of the activation", [&] { other.show(), SetActiveWindow(other.handle()); }},
    };
    for (const auto& each : kCases) {
        SetActiveWindow(window.handle());
        window.tree().setFocus(select);
        pump(50);
        events.clear();
        select->open();
        ASSERT_NE(popup(), nullptr) << each.name;
        pump(50);
        ASSERT_TRUE(select->isOpen()) << "before " << each.name;
        each.action();
        EXPECT_TRUE(pumpUntil([&] { return !select->isOpen(); })) << each.name;
        pump(50);
        EXPECT_EQ(popup(), nullptr) << each.name;
        EXPECT_EQ(events, (Log{L"open", L"dismissed"})) << each.name;
    }
    SetActiveWindow(window.handle());
    window.tree().setFocus(select);
    select->open();
    ASSERT_TRUE(select->isOpen());
    DestroyWindow(window.handle());
    EXPECT_FALSE(select->isOpen());
}

// Does something as soon as a menu is open, from inside of its loop.
struct WhenMenuOpens {
    static inline HWND owner = nullptr;
    static inline std::function<void(HWND menu)> action;
    WhenMenuOpens(HWND window, std::function<void(HWND menu)> act) {
        owner = window;
        action = std::move(act);
        SetTimer(owner, 4711, 20, [](HWND, UINT, UINT_PTR timer, DWORD) {
            if (const HWND menu = popupOf(owner)) {
                KillTimer(owner, timer);
                action(menu);
            }
        });
    }
    ~WhenMenuOpens() { KillTimer(owner, 4711); }
};

TEST_F(TaviPopupWin32, AMenuIsChosenFromByKeysAndMouse) {
    const std::vector<MenuEntry> entries = {{.caption = L"Cut"}, {.caption = L"Copy"}, {}, {.caption = L"All"}};
    window.tree().setFocus(box);
    pump(50);
    log.clear();
    const struct {
        const char* name;
        std::function<void(HWND)> action;
        std::optional<size_t> chosen;
    } kCases[] = {
        {"keys", [&](HWND) { key(VK_DOWN), key(VK_DOWN), key(VK_RETURN); }, 1},
        {"a letter", [&](HWND) { key('A'); }, 3},
        {"the mouse", [&](HWND menu) { click(menu, {30, 15}); }, 0},
        {"Escape", [&](HWND) { key(VK_ESCAPE); }, std::nullopt},
        {"Alt", [&](HWND) { key(VK_MENU); }, std::nullopt},
        {"a press beside it", [&](HWND) { click(window.handle(), {390, 290}); }, std::nullopt},
        {"the end of the thread's loop", [&](HWND) { PostQuitMessage(7); }, std::nullopt},
    };
    for (const auto& each : kCases) {
        const WhenMenuOpens act(window.handle(), each.action);
        const Rect at = window.tree().frame()->onScreen({150, 40, 0, 0});
        EXPECT_EQ(showContextMenu(*window.tree().frame(), at.position(), entries, false), each.chosen) << each.name;
        EXPECT_EQ(popup(), nullptr) << each.name;
        EXPECT_EQ(GetActiveWindow(), window.handle()) << each.name;
        MSG message{};
        EXPECT_EQ(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0,
                  each.chosen == std::nullopt && each.name[0] == 't')
            << each.name;
        pump(50);
        // All controls are told that a button went up.
        std::erase_if(log, [](const std::wstring& line) { return line.starts_with(L"release"); });
        EXPECT_EQ(log, Log{}) << each.name << ": nothing of it reaches the control with the focus";
        log.clear();
    }
    // The owner may go while its menu is open.
    auto owner = std::make_unique<Window>(kInstance);
    ASSERT_TRUE(owner->create({.title = L"owner", .clientSize = {200, 200}}));
    owner->show();
    const WhenMenuOpens act(owner->handle(), [&](HWND) { owner.reset(); });
    EXPECT_EQ(showContextMenu(*owner->tree().frame(), {100, 100}, entries, false), std::nullopt);
    EXPECT_EQ(owner, nullptr);
}

}  // namespace
