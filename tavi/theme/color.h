// Colors as Windows holds them (COLORREF): red in the low byte, then green, then blue.
#pragma once

#include <cstdint>

namespace tavi {

using Color = uint32_t;

constexpr Color rgb(int red, int green, int blue) {
    return static_cast<Color>(red) | static_cast<Color>(green) << 8 | static_cast<Color>(blue) << 16;
}

// The color that a skin writes as #RRGGBB.
constexpr Color hexColor(uint32_t rrggbb) {
    return rrggbb >> 16 | (rrggbb & 0xFF00) | (rrggbb & 0xFF) << 16;
}

constexpr int redOf(Color color) {
    return static_cast<int>(color & 0xFF);
}
constexpr int greenOf(Color color) {
    return static_cast<int>(color >> 8 & 0xFF);
}
constexpr int blueOf(Color color) {
    return static_cast<int>(color >> 16 & 0xFF);
}

// `weight` of 255 parts of `b`, the rest of `a`, each channel rounded to the nearest.
constexpr Color mixed(Color a, Color b, int weight) {
    const auto channel = [weight](int from, int to) { return (from * (255 - weight) + to * weight + 127) / 255; };
    return rgb(channel(redOf(a), redOf(b)), channel(greenOf(a), greenOf(b)), channel(blueOf(a), blueOf(b)));
}

}  // namespace tavi
