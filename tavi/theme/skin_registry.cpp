#include "tavi/theme/skin_registry.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tavi/theme/material_presets.h"

namespace tavi {
namespace {

SkinDefinition builtIn(std::wstring id, std::wstring name, std::wstring description, SurfaceMode mode) {
    SkinDefinition skin;
    skin.id = std::move(id);
    skin.name = std::move(name);
    skin.description = std::move(description);
    skin.category = L"framework";
    skin.tags = {skin.category, skin.harmony};
    skin.surfaceMode = mode;
    skin.useFrameworkDefaults = true;
    return skin;
}

SkinDefinition lightSkin() {
    SkinDefinition skin = builtIn(L"framework-light", L"Framework light", L"Dark text on light, flat surfaces.",
                                  SurfaceMode::kWindowsClean);
    Theme& theme = skin.theme;
    theme.frame = hexColor(0x6A7A86);
    theme.shell = hexColor(0xF4F6F7);
    theme.panel = hexColor(0xFFFFFF);
    theme.header = hexColor(0xDCE6EA);
    theme.control = hexColor(0xFAFBFC);
    theme.controlHot = hexColor(0xE3EEF2);
    theme.controlPressed = hexColor(0xCFE0E6);
    theme.border = hexColor(0x9AAAB2);
    theme.accent = hexColor(0x0B6E7F);
    theme.accentHot = hexColor(0x0A5A68);
    theme.text = hexColor(0x16242A);
    theme.textHot = hexColor(0x06141A);
    theme.mutedText = hexColor(0x46565E);
    theme.disabledText = hexColor(0x6B7880);
    theme.disabledFill = hexColor(0xE8ECEE);
    return skin;
}

SkinDefinition stoneSkin() {
    SkinDefinition skin = builtIn(L"framework-stone", L"Framework stone", L"The framework's colors on dark slate.",
                                  SurfaceMode::kTextured);
    skin.materials = materialPreset(MaterialPreset::kSlate);
    return skin;
}

}  // namespace

std::span<const SkinDefinition> builtInSkins() {
    static const SkinDefinition kSkins[] = {
        builtIn(L"framework-default", L"Framework default", L"What the framework looks like without any skin.",
                SurfaceMode::kSculpted3d),
        builtIn(L"framework-flat", L"Framework flat", L"The same colors on flat surfaces.", SurfaceMode::kFlat2d),
        lightSkin(),
        stoneSkin(),
    };
    return kSkins;
}

SkinRegistry::SkinRegistry(std::vector<SkinDefinition> catalogs) : skins_(std::move(catalogs)) {
    std::ranges::copy(builtInSkins(), std::back_inserter(skins_));
}

const SkinDefinition& SkinRegistry::find(std::wstring_view id) const {
    const auto found = std::ranges::find(skins_, id, &SkinDefinition::id);
    return found != skins_.end() ? *found : skins_.front();
}

}  // namespace tavi
