// The row kernels for any x86-64. The same source is compiled for AVX2 in material_rows_avx2.cpp; additions and
// products are never fused, so both give the same pixels.
#include "tavi/theme/material_kernel.h"

namespace tavi::material::plain {
namespace {
constexpr int kLanes = 4;
#define MATERIAL_INLINE [[gnu::always_inline]] inline
#define MATERIAL_SHARED [[gnu::noinline]]
// clang-format off: each builds on those above.
#include "tavi/theme/material_lanes.inc"
#include "tavi/theme/material_noise.inc"
#include "tavi/theme/material_patterns.inc"
#include "tavi/theme/material_light.inc"
#include "tavi/theme/material_rows.inc"
// clang-format on
}  // namespace

const Kernels kKernels = kAllKernels;

}  // namespace tavi::material::plain
