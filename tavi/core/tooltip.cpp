#include "tavi/core/tooltip.h"

#include <algorithm>

namespace tavi {

TooltipPlace placeTooltip(const Rect& anchor, Size size, const Rect& within, int32_t distance, bool rightToLeft) {
    const int32_t x = rightToLeft ? saturate(int64_t{anchor.right()} - size.width) : anchor.x;
    const int64_t below = int64_t{anchor.bottom()} + distance;
    const int64_t above = int64_t{anchor.y} - distance - size.height;
    const bool fitsBelow = below + size.height <= within.bottom();
    TooltipPlace place;
    place.before = {x, saturate(fitsBelow || above < within.y ? below : above), size.width, size.height};
    place.lowestX = within.x;
    place.lowestY = within.y;
    place.highestX = std::max(within.x, saturate(int64_t{within.right()} - size.width));
    place.highestY = std::max(within.y, saturate(int64_t{within.bottom()} - size.height));
    place.bounds = {std::clamp(place.before.x, place.lowestX, place.highestX),
                    std::clamp(place.before.y, place.lowestY, place.highestY), size.width, size.height};
    return place;
}

std::wstring reportTooltipClamp(const Rect& anchor, Size size, const TooltipPlace& place, const Rect& within) {
    const auto range = [](int32_t lowest, int32_t highest) {
        return L"[" + std::to_wstring(lowest) + L", " + std::to_wstring(highest) + L"]";
    };
    return L"[Tavi layout warning] tooltip placement clamp anchor=" + describe(anchor) + L" before=" +
           describe(place.before) + L" after=" + describe(place.bounds) + L" tooltipSize=" + describe(size) +
           L" clampX=" + range(place.lowestX, place.highestX) + L" clampY=" + range(place.lowestY, place.highestY) +
           L" placementBounds=" + describe(within);
}

Control* tooltipOwner(Control* hovered) {
    while (hovered != nullptr && hovered->tooltip().empty()) {
        hovered = hovered->parent();
    }
    return hovered;
}

void TooltipPolicy::hide() {
    platform_.setTimer(WindowTimer::Tooltip, 0);
    if (state_ == State::Shown) {
        platform_.hideTooltip();
    }
}

void TooltipPolicy::hover(Control* hovered) {
    Control* const owner = tooltipOwner(hovered);
    if (owner == owner_.get() && (owner != nullptr || state_ == State::Idle)) {
        return;
    }
    const bool wasShown = state_ == State::Shown;
    hide();
    owner_.set(owner);
    state_ = owner != nullptr ? State::Waiting : State::Idle;
    if (owner != nullptr) {
        platform_.setTimer(WindowTimer::Tooltip, wasShown ? kNextTooltipDelay : kTooltipDelay);
    }
}

void TooltipPolicy::dismiss() {
    hide();
    state_ = owner_ ? State::Dismissed : State::Idle;
}

void TooltipPolicy::timeOut(const Scale& scale) {
    platform_.setTimer(WindowTimer::Tooltip, 0);
    if (state_ != State::Waiting || !owner_ || !owner_->shown()) {
        return;
    }
    state_ = State::Shown;
    const Rect anchor = owner_->tooltipAnchor().value_or(owner_->localBounds()).offset(owner_->clientOrigin());
    platform_.showTooltip(owner_->tooltip(), scale.device(anchor));
}

}  // namespace tavi
