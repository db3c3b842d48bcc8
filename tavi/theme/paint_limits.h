// What the performance profiles limit, and from which size of a surface on.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "tavi/core/geometry.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

// One effect: from an area of so many device pixels on, its value is at most so large. Best graphics limits nothing.
struct PaintLimit {
    std::string_view effect;
    std::string_view what;  // what the limits count
    int64_t balancedFrom;
    int balancedAtMost;
    int64_t performanceFrom;
    int performanceAtMost;
    void (*limit)(SurfaceStyle& style, int atMost);
};
std::span<const PaintLimit> paintLimits();

// Makes the style the one that is painted on a surface of that size.
void limitStyle(SurfaceStyle& style, Size size, PerformanceProfile profile);

}  // namespace tavi
