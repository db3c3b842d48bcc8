// What the row kernels of the materials work on: plain numbers, and the tables of their functions. The kernels are
// compiled twice, once for any x86-64 and once for AVX2; a file that is compiled for AVX2 may share no inline function
// with others (the linker keeps one copy, perhaps that one), so this header has none and includes none.
#pragma once

#include <cstdint>

namespace tavi::material {

// The light that a surface as a whole reflects, whatever its texture.
enum class Optics : uint8_t { kMatte, kGlass, kGloss, kMetal, kDarkGlass, kLuminous };
inline constexpr int kOpticsCount = 6;

enum class Pattern : uint8_t {
    kFlat,
    kFrost,
    kPeel,        // the skin of molded plastic
    kStipple,     // rubber
    kFibres,      // paper
    kWeave,       // carbon
    kHairlines,   // brushed metal
    kMachined,    // metal
    kConchoidal,  // broken glass
    kSwirl,       // thick colored glass
    kResin,       // swirls with bubbles
    kVeil,        // light within glass
    kPlanes,      // panes of glass one behind another
    kLatticeCut,  // gems: triangles,
    kStarCut,     // kites around the middle,
    kStepCut,     // steps along the edges
    kScallops,    // flaked stone
    kSpeckle,     // granite
    kVeins        // marble
};
inline constexpr int kPatternCount = 19;

// What a finish does to the surface besides changing how it takes light.
enum class Tooling : uint8_t { kNone, kMirror, kBrush, kBead, kRoughen, kCrack, kHammer, kEtch, kSandblast, kFilm };
inline constexpr int kToolingCount = 10;

struct Rgb {
    float r = 0;
    float g = 0;
    float b = 0;
};

// Everything that is the same for all pixels of a layer. Opacities and other shares count from 0 to 1.
struct Setup {
    Optics optics = Optics::kMatte;
    Pattern pattern = Pattern::kFlat;
    Tooling tooling = Tooling::kNone;
    uint32_t seed = 0;
    // Texture coordinates are pixels; sines and cosines turn them.
    float inverseScale = 0.125f;
    float angleCos = 1;
    float angleSin = 0;
    float blobCos = 0;  // both already divided by the size of the blobs
    float blobSin = 0;
    float bend = 2;   // how far blobs bend veins, in sizes of features
    float kites = 3;  // of a star cut, in a quarter
    uint32_t cutSeed = 0;
    float centerX = 0;  // of the mapped area, in pixels
    float centerY = 0;
    float extentX = 1;
    float extentY = 1;
    // Weights that pick one of the kinds of gradient, in their order, and the axis a + b u + c v of the direction.
    float kindWeight[5] = {1, 0, 0, 0, 0};
    float axisBase = 0;
    float axisU = 0;
    float axisV = 1;
    // Light.
    float lightX = 0;
    float lightY = -0.7f;
    float lightZ = 0.7f;
    float highlight = 0;
    float reflection = 0;
    float specular = 0;
    float roughness = 0;
    float occlusion = 0;
    float rim = 0;
    float wear = 0;      // of what stands out
    float edgeWear = 0;  // of the surface's own edges
    float grain = 0;
    float depth = 0;
    float slope = 0;   // of heights, in the normal
    float bulge = 0;   // of the whole area
    float relief = 1;  // of the pattern
    float sheen = 1;   // of optics and patterns that shine
    float backlight = 0;
    float innerGlow = 0;
    float flame = 0;
    // Colors.
    float body = 0;  // opacity of the pigment
    Rgb dark;
    Rgb base;
    Rgb light;
    Rgb second;
    Rgb highlightColor;
    Rgb shadowColor;
    Rgb backlightColor;
    Rgb flameColor;
    float opacity = 1;  // of the layer
    bool textured = true;
};

// One row of samples: where each lies, and what has been found of it so far.
struct Row {
    int count = 0;
    const float* x = nullptr;  // texture coordinates
    const float* u = nullptr;  // the same, 0 to 1 over the mapped area
    float y = 0;
    float v = 0;
    float* height = nullptr;  // about -1 to 1
    float* tone = nullptr;    // -1 the dark pigment, 1 the light one
    float* second = nullptr;  // 0 to 1: the share of the second color
    float* sheen = nullptr;   // light, above 0, or shadow
    float* glow = nullptr;    // 0 to 1
};

// What the last step reads: a row of samples with the heights above and below. All are one sample longer on each side
// than the pixels they make.
struct ShadeRow {
    Row row;
    const float* above = nullptr;
    const float* below = nullptr;
    const float* edgeX = nullptr;  // light of the left and right edge, one for each pixel
    const float* wearX = nullptr;  // how near the left and right edge are
    float edgeY = 0;
    float wearY = 0;
    uint32_t* pixels = nullptr;
};

using RowFunction = void (*)(const Setup&, const Row&);

struct Kernels {
    RowFunction begin;  // replaces what is in the row
    RowFunction blobs;
    RowFunction optics[kOpticsCount];
    RowFunction patterns[kPatternCount];
    RowFunction tooling[kToolingCount];
    void (*shade)(const Setup&, const ShadeRow&);
};

namespace plain {
extern const Kernels kKernels;
}
namespace avx2 {
extern const Kernels kKernels;
}

}  // namespace tavi::material
