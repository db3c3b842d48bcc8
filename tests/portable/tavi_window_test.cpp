// A window's policies over its tree, with a window system that is not there.
#include <format>
#include <random>

#include "tests/portable/host_stand_in.h"
#include "tests/portable/window_stand_in.h"

namespace {

using namespace tavi;
using namespace testing_tavi;

struct TaviWindow : testing::Test {
    PlatformStandIn platform;
    std::shared_ptr<WindowTree> tree = WindowTree::create(platform);
    Log log;

    void SetUp() override {
        tree->setClient({400, 300}, 96);
        tree->activated(true);
    }
    Probe* add(const wchar_t* id, const Rect& bounds, Panel* parent = nullptr, bool takesFocus = false) {
        auto* const probe = (parent != nullptr ? parent : &tree->root())->add<Probe>(id, bounds, &log);
        probe->takesFocus = takesFocus;
        log.clear();
        return probe;
    }
    Log taken() { return std::exchange(log, {}); }
    bool key(uint32_t code, uint32_t modifiers = 0) { return tree->keyPress({.code = code, .modifiers = modifiers}); }
    // What the platform says is held comes with every event, as Windows has it.
    void press(Point at, PointerButton button = PointerButton::Left) {
        held |= heldFlag(button);
        tree->pointerPress({.position = at, .button = button, .held = held});
    }
    void release(Point at, PointerButton button = PointerButton::Left) {
        held &= ~heldFlag(button);
        tree->pointerRelease({.position = at, .button = button, .held = held});
    }
    void move(Point at) { tree->pointerMove({.position = at, .held = held}); }
    uint32_t held = 0;
    std::wstring focused() const { return tree->focused() != nullptr ? tree->focused()->id() : L"none"; }
};

// Whatever changes, painting what was asked for gives the picture that painting everything gives, at every scale.
TEST_F(TaviWindow, PaintingWhatIsDirtyIsPaintingEverything) {
    std::mt19937 random(5);
    const auto below = [&](int32_t end) { return static_cast<int32_t>(random() % static_cast<uint32_t>(end)); };
    size_t painted = 0;
    for (const int32_t dpi : {96, 120, 144, 168, 192, 288}) {
        const Size client{200 + below(7), 150 + below(7)};
        tree = WindowTree::create(platform);
        tree->setClient(client, dpi);
        std::vector<Probe*> probes;
        for (int i = 0; i < 12; ++i) {
            Panel* const parent =
                probes.empty() || i % 3 == 0 ? &tree->root() : static_cast<Panel*>(probes[random() % probes.size()]);
            probes.push_back(
                parent->add<Probe>(std::to_wstring(i), Rect{below(60), below(50), 5 + below(70), 5 + below(60)}));
            probes.back()->setAnchors(random() % 16);
        }
        Canvas canvas(client);
        tree->pointerMove({.position = {30, 30}});
        for (int step = 0; step < 60; ++step) {
            if (step == 40) {  // with the overlay from here on
                for (const uint32_t modifiers : {+kControlKey, kControlKey | kAlt, kControlKey | kAlt, +kShift}) {
                    key(key::kF12, modifiers);
                }
            }
            Probe& probe = *probes[random() % probes.size()];
            switch (random() % 5) {
                case 0:
                    probe.setBounds({below(80) - 10, below(80) - 10, below(90), below(70)});
                    break;
                case 1:
                    probe.setVisible(!probe.visible());
                    break;
                case 2:
                    probe.setText(std::to_wstring(random() % 3));
                    break;
                case 3:
                    probe.setAnchors(random() % 16);
                    break;
                default:
                    probe.setText(probe.text());
                    probe.setBounds(probe.bounds());
            }
            const bool needed = tree->needsPaint();
            const std::vector<uint32_t> before = canvas.pixels;
            tree->paint(canvas.handle());
            EXPECT_EQ(before != canvas.pixels && !needed, false) << "painted although nothing had changed";
            painted += needed;
            EXPECT_FALSE(tree->needsPaint());
            Canvas whole(client);
            tree->repaintAll();
            tree->paint(whole.handle());
            ASSERT_EQ(canvas.pixels == whole.pixels, true) << "at " << dpi << " dpi, step " << step;
        }
    }
    EXPECT_GT(painted, 100U);
}

TEST_F(TaviWindow, OnlyWhatChangedIsAskedFor) {
    Probe* const small = add(L"small", {10, 10, 20, 10}, nullptr, true);
    Probe* const far = add(L"far", {300, 200, 20, 10}, nullptr, true);
    Canvas canvas({400, 300});
    tree->paint(canvas.handle());
    platform.scheduled.clear();
    small->setText(L"new");
    small->setText(L"newer");
    far->setText(L"new");
    const std::vector<Rect> both{{10, 10, 20, 10}, {300, 200, 20, 10}};
    const std::tuple<const char*, std::vector<Rect>, std::function<void()>> cases[] = {
        {"texts", both, [] {}},
        {"gets the focus", {both[0]}, [&] { tree->setFocus(small); }},
        {"takes the focus", both, [&] { tree->setFocus(far); }},
        {"keyboard gone", {both[1]}, [&] { tree->activated(false); }},
        {"hidden", {both[0]}, [&] { small->setVisible(false); }},
        {"nobody sees it", {}, [&] { small->setText(L"unseen"); }},
        {"background", {{0, 0, 400, 300}}, [&] { tree->setBackground(0x123456); }},
    };
    for (const auto& [name, asked, change] : cases) {
        change();
        EXPECT_EQ(std::exchange(platform.scheduled, {}), asked) << name;
        tree->paint(canvas.handle());
    }
}

TEST(TaviDirtyArea, CoversAllRequestsWithFewRectangles) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        DirtyArea dirty;
        std::vector<Rect> asked;
        for (int i = 0; i < 40; ++i) {
            asked.push_back({static_cast<int32_t>(random() % 500), static_cast<int32_t>(random() % 500),
                             static_cast<int32_t>(random() % 30), static_cast<int32_t>(random() % 30)});
            dirty.add(asked.back());
            ASSERT_LE(dirty.rects().size(), DirtyArea::kMostRects);
        }
        for (const Rect& rect : asked) {
            for (const Point corner : {Point{rect.x, rect.y}, Point{rect.right() - 1, rect.bottom() - 1}}) {
                EXPECT_TRUE(rect.empty() || std::ranges::any_of(dirty.rects(), [&](const Rect& each) {
                                return each.contains(corner);
                            }));
            }
        }
    }
    DirtyArea two;
    two.add({0, 0, 10, 10});
    two.add({500, 500, 10, 10});
    EXPECT_EQ(two.rects().size(), 2U) << "far apart they stay apart";
    EXPECT_FALSE(two.add({2, 2, 3, 3}));
}

