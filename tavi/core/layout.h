// Where one control lies in its parent: a pure function of what the application asked for and the parent's area. Layout
// never fails; what it had to change is in the result. Each call starts from the base bounds, not from the last result,
// so a parent that grows and shrinks back finds every control where it was.
#pragma once

#include <optional>

#include "tavi/core/geometry.h"

namespace tavi {

// Relative placing, axis by axis; it goes before the anchors. Lengths count from the parent's origin, of its width for
// left, right and centerX, of its height for the others. A negative width or height counts as 0.
struct Constraints {
    std::optional<RelativeLength> left = {};
    std::optional<RelativeLength> right = {};
    std::optional<RelativeLength> top = {};
    std::optional<RelativeLength> bottom = {};
    std::optional<RelativeLength> centerX = {};
    std::optional<RelativeLength> centerY = {};
    std::optional<int32_t> width = {};
    std::optional<int32_t> height = {};

    bool operator==(const Constraints&) const = default;
};

struct LayoutRequest {
    Rect base;          // as the application set it, relative to the parent's origin
    Size designParent;  // the parent's extent for which the base was meant
    uint32_t anchors = kAnchorNone;
    const Constraints* constraints = nullptr;
    Size minimum;
    Rect parentArea;  // not empty
};

// A rule applied to one axis or to both.
struct Axes {
    bool horizontal = false;
    bool vertical = false;

    bool operator==(const Axes&) const = default;
    bool any() const { return horizontal || vertical; }
};

struct LayoutResult {
    Rect bounds;
    Rect beforeClamp;       // before the minimum was applied
    Rect beforeFit;         // before it was fitted into the parent; both relative to the parent's origin
    Axes clamped;           // grown to its minimum
    Axes fitted;            // moved or shrunk to lie inside its parent
    Axes minimumCannotFit;  // shrunk below its minimum
};

// The parent's extent that a base was meant for when it is first laid out in `parent`: at least as far as it reaches.
Size captureDesignParent(const Rect& base, Size parent);

// 1. Constraints, 2. anchors where no constraint decides an axis, 3. growing to the minimum (away from the edge that
// the control is aligned to), 4. fitting into the parent.
LayoutResult placeControl(const LayoutRequest& request);

// The extent that a parent needs for a control to keep its minimum where its anchors hold it.
Size neededExtent(const Rect& base, Size designParent, uint32_t anchors, Size minimum);

}  // namespace tavi
