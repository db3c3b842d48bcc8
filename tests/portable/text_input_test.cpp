// The text field in a window: what a person does, and what comes of it. Places are asked of the field's own caret, so
// that no font counts.
#include "tavi/controls/text_input.h"

#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

constexpr Rect kField{20, 10, 200, 32};

struct TextInputTest : TaviWindow {
    TextInput* field = nullptr;
    Probe* button = nullptr;
    std::vector<std::wstring> commits;
    bool refuses = false;

    void SetUp() override {
        TaviWindow::SetUp();
        field = tree->root().add<TextInput>(L"field", kField, L"one two");
        button = add(L"button", {20, 60, 80, 24}, nullptr, true);
        field->committed.connect([this](CommitEvent& event) {
            commits.push_back(event.text);
            event.consumed = refuses;
        });
        tree->setFocus(field);
    }
    void type(std::wstring_view text) {
        for (const wchar_t c : text) {
            tree->textInput({std::wstring(1, c)});
        }
    }
    void caretTo(size_t position) {
        key(key::kHome);
        for (size_t i = 0; i < position; ++i) {
            key(key::kRight);
        }
    }
    std::wstring selected() const { return field->editor().selectedText(); }
    // Where the caret would stand; moves it there.
    Point placeOf(size_t position) {
        caretTo(position);
        const Rect caret = field->caretRectangle().value_or(Rect{});
        return Point{caret.x, caret.y + caret.height / 2} + kField.position();
    }
    bool caretIsInView() const {
        const Rect caret = field->caretRectangle().value_or(Rect{});
        return Rect{12, 2, kField.width - 24, kField.height - 4}.contains(caret);
    }
    void tick() { tree->timeOut(WindowTimer::FirstOfControls); }
};

TEST_F(TextInputTest, KeysWriteMoveAndSelect) {
    struct Press {
        uint32_t code;
        uint32_t modifiers = 0;
    };
    const struct {
        std::vector<Press> keys;
        std::wstring text;
        std::wstring selection;
        size_t caret;
    } rows[] = {
        {{}, L"one two", L"one two", 7},  // the focus came as by Tab
        {{{key::kLeft}}, L"one two", L"", 0},
        {{{key::kRight}}, L"one two", L"", 7},
        {{{key::kHome}, {key::kRight, kShift}, {key::kRight, kShift}}, L"one two", L"on", 2},
        {{{key::kHome}, {key::kEnd, kShift}, {key::kLeft, kShift}}, L"one two", L"one tw", 6},
        {{{key::kEnd}, {key::kBackspace}}, L"one tw", L"", 6},
        {{{key::kEnd}, {key::kBackspace, kShift}}, L"one tw", L"", 6},
        {{{key::kHome}, {key::kDelete}}, L"ne two", L"", 0},
        {{{key::kBackspace}, {'Z', kControlKey}}, L"one two", L"one two", 7},
        {{{key::kBackspace}, {key::kBackspace, kAlt}}, L"one two", L"one two", 7},
        {{{key::kDelete}, {'Z', kControlKey}, {'Y', kControlKey}}, L"", L"", 0},
        {{{key::kDelete}, {'Z', kControlKey}, {'Z', kControlKey | kShift}}, L"", L"", 0},
        {{{key::kHome}, {'A', kControlKey}}, L"one two", L"one two", 7},
        {{{'X', kControlKey}, {'V', kControlKey}, {'V', kControlKey}}, L"one twoone two", L"", 14},
        {{{key::kInsert, kControlKey}, {key::kEnd}, {key::kInsert, kShift}}, L"one twoone two", L"", 14},
        {{{key::kDelete, kShift}, {'V', kControlKey | kAlt}}, L"", L"", 0},
    };
    for (size_t i = 0; i < std::size(rows); ++i) {
        field->setText(L"");
        field->setText(L"one two");
        field->selectAll();
        for (const auto& [code, modifiers] : rows[i].keys) {
            key(code, modifiers);
        }
        EXPECT_EQ(field->text(), rows[i].text) << i;
        EXPECT_EQ(selected(), rows[i].selection) << i;
        EXPECT_EQ(field->editor().caret(), rows[i].caret) << i;
    }
    for (const uint32_t code : {key::kTab, key::kEscape, key::kSpace, uint32_t{'V'}}) {
        KeyEvent event{.code = code, .modifiers = code == 'V' ? kControlKey | kAlt : 0U};
        EXPECT_FALSE(field->keyPress(event)) << code << " is the window's, or a character";
    }
    field->selectAll();
    type(L"n\r\t\bew");
    EXPECT_EQ(field->text(), L"new");
}

