#include "tavi/core/overlap.h"

#include <algorithm>

namespace tavi {

std::vector<std::pair<size_t, size_t>> overlappingPairs(const std::vector<Rect>& rects) {
    std::vector<size_t> byLeft;
    for (size_t i = 0; i < rects.size(); ++i) {
        if (!rects[i].empty()) {
            byLeft.push_back(i);
        }
    }
    std::ranges::sort(byLeft, {}, [&](size_t i) { return rects[i].x; });
    std::vector<std::pair<size_t, size_t>> pairs;
    // A sweep from left to right: what begins beyond a rectangle's right edge cannot overlap it.
    for (size_t i = 0; i < byLeft.size(); ++i) {
        const Rect& rect = rects[byLeft[i]];
        const int64_t right = int64_t{rect.x} + rect.width;
        for (size_t j = i + 1; j < byLeft.size() && rects[byLeft[j]].x < right; ++j) {
            if (!intersection(rect, rects[byLeft[j]]).empty()) {
                pairs.push_back(std::minmax(byLeft[i], byLeft[j]));
            }
        }
    }
    std::ranges::sort(pairs);
    return pairs;
}

}  // namespace tavi
