// The looks that the setup's windows use, by the setup's own names, and the theme that they have without any skin.
#pragma once

#include <span>

#include "tavi/controls/style_sheet.h"
#include "tavi/theme/skin_definition.h"

namespace velquin::setup {

// "vc-primary", "vc-popup" and so on: where in a skin each is looked for.
std::span<const tavi::StyleRule> setupStyleRules();

// Shown when the configured skin is not there.
const tavi::SkinDefinition& builtInSetupTheme();

}  // namespace velquin::setup
