#include "tavi/theme/material_setup.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "tavi/theme/material_limits.h"

namespace tavi::material {
namespace {

using enum MaterialKind;
using enum MaterialFinish;

// The pattern of a gem follows from its kind of gradient; see kCuts.
constexpr std::array<KindRecipe, kMaterialKindCount> kKinds{{
    // kind           optics               pattern                body   dark   light  relief sheen
    {kNone, Optics::kMatte, Pattern::kFlat, 0.0f, 0.5f, 0.2f, 1.0f, 1.0f},
    {kGlass, Optics::kGlass, Pattern::kFlat, 0.45f, 0.5f, 0.3f, 1.0f, 1.3f},
    {kFrostedGlass, Optics::kGlass, Pattern::kFrost, 0.8f, 0.6f, 0.5f, 1.0f, 0.8f},
    {kGloss, Optics::kGloss, Pattern::kFlat, 0.9f, 0.45f, 0.2f, 1.0f, 1.4f},
    {kMetal, Optics::kMetal, Pattern::kMachined, 1.5f, 0.22f, 0.25f, 1.0f, 1.2f},
    {kBrushedMetal, Optics::kMetal, Pattern::kHairlines, 1.5f, 0.25f, 0.25f, 0.8f, 1.0f},
    {kPlastic, Optics::kGloss, Pattern::kPeel, 1.1f, 0.55f, 0.2f, 0.8f, 0.8f},
    {kRubber, Optics::kMatte, Pattern::kStipple, 1.3f, 0.25f, 0.12f, 0.9f, 0.6f},
    {kPaper, Optics::kMatte, Pattern::kFibres, 1.2f, 0.7f, 0.45f, 0.5f, 0.5f},
    {kCarbonFiber, Optics::kGlass, Pattern::kWeave, 1.3f, 0.15f, 0.35f, 1.0f, 1.0f},
    {kObsidianGlass, Optics::kDarkGlass, Pattern::kConchoidal, 1.3f, 0.12f, 0.25f, 1.0f, 1.3f},
    {kBloodGloss, Optics::kGloss, Pattern::kSwirl, 1.35f, 0.2f, 0.12f, 1.2f, 1.2f},
    {kAmberGlass, Optics::kGlass, Pattern::kResin, 1.1f, 0.35f, 0.3f, 1.0f, 1.0f},
    {kLuminousGlass, Optics::kLuminous, Pattern::kVeil, 0.7f, 0.5f, 0.4f, 0.8f, 1.0f},
    {kLayeredGlass, Optics::kGlass, Pattern::kPlanes, 0.8f, 0.4f, 0.45f, 0.6f, 1.1f},
    {kGemstone, Optics::kMatte, Pattern::kLatticeCut, 1.5f, 0.1f, 0.2f, 1.0f, 0.9f},
    {kObsidianRelief, Optics::kMatte, Pattern::kScallops, 1.3f, 0.15f, 0.2f, 1.2f, 1.2f},
    {kStoneGranite, Optics::kMatte, Pattern::kSpeckle, 1.4f, 0.25f, 0.3f, 1.0f, 0.8f},
    {kStoneMarble, Optics::kMatte, Pattern::kVeins, 1.4f, 0.35f, 0.25f, 0.8f, 1.0f},
}};

constexpr std::array<FinishRecipe, kMaterialFinishCount> kFinishes{{
    // finish, tooling              sheen  relief spec   rough  grain
    {kDefault, Tooling::kNone, 1.0f, 1.0f, 1.0f, 0.0f, 1.0f},
    {kPolished, Tooling::kMirror, 1.25f, 0.8f, 1.3f, -0.25f, 0.4f},
    {kBrushed, Tooling::kBrush, 0.9f, 1.0f, 1.0f, 0.0f, 0.8f},
    {kSatin, Tooling::kBead, 0.7f, 0.7f, 0.6f, 0.15f, 0.7f},
    {kMatte, Tooling::kNone, 0.15f, 0.5f, 0.15f, 0.4f, 1.2f},
    {kRough, Tooling::kRoughen, 0.4f, 1.2f, 0.3f, 0.4f, 1.6f},
    {kCracked, Tooling::kCrack, 0.9f, 1.1f, 0.9f, 0.1f, 1.0f},
    {kHammered, Tooling::kHammer, 0.9f, 1.0f, 1.1f, 0.0f, 0.8f},
    {kEtched, Tooling::kEtch, 0.9f, 1.1f, 0.9f, 0.05f, 1.0f},
    {kFrosted, Tooling::kSandblast, 0.4f, 0.7f, 0.2f, 0.35f, 1.8f},
    {kWet, Tooling::kFilm, 1.3f, 0.9f, 1.6f, -0.35f, 0.4f},
}};

// Gradient axes a + b u + c v, in the order of the directions.
struct Axis {
    float base;
    float u;
    float v;
};
constexpr std::array<Axis, kGradientDirectionCount> kAxes{{{0.0f, 0.0f, 1.0f},
                                                           {1.0f, 0.0f, -1.0f},
                                                           {0.0f, 1.0f, 0.0f},
                                                           {1.0f, -1.0f, 0.0f},
                                                           {0.0f, 0.5f, 0.5f},
                                                           {1.0f, -0.5f, -0.5f},
                                                           {0.5f, 0.5f, -0.5f},
                                                           {0.5f, -0.5f, 0.5f}}};

// How gems are cut, in the order of the kinds of gradient.
constexpr std::array<Pattern, kGradientKindCount> kCuts{Pattern::kLatticeCut, Pattern::kLatticeCut, Pattern::kStarCut,
                                                        Pattern::kStepCut, Pattern::kStarCut};

constexpr int64_t kLongestPeriod = 1 << 15;
constexpr float kFullStrength = 180.0f;

constexpr float share(uint8_t value) {
    return static_cast<float>(value) / 255.0f;
}

// The sine of whole degrees by its series, which gives the same digits on every machine.
float sineOfDegrees(int degrees) {
    const int turned = (degrees % 360 + 540) % 360 - 180;
    const int folded = turned > 90 ? 180 - turned : turned < -90 ? -180 - turned : turned;
    const double x = folded * (3.14159265358979323846 / 180);
    const double squared = x * x;
    const double series = 1 - squared / 72 * (1 - squared / 110);
    return static_cast<float>(x * (1 - squared / 6 * (1 - squared / 20 * (1 - squared / 42 * series))));
}
float cosineOfDegrees(int degrees) {
    return sineOfDegrees(degrees % 360 + 90);
}

Rgb rgbOf(Color color) {
    return {static_cast<float>(redOf(color)) / 255.0f, static_cast<float>(greenOf(color)) / 255.0f,
            static_cast<float>(blueOf(color)) / 255.0f};
}

Rgb mixedColors(const Rgb& a, const Rgb& b, float weight) {
    return {a.r + (b.r - a.r) * weight, a.g + (b.g - a.g) * weight, a.b + (b.b - a.b) * weight};
}

const MaterialLimits& limitsOf(const MaterialRequest& request) {
    return kMaterialLimits[static_cast<size_t>(request.performance) % kMaterialLimits.size()];
}

void setColors(Setup& setup, const MaterialRequest& request, const KindRecipe& kind) {
    const Rgb white{1, 1, 1};
    const Rgb black{0, 0, 0};
    const Rgb tint = rgbOf(request.profile.tint);
    setup.base = tint;
    setup.dark = mixedColors(mixedColors(black, tint, kind.dark), rgbOf(request.surfaceBase), 0.2f);
    setup.second = rgbOf(request.profile.backlightColor);
    setup.light = mixedColors(mixedColors(tint, setup.second, 0.4f), white, kind.light);
    setup.highlightColor = mixedColors(white, tint, 0.28f);
    setup.shadowColor = mixedColors(black, tint, 0.1f);
    setup.backlightColor = setup.second;
    setup.flameColor = rgbOf(request.profile.flameColor);
}

void setLight(Setup& setup, const MaterialProfile& profile, const KindRecipe& kind, const FinishRecipe& finish) {
    const int elevation = profile.lightElevation * 90 / 255;
    setup.lightX = cosineOfDegrees(elevation) * cosineOfDegrees(profile.lightAngle);
    setup.lightY = cosineOfDegrees(elevation) * sineOfDegrees(profile.lightAngle);
    setup.lightZ = sineOfDegrees(elevation);
    setup.highlight = share(profile.highlightOpacity);
    setup.reflection = share(profile.reflectionOpacity);
    setup.specular = share(profile.specular) * finish.specular;
    setup.roughness = std::clamp(share(profile.roughness) + finish.roughness, 0.0f, 1.0f);
    setup.occlusion = share(profile.ambientOcclusion);
    setup.rim = share(profile.rimLight);
    setup.wear = share(profile.edgeWear);
    setup.grain = std::min(1.0f, share(profile.grainOpacity) * finish.grain);
    setup.depth = share(profile.depth);
    setup.sheen = kind.sheen * finish.sheen * (0.6f + 0.6f * share(profile.specular));
    setup.backlight = share(profile.backlightOpacity);
    setup.innerGlow = share(profile.innerGlow);
    setup.flame = share(profile.flameResponse) * 0.25f;
}

void setTexture(Setup& setup, const MaterialProfile& profile) {
    const float blob = 1.0f / static_cast<float>(std::clamp(profile.lightBlobScale, 4, 4096));
    setup.inverseScale = 1.0f / static_cast<float>(std::clamp(profile.scale, 1, 512));
    setup.angleCos = cosineOfDegrees(profile.angle);
    setup.angleSin = sineOfDegrees(profile.angle);
    setup.blobCos = cosineOfDegrees(profile.lightBlobAngle) * blob;
    setup.blobSin = sineOfDegrees(profile.lightBlobAngle) * blob;
    setup.bend = 2.1f * std::min(1.0f, 60.0f * blob);
    // Gems of other colors or turned otherwise are different stones. Nothing of a cut follows a length alone: a stone
    // is the same on monitors of other scales.
    setup.cutSeed = setup.seed + profile.tint * 131u + static_cast<uint32_t>(profile.angle);
    setup.kites = static_cast<float>(std::clamp(profile.lightBlobScale / std::max(1, profile.scale), 2, 5));
    for (float& weight : setup.kindWeight) {
        weight = 0;
    }
    setup.kindWeight[static_cast<size_t>(profile.gradientKind) % kGradientKindCount] = 1;
}

}  // namespace

const KindRecipe& kindRecipe(MaterialKind kind) {
    return kKinds[static_cast<size_t>(kind) % kKinds.size()];
}

const FinishRecipe& finishRecipe(MaterialFinish finish) {
    return kFinishes[static_cast<size_t>(finish) % kFinishes.size()];
}

Setup setupOf(const MaterialRequest& request, int step) {
    const MaterialProfile& profile = request.profile;
    const KindRecipe& kind = kindRecipe(request.kind);
    const FinishRecipe& finish = finishRecipe(profile.finish);
    const bool local = profile.uvMapping == MaterialMapping::kLocal;
    const float texture = share(profile.textureOpacity);
    Setup setup;
    setup.seed = static_cast<uint32_t>(request.noiseSeed) * 977u;
    setup.optics = kind.optics;
    setup.pattern = kind.pattern == Pattern::kLatticeCut
                        ? kCuts[static_cast<size_t>(profile.gradientKind) % kCuts.size()]
                        : kind.pattern;
    setup.tooling = finish.tooling;
    setLight(setup, profile, kind, finish);
    setColors(setup, request, kind);
    setTexture(setup, profile);
    setup.slope = setup.depth * (3.2f + texture) * 0.5f * kind.relief * finish.relief / static_cast<float>(step);
    setup.edgeWear = local ? setup.wear : 0.0f;
    setup.bulge = setup.depth * (local ? 0.6f : 0.3f);
    setup.body = kind.body * texture;
    setup.opacity = static_cast<float>(profile.strength) / kFullStrength * share(request.opacity);
    const Axis& axis = kAxes[static_cast<size_t>(request.gradientDirection) % kAxes.size()];
    setup.axisBase = axis.base;
    setup.axisU = axis.u;
    setup.axisV = axis.v;
    const Mapping mapping = mappingOf(request);
    setup.extentX = std::max(1.0f, 1.0f / mapping.inverseX);
    setup.extentY = std::max(1.0f, 1.0f / mapping.inverseY);
    setup.centerX = setup.extentX / 2;
    setup.centerY = setup.extentY / 2;
    setup.textured = limitsOf(request).textured;
    if (!setup.textured) {
        setup.grain = 0;
        setup.wear = 0;
        setup.edgeWear = 0;
    }
    return setup;
}

Mapping mappingOf(const MaterialRequest& request) {
    const MaterialProfile& profile = request.profile;
    if (profile.uvMapping == MaterialMapping::kGlobal) {
        const int64_t period = std::clamp<int64_t>(profile.uvScale, 8, kLongestPeriod);
        const float inverse = 1.0f / static_cast<float>(period);
        return {profile.uvOffsetX, profile.uvOffsetY, period, period, inverse, inverse};
    }
    // A surface beyond the longest period is mirrored: coordinates stay where floats are exact.
    const auto inverse = [](int extent) {
        return 1.0f / static_cast<float>(std::clamp<int64_t>(extent - 1, 1, kLongestPeriod));
    };
    return {0, 0, kLongestPeriod, kLongestPeriod, inverse(request.size.width), inverse(request.size.height)};
}

int stepOf(const MaterialRequest& request) {
    const int64_t area = int64_t{request.size.width} * request.size.height;
    return area > limitsOf(request).fullResolutionArea ? 2 : 1;
}

Grid gridOf(const MaterialRequest& request, int step) {
    const bool global = request.profile.uvMapping == MaterialMapping::kGlobal;
    const Point offset = global ? request.windowOffset : Point{};
    // Samples that are apart lie on even pixels of the window, so that neighbours have them in common.
    Grid grid{.step = step};
    grid.marginX = step == 2 ? offset.x & 1 : 0;
    grid.marginY = step == 2 ? offset.y & 1 : 0;
    grid.originX = int64_t{offset.x} - grid.marginX;
    grid.originY = int64_t{offset.y} - grid.marginY;
    const auto count = [step](int extent, int margin) { return step == 1 ? extent : (extent - 1 + margin) / 2 + 2; };
    grid.columns = count(request.size.width, grid.marginX);
    grid.rows = count(request.size.height, grid.marginY);
    return grid;
}

int64_t mirroredModulo(int64_t value, int64_t extent) {
    const int64_t cycle = 2 * extent;
    const int64_t within = (value % cycle + cycle) % cycle;
    return within > extent ? cycle - within : within;
}

}  // namespace tavi::material
