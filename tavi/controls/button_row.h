// How buttons share out a row. Pure; lengths in one unit.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tavi {

struct ButtonPlace {
    int32_t x = 0;  // from the left end of the row
    int32_t width = 0;
    int32_t line = 0;  // counts from 0, the topmost

    bool operator==(const ButtonPlace&) const = default;
};

// Places buttons of the preferred widths in a row `room` wide, `gap` apart, at its end (the right, or the left when it
// reads from right to left). No button is narrower than `minimum` unless all of them have to be; where they do not fit
// side by side they fill further lines, each as full as it gets. Never wider than `room`.
std::vector<ButtonPlace> placeButtons(std::span<const int32_t> preferred, int32_t room, int32_t gap, int32_t minimum,
                                      bool rightToLeft);

}  // namespace tavi
