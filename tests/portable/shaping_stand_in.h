// A shaper without fonts: each cluster of a text of 12 points is 8 pixels wide at 96 dpi, its ascent 12 and its descent
// 4, in proportion at other sizes; marks and invisible characters have no width. Letters of Hebrew and Arabic run from
// right to left. "fi" is one glyph of 16 pixels. Thai words begin, as far as this dictionary knows, at U+0E40.
#pragma once

#include <string>
#include <vector>

#include "tavi/core/geometry.h"

namespace stand_in {

// What was drawn since the last question, in its order.
struct DrawnText {
    std::wstring text;
    tavi::Point origin;  // the left end of the baseline
    uint32_t color = 0;
};
std::vector<DrawnText> takeDrawnTexts();

}  // namespace stand_in
