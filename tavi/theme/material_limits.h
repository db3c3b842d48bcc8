// What each performance profile leaves out of a material's layer.
#pragma once

#include <array>
#include <cstdint>

#include "tavi/theme/enumerations.h"

namespace tavi {

struct MaterialLimits {
    PerformanceProfile profile = PerformanceProfile::kBalanced;
    bool textured = true;            // patterns, tooling, relief; without them only the light of the whole surface
    int64_t fullResolutionArea = 0;  // pixels; a larger surface is computed at every second pixel and enlarged
};

inline constexpr int64_t kNoAreaLimit = INT64_MAX;

// In the order of the enumeration.
inline constexpr std::array<MaterialLimits, 3> kMaterialLimits{{
    {PerformanceProfile::kBestGraphics, true, kNoAreaLimit},
    {PerformanceProfile::kBalanced, true, 512 * 512},
    {PerformanceProfile::kMaximumPerformance, false, 256 * 256},
}};

}  // namespace tavi
