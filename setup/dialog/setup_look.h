// How the setup's windows look: the configured skin, or the setup's own theme where it is not there, with the
// configured performance profile.
#pragma once

#include "core/configuration.h"
#include "tavi/controls/style_sheet.h"

namespace velquin::setup {

// Makes the configuration's look the active one for the process (tavi/theme/active_skin.h) and gives its style sheet.
// UI thread. Never fails: without any file it is the built-in theme.
tavi::StyleSheet useSetupLook(const ProductConfig& config);

}  // namespace velquin::setup