TEST_F(TaviWindow, FocusFollowsTheTreeAndSkipsWhatCannotHaveIt) {
    Probe* const first = add(L"1", {0, 0, 10, 10}, nullptr, true);
    Probe* const group = add(L"group", {0, 20, 100, 100});
    Probe* const second = add(L"2", {0, 0, 10, 10}, group, true);
    Probe* const third = add(L"3", {0, 20, 10, 10}, group, true);
    add(L"4", {0, 150, 10, 10}, nullptr, true);
    const auto walk = [&](uint32_t modifiers) {
        std::wstring way;
        for (int i = 0; i < 5; ++i) {
            key(key::kTab, modifiers);
            way += focused();
        }
        return way;
    };
    EXPECT_EQ(walk(0), L"12341");
    EXPECT_EQ(walk(kShift), L"43214");
    second->setEnabled(false);
    EXPECT_EQ(walk(0), L"13413");
    group->setCollapsed(true);
    EXPECT_EQ(focused(), L"3");
    move({390, 290});  // with the next event the focus leaves what can no longer have it, onwards
    EXPECT_EQ(focused(), L"4");
    group->setCollapsed(false);
    EXPECT_TRUE(tree->setFocus(third));
    EXPECT_FALSE(tree->setFocus(second)) << "disabled";
    EXPECT_EQ(focused(), L"3");
    first->setVisible(false);
    tree->root().removeChild(*group);
    EXPECT_EQ(focused(), L"none");
    EXPECT_EQ(key(key::kTab, kControlKey), false);
    EXPECT_EQ(walk(0), L"44444");
}

TEST_F(TaviWindow, FocusIsToldWithTheWindowAndGoesWithAPress) {
    Probe* const one = add(L"one", {0, 0, 50, 50}, nullptr, true);
    Probe* const two = add(L"two", {100, 0, 50, 50}, nullptr, true);
    Probe* const inner = add(L"inner", {10, 10, 10, 10}, two);
    inner->takesInput = two->takesInput = true;
    press({115, 15});
    EXPECT_EQ(taken(), (Log{L"two focus", L"two enter", L"inner enter", L"inner press"}));
    release({115, 15});
    taken();
    tree->activated(false);
    one->takesInput = true;
    tree->setFocus(one);
    EXPECT_EQ(taken(), (Log{L"two blur"})) << "a window without the keyboard tells nobody of a new focus";
    EXPECT_EQ(platform.keyboards, 1);
    for (int i = 0; i < 2; ++i) {
        tree->activated(true);
    }
    EXPECT_EQ(taken(), (Log{L"one focus"})) << "once";
    one->caret = Rect{2, 3, 1, 10};
    tree->setClient({800, 600}, 192);
    one->setBounds({5, 5, 50, 50});
    EXPECT_EQ(tree->caretRectangle(), (Rect{14, 16, 2, 20}));
}

