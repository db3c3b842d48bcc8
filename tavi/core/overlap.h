// Siblings that lie on each other. That is a fault of the layout unless one of them is meant to be an overlay.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "tavi/core/geometry.h"

namespace tavi {

// All pairs of positions whose rectangles share a pixel, the smaller position first, in order. Empty rectangles overlap
// nothing.
std::vector<std::pair<size_t, size_t>> overlappingPairs(const std::vector<Rect>& rects);

}  // namespace tavi
