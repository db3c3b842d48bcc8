// Materials by name: the stones, gems and metals that a skin may start from ("preset": "malachite"). A preset is a
// whole profile; the keys beside it tune that.
#pragma once

#include "tavi/theme/material_profile.h"

namespace tavi {

enum class MaterialPreset : uint8_t {
    // Stones.
    kGranite,
    kMarble,
    kSlate,
    kBasalt,
    kLimestone,
    kTravertine,
    kSandstone,
    kSoapstone,
    kSerpentine,
    kQuartzite,
    kOnyx,
    kAlabaster,
    kPorphyry,
    kLabradorite,
    kMalachite,
    kLapisLazuli,
    kJasper,
    kAgate,
    kTigerEye,
    // Gems.
    kDiamond,
    kRuby,
    kSapphire,
    kEmerald,
    kAmethyst,
    kAquamarine,
    kTopaz,
    kGarnet,
    kOpal,
    kPeridot,
    kTourmaline,
    kCitrine,
    kTurquoise,
    kMoonstone,
    kSunstone,
    kSpinel,
    kZircon,
    kTanzanite,
    kAlexandrite,
    kJade,
    // Metals.
    kIron,
    kSteel,
    kStainlessSteel,
    kCarbonSteel,
    kChrome,
    kNickel,
    kTitanium,
    kAluminium,
    kMagnesium,
    kCopper,
    kBronze,
    kBrass,
    kGold,
    kRoseGold,
    kWhiteGold,
    kSilver,
    kPlatinum,
    kPalladium,
    kTungsten,
    kZinc
};
inline constexpr int kMaterialPresetCount = 59;

// The profile of that name. It stays valid for ever.
const MaterialProfile& materialPreset(MaterialPreset preset);

}  // namespace tavi
