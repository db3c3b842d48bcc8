// The row kernels for AVX2: the source of material_rows_plain.cpp once more, compiled with -mavx2. It may include
// nothing else that defines functions; see material_kernel.h.
#include "tavi/theme/material_kernel.h"

namespace tavi::material::avx2 {
namespace {
constexpr int kLanes = 8;
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

}  // namespace tavi::material::avx2
