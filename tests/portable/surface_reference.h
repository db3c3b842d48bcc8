// Surfaces painted the slow and obvious way: pixel by pixel, layer by layer, in floating point, straight from what the
// layers are meant to be. The painter is held against it.
#pragma once

#include "tavi/theme/surface_painter.h"

namespace tavi {

// As paintSurface, without a picture, at best graphics.
void paintReference(PixelView target, const Rect& area, const SurfaceStyle& style);

}  // namespace tavi
