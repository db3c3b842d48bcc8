#include "tests/portable/material_reference.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tavi/theme/material_setup.h"

namespace tavi::material {
namespace {

using F = float;
using I = int32_t;
using U = uint32_t;

F toFloat(I value) {
    return static_cast<F>(value);
}
I toInt(F value) {
    return static_cast<I>(value);
}
F magnitude(F value) {
    return std::fabs(value);
}
F root(F value) {
    return std::sqrt(value);
}
F sineOfTurns(F turns) {
    return static_cast<F>(std::sin(2 * std::numbers::pi * double{turns}));
}
F power(F value, float exponent) {
    return std::pow(value, exponent);
}

#define MATERIAL_INLINE inline
#define MATERIAL_SHARED inline
// clang-format off: each builds on those above.
#include "tavi/theme/material_noise.inc"
#include "tavi/theme/material_patterns.inc"
#include "tavi/theme/material_light.inc"
// clang-format on

using Term = void (*)(const Setup&, const Place&, Sample&);
constexpr Term kOptics[kOpticsCount]{addMatteOptics, addGlassOptics,     addGlossOptics,
                                     addMetalOptics, addDarkGlassOptics, addLuminousOptics};
constexpr Term kPatterns[kPatternCount]{addFlat,    addFrost,     addPeel,     addStipple,    addFibres,
                                        addWeave,   addHairlines, addMachined, addConchoidal, addSwirl,
                                        addResin,   addVeil,      addPlanes,   addLatticeCut, addStarCut,
                                        addStepCut, addScallops,  addSpeckle,  addVeins};
constexpr Term kToolings[kToolingCount]{addNoTooling, addMirror, addBrush, addBead,      addRoughen,
                                        addCrack,     addHammer, addEtch,  addSandblast, addFilm};

// Walks back and forth over 0 to extent.
int64_t walked(int64_t value, int64_t extent) {
    const int64_t steps = std::abs(value) % (2 * extent);
    return steps <= extent ? steps : 2 * extent - steps;
}

class Reference {
public:
    Reference(const MaterialRequest& request, int step)
        : request_(request), step_(step), setup_(setupOf(request, step)), mapping_(mappingOf(request)) {}

    // Pixels are counted in the window for a global mapping, in the surface for a local one.
    Pixel pixelAt(int64_t x, int64_t y) const {
        const Place place = placeAt(x, y);
        const F slopeX = (sampleAt(x + step_, y).height - sampleAt(x - step_, y).height) * setup_.slope;
        const F slopeY = (sampleAt(x, y + step_).height - sampleAt(x, y - step_).height) * setup_.slope;
        const Sample sample = sampleAt(x, y);
        const F light = lightAt(setup_, sample, place.x, place.y, place.u, place.v, slopeX, slopeY, edgesAt(x, y));
        return pixelOf(setup_, sample, light);
    }

private:
    Place placeAt(int64_t pixelX, int64_t pixelY) const {
        const F x = static_cast<F>(walked(pixelX + mapping_.offsetX, mapping_.periodX));
        const F y = static_cast<F>(walked(pixelY + mapping_.offsetY, mapping_.periodY));
        const F u = std::min(1.0f, x * mapping_.inverseX);
        const F v = std::min(1.0f, y * mapping_.inverseY);
        return {x,
                y,
                u,
                v,
                turnedX(setup_, x, y),
                turnedY(setup_, x, y),
                setup_.axisBase + setup_.axisU * u + setup_.axisV * v};
    }

    Sample sampleAt(int64_t x, int64_t y) const {
        const Place place = placeAt(x, y);
        Sample sample{};
        addDome(setup_, place, sample);
        kOptics[static_cast<size_t>(setup_.optics)](setup_, place, sample);
        if (setup_.textured) {
            addBlobs(setup_, place, sample);
            kPatterns[static_cast<size_t>(setup_.pattern)](setup_, place, sample);
            kToolings[static_cast<size_t>(setup_.tooling)](setup_, place, sample);
        }
        return sample;
    }

    Edges edgesAt(int64_t x, int64_t y) const {
        if (request_.profile.uvMapping == MaterialMapping::kGlobal) {
            return {0, 0};
        }
        const auto near = [](int64_t distance) {
            const F share = 1.0f - static_cast<F>(std::max<int64_t>(0, distance)) / 3.0f;
            return share > 0 ? share * share : 0.0f;
        };
        const F left = near(x);
        const F right = near(request_.size.width - 1 - x);
        const F top = near(y);
        const F bottom = near(request_.size.height - 1 - y);
        return {((right - left) * setup_.lightX + (bottom - top) * setup_.lightY) * setup_.rim,
                std::max(std::max(left, right), std::max(top, bottom))};
    }

    const MaterialRequest& request_;
    int step_;
    Setup setup_;
    Mapping mapping_;
};

Pixel average(Pixel a, Pixel b) {
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        result |= ((a >> shift & 0xFF) + (b >> shift & 0xFF) + 1) / 2 << shift;
    }
    return result;
}

}  // namespace

PixelBuffer referenceLayer(const MaterialRequest& request, int step) {
    const Reference reference(request, step);
    const bool global = request.profile.uvMapping == MaterialMapping::kGlobal;
    PixelBuffer buffer(request.size);
    for (int row = 0; row < request.size.height; ++row) {
        for (int column = 0; column < request.size.width; ++column) {
            const int64_t x = (global ? request.windowOffset.x : 0) + int64_t{column};
            const int64_t y = (global ? request.windowOffset.y : 0) + int64_t{row};
            // A pixel between samples takes half of each.
            const int64_t aside = step == 2 ? x & 1 : 0;
            const int64_t down = step == 2 ? y & 1 : 0;
            const auto across = [&](int64_t line) {
                return average(reference.pixelAt(x - aside, line), reference.pixelAt(x + aside, line));
            };
            buffer.view().row(row)[column] = average(across(y - down), across(y + down));
        }
    }
    return buffer;
}

}  // namespace tavi::material
