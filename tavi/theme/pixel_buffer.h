// Pictures in memory: 4 bytes a pixel in the order blue, green, red, alpha, rows top-down, colors premultiplied by
// alpha. As a number of 32 bits on the processors that Windows runs on, a pixel is 0xAARRGGBB.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/theme/color.h"

namespace tavi {

using Pixel = uint32_t;

// `value` (0 to 255) times `alpha` in 255 parts, rounded down.
constexpr uint32_t scaledByAlpha(int value, uint8_t alpha) {
    return static_cast<uint32_t>(value) * alpha / 255;
}

// The color at that opacity, each channel times alpha divided by 255, rounded down.
constexpr Pixel premultiplied(Color color, uint8_t alpha) {
    return scaledByAlpha(blueOf(color), alpha) | scaledByAlpha(greenOf(color), alpha) << 8 |
           scaledByAlpha(redOf(color), alpha) << 16 | static_cast<Pixel>(alpha) << 24;
}

// Pixels of someone else's. Rows are `stride` pixels apart.
struct PixelView {
    Pixel* pixels = nullptr;
    int width = 0;
    int height = 0;
    ptrdiff_t stride = 0;

    Pixel* row(int y) const { return pixels + y * stride; }
    // The part of it that lies in `area`; empty where they do not meet.
    PixelView part(const Rect& area) const;
};

// A picture that owns its pixels, transparent to begin with.
class PixelBuffer {
public:
    PixelBuffer() = default;
    // An empty picture for a size that is not positive.
    explicit PixelBuffer(Size size);

    Size size() const { return size_; }
    bool empty() const { return pixels_.empty(); }
    size_t bytes() const { return pixels_.size() * sizeof(Pixel); }
    const Pixel* row(int y) const { return pixels_.data() + static_cast<ptrdiff_t>(y) * size_.width; }
    PixelView view();
    std::vector<Pixel>& pixels() { return pixels_; }
    const std::vector<Pixel>& pixels() const { return pixels_; }

    bool operator==(const PixelBuffer&) const = default;

private:
    Size size_;
    std::vector<Pixel> pixels_;
};

}  // namespace tavi
