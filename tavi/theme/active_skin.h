// The skin that everything is painted with, one for the process. Belongs to the thread of the windows.
#pragma once

#include <cstdint>

#include "tavi/core/signal.h"
#include "tavi/theme/skin_definition.h"

namespace tavi {

// The active skin and its theme. Before the first activation they are the framework's default look. Both stay where
// they are for the whole life of the process: another skin replaces what they hold.
const SkinDefinition& activeSkin();
const Theme& activeTheme();

// Counts the activations. A cache that remembers the number notices that it has become stale.
uint64_t skinGeneration();

struct SkinChange {
    uint64_t generation = 0;
};
// Emitted behind each activation, when the new skin is in place: windows repaint themselves.
Signal<SkinChange>& skinChanged();

// Makes a copy of the skin the active one, as a whole, and tells those who listen.
void activateSkin(const SkinDefinition& skin);

}  // namespace tavi
