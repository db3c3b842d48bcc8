// What controls draw, written down instead of drawn: the drawing of surfaces and pictures, for a build that has no
// device contexts.
#pragma once

#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/theme/surface_style.h"

namespace testing_tavi {

struct Drawing {
    struct Surface {
        tavi::Rect area;
        tavi::SurfaceStyle style;
    };
    std::vector<Surface> surfaces;
    std::vector<tavi::Rect> pictures;
};

// Everything that was drawn since it was last taken.
Drawing takenDrawing();

}  // namespace testing_tavi