TEST_F(TextInputTest, ThePointerSelects) {
    const Point first = placeOf(1);
    const Point third = placeOf(3);
    const Point sixth = placeOf(6);
    press(first);
    release(first);
    EXPECT_EQ(selected(), L"");
    EXPECT_EQ(field->editor().caret(), 1U);
    press(third);
    move(first);
    EXPECT_EQ(selected(), L"ne");
    EXPECT_EQ(field->editor().caret(), 1U);
    release(first);
    move(sixth);
    EXPECT_EQ(selected(), L"ne") << "the button is up";
    tree->pointerPress({.position = sixth, .button = PointerButton::Left, .held = 2, .modifiers = kShift});
    tree->pointerRelease({.position = sixth, .button = PointerButton::Left});
    EXPECT_EQ(selected(), L" tw") << "from the selection's other end";
    // A double click within the last letter of a word means this word; a drag from it goes by words.
    const Point inside = third - Point{2, 0};
    const auto press2 = [&](int32_t clicks, Point at) {
        tree->pointerPress({.position = at, .button = PointerButton::Left, .held = 2, .clicks = clicks});
    };
    press2(2, inside);
    EXPECT_EQ(selected(), L"one");
    tree->pointerMove({.position = sixth, .held = 2});
    EXPECT_EQ(selected(), L"one two");
    tree->pointerRelease({.position = sixth, .button = PointerButton::Left});
    press2(2, sixth);
    tree->pointerMove({.position = first, .held = 2});
    EXPECT_EQ(selected(), L"one two");
    EXPECT_EQ(field->editor().caret(), 0U);
    tree->pointerRelease({.position = first, .button = PointerButton::Left});
    press2(2, first);
    tree->pointerRelease({.position = first, .button = PointerButton::Left});
    press2(1, first + Point{1, 1});
    tree->pointerRelease({.position = first, .button = PointerButton::Left});
    EXPECT_EQ(selected(), L"one two") << "the third press";
    press2(1, first);
    EXPECT_EQ(selected(), L"") << "a fourth begins anew";
    tree->pointerLost();
    move(sixth);
    EXPECT_EQ(selected(), L"");
    caretTo(2);
    key(key::kEnd, kShift);
    press(sixth, PointerButton::Right);
    release(sixth, PointerButton::Right);
    EXPECT_EQ(selected(), L"e two") << "the menu is about it";
    press(first, PointerButton::Right);
    EXPECT_EQ(field->editor().caret(), 1U);
    EXPECT_EQ(tree->cursorShape(), CursorShape::Text);
}

TEST_F(TextInputTest, TheFocusSelectsByTabOnly) {
    tree->setFocus(button);
    EXPECT_EQ(selected(), L"one two") << "it stays, weaker";
    const Point place = kField.position() + Point{14, 16};
    press(place);
    release(place);
    EXPECT_EQ(selected(), L"");
    key(key::kEnd);
    key(key::kLeft, kShift);
    tree->activated(false);
    tree->activated(true);
    EXPECT_EQ(selected(), L"o") << "the window was away for a while";
    key(key::kTab);
    key(key::kTab);
    EXPECT_EQ(selected(), L"one two");
}

TEST_F(TextInputTest, WhatIsReadOnlyCanOnlyBeRead) {
    field->setReadOnly(true);
    type(L"x");
    for (const auto& [code, modifiers] : std::vector<std::pair<uint32_t, uint32_t>>{
             {key::kDelete, 0}, {key::kBackspace, 0}, {'X', kControlKey}, {'V', kControlKey}, {'Z', kControlKey}}) {
        key(code, modifiers);
    }
    EXPECT_FALSE(tree->editCommand(EditCommand::Clear));
    EXPECT_FALSE(tree->compositionChanged({L"x", 1}));
    EXPECT_EQ(field->text(), L"one two");
    platform.clipboard.clear();
    key('C', kControlKey);
    EXPECT_EQ(platform.clipboard, L"one two");
    ControlState state;
    field->captureState(state);
    field->setReadOnly(false);
    field->restoreState(state, false);
    EXPECT_TRUE(field->readOnly());
}

