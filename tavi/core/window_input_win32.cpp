// Mouse, keyboard and focus of a window.
#include <windows.h>
#include <windowsx.h>

#include <utility>

#include "tavi/core/window_native.h"

namespace tavi {
namespace {

bool held(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

uint32_t heldModifiers() {
    return (held(VK_SHIFT) ? kShift : kNoModifier) | (held(VK_CONTROL) ? kControlKey : kNoModifier) |
           (held(VK_MENU) ? kAlt : kNoModifier);
}

}  // namespace

WindowNative::Answer WindowNative::onPointer(const Message& message) {
    if (!tracksLeave_) {
        TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE, handle_, 0};
        tracksLeave_ = TrackMouseEvent(&track) != FALSE;
    }
    const PointerMessage translated = translatePointer(message.number, message.wParam, message.lParam, held(VK_MENU));
    if (translated.action == PointerAction::Press) {
        finishComposition();  // a press elsewhere does not lose what is being composed
    }
    using Entry = bool (WindowTree::*)(PointerEvent);
    constexpr Entry kEntries[] = {&WindowTree::pointerMove, &WindowTree::pointerPress, &WindowTree::pointerRelease};
    // What nobody takes goes to Windows, which makes the message for a context menu of it.
    return (tree_.get()->*kEntries[static_cast<size_t>(translated.action)])(translated.event) ? Answer(0)
                                                                                              : std::nullopt;
}

WindowNative::Answer WindowNative::onWheel(const Message& message) {
    const Point onScreen = pointOf(message.lParam);
    POINT point{onScreen.x, onScreen.y};
    ScreenToClient(handle_, &point);
    tree_->pointerWheel(translateWheel(message.number, message.wParam, {point.x, point.y}, held(VK_MENU)));
    return 0;
}

WindowNative::Answer WindowNative::onPointerLeave(const Message& /*message*/) {
    tracksLeave_ = false;
    tree_->pointerLeave();
    return 0;
}

WindowNative::Answer WindowNative::onCaptureChanged(const Message& message) {
    if (std::exchange(grabs_, false) && reinterpret_cast<HWND>(message.lParam) != handle_) {
        tree_->pointerLost();
    }
    return 0;
}

WindowNative::Answer WindowNative::onCancelMode(const Message& /*message*/) {
    tree_->pointerLost();
    return std::nullopt;
}

void WindowNative::grabPointer(bool grab) {
    const bool grabbed = std::exchange(grabs_, grab);
    if (grab) {
        SetCapture(handle_);
    } else if (grabbed && GetCapture() == handle_) {
        ReleaseCapture();
    }
}

// Windows has made the character of a key before it sends the key, so the one of a key that was handled is dropped,
// also while it is still being handled: a key may open a dialog, which handles the thread's messages.
WindowNative::Answer WindowNative::onKey(const Message& message) {
    const KeyEvent event = translateKey(message.wParam, message.lParam, heldModifiers());
    if (message.number == WM_KEYUP || message.number == WM_SYSKEYUP) {
        swallowsCharacter_ = false;
        return tree_->keyRelease(event) ? Answer(0) : std::nullopt;
    }
    swallowsCharacter_ = true;
    const bool handled = tree_->keyPress(event);
    swallowsCharacter_ = handled;
    return handled ? Answer(0) : std::nullopt;
}

WindowNative::Answer WindowNative::onCharacter(const Message& message) {
    if (!swallowsCharacter_) {
        const std::wstring text = assembler_.add(message.wParam);
        if (!text.empty()) {
            tree_->textInput({text});
        }
    }
    return 0;
}

// Windows beeps at one that no menu knows.
WindowNative::Answer WindowNative::onSystemCharacter(const Message& /*message*/) {
    return swallowsCharacter_ ? Answer(0) : std::nullopt;
}

WindowNative::Answer WindowNative::onEditCommand(const Message& message) {
    const std::optional<EditCommand> command = translateEditCommand(message.number);
    return command && tree_->editCommand(*command) ? 1 : 0;
}

WindowNative::Answer WindowNative::onFocus(const Message& message) {
    if (message.number == WM_KILLFOCUS) {
        finishComposition();
    }
    tree_->activated(message.number == WM_SETFOCUS);
    return 0;
}

void WindowNative::takeKeyboard() {
    if (handle_ != nullptr && GetActiveWindow() == handle_) {
        SetFocus(handle_);
    }
}

}  // namespace tavi
