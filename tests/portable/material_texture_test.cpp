#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "tavi/theme/material_layer.h"
#include "tavi/theme/material_limits.h"
#include "tests/portable/material_pictures.h"
#include "tests/portable/material_reference.h"

namespace {

using namespace tavi;
using material_pictures::brightness;
using material_pictures::difference;
using material_pictures::rendered;
using material_pictures::requestFor;

MaterialRequest randomRequest(std::mt19937& random) {
    const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<uint32_t>(most + 1)); };
    const auto byte = [&] { return static_cast<uint8_t>(upTo(255)); };
    MaterialRequest request;
    request.kind = static_cast<MaterialKind>(1 + upTo(kMaterialKindCount - 2));
    request.size = {1 + upTo(44), 1 + upTo(24)};
    request.windowOffset = {upTo(2000) - 1000, upTo(2000) - 1000};
    request.surfaceBase = random() & 0xFFFFFF;
    request.gradientDirection = static_cast<GradientDirection>(upTo(kGradientDirectionCount - 1));
    request.noiseSeed = upTo(1000) - 500;
    request.opacity = byte();
    request.performance = upTo(9) == 0 ? PerformanceProfile::kMaximumPerformance : PerformanceProfile::kBestGraphics;
    MaterialProfile& profile = request.profile;
    for (uint8_t MaterialProfile::* share :
         {&MaterialProfile::strength, &MaterialProfile::flameResponse, &MaterialProfile::highlightOpacity,
          &MaterialProfile::reflectionOpacity, &MaterialProfile::grainOpacity, &MaterialProfile::depth,
          &MaterialProfile::backlightOpacity, &MaterialProfile::innerGlow, &MaterialProfile::rimLight,
          &MaterialProfile::roughness, &MaterialProfile::specular, &MaterialProfile::ambientOcclusion,
          &MaterialProfile::edgeWear, &MaterialProfile::textureOpacity, &MaterialProfile::lightElevation}) {
        profile.*share = byte();
    }
    profile.lightAngle = upTo(1440) - 720;
    profile.angle = upTo(1440) - 720;
    profile.lightBlobAngle = upTo(720) - 360;
    profile.scale = 1 + upTo(40);
    profile.lightBlobScale = 4 + upTo(200);
    profile.uvMapping = static_cast<MaterialMapping>(upTo(1));
    profile.uvScale = upTo(400);
    profile.uvOffsetX = upTo(600) - 300;
    profile.uvOffsetY = upTo(600) - 300;
    profile.finish = static_cast<MaterialFinish>(upTo(kMaterialFinishCount - 1));
    profile.gradientKind = static_cast<GradientKind>(upTo(kGradientKindCount - 1));
    profile.tint = random() & 0xFFFFFF;
    profile.backlightColor = random() & 0xFFFFFF;
    return request;
}

std::string described(const MaterialRequest& request) {
    return "kind " + std::to_string(static_cast<int>(request.kind)) + " finish " +
           std::to_string(static_cast<int>(request.profile.finish)) + " mapping " +
           std::to_string(static_cast<int>(request.profile.uvMapping)) + " size " + std::to_string(request.size.width) +
           " x " + std::to_string(request.size.height);
}

PixelBuffer layer(const MaterialRequest& request, const material::Kernels& kernels, int step) {
    PixelBuffer buffer(request.size);
    material::renderLayer(request, kernels, step, buffer.view());
    return buffer;
}

int largestDifference(const PixelBuffer& a, const PixelBuffer& b) {
    int largest = 0;
    for (size_t i = 0; i < a.pixels().size(); ++i) {
        for (int shift = 0; shift < 32; shift += 8) {
            largest = std::max(largest, std::abs(static_cast<int>(a.pixels()[i] >> shift & 0xFF) -
                                                 static_cast<int>(b.pixels()[i] >> shift & 0xFF)));
        }
    }
    return largest;
}

bool premultiplied(const PixelBuffer& buffer) {
    return std::ranges::all_of(buffer.pixels(), [](Pixel pixel) {
        const Pixel alpha = pixel >> 24;
        return (pixel & 0xFF) <= alpha && (pixel >> 8 & 0xFF) <= alpha && (pixel >> 16 & 0xFF) <= alpha;
    });
}

