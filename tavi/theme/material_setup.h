// From a request for a material to the numbers that its kernels read: the recipes of the kinds and finishes, light and
// colors, and where each sample lies.
#pragma once

#include "tavi/theme/material_kernel.h"
#include "tavi/theme/material_texture.h"

namespace tavi::material {

// How a kind takes light and what it is made of. Shares count from 0 to 1, but may be exceeded.
struct KindRecipe {
    MaterialKind kind = MaterialKind::kNone;
    Optics optics = Optics::kMatte;
    Pattern pattern = Pattern::kFlat;
    float body = 0;    // opacity of the pigment
    float dark = 0;    // how dark the dark pigment is against the tint,
    float light = 0;   // and how far the light one is on the way to white
    float relief = 1;  // of heights
    float sheen = 1;   // of what shines
};
const KindRecipe& kindRecipe(MaterialKind kind);

// What a finish makes of the values of a profile: factors, and what is added to the roughness.
struct FinishRecipe {
    MaterialFinish finish = MaterialFinish::kDefault;
    Tooling tooling = Tooling::kNone;
    float sheen = 1;
    float relief = 1;
    float specular = 1;
    float roughness = 0;
    float grain = 1;
};
const FinishRecipe& finishRecipe(MaterialFinish finish);

// The numbers for a request. `step` is the distance of its samples in pixels.
Setup setupOf(const MaterialRequest& request, int step);

// Where the samples of a request lie, `step` (1 or 2) pixels apart. A sample (column, row) is the pixel (originX +
// column * step, ...), counted in the window for a global mapping and in the surface otherwise.
struct Grid {
    int64_t originX = 0;
    int64_t originY = 0;
    int step = 1;
    int columns = 0;
    int rows = 0;
    // The first pixel of the surface, counted from the first sample.
    int marginX = 0;
    int marginY = 0;
};
Grid gridOf(const MaterialRequest& request, int step);

// The distance of a request's samples, 1 or 2 pixels, within the limits of its performance profile.
int stepOf(const MaterialRequest& request);

// Back and forth over `extent`: 0 1 ... extent ... 1 0 1 ...
int64_t mirroredModulo(int64_t value, int64_t extent);

// What the texture coordinate of a sample's pixel is folded into, on each axis.
struct Mapping {
    int64_t offsetX = 0;
    int64_t offsetY = 0;
    int64_t periodX = 1;
    int64_t periodY = 1;
    float inverseX = 1;  // from texture pixels to shares of the mapped area
    float inverseY = 1;
};
Mapping mappingOf(const MaterialRequest& request);

}  // namespace tavi::material
