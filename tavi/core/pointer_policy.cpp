#include "tavi/core/pointer_policy.h"

#include <algorithm>
#include <utility>

namespace tavi {
namespace {

bool holds(const std::vector<WeakControl>& path, const Control* control) {
    return std::ranges::any_of(path, [&](const WeakControl& each) { return each.get() == control; });
}

}  // namespace

Control* controlAt(Control& root, Point point) {
    if (!root.visible() || !root.hitTest(point - root.bounds().position())) {
        return nullptr;
    }
    const Point local = point - root.bounds().position();
    const Control::ChildList& children = root.children();
    for (size_t i = children.size(); i-- > 0;) {
        if (children[i] && !children[i]->transparentToPointer()) {
            if (Control* const found = controlAt(*children[i], local)) {
                return found;
            }
        }
    }
    return &root;
}

std::vector<WeakControl> PointerPolicy::pathUnderPointer() const {
    Control* innermost = inside_ ? controlAt(root_, position_) : nullptr;
    if (owner_) {
        // Nothing else lights up while a drag passes over it.
        const bool over = owner_->hitTest(position_ - owner_->clientOrigin());
        innermost = over ? owner_.get() : nullptr;
    }
    std::vector<WeakControl> path;
    for (Control* each = innermost; each != nullptr; each = each->parent()) {
        path.emplace_back(each);
    }
    std::ranges::reverse(path);
    return path;
}

void PointerPolicy::hover() {
    hoverPath_ = pathUnderPointer();
    std::vector<WeakControl> now;
    for (const WeakControl& each : hoverPath_) {
        if (each->usable()) {
            now.push_back(each);
        }
    }
    const std::vector<WeakControl> before = entered_;
    std::erase_if(entered_, [&](const WeakControl& each) { return !holds(now, each.get()); });
    for (size_t i = before.size(); i-- > 0;) {
        if (before[i] && !holds(now, before[i].get())) {
            before[i]->pointerLeft();
        }
    }
    // Hooks may have moved the pointer elsewhere, or taken controls away.
    for (const WeakControl& each : now) {
        if (each && holds(hoverPath_, each.get()) && !holds(entered_, each.get())) {
            entered_.push_back(each);
            each->pointerEntered();
        }
    }
}

void PointerPolicy::refresh() {
    if (owner_ && !owner_->usable()) {
        cancelOwner();
        releaseCapture();
    }
    hover();
}

// To the control that has captured the pointer, in its coordinates, else into the tree.
template <typename Event>
bool PointerPolicy::deliver(Event& event, bool (InputTarget::*handler)(Event&)) {
    if (!owner_) {
        return (root_.*handler)(event);
    }
    Event translated = event;
    translated.position = event.position - owner_->clientOrigin();
    return (owner_.get()->*handler)(translated);
}

void PointerPolicy::follow(const PointerEvent& event) {
    position_ = event.position;
    inside_ = true;
    held_ = event.held;
}

bool PointerPolicy::move(PointerEvent& event) {
    follow(event);
    if (held_ == 0 && grabbing_) {
        // The button went up where nobody told us.
        cancelOwner();
        releaseCapture();
    }
    hover();
    return deliver(event, &InputTarget::pointerMove);
}

bool PointerPolicy::press(PointerEvent& event) {
    follow(event);
    hover();
    return deliver(event, &InputTarget::pointerPress);
}

bool PointerPolicy::release(PointerEvent& event) {
    follow(event);
    const bool handled = deliver(event, &InputTarget::pointerRelease);
    if (held_ == 0) {
        releaseCapture();
    }
    return handled;
}

bool PointerPolicy::wheel(WheelEvent& event) {
    return deliver(event, &InputTarget::pointerWheel);
}

void PointerPolicy::leave() {
    inside_ = false;
    hover();
}

void PointerPolicy::cancelOwner() {
    const WeakControl owner = std::exchange(owner_, WeakControl());
    if (owner) {
        owner->inputCancelled();
    }
}

void PointerPolicy::lose() {
    held_ = 0;
    if (std::exchange(grabbing_, false)) {
        cancelOwner();
        hover();
    }
}

void PointerPolicy::capture(Control& control) {
    // Without a button nothing would end it: the press may have been cancelled while it was handled.
    if (owner_.get() == &control || held_ == 0 || !control.isWithin(root_)) {
        return;
    }
    const WeakControl wanted(control);
    cancelOwner();
    owner_ = wanted;
    if (owner_ && !std::exchange(grabbing_, true)) {
        platform_.grabPointer(true);
    }
}

void PointerPolicy::releaseCapture() {
    owner_.set(nullptr);
    if (std::exchange(grabbing_, false)) {
        platform_.grabPointer(false);
        hover();
    }
}

void PointerPolicy::forget(const Control& control) {
    if (owner_ && owner_->isWithin(control)) {
        cancelOwner();
    }
    const auto leaves = [&](const WeakControl& each) { return each && each->isWithin(control); };
    std::erase_if(hoverPath_, leaves);
    for (size_t i = entered_.size(); i-- > 0;) {
        if (i < entered_.size() && leaves(entered_[i])) {
            const WeakControl left = entered_[i];
            entered_.resize(i);
            left->pointerLeft();
        }
    }
}

}  // namespace tavi
