// From design pixels to the pixels of a device. Edges are mapped, never extents: two rectangles that share an edge in
// design pixels share it on the device, at every scale.
#pragma once

#include "tavi/core/geometry.h"

namespace tavi {

// Dots an inch at which one design pixel is one device pixel.
inline constexpr int32_t kDesignDpi = 96;

class Scale {
public:
    Scale() = default;
    // `dpi` outside 24 to 2400 counts as the nearer of the two.
    explicit Scale(int32_t dpi);
    // For a window: the far edges of its design client area lie exactly on those of its device client area, which need
    // not be a whole number of design pixels.
    Scale(int32_t dpi, Size deviceClient);

    bool operator==(const Scale&) const = default;

    int32_t dpi() const { return dpi_; }
    // The smallest design extents that cover the device client area.
    Size designClient() const { return designClient_; }

    // A length without a place: a font height, a border. At least 1 for a positive length.
    int32_t length(int32_t design) const;
    // An extent without a place, each axis rounded: a window size.
    Size device(Size design) const;
    Point device(Point design) const {
        return {edge(design.x, designClient_.width, deviceClient_.width),
                edge(design.y, designClient_.height, deviceClient_.height)};
    }
    // Where the edges of `design` lie.
    Rect device(const Rect& design) const;
    // The design pixel that a device pixel belongs to.
    Point design(Point device) const;
    // The smallest design extent that covers a device extent.
    Size design(Size device) const;

private:
    int32_t edge(int32_t design, int32_t designEnd, int32_t deviceEnd) const;

    int32_t dpi_ = kDesignDpi;
    Size deviceClient_;
    Size designClient_;
};

}  // namespace tavi
