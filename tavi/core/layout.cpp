#include "tavi/core/layout.h"

#include <algorithm>
#include <iterator>

namespace tavi {
namespace {

enum class Alignment { Near, Far, Center };

// What layout knows of one axis. 64 bits hold every sum of 32-bit numbers here, so only the result is saturated.
struct Axis {
    int64_t position;
    int64_t size;
    int64_t designExtent;
    int64_t extent;  // the parent's
    int64_t minimum;
    bool anchoredNear;
    bool anchoredFar;
    const std::optional<RelativeLength>* near = nullptr;
    const std::optional<RelativeLength>* far = nullptr;
    const std::optional<RelativeLength>* center = nullptr;
    const std::optional<int32_t>* fixed = nullptr;
};

struct Span {
    int64_t position;
    int64_t size;
};

struct AxisResult {
    Span beforeClamp;
    Span beforeFit;
    Span final;
    bool clamped = false;
    bool fitted = false;
    bool minimumCannotFit = false;
};

// Which constraints are given, as a set.
constexpr unsigned kNear = 1;
constexpr unsigned kFar = 2;
constexpr unsigned kCenter = 4;
constexpr unsigned kFixed = 8;

// The first rule whose constraints are all given places the control. Without a fixed size its base size counts.
struct Rule {
    unsigned given;
    Alignment alignment;
};
constexpr Rule kRules[] = {
    {kNear | kFar, Alignment::Near},       {kNear | kFixed, Alignment::Near}, {kFar | kFixed, Alignment::Far},
    {kCenter | kFixed, Alignment::Center}, {kNear, Alignment::Near},          {kFar, Alignment::Far},
    {kCenter, Alignment::Center},          {kFixed, Alignment::Near},
};

const Rule* ruleFor(const Axis& axis) {
    if (axis.near == nullptr) {
        return nullptr;
    }
    const unsigned given = (axis.near->has_value() ? kNear : 0) | (axis.far->has_value() ? kFar : 0) |
                           (axis.center->has_value() ? kCenter : 0) | (axis.fixed->has_value() ? kFixed : 0);
    const auto rule =
        std::ranges::find_if(kRules, [&](const Rule& each) { return (each.given & given) == each.given; });
    return rule == std::end(kRules) ? nullptr : rule;
}

Span constrained(const Axis& axis, unsigned given) {
    const auto at = [&](const std::optional<RelativeLength>& length) {
        return resolve(length.value_or(RelativeLength{}), static_cast<int32_t>(axis.extent));
    };
    const int64_t size = std::max<int64_t>(given & kFixed ? axis.fixed->value_or(0) : axis.size, 0);
    switch (given & (kNear | kFar | kCenter)) {
        case kNear | kFar: {
            const auto [first, last] = std::minmax({at(*axis.near), at(*axis.far)});
            return {first, last - first};
        }
        case kNear:
            return {at(*axis.near), size};
        case kFar:
            return {at(*axis.far) - size, size};
        case kCenter:
            return {at(*axis.center) - size / 2, size};
        default:
            return {axis.position, size};
    }
}

Span anchored(const Axis& axis) {
    const int64_t farMargin = axis.designExtent - (axis.position + axis.size);
    if (axis.anchoredNear && axis.anchoredFar) {
        return {axis.position, axis.extent - axis.position - farMargin};
    }
    if (axis.anchoredFar) {
        return {axis.extent - farMargin - axis.size, axis.size};
    }
    return {axis.position, axis.size};
}

AxisResult place(const Axis& axis) {
    const Rule* const rule = ruleFor(axis);
    Span span = rule != nullptr ? constrained(axis, rule->given) : anchored(axis);
    AxisResult result{span, span, span};
    if (span.size < axis.minimum) {
        const int64_t growth = axis.minimum - span.size;
        // A far anchor alone tells the side to grow to, even where a constraint has placed the control.
        if ((axis.anchoredFar && !axis.anchoredNear) || (rule != nullptr && rule->alignment == Alignment::Far)) {
            span.position -= growth;
        } else if (rule != nullptr && rule->alignment == Alignment::Center) {
            span.position -= growth / 2;
        }
        span.size = axis.minimum;
        result.clamped = true;
    }
    result.beforeFit = span;
    if (span.size > axis.extent) {
        result.fitted = true;
        result.minimumCannotFit = axis.minimum > axis.extent;
        span = {0, axis.extent};
    } else {
        const int64_t position = std::clamp<int64_t>(span.position, 0, axis.extent - span.size);
        result.fitted = position != span.position;
        span.position = position;
    }
    result.final = span;
    return result;
}

Rect combine(const Span& x, const Span& y) {
    return {saturate(x.position), saturate(y.position), saturate(x.size), saturate(y.size)};
}

}  // namespace

Size captureDesignParent(const Rect& base, Size parent) {
    return larger(parent, {base.right(), base.bottom()});
}

LayoutResult placeControl(const LayoutRequest& request) {
    Axis x{.position = request.base.x,
           .size = request.base.width,
           .designExtent = request.designParent.width,
           .extent = request.parentArea.width,
           .minimum = std::max(request.minimum.width, 0),
           .anchoredNear = (request.anchors & kAnchorLeft) != 0,
           .anchoredFar = (request.anchors & kAnchorRight) != 0};
    Axis y{.position = request.base.y,
           .size = request.base.height,
           .designExtent = request.designParent.height,
           .extent = request.parentArea.height,
           .minimum = std::max(request.minimum.height, 0),
           .anchoredNear = (request.anchors & kAnchorTop) != 0,
           .anchoredFar = (request.anchors & kAnchorBottom) != 0};
    if (const Constraints* const given = request.constraints) {
        x.near = &given->left, x.far = &given->right, x.center = &given->centerX, x.fixed = &given->width;
        y.near = &given->top, y.far = &given->bottom, y.center = &given->centerY, y.fixed = &given->height;
    }
    const AxisResult across = place(x);
    const AxisResult down = place(y);
    return {.bounds = combine(across.final, down.final).offset(request.parentArea.position()),
            .beforeClamp = combine(across.beforeClamp, down.beforeClamp),
            .beforeFit = combine(across.beforeFit, down.beforeFit),
            .clamped = {across.clamped, down.clamped},
            .fitted = {across.fitted, down.fitted},
            .minimumCannotFit = {across.minimumCannotFit, down.minimumCannotFit}};
}

Size neededExtent(const Rect& base, Size designParent, uint32_t anchors, Size minimum) {
    const auto needed = [](int64_t position, int64_t size, int64_t designExtent, int64_t least, bool near, bool far) {
        const int64_t farMargin = designExtent >= 1 ? std::max<int64_t>(0, designExtent - (position + size)) : 0;
        return saturate((far && !near ? 0 : position) + least + (far ? farMargin : 0));
    };
    return {
        needed(base.x, base.width, designParent.width, minimum.width, anchors & kAnchorLeft, anchors & kAnchorRight),
        needed(base.y, base.height, designParent.height, minimum.height, anchors & kAnchorTop,
               anchors & kAnchorBottom)};
}

}  // namespace tavi