TEST(MaterialKernels, PaintWhatTheReferencePaints) {
    std::mt19937 random(5);
    for (int round = 0; round < 400; ++round) {
        const MaterialRequest request = randomRequest(random);
        const int step = 1 + round % 2;
        SCOPED_TRACE(described(request) + " step " + std::to_string(step));
        const PixelBuffer plain = layer(request, material::plain::kKernels, step);
        ASSERT_LE(largestDifference(plain, material::referenceLayer(request, step)), 2);
        ASSERT_TRUE(premultiplied(plain));
        if (__builtin_cpu_supports("avx2")) {
            ASSERT_EQ(plain, layer(request, material::avx2::kKernels, step));
        }
    }
}

// Two neighbours in a window, and both as one.
TEST(MaterialMapping, ContinuesOneTextureOverNeighbours) {
    for (int kind = 1; kind < kMaterialKindCount; ++kind) {
        for (const int step : {1, 2}) {
            MaterialRequest whole = requestFor(static_cast<MaterialKind>(kind), {97, 41});
            whole.profile.uvMapping = MaterialMapping::kGlobal;
            whole.profile.uvScale = 60;  // so that it folds within the picture
            whole.profile.uvOffsetX = -7;
            whole.profile.finish = static_cast<MaterialFinish>(kind % kMaterialFinishCount);
            whole.windowOffset = {-31, 15};
            const PixelBuffer one = layer(whole, material::plain::kKernels, step);
            for (const Rect& part : {Rect{0, 0, 38, 41}, Rect{38, 0, 59, 41}, Rect{0, 0, 97, 13}, Rect{11, 13, 5, 1}}) {
                MaterialRequest request = whole;
                request.size = part.size();
                request.windowOffset = whole.windowOffset + part.position();
                const PixelBuffer own = layer(request, material::plain::kKernels, step);
                for (int y = 0; y < part.height; ++y) {
                    ASSERT_TRUE(std::equal(own.row(y), own.row(y) + part.width, one.row(part.y + y) + part.x))
                        << "kind " << kind << " step " << step << " row " << y << " of the part at " << part.x << ", "
                        << part.y;
                }
            }
        }
    }
}

TEST(MaterialMapping, FoldsBackAndForth) {
    const std::vector<int64_t> expected{0, 1, 2, 3, 2, 1, 0, 1, 2, 3, 2, 1, 0};
    for (int64_t value = -6; value <= 6; ++value) {
        EXPECT_EQ(material::mirroredModulo(value, 3), expected[static_cast<size_t>(value + 6)]) << value;
    }
}

TEST(MaterialMapping, LocalDoesNotDependOnThePlaceInTheWindow) {
    MaterialRequest request = requestFor(MaterialKind::kStoneMarble, {40, 20});
    const PixelBuffer here = rendered(request);
    request.windowOffset = {123, 45};
    EXPECT_EQ(rendered(request), here);
    request.profile.uvMapping = MaterialMapping::kGlobal;
    EXPECT_GT(difference(rendered(request), here), 1.0);
}

TEST(MaterialKinds, EachDiffersFromEachOther) {
    std::vector<PixelBuffer> pictures;
    for (int kind = 1; kind < kMaterialKindCount; ++kind) {
        pictures.push_back(rendered(requestFor(static_cast<MaterialKind>(kind), {96, 48})));
    }
    for (size_t i = 0; i < pictures.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            EXPECT_GT(difference(pictures[i], pictures[j]), 2.5) << "kinds " << i + 1 << " and " << j + 1;
        }
    }
}

TEST(MaterialFinishes, ChangeEveryKind) {
    for (int kind = 1; kind < kMaterialKindCount; ++kind) {
        std::vector<PixelBuffer> pictures;
        for (int finish = 0; finish < kMaterialFinishCount; ++finish) {
            MaterialRequest request = requestFor(static_cast<MaterialKind>(kind), {72, 36});
            request.profile.finish = static_cast<MaterialFinish>(finish);
            pictures.push_back(rendered(request));
        }
        for (size_t i = 0; i < pictures.size(); ++i) {
            for (size_t j = 0; j < i; ++j) {
                EXPECT_GT(difference(pictures[i], pictures[j]), 0.6)
                    << "kind " << kind << ", finishes " << i << ", " << j;
            }
        }
    }
}

