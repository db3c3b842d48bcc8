#include "tavi/core/scale.h"

#include <algorithm>

namespace tavi {
namespace {

constexpr int64_t divideDown(int64_t value, int64_t by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

// value * factor / by, the nearest whole number, a half upwards, so that all edges move the same way.
constexpr int64_t scaled(int64_t value, int64_t factor, int64_t by) {
    return divideDown(value * factor * 2 + by, by * 2);
}

}  // namespace

Scale::Scale(int32_t dpi) : dpi_(std::clamp(dpi, kDesignDpi / 4, kDesignDpi * 25)) {}

Scale::Scale(int32_t dpi, Size deviceClient) : Scale(dpi) {
    designClient_ = design(deviceClient);
    deviceClient_ = deviceClient;
}

int32_t Scale::edge(int32_t design, int32_t designEnd, int32_t deviceEnd) const {
    if (dpi_ == kDesignDpi) {
        return design;
    }
    return design == designEnd && designEnd > 0 ? deviceEnd : saturate(scaled(design, dpi_, kDesignDpi));
}

int32_t Scale::length(int32_t design) const {
    const int32_t device = saturate(scaled(design, dpi_, kDesignDpi));
    return design > 0 ? std::max(device, 1) : device;
}

Size Scale::device(Size design) const {
    return {saturate(scaled(design.width, dpi_, kDesignDpi)), saturate(scaled(design.height, dpi_, kDesignDpi))};
}

Rect Scale::device(const Rect& design) const {
    const Point near = device(design.position());
    const Point far = device(Point{design.right(), design.bottom()});
    return rectBetween(near.x, near.y, far.x, far.y);
}

Point Scale::design(Point device) const {
    // The last design pixel whose first device pixel is not beyond this one; of the client area exactly within it.
    const auto find = [&](int32_t value, int32_t designEnd, int32_t deviceEnd) {
        int64_t at = divideDown(int64_t{value} * kDesignDpi, dpi_) + 1;
        while (scaled(at, dpi_, kDesignDpi) > value) {
            --at;
        }
        return saturate(value < deviceEnd ? std::min<int64_t>(at, designEnd - 1) : std::max<int64_t>(at, designEnd));
    };
    return {find(device.x, designClient_.width, deviceClient_.width),
            find(device.y, designClient_.height, deviceClient_.height)};
}

Size Scale::design(Size device) const {
    // scaled(at) reaches a value where at * dpi / 96 reaches half a pixel below it.
    const auto cover = [&](int32_t value) {
        return saturate(-divideDown(-(int64_t{value} * 2 - 1) * kDesignDpi, int64_t{dpi_} * 2));
    };
    return {cover(device.width), cover(device.height)};
}

}  // namespace tavi
