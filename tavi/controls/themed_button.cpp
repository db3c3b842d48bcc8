#include "tavi/controls/themed_button.h"

#include <utility>

namespace tavi {
ThemedButton::ThemedButton(std::wstring id, const Rect& bounds, std::wstring caption) : Control(std::move(id), bounds) {
    setText(std::move(caption));
}
void ThemedButton::setGlyph(Glyph /*glyph*/) {}
void ThemedButton::setLook(std::wstring_view /*type*/, std::wstring_view /*part*/) {}
Size ThemedButton::preferredSize() const {
    return {};
}
bool ThemedButton::matchesType(std::wstring_view type) const {
    return type == L"button";
}
void ThemedButton::paint(HDC /*target*/, Point /*origin*/) {}
void ThemedButton::releaseCaches() {}
bool ThemedButton::pointerMove(PointerEvent& /*event*/) {
    return false;
}
bool ThemedButton::pointerPress(PointerEvent& /*event*/) {
    return false;
}
bool ThemedButton::pointerRelease(PointerEvent& /*event*/) {
    return false;
}
bool ThemedButton::keyPress(KeyEvent& /*event*/) {
    return false;
}
bool ThemedButton::keyRelease(KeyEvent& /*event*/) {
    return false;
}
bool ThemedButton::activate() {
    return false;
}
void ThemedButton::inputCancelled() {}
void ThemedButton::pointerEntered() {}
void ThemedButton::pointerLeft() {}
void ThemedButton::focusChanged(bool /*focused*/) {}
void ThemedButton::textChanged() {}
void ThemedButton::appearanceChanged() {}
void ThemedButton::setDown(bool /*down*/) {}
const TextLayout& ThemedButton::layoutFor(int32_t /*deviceWidth*/) const {
    static const std::remove_cvref_t<const TextLayout&> kNone;
    return kNone;
}

}  // namespace tavi