TEST_F(TextInputTest, WindowsCommandsAndTheClipboard) {
    EXPECT_TRUE(tree->editCommand(EditCommand::Cut));
    EXPECT_EQ(platform.clipboard, L"one two");
    EXPECT_FALSE(tree->editCommand(EditCommand::Cut)) << "nothing is selected";
    EXPECT_EQ(platform.clipboard, L"one two");
    platform.clipboard = L"C:\\a\r\n";
    type(L">");
    EXPECT_TRUE(tree->editCommand(EditCommand::Paste));
    EXPECT_EQ(field->text(), L">C:\\a");
    EXPECT_TRUE(tree->editCommand(EditCommand::Undo));
    EXPECT_EQ(field->text(), L">") << "a paste is a step of its own";
    key('A', kControlKey);
    EXPECT_TRUE(tree->editCommand(EditCommand::Clear));
    EXPECT_EQ(field->text(), L"");
}

TEST_F(TextInputTest, CommitsOnceAndTakesBackWhatIsRefused) {
    button->activates = true;
    tree->focus().setDefault(button);
    std::vector<std::wstring> edits;
    field->edited.connect([&](CommandEvent&) { edits.push_back(field->text()); });
    key(key::kReturn);
    EXPECT_EQ(std::exchange(commits, {}), (Log{})) << "nothing has changed";
    type(L"ab");
    EXPECT_EQ(edits, (Log{L"a", L"ab"}));
    taken();
    key(key::kReturn);
    EXPECT_EQ(std::exchange(commits, {}), (Log{L"ab"}));
    EXPECT_EQ(taken(), (Log{L"button activate"})) << "the default button follows";
    tree->setFocus(button);
    EXPECT_EQ(commits, (Log{})) << "it is committed already";
    tree->setFocus(field);
    type(L"c");
    tree->activated(false);
    EXPECT_EQ(commits, (Log{})) << "the window will be back";
    tree->activated(true);
    tree->setFocus(button);
    EXPECT_EQ(std::exchange(commits, {}), (Log{L"c"}));
    refuses = true;
    tree->setFocus(field);
    type(L"bad");
    taken();
    key(key::kReturn);
    EXPECT_EQ(std::exchange(commits, {}), (Log{L"bad"}));
    EXPECT_EQ(field->text(), L"c");
    EXPECT_EQ(taken(), (Log{})) << "what was refused does not press the button";
    field->setText(L"from the program");
    tree->setFocus(button);
    EXPECT_EQ(commits, (Log{}));
}

TEST_F(TextInputTest, HandlersMayDestroyTheField) {
    for (const bool onCommit : {false, true}) {
        auto* const victim = tree->root().add<TextInput>(L"victim", kField);
        const auto destroy = [&](auto&) { tree->root().removeChild(*victim); };
        if (onCommit) {
            victim->committed.connect(destroy);
        } else {
            victim->edited.connect(destroy);
        }
        tree->setFocus(victim);
        type(L"x");
        key(key::kReturn);
        EXPECT_EQ(tree->root().findById(L"victim"), nullptr);
    }
}

TEST_F(TextInputTest, ShowsWhatIsBeingComposed) {
    caretTo(3);
    const Rect before = field->caretRectangle().value_or(Rect{});
    EXPECT_TRUE(tree->compositionChanged({L"xyz", 2}));
    const Rect inside = field->caretRectangle().value_or(Rect{});
    EXPECT_GT(inside.x, before.x);
    EXPECT_EQ(field->text(), L"one two");
    EXPECT_FALSE(key(key::kDelete)) << "keys are the input method's";
    EXPECT_TRUE(tree->compositionChanged({L"xyz", 99}));
    EXPECT_GT(field->caretRectangle().value_or(Rect{}).x, inside.x);
    tree->compositionChanged({});
    EXPECT_EQ(field->caretRectangle(), before);
    key(key::kEnd, kShift);
    tree->compositionChanged({L"x", 1});
    EXPECT_EQ(selected(), L" two");
    tree->compositionChanged({});
    type(L"x");
    EXPECT_EQ(field->text(), L"onex") << "committed in the selection's place";
    tree->compositionChanged({L"y", 1});
    tree->setFocus(button);
    tree->setFocus(field);
    EXPECT_TRUE(key(key::kEnd)) << "it ended with the focus";
}

