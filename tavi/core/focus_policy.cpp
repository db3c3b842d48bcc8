#include "tavi/core/focus_policy.h"

#include <algorithm>
#include <utility>

namespace tavi {
namespace {

bool passable(const Control& control) {
    return control.visible() && control.enabled() && !control.collapsed();
}

// The children in the order in which the focus comes to them.
std::vector<Control*> inFocusOrder(const Control& control) {
    std::vector<Control*> children;
    children.reserve(control.children().size());
    for (const auto& child : control.children()) {
        if (child) {
            children.push_back(child.get());
        }
    }
    std::ranges::stable_sort(children, {}, &Control::focusOrder);
    return children;
}

// The controls that take the focus, in its order, and in `at` the place in it that `from` has or would have.
void collect(Control& control, bool reachable, const Control* from, std::vector<Control*>& order, size_t& at) {
    if (&control == from) {
        at = order.size();
    }
    reachable = reachable && passable(control);
    if (reachable && control.acceptsFocus()) {
        order.push_back(&control);
    }
    for (Control* const child : inFocusOrder(control)) {
        collect(*child, reachable, from, order, at);
    }
}

// Offers an event to the focused control and then to its parents; those that are gone meanwhile end the way.
template <typename Offer>
bool offerUpwards(Control* first, const Offer& offer) {
    WeakControl each(first);
    while (each) {
        if (each->usable() && offer(*each.get())) {
            return true;
        }
        each.set(each ? each->parent() : nullptr);
    }
    return false;
}

}  // namespace

bool focusable(const Control& control) {
    const Control* each = &control;
    while (each != nullptr && passable(*each)) {
        each = each->parent();
    }
    return each == nullptr && control.acceptsFocus();
}

Control* nextFocus(Control& root, const Control* from, bool forward) {
    std::vector<Control*> order;
    size_t at = 0;
    collect(root, true, from, order, at);
    if (order.empty()) {
        return nullptr;
    }
    if (!forward) {
        return order[(at + order.size() - 1) % order.size()];
    }
    return order[(at < order.size() && order[at] == from ? at + 1 : at) % order.size()];
}

bool FocusPolicy::set(Control* control) {
    if (control == focused_.get()) {
        return true;
    }
    if (control != nullptr && (!focusable(*control) || !control->isWithin(root_))) {
        return false;
    }
    const WeakControl wanted(control);
    if (focused_) {
        focused_->requestRepaint();
    }
    focused_.set(control);
    if (focused_) {
        focused_->requestRepaint();
    }
    if (!active_ && control != nullptr) {
        platform_.takeKeyboard();
    }
    tell();
    // A hook may have set another focus, or destroyed this one.
    return (control == nullptr || wanted) && focused_.get() == wanted.get();
}

// Tells the control that had the focus and the one that has it, each once, whatever their hooks do to the focus.
void FocusPolicy::tell() {
    const auto wanted = [&] { return active_ ? focused_.get() : nullptr; };
    if (told_ && told_.get() != wanted()) {
        const WeakControl before = std::exchange(told_, WeakControl());
        before->focusChanged(false);
    }
    if (Control* const now = wanted(); now != nullptr && told_.get() != now) {
        told_.set(now);
        now->focusChanged(true);
    }
}

void FocusPolicy::windowActivated(bool active) {
    active_ = active;
    if (active && !focused_) {
        focused_.set(nextFocus(root_, nullptr, true));
    }
    if (focused_) {
        focused_->requestRepaint();
    }
    tell();
}

bool FocusPolicy::keyPress(KeyEvent& event) {
    Control* const first = focused_ ? focused_.get() : &root_;
    return offerUpwards(first, [&](Control& control) { return control.keyPress(event); }) || act(event);
}

bool FocusPolicy::keyRelease(KeyEvent& event) {
    Control* const first = focused_ ? focused_.get() : &root_;
    return offerUpwards(first, [&](Control& control) { return control.keyRelease(event); });
}

bool FocusPolicy::activate(Control* control) {
    return control != nullptr && control->usable() && control->activate();
}

// What the window itself does with a key that no control has taken.
bool FocusPolicy::act(const KeyEvent& event) {
    if ((event.modifiers & (kControlKey | kAlt)) != 0) {
        return false;
    }
    switch (event.code) {
        case key::kTab:
            return set(nextFocus(root_, focused_.get(), (event.modifiers & kShift) == 0));
        case key::kSpace:
            // A held key does not press a button again and again, but it may be typing.
            return !event.wasDown && activate(focused_.get());
        case key::kReturn:
            return !event.wasDown && (activate(focused_.get()) || activate(default_.get()));
        case key::kEscape:
            // A cancel control that is disabled means that there is no way out now.
            if (!event.wasDown && !cancel_) {
                platform_.cancelRequested();
            } else if (!event.wasDown) {
                activate(cancel_.get());
            }
            return true;
        default:
            return false;
    }
}

bool FocusPolicy::textInput(TextInputEvent& event) {
    return focused_ && focused_->usable() && focused_->textInput(event);
}

bool FocusPolicy::compositionChanged(CompositionEvent& event) {
    return focused_ && focused_->usable() && focused_->compositionChanged(event);
}

bool FocusPolicy::editCommand(EditCommand command) {
    return focused_ && focused_->usable() && focused_->editCommand(command);
}

void FocusPolicy::refresh() {
    if (focused_ && !focused_->isWithin(root_)) {
        set(nullptr);
    } else if (focused_ && !focusable(*focused_.get())) {
        set(nextFocus(root_, focused_.get(), true));
    }
}

void FocusPolicy::forget(const Control& control) {
    for (WeakControl* each : {&default_, &cancel_}) {
        if (*each && (*each)->isWithin(control)) {
            each->set(nullptr);
        }
    }
    if (focused_ && focused_->isWithin(control)) {
        set(nullptr);
    }
}

}  // namespace tavi
