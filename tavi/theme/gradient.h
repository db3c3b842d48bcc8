// The colors of a gradient over a surface: two or three stops along a line, back and forth, around a point.
#pragma once

#include <vector>

#include "tavi/theme/pixel_buffer.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

// Where a pixel lies on the gradient, from 0 to 1. u and v count from 0 at the first column and row to 1 at the last.
//
// linear: along the direction. reflected: there and back. radial and diamond: around a point a quarter of the extent
// from the middle towards where the direction comes from, 1 at the farthest corner. conic: clockwise around the middle
// from the direction on, to 1 at half a turn and back, so that no seam shows.
double gradientPosition(GradientKind kind, GradientDirection direction, double u, double v);

// The color at a position, each channel rounded to the nearest.
Color gradientColor(const SurfaceStyle& style, double position);

// The rows of a gradient that fills a width x height surface, premultiplied by `opacity`.
class GradientRows {
public:
    GradientRows(const SurfaceStyle& style, int width, int height, uint8_t opacity);

    // Every pixel of a row has the same color: rowColor tells it, and `row` need not be asked.
    bool uniform() const { return uniform_; }
    Pixel rowColor(int y) const;
    // The pixels [x, x + count) of row y.
    void row(int y, int x, int count, Pixel* out);

private:
    const SurfaceStyle& style_;
    double acrossX_;  // u of one pixel
    double acrossY_;
    uint8_t opacity_;
    bool uniform_;
    std::vector<Pixel> table_;
    std::vector<float> positions_;
};

}  // namespace tavi
