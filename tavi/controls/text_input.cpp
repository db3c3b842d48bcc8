#include "tavi/controls/text_input.h"

#include <utility>

namespace tavi {
void TextInput::setReadOnly(bool /*readOnly*/) {}
void TextInput::setPlaceholder(std::wstring /*text*/) {}
void TextInput::selectAll() {}
bool TextInput::matchesType(std::wstring_view type) const {
    return type == L"textinput";
}
std::optional<Rect> TextInput::caretRectangle() const {
    return {};
}
void TextInput::paint(HDC /*target*/, Point /*origin*/) {}
void TextInput::releaseCaches() {}
bool TextInput::pointerMove(PointerEvent& /*event*/) {
    return false;
}
bool TextInput::pointerPress(PointerEvent& /*event*/) {
    return false;
}
bool TextInput::pointerRelease(PointerEvent& /*event*/) {
    return false;
}
bool TextInput::keyPress(KeyEvent& /*event*/) {
    return false;
}
bool TextInput::textInput(TextInputEvent& /*event*/) {
    return false;
}
bool TextInput::compositionChanged(CompositionEvent& /*event*/) {
    return false;
}
bool TextInput::editCommand(EditCommand /*command*/) {
    return false;
}
void TextInput::inputCancelled() {}
void TextInput::pointerEntered() {}
void TextInput::pointerLeft() {}
void TextInput::focusChanged(bool /*focused*/) {}
void TextInput::textChanged() {}
void TextInput::boundsChanged() {}
void TextInput::appearanceChanged() {}
void TextInput::appendCustomState(ControlState& /*state*/) const {}
void TextInput::restoreCustomProperty(const StateProperty& /*property*/) {}

}  // namespace tavi
