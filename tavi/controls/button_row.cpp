#include "tavi/controls/button_row.h"

#include <algorithm>
#include <utility>

namespace tavi {
namespace {

// Puts buttons on lines, each as full as it gets, from the row's left end. `lineWidths` gets how much of each they
// take.
std::vector<ButtonPlace> fillLines(std::span<const int32_t> widths, int32_t room, int32_t gap,
                                   std::vector<int32_t>& lineWidths) {
    std::vector<ButtonPlace> places;
    lineWidths.clear();
    for (const int32_t width : widths) {
        const bool fits = !lineWidths.empty() && int64_t{lineWidths.back()} + gap + width <= room;
        if (!fits) {
            lineWidths.push_back(0);
        }
        const int32_t x = fits ? lineWidths.back() + gap : 0;
        places.push_back({x, width, static_cast<int32_t>(lineWidths.size()) - 1});
        lineWidths.back() = x + width;
    }
    return places;
}

// Buttons that need about the same look calmer when they are equal; one with a long caption would only make giants of
// the others.
bool aboutEqual(std::span<const int32_t> widths) {
    const auto [narrowest, widest] = std::ranges::minmax(widths);
    return int64_t{widest} * 2 <= int64_t{narrowest} * 3;
}

}  // namespace

std::vector<ButtonPlace> placeButtons(std::span<const int32_t> preferred, int32_t room, int32_t gap, int32_t minimum,
                                      bool rightToLeft) {
    if (preferred.empty()) {
        return {};
    }
    room = std::max(room, 0);
    std::vector<int32_t> widths;
    for (const int32_t width : preferred) {
        widths.push_back(std::min(std::max(width, minimum), room));
    }
    std::vector<int32_t> lineWidths;
    std::vector<ButtonPlace> places = fillLines(widths, room, gap, lineWidths);
    if (aboutEqual(widths)) {
        const std::vector<int32_t> equal(widths.size(), std::ranges::max(widths));
        std::vector<int32_t> equalLineWidths;
        std::vector<ButtonPlace> equalPlaces = fillLines(equal, room, gap, equalLineWidths);
        if (equalLineWidths.size() <= lineWidths.size()) {
            places = std::move(equalPlaces);
            lineWidths = std::move(equalLineWidths);
        }
    }
    for (ButtonPlace& place : places) {
        const int32_t free = room - lineWidths[static_cast<size_t>(place.line)];
        place.x = rightToLeft ? room - free - place.x - place.width : free + place.x;
    }
    return places;
}

}  // namespace tavi
