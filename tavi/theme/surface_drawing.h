// Surfaces on a device context: what the portable painter makes, taken from the cache and laid over what is there.
// Rectangles are device pixels in the coordinates of the device context, which are those of the window; a texture that
// follows the window is placed by them. Degenerate rectangles draw nothing. Belongs to the UI thread.
#pragma once

#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

// One surface without its material, at the profile of the process. Its shadow, glow and outline reach beyond the
// rectangle, see surfaceMargins().
void drawGradientShape(HDC target, const Rect& area, const SurfaceStyle& style);

// One style across several adjacent rectangles as one surface: its gradient, border and shape belong to all of them
// together. Empty segments are left out.
void drawSegmentedSurface(HDC target, const std::vector<Rect>& segments, const SurfaceStyle& style);

// The style's material, laid over a painted surface. Returns whether there was anything to draw.
bool drawSeamlessMaterialTextureOverlay(HDC target, const Rect& area, const SurfaceStyle& style,
                                        PerformanceProfile profile);

// The shape in one color, 0 (nothing) to 255 (opaque).
void drawAlphaShape(HDC target, const Rect& area, ButtonShape shape, Color color, uint8_t alpha);

// A surface and its material at the profile of the process, kept and laid down as one picture: what controls paint.
void drawSurface(HDC target, const Rect& area, const SurfaceStyle& style);

}  // namespace tavi
