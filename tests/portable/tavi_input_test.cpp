// Where the focus, the keys and the pointer go.
#include <format>

#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

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

TEST_F(TaviWindow, FocusFollowsAnOrderAmongSiblings) {
    Probe* const ground = add(L"ground", {0, 0, 300, 200});
    add(L"3", {0, 0, 10, 10}, ground, true);
    add(L"4", {0, 20, 10, 10}, ground, true);
    add(L"1", {20, 0, 10, 10}, nullptr, true);
    add(L"2", {20, 20, 10, 10}, nullptr, true);
    Probe* const first = add(L"0", {40, 0, 10, 10}, nullptr, true);
    ground->setFocusOrder(1);
    first->setFocusOrder(-1);
    std::wstring way;
    for (int i = 0; i < 6; ++i) {
        key(key::kTab);
        way += focused();
    }
    EXPECT_EQ(way, L"012340");
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

}  // namespace
