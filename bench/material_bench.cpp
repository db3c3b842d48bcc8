// What one layer of each material costs on a surface of 690 x 344 pixels, the setup's window, at full resolution: each
// kind in its plain finish, and each finish of one kind. Names are "material/<kind>" and "material_finish/<finish>".
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "tavi/theme/material_texture.h"

namespace {

using namespace tavi;

// In the order of the enumerations.
constexpr const char* kKindNames[kMaterialKindCount]{
    "none",    "glass",    "frosted_glass",   "gloss",          "metal",       "brushed_metal", "plastic",
    "rubber",  "paper",    "carbon_fiber",    "obsidian_glass", "blood_gloss", "amber_glass",   "luminous_glass",
    "layered", "gemstone", "obsidian_relief", "granite",        "marble"};
constexpr const char* kFinishNames[kMaterialFinishCount]{"default", "polished", "brushed", "satin",   "matte", "rough",
                                                         "cracked", "hammered", "etched",  "frosted", "wet"};

void render(benchmark::State& state, MaterialKind kind, MaterialFinish finish) {
    MaterialRequest request;
    request.kind = kind;
    request.size = {690, 344};
    request.performance = PerformanceProfile::kBestGraphics;
    request.profile.finish = finish;
    PixelBuffer buffer(request.size);
    for (auto _ : state) {
        renderMaterialTexture(request, buffer.view());
        benchmark::ClobberMemory();
    }
}

const bool kRegistered = [] {
    for (int i = 1; i < kMaterialKindCount; ++i) {
        benchmark::RegisterBenchmark(std::string("material/") + kKindNames[i], render, static_cast<MaterialKind>(i),
                                     MaterialFinish::kDefault);
    }
    for (int i = 1; i < kMaterialFinishCount; ++i) {
        benchmark::RegisterBenchmark(std::string("material_finish/") + kFinishNames[i], render,
                                     MaterialKind::kStoneGranite, static_cast<MaterialFinish>(i));
    }
    return true;
}();

}  // namespace
