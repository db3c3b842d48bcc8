// The layout half of a control: when its children are placed again, and what that sets off. Where they go is layout.h.
#include <algorithm>

#include "tavi/core/control.h"
#include "tavi/core/layout_report.h"
#include "tavi/core/overlap.h"

namespace tavi {
// One layout is everything that one outermost change of bounds sets off on this thread. Hooks may change bounds again,
// of any control: that a control's hook is called, and its children are placed, only so often in one layout is what
// ends it.
class Control::LayoutScope {
public:
    LayoutScope() {
        if (outermost == nullptr) {
            outermost = this;
            ++number;
        }
    }
    LayoutScope(const LayoutScope&) = delete;
    LayoutScope& operator=(const LayoutScope&) = delete;
    ~LayoutScope() {
        if (outermost == this) {
            placeLast();
            outermost = nullptr;
        }
    }

    // Starts the control's counts anew in a layout that it has not been part of.
    static void enter(Control& control) {
        if (control.layoutNumber_ != number) {
            control.layoutNumber_ = number;
            control.boundsRounds_ = 0;
            control.passes_ = 0;
        }
    }
    // Whether the control's children may be placed once more. If not, they are at the end of the layout.
    static bool allowsPass(Control& control) {
        if (control.passes_ == kLayoutPasses) {
            outermost->postponed_.emplace_back(control);
        }
        if (control.passes_ <= kLayoutPasses) {
            ++control.passes_;
        }
        return control.passes_ <= kLayoutPasses;
    }

private:
    static thread_local LayoutScope* outermost;
    static thread_local uint64_t number;

    void placeLast() {
        for (size_t i = 0; i < postponed_.size(); ++i) {
            if (Control* const control = postponed_[i].get()) {
                control->layoutChildren();
            }
        }
    }

    std::vector<WeakControl> postponed_;
};

thread_local Control::LayoutScope* Control::LayoutScope::outermost = nullptr;
thread_local uint64_t Control::LayoutScope::number = 0;

void Control::setBounds(const Rect& bounds) {
    if (bounds != bounds_) {
        changeBounds(bounds, true);
    }
}

// With `isBase` the application wants them, and layout starts from them.
void Control::changeBounds(const Rect& bounds, bool isBase) {
    const LayoutScope scope;
    const WeakControl self(*this);
    requestRepaint(kRepaintGeometry);
    bounds_ = bounds;
    if (isBase) {
        layoutBase_ = bounds;
        layoutCaptured_ = false;
    }
    if (afterBoundsChanged() && isBase) {
        layoutParent();
    }
    if (self) {
        tellWindow();
    }
    if (self) {
        requestRepaint(kRepaintGeometry);
    }
}

// The hook, then the children. A hook that changes its own control's bounds is called again when it returns, not inside
// itself. False when the control is gone.
bool Control::afterBoundsChanged() {
    const WeakControl self(*this);
    LayoutScope::enter(*this);
    boundsChangedAgain_ = true;
    if (!inBoundsChanged_) {
        inBoundsChanged_ = true;
        while (boundsChangedAgain_ && boundsRounds_ < kLayoutRounds) {
            boundsChangedAgain_ = false;
            ++boundsRounds_;
            boundsChanged();
            if (!self) {
                return false;
            }
        }
        inBoundsChanged_ = false;
        if (boundsChangedAgain_ && window_ != nullptr && window_->diagnostics()) {
            window_->writeDiagnostic(reportUnsettled(id_, bounds_));
        }
    }
    layout();
    return static_cast<bool>(self);
}

void Control::layout() {
    if (inLayout_) {
        layoutAgain_ = true;
        return;
    }
    const LayoutScope scope;
    const WeakControl self(*this);
    LayoutScope::enter(*this);
    inLayout_ = true;
    layoutAgain_ = true;
    while (layoutAgain_ && LayoutScope::allowsPass(*this)) {
        layoutAgain_ = false;
        layoutChildren();
        if (!self) {
            return;
        }
    }
    inLayout_ = false;
}

void Control::layoutChildren() {
    if (children_.empty()) {
        return;
    }
    const WeakControl self(*this);
    const Rect area = localBounds();
    const std::vector<Rect> contour = contours(ContourKind::Content);
    // By position: a hook may add or remove children, and then another pass follows.
    for (size_t i = 0; i < children_.size(); ++i) {
        if (children_[i]) {
            children_[i]->place(area, contour);
        }
        if (!self) {
            return;
        }
    }
    if (window_ != nullptr && window_->diagnostics()) {
        reportOverlaps();
    }
}

void Control::applyParentLayout(const Rect& parentArea) {
    place(parentArea, {});
}

void Control::place(const Rect& parentArea, const std::vector<Rect>& contour) {
    if (parentArea.empty()) {
        return;
    }
    if (!layoutCaptured_ || !designParentSize_.positive()) {
        layoutBase_ = bounds_;
        designParentSize_ = captureDesignParent(layoutBase_, parentArea.size());
        layoutCaptured_ = true;
    }
    const LayoutResult result = placeControl({.base = layoutBase_,
                                              .designParent = designParentSize_,
                                              .anchors = anchors_,
                                              .constraints = constraints_ ? &*constraints_ : nullptr,
                                              .minimum = minimumSize(),
                                              .parentArea = parentArea});
    const ContourFit fit = fitIntoContour(result.bounds, minimumSize(), contour);
    if (window_ != nullptr && window_->diagnostics()) {
        reportPlacing(parentArea, result, fit);
    }
    if (fit.bounds != bounds_) {
        changeBounds(fit.bounds, false);
    }
}

void Control::reportPlacing(const Rect& parentArea, const LayoutResult& result, const ContourFit& fit) const {
    if (result.clamped.any()) {
        window_->writeDiagnostic(reportClamp(id_, parentArea, minimumSize(), anchors_, result));
    }
    if (result.fitted.any()) {
        window_->writeDiagnostic(reportFit(id_, parentArea, result));
    }
    if (fit.minimumCannotFit.any()) {
        window_->writeDiagnostic(reportContourFit({.parent = parent_ != nullptr ? parent_->id_ : std::wstring_view(),
                                                   .control = id_,
                                                   .parentArea = parentArea,
                                                   .before = result.bounds,
                                                   .after = fit.bounds,
                                                   .minimumCannotFit = fit.minimumCannotFit}));
    }
}

// Only what is seen can lie on each other; what lies on nothing by itself is left out by its empty rectangle.
void Control::reportOverlaps() const {
    std::vector<Rect> rects;
    for (const auto& child : children_) {
        rects.push_back(child && child->visible_ && !child->collapsed_ ? child->bounds_ : Rect{});
    }
    for (const auto& [first, second] : overlappingPairs(rects)) {
        const Control& one = *children_[first];
        const Control& other = *children_[second];
        if (!one.overlapAllowed_ && !other.overlapAllowed_) {
            window_->writeDiagnostic(reportOverlap({.parent = id_,
                                                    .first = one.id_,
                                                    .firstBounds = one.bounds_,
                                                    .second = other.id_,
                                                    .secondBounds = other.bounds_}));
        }
    }
}

}  // namespace tavi
