// A window's way from what is dirty to the screen, and what is drawn over the tree.
#include <windows.h>

#include "tavi/core/window_native.h"

namespace tavi {
namespace {

constexpr int32_t kOverlayFontHeight = 11;  // design pixels
constexpr uint32_t kOverlayGround = 0x202020;

RECT toWindows(const Rect& rect) {
    return {rect.x, rect.y, rect.right(), rect.bottom()};
}

void fillWith(HDC target, const Rect& area, uint32_t color) {
    const RECT rect = toWindows(area);
    SetDCBrushColor(target, color);
    FillRect(target, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void frameWith(HDC target, const Rect& area, uint32_t color) {
    const RECT rect = toWindows(area);
    SetDCBrushColor(target, color);
    FrameRect(target, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace

void WindowNative::schedulePaint(const Rect& area) {
    const RECT rect = toWindows(area);
    // A window that is shown later is painted whole then.
    if (handle_ != nullptr && IsWindowVisible(handle_)) {
        InvalidateRect(handle_, &rect, FALSE);
    }
}

// What was only uncovered is copied from the buffer; controls are painted where something has changed.
WindowNative::Answer WindowNative::onPaint(const Message& /*message*/) {
    PAINTSTRUCT paint{};
    const HDC screen = BeginPaint(handle_, &paint);
    RECT client{};
    GetClientRect(handle_, &client);
    const BackBuffer::Change change = client.right > 0 && client.bottom > 0
                                          ? buffer_.fit(screen, {client.right, client.bottom})
                                          : BackBuffer::Change::Failed;
    if (change == BackBuffer::Change::Made) {
        tree_->repaintAll();
    }
    if (change != BackBuffer::Change::Failed) {
        ++(tree_->needsPaint() ? paintCounts_.painted : paintCounts_.copied);
        tree_->paint(buffer_.target());
        const RECT& area = paint.rcPaint;
        buffer_.copyTo(screen, rectBetween(area.left, area.top, area.right, area.bottom));
    }
    EndPaint(handle_, &paint);
    return 0;
}

WindowNative::Answer WindowNative::onPrintClient(const Message& message) {
    const HDC target = reinterpret_cast<HDC>(message.wParam);
    RECT client{};
    GetClientRect(handle_, &client);
    const Size size{client.right, client.bottom};
    const BackBuffer::Change change = size.positive() ? buffer_.fit(target, size) : BackBuffer::Change::Failed;
    if (change == BackBuffer::Change::Made) {
        tree_->repaintAll();
    }
    if (change != BackBuffer::Change::Failed) {
        tree_->paint(buffer_.target());
        buffer_.copyTo(target, {0, 0, size.width, size.height});
    }
    return 0;
}

// Everything is painted from the buffer; erasing would flicker.
WindowNative::Answer WindowNative::onEraseBackground(const Message& /*message*/) {
    return 1;
}

WindowNative::Answer WindowNative::onFramePaint(const Message& /*message*/) {
    return customChrome_ ? Answer(0) : std::nullopt;
}

WindowNative::Answer WindowNative::onFrameActivate(const Message& message) {
    // -1 keeps Windows from painting a frame that is not there.
    return customChrome_ ? Answer(DefWindowProcW(handle_, WM_NCACTIVATE, message.wParam, -1)) : std::nullopt;
}

void WindowNative::fill(HDC target, const Rect& area, uint32_t color) {
    fillWith(target, area, color);
}

void WindowNative::pushClip(HDC target, const Rect& area) {
    clips_.push(target, area);
}

void WindowNative::popClip(HDC target) {
    clips_.pop(target);
}

void WindowNative::drawOverlay(HDC target, const std::vector<OverlayItem>& items) {
    LOGFONTW description{};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(description), &description);
    description.lfHeight = -tree_->scale().length(kOverlayFontHeight);
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ fontBefore = SelectObject(target, font);
    const int mode = SetBkMode(target, TRANSPARENT);
    for (const OverlayItem& item : items) {
        const Rect area = tree_->scale().device(item.area);
        if (item.kind == OverlayItem::Kind::Fill) {
            fillWith(target, area, item.color);
        } else if (item.kind == OverlayItem::Kind::Frame) {
            frameWith(target, area, item.color);
        } else {
            SIZE extent{};
            const int length = static_cast<int>(item.text.size());
            GetTextExtentPoint32W(target, item.text.c_str(), length, &extent);
            fillWith(target,
                     {area.x, area.y, std::min<int32_t>(extent.cx + 6, area.width),
                      std::min<int32_t>(extent.cy + 2, area.height)},
                     kOverlayGround);
            SetTextColor(target, item.color);
            const RECT clip = toWindows(area);
            ExtTextOutW(target, area.x + 3, area.y + 1, ETO_CLIPPED, &clip, item.text.c_str(),
                        static_cast<UINT>(length), nullptr);
        }
    }
    SetBkMode(target, mode);
    SelectObject(target, fontBefore);
    DeleteObject(font);
}

void WindowNative::showTooltip(const std::wstring& text, const Rect& anchor) {
    POINT corner{anchor.x, anchor.y};
    ClientToScreen(handle_, &corner);
    const Rect onScreen{corner.x, corner.y, anchor.width, anchor.height};
    const Rect area = workArea();
    const std::optional<TooltipPlace> place =
        tooltip_.show({.owner = handle_, .text = text, .anchor = onScreen, .workArea = area, .dpi = dpi_});
    if (place && place->clamped() && tree_->diagnostics()) {
        tree_->writeDiagnostic(reportTooltipClamp(onScreen, place->bounds.size(), *place, area));
    }
}

void WindowNative::hideTooltip() {
    tooltip_.hide();
}

}  // namespace tavi