TEST_F(TextInputTest, ScrollsAfterTheCaret) {
    key(key::kDelete);
    for (int i = 0; i < 60; ++i) {
        type(L"m");
        ASSERT_TRUE(caretIsInView()) << i;
    }
    const Rect atEnd = field->caretRectangle().value_or(Rect{});
    EXPECT_GE(atEnd.x, kField.width - 12 - 2) << "at the edge of its room";
    for (int i = 0; i < 60; ++i) {
        key(key::kLeft);
        ASSERT_TRUE(caretIsInView()) << i;
    }
    EXPECT_EQ(field->caretRectangle().value_or(Rect{}).x, 12);
    key(key::kEnd);
    for (int i = 0; i < 40; ++i) {
        key(key::kBackspace);
        const Rect caret = field->caretRectangle().value_or(Rect{});
        ASSERT_TRUE(caret.x >= atEnd.x || field->editor().text().size() < 40) << "no empty room is left at the end";
    }
    key('A', kControlKey);
    type(L"short");
    caretTo(0);
    EXPECT_EQ(field->caretRectangle().value_or(Rect{}).x, 12);

    field->setText(std::wstring(200, L'm'));
    press(kField.position() + Point{100, 16});
    const size_t began = field->editor().anchor();
    move(kField.position() + Point{kField.width + 10, 16});
    const size_t reached = field->editor().caret();
    tick();
    const size_t further = field->editor().caret();
    EXPECT_GT(reached, began);
    EXPECT_GT(further, reached) << "the pointer rests beside the field";
    EXPECT_EQ(field->editor().anchor(), began);
    release(kField.position() + Point{kField.width + 10, 16});
    tick();
    EXPECT_EQ(field->editor().caret(), further);
}

TEST_F(TextInputTest, TheCaretBlinksInItsColumnAlone) {
    Canvas canvas{{400, 300}};
    const auto settle = [&] {
        tree->update();
        tree->paint(canvas.handle());
        platform.scheduled.clear();
    };
    caretTo(7);
    settle();
    EXPECT_EQ(platform.controlTimers[WindowTimer::FirstOfControls], 530);
    const auto before = canvas.pixels;
    tick();
    const Rect column = field->caretRectangle().value_or(Rect{}).offset(kField.position());
    EXPECT_EQ(platform.scheduled, (std::vector<Rect>{column}));
    settle();
    EXPECT_NE(canvas.pixels == before, true);
    tick();
    settle();
    EXPECT_EQ(canvas.pixels == before, true);
    tick();
    type(L"x");
    settle();
    const auto solid = canvas.pixels;
    key(key::kEnd);
    key(key::kLeft);
    caretTo(8);
    settle();
    EXPECT_EQ(canvas.pixels == solid, true) << "solid while something goes on";
    tree->setFocus(button);
    EXPECT_EQ(platform.controlTimers[WindowTimer::FirstOfControls], 0);
}

TEST_F(TextInputTest, RunsFromRightToLeftWithItsWindow) {
    tree->setRightToLeft(true);
    caretTo(0);
    EXPECT_EQ(field->caretRectangle().value_or(Rect{}).x, 12) << "a path stays as it is";
    field->setText(L"\u05D0\u05D1\u05D2");
    field->selectAll();
    key(key::kHome);
    const int32_t start = field->caretRectangle().value_or(Rect{}).x;
    EXPECT_GE(start, kField.width - 12 - 2);
    key(key::kLeft);
    EXPECT_EQ(field->editor().caret(), 1U);
    EXPECT_LT(field->caretRectangle().value_or(Rect{}).x, start);
    key(key::kLeft, kControlKey);
    EXPECT_EQ(field->editor().caret(), 3U);
    field->selectAll();
    key(key::kLeft);
    EXPECT_EQ(field->editor().caret(), 3U) << "the left edge is the end";
    field->setText(L"");
    EXPECT_GE(field->caretRectangle().value_or(Rect{}).x, kField.width - 12 - 2);
}

}  // namespace
