#include "tavi/theme/material_texture.h"

#include "tavi/theme/material_layer.h"

namespace tavi {
namespace {

const material::Kernels& kernels() {
#if defined(__x86_64__) || defined(__i386__)
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    return hasAvx2 ? material::avx2::kKernels : material::plain::kKernels;
#else
    return material::plain::kKernels;
#endif
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
