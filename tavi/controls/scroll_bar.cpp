#include "tavi/controls/scroll_bar.h"

#include <utility>

namespace tavi {
ScrollBar::ScrollBar(std::wstring id, const Rect& bounds, bool vertical)
    : Control(std::move(id), bounds), vertical_(vertical) {}
void ScrollBar::setRange(int64_t /*range*/, int64_t /*page*/, int64_t /*line*/) {}
void ScrollBar::setValue(int64_t /*value*/) {}
bool ScrollBar::matchesType(std::wstring_view type) const {
    return type == L"scrollbar";
}
void ScrollBar::automationValue(std::wstring& /*value*/) const {}
void ScrollBar::paint(HDC /*target*/, Point /*origin*/) {}
void ScrollBar::releaseCaches() {}
bool ScrollBar::pointerMove(PointerEvent& /*event*/) {
    return false;
}
bool ScrollBar::pointerPress(PointerEvent& /*event*/) {
    return false;
}
bool ScrollBar::pointerRelease(PointerEvent& /*event*/) {
    return false;
}
bool ScrollBar::pointerWheel(WheelEvent& /*event*/) {
    return false;
}
void ScrollBar::inputCancelled() {}
void ScrollBar::pointerEntered() {}
void ScrollBar::pointerLeft() {}
ScrollBar::Piece ScrollBar::pieceAt(Point /*local*/) const {
    return {};
}
Rect ScrollBar::areaOf(Piece /*piece*/) const {
    return {};
}
void ScrollBar::repeat() {}

}  // namespace tavi
