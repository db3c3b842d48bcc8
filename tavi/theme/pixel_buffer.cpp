#include "tavi/theme/pixel_buffer.h"

namespace tavi {

PixelView PixelView::part(const Rect& area) const {
    const Rect inside = intersection(area, {0, 0, width, height});
    if (inside.empty()) {
        return {};
    }
    return {row(inside.y) + inside.x, inside.width, inside.height, stride};
}

PixelBuffer::PixelBuffer(Size size) {
    if (size.positive()) {
        size_ = size;
        pixels_.resize(static_cast<size_t>(size.width) * static_cast<size_t>(size.height));
    }
}

PixelView PixelBuffer::view() {
    return {pixels_.data(), size_.width, size_.height, size_.width};
}

}  // namespace tavi
