// Materials computed the slow, obvious way: one pixel at a time, each with its four neighbours, sines and powers by the
// mathematical library. The row kernels are held against it.
#pragma once

#include "tavi/theme/material_texture.h"

namespace tavi::material {

// The layer of a request whose samples lie `step` pixels apart.
PixelBuffer referenceLayer(const MaterialRequest& request, int step);

}  // namespace tavi::material
