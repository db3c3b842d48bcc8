// The layers of a surface, each laid over what is there. surface_painter.cpp calls them in their order.
#pragma once

#include "tavi/theme/surface_margins.h"
#include "tavi/theme/surface_rows.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

// How far a style's shadow blurs, in pixels.
int shadowBlur(const SurfaceStyle& style);

// Outside of the outline only: what lies below a translucent surface is not darkened twice.
void paintShadow(SurfaceRows& rows, const SurfaceStyle& style);
void paintGlow(SurfaceRows& rows, const SurfaceStyle& style);
// A ring around the outline.
void paintOutline(SurfaceRows& rows, const SurfaceStyle& style);

// Fill or gradient and the border around it.
void paintBody(SurfaceRows& rows, const SurfaceStyle& style);

// Inside the border.
void paintPicture(SurfaceRows& rows, const SurfaceStyle& style, const PixelBuffer& picture);
// How opaque the picture is at the pixel (x, y) of a surface of that size, which it must lie in.
uint8_t pictureAlpha(const SurfaceStyle& style, Size size, const PixelBuffer& picture, int x, int y);
void paintNoise(SurfaceRows& rows, const SurfaceStyle& style);
void paintInnerShadow(SurfaceRows& rows, const SurfaceStyle& style);
void paintLayer(SurfaceRows& rows, const PixelBuffer& layer);

}  // namespace tavi
