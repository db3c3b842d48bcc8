#include "tavi/theme/surface_rows.h"

#include <algorithm>

namespace tavi {

Span intersection(Span a, Span b) {
    const Span both{std::max(a.begin, b.begin), std::min(a.end, b.end)};
    return both.empty() ? Span{} : both;
}

SurfaceRows::SurfaceRows(PixelView target, const Rect& area, ButtonShape shape, int border)
    : target_(target),
      area_(area),
      outline_(shape, area.width, area.height),
      border_(std::max(border, 0)),
      kernels_(rasterKernels()) {}

Span SurfaceRows::rows(int above, int below) const {
    return intersection(Span{-above, area_.height + below}, Span{-area_.y, target_.height - area_.y});
}

Span SurfaceRows::columns(int before, int behind) const {
    return intersection(Span{-before, area_.width + behind}, Span{-area_.x, target_.width - area_.x});
}

SurfaceRows::Cover SurfaceRows::cover(float distance, int x, int y) const {
    const int all = outline_.coverageAt(distance, x, y);
    if (border_ == 0) {
        return {all, all};
    }
    const float inner = 127.5F - (distance + static_cast<float>(border_)) * 255;
    return {all, std::min(all, static_cast<int>(std::clamp(inner, 0.0F, 255.0F) + 0.5F))};
}

Span SurfaceRows::fullSpan(int y, bool inner) const {
    return outline_.deepSpan(y, 0.5F + static_cast<float>(inner ? border_ : 0));
}

void SurfaceRows::coverRow(int y, Span span, bool inner, uint8_t* mask) {
    const Span full = intersection(span, fullSpan(y, inner));
    const Span parts[] = {{span.begin, full.empty() ? span.end : full.begin},
                          {full.empty() ? span.end : full.end, span.end}};
    for (const Span& part : parts) {
        if (part.empty()) {
            continue;
        }
        edge_.resize(std::max(edge_.size(), static_cast<size_t>(part.end - part.begin)));
        outline_.distances(part.begin, y, part.end - part.begin, edge_.data());
        for (int x = part.begin; x < part.end; ++x) {
            const Cover covered = cover(edge_[static_cast<size_t>(x - part.begin)], x, y);
            mask[x - span.begin] = static_cast<uint8_t>(inner ? covered.inner : covered.all);
        }
    }
    if (!full.empty()) {
        std::fill(mask + (full.begin - span.begin), mask + (full.end - span.begin), uint8_t{255});
    }
}

uint8_t* SurfaceRows::maskRow(int count) {
    mask_.resize(std::max(mask_.size(), static_cast<size_t>(count)));
    return mask_.data();
}

float* SurfaceRows::distanceRow(int count) {
    distances_.resize(std::max(distances_.size(), static_cast<size_t>(count)));
    return distances_.data();
}

}  // namespace tavi
