// A window that stands beside a part of another one and never takes the activation or the focus from it: a list that
// drops down, a menu. WindowFrame::openPopup makes it. The keyboard stays with the owner.
#pragma once

#include <functional>
#include <memory>

#include "tavi/core/control.h"

namespace tavi {

// Beside its anchor: below it, above where only there is room, aligned with the anchor's left edge (the right one where
// texts run from right to left). Never beyond the work area: what is higher than either side's room is moved over its
// anchor, or `shrinks` to the larger of both. All in device pixels of the screen.
Rect placePopup(const Rect& anchor, Size size, const Rect& workArea, bool rightToLeft, bool shrinks);

struct PopupRequest {
    Rect anchor;  // device pixels of the screen
    bool rightToLeft = false;
    bool shrinks = false;
    // Keys that the owner gets go to the content; else they stay with the owner's focused control.
    bool takesKeys = false;
    // Fills the pop-up window, which owns it.
    std::unique_ptr<Control> content;
    // How large the content wants to be, design pixels. Asked when it is in its window and knows its scale.
    std::function<Size()> measure;
    // A press outside of it, Escape (where it takes the keys), or its owner was moved, disabled, deactivated or
    // destroyed. Called once; may destroy the pop-up window.
    std::function<void()> dismissed;
};

class PopupWindow {
public:
    PopupWindow() = default;
    PopupWindow(const PopupWindow&) = delete;
    PopupWindow& operator=(const PopupWindow&) = delete;
    // Closes it and destroys its content; `dismissed` is not called.
    virtual ~PopupWindow() = default;

    // Handles the thread's messages until `done` says so. A WM_QUIT that comes meanwhile ends it, too, and is passed on
    // to the outer loop.
    virtual void runUntil(const std::function<bool()>& done) = 0;
};

}  // namespace tavi
