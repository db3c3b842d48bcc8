#include <windows.h>

#include "tavi/core/back_buffer.h"

namespace tavi {

BackBuffer::Change BackBuffer::fit(HDC like, Size size) {
    if (target_ != nullptr && size == size_) {
        return Change::Kept;
    }
    reset();
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;  // top-down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    target_ = CreateCompatibleDC(like);
    bitmap_ = CreateDIBSection(like, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (target_ == nullptr || bitmap_ == nullptr) {
        reset();
        return Change::Failed;
    }
    originalBitmap_ = static_cast<HBITMAP>(SelectObject(target_, bitmap_));
    size_ = size;
    return Change::Made;
}

void BackBuffer::copyTo(HDC window, const Rect& area) const {
    BitBlt(window, area.x, area.y, area.width, area.height, target_, area.x, area.y, SRCCOPY);
}

void BackBuffer::reset() {
    if (originalBitmap_ != nullptr) {
        SelectObject(target_, originalBitmap_);
    }
    if (bitmap_ != nullptr) {
        DeleteObject(bitmap_);
    }
    if (target_ != nullptr) {
        DeleteDC(target_);
    }
    target_ = nullptr;
    bitmap_ = originalBitmap_ = nullptr;
    size_ = {};
}

ClipStack::~ClipStack() {
    for (const Saved& saved : saved_) {
        DeleteObject(saved.region);
    }
    if (area_ != nullptr) {
        DeleteObject(area_);
    }
}

void ClipStack::push(HDC target, const Rect& area) {
    if (area_ == nullptr) {
        area_ = CreateRectRgn(0, 0, 0, 0);
    }
    if (depth_ == saved_.size()) {
        saved_.push_back({CreateRectRgn(0, 0, 0, 0), false});
    }
    Saved& saved = saved_[depth_++];
    saved.clipped = GetClipRgn(target, saved.region) == 1;
    SetRectRgn(area_, area.x, area.y, area.right(), area.bottom());
    ExtSelectClipRgn(target, area_, RGN_AND);
}

void ClipStack::pop(HDC target) {
    const Saved& saved = saved_[--depth_];
    SelectClipRgn(target, saved.clipped ? saved.region : nullptr);
}

}  // namespace tavi