TEST_F(TaviWindow, KeysGoUpFromTheFocusAndThenToTheWindow) {
    Probe* const group = add(L"group", {0, 0, 100, 100});
    Probe* const field = add(L"field", {0, 0, 10, 10}, group, true);
    Probe* const ok = add(L"ok", {0, 150, 10, 10});
    Probe* const cancel = add(L"cancel", {20, 150, 10, 10});
    tree->setFocus(field);
    taken();
    EXPECT_FALSE(key('A'));
    tree->keyRelease({.code = 'A'});
    EXPECT_EQ(taken(), (Log{L"field key", L"group key", L"field key up", L"group key up"}));
    group->takesInput = true;
    EXPECT_TRUE(key(key::kReturn));
    EXPECT_EQ(taken(), (Log{L"field key", L"group key"})) << "whoever handles it keeps it from the window";
    group->takesInput = false;

    tree->focus().setDefault(ok);
    tree->focus().setCancel(cancel);
    ok->activates = cancel->activates = true;
    const auto lastOf = [&](uint32_t code) {
        key(code);
        const Log all = taken();
        return all.back();
    };
    EXPECT_EQ(lastOf(key::kReturn), L"ok activate");
    EXPECT_EQ(lastOf(key::kEscape), L"cancel activate");
    EXPECT_EQ(lastOf(key::kSpace), L"field activate");
    field->activates = true;
    EXPECT_EQ(lastOf(key::kReturn), L"field activate") << "what has the focus goes before the default";
    cancel->setEnabled(false);
    EXPECT_EQ(lastOf(key::kEscape), L"group key") << "a cancel control that is disabled: there is no way out now";
    EXPECT_EQ(platform.cancels, 0);
    tree->focus().setCancel(nullptr);
    EXPECT_TRUE(key(key::kEscape));
    EXPECT_EQ(platform.cancels, 1);
    for (const uint32_t code : {key::kReturn, key::kSpace, key::kEscape}) {
        taken();
        tree->keyPress({.code = code, .wasDown = true});
        EXPECT_EQ(taken(), (Log{L"field key", L"group key"})) << "a held key does not press again and again";
    }
    EXPECT_EQ(platform.cancels, 1);
    field->activates = false;
    const std::unique_ptr<Control> removed = tree->root().removeChild(*ok);
    EXPECT_EQ(lastOf(key::kReturn), L"field activate") << "the default has left";
    tree->textInput({L"x"});
    tree->compositionChanged({L"k", 1});
    tree->editCommand(EditCommand::Copy);
    EXPECT_EQ(taken(), (Log{L"field text x", L"field composition k", L"field edit"}));
    field->then = [&](const std::wstring&) { group->setEnabled(false); };
    key('A');
    EXPECT_EQ(taken(), (Log{L"field key", L"field blur"})) << "the next was disabled meanwhile";
}

TEST_F(TaviWindow, APressKeepsThePointerUntilTheLastButtonIsUp) {
    Probe* const group = add(L"group", {100, 100, 100, 100});
    Probe* const button = add(L"button", {10, 10, 20, 20}, group);
    Probe* const other = add(L"other", {0, 0, 50, 50});
    button->takesInput = other->takesInput = true;
    move({115, 115});
    press({115, 115});
    EXPECT_TRUE(platform.grabbed);
    EXPECT_EQ(tree->hovered(), button);
    taken();
    move({20, 20});
    EXPECT_EQ(taken(), (Log{L"button leave", L"group leave", L"button move"})) << "nothing else lights up meanwhile";
    EXPECT_EQ(button->at, (Point{-90, -90}));
    press({20, 20}, PointerButton::Right);
    release({20, 20});
    EXPECT_TRUE(platform.grabbed) << "the right button is still down";
    release({20, 20}, PointerButton::Right);
    EXPECT_FALSE(platform.grabbed);
    EXPECT_EQ(log.back(), L"other enter");

    press({115, 115});
    taken();
    tree->pointerLost();
    EXPECT_EQ(taken(), (Log{L"button cancelled"}));
    EXPECT_EQ(tree->pointerOwner(), nullptr);

    platform.grabbed = false;
    press({115, 115});
    EXPECT_TRUE(platform.grabbed) << "anew";
    taken();
    tree->capturePointer(*group);
    EXPECT_EQ(taken(), (Log{L"button cancelled"})) << "another one takes it";
    tree->capturePointer(*button);
    taken();
    const std::unique_ptr<Control> removed = group->removeChild(*button);
    EXPECT_EQ(taken(), (Log{L"button cancelled", L"button leave", L"button detached"}));
    tree->capturePointer(*button);
    EXPECT_EQ(tree->pointerOwner(), nullptr) << "it is out of the tree";
    release({115, 115});
    EXPECT_FALSE(platform.grabbed);
    // A press that ends in a handler, by a dialog that it opens, captures nothing.
    other->then = [&](const std::wstring& hook) {
        if (hook == L"press") {
            tree->pointerLost();
        }
    };
    press({20, 20});
    EXPECT_EQ(tree->pointerOwner(), nullptr);
    tree->pointerLeave();
    EXPECT_EQ(tree->hovered(), nullptr);
}

