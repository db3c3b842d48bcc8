#include "tavi/controls/pressable.h"

namespace tavi {

Interaction Pressable::interaction() const {
    // Pulled off it with the button held, it looks as it will stay: unpressed.
    return {.enabled = usable(),
            .pressed = hold_ == Hold::kKey || (hold_ == Hold::kPointer && hot_),
            .hot = hot_,
            .focused = focused_};
}

void Pressable::change(Hold hold, bool hot, bool focused) {
    if (hold_ != hold || hot_ != hot || focused_ != focused) {
        hold_ = hold;
        hot_ = hot;
        focused_ = focused;
        requestRepaint();
    }
}

bool Pressable::pointerPress(PointerEvent& event) {
    if (event.button == PointerButton::Left && enabled()) {
        change(Hold::kPointer, hot_, focused_);
    }
    return hold_ == Hold::kPointer;
}

bool Pressable::pointerRelease(PointerEvent& event) {
    if (event.button != PointerButton::Left || hold_ != Hold::kPointer) {
        return false;
    }
    change(Hold::kNone, hot_, focused_);
    if (hitTest(event.position)) {
        act();
    }
    return true;
}

bool Pressable::keyPress(KeyEvent& event) {
    if (event.code == key::kEscape && hold_ == Hold::kKey) {
        change(Hold::kNone, hot_, focused_);
        return true;
    }
    if (event.code != key::kSpace || (event.modifiers & (kControlKey | kAlt)) != 0 || !enabled()) {
        return false;
    }
    // A repeat is of a Space that began here, or of one that began elsewhere and means nothing.
    if (!event.wasDown && hold_ == Hold::kNone) {
        change(Hold::kKey, hot_, focused_);
    }
    return true;
}

bool Pressable::keyRelease(KeyEvent& event) {
    if (event.code != key::kSpace || hold_ != Hold::kKey) {
        return false;
    }
    change(Hold::kNone, hot_, focused_);
    act();
    return true;
}

bool Pressable::activate() {
    if (!enabled()) {
        return false;
    }
    act();
    return true;
}

}  // namespace tavi
