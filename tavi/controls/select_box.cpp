#include "tavi/controls/select_box.h"

#include <utility>

namespace tavi {
class SelectBox::DropDown {};
SelectBox::SelectBox(std::wstring id, const Rect& bounds, std::vector<std::wstring> items)
    : Control(std::move(id), bounds), items_(std::move(items)) {}
SelectBox::~SelectBox() = default;
void SelectBox::setItems(std::vector<std::wstring> /*items*/) {}
void SelectBox::select(int32_t /*index*/) {}
bool SelectBox::isOpen() const {
    return false;
}
void SelectBox::open() {}
void SelectBox::close(bool /*dismissed*/) {}
bool SelectBox::matchesType(std::wstring_view type) const {
    return type == L"selectbox";
}
void SelectBox::automationValue(std::wstring& /*value*/) const {}
void SelectBox::paint(HDC /*target*/, Point /*origin*/) {}
void SelectBox::releaseCaches() {}
bool SelectBox::pointerPress(PointerEvent& /*event*/) {
    return false;
}
bool SelectBox::pointerWheel(WheelEvent& /*event*/) {
    return false;
}
bool SelectBox::keyPress(KeyEvent& /*event*/) {
    return false;
}
bool SelectBox::textInput(TextInputEvent& /*event*/) {
    return false;
}
bool SelectBox::activate() {
    return false;
}
void SelectBox::pointerEntered() {}
void SelectBox::pointerLeft() {}
void SelectBox::focusChanged(bool /*focused*/) {}
void SelectBox::windowChanged() {}
void SelectBox::appearanceChanged() {}
void SelectBox::appendCustomState(ControlState& /*state*/) const {}
void SelectBox::restoreCustomProperty(const StateProperty& /*property*/) {}

}  // namespace tavi
