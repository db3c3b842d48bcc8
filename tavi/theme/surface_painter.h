// Paints a surface into a buffer: shadow, glow, fill or gradient, picture, noise, material, inner shadow, border, outline.
// docs/surfaces.md tells what each layer is and in which order they lie.
#pragma once

#include "tavi/theme/pixel_buffer.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

// How far the shadow, the glow and the outline of a style reach beyond its rectangle on each side, in device pixels. Who
// repaints a surface repaints as much more.
struct SurfaceMargins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const SurfaceMargins&) const = default;
};
SurfaceMargins surfaceMargins(const SurfaceStyle& style);

// Lays the surface over what is in `target`. `area` is its rectangle there, in device pixels; `picture` is the style's
// picture, if it has one and it could be read. Without its material; see paintMaterial.
void paintSurface(PixelView target, const Rect& area, const SurfaceStyle& style, PerformanceProfile profile,
                  const PixelBuffer* picture = nullptr);

// Lays the style's material over a painted surface, inside its border. `windowOffset` is where the origin of `target`
// lies in the window. Returns whether anything was drawn.
bool paintMaterial(PixelView target, const Rect& area, Point windowOffset, const SurfaceStyle& style,
                   PerformanceProfile profile);

}  // namespace tavi
