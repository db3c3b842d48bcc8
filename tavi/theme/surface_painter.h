// Paints a surface into a buffer: shadow, glow, fill or gradient with the border, picture, noise, inner shadow,
// outline, and the material in a call of its own. docs/surfaces.md tells what each layer is and in which order they
// lie.
#pragma once

#include <vector>

#include "tavi/theme/pixel_buffer.h"
#include "tavi/theme/surface_margins.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

// Lays the surface over what is in `target`. `area` is its rectangle there, in device pixels; `picture` is the style's
// picture, if it has one and it could be read. Without its material; see paintMaterial.
void paintSurface(PixelView target, const Rect& area, const SurfaceStyle& style, PerformanceProfile profile,
                  const PixelBuffer* picture = nullptr);

// One style over several adjacent rectangles as one surface: shape, gradient and border belong to the rectangle around
// them all, and only what lies in one of them is painted.
void paintSegmentedSurface(PixelView target, const std::vector<Rect>& segments, const SurfaceStyle& style,
                           PerformanceProfile profile, const PixelBuffer* picture = nullptr);

// Lays the style's material over a painted surface, inside its border. `windowOffset` is where the origin of `target`
// lies in the window. Returns whether anything was drawn.
bool paintMaterial(PixelView target, const Rect& area, Point windowOffset, const SurfaceStyle& style,
                   PerformanceProfile profile);

// Fills the shape with one color at that opacity and everything else of `target` with nothing. The outline is not
// smoothed: a pixel is covered when insideShape says so.
void fillAlphaShape(PixelView target, ButtonShape shape, Color color, uint8_t alpha);

// True when the pixel (x, y) of a surface of that size belongs to it: by its picture's opacity where the style asks for
// that and there is one, else by its shape's coverage, against the style's threshold.
bool hitsSurface(const SurfaceStyle& style, Size size, int x, int y, const PixelBuffer* picture = nullptr);

}  // namespace tavi