TEST_F(TaviWindow, CaptureEndsWithWhatHeldIt) {
    Probe* const button = add(L"button", {10, 10, 20, 20});
    button->takesInput = true;
    press({300, 200}, PointerButton::Right);
    held = 0;  // it went up outside of the window
    press({15, 15});
    release({15, 15});
    EXPECT_FALSE(platform.grabbed);
    press({15, 15});
    held = 0;
    taken();
    move({15, 15});
    EXPECT_EQ(taken(), (Log{L"button cancelled", L"button move"})) << "the release went elsewhere";
    for (const auto& end :
         {+[](Control& control) { control.setEnabled(false); }, +[](Control& control) { control.setVisible(false); }}) {
        button->setEnabled(true);
        button->setVisible(true);
        move({15, 15});
        press({15, 15});
        taken();
        end(*button);
        release({15, 15});
        EXPECT_EQ(taken().front(), L"button cancelled");
        EXPECT_FALSE(platform.grabbed);
    }
}

TEST_F(TaviWindow, HoverAndFocusFollowATreeThatChanges) {
    move({15, 15});
    Probe* const button = tree->root().add<Probe>(L"button", Rect{10, 10, 20, 20}, &log);
    button->takesFocus = true;
    tree->update();
    EXPECT_EQ(taken(), (Log{L"button attached", L"button enter"})) << "it came under the pointer";
    button->setEnabled(false);
    tree->update();
    button->setEnabled(true);
    tree->update();
    EXPECT_EQ(taken(), (Log{L"button leave", L"button enter"}));
    Probe* const cover = add(L"cover", {0, 0, 100, 100});
    const std::tuple<bool, bool, Probe*> covers[] = {
        {true, false, cover}, {true, true, button}, {false, false, button}, {true, false, cover}};
    for (const auto& [visible, transparent, under] : covers) {
        cover->setVisible(visible);
        cover->transparent = transparent;
        move({15, 15});
        EXPECT_EQ(tree->hovered(), under) << "the last painted that is seen";
    }
    Probe* const inner = cover->add<Probe>(L"inner", Rect{0, 0, 100, 100}, &log);
    tree->pointerLeave();
    cover->setEnabled(false);
    taken();
    move({15, 15});
    EXPECT_EQ(taken(), Log{}) << "in something disabled";
    cover->setEnabled(true);
    tree->pointerLeave();
    std::unique_ptr<Control> gone;
    taken();
    cover->then = [&](const std::wstring& hook) {
        if (hook == L"enter") {
            gone = cover->removeChild(*inner);
        }
    };
    move({15, 15});
    EXPECT_EQ(taken(), (Log{L"cover enter", L"inner detached", L"cover move", L"button move"}))
        << "it left before it was told";
    tree->root().removeChild(*cover);
    tree->update();

    // A field whose loss of the focus opens a message box: the window is deactivated and activated in its hook.
    Probe* const field = add(L"field", {50, 10, 20, 20}, nullptr, true);
    tree->setFocus(field);
    taken();
    field->then = [&](const std::wstring& hook) {
        if (hook == L"blur") {
            tree->activated(false);
            tree->activated(true);
        }
    };
    tree->setFocus(button);
    EXPECT_EQ(taken(), (Log{L"field blur", L"button focus"})) << "each is told once";
    button->then = [&](const std::wstring& hook) {
        if (hook == L"blur") {
            tree->setFocus(button);
        }
    };
    const std::unique_ptr<Control> removed = tree->root().removeChild(*button);
    tree->update();
    EXPECT_NE(tree->focused(), button) << "it is out of the tree";
}

