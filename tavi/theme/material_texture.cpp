#include "tavi/theme/material_texture.h"

namespace tavi {

// No material is painted yet.
bool renderMaterialTexture(const MaterialRequest&, PixelView) {
    return false;
}

}  // namespace tavi
