#include "tavi/core/drawing.h"

#include <windows.h>

namespace tavi {

RECT toWindows(const Rect& rect) {
    return {rect.x, rect.y, rect.right(), rect.bottom()};
}

Rect fromWindows(const RECT& rect) {
    return rectBetween(rect.left, rect.top, rect.right, rect.bottom);
}

void fillRect(HDC target, const Rect& area, uint32_t color) {
    const RECT rect = toWindows(area);
    SetDCBrushColor(target, color);
    FillRect(target, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void frameRect(HDC target, const Rect& area, uint32_t color) {
    const RECT rect = toWindows(area);
    SetDCBrushColor(target, color);
    FrameRect(target, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace tavi
