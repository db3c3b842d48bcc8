#include "tavi/controls/check_box.h"

#include <utility>

#include "tavi/controls/glyphs.h"

namespace tavi {
namespace {

// Design pixels.
constexpr int32_t kBox = 18;
constexpr int32_t kGap = 8;
constexpr int32_t kBeforeCaption = kSurfaceInset + kBox + kGap;
constexpr int32_t kLeastHeight = kBox + 2 * kSurfaceInset;

constexpr std::wstring_view kChecked = L"checked";

}  // namespace

CheckBox::CheckBox(std::wstring id, const Rect& bounds, std::wstring caption, bool checked)
    : Pressable(std::move(id), bounds), checked_(checked) {
    setText(std::move(caption));
}

void CheckBox::setChecked(bool checked) {
    if (checked_ == checked) {
        return;
    }
    checked_ = checked;
    requestRepaint();
    ValueChangedEvent event{.source = this, .oldValue = checked ? 0.0 : 1.0, .newValue = checked ? 1.0 : 0.0};
    changed.emit(event);
}

Size CheckBox::preferredSize() const {
    const Size caption = ControlText::needed(*this, text(), looks_.font(*this));
    return larger({caption.width + kBeforeCaption, caption.height}, {0, kLeastHeight});
}

void CheckBox::automationValue(std::wstring& value) const {
    value = text();
    value.append(text().empty() ? L"" : L", ").append(checked_ ? L"checked" : L"not checked");
}

// One that is ticked keeps the look of it under the pointer: it must not seem to lose its tick.
SurfaceState CheckBox::boxState(const Interaction& now) const {
    return checked_ && now.enabled && !now.pressed ? SurfaceState::kChecked : stateOf(now);
}

void CheckBox::paint(HDC target, Point origin) {
    const Interaction now = interaction();
    const SurfaceState state = boxState(now);
    const Scale& scale = window()->scale();
    const Rect all = deviceRect(localBounds(), origin);
    const bool rightToLeft = window()->rightToLeft();
    const int32_t extent = scale.length(kBox);
    const int32_t inset = scale.length(kSurfaceInset);
    const Rect box{rightToLeft ? all.right() - inset - extent : all.x + inset, all.y + (all.height - extent) / 2,
                   extent, extent};
    looks_.paintArea(target, *this, origin, box, state, L"surface", now.focused);
    const Color text = looks_.look(*this, stateOf(now)).text;
    if (checked_) {
        // The color of the mark is made for the look of a ticked box; on the others a tick is as readable as a text.
        const bool marked = state == SurfaceState::kChecked;
        drawGlyph(target, box, Glyph::kTick, marked ? looks_.look(*this, state, L"mark").surface.fill : text);
    }
    const int32_t before = scale.length(kBeforeCaption);
    const Rect room = rectBetween(rightToLeft ? all.x : all.x + before, all.y,
                                  rightToLeft ? all.right() - before : all.right(), all.bottom());
    caption_.fitted(*this, this->text(), looks_.font(*this), TextFit::kWrap, room.size()).draw(target, room, text);
}

void CheckBox::releaseCaches() {
    looks_.forget();
    caption_.forget();
}

void CheckBox::appendCustomState(ControlState& state) const {
    state.properties.push_back({std::wstring(kChecked), checked_ ? L"1" : L"0"});
}

void CheckBox::restoreCustomProperty(const StateProperty& property) {
    if (property.name == kChecked) {
        setChecked(property.value == L"1");
    }
}

}  // namespace tavi
