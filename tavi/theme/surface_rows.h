// The rows of one surface in a target: which of its pixels can be seen there, how much each is covered, and blending
// through a mask of bytes. What all layers of a surface share.
#pragma once

#include <vector>

#include "tavi/theme/pixel_buffer.h"
#include "tavi/theme/raster_kernels.h"
#include "tavi/theme/shape.h"

namespace tavi {

class SurfaceRows {
public:
    // `area` is the surface's rectangle in the target, in pixels; it may lie partly outside. `border` is the width of
    // the ring along its outline that belongs to the border, 0 for none.
    SurfaceRows(PixelView target, const Rect& area, ButtonShape shape, int border);

    const ShapeOutline& outline() const { return outline_; }
    int width() const { return area_.width; }
    int height() const { return area_.height; }
    int border() const { return border_; }
    const RasterKernels& kernels() const { return kernels_; }

    // The rows from `-above` to `height + below` that the target has, as a span; likewise the columns.
    Span rows(int above, int below) const;
    Span columns(int before, int behind) const;

    // The target's pixel (x, y) of the surface.
    Pixel* at(int x, int y) const { return target_.row(area_.y + y) + area_.x + x; }

    // Pixels from one row of the target to the next.
    int stride() const { return static_cast<int>(target_.stride); }

    // The coverage of a pixel as 255 parts, in all and without the ring of the border.
    struct Cover {
        int all = 0;
        int inner = 0;
    };
    Cover cover(float distance, int x, int y) const;

    // Fills `mask` for the pixels of the span. `inner` leaves the border out.
    void coverRow(int y, Span span, bool inner, uint8_t* mask);
    // The pixels of row y in which coverRow gives 255.
    Span fullSpan(int y, bool inner) const;

    // Room for a row of so many bytes or distances.
    uint8_t* maskRow(int count);
    float* distanceRow(int count);

private:
    PixelView target_;
    Rect area_;
    ShapeOutline outline_;
    int border_;
    const RasterKernels& kernels_;
    std::vector<uint8_t> mask_;
    std::vector<float> distances_;
    std::vector<float> edge_;
};

// Within both.
Span intersection(Span a, Span b);

}  // namespace tavi