// What faces the light is brighter: the right side when it comes from there, the upper one when it comes from above.
TEST(MaterialLight, FollowsItsAngle) {
    for (int kind = 1; kind < kMaterialKindCount; ++kind) {
        MaterialRequest request = requestFor(static_cast<MaterialKind>(kind), {60, 60});
        const auto excess = [&request](int angle, const Rect& bright, const Rect& dark) {
            request.profile.lightAngle = angle;
            request.profile.lightElevation = 80;
            const PixelBuffer picture = rendered(request);
            return brightness(picture, bright) - brightness(picture, dark);
        };
        const Rect left{0, 0, 20, 60};
        const Rect right{40, 0, 20, 60};
        const Rect top{0, 0, 60, 20};
        const Rect bottom{0, 40, 60, 20};
        EXPECT_GT(excess(0, right, left), excess(180, right, left) + 1) << "kind " << kind;
        EXPECT_GT(excess(-90, top, bottom), excess(90, top, bottom) + 1) << "kind " << kind;
        EXPECT_DOUBLE_EQ(excess(-90, top, bottom), excess(270, top, bottom)) << "kind " << kind;
    }
}

struct Tuning {
    const char* name;
    MaterialKind kind;
    void (*change)(MaterialRequest&);
};

TEST(MaterialTuning, EveryValueChangesThePicture) {
    using enum MaterialKind;
    const Tuning tunings[] = {
        {"strength", kMetal, [](MaterialRequest& r) { r.profile.strength = 60; }},
        {"opacity", kMetal, [](MaterialRequest& r) { r.opacity = 120; }},
        {"highlight", kGlass, [](MaterialRequest& r) { r.profile.highlightOpacity = 160; }},
        {"reflection", kGlass, [](MaterialRequest& r) { r.profile.reflectionOpacity = 160; }},
        {"grain", kPlastic, [](MaterialRequest& r) { r.profile.grainOpacity = 160; }},
        {"depth", kObsidianRelief, [](MaterialRequest& r) { r.profile.depth = 0; }},
        {"backlight", kAmberGlass, [](MaterialRequest& r) { r.profile.backlightOpacity = 200; }},
        {"inner glow", kLuminousGlass, [](MaterialRequest& r) { r.profile.innerGlow = 220; }},
        {"rim light", kGloss, [](MaterialRequest& r) { r.profile.rimLight = 250; }},
        {"roughness", kGloss, [](MaterialRequest& r) { r.profile.roughness = 250; }},
        {"specular", kGloss, [](MaterialRequest& r) { r.profile.specular = 250; }},
        {"occlusion", kObsidianRelief, [](MaterialRequest& r) { r.profile.ambientOcclusion = 255; }},
        {"edge wear", kRubber, [](MaterialRequest& r) { r.profile.edgeWear = 255; }},
        {"texture", kStoneGranite, [](MaterialRequest& r) { r.profile.textureOpacity = 20; }},
        {"elevation", kStoneGranite, [](MaterialRequest& r) { r.profile.lightElevation = 30; }},
        {"scale", kCarbonFiber, [](MaterialRequest& r) { r.profile.scale = 15; }},
        {"angle", kBrushedMetal, [](MaterialRequest& r) { r.profile.angle = 90; }},
        {"blob scale", kStoneMarble, [](MaterialRequest& r) { r.profile.lightBlobScale = 20; }},
        {"blob angle", kStoneMarble, [](MaterialRequest& r) { r.profile.lightBlobAngle = 70; }},
        {"tint", kPaper, [](MaterialRequest& r) { r.profile.tint = rgb(160, 40, 40); }},
        {"second color", kStoneMarble, [](MaterialRequest& r) { r.profile.backlightColor = rgb(250, 60, 60); }},
        {"base", kObsidianGlass, [](MaterialRequest& r) { r.surfaceBase = rgb(120, 30, 30); }},
        {"flame", kObsidianGlass, [](MaterialRequest& r) { r.profile.flameResponse = 250; }},
        {"bands", kStoneMarble, [](MaterialRequest& r) { r.profile.gradientKind = GradientKind::kRadial; }},
        {"cut", kGemstone, [](MaterialRequest& r) { r.profile.gradientKind = GradientKind::kDiamond; }},
        {"direction", kGloss, [](MaterialRequest& r) { r.gradientDirection = GradientDirection::kHorizontal; }},
        {"seed", kStoneGranite, [](MaterialRequest& r) { r.noiseSeed = 2; }},
    };
    for (const Tuning& tuning : tunings) {
        MaterialRequest request = requestFor(tuning.kind, {72, 40});
        const PixelBuffer before = rendered(request);
        tuning.change(request);
        EXPECT_GT(difference(rendered(request), before), 0.4) << tuning.name;
    }
}

// Text stands on it: at an ordinary strength no region of the layer may take the contrast from light text on a dark
// base.
TEST(MaterialLayer, StaysCalmUnderText) {
    for (int kind = 1; kind < kMaterialKindCount; ++kind) {
        const MaterialRequest request = requestFor(static_cast<MaterialKind>(kind), {160, 48});
        const PixelBuffer picture = rendered(request);
        for (int x = 0; x < 160; x += 16) {
            EXPECT_LT(brightness(picture, {x, 12, 16, 24}), 128) << "kind " << kind << " at " << x;
        }
    }
}

