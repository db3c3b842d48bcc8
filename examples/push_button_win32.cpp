#include <windows.h>

#include "examples/drawing.h"
#include "examples/push_button.h"
#include "tavi/core/drawing.h"

namespace example {

PushButton::PushButton(std::wstring id, const tavi::Rect& bounds, std::wstring caption)
    : Control(std::move(id), bounds) {
    setText(std::move(caption));
    setMinimumSize(bounds.width, bounds.height);
}

void PushButton::paint(HDC target, tavi::Point origin) {
    const bool hot = window()->hovered() == this;
    const Color fill = !enabled() ? kPanel : down_ ? kAccentDark : hot ? kAccentLight : kAccent;
    const tavi::Rect area = deviceRect(localBounds(), origin);
    tavi::fillRect(target, area, fill);
    if (focused_) {
        tavi::frameRect(target, deviceRect({3, 3, bounds().width - 6, bounds().height - 6}, origin), kText);
    }
    drawText(target, area, window()->scale(), text(), enabled() ? kText : kMuted, Align::Center);
}

void PushButton::setDown(bool down) {
    if (down_ != down) {
        down_ = down;
        requestRepaint();
    }
}

bool PushButton::pointerPress(tavi::PointerEvent& event) {
    setDown(event.button == tavi::PointerButton::Left);
    return down_;
}

bool PushButton::pointerRelease(tavi::PointerEvent& event) {
    const bool wasDown = down_;
    setDown(false);
    return wasDown && localBounds().contains(event.position) && activate();
}

bool PushButton::activate() {
    tavi::CommandEvent event{.source = this, .command = id()};
    // A callback may destroy this button: nothing of it is touched afterwards.
    pressed.emit(event);
    return true;
}

}  // namespace example
