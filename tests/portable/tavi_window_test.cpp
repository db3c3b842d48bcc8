// Tooltips, the debug overlay, and windows whose callbacks destroy things.
#include <format>

#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

TEST_F(TaviWindow, TooltipsWaitAndGo) {
    Probe* const owner = add(L"owner", {100, 100, 50, 20});
    Probe* const inner = add(L"inner", {5, 5, 10, 10}, owner);
    Probe* const next = add(L"next", {200, 100, 50, 20});
    owner->setTooltip(L"about");
    next->setTooltip(L"more");
    move({110, 110});
    EXPECT_EQ(platform.tooltipTimer, kTooltipDelay);
    EXPECT_EQ(platform.tooltip, L"");
    tree->timeOut(WindowTimer::Tooltip);
    EXPECT_EQ(platform.tooltip, L"about");
    EXPECT_EQ(platform.tooltipTimer, 0);
    EXPECT_EQ(platform.tooltipAnchor, (Rect{100, 100, 50, 20}));
    move({140, 110});
    EXPECT_EQ(platform.tooltip, L"about") << "from " << testing::PrintToString(inner->id()) << " to its parent";
    move({210, 110});
    EXPECT_EQ(platform.tooltip, L"");
    EXPECT_EQ(platform.tooltipTimer, kNextTooltipDelay);
    tree->timeOut(WindowTimer::Tooltip);
    EXPECT_EQ(platform.tooltip, L"more");
    key('A');
    EXPECT_EQ(platform.tooltip, L"");
    move({220, 110});
    EXPECT_EQ(platform.tooltipTimer, 0) << "not again before the pointer was elsewhere";
    move({110, 110});
    EXPECT_EQ(platform.tooltipTimer, kTooltipDelay);
    move({10, 10});
    EXPECT_EQ(platform.tooltipTimer, 0);
    move({110, 110});
    owner->setVisible(false);
    tree->timeOut(WindowTimer::Tooltip);
    EXPECT_EQ(platform.tooltip, L"");
    EXPECT_EQ(platform.tooltipTimer, 0);

    tree->setClient({800, 600}, 192);
    next->anchor = Rect{5, 5, 10, 10};
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"press", [&] { press({420, 220}); }},
        {"wheel", [&] { tree->pointerWheel({.position = {420, 220}, .steps = 1}); }},
        {"hidden", [&] { next->setVisible(false), tree->update(); }},
        {"deactivated", [&] { tree->activated(false); }},
        {"closed", [&] { tree->close(); }},
    };
    for (const auto& [name, end] : ends) {
        next->setVisible(true);
        move({10, 10});
        move({420, 220});
        tree->timeOut(WindowTimer::Tooltip);
        EXPECT_EQ(platform.tooltip, L"more") << name;
        EXPECT_EQ(platform.tooltipAnchor, (Rect{410, 210, 20, 20})) << "a place of its own";
        end();
        EXPECT_EQ(platform.tooltip, L"") << name;
    }
}

TEST(TaviTooltip, PlacesBesideItsAnchorWithinBounds) {
    const Rect within{0, 0, 1000, 800};
    const std::tuple<Rect, Size, Rect, bool> cases[] = {
        {{100, 100, 50, 20}, {200, 40}, {100, 124, 200, 40}, false},
        {{100, 770, 50, 20}, {200, 40}, {100, 726, 200, 40}, false},  // above
        {{900, 100, 50, 20}, {200, 40}, {800, 124, 200, 40}, true},   // moved to the left
        {{-30, 100, 50, 20}, {200, 40}, {0, 124, 200, 40}, true},
        {{100, 10, 50, 780}, {200, 40}, {100, 760, 200, 40}, true},  // neither below nor above
        {{100, 100, 50, 20}, {2000, 40}, {0, 124, 2000, 40}, true},  // larger than the room
    };
    for (const auto& [anchor, size, expected, clamped] : cases) {
        const TooltipPlace place = placeTooltip(anchor, size, within, 4, false);
        EXPECT_EQ(place.bounds, expected);
        EXPECT_EQ(place.clamped(), clamped);
    }
    EXPECT_EQ(placeTooltip({500, 100, 50, 20}, {200, 40}, within, 4, true).bounds, (Rect{350, 124, 200, 40}))
        << "aligned with the end of its anchor";
    EXPECT_EQ(placeTooltip({100, 100, 50, 20}, {200, 40}, within, 4, true).bounds, (Rect{0, 124, 200, 40}));
    EXPECT_EQ(reportTooltipClamp(std::get<0>(cases[2]), {200, 40},
                                 placeTooltip(std::get<0>(cases[2]), {200, 40}, within, 4, false), within),
              L"[Tavi layout warning] tooltip placement clamp anchor=(900, 100, 50x20) before=(900, 124, 200x40) "
              L"after=(800, 124, 200x40) tooltipSize=200x40 clampX=[0, 800] clampY=[0, 760] "
              L"placementBounds=(0, 0, 1000x800)");
}

