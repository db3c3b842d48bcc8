// The parts of the client area that have to be painted again, gathered between two paints: a few rectangles that cover
// all requests. Many small requests far apart stay small; when there are too many, the closest are joined.
#pragma once

#include <vector>

#include "tavi/core/geometry.h"

namespace tavi {

class DirtyArea {
public:
    static constexpr size_t kMostRects = 8;

    // Returns false when the area was already covered. An empty one covers nothing.
    bool add(const Rect& area);
    const std::vector<Rect>& rects() const { return rects_; }
    bool empty() const { return rects_.empty(); }
    // Gives up what was gathered.
    std::vector<Rect> take();

private:
    std::vector<Rect> rects_;
};

}  // namespace tavi
