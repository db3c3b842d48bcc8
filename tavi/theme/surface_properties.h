// The properties of surface styles by the names that skins give them.
#pragma once

#include <string_view>

#include "tavi/theme/surface_style.h"

namespace tavi {

// Sets one property from its text, both in UTF-8 as a style override has them: "gradientstart" to "#3A2C1C". The name
// is normalized (normalizeKey of each of its segments) and without the part and the state before it. What the style has
// no property for is looked up among the keys of a material and tunes that. False, with the style unchanged, for an
// unknown name and for a value that does not fit.
bool setSurfaceProperty(SurfaceStyle& style, std::string_view normalizedName, std::string_view value);

// True for the names of the property that fills all tuning from a preset: whoever sets several properties sets this one
// first, so that the others change what it filled.
bool isSurfacePreset(std::string_view normalizedName);

}  // namespace tavi
