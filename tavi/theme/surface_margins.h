// How far the shadow, the glow and the outline of a style reach beyond its rectangle.
#pragma once

#include "tavi/theme/surface_style.h"

namespace tavi {

// Device pixels on each side.
struct SurfaceMargins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const SurfaceMargins&) const = default;
};

// Who repaints a surface repaints as much more.
SurfaceMargins surfaceMargins(const SurfaceStyle& style);

}  // namespace tavi
