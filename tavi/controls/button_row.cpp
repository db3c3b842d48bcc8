#include "tavi/controls/button_row.h"

namespace tavi {

std::vector<ButtonPlace> placeButtons(std::span<const int32_t> preferred, int32_t room, int32_t gap,
                                      int32_t /*minimum*/, bool /*rightToLeft*/) {
    std::vector<ButtonPlace> places;
    int32_t x = room;
    for (auto width = preferred.rbegin(); width != preferred.rend(); ++width) {
        x -= *width;
        places.insert(places.begin(), {x, *width, 0});
        x -= gap;
    }
    return places;
}

}  // namespace tavi
