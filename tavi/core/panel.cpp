#include "tavi/core/panel.h"

#include <unordered_map>

#include "tavi/core/layout_report.h"

namespace tavi {
namespace {

const Control* findBelow(const Control& parent, std::wstring_view id) {
    for (const auto& child : parent.children()) {
        if (!child) {
            continue;
        }
        if (child->id() == id) {
            return child.get();
        }
        if (const Control* const found = findBelow(*child, id)) {
            return found;
        }
    }
    return nullptr;
}

// Calls `visit` for every control below `parent` that has an id.
template <typename Visit>
void visitNamed(const Control& parent, const Visit& visit) {
    for (const auto& child : parent.children()) {
        if (child) {
            if (!child->id().empty()) {
                visit(*child);
            }
            visitNamed(*child, visit);
        }
    }
}

}  // namespace

Control* Panel::findById(std::wstring_view id) {
    return const_cast<Control*>(findBelow(*this, id));
}

const Control* Panel::findById(std::wstring_view id) const {
    return findBelow(*this, id);
}

void Panel::captureStateTree(std::vector<ControlState>& states) const {
    visitNamed(*this, [&](const Control& control) {
        ControlState state;
        control.captureState(state);
        states.push_back(std::move(state));
    });
}

size_t Panel::restoreStateTree(const std::vector<ControlState>& states, bool applyBounds) {
    std::unordered_map<std::wstring_view, std::vector<const ControlState*>> byId;
    for (auto state = states.rbegin(); state != states.rend(); ++state) {
        byId[state->id].push_back(&*state);  // the first one last, where it is taken from
    }
    // All pairs first: restoring calls hooks, which may change the tree.
    std::vector<std::pair<WeakControl, const ControlState*>> pairs;
    visitNamed(*this, [&](const Control& control) {
        const auto found = byId.find(control.id());
        if (found != byId.end() && !found->second.empty()) {
            pairs.emplace_back(WeakControl(const_cast<Control&>(control)), found->second.back());
            found->second.pop_back();
        }
    });
    size_t restored = 0;
    for (const auto& [control, state] : pairs) {
        if (control) {
            control->restoreState(*state, applyBounds);
            ++restored;
        }
    }
    return restored;
}

Size Panel::minimumContentSizeHint() const {
    const bool diagnostics = window() != nullptr && window()->diagnostics();
    Size hint;
    for (const auto& child : children()) {
        if (!child || !child->visible() || child->collapsed()) {
            continue;
        }
        const Rect& base = child->layoutCaptured() ? child->layoutBase() : child->bounds();
        const Size needed = neededExtent(base, child->designParentSize(), child->anchors(), child->minimumSize());
        const Size raised = larger(hint, needed);
        if (diagnostics && raised != hint) {
            window()->writeDiagnostic(reportHint(id(), child->id(), child->visible(), needed, raised));
        }
        hint = raised;
    }
    return hint;
}

void Panel::setPaintHook(PaintHook hook) {
    paintHook_ = std::move(hook);
    requestRepaint();
}

void Panel::releaseCaches() {
    visibleChildrenDirty_ = true;
    visibleChildren_.clear();
    visibleChildren_.shrink_to_fit();
}

const std::vector<Control*>& Panel::visibleChildren() {
    if (visibleChildrenDirty_) {
        visibleChildrenDirty_ = false;
        visibleChildren_.clear();
        for (const auto& child : children()) {
            if (child && child->visible()) {
                visibleChildren_.push_back(child.get());
            }
        }
    }
    return visibleChildren_;
}

void Panel::paint(HDC target, Point origin) {
    const WeakControl self(*this);
    if (paintHook_) {
        const PaintHook hook = paintHook_;
        hook(target, deviceRect(localBounds(), origin));
    }
    if (self) {
        visibleChildren();
    }
    for (size_t i = 0; self && i < visibleChildren_.size(); ++i) {
        paintChild(*visibleChildren_[i], target, origin + visibleChildren_[i]->bounds().position());
        // Painting is not the time to change the tree; who does it all the same ends this paint and has the next.
        if (self && visibleChildrenDirty_) {
            if (window() != nullptr) {
                window()->repaint(window()->paintArea(), kRepaintAppearance);
            }
            return;
        }
    }
}

void Panel::paintChild(Control& child, HDC target, Point origin) {
    WindowHost* const host = child.window();
    const Rect area = child.localBounds().offset(origin);
    if (host == nullptr || area.empty() || intersection(area, host->paintArea()).empty()) {
        return;
    }
    // A control may compute its contours while it paints, but layout must not depend on painting.
    const WeakControl alive(child);
    const ContourLists contours = child.contourLists();
    host->pushClip(target, area);
    child.paint(target, origin);
    host->popClip(target);
    if (alive && child.contourLists() != contours) {
        child.ownDetails().contours = contours;
    }
}

bool Panel::lies(Control& child, Point point) {
    return !child.transparentToPointer() && child.hitTest(point);
}

// Whether the focus is on the child or below it, and the event was not offered to it as lying under the pointer.
bool Panel::holdsFocus(Control& child, Point point) {
    const Control* const focused = window() != nullptr ? window()->focused() : nullptr;
    return focused != nullptr && focused->isWithin(child) && !lies(child, point);
}

// Offers the event to the visible children that `accepts`, in their own coordinates, the last painted first, until one
// handles it. A disabled child gets nothing and lets nothing through to what it covers.
template <typename Event>
bool Panel::route(Event& event, bool (InputTarget::*handler)(Event&), bool (Panel::*accepts)(Control&, Point)) {
    std::vector<WeakControl> candidates;
    const std::vector<Control*>& all = visibleChildren();
    for (size_t i = all.size(); i-- > 0;) {
        if ((this->*accepts)(*all[i], event.position - all[i]->bounds().position())) {
            candidates.emplace_back(*all[i]);
            if (!all[i]->enabled()) {
                break;
            }
        }
    }
    const WeakControl self(*this);
    for (const WeakControl& child : candidates) {
        // What was offered it before may have destroyed, moved, hidden or disabled it.
        if (!child || child->parent() != this || !child->visible() || !child->enabled()) {
            continue;
        }
        Event translated = event;
        translated.position = event.position - child->bounds().position();
        if ((child.get()->*handler)(translated)) {
            if constexpr (std::is_same_v<Event, PointerEvent>) {
                // The innermost one that handles a press has the pointer from then on, unless somebody took it.
                if (handler == &InputTarget::pointerPress && self && child && window() != nullptr &&
                    window()->pointerOwner() == nullptr) {
                    window()->capturePointer(*child.get());
                }
            }
            return true;
        }
        if (!self) {
            return true;
        }
    }
    return false;
}

bool Panel::pointerMove(PointerEvent& event) {
    return visible() && enabled() && route(event, &InputTarget::pointerMove, &Panel::lies);
}

bool Panel::pointerPress(PointerEvent& event) {
    return visible() && enabled() && route(event, &InputTarget::pointerPress, &Panel::lies);
}

// To what lies under the pointer, else to what has the focus.
bool Panel::pointerWheel(WheelEvent& event) {
    const WeakControl self(*this);
    return visible() && enabled() &&
           (route(event, &InputTarget::pointerWheel, &Panel::lies) ||
            (self && route(event, &InputTarget::pointerWheel, &Panel::holdsFocus)));
}

// To every visible child: each may have something pressed.
bool Panel::pointerRelease(PointerEvent& event) {
    std::vector<WeakControl> children;
    for (Control* const child : visibleChildren()) {
        children.emplace_back(*child);
    }
    const WeakControl self(*this);
    bool handled = false;
    for (const WeakControl& child : children) {
        if (child && child->parent() == this) {
            PointerEvent translated = event;
            translated.position = event.position - child->bounds().position();
            handled = child->pointerRelease(translated) || handled;
        }
    }
    return handled || !self;
}

}  // namespace tavi
