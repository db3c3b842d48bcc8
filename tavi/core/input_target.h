// The input half of a control: one virtual hook for each thing that mouse and keyboard can do. All defaults do nothing,
// so a control overrides only what it cares for. Points are in its own coordinates. A hook may destroy anything, its
// own control included; who calls it checks. One that answers says true when it has handled the event, and also when
// its control is gone: an override that calls its base class touches nothing any more after a true.
#pragma once

#include <optional>

#include "tavi/core/input.h"

namespace tavi {

class InputTarget {
public:
    virtual ~InputTarget() = default;

    // The pointer has moved over the control, or anywhere while the control has captured it. WM_MOUSEMOVE.
    virtual bool pointerMove(PointerEvent& /*event*/) { return false; }
    // A button went down. Whoever handles it has the pointer until the last button is up. WM_xBUTTONDOWN,
    // WM_xBUTTONDBLCLK.
    virtual bool pointerPress(PointerEvent& /*event*/) { return false; }
    // The wheel was turned over the control, or while it has the focus. WM_MOUSEWHEEL, WM_MOUSEHWHEEL.
    virtual bool pointerWheel(WheelEvent& /*event*/) { return false; }
    // A button went up, anywhere in the window. WM_xBUTTONUP.
    virtual bool pointerRelease(PointerEvent& /*event*/) { return false; }

    // A key went down, or repeats. Goes to the focused control, then to its parents. WM_KEYDOWN, WM_SYSKEYDOWN.
    virtual bool keyPress(KeyEvent& /*event*/) { return false; }
    // WM_KEYUP, WM_SYSKEYUP.
    virtual bool keyRelease(KeyEvent& /*event*/) { return false; }
    // Characters were typed (WM_CHAR), or an input method has finished them (WM_IME_COMPOSITION).
    virtual bool textInput(TextInputEvent& /*event*/) { return false; }
    // An input method shows what it is composing. WM_IME_COMPOSITION, WM_IME_ENDCOMPOSITION.
    virtual bool compositionChanged(CompositionEvent& /*event*/) { return false; }
    // A command to the text being edited. WM_CUT, WM_COPY, WM_PASTE, WM_CLEAR, WM_UNDO.
    virtual bool editCommand(EditCommand /*command*/) { return false; }
    // Whether the control takes the focus: by Tab, by a press, by WM_SETFOCUS of the window.
    virtual bool acceptsFocus() const { return false; }
    // It has got or lost the focus, also with its window. WM_SETFOCUS, WM_KILLFOCUS.
    virtual void focusChanged(bool /*focused*/) {}
    // Where the caret stands, for the window of an input method. WM_IME_STARTCOMPOSITION.
    virtual std::optional<Rect> caretRectangle() const { return std::nullopt; }
    // Does what a click on it would: Space or Return with the focus, Return for the window's default control, Escape
    // for its cancel control. WM_KEYDOWN.
    virtual bool activate() { return false; }
    // A press or drag under way ends without an effect. WM_CAPTURECHANGED, WM_CANCELMODE.
    virtual void inputCancelled() {}

    // The pointer has come over the control, or over one inside it, and has left it. WM_MOUSEMOVE, WM_MOUSELEAVE.
    virtual void pointerEntered() {}
    virtual void pointerLeft() {}
};

}  // namespace tavi
