#include "tavi/core/mirroring.h"

namespace tavi {
namespace {

// The side of a constraint as seen from the other edge.
std::optional<RelativeLength> opposite(const std::optional<RelativeLength>& length) {
    return length ? std::optional(RelativeLength{1.0 - length->fraction, -length->offset}) : std::nullopt;
}

}  // namespace

void mirror(Control& control, int32_t parentWidth) {
    const uint32_t sides = control.anchors() & (kAnchorLeft | kAnchorRight);
    if (sides == kAnchorLeft || sides == kAnchorRight) {
        control.setAnchors(control.anchors() ^ (kAnchorLeft | kAnchorRight));
    }
    if (std::optional<Constraints> constraints = control.constraints()) {
        const std::optional<RelativeLength> left = constraints->left;
        constraints->left = opposite(constraints->right);
        constraints->right = opposite(left);
        constraints->centerX = opposite(constraints->centerX);
        control.setConstraints(*constraints);
    }
    const Rect& bounds = control.bounds();
    control.setBounds({parentWidth - bounds.right(), bounds.y, bounds.width, bounds.height});
}

}  // namespace tavi