TEST(MaterialLayer, IsNotPaintedWhereThereIsNothing) {
    const MaterialRequest good = requestFor(MaterialKind::kGlass, {4, 3});
    const auto refused = [](MaterialRequest request, Size target) {
        PixelBuffer buffer(target);
        std::ranges::fill(buffer.pixels(), 0x12345678);
        const PixelBuffer before = buffer;
        EXPECT_FALSE(renderMaterialTexture(request, buffer.view()));
        EXPECT_EQ(buffer, before);
    };
    MaterialRequest request = good;
    request.kind = MaterialKind::kNone;
    refused(request, {4, 3});
    request = good;
    request.profile.enabled = false;
    refused(request, {4, 3});
    refused(good, {3, 3});
    for (const Size size : {Size{0, 3}, Size{4, 0}, Size{-1, 3}}) {
        request = good;
        request.size = size;
        refused(request, {});
    }
}

TEST(MaterialLayer, WritesItsRowsAndNothingBeside) {
    const MaterialRequest request = requestFor(MaterialKind::kPaper, {7, 3});
    PixelBuffer large(Size{12, 5});
    std::ranges::fill(large.pixels(), 0x12345678);
    PixelView view = large.view();
    ASSERT_TRUE(renderMaterialTexture(request, {view.row(1) + 2, 7, 3, view.stride}));
    const PixelBuffer alone = rendered(request);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 12; ++x) {
            const bool inside = x >= 2 && x < 9 && y >= 1 && y < 4;
            EXPECT_EQ(large.row(y)[x], inside ? alone.row(y - 1)[x - 2] : 0x12345678) << x << ", " << y;
        }
    }
}

TEST(MaterialLayer, BearsAbsurdNumbers) {
    for (const int absurd : {INT_MIN, -1, 0, INT_MAX}) {
        for (int kind = 1; kind < kMaterialKindCount; ++kind) {
            MaterialRequest request = requestFor(static_cast<MaterialKind>(kind), {absurd & 1 ? 1 : 9, 2});
            request.windowOffset = {absurd, absurd};
            request.noiseSeed = absurd;
            MaterialProfile& profile = request.profile;
            profile.scale = profile.angle = profile.lightAngle = profile.lightBlobScale = absurd;
            profile.lightBlobAngle = profile.uvScale = profile.uvOffsetX = profile.uvOffsetY = absurd;
            profile.uvMapping = MaterialMapping::kGlobal;
            for (const int step : {1, 2}) {
                EXPECT_TRUE(premultiplied(layer(request, material::plain::kKernels, step))) << "kind " << kind;
            }
            profile.uvMapping = MaterialMapping::kLocal;
            EXPECT_TRUE(premultiplied(rendered(request))) << "kind " << kind;
        }
    }
}

TEST(MaterialLimits, HalveTheResolutionOfLargeSurfacesOnly) {
    MaterialRequest request = requestFor(MaterialKind::kStoneGranite, {512, 512});
    EXPECT_EQ(material::stepOf(request), 1);
    request.size.width += 1;
    EXPECT_EQ(material::stepOf(request), 2);
    request.performance = PerformanceProfile::kBestGraphics;
    EXPECT_EQ(material::stepOf(request), 1);
    for (size_t i = 0; i < kMaterialLimits.size(); ++i) {
        EXPECT_EQ(static_cast<size_t>(kMaterialLimits[i].profile), i);
    }
}

// Without its texture granite is smooth: no pixel differs much from its neighbour.
TEST(MaterialLimits, MaximumPerformanceLeavesTheTextureOut) {
    MaterialRequest request = requestFor(MaterialKind::kStoneGranite, {80, 40});
    const auto roughness = [](const PixelBuffer& picture) {
        int largest = 0;
        for (int y = 6; y < 34; ++y) {
            for (int x = 6; x < 74; ++x) {
                largest = std::max(largest, std::abs(static_cast<int>(picture.row(y)[x] >> 8 & 0xFF) -
                                                     static_cast<int>(picture.row(y)[x + 1] >> 8 & 0xFF)));
            }
        }
        return largest;
    };
    EXPECT_GT(roughness(rendered(request)), 12);
    request.performance = PerformanceProfile::kMaximumPerformance;
    EXPECT_LT(roughness(rendered(request)), 4);
}

}  // namespace
