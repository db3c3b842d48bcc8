// Renders the layer of a material with given kernels, whichever the processor would choose, so that they can be
// compared.
#pragma once

#include "tavi/theme/material_setup.h"

namespace tavi::material {

// `target` has the request's size, which is positive. With a step of 2 every second pixel is computed on each axis, and
// those between are averages.
void renderLayer(const MaterialRequest& request, const Kernels& kernels, int step, PixelView target);

}  // namespace tavi::material
