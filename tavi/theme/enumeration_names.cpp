#include "tavi/theme/enumeration_names.h"

#include <iterator>

namespace tavi {
namespace {

// Rows stand in the order of their values. The names of materials are compared after normalizeKey: write them without
// "_" and "-".
constexpr EnumerationRow kSurfaceModes[] = {
    {SurfaceMode::kFlat2d, "flat-2d flat2d flat"},
    {SurfaceMode::kSculpted3d, "sculpted-3d sculpted3d sculpted"},
    {SurfaceMode::kTextured, "textured texture material"},
    {SurfaceMode::kBitmapPlates, "bitmap-plates bitmap plates"},
    {SurfaceMode::kWindowsClean, "windows-clean windows clean"},
    {SurfaceMode::kWindows11Modern,
     "windows-11-modern windows_11_modern windows11-modern windows11modern win11-modern fluent-modern mica-modern"},
};

constexpr EnumerationRow kButtonShapes[] = {
    {ButtonShape::kRectangle, "rectangle rect square box"},
    {ButtonShape::kRoundedRect,
     "rounded-rect roundedrect rounded-rectangle roundedrectangle round-rect roundrect win11-rounded "
     "windows11-rounded"},
    {ButtonShape::kCapsule, "capsule pill round rounded"},
    {ButtonShape::kDiamond, "diamond rhombus gem"},
    {ButtonShape::kBeveled, "beveled bevel cut-corner cutcorner chamfer chamfered"},
    {ButtonShape::kOctagon, "octagon octagonal"},
    {ButtonShape::kHexagon, "hexagon hexagonal"},
    {ButtonShape::kSlantRight, "slant-right slantright parallelogram parallelogram-right parallelogramright"},
    {ButtonShape::kSlantLeft, "slant-left slantleft parallelogram-left parallelogramleft"},
};

// "aaa-glass" keeps its hyphen, so that no normalized name finds it.
constexpr EnumerationRow kMaterialKinds[] = {
    {MaterialKind::kNone, "none matte flat"},
    {MaterialKind::kGlass, "glass"},
    {MaterialKind::kFrostedGlass, "frostedglass frosted blurredglass"},
    {MaterialKind::kGloss, "gloss glossy"},
    {MaterialKind::kMetal, "metal"},
    {MaterialKind::kBrushedMetal, "brushedmetal brushed"},
    {MaterialKind::kPlastic, "plastic"},
    {MaterialKind::kRubber, "rubber"},
    {MaterialKind::kPaper, "paper"},
    {MaterialKind::kCarbonFiber, "carbonfiber carbon"},
    {MaterialKind::kObsidianGlass, "obsidianglass blackglass bottleglass bottleblack blackgloss"},
    {MaterialKind::kBloodGloss, "bloodgloss bloodglass carmineglass carminegloss"},
    {MaterialKind::kAmberGlass, "amberglass amberresin resinglass resin honeyglass"},
    {MaterialKind::kLuminousGlass, "luminousglass softglass neonglass neuronglass lightglass glowglass"},
    {MaterialKind::kLayeredGlass, "layeredglass layered photorealglass realglass deepglass aaa-glass"},
    {MaterialKind::kGemstone, "gemstone gemglass jewel crystal facetedglass faceted"},
    {MaterialKind::kObsidianRelief, "obsidianrelief obsidian3d carvedobsidian volcanicglass blackstone"},
    {MaterialKind::kStoneGranite, "stonegranite granite zula"},
    {MaterialKind::kStoneMarble, "stonemarble marble mramor"},
};

// "cracred" is a slip of the pen that skins rely on.
constexpr EnumerationRow kMaterialFinishes[] = {
    {MaterialFinish::kDefault, "default auto natural"},
    {MaterialFinish::kPolished, "polished mirror highpolish"},
    {MaterialFinish::kBrushed, "brushed linearbrushed hairline"},
    {MaterialFinish::kSatin, "satin softsatin semimatte"},
    {MaterialFinish::kMatte, "matte flat deadmatte"},
    {MaterialFinish::kRough, "rough raw naturalrough"},
    {MaterialFinish::kCracked, "cracked cracred fractured crazed"},
    {MaterialFinish::kHammered, "hammered beaten peened"},
    {MaterialFinish::kEtched, "etched engraved engravedlines"},
    {MaterialFinish::kFrosted, "frosted sandblasted milkglass"},
    {MaterialFinish::kWet, "wet wetgloss glossywet lacquered"},
};

constexpr EnumerationRow kMaterialMappings[] = {
    {MaterialMapping::kLocal, "local control surface rect rectangle"},
    {MaterialMapping::kGlobal, "global world window screen tiledglobal globaltiled worldspace windowspace"},
};

constexpr EnumerationRow kGradientKinds[] = {
    {GradientKind::kLinear, "linear"},
    {GradientKind::kReflected, "reflected mirror mirrored"},
    {GradientKind::kRadial, "radial circle circular"},
    {GradientKind::kDiamond, "diamond"},
    {GradientKind::kConic, "conic angular"},
};

constexpr EnumerationRow kGradientDirections[] = {
    {GradientDirection::kVertical, "vertical down toptobottom"},
    {GradientDirection::kVerticalUp, "verticalup up bottomtotop"},
    {GradientDirection::kHorizontal, "horizontal right lefttoright"},
    {GradientDirection::kHorizontalLeft, "horizontalleft left righttoleft"},
    {GradientDirection::kDiagonalDown, "diagonaldown downright diagonal"},
    {GradientDirection::kDiagonalDownReverse, "diagonaldownreverse downleft diagonalreverse"},
    {GradientDirection::kDiagonalUp, "diagonalup upright"},
    {GradientDirection::kDiagonalUpReverse, "diagonalupreverse upleft"},
};

constexpr EnumerationRow kMaterialPresets[] = {
    {MaterialPreset::kGranite, "granite zula"},
    {MaterialPreset::kMarble, "marble mramor"},
    {MaterialPreset::kSlate, "slate"},
    {MaterialPreset::kBasalt, "basalt"},
    {MaterialPreset::kLimestone, "limestone"},
    {MaterialPreset::kTravertine, "travertine"},
    {MaterialPreset::kSandstone, "sandstone"},
    {MaterialPreset::kSoapstone, "soapstone"},
    {MaterialPreset::kSerpentine, "serpentine"},
    {MaterialPreset::kQuartzite, "quartzite"},
    {MaterialPreset::kOnyx, "onyx"},
    {MaterialPreset::kAlabaster, "alabaster"},
    {MaterialPreset::kPorphyry, "porphyry"},
    {MaterialPreset::kLabradorite, "labradorite"},
    {MaterialPreset::kMalachite, "malachite"},
    {MaterialPreset::kLapisLazuli, "lapislazuli"},
    {MaterialPreset::kJasper, "jasper"},
    {MaterialPreset::kAgate, "agate"},
    {MaterialPreset::kTigerEye, "tigereye"},
    {MaterialPreset::kDiamond, "diamond"},
    {MaterialPreset::kRuby, "ruby"},
    {MaterialPreset::kSapphire, "sapphire"},
    {MaterialPreset::kEmerald, "emerald"},
    {MaterialPreset::kAmethyst, "amethyst"},
    {MaterialPreset::kAquamarine, "aquamarine"},
    {MaterialPreset::kTopaz, "topaz"},
    {MaterialPreset::kGarnet, "garnet"},
    {MaterialPreset::kOpal, "opal"},
    {MaterialPreset::kPeridot, "peridot"},
    {MaterialPreset::kTourmaline, "tourmaline"},
    {MaterialPreset::kCitrine, "citrine"},
    {MaterialPreset::kTurquoise, "turquoise"},
    {MaterialPreset::kMoonstone, "moonstone"},
    {MaterialPreset::kSunstone, "sunstone"},
    {MaterialPreset::kSpinel, "spinel"},
    {MaterialPreset::kZircon, "zircon"},
    {MaterialPreset::kTanzanite, "tanzanite"},
    {MaterialPreset::kAlexandrite, "alexandrite"},
    {MaterialPreset::kJade, "jade"},
    {MaterialPreset::kIron, "iron"},
    {MaterialPreset::kSteel, "steel"},
    {MaterialPreset::kStainlessSteel, "stainlesssteel"},
    {MaterialPreset::kCarbonSteel, "carbonsteel"},
    {MaterialPreset::kChrome, "chrome"},
    {MaterialPreset::kNickel, "nickel"},
    {MaterialPreset::kTitanium, "titanium"},
    {MaterialPreset::kAluminium, "aluminium aluminum"},
    {MaterialPreset::kMagnesium, "magnesium"},
    {MaterialPreset::kCopper, "copper"},
    {MaterialPreset::kBronze, "bronze"},
    {MaterialPreset::kBrass, "brass"},
    {MaterialPreset::kGold, "gold"},
    {MaterialPreset::kRoseGold, "rosegold"},
    {MaterialPreset::kWhiteGold, "whitegold"},
    {MaterialPreset::kSilver, "silver"},
    {MaterialPreset::kPlatinum, "platinum"},
    {MaterialPreset::kPalladium, "palladium"},
    {MaterialPreset::kTungsten, "tungsten"},
    {MaterialPreset::kZinc, "zinc"},
};

constexpr EnumerationRow kPerformanceProfiles[] = {
    {PerformanceProfile::kBestGraphics, "best-graphics bestgraphics graphics visuals"},
    {PerformanceProfile::kBalanced, "balanced"},
    {PerformanceProfile::kMaximumPerformance, "maximum-performance maximumperformance max-performance performance max"},
};

}  // namespace

template <>
const Enumeration& enumerationOf<SurfaceMode>() {
    static const Enumeration kTable("surface mode", Fold::kLowered, kSurfaceModes);
    return kTable;
}
template <>
const Enumeration& enumerationOf<ButtonShape>() {
    static const Enumeration kTable("shape", Fold::kLowered, kButtonShapes);
    return kTable;
}
template <>
const Enumeration& enumerationOf<MaterialKind>() {
    static const Enumeration kTable("material", Fold::kNormalized, kMaterialKinds);
    return kTable;
}
template <>
const Enumeration& enumerationOf<MaterialFinish>() {
    static const Enumeration kTable("finish", Fold::kNormalized, kMaterialFinishes);
    return kTable;
}
template <>
const Enumeration& enumerationOf<MaterialMapping>() {
    static const Enumeration kTable("mapping", Fold::kNormalized, kMaterialMappings);
    return kTable;
}
template <>
const Enumeration& enumerationOf<GradientKind>() {
    static const Enumeration kTable("gradient", Fold::kNormalized, kGradientKinds);
    return kTable;
}
template <>
const Enumeration& enumerationOf<GradientDirection>() {
    static const Enumeration kTable("gradient direction", Fold::kNormalized, kGradientDirections);
    return kTable;
}
template <>
const Enumeration& enumerationOf<MaterialPreset>() {
    static const Enumeration kTable("material preset", Fold::kNormalized, kMaterialPresets);
    return kTable;
}
template <>
const Enumeration& enumerationOf<PerformanceProfile>() {
    static const Enumeration kTable("performance profile", Fold::kNone, kPerformanceProfiles);
    return kTable;
}

std::wstring_view canonicalPerformanceProfile(std::wstring_view text) {
    static constexpr std::wstring_view kNames[] = {L"best-graphics", L"balanced", L"maximum-performance"};
    static_assert(std::size(kNames) == std::size(kPerformanceProfiles));
    return kNames[static_cast<size_t>(performanceProfileFromName(text))];
}

PerformanceProfile performanceProfileFromName(std::wstring_view text) {
    return fromName<PerformanceProfile>(text).value_or(PerformanceProfile::kBalanced);
}

}  // namespace tavi
