// From a skin to what is painted: the look of a control's parts in each state, made from the theme, the surface mode,
// the materials and the shapes, then changed by the skin's style overrides.
#pragma once

#include <string_view>

#include "tavi/theme/skin_definition.h"
#include "tavi/theme/surface_style.h"

namespace tavi {

enum class SurfaceState : uint8_t { kNormal, kHot, kPressed, kFocused, kDisabled, kChecked, kSelected, kReadOnly };
inline constexpr int kSurfaceStateCount = 8;
// As style paths name them, in the order of the enumeration.
inline constexpr std::string_view kStateNames[kSurfaceStateCount] = {"normal",   "hot",     "pressed",  "focused",
                                                                     "disabled", "checked", "selected", "readonly"};

// A surface and the color of the text on it.
struct StyleLook {
    SurfaceStyle surface;
    Color text = 0;

    bool operator==(const StyleLook&) const = default;
};

// The look of one part of a control: the skin's own derived look, then the overrides of (type, variant) at the paths
// "<part>.normal.*" and "<part>.<state>.*", and "text.normal" and "text.<state>" for the color of the text. A variant
// that the skin does not name takes the next one of its chain ("primary-action", "primary", "default"). Type and
// variant are matched by their canonical names; `part` is "surface" for the control itself.
//
// Looks through all overrides of the skin, some hundredths of a millisecond: a control keeps its looks until the skin
// or its scale changes.
StyleLook resolveStyle(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant,
                       SurfaceState state, std::wstring_view part = L"surface");

// True when the skin has overrides for exactly this type and variant.
bool hasStyle(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant);

// The color of the mark around a focused control ("focus.color" of the type and variant, else the theme's hot accent).
Color focusColor(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant);

// The same style with all of its lengths at another scale, in percent of 96 dots an inch.
SurfaceStyle scaledStyle(const SurfaceStyle& style, int percent);

}  // namespace tavi
