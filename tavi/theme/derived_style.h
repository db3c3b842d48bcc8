// The look of a surface as a skin's theme, surface mode and materials make it, before any style override. A skin that
// names nothing but fifteen colors looks finished by these rules.
#pragma once

#include "tavi/theme/skin_definition.h"
#include "tavi/theme/skin_styles.h"
#include "tavi/theme/style_parts.h"

namespace tavi {

// The normal state. `variant` is one of those that controls ask for, without "-action"; any other is plain.
StyleLook derivedLook(const SkinDefinition& skin, const StylePart& part, std::wstring_view variant);

// The same look in another state: shifts its colors, so it fits a look that overrides have changed. `derived` says that
// they have not: then the theme's own colors of the state are taken.
void enterState(StyleLook& look, const SkinDefinition& skin, const StylePart& part, SurfaceState state, bool derived);

}  // namespace tavi
