// Where the lines of a paragraph begin and end: greedily, between words, inside of a word only where it is too wide.
#pragma once

#include <cstdint>
#include <vector>

#include "tavi/text/clusters.h"
#include "tavi/text/measured_text.h"

namespace tavi {

// The lines of a paragraph in a room of a width in pixels, at least one; together they are the whole text. Blanks at
// the end of a line hang over. A line is wider than the room only where a single cluster is.
std::vector<TextRange> breakLines(const MeasuredText& text, int32_t width);

// The end of the longest part from `begin` on that has room, at a place where the text may be divided.
size_t longestFit(const MeasuredText& text, size_t begin, int32_t width);

}  // namespace tavi
