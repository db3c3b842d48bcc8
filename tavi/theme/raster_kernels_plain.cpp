#include "tavi/theme/raster_kernels.h"

namespace tavi {
namespace {

constexpr const char* kName = "plain";
#include "tavi/theme/raster_kernels.inc"

}  // namespace

const RasterKernels& plainKernels() {
    return kKernels;
}

}  // namespace tavi
