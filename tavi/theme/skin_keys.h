// What a skin may say: for each section of a catalog's skin a table of its keys. A row holds all spellings of a key,
// the member that its value goes to, whose type tells what kind of value it takes, and a sentence for the authors of
// skins. The reader walks these tables, the schema and the key reference are printed from them, and nothing else lists
// a key.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "tavi/theme/skin_definition.h"
#include "tavi/theme/spelling_index.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

template <typename Target>
struct KeyRow {
    std::string_view names;  // separated by blanks; the first one of them that a section has counts
    Target target;
    std::string_view description;
};

// The target of a key that names a MaterialPreset, which fills a whole profile.
struct PresetFill {};
// The targets of keys that hold more than a value.
enum class SkinSection : uint8_t { kTags, kTheme, kMaterials, kShapes, kStyles };

using SkinKey = KeyRow<
    std::variant<std::wstring SkinDefinition::*, SurfaceMode SkinDefinition::*, bool SkinDefinition::*, SkinSection>>;
using ThemeKey = KeyRow<std::variant<Color Theme::*, int Theme::*, std::wstring Theme::*>>;
using MaterialKey = KeyRow<std::variant<PresetFill, MaterialKind MaterialProfile::*, uint8_t MaterialProfile::*,
                                        int MaterialProfile::*, Color MaterialProfile::*, bool MaterialProfile::*,
                                        MaterialFinish MaterialProfile::*, MaterialMapping MaterialProfile::*,
                                        GradientKind MaterialProfile::*, GradientDirection MaterialProfile::*>>;
using ShapeKey = KeyRow<std::variant<ButtonShape ShapeSet::*, ButtonShape ScrollBarShapes::*, int ScrollBarShapes::*,
                                     bool ScrollBarShapes::*>>;
using SurfaceKey =
    KeyRow<std::variant<PresetFill, ButtonShape SurfaceStyle::*, Color SurfaceStyle::*, bool SurfaceStyle::*,
                        uint8_t SurfaceStyle::*, int SurfaceStyle::*, int NineSlice::*, GradientKind SurfaceStyle::*,
                        GradientDirection SurfaceStyle::*, MaterialKind SurfaceStyle::*, std::wstring SurfaceStyle::*>>;

std::span<const SkinKey> skinKeys();
std::span<const ThemeKey> themeKeys();
std::span<const MaterialKey> materialKeys();
// The shapes that stand in the section itself.
std::span<const ShapeKey> shapeKeys();

// A control with several shapes, as an object of its parts.
struct ShapeGroup {
    std::string_view names;
    std::string_view within;  // the name of the group that it stands in; empty for the section itself
    bool takesShape;          // a shape in its place is that of all parts
    std::span<const ShapeKey> parts;
    std::string_view description;
};
std::span<const ShapeGroup> shapeGroups();
// Where an object in the place of a shape holds the shape, in the order in which they are looked for.
inline constexpr std::string_view kShapeWithin[] = {"shape", "surface", "value"};

// The properties that surface styles have of their own; every other name is one of materialKeys(), for its tuning.
std::span<const SurfaceKey> surfaceKeys();

// How catalogs hold their skins: many, or one.
inline constexpr std::string_view kSkinsKey = "skins";
inline constexpr std::string_view kSkinKey = "skin";
// The tag that each skin of a catalog ends its tags with.
inline constexpr std::wstring_view kExternalTag = L"external";

// The tables above by any spelling of their keys.
const SpellingIndex& skinKeyIndex();
const SpellingIndex& themeKeyIndex();
const SpellingIndex& materialKeyIndex();

}  // namespace tavi
