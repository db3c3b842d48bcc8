// Compiled for processors with AVX2 (CMakeLists.txt), and only called on them.
#include "tavi/theme/raster_kernels.h"

namespace tavi {
namespace {

constexpr const char* kName = "AVX2";
#include "tavi/theme/raster_kernels.inc"

}  // namespace

const RasterKernels& avx2Kernels() {
    return kKernels;
}

}  // namespace tavi