TEST_F(TaviWindow, DebugOverlay) {
    Probe* const box = add(L"box", {100, 100, 50, 20});
    box->setContours(ContourKind::Shape, {{5, 0, 40, 20}});
    box->setMinimumSize(60, 20);
    Probe* const inner = add(L"inner", {6, 5, 10, 10}, box);
    add(L"hidden", {0, 0, 10, 10}, box)->setVisible(false);
    move({110, 110});
    EXPECT_FALSE(key(key::kF12, kShift)) << "its keys are free while it is off";
    EXPECT_TRUE(key(key::kF12, kControlKey));
    EXPECT_TRUE(tree->needsPaint());
    tree->keyPress({.code = key::kF12, .modifiers = kControlKey, .wasDown = true});
    EXPECT_TRUE(tree->overlay().on) << "held";
    Canvas canvas({400, 300});
    tree->paint(canvas.handle());
    move({111, 110});
    EXPECT_TRUE(tree->needsPaint()) << "it shows where the pointer is";
    for (const uint32_t modifiers : {kControlKey | kAlt, +kShift, kControlKey | kShift, +kAlt}) {
        EXPECT_TRUE(key(key::kF12, modifiers));
    }
    EXPECT_EQ(tree->overlay(), (OverlayState{true, OverlayMode::Hot, true, true, true}));

    // What it shows of "box", "inner" and "hidden" in each mode; the colors are those of bounds, hot, base and contour.
    const std::pair<OverlayState, Log> cases[] = {
        {{.on = false}, {}},
        {{.on = true},
         {L"c8ff (0, 0, 400x300)", L"c8ff (100, 100, 60x20)", L"4040ff (106, 105, 10x10)",
          L"Ctrl+F12 UI debug | mode=bounds | ids=off | content=off | contours=off | cursor (7, 8) | hot=inner"}},
        {{.on = true, .mode = OverlayMode::Hot, .ids = true},
         {L"4040ff (106, 105, 10x10)", L"inner", L"c8ff (100, 100, 60x20)", L"box", L"c8ff (0, 0, 400x300)", L"root",
          L"Ctrl+F12 UI debug | mode=hot | ids=on | content=off | contours=off | cursor (7, 8) | hot=inner"}},
        {{.on = true, .mode = OverlayMode::Layout, .contours = true},
         {L"c8ff (0, 0, 400x300)", L"ff80ff (100, 100, 50x20)", L"c8ff (100, 100, 60x20)", L"ffff40 (105, 100, 40x20)",
          L"4040ff (106, 105, 10x10)",
          L"Ctrl+F12 UI debug | mode=layout | ids=off | content=off | contours=on | cursor (7, 8) | hot=inner"}},
    };
    for (const auto& [state, expected] : cases) {
        Log shown;
        const std::vector<OverlayItem> items = overlayPicture(tree->root(), state, {7, 8}, inner);
        for (const OverlayItem& item : items) {
            shown.push_back(item.kind == OverlayItem::Kind::Text
                                ? item.text
                                : std::format(L"{:x} ", item.color) + describe(item.area));
        }
        if (state.on) {
            EXPECT_EQ(shown.back(),
                      L"F12 flame source | Ctrl+F12 toggle | Ctrl+Alt+F12 mode | Shift+F12 ids | "
                      L"Ctrl+Shift+F12 content | Alt+F12 contours");
            EXPECT_EQ(items.back().area.bottom(), 300);
            shown.pop_back();
        }
        EXPECT_EQ(shown, expected);
    }
    EXPECT_TRUE(key(key::kF12));
    EXPECT_TRUE(
        platform.clipboard.starts_with(L"Tavi debug context\r\ncursor=(111, 110)\r\ncontrol=root/box/inner\r\n"
                                       L"bounds=(6, 5, 10x10)\r\nclient=(106, 105, 10x10)\r\n"))
        << testing::PrintToString(platform.clipboard);
}

