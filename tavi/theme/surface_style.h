// The description of one painted surface: everything that a pixel of it depends on, but for its rectangle.
#pragma once

#include <string>

#include "tavi/theme/color.h"
#include "tavi/theme/enumerations.h"
#include "tavi/theme/material_profile.h"

namespace tavi {

// Widths in pixels of the borders of a picture that keep their size when it is stretched over a surface.
struct NineSlice {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const NineSlice&) const = default;
};

// Opacities count from 0 to 255, sizes are device pixels. docs/surfaces.md tells the order of the layers.
struct SurfaceStyle {
    ButtonShape shape = ButtonShape::kRectangle;

    Color fill = 0;
    Color border = 0;
    Color shadow = 0;
    Color glow = 0;
    Color outline = 0;
    Color noise = hexColor(0xFFFFFF);
    Color gradientStart = 0;
    Color gradientMid = 0;
    Color gradientEnd = 0;
    Color innerShadowColor = 0;

    bool drawFill = true;
    bool drawBorder = true;
    bool showShadow = false;
    bool showInnerShadow = false;
    bool showGlow = false;
    bool showOutline = false;
    bool useGradient = false;
    bool useGradientMid = false;
    bool useNineSlice = false;
    bool useNoise = false;
    bool useSkinAlphaHitTest = false;

    uint8_t opacity = 255;         // of the whole surface
    uint8_t alphaThreshold = 128;  // the coverage that a pixel needs to count as inside
    uint8_t shadowOpacity = 96;
    uint8_t glowOpacity = 96;
    uint8_t noiseOpacity = 16;

    int shadowOffsetX = 0;
    int shadowOffsetY = 2;
    int glowRadius = 8;
    int outlineWidth = 2;
    NineSlice nineSlice;  // pixels of the picture
    // Skins do not set these: they follow the scale of the monitor and the performance profile.
    int borderWidth = 1;
    int shadowReach = 24;    // the most that a shadow blurs
    int scalePercent = 100;  // at which the sizes stand, and the borders of a picture are drawn

    GradientKind gradientKind = GradientKind::kLinear;
    GradientDirection gradientDirection = GradientDirection::kVertical;
    int noiseSeed = 1;

    MaterialKind material = MaterialKind::kNone;
    MaterialProfile tuning;  // finish, mapping, light and colors of the material; inner shadow and its size

    std::wstring image;     // the picture's file, as the skin names it
    std::wstring geometry;  // the part of it: "x, y, width, height" in its pixels; empty for all of it

    bool operator==(const SurfaceStyle&) const = default;
};

}  // namespace tavi
