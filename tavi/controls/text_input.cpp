#include "tavi/controls/text_input.h"

#include <algorithm>
#include <utility>

namespace tavi {
namespace {

constexpr int32_t kBlinkMilliseconds = 530;
constexpr wchar_t kReadOnlyProperty[] = L"readOnly";

}  // namespace

TextInput::TextInput(std::wstring id, const Rect& bounds, std::wstring text) : Control(std::move(id), bounds) {
    setCursor(CursorShape::Text);
    editor_.setText(text);
    settled_ = text;
    setText(std::move(text));
}

bool TextInput::matchesType(std::wstring_view type) const {
    return type == L"textinput";
}

void TextInput::setReadOnly(bool readOnly) {
    if (readOnly_ != readOnly) {
        readOnly_ = readOnly;
        composition_ = {};
        editor_.endTyping();
        caretMoved();
    }
}

void TextInput::setPlaceholder(std::wstring text) {
    if (placeholder_ != text) {
        placeholder_ = std::move(text);
        placeholderLine_ = {};
        requestRepaint();
    }
}

void TextInput::selectAll() {
    editor_.selectAll();
    caretMoved();
}

// What the person writes is in the editor before it is in text(); anything else comes from the program.
void TextInput::textChanged() {
    if (editor_.text() != text()) {
        editor_.setText(text());
        settled_ = text();
        composition_ = {};
        caretMoved();
    }
}

void TextInput::appearanceChanged() {
    placeholderLine_ = {};
    followCaret();
    requestRepaint();
}

void TextInput::releaseCaches() {
    looks_.forget();
    lineText_.clear();
    line_ = {};
    placeholderLine_ = {};
    followCaret();
}

void TextInput::setHot(bool hot) {
    if (hot_ != hot) {
        hot_ = hot;
        requestRepaint();
    }
}

void TextInput::caretMoved() {
    followCaret();
    showCaret();
    requestRepaint();
}

// Behind every change that the person made. A handler may destroy the field.
void TextInput::changed() {
    caretMoved();
    if (editor_.text() != text()) {
        setText(editor_.text());
        CommandEvent event{.source = this, .command = id()};
        edited.emit(event);
    }
}

// True when the text stands; false when it was refused, and when the field is gone.
bool TextInput::commit() {
    if (text() == settled_) {
        return true;
    }
    const WeakControl self(*this);
    CommitEvent event{.source = this, .text = text()};
    // Before the handlers: one that moves the focus does not commit the same text again.
    const std::wstring before = std::exchange(settled_, text());
    const std::wstring offered = text();
    committed.emit(event);
    if (!self) {
        return false;
    }
    if (event.consumed && text() == offered) {
        setText(before);
    }
    return !event.consumed;
}

// Solid at first, and for as long as something goes on.
void TextInput::showCaret() {
    caretOn_ = true;
    if (window() != nullptr && focused_ && !dragging_) {
        window()->setControlTimer(*this, kBlinkMilliseconds, [this] { blink(); });
    }
}

void TextInput::blink() {
    caretOn_ = !caretOn_;
    const std::optional<Rect> caret = caretRectangle();
    if (caret && shown()) {
        const Rect column = intersection(*caret, localBounds());
        window()->repaint(column.offset(clientOrigin()), kRepaintAppearance);
    }
}

void TextInput::focusChanged(bool focused) {
    focused_ = focused;
    editor_.endTyping();
    if (focused) {
        // A press that brings the focus sets the caret right afterwards.
        if (!std::exchange(paused_, false)) {
            editor_.selectAll();
        }
        caretMoved();
        return;
    }
    composition_ = {};
    followCaret();
    requestRepaint();
    paused_ = window() != nullptr && window()->focused() == this;
    if (window() != nullptr) {
        window()->setControlTimer(*this, 0);
    }
    if (!paused_) {
        commit();
    }
}

bool TextInput::textInput(TextInputEvent& event) {
    // The characters of Backspace, Tab and Return are none to write.
    if (!editable() || event.text.empty() || event.text.front() < L' ') {
        return false;
    }
    editor_.insert(event.text);
    changed();
    return true;
}

bool TextInput::compositionChanged(CompositionEvent& event) {
    if (!editable()) {
        return false;
    }
    if (composing() || !event.text.empty()) {
        composition_ = event;
        editor_.endTyping();
        caretMoved();
    }
    return true;
}

void TextInput::appendCustomState(ControlState& state) const {
    state.properties.push_back({kReadOnlyProperty, readOnly_ ? L"1" : L"0"});
}

void TextInput::restoreCustomProperty(const StateProperty& property) {
    if (property.name == kReadOnlyProperty) {
        setReadOnly(property.value == L"1");
    }
}

}  // namespace tavi
