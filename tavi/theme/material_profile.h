// The "materials" section of a skin: three materials and how they are lit, textured and colored. Every surface style
// carries a copy, which its own properties tune.
#pragma once

#include "tavi/theme/color.h"
#include "tavi/theme/enumerations.h"

namespace tavi {

// Values without a unit count from 0 to 255. Angles are degrees, clockwise from the right (y points down), so -90 is
// up; light comes from `lightAngle`, at `lightElevation` above the surface (0 grazing, 255 upright).
struct MaterialProfile {
    MaterialKind surface = MaterialKind::kNone;  // of windows and panels
    MaterialKind control = MaterialKind::kNone;
    MaterialKind accent = MaterialKind::kNone;
    uint8_t strength = 96;
    uint8_t flameResponse = 0;
    uint8_t flameGlint = 0;
    uint8_t flameWindStrength = 0;
    uint8_t flameSurfaceBlend = 0;
    int flameResolution = 64;
    uint8_t highlightOpacity = 48;
    uint8_t reflectionOpacity = 36;
    uint8_t grainOpacity = 16;
    uint8_t depth = 96;
    uint8_t backlightOpacity = 16;
    uint8_t innerGlow = 16;
    uint8_t rimLight = 48;
    uint8_t roughness = 96;
    uint8_t specular = 96;
    uint8_t ambientOcclusion = 80;
    uint8_t edgeWear = 24;
    uint8_t innerShadow = 64;
    int innerShadowSize = 6;  // pixels
    uint8_t textureOpacity = 96;
    int lightAngle = -45;
    uint8_t lightElevation = 128;
    int scale = 8;  // pixels: the size of the texture's features
    int angle = 0;
    int lightBlobScale = 48;  // pixels: large, soft features; also what bends veins, the smaller the wilder
    int lightBlobAngle = -30;
    int animationSpeed = 0;
    MaterialFinish finish = MaterialFinish::kDefault;
    MaterialMapping uvMapping = MaterialMapping::kLocal;
    int uvScale = 256;  // pixels: the period of a global mapping
    int uvOffsetX = 0;  // pixels
    int uvOffsetY = 0;
    Color tint = hexColor(0x6A8A90);
    Color backlightColor = hexColor(0x2C6A66);  // of what shows within: glow, veins, flecks, fire
    Color flameColor = hexColor(0xF08A30);
    GradientKind gradientKind = GradientKind::kLinear;  // how veins run and gems are cut
    GradientDirection gradientDirection = GradientDirection::kVertical;
    bool enabled = true;

    bool operator==(const MaterialProfile&) const = default;
};

}  // namespace tavi
