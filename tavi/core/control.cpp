#include "tavi/core/control.h"

#include <algorithm>
#include <ranges>

namespace tavi {

Control::Control(std::wstring id, const Rect& bounds) : id_(std::move(id)), bounds_(bounds), layoutBase_(bounds) {}

Control::~Control() {
    while (firstWeak_ != nullptr) {
        firstWeak_->set(nullptr);
    }
}

bool Control::isWithin(const Control& other) const {
    const Control* each = this;
    while (each != nullptr && each != &other) {
        each = each->parent_;
    }
    return each != nullptr;
}

const Control::Details& Control::details() const {
    static const Details kNone;
    return details_ ? *details_ : kNone;
}

Control::Details& Control::ownDetails() {
    if (!details_) {
        details_ = std::make_unique<Details>();
    }
    return *details_;
}

std::vector<Control*> Control::childPointers() const {
    std::vector<Control*> pointers;
    for (const auto& child : children_) {
        if (child) {
            pointers.push_back(child.get());
        }
    }
    return pointers;
}

// False when a hook has destroyed this control.
bool Control::adopt(ChildList& list, std::unique_ptr<Control> control) {
    const WeakControl self(*this);
    Control& added = *control;
    added.parent_ = this;
    list.push_back(std::move(control));
    added.setWindow(window_);
    return static_cast<bool>(self);
}

Control* Control::addChild(std::unique_ptr<Control> child) {
    if (!child) {
        return nullptr;
    }
    const WeakControl self(*this);
    const WeakControl added(child.get());
    if (adopt(children_, std::move(child))) {
        childrenChanged();
    }
    if (self) {
        layout();
    }
    if (added) {
        added->tellWindow();
    }
    if (added) {
        added->requestRepaint(kRepaintGeometry);
    }
    return added.get();
}

Control* Control::addAuxiliary(std::unique_ptr<Control> control) {
    const WeakControl added(control.get());
    if (control) {
        adopt(auxiliary_, std::move(control));
    }
    return added.get();
}

std::unique_ptr<Control> Control::release(ChildList& list, Control& control) {
    const WeakControl self(*this);
    const WeakControl leaving(control);
    const auto find = [&] { return std::ranges::find(list, leaving.get(), &std::unique_ptr<Control>::get); };
    if (window_ != nullptr && find() != list.end()) {
        window_->controlLeaves(control);
    }
    // What the window has called may have taken it out itself.
    if (!self || !leaving) {
        return nullptr;
    }
    const auto found = find();
    if (found == list.end()) {
        return nullptr;
    }
    std::unique_ptr<Control> released = std::move(*found);
    list.erase(found);
    released->parent_ = nullptr;
    return released;
}

std::unique_ptr<Control> Control::removeChild(Control& child) {
    const WeakControl self(*this);
    if (child.parent_ == this) {
        child.requestRepaint(kRepaintGeometry);
    }
    std::unique_ptr<Control> released = release(children_, child);
    if (released && self) {
        childrenChanged();
    }
    if (released) {
        released->setWindow(nullptr);
    }
    if (released && self) {
        layout();
    }
    return released;
}

std::unique_ptr<Control> Control::releaseAuxiliary(Control& control) {
    std::unique_ptr<Control> released = release(auxiliary_, control);
    if (released) {
        released->setWindow(nullptr);
    }
    return released;
}

void Control::setWindow(WindowHost* window) {
    if (window_ == window) {
        return;
    }
    const WeakControl self(*this);
    window_ = window;
    windowChanged();
    if (self) {
        visitOwned(children_, auxiliary_, [&](Control& each) { each.setWindow(window_); });
    }
}

// Calls `visit` for everything in both lists that is still there when its turn comes: hooks may change the lists.
template <typename Visit>
void Control::visitOwned(const ChildList& first, const ChildList& second, const Visit& visit) {
    std::vector<WeakControl> owned;
    owned.reserve(first.size() + second.size());
    for (const ChildList* const list : {&first, &second}) {
        for (const auto& each : *list) {
            owned.emplace_back(each.get());
        }
    }
    const WeakControl self(*this);
    for (const WeakControl& each : owned) {
        if (self && each && each->parent_ == this) {
            visit(*each.get());
        }
    }
}

void Control::layoutParent() {
    if (parent_ != nullptr) {
        parent_->layout();
    }
}

void Control::tellWindow() {
    if (window_ != nullptr) {
        window_->controlChanged(*this);
    }
}

void Control::setAnchors(uint32_t anchors) {
    if (anchors_ != anchors) {
        anchors_ = anchors;
        layoutParent();
    }
}

void Control::setConstraints(const Constraints& constraints) {
    if (constraints_ != constraints) {
        constraints_ = constraints;
        layoutParent();
    }
}

void Control::clearConstraints() {
    if (constraints_) {
        constraints_.reset();
        layoutParent();
    }
}

void Control::setMinimumSize(int32_t width, int32_t height) {
    const Size minimum{std::max(width, 0), std::max(height, 0)};
    const bool changed = minimum != minimum_;
    minimum_ = minimum;
    hasMinimum_ = true;
    if (changed) {
        layoutParent();
    }
}

void Control::setVisible(bool visible) {
    if (visible_ == visible) {
        return;
    }
    const WeakControl self(*this);
    repaintIfParentsShown(kRepaintGeometry);
    visible_ = visible;
    if (parent_ != nullptr) {
        parent_->childrenChanged();
        if (self) {
            layoutParent();
        }
    }
    if (self) {
        tellWindow();
    }
    if (self) {
        repaintIfParentsShown(kRepaintGeometry);
    }
}

void Control::setEnabled(bool enabled) {
    if (enabled_ == enabled) {
        return;
    }
    enabled_ = enabled;
    requestRepaint(kRepaintAppearance);
    tellWindow();
}

void Control::setCollapsed(bool collapsed) {
    if (collapsed_ == collapsed) {
        return;
    }
    const WeakControl self(*this);
    collapsed_ = collapsed;
    layoutParent();
    if (self) {
        tellWindow();
    }
}

void Control::setText(std::wstring text) {
    if (text_ != text) {
        text_ = std::move(text);
        requestRepaint();
        textChanged();
    }
}

void Control::setStyleId(int32_t styleId) {
    if (styleId_ != styleId) {
        styleId_ = styleId;
        requestRepaint();
        appearanceChanged();
    }
}

void Control::setAppearance(Appearance appearance) {
    if (details().appearance != appearance) {
        ownDetails().appearance = std::move(appearance);
        requestRepaint();
        appearanceChanged();
    }
}

void Control::setContours(ContourKind kind, std::vector<Rect> rects) {
    if (details().contours[static_cast<size_t>(kind)] != rects) {
        const WeakControl self(*this);
        ownDetails().contours[static_cast<size_t>(kind)] = std::move(rects);
        if (window_ != nullptr && !window_->paintArea().empty()) {
            return;  // for this paint only, see Panel::paint
        }
        requestRepaint();
        layout();
        if (self) {
            tellWindow();
        }
    }
}

bool Control::shown() const {
    const Control* each = this;
    while (each != nullptr && each->visible_) {
        each = each->parent_;
    }
    return each == nullptr;
}

bool Control::usable() const {
    const Control* each = this;
    while (each != nullptr && each->visible_ && each->enabled_) {
        each = each->parent_;
    }
    return each == nullptr;
}

Point Control::clientOrigin() const {
    Point origin;
    for (const Control* each = this; each != nullptr; each = each->parent_) {
        origin = origin + each->bounds_.position();
    }
    return origin;
}

Rect Control::deviceRect(const Rect& local, Point origin) const {
    return (window_ != nullptr ? window_->scale() : Scale()).device(local.offset(origin));
}

void Control::requestRepaint(uint32_t reason) const {
    if (visible_) {
        repaintIfParentsShown(reason);
    }
}

// Asks for the area whether the control itself is visible or not: it may just have been hidden.
void Control::repaintIfParentsShown(uint32_t reason) const {
    if (window_ != nullptr && (parent_ == nullptr || parent_->shown())) {
        window_->repaint(bounds_.local().offset(clientOrigin()), reason);
    }
}

void Control::captureState(ControlState& state) const {
    state.id = id_;
    state.bounds = bounds_;
    state.visible = visible_;
    state.enabled = enabled_;
    state.collapsed = collapsed_;
    state.text = text_;
    state.properties.clear();
    appendCustomState(state);
}

void Control::restoreState(const ControlState& state, bool applyBounds) {
    const WeakControl self(*this);
    if (applyBounds) {
        setBounds(state.bounds);
    }
    const auto set = [&]<typename Value>(void (Control::*setter)(Value), const auto& value) {
        if (self) {
            (this->*setter)(value);
        }
    };
    set(&Control::setVisible, state.visible);
    set(&Control::setEnabled, state.enabled);
    set(&Control::setCollapsed, state.collapsed);
    set(&Control::setText, state.text);
    for (size_t i = 0; self && i < state.properties.size(); ++i) {
        restoreCustomProperty(state.properties[i]);
    }
}

std::wstring Control::automationName() const {
    if (!details().automationName.empty()) {
        return details().automationName;
    }
    std::wstring value;
    automationValue(value);
    const std::wstring text = automationText();
    if (text.empty()) {
        return value.empty() ? id_ : value;
    }
    return value.empty() || text.starts_with(value) ? text : value + L"\n" + text;
}

std::vector<Rect> Control::contours(ContourKind kind) const {
    const ContourLists& lists = details().contours;
    const std::vector<Rect>& own = lists[static_cast<size_t>(kind)];
    const std::vector<Rect>& list = own.empty() ? lists[static_cast<size_t>(ContourKind::Shape)] : own;
    return list.size() >= 2 ? mergeRuns(list) : list;
}

bool Control::hitTest(Point local) const {
    if (!localBounds().contains(local)) {
        return false;
    }
    const std::vector<Rect> shape = contours(ContourKind::Hit);
    return shape.empty() || std::ranges::any_of(shape, [&](const Rect& rect) { return rect.contains(local); });
}

void Control::releaseTreeCaches() {
    const WeakControl self(*this);
    releaseCaches();
    if (self) {
        visitOwned(auxiliary_, children_, [](Control& each) { each.releaseTreeCaches(); });
    }
}

void Control::notifyTree() {
    const WeakControl self(*this);
    if (details().treeNotification) {
        const Visitor callback = details().treeNotification;
        callback(*this);
    }
    if (self) {
        visitOwned(auxiliary_, children_, [](Control& each) { each.notifyTree(); });
    }
}

}  // namespace tavi
