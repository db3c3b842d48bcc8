// The painted shape of a control as a list of rectangles (in its own coordinates), and how a child is fitted into such
// a shape: a panel with cut corners has no room for a child in them.
#pragma once

#include <array>
#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/core/layout.h"

namespace tavi {

// What a contour list describes.
enum class ContourKind {
    Shape,    // what the control paints
    Content,  // where its children may lie; the shape where this list is empty
    Hit,      // where the pointer meets it; the shape where this list is empty
};
inline constexpr size_t kContourKinds = 3;

// One list for each kind. No lists at all stand for the control's whole bounds.
using ContourLists = std::array<std::vector<Rect>, kContourKinds>;

// Runs of rectangles that follow each other in the list, share x and width and touch vertically become one. Rows of
// equal width that a rasterised shape is made of turn into few rectangles so.
std::vector<Rect> mergeRuns(const std::vector<Rect>& rects);

struct ContourFit {
    Rect bounds;
    Axes minimumCannotFit;  // no room in the shape is as wide, as high as the minimum; both when only not at once
};

// The rectangle inside the union of `contour` that keeps most of the area of `wanted` and, among equals, lies nearest
// to it. `wanted` itself when the contour is empty or holds it whole. Never smaller than `minimum`: where that fits
// nowhere the rectangle only has to lie within the contour's bounding box as far as it can.
ContourFit fitIntoContour(const Rect& wanted, Size minimum, const std::vector<Rect>& contour);

}  // namespace tavi
