#include "tavi/theme/derived_style.h"

#include <algorithm>

namespace tavi {
namespace {

constexpr Color kBlack = hexColor(0x000000);
constexpr Color kWhite = hexColor(0xFFFFFF);

// What a surface mode makes of every surface: how much lighter a raised one is at the top and darker at the bottom (of
// 255 parts of white and black), and what it casts and carries.
struct ModeLook {
    uint8_t lighter;
    uint8_t darker;
    bool casts;         // raised surfaces cast a shadow, sunken ones lie in one
    bool carriesSmall;  // controls carry a material
    bool carriesLarge;  // windows and panels do
};
constexpr ModeLook kModes[] = {
    {0, 0, false, false, false},  // flat-2d
    {26, 60, true, true, true},   // sculpted-3d
    {12, 30, true, true, true},   // textured
    {18, 40, true, true, true},   // bitmap-plates
    {0, 0, false, false, false},  // windows-clean
    {6, 0, false, false, true},   // windows-11-modern
};

// The color of a role, and what it is made of.
struct RoleLook {
    Color Theme::* fill;
    MaterialKind MaterialProfile::* material;
    int relief;  // 1 raised, -1 sunken
    int shadow;  // pixels down
    bool large;
};
RoleLook roleLook(SurfaceRole role) {
    switch (role) {
        case SurfaceRole::kWindow:
            return {&Theme::shell, &MaterialProfile::surface, 0, 0, true};
        case SurfaceRole::kHeader:
            return {&Theme::header, &MaterialProfile::surface, 1, 0, true};
        case SurfaceRole::kSunken:
            return {&Theme::control, &MaterialProfile::control, -1, 0, false};
        case SurfaceRole::kRaised:
        case SurfaceRole::kThumb:
            return {&Theme::control, &MaterialProfile::control, 1, 2, false};
        case SurfaceRole::kFloating:
            return {&Theme::panel, &MaterialProfile::surface, 1, 4, true};
        case SurfaceRole::kAccent:
            return {&Theme::accent, &MaterialProfile::accent, 1, 0, false};
        case SurfaceRole::kLine:
            return {&Theme::border, nullptr, 0, 0, false};
        default:
            return {&Theme::panel, &MaterialProfile::surface, 0, 0, true};
    }
}

// The colors that mark a meaning; a variant mixes its color into the surface and into its border.
struct VariantTint {
    std::wstring_view variant;
    Color color;  // 0 for the theme's accent
    uint8_t weight;
};
constexpr VariantTint kTints[] = {
    {L"primary", 0, 84},
    {L"success", hexColor(0x2F8F5B), 96},
    {L"warning", hexColor(0xB98324), 96},
    {L"danger", hexColor(0xB23A44), 110},
    {L"info", hexColor(0x3A78B0), 96},
};

Color textOf(const Theme& theme, const StylePart& part, std::wstring_view variant) {
    if (part.controlType == L"text") {
        if (variant == L"title") {
            return theme.textHot;
        }
        if (variant == L"muted") {
            return theme.mutedText;
        }
        return variant == L"danger" ? mixed(theme.text, hexColor(0xFF5A50), 128) : theme.text;
    }
    return part.role == SurfaceRole::kHeader ? theme.textHot : theme.text;
}

void tint(SurfaceStyle& style, const Theme& theme, const StylePart& part, std::wstring_view variant) {
    if (part.role != SurfaceRole::kRaised && part.role != SurfaceRole::kAccent) {
        return;
    }
    const auto row = std::ranges::find(kTints, variant, &VariantTint::variant);
    if (row == std::end(kTints)) {
        return;
    }
    const Color color = row->color != 0 ? row->color : theme.accent;
    style.fill = mixed(style.fill, color, part.role == SurfaceRole::kAccent ? 200 : row->weight);
    style.border = mixed(style.border, color, 190);
}

void sculpt(SurfaceStyle& style, const ModeLook& mode, int relief) {
    if (relief == 0 || (mode.lighter == 0 && mode.darker == 0)) {
        return;
    }
    style.useGradient = true;
    const Color lit = mixed(style.fill, kWhite, relief > 0 ? mode.lighter : mode.lighter / 3);
    const Color shaded = mixed(style.fill, kBlack, mode.darker);
    style.gradientStart = relief > 0 ? lit : shaded;
    style.gradientEnd = relief > 0 ? shaded : lit;
}

template <typename Change>
void changeColors(SurfaceStyle& style, const Change& change) {
    for (Color* const color : {&style.fill, &style.gradientStart, &style.gradientMid, &style.gradientEnd}) {
        *color = change(*color);
    }
}

// The color of the theme for this state, with the relief that the surface has.
void recolor(SurfaceStyle& style, const SkinDefinition& skin, const StylePart& part, Color color) {
    style.fill = color;
    style.useGradient = false;
    sculpt(style, kModes[static_cast<size_t>(skin.surfaceMode)], roleLook(part.role).relief);
}

void disable(StyleLook& look, const Theme& theme) {
    SurfaceStyle& style = look.surface;
    style.fill = theme.disabledFill;
    style.border = mixed(style.border, theme.disabledFill, 140);
    style.useGradient = style.showShadow = style.showGlow = style.useNoise = false;
    style.material = MaterialKind::kNone;
    look.text = theme.disabledText;
}

}  // namespace

StyleLook derivedLook(const SkinDefinition& skin, const StylePart& part, std::wstring_view variant) {
    const Theme& theme = skin.theme;
    const ModeLook& mode = kModes[static_cast<size_t>(skin.surfaceMode)];
    const RoleLook role = roleLook(part.role);
    StyleLook look;
    look.text = textOf(theme, part, variant);
    SurfaceStyle& style = look.surface;
    const bool isPrimary = variant == L"primary" && part.controlType == L"button";
    style.shape = isPrimary ? skin.shapes.buttonPrimary : part.shape(skin.shapes);
    style.tuning = skin.materials;
    style.gradientKind = skin.materials.gradientKind;
    style.gradientDirection = skin.materials.gradientDirection;
    style.fill = theme.*role.fill;
    style.border = part.role == SurfaceRole::kAccent ? theme.accentHot : theme.border;
    style.glow = style.outline = theme.accent;
    style.shadowOffsetY = std::max(role.shadow, 1);
    if (part.controlType == L"checkbox") {
        style.border = mixed(style.border, theme.text, 96);  // one that is not ticked is little more than its border
    }
    tint(style, theme, part, variant);
    sculpt(style, mode, role.relief);
    style.showShadow = mode.casts && role.shadow > 0;
    style.showInnerShadow = mode.casts && role.relief < 0;
    style.drawBorder = part.role != SurfaceRole::kWindow && part.role != SurfaceRole::kLine;
    if (part.role == SurfaceRole::kFloating && skin.surfaceMode == SurfaceMode::kWindows11Modern) {
        style.showShadow = true;
    }
    if (role.material != nullptr && skin.materials.enabled && (role.large ? mode.carriesLarge : mode.carriesSmall)) {
        style.material = skin.materials.*role.material;
    }
    if (part.role == SurfaceRole::kNothing || part.role == SurfaceRole::kRow || variant == L"quiet") {
        style.drawFill = style.drawBorder = style.showShadow = style.useGradient = false;
        style.material = MaterialKind::kNone;
    }
    if (part.role == SurfaceRole::kPanel && variant == L"raised") {
        style.fill = mixed(theme.panel, theme.control, 128);
    } else if (part.role == SurfaceRole::kPanel && variant == L"glass") {
        style.opacity = 216;
    }
    return look;
}

void enterState(StyleLook& look, const SkinDefinition& skin, const StylePart& part, SurfaceState state, bool derived) {
    const Theme& theme = skin.theme;
    SurfaceStyle& style = look.surface;
    const bool seen = style.drawFill;
    switch (state) {
        case SurfaceState::kHot:
        case SurfaceState::kPressed: {
            const bool isHot = state == SurfaceState::kHot;
            if (part.role == SurfaceRole::kNothing) {
                break;
            }
            style.drawFill = true;
            if (!seen || (derived && part.role == SurfaceRole::kRaised && style.fill == theme.control)) {
                recolor(style, skin, part, isHot ? theme.controlHot : theme.controlPressed);
            } else {
                changeColors(style, [&](Color color) {
                    return isHot ? mixed(color, theme.textHot, 26) : mixed(color, theme.shell, 72);
                });
            }
            style.border = isHot ? theme.accentHot : theme.accent;
            if (!isHot) {
                style.showShadow = style.showGlow = false;
                style.showInnerShadow = kModes[static_cast<size_t>(skin.surfaceMode)].casts;
            }
            if (look.text == theme.text) {
                look.text = isHot ? theme.textHot : theme.text;
            }
            break;
        }
        case SurfaceState::kDisabled:
            disable(look, theme);
            break;
        case SurfaceState::kSelected:
            style.drawFill = true;
            recolor(style, skin, part, mixed(theme.controlPressed, theme.accent, 40));
            style.border = theme.accent;
            look.text = theme.textHot;
            break;
        case SurfaceState::kChecked:
            style.border = theme.accent;
            break;
        case SurfaceState::kReadOnly:
            changeColors(style, [&](Color color) { return mixed(color, theme.panel, 150); });
            break;
        default:
            break;
    }
}

}  // namespace tavi