TEST_F(TaviWindow, ATreeThatChangesWhileItIsPaintedIsPaintedAgain) {
    Canvas canvas({400, 300});
    Probe* const first = add(L"first", {0, 0, 50, 50});
    Probe* const late = add(L"late", {100, 0, 50, 50});
    Probe* const last = add(L"last", {200, 0, 50, 50});
    late->setVisible(false);
    tree->paint(canvas.handle());
    first->setPaintHook([&](HDC, const Rect&) { late->setVisible(true); });
    tree->repaintAll();
    tree->paint(canvas.handle());
    EXPECT_TRUE(tree->needsPaint());
    tree->paint(canvas.handle());
    EXPECT_FALSE(tree->needsPaint());
    Canvas whole({400, 300});
    tree->repaintAll();
    tree->paint(whole.handle());
    EXPECT_EQ(canvas.pixels == whole.pixels, true);
    // Hooks that take away what is being painted.
    last->setPaintHook([&](HDC, const Rect&) { last->setPaintHook({}); });
    late->setPaintHook([&](HDC, const Rect&) { tree->root().removeChild(*late); });
    first->setPaintHook([&](HDC, const Rect&) { tree->repaintAll(), tree->paint(canvas.handle()); });
    for (int i = 0; i < 3; ++i) {
        tree->repaintAll();
        tree->paint(canvas.handle());
        EXPECT_TRUE(canvas.clips.empty());
    }
}

TEST_F(TaviWindow, AWheelThatNobodyWantsIsOfferedOnceToEach) {
    Panel* parent = &tree->root();
    for (int depth = 0; depth < 24; ++depth) {
        parent = add(L"nested", {0, 0, 100, 100}, parent, true);
    }
    tree->setFocus(parent);
    taken();
    EXPECT_FALSE(tree->pointerWheel({.position = {5, 5}, .steps = 1}));
    EXPECT_EQ(taken().size(), 24U);
    EXPECT_FALSE(tree->pointerWheel({.position = {300, 5}, .steps = 1}));
    EXPECT_EQ(taken().size(), 24U) << "by the focus";
}

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
        const TooltipPlace place = placeTooltip(anchor, size, within, 4);
        EXPECT_EQ(place.bounds, expected);
        EXPECT_EQ(place.clamped(), clamped);
    }
    EXPECT_EQ(reportTooltipClamp(std::get<0>(cases[2]), {200, 40},
                                 placeTooltip(std::get<0>(cases[2]), {200, 40}, within, 4), within),
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

TEST_F(TaviWindow, TheClientAreaAndItsScale) {
    std::vector<int32_t> notified;
    tree->root().setTreeNotification([&](Control& root) { notified.push_back(root.window()->scale().dpi()); });
    Probe* const box = add(L"box", {100, 100, 50, 20}, nullptr, true);
    box->setAnchors(kAnchorRight | kAnchorBottom);
    tree->setFocus(box);
    tree->setClient({600, 450}, 144);
    EXPECT_EQ(tree->root().bounds(), (Rect{0, 0, 400, 300}));
    EXPECT_EQ(box->bounds(), (Rect{100, 100, 50, 20}));
    EXPECT_EQ(focused(), L"box");
    EXPECT_TRUE(std::ranges::contains(taken(), L"box caches"));
    tree->setClient({601, 450}, 144);
    tree->setClient({600, 450}, 144);
    EXPECT_EQ(notified, std::vector<int32_t>{144}) << "only with the scale";
    platform.scheduled.clear();
    Canvas canvas({600, 450});
    tree->paint(canvas.handle());
    box->setText(L"new");
    EXPECT_EQ(platform.scheduled, (std::vector<Rect>{{150, 150, 75, 30}}));
    move({150, 150});
    EXPECT_EQ(tree->hovered(), box) << "input comes in device pixels";
    taken();
    press({220, 175});
    release({220, 175});
    EXPECT_EQ(box->at, (Point{46, 16}));
    tree->setFocus(nullptr);
    tree->pointerWheel({.position = {220, 175}, .steps = 1});
    EXPECT_EQ(taken(), (Log{L"box press", L"box release", L"box blur", L"box wheel"}));
    move({150, 150});
    move({149, 150});
    EXPECT_EQ(tree->hovered(), &tree->root());
    tree->setDiagnostics(true);
    for (int i = 0; i < 2; ++i) {
        tree->writeDiagnostic(L"[Tavi layout warning] the same");
        tree->writeDiagnostic(L"[Tavi diagnostic] Panel::minimumContentSizeHint the same");
        tree->writeDiagnostic(L"[Tavi diagnostic] each time");
    }
    EXPECT_EQ(platform.lines.size(), 4U) << "warnings and hints are written once";
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
