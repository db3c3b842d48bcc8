// What is inside the outline of a surface: the one geometric definition that painting and hit tests share.
#pragma once

#include "tavi/core/geometry.h"
#include "tavi/theme/enumerations.h"

namespace tavi {

// True when the pixel (x, y) of a width x height surface is inside the shape. Pixels outside of the surface are not.
bool insideShape(ButtonShape shape, int width, int height, int x, int y);

// How much of the pixel the shape covers, 0 to 255, for smooth edges: the distance of the pixel from the same outline that
// insideShape draws, so it is above one half (128 and more) exactly where the pixel is inside.
uint8_t shapeCoverage(ButtonShape shape, int width, int height, int x, int y);

// The pixels [begin, end) of one row; empty when begin == end.
struct Span {
    int begin = 0;
    int end = 0;

    bool operator==(const Span&) const = default;
};

// The pixels of row y that are inside. Every shape is convex along a row, so they are one span.
Span insideSpan(ButtonShape shape, int width, int height, int y);

// The coverage of a row: nothing outside of `touched`, 255 in all of `full` (which lies in `touched`), and what
// shapeCoverage says between them.
struct CoverageSpans {
    Span touched;
    Span full;
};
CoverageSpans coverageSpans(ButtonShape shape, int width, int height, int y);

}  // namespace tavi
