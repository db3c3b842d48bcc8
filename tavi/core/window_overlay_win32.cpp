// The debug overlay on a device context.
#include <windows.h>

#include <algorithm>

#include "tavi/core/drawing.h"
#include "tavi/core/window_native.h"

namespace tavi {
namespace {

constexpr int32_t kFontHeight = 11;  // design pixels
constexpr uint32_t kTextGround = 0x202020;

// A line of text at the upper left of its room, on a ground of its own.
void drawLabel(HDC target, const Rect& room, const OverlayItem& item) {
    SIZE extent{};
    const int length = static_cast<int>(item.text.size());
    GetTextExtentPoint32W(target, item.text.c_str(), length, &extent);
    const Size label{std::min<int32_t>(extent.cx + 6, room.width), std::min<int32_t>(extent.cy + 2, room.height)};
    fillRect(target, {room.x, room.y, label.width, label.height}, kTextGround);
    SetTextColor(target, item.color);
    const RECT clip = toWindows(room);
    ExtTextOutW(target, room.x + 3, room.y + 1, ETO_CLIPPED, &clip, item.text.c_str(), static_cast<UINT>(length),
                nullptr);
}

}  // namespace

void WindowNative::drawOverlay(HDC target, const std::vector<OverlayItem>& items) {
    LOGFONTW description{};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(description), &description);
    description.lfHeight = -tree_->scale().length(kFontHeight);
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ fontBefore = SelectObject(target, font);
    const int mode = SetBkMode(target, TRANSPARENT);
    for (const OverlayItem& item : items) {
        const Rect area = tree_->scale().device(item.area);
        if (item.kind == OverlayItem::Kind::Frame) {
            frameRect(target, area, item.color);
        } else {
            drawLabel(target, area, item);
        }
    }
    SetBkMode(target, mode);
    SelectObject(target, fontBefore);
    DeleteObject(font);
}

}  // namespace tavi
