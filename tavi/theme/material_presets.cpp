#include "tavi/theme/material_presets.h"

#include <array>
#include <cstddef>

namespace tavi {
namespace {

using enum MaterialFinish;
using enum MaterialKind;
constexpr auto kLinear = GradientKind::kLinear;
constexpr auto kReflected = GradientKind::kReflected;
constexpr auto kRadial = GradientKind::kRadial;
// Gems are cut by their kind of gradient.
constexpr auto kStar = GradientKind::kRadial;
constexpr auto kStep = GradientKind::kDiamond;

// What the presets of a family share.
struct Family {
    MaterialKind surface;  // kNone: as the controls
    MaterialKind accent;
    uint8_t rimLight;
    uint8_t ambientOcclusion;
    uint8_t edgeWear;
    int lightAngle;
    uint8_t lightElevation;
    MaterialMapping mapping;
    int mappingScale;
};

constexpr Family kStone{kNone, kMetal, 44, 112, 52, -60, 118, MaterialMapping::kGlobal, 1024};
// Stones whose bands run around an eye.
constexpr Family kEyedStone{kNone, kMetal, 44, 112, 52, -60, 118, MaterialMapping::kGlobal, 340};
constexpr Family kGem{kObsidianRelief, kGemstone, 92, 92, 20, -50, 132, MaterialMapping::kLocal, 320};
constexpr Family kMetalwork{kNone, kMetal, 64, 84, 40, -70, 124, MaterialMapping::kLocal, 320};

// One preset. `second` is what shows within the body: the other mineral, the fire of a gem, the sky in a metal.
struct Row {
    MaterialPreset preset;
    const Family& family;
    MaterialKind kind;
    MaterialFinish finish;
    uint32_t tint;    // RRGGBB
    uint32_t second;  // RRGGBB
    uint8_t strength;
    uint8_t texture;
    uint8_t depth;
    uint8_t roughness;
    uint8_t specular;
    uint8_t highlight;
    uint8_t reflection;
    uint8_t grain;
    uint8_t glow;
    int scale;
    int angle;
    int blobScale;
    int blobAngle;
    GradientKind bands;
};

using enum MaterialPreset;

// clang-format off
constexpr Row kRows[] = {
    // preset           family        kind              finish           tint     second   str   tex   dep   rgh   spc   hil   rfl  grn   glo  scl   ang   blb   bla  bands
    {kGranite,         kStone,       kStoneGranite,    kPolished,   0x3C4045,  0xA3A39C,  112,  150,   84,   96,   96,   40,   34,  84,    4,   7,    0,   48,   20, kLinear},
    {kMarble,          kStone,       kStoneMarble,     kPolished,   0x24272D,  0xDADDE0,  116,  156,   40,   34,  140,   46,   40,   8,    8,  34,   32,   54,  -40, kLinear},
    {kSlate,           kStone,       kStoneMarble,     kRough,      0x2B343C,  0x55636E,  112,  140,  120,  190,   24,   26,   44,  30,    0,  11,    6,  170,    8, kLinear},
    {kBasalt,          kStone,       kStoneGranite,    kHammered,   0x1D1F23,  0x4A4D52,  118,  140,  132,  170,   44,   34,   46,  30,    0,   3,    0,   60,    0, kLinear},
    {kLimestone,       kStone,       kStoneGranite,    kMatte,      0x6E675A,  0x9E9682,  104,  150,   44,  200,   16,   22,   26,  26,    0,   3,    0,   90,    0, kLinear},
    {kTravertine,      kStone,       kStoneMarble,     kSatin,      0x6B5640,  0xC9AE86,  108,  150,   76,  150,   44,   30,   34,  22,    4,  20,   90,  240,    0, kLinear},
    {kSandstone,       kStone,       kStoneMarble,     kRough,      0x7A5230,  0xB98650,  106,  140,   70,  220,   12,   22,   28,  52,    0,  12,   80,  210,   14, kLinear},
    {kSoapstone,       kStone,       kStoneMarble,     kSatin,      0x3C4642,  0x6B7A72,  104,  136,   30,  200,   52,   26,   26,  14,    2,  44,   20,   66,   30, kLinear},
    {kSerpentine,      kStone,       kStoneMarble,     kPolished,   0x1E4A33,  0x86B77A,  114,  156,   52,   40,  120,   42,   36,  14,    6,  18,  -30,   26,   50, kLinear},
    {kQuartzite,       kStone,       kStoneGranite,    kWet,        0x6A6872,  0xCFCBD4,  104,  146,   56,   70,  130,   46,   32,  50,   10,  14,   24,   70,   30, kLinear},
    {kOnyx,            kStone,       kStoneMarble,     kPolished,   0x0C0D10,  0xE8E2D6,  124,  170,   26,   24,  196,   62,   50,   0,   12,  56,  100,  260,    0, kLinear},
    {kAlabaster,       kStone,       kStoneMarble,     kSatin,      0x9A8F80,  0xF2E6D2,  100,  140,   22,  160,   70,   40,   20,   6,   60,  60,   40,   90,   30, kLinear},
    {kPorphyry,        kStone,       kStoneGranite,    kPolished,   0x5A2430,  0xD8A79A,  114,  160,   60,   70,  110,   42,   34,  60,    4,  16,    0,   60,    0, kLinear},
    {kLabradorite,     kStone,       kObsidianRelief,  kPolished,   0x2A3238,  0x2F8FD8,  122,  150,  110,   60,  190,   62,   44,  12,  110,  13,   28,   80,   28, kLinear},
    {kMalachite,       kEyedStone,   kStoneMarble,     kPolished,   0x0B4A34,  0x3FBF86,  118,  170,   30,   96,  150,   48,   38,   4,    8,  15,    0,  130,    0, kRadial},
    {kLapisLazuli,     kStone,       kStoneGranite,    kPolished,   0x102C84,  0xD9B24A,  118,  160,   40,   60,  130,   44,   36,   6,   10,   4,   30,   50,   20, kLinear},
    {kJasper,          kStone,       kStoneMarble,     kSatin,      0x7A2A1C,  0xC07A3C,  112,  156,   40,  170,   60,   30,   36,  16,    2,  26,  140,   44,   60, kLinear},
    {kAgate,           kEyedStone,   kStoneMarble,     kPolished,   0x5A3E50,  0xE0C0A8,  112,  160,   26,  120,  150,   46,   34,   4,   22,  11,    0,   90,    0, kRadial},
    {kTigerEye,        kStone,       kStoneMarble,     kBrushed,    0x4A2A0C,  0xD99A2E,  120,  166,   44,  110,  190,   60,   40,   6,   18,  22,   64,  190,   70, kReflected},

    {kDiamond,         kGem,         kGemstone,        kPolished,   0x8298AE,  0xF4FAFF,  128,  150,  150,   10,  250,  110,   90,   0,   60,  24,   14,   60,  -30, kStar},
    {kRuby,            kGem,         kGemstone,        kPolished,   0x9A0424,  0xFF2E54,  128,  190,  132,   20,  220,   56,   58,   0,   84,  20,   24,   64,  -30, kStep},
    {kSapphire,        kGem,         kGemstone,        kPolished,   0x0A2A9C,  0x5C8CFF,  128,  190,  134,   20,  222,   56,   60,   0,   78,  21,   36,   64,  -30, kStar},
    {kEmerald,         kGem,         kGemstone,        kPolished,   0x06733F,  0x2FE08E,  128,  185,  126,   30,  200,   52,   58,   6,   78,  26,   90,   70,  -30, kStep},
    {kAmethyst,        kGem,         kGemstone,        kPolished,   0x5A2A9C,  0xB987FF,  124,  180,  128,   24,  206,   56,   56,   0,   72,  20,   75,   60,  -30, kStar},
    {kAquamarine,      kGem,         kGemstone,        kPolished,   0x2A8FA8,  0xA6F2FA,  116,  150,  112,   16,  214,   60,   48,   0,   66,  28,   60,   76,  -30, kStep},
    {kTopaz,           kGem,         kGemstone,        kPolished,   0xB0640E,  0xFFC24A,  122,  180,  122,   20,  216,   58,   52,   0,   78,  22,   45,   64,  -30, kLinear},
    {kGarnet,          kGem,         kGemstone,        kPolished,   0x4A0810,  0xD0451C,  132,  200,  144,   28,  200,   44,   72,   0,   50,  16,   12,   50,  -30, kLinear},
    {kOpal,            kGem,         kStoneGranite,    kPolished,   0x4A94A2,  0xDE8EC6,  116,  150,   90,   30,  170,   70,   36, 120,  120,  10,   30,   36,   40, kLinear},
    {kPeridot,         kGem,         kGemstone,        kPolished,   0x5C8A10,  0xC6F04A,  120,  170,  116,   22,  204,   54,   50,   0,   66,  19,   70,   58,  -30, kLinear},
    {kTourmaline,      kGem,         kGemstone,        kPolished,   0x0A7462,  0xF0559A,  124,  200,  124,   24,  204,   52,   54,   0,   90,  30,   90,   48,   90, kStep},
    {kCitrine,         kGem,         kGemstone,        kPolished,   0xC09A10,  0xFFF08A,  114,  165,  108,   18,  214,   60,   44,   0,   66,  25,   30,   66,  -30, kReflected},
    {kTurquoise,       kGem,         kStoneMarble,     kSatin,      0x1F8F92,  0x3A2A1C,  112,  160,   60,   40,   70,   34,   38,  14,    4,  20,  -40,   24,   40, kLinear},
    {kMoonstone,       kGem,         kLuminousGlass,   kSatin,      0x5A6C8C,  0xBCD4FF,  108,  120,   60,   80,  130,   56,   26,   4,  170,  40,   20,  120,  -40, kLinear},
    {kSunstone,        kGem,         kStoneGranite,    kWet,        0xB04A18,  0xFFC070,  120,  146,   90,   40,  190,   66,   44,  90,   86,   4,   20,   50,  -30, kLinear},
    {kSpinel,          kGem,         kGemstone,        kPolished,   0xB01A5C,  0xFF7AB0,  122,  175,  130,   16,  230,   70,   50,   0,   70,  14,   50,   46,  -30, kStar},
    {kZircon,          kGem,         kGemstone,        kPolished,   0x2F7FC8,  0xFFE0B0,  120,  160,  140,    8,  250,   84,   56,   0,   60,  13,   20,   44,  -30, kLinear},
    {kTanzanite,       kGem,         kGemstone,        kPolished,   0x2E2A9A,  0xA06AFF,  126,  190,  130,   22,  212,   54,   60,   0,   76,  23,  120,   62,   30, kReflected},
    {kAlexandrite,     kGem,         kGemstone,        kPolished,   0x1C6A50,  0xB03A7A,  126,  180,  128,   22,  210,   54,   56,   0,  100,  20,  150,   80,   45, kLinear},
    {kJade,            kGem,         kStoneMarble,     kWet,        0x2A7A4E,  0xA8D8A8,  110,  140,   34,  150,  110,   46,   30,   4,   36,  46,   50,   60,   40, kLinear},

    {kIron,            kMetalwork,   kMetal,           kHammered,   0x3E3C3A,  0x7A7672,  116,  150,  140,  160,   80,   40,   46,  44,    0,  12,    0,   80,  -40, kLinear},
    {kSteel,           kMetalwork,   kBrushedMetal,    kBrushed,    0x5A636C,  0xB8C4D0,  112,  170,   84,   96,  140,   60,   50,  30,    4,   6,    0,   90,  -40, kLinear},
    {kStainlessSteel,  kMetalwork,   kBrushedMetal,    kSatin,      0x7E868C,  0xE6ECF0,  108,  165,   60,   56,  176,   70,   40,  18,    6,   3,    0,  120,  -40, kLinear},
    {kCarbonSteel,     kMetalwork,   kBrushedMetal,    kEtched,     0x20262E,  0x56687C,  118,  180,   80,  180,   52,   28,   40,  30,    0,   5,   20,   70,  -40, kLinear},
    {kChrome,          kMetalwork,   kMetal,           kPolished,   0x5E6A78,  0xF6FAFF,  140,  170,   70,    0,  255,  120,  110,   0,   10,  16,    0,  140,  -20, kReflected},
    {kNickel,          kMetalwork,   kMetal,           kSatin,      0x857E70,  0xE4DCCB,  110,  160,   60,   80,  150,   62,   44,  12,    4,  10,    0,  110,  -30, kLinear},
    {kTitanium,        kMetalwork,   kBrushedMetal,    kSatin,      0x56545E,  0x9E94C0,  112,  170,   66,  110,  120,   54,   44,  20,   16,   4,   90,  100,  -60, kReflected},
    {kAluminium,       kMetalwork,   kBrushedMetal,    kMatte,      0x8A9094,  0xD8DEE2,  100,  150,   50,  140,   92,   52,   30,  34,    0,   3,    0,   90,  -40, kLinear},
    {kMagnesium,       kMetalwork,   kMetal,           kRough,      0x6C7070,  0xA8ACAA,  104,  150,   80,  220,   40,   28,   30,  60,    0,   5,    0,   60,  -40, kLinear},
    {kCopper,          kMetalwork,   kBrushedMetal,    kBrushed,    0x8A3F1C,  0xF09A66,  116,  185,   84,   90,  160,   60,   48,  20,    8,   5,    0,   90,  -40, kLinear},
    {kBronze,          kMetalwork,   kMetal,           kHammered,   0x5E3E1A,  0xC08A44,  116,  190,  120,  120,  120,   54,   46,  24,    4,  18,    0,   80,  -40, kLinear},
    {kBrass,           kMetalwork,   kBrushedMetal,    kPolished,   0x8C6618,  0xF0CC60,  114,  180,   60,   50,  180,   52,   50,  10,    8,   4,    0,  100,  -30, kLinear},
    {kGold,            kMetalwork,   kMetal,           kPolished,   0x9A6206,  0xFFCF5A,  130,  195,   70,   20,  230,   52,   64,   0,   20,  20,    0,  120,  -30, kReflected},
    {kRoseGold,        kMetalwork,   kMetal,           kSatin,      0x9A544C,  0xFFC8B4,  112,  180,   60,   56,  190,   66,   48,   6,   10,  14,    0,  110,  -30, kLinear},
    {kWhiteGold,       kMetalwork,   kMetal,           kPolished,   0x857E68,  0xFFF8E2,  112,  165,   60,   30,  210,   80,   56,   0,   12,  18,    0,  120,  -50, kReflected},
    {kSilver,          kMetalwork,   kMetal,           kPolished,   0x7E8A98,  0xFFFFFF,  124,  165,   80,   20,  236,  100,   66,   0,    8,  14,    0,  100,  -30, kReflected},
    {kPlatinum,        kMetalwork,   kMetal,           kSatin,      0x7C8082,  0xEAEAE6,  110,  160,   40,   70,  160,   60,   34,   6,    6,  24,    0,  150,  -40, kLinear},
    {kPalladium,       kMetalwork,   kBrushedMetal,    kPolished,   0x656B7A,  0xD8D8E8,  110,  165,   70,   60,  170,   60,   46,  14,    6,   8,  130,  110,  -20, kLinear},
    {kTungsten,        kMetalwork,   kBrushedMetal,    kRough,      0x33363C,  0x8A94A2,  122,  170,  120,  130,  110,   42,   52,  48,    0,   4,   30,   70,  -40, kLinear},
    {kZinc,            kMetalwork,   kStoneGranite,    kSatin,      0x7C8890,  0xC6D2DA,  106,  170,   60,  130,  120,   40,   30,   0,    0,  24,    0,   70,  -40, kLinear},
};
// clang-format on

constexpr MaterialProfile profileOf(const Row& row) {
    return {.surface = row.family.surface == kNone ? row.kind : row.family.surface,
            .control = row.kind,
            .accent = row.family.accent,
            .strength = row.strength,
            .highlightOpacity = row.highlight,
            .reflectionOpacity = row.reflection,
            .grainOpacity = row.grain,
            .depth = row.depth,
            .backlightOpacity = row.glow,
            .innerGlow = row.glow,
            .rimLight = row.family.rimLight,
            .roughness = row.roughness,
            .specular = row.specular,
            .ambientOcclusion = row.family.ambientOcclusion,
            .edgeWear = row.family.edgeWear,
            .textureOpacity = row.texture,
            .lightAngle = row.family.lightAngle,
            .lightElevation = row.family.lightElevation,
            .scale = row.scale,
            .angle = row.angle,
            .lightBlobScale = row.blobScale,
            .lightBlobAngle = row.blobAngle,
            .finish = row.finish,
            .uvMapping = row.family.mapping,
            .uvScale = row.family.mappingScale,
            .tint = hexColor(row.tint),
            .backlightColor = hexColor(row.second),
            .gradientKind = row.bands};
}

constexpr auto kProfiles = [] {
    static_assert(std::size(kRows) == kMaterialPresetCount);
    std::array<MaterialProfile, kMaterialPresetCount> profiles;
    for (size_t i = 0; i < profiles.size(); ++i) {
        profiles[i] = profileOf(kRows[i]);
    }
    return profiles;
}();

constexpr bool rowsFollowTheEnumeration() {
    for (size_t i = 0; i < std::size(kRows); ++i) {
        if (kRows[i].preset != static_cast<MaterialPreset>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(rowsFollowTheEnumeration());

}  // namespace

const MaterialProfile& materialPreset(MaterialPreset preset) {
    return kProfiles[static_cast<size_t>(preset) % kProfiles.size()];
}

}  // namespace tavi
