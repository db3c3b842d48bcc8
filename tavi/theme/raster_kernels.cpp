#include "tavi/theme/raster_kernels.h"

namespace tavi {

const RasterKernels* avx2Kernels();

const RasterKernels* fastKernels() {
    // Asks the operating system, too, whether it saves the wider registers.
    static const bool kHasAvx2 = __builtin_cpu_supports("avx2") != 0;
    return kHasAvx2 ? avx2Kernels() : nullptr;
}

const RasterKernels& rasterKernels() {
    const RasterKernels* const fast = fastKernels();
    return fast != nullptr ? *fast : plainKernels();
}

}  // namespace tavi