// In every hook of every entry: destroying the control, its parent, all children, or closing and letting go of the
// window.
TEST(TaviWindowLife, AnythingMayBeDestroyedInAnyCallback) {
    constexpr PointerButton kLeft = PointerButton::Left;
    using Tree = WindowTree&;
    const std::pair<std::wstring_view, void (*)(Tree)> entries[] = {
        {L"move", [](Tree tree) { tree.pointerMove({.position = {15, 15}}); }},
        {L"press", [](Tree tree) { tree.pointerPress({.position = {15, 15}, .button = kLeft, .held = 2}); }},
        {L"release", [](Tree tree) { tree.pointerRelease({.position = {15, 15}, .button = kLeft}); }},
        {L"wheel", [](Tree tree) { tree.pointerWheel({.position = {15, 15}, .steps = 1}); }},
        {L"leave", [](Tree tree) { tree.pointerLeave(); }},
        {L"lost", [](Tree tree) { tree.pointerLost(); }},
        {L"tab", [](Tree tree) { tree.keyPress({.code = key::kTab}); }},
        {L"return", [](Tree tree) { tree.keyPress({.code = key::kReturn}); }},
        {L"escape", [](Tree tree) { tree.keyPress({.code = key::kEscape}); }},
        {L"key up", [](Tree tree) { tree.keyRelease({.code = 'A'}); }},
        {L"text", [](Tree tree) { tree.textInput({L"x"}); }},
        {L"composition", [](Tree tree) { tree.compositionChanged({L"x", 0}); }},
        {L"edit", [](Tree tree) { tree.editCommand(EditCommand::Cut); }},
        {L"blur", [](Tree tree) { tree.activated(false); }},
        {L"scale", [](Tree tree) { tree.setClient({300, 200}, 144); }},
        {L"close", [](Tree tree) { tree.close(); }},
    };
    int calls = 0;
    for (const auto& [name, entry] : entries) {
        for (size_t deed = 0; deed < 5; ++deed) {
            for (int when = 0; when < 4; ++when) {
                PlatformStandIn platform;
                std::shared_ptr<WindowTree> tree = WindowTree::create(platform);
                tree->setClient({200, 200}, 96);
                Panel* const group = tree->root().add<Probe>(L"group", Rect{0, 0, 100, 100});
                Probe* const inner = group->add<Probe>(L"inner", Rect{10, 10, 20, 20});
                Probe* const after = group->add<Probe>(L"after", Rect{40, 10, 20, 20});
                inner->takesFocus = after->takesFocus = true;
                tree->activated(true);
                tree->focus().setDefault(inner);
                tree->focus().setCancel(after);
                if (name == L"release" || name == L"lost" || name == L"leave") {
                    inner->takesInput = true;
                    tree->pointerPress({.position = {15, 15}, .button = kLeft, .held = 2});
                }
                int left = when;
                const std::function<void()> deeds[] = {[&] { group->removeChild(*inner); },
                                                       [&] { tree->root().removeChild(*group); },
                                                       [&] { tree->close(); }, [&] { tree->close(), tree.reset(); },
                                                       [&] { inner->setEnabled(false), group->setVisible(false); }};
                const auto act = [&](const std::wstring&) {
                    if (left-- == 0) {
                        ++calls;
                        deeds[deed]();
                    }
                };
                inner->then = after->then = static_cast<Probe*>(group)->then = act;
                entry(*tree);
            }
        }
    }
    EXPECT_GT(calls, 100) << "the hooks were hardly called";
}

}  // namespace
