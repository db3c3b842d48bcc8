#include "tools/gallery/sheet.h"

#include <windows.h>

#include <algorithm>

#include "tavi/core/drawing.h"
#include "tavi/theme/composition.h"
#include "tools/gallery/text.h"

namespace gallery {
namespace {

constexpr tavi::Color kGround = tavi::hexColor(0x46484C);
constexpr tavi::Color kLabel = tavi::hexColor(0xE4E6EA);

tavi::Size extentOf(const SheetLayout& layout) {
    const int rows = (layout.count + layout.columns - 1) / layout.columns;
    return {layout.gap + layout.columns * (layout.tile.width + layout.gap),
            layout.gap + rows * (layout.tile.height + kLabelHeight + layout.gap / 2)};
}

}  // namespace

Canvas::Canvas(tavi::Size size) : size_(size) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    target_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    before_ = SelectObject(target_, bitmap_);
    pixels_ = static_cast<const tavi::Pixel*>(bits);
}

Canvas::~Canvas() {
    SelectObject(target_, before_);
    DeleteObject(bitmap_);
    DeleteDC(target_);
}

tavi::PixelBuffer Canvas::picture() const {
    GdiFlush();
    tavi::PixelBuffer copy(size_);
    std::ranges::transform(pixels_, pixels_ + copy.pixels().size(), copy.pixels().begin(),
                           [](tavi::Pixel pixel) { return pixel | 0xFF000000U; });
    return copy;
}

tavi::PixelBuffer halved(const tavi::PixelBuffer& picture) {
    tavi::PixelBuffer half({picture.size().width / 2, picture.size().height / 2});
    for (int32_t y = 0; y < half.size().height; ++y) {
        const tavi::Pixel* const above = picture.row(2 * y);
        const tavi::Pixel* const below = picture.row(2 * y + 1);
        for (int32_t x = 0; x < half.size().width; ++x) {
            tavi::Pixel mean = 0;
            for (int shift = 0; shift < 32; shift += 8) {
                const auto channel = [shift](tavi::Pixel pixel) { return pixel >> shift & 0xFF; };
                const tavi::Pixel sum = channel(above[2 * x]) + channel(above[2 * x + 1]) + channel(below[2 * x]) +
                                        channel(below[2 * x + 1]);
                mean |= (sum + 2) / 4 << shift;
            }
            half.view().row(y)[x] = mean;
        }
    }
    return half;
}

Sheet::Sheet(const SheetLayout& layout)
    : layout_(layout),
      canvas_(extentOf(layout)),
      font_(makeFont({.uiFontFamily = L"Inter", .uiPointSize = 9, .uiWeight = 400}, Face::kUi, 100)) {
    const tavi::Size extent = extentOf(layout);
    tavi::fillRect(target(), {0, 0, extent.width, extent.height}, kGround);
}

Sheet::~Sheet() {
    DeleteObject(font_);
}

tavi::Rect Sheet::add(std::wstring_view label) {
    const int column = used_ % layout_.columns;
    const int row = used_ / layout_.columns;
    ++used_;
    const tavi::Rect tile{layout_.gap + column * (layout_.tile.width + layout_.gap),
                          layout_.gap + row * (layout_.tile.height + kLabelHeight + layout_.gap / 2),
                          layout_.tile.width, layout_.tile.height};
    write(tile, label);
    return tile;
}

void Sheet::write(const tavi::Rect& tile, std::wstring_view label) {
    drawText(target(), {tile.x, tile.bottom() + 1, tile.width, kLabelHeight}, font_, kLabel, label, Align::kCentre, 0);
}

void Sheet::addAt(tavi::Point place, std::wstring_view label, const tavi::PixelBuffer& picture) {
    write({place.x, place.y, picture.size().width, picture.size().height}, label);
    tavi::compose(target(), place, picture);
}

void Sheet::add(std::wstring_view label, const tavi::PixelBuffer& picture) {
    tavi::compose(target(), add(label).position(), picture);
}

}  // namespace gallery
