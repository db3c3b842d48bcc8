// Materials painted by the processor: glass, metal, stone, gems, lit and textured, as a translucent layer that is laid
// over a surface. The layer of a material names it: one should see at a glance that it is brushed metal.
#pragma once

#include "tavi/theme/material_profile.h"
#include "tavi/theme/pixel_buffer.h"

namespace tavi {

// Everything that a texture depends on. Equal requests give equal pixels.
struct MaterialRequest {
    MaterialKind kind = MaterialKind::kNone;
    MaterialProfile profile;  // its own three kinds are not read
    Color surfaceBase = 0;    // the color of what lies below
    Size size;                // device pixels
    Point windowOffset;       // of the surface in its window, device pixels; counts in a global mapping
    // Where the light of a sheen comes from is the surface's; the kind, which decides cuts and bands, the profile's.
    GradientDirection gradientDirection = GradientDirection::kVertical;
    int noiseSeed = 1;
    uint8_t opacity = 255;
    PerformanceProfile performance = PerformanceProfile::kBalanced;

    bool operator==(const MaterialRequest&) const = default;
};

// Paints the layer over all of `target`, whose extent is the request's size, replacing what is there. Nothing is
// painted, and false comes back, for no material, a disabled profile or an empty size.
bool renderMaterialTexture(const MaterialRequest& request, PixelView target);

}  // namespace tavi
