#include "tavi/controls/check_box.h"

#include <utility>

namespace tavi {
CheckBox::CheckBox(std::wstring id, const Rect& bounds, std::wstring caption, bool checked)
    : Control(std::move(id), bounds), checked_(checked) {
    setText(std::move(caption));
}
void CheckBox::setChecked(bool /*checked*/) {}
Size CheckBox::preferredSize() const {
    return {};
}
bool CheckBox::matchesType(std::wstring_view type) const {
    return type == L"checkbox";
}
void CheckBox::automationValue(std::wstring& /*value*/) const {}
void CheckBox::paint(HDC /*target*/, Point /*origin*/) {}
void CheckBox::releaseCaches() {}
bool CheckBox::pointerMove(PointerEvent& /*event*/) {
    return false;
}
bool CheckBox::pointerPress(PointerEvent& /*event*/) {
    return false;
}
bool CheckBox::pointerRelease(PointerEvent& /*event*/) {
    return false;
}
bool CheckBox::keyPress(KeyEvent& /*event*/) {
    return false;
}
bool CheckBox::keyRelease(KeyEvent& /*event*/) {
    return false;
}
bool CheckBox::activate() {
    return false;
}
void CheckBox::inputCancelled() {}
void CheckBox::pointerEntered() {}
void CheckBox::pointerLeft() {}
void CheckBox::focusChanged(bool /*focused*/) {}
void CheckBox::textChanged() {}
void CheckBox::appearanceChanged() {}
void CheckBox::appendCustomState(ControlState& /*state*/) const {}
void CheckBox::restoreCustomProperty(const StateProperty& /*property*/) {}
void CheckBox::setDown(bool /*down*/) {}
const TextLayout& CheckBox::layoutFor(int32_t /*deviceWidth*/) const {
    static const std::remove_cvref_t<const TextLayout&> kNone;
    return kNone;
}

}  // namespace tavi
