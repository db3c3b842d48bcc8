// A line as the eye meets it: pieces of runs from left to right, and the places of carets between them.
#pragma once

#include <cstdint>
#include <vector>

#include "tavi/text/clusters.h"
#include "tavi/text/measured_text.h"

namespace tavi {

struct VisualPiece {
    const MeasuredText* text = nullptr;
    const ShapedRun* run = nullptr;
    size_t begin = 0;
    size_t end = 0;
    uint8_t level = 0;
    int32_t left = 0;  // pixels from the left edge of the line

    int32_t width() const { return text->width(begin, end); }
    bool isRightToLeft() const { return level % 2 != 0; }
    // The leading edge of the cluster at a position, the trailing edge of the last one at the end.
    int32_t edge(size_t position) const;
};

struct VisualLine {
    std::vector<VisualPiece> pieces = {};  // from left to right
    int32_t width = 0;
};

// Both outlive the line. `tail` stands behind the line in reading order (an ellipsis); null for none.
VisualLine arrangeLine(const MeasuredText& text, TextRange range, const MeasuredText* tail, bool rightToLeft);

// Where a caret stands before the cluster at a position.
struct CaretPlace {
    size_t position = 0;
    int32_t x = 0;
};
// Of a line that is a whole text: in the order of the text, with the place behind its last cluster; at least one.
std::vector<CaretPlace> caretPlaces(const MeasuredText& text, const VisualLine& line, bool rightToLeft);

}  // namespace tavi
