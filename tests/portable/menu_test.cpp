// Menus and the places of pop-up windows.
#include "tavi/controls/menu_panel.h"
#include "tests/portable/popup_stand_in.h"
#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

TEST(TaviPopup, LiesBesideItsAnchorInsideTheWorkArea) {
    constexpr Rect kWork{0, 0, 1000, 700};
    constexpr Rect kHigh{100, 100, 200, 30};
    constexpr Rect kLow{100, 600, 200, 30};
    constexpr Rect kMiddle{100, 300, 200, 30};
    const struct {
        const char* name;
        Rect anchor;
        Size size;
        bool rightToLeft;
        bool shrinks;
        Rect place;
    } kCases[] = {
        {"below", kHigh, {200, 240}, false, true, {100, 130, 200, 240}},
        {"above", kLow, {200, 240}, false, true, {100, 360, 200, 240}},
        {"as high as the room fits", kLow, {200, 600}, false, true, {100, 0, 200, 600}},
        {"shrunk to the larger side", kMiddle, {200, 500}, false, true, {100, 330, 200, 370}},
        {"moved over its anchor", kMiddle, {200, 500}, false, false, {100, 200, 200, 500}},
        {"never higher than the work area", kMiddle, {200, 900}, false, false, {100, 0, 200, 700}},
        {"from its right edge", kHigh, {300, 50}, true, true, {0, 130, 300, 50}},
        {"narrower, from its right edge", kHigh, {120, 50}, true, true, {180, 130, 120, 50}},
        {"moved from the right", {900, 100, 90, 30}, {200, 50}, false, true, {800, 130, 200, 50}},
        {"as wide as the work area", kHigh, {2000, 50}, false, true, {0, 130, 1000, 50}},
    };
    for (const auto& each : kCases) {
        EXPECT_EQ(placePopup(each.anchor, each.size, kWork, each.rightToLeft, each.shrinks), each.place) << each.name;
    }
    EXPECT_EQ(placePopup({-500, 50, 10, 10}, {50, 50}, {-800, 0, 800, 600}, false, true), (Rect{-500, 60, 50, 50}))
        << "a monitor at the left";
}

const std::vector<MenuEntry> kEntries = {{.caption = L"Undo", .shortcut = L"Ctrl+Z", .enabled = false},
                                         {},
                                         {.caption = L"Cut", .shortcut = L"Ctrl+X"},
                                         {.caption = L"Copy", .shortcut = L"Ctrl+C"},
                                         {.caption = L"Paste", .enabled = false},
                                         {.caption = L"Select all"}};

struct TaviMenu : testing::Test {
    FrameStandIn frame;
    // Shows the menu and has a person do something meanwhile.
    std::optional<size_t> show(const std::function<void(PopupStandIn&, MenuPanel&)>& act) {
        frame.whileRunning = [&] { act(*frame.popup, *static_cast<MenuPanel*>(frame.popup->content)); };
        return showContextMenu(frame, {40, 50}, kEntries, false);
    }
    std::optional<size_t> keys(std::initializer_list<uint32_t> codes) {
        return show([&](PopupStandIn& popup, MenuPanel&) {
            for (const uint32_t code : codes) {
                popup.key(code);
            }
        });
    }
};

TEST_F(TaviMenu, IsWalkedThroughWithKeys) {
    using namespace tavi::key;
    constexpr uint32_t kReturn = key::kReturn;
    EXPECT_EQ(keys({kDown, kReturn}), 2U) << "past what is disabled and the line";
    EXPECT_EQ(keys({kDown, kDown, key::kSpace}), 3U);
    EXPECT_EQ(keys({kDown, kDown, kDown, kReturn}), 5U);
    EXPECT_EQ(keys({kDown, kDown, kDown, kDown, kReturn}), 2U) << "around the end";
    EXPECT_EQ(keys({kUp, kReturn}), 5U);
    EXPECT_EQ(keys({kEnd, kUp, kReturn}), 3U);
    EXPECT_EQ(keys({kEnd, kHome, kReturn}), 2U);
    EXPECT_EQ(keys({kReturn}), std::nullopt) << "nothing is hot";
    EXPECT_EQ(show([&](PopupStandIn& popup, MenuPanel&) {
                  popup.key(key::kEscape);
                  EXPECT_EQ(popup.platform->cancels, 1) << "left to the window";
                  popup.request.dismissed();
              }),
              std::nullopt);
    EXPECT_EQ(frame.popup, nullptr) << "closed";
    EXPECT_EQ(showContextMenu(frame, {}, {}, false), std::nullopt);
}

TEST_F(TaviMenu, IsChosenFromByFirstLetters) {
    const auto typed = [&](const wchar_t* letters, std::optional<size_t> hot) {
        return show([&](PopupStandIn& popup, MenuPanel& menu) {
            for (const wchar_t letter : std::wstring(letters)) {
                popup.tree->textInput({std::wstring(1, letter)});
            }
            if (frame.popup != nullptr && hot) {
                EXPECT_EQ(menu.hotEntry(), hot) << letters;
            }
        });
    };
    EXPECT_EQ(typed(L"S", {}), 5U);
    EXPECT_EQ(typed(L"c", 2), std::nullopt) << "two of them";
    EXPECT_EQ(typed(L"cc", 3), std::nullopt);
    EXPECT_EQ(typed(L"ccc", 2), std::nullopt);
    EXPECT_EQ(typed(L"p", {}), std::nullopt) << "disabled";
}

TEST_F(TaviMenu, IsChosenFromWithTheMouse) {
    const auto middle = [](const MenuPanel& menu, size_t index) {
        const Rect area = menu.entryArea(index);
        return Point{area.x + area.width / 2, area.y + area.height / 2};
    };
    for (const auto& [index, result] : {std::pair<size_t, std::optional<size_t>>(0, std::nullopt),
                                        {1, std::nullopt},
                                        {2, 2},
                                        {4, std::nullopt},
                                        {5, 5}}) {
        EXPECT_EQ(show([&](PopupStandIn& popup, MenuPanel& menu) { popup.click(middle(menu, index)); }), result)
            << index;
    }
    show([&](PopupStandIn& popup, MenuPanel& menu) {
        EXPECT_EQ(menu.entryArea(2).height, kMenuRowHeight);
        EXPECT_EQ(menu.entryArea(5).bottom() + menu.entryArea(0).y, popup.size.height) << "as much room at both ends";
        popup.tree->pointerMove({.position = middle(menu, 3)});
        EXPECT_EQ(menu.hotEntry(), 3U);
        std::wstring value;
        menu.automationValue(value);
        EXPECT_EQ(value, L"Copy");
        popup.key(key::kUp);
        popup.tree->pointerMove({.position = middle(menu, 3)});
        EXPECT_EQ(menu.hotEntry(), 2U) << "the pointer has not moved";
        popup.tree->pointerRelease({.position = middle(menu, 3), .button = PointerButton::Right});
        EXPECT_NE(frame.popup, nullptr) << "the button that has opened it";
        popup.tree->pointerLeave();
        EXPECT_EQ(menu.hotEntry(), std::nullopt);
    });
}

}  // namespace
