// The keyboard in a window: which control has the focus, where Tab takes it, and what Return, Space and Escape do.
//
// The order of the focus is that of the tree: a control, then what is inside it, then its next sibling, where siblings
// with an order of their own (Control::setFocusOrder) go by that. What is
// disabled, invisible or collapsed, itself or by a parent, is passed over.
#pragma once

#include "tavi/core/panel.h"
#include "tavi/core/window_platform.h"

namespace tavi {

// Whether the focus can be on it now.
bool focusable(const Control& control);

// The control that follows `from` (null: the first) in the order of the focus, the other way round when not `forward`;
// from the last on to the first. Null when nothing takes the focus.
Control* nextFocus(Control& root, const Control* from, bool forward);

class FocusPolicy {
public:
    FocusPolicy(Panel& root, WindowPlatform& platform) : root_(root), platform_(platform) {}

    Control* focused() const { return focused_.get(); }
    // Null takes the focus from all. False when the control cannot have it, or a hook has moved it elsewhere meanwhile.
    bool set(Control* control);
    // Return reaches the default control when nothing that has the focus takes it. Escape reaches the cancel control
    // and, only where there is none, the window: one that is disabled keeps a dialog open. Not owned.
    void setDefault(Control* control) { default_.set(control); }
    void setCancel(Control* control) { cancel_.set(control); }
    Control* defaultControl() const { return default_.get(); }

    // The window has got or lost the keyboard. The focus stays where it is and is told.
    void windowActivated(bool active);
    bool keyPress(KeyEvent& event);
    bool keyRelease(KeyEvent& event);
    bool textInput(TextInputEvent& event);
    bool compositionChanged(CompositionEvent& event);
    bool editCommand(EditCommand command);
    // A control has changed: the focus leaves what can no longer have it.
    void refresh();
    // A control leaves the tree with all below it.
    void forget(const Control& control);

private:
    bool act(const KeyEvent& event);
    void tell();
    static bool activate(Control* control);

    Panel& root_;
    WindowPlatform& platform_;
    WeakControl focused_;
    WeakControl told_;  // that it has the focus
    WeakControl default_;
    WeakControl cancel_;
    bool active_ = false;
};

}  // namespace tavi
