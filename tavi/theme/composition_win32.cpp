#include "tavi/theme/composition.h"

#include <windows.h>

#include <algorithm>

#include "base/win32/system_library.h"
#include "tavi/core/drawing.h"

namespace tavi {
namespace {

// Copying needs no bitmap of Windows' own and no blending. Below so many pixels parting a picture costs more than that.
constexpr int64_t kWorthCopying = 12000;

BITMAPINFO topDown(Size size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

// A device-independent bitmap selected into a device context of its own, for one composition.
class Section {
public:
    explicit Section(Size size) {
        const BITMAPINFO info = topDown(size);
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        context_ = bitmap_ != nullptr ? CreateCompatibleDC(nullptr) : nullptr;
        if (context_ != nullptr) {
            before_ = SelectObject(context_, bitmap_);
            pixels_ = static_cast<Pixel*>(bits);
        }
    }
    ~Section() {
        if (context_ != nullptr) {
            SelectObject(context_, before_);
            DeleteDC(context_);
        }
        if (bitmap_ != nullptr) {
            DeleteObject(bitmap_);
        }
    }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

    // Null when it could not be made.
    Pixel* pixels() const { return pixels_; }
    HDC context() const { return context_; }

private:
    HBITMAP bitmap_ = nullptr;
    HDC context_ = nullptr;
    HGDIOBJ before_ = nullptr;
    Pixel* pixels_ = nullptr;
};

Rect visiblePart(HDC target, const Rect& area) {
    RECT clip{};
    return GetClipBox(target, &clip) == ERROR ? Rect{} : intersection(area, fromWindows(clip));
}

using AlphaBlendFunction = decltype(AlphaBlend);

// Not among the DLLs that Windows pins, so it is no import.
AlphaBlendFunction* alphaBlend() {
    static AlphaBlendFunction* const function =
        base::SystemLibrary(L"msimg32.dll").function<AlphaBlendFunction>("AlphaBlend");
    return function;
}

// Both for the part `area` of the device, where the picture's corner lies at `at`.
void blend(HDC target, const Rect& area, Point at, const PixelBuffer& picture) {
    AlphaBlendFunction* const function = alphaBlend();
    if (area.empty() || function == nullptr) {
        return;
    }
    const Section section(area.size());
    if (section.pixels() == nullptr) {
        return;
    }
    Pixel* to = section.pixels();
    for (int32_t y = 0; y < area.height; ++y, to += area.width) {
        std::copy_n(picture.row(area.y - at.y + y) + (area.x - at.x), area.width, to);
    }
    function(target, area.x, area.y, area.width, area.height, section.context(), 0, 0, area.width, area.height,
             {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}

void copy(HDC target, const Rect& area, Point at, const PixelBuffer& picture) {
    // The rows from the first one of the area on are a picture of their own, so that the source begins at its top.
    const BITMAPINFO info = topDown({picture.size().width, area.height});
    SetDIBitsToDevice(target, area.x, area.y, static_cast<DWORD>(area.width), static_cast<DWORD>(area.height),
                      area.x - at.x, 0, 0, static_cast<UINT>(area.height), picture.row(area.y - at.y), &info,
                      DIB_RGB_COLORS);
}

}  // namespace

bool isClippedAway(HDC target, const Rect& area) {
    return visiblePart(target, area).empty();
}

void compose(HDC target, Point at, const PixelBuffer& picture, const Rect& opaque) {
    const Size size = picture.size();
    const Rect visible = visiblePart(target, {at.x, at.y, size.width, size.height});
    const Rect copied = intersection(visible, opaque.offset(at));
    if (int64_t{copied.width} * copied.height < kWorthCopying) {
        blend(target, visible, at, picture);
        return;
    }
    copy(target, copied, at, picture);
    blend(target, rectBetween(visible.x, visible.y, visible.right(), copied.y), at, picture);
    blend(target, rectBetween(visible.x, copied.bottom(), visible.right(), visible.bottom()), at, picture);
    blend(target, rectBetween(visible.x, copied.y, copied.x, copied.bottom()), at, picture);
    blend(target, rectBetween(copied.right(), copied.y, visible.right(), copied.bottom()), at, picture);
}

}  // namespace tavi
