#include "tavi/theme/skin_keys.h"

namespace tavi {
namespace {

constexpr SkinKey kSkinKeys[] = {
    {"id", &SkinDefinition::id, "The name by which programs and settings know it. A skin without is left out."},
    {"name", &SkinDefinition::name, "The name that people choose it by. A skin without is left out."},
    {"description", &SkinDefinition::description, "A sentence for the list of skins."},
    {"category", &SkinDefinition::category, "What skins it stands with; \"custom\" when it says nothing."},
    {"harmony", &SkinDefinition::harmony, "How its colors go together; \"custom\" when it says nothing."},
    {"surface_mode surfaceMode", &SkinDefinition::surfaceMode, "How surfaces look in general."},
    {"use_framework_defaults useFrameworkDefaults framework_defaults frameworkDefaults",
     &SkinDefinition::useFrameworkDefaults, "Whether it is one of the looks that the framework itself has."},
    {"tags", SkinSection::kTags, "Words to find it by: a list of them or one."},
    {"theme", SkinSection::kTheme, "Its colors and fonts."},
    {"materials material_profile materialProfile", SkinSection::kMaterials, "What its surfaces are made of."},
    {"shapes", SkinSection::kShapes, "The outline of everything that is drawn."},
    {"styles style_overrides styleOverrides", SkinSection::kStyles,
     "What single controls do otherwise: by control type, variant, part, state and property."},
    {"variants style_variants styleVariants control_variants controlVariants", SkinSection::kStyles,
     "More of the same, put behind the styles."},
};

}  // namespace

std::span<const SkinKey> skinKeys() {
    return kSkinKeys;
}

const SpellingIndex& skinKeyIndex() {
    static const SpellingIndex kIndex(skinKeys());
    return kIndex;
}

}  // namespace tavi
