#include "tavi/theme/material_texture.h"

#include "tavi/theme/material_layer.h"
#include "tavi/theme/raster_kernels.h"

namespace tavi {
namespace {

const material::Kernels& kernels() {
    return processorHasAvx2() ? material::avx2::kKernels : material::plain::kKernels;
}

}  // namespace

bool renderMaterialTexture(const MaterialRequest& request, PixelView target) {
    if (request.kind == MaterialKind::kNone || !request.profile.enabled || !request.size.positive() ||
        target.width != request.size.width || target.height != request.size.height) {
        return false;
    }
    material::renderLayer(request, kernels(), material::stepOf(request), target);
    return true;
}

}  // namespace tavi
