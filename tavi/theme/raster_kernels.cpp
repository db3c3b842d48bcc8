#include "tavi/theme/raster_kernels.h"

namespace tavi {

bool processorHasAvx2() {
    // Asks the operating system, too, whether it saves the wider registers.
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    return hasAvx2;
}

const RasterKernels* fastKernels() {
    return processorHasAvx2() ? &avx2Kernels() : nullptr;
}

const RasterKernels& rasterKernels() {
    const RasterKernels* const fast = fastKernels();
    return fast != nullptr ? *fast : plainKernels();
}

}  // namespace tavi
