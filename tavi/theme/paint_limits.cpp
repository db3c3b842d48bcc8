#include "tavi/theme/paint_limits.h"

#include <algorithm>

namespace tavi {
namespace {

void limitShadow(SurfaceStyle& style, int atMost) {
    style.shadowReach = std::min(style.shadowReach, atMost);
    style.showShadow = style.showShadow && atMost > 0;
}

void limitGlow(SurfaceStyle& style, int atMost) {
    style.glowRadius = std::min(style.glowRadius, atMost);
    style.showGlow = style.showGlow && atMost > 0;
}

void limitInnerShadow(SurfaceStyle& style, int atMost) {
    style.tuning.innerShadowSize = std::min(style.tuning.innerShadowSize, atMost);
}

void limitNoise(SurfaceStyle& style, int atMost) {
    style.noiseOpacity = static_cast<uint8_t>(std::min<int>(style.noiseOpacity, atMost));
}

// A gradient around a point costs an operation or two more a pixel than one along a line.
void limitGradient(SurfaceStyle& style, int atMost) {
    if (static_cast<int>(style.gradientKind) > atMost) {
        style.gradientKind = GradientKind::kLinear;
    }
}

constexpr PaintLimit kLimits[] = {
    {"shadow", "pixels of blur", 160'000, 12, 0, 0, limitShadow},
    {"glow", "pixels of radius", 40'000, 6, 0, 0, limitGlow},
    {"inner shadow", "pixels of depth", 160'000, 8, 40'000, 3, limitInnerShadow},
    {"noise", "opacity of 255", 1'000'000, 0, 0, 0, limitNoise},
    {"gradient", "kinds: linear 0, reflected 1, radial 2, diamond 3, conic 4", 4'000'000, 1, 40'000, 1, limitGradient},
};

}  // namespace

std::span<const PaintLimit> paintLimits() {
    return kLimits;
}

void limitStyle(SurfaceStyle& style, Size size, PerformanceProfile profile) {
    if (profile == PerformanceProfile::kBestGraphics) {
        return;
    }
    const bool balanced = profile == PerformanceProfile::kBalanced;
    const int64_t area = int64_t{size.width} * size.height;
    for (const PaintLimit& row : kLimits) {
        if (area >= (balanced ? row.balancedFrom : row.performanceFrom)) {
            row.limit(style, balanced ? row.balancedAtMost : row.performanceAtMost);
        }
    }
}

}  // namespace tavi
