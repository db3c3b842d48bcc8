// A window's way from what is dirty to the screen.
#include <windows.h>

#include "tavi/core/drawing.h"
#include "tavi/core/window_native.h"

namespace tavi {
void WindowNative::schedulePaint(const Rect& area) {
    const RECT rect = toWindows(area);
    // A window that is shown later is painted whole then.
    if (handle_ != nullptr && IsWindowVisible(handle_)) {
        InvalidateRect(handle_, &rect, FALSE);
    }
}

// Brings the buffer up to date. False when there is none: nothing to paint on, or no memory.
bool WindowNative::paintBuffer(HDC like) {
    RECT client{};
    GetClientRect(handle_, &client);
    const Size size{client.right, client.bottom};
    const BackBuffer::Change change = size.positive() ? buffer_.fit(like, size) : BackBuffer::Change::Failed;
    if (change == BackBuffer::Change::Failed) {
        return false;
    }
    if (change == BackBuffer::Change::Made) {
        tree_->repaintAll();
    }
    ++(tree_->needsPaint() ? paintCounts_.painted : paintCounts_.copied);
    tree_->paint(buffer_.target());
    return true;
}

// What was only uncovered is copied from the buffer; controls are painted where something has changed.
WindowNative::Answer WindowNative::onPaint(const Message& /*message*/) {
    // Before the paint begins: hooks may do anything, even open a dialog or destroy this window.
    tree_->update();
    if (handle_ == nullptr) {
        return 0;
    }
    PAINTSTRUCT paint{};
    const HDC screen = BeginPaint(handle_, &paint);
    if (paintBuffer(screen)) {
        buffer_.copyTo(screen, fromWindows(paint.rcPaint));
    }
    EndPaint(handle_, &paint);
    return 0;
}

WindowNative::Answer WindowNative::onPrintClient(const Message& message) {
    const HDC target = reinterpret_cast<HDC>(message.wParam);
    RECT client{};
    GetClientRect(handle_, &client);
    if (paintBuffer(target)) {
        buffer_.copyTo(target, fromWindows(client));
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
    fillRect(target, area, color);
}

void WindowNative::pushClip(HDC target, const Rect& area) {
    clips_.push(target, area);
}

void WindowNative::popClip(HDC target) {
    clips_.pop(target);
}

}  // namespace tavi
