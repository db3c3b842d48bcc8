#include "tavi/core/popup_window.h"

#include <algorithm>

namespace tavi {

Rect placePopup(const Rect& anchor, Size size, const Rect& workArea, bool rightToLeft, bool shrinks) {
    const int64_t below = int64_t{workArea.bottom()} - anchor.bottom();
    const int64_t above = int64_t{anchor.y} - workArea.y;
    const bool goesBelow = size.height <= below || (size.height > above && below >= above);
    const int64_t room = shrinks ? std::max<int64_t>(goesBelow ? below : above, 0) : int64_t{workArea.height};
    const int64_t height = std::min<int64_t>(size.height, room);
    const int64_t width = std::min(size.width, workArea.width);
    const int64_t x = rightToLeft ? anchor.right() - width : int64_t{anchor.x};
    const int64_t y = goesBelow ? int64_t{anchor.bottom()} : anchor.y - height;
    return {saturate(std::clamp<int64_t>(x, workArea.x, workArea.x + (workArea.width - width))),
            saturate(std::clamp<int64_t>(y, workArea.y, workArea.y + (workArea.height - height))), saturate(width),
            saturate(height)};
}

}  // namespace tavi
