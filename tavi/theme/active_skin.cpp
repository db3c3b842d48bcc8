#include "tavi/theme/active_skin.h"

#include <utility>

#include "tavi/theme/skin_registry.h"

namespace tavi {
namespace {

struct Active {
    SkinDefinition skin = builtInSkins().front();
    uint64_t generation = 0;
    Signal<SkinChange> changed;
};

Active& active() {
    // Never destroyed: windows may go, and disconnect, after static objects have gone.
    static Active& instance = *new Active;
    return instance;
}

}  // namespace

const SkinDefinition& activeSkin() {
    return active().skin;
}

const Theme& activeTheme() {
    return active().skin.theme;
}

uint64_t skinGeneration() {
    return active().generation;
}

Signal<SkinChange>& skinChanged() {
    return active().changed;
}

void activateSkin(const SkinDefinition& skin) {
    // Copied first: a copy that cannot be made leaves the active skin whole.
    SkinDefinition copy = skin;
    active().skin = std::move(copy);
    SkinChange change{++active().generation};
    active().changed.emit(change);
}

}  // namespace tavi
