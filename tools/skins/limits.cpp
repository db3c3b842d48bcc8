// "skin_tool limits": what the performance profiles limit, as the table in docs/surfaces.md.
#include <cstdio>

#include "tavi/theme/material_limits.h"
#include "tavi/theme/paint_limits.h"
#include "tools/skins/describe.h"

namespace skin_tool {
namespace {

std::string from(int64_t area) {
    return area == 0 ? "always" : area == tavi::kNoAreaLimit ? "never" : std::to_string(area);
}

void row(std::string_view effect, std::string_view counted, const std::string (&cells)[4]) {
    std::printf("| %s | %s |", std::string(effect).c_str(), std::string(counted).c_str());
    for (const std::string& cell : cells) {
        std::printf(" %s |", cell.c_str());
    }
    std::printf("\n");
}

const tavi::MaterialLimits& materialLimits(tavi::PerformanceProfile profile) {
    return tavi::kMaterialLimits[static_cast<size_t>(profile)];
}

// One pixel of two is computed in either direction on a surface that is larger than the limit.
void resolutionRow(const tavi::MaterialLimits& balanced, const tavi::MaterialLimits& performance) {
    row("resolution of the material", "computed pixels of each four",
        {from(balanced.fullResolutionArea + 1), "1", from(performance.fullResolutionArea + 1), "1"});
}

void textureRow(const tavi::MaterialLimits& balanced, const tavi::MaterialLimits& performance) {
    const auto reach = [](const tavi::MaterialLimits& limits) { return limits.textured ? "never" : "always"; };
    const auto amount = [](const tavi::MaterialLimits& limits) { return limits.textured ? "1" : "0"; };
    row("texture of the material", "patterns, tooling and relief: none 0, all 1",
        {reach(balanced), amount(balanced), reach(performance), amount(performance)});
}

}  // namespace

int printLimits() {
    std::puts(
        "| effect | what is counted | balanced from area | at most | maximum performance from area | at most |\n"
        "|---|---|---|---|---|---|");
    for (const tavi::PaintLimit& limit : tavi::paintLimits()) {
        row(limit.effect, limit.what,
            {from(limit.balancedFrom), std::to_string(limit.balancedAtMost), from(limit.performanceFrom),
             std::to_string(limit.performanceAtMost)});
    }
    const tavi::MaterialLimits& balanced = materialLimits(tavi::PerformanceProfile::kBalanced);
    const tavi::MaterialLimits& performance = materialLimits(tavi::PerformanceProfile::kMaximumPerformance);
    textureRow(balanced, performance);
    resolutionRow(balanced, performance);
    return 0;
}

}  // namespace skin_tool
