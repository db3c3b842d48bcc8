#include "tavi/core/dirty_area.h"

#include <algorithm>
#include <utility>

namespace tavi {
namespace {

int64_t area(const Rect& rect) {
    return int64_t{rect.width} * rect.height;
}

// The pixels that joining both would paint for nothing.
int64_t waste(const Rect& a, const Rect& b) {
    return area(unionOf(a, b)) - area(a) - area(b);
}

}  // namespace

bool DirtyArea::add(const Rect& area) {
    if (area.empty() || std::ranges::any_of(rects_, [&](const Rect& rect) { return rect.contains(area); })) {
        return false;
    }
    Rect added = area;
    std::erase_if(rects_, [&](const Rect& rect) { return added.contains(rect); });
    // Whatever can be joined without painting more than both is: rectangles that overlap much or continue each other.
    for (size_t i = 0; i < rects_.size();) {
        if (waste(rects_[i], added) <= 0) {
            added = unionOf(rects_[i], added);
            rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(i));
            i = 0;
        } else {
            ++i;
        }
    }
    if (rects_.size() == kMostRects) {
        const auto closest = std::ranges::min_element(rects_, {}, [&](const Rect& rect) { return waste(rect, added); });
        added = unionOf(*closest, added);
        rects_.erase(closest);
        return add(added), true;
    }
    rects_.push_back(added);
    return true;
}

std::vector<Rect> DirtyArea::take() {
    return std::exchange(rects_, {});
}

}  // namespace tavi
