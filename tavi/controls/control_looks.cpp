#include "tavi/controls/control_looks.h"

#include <algorithm>
#include <cstdlib>

#include "tavi/theme/active_skin.h"
#include "tavi/theme/surface_drawing.h"

namespace tavi {
namespace {

constexpr std::wstring_view kSurface = L"surface";
constexpr std::wstring_view kMono = L"mono";

// The room that an area leaves inside of its control's bounds on the side where it is narrowest.
int32_t roomAround(const Rect& bounds, const Rect& area) {
    return std::max(0, std::min({area.x - bounds.x, area.y - bounds.y, bounds.right() - area.right(),
                                 bounds.bottom() - area.bottom()}));
}

}  // namespace

SurfaceState stateOf(const Interaction& interaction) {
    return !interaction.enabled  ? SurfaceState::kDisabled
           : interaction.pressed ? SurfaceState::kPressed
           : interaction.hot     ? SurfaceState::kHot
           : interaction.focused ? SurfaceState::kFocused
                                 : SurfaceState::kNormal;
}

Rect insetBy(const Rect& area, int32_t horizontal, int32_t vertical) {
    return rectBetween(int64_t{area.x} + horizontal, int64_t{area.y} + vertical, int64_t{area.right()} - horizontal,
                       int64_t{area.bottom()} - vertical);
}

Rect surfaceArea(const Control& control, Point origin) {
    const Scale scale = control.window() != nullptr ? control.window()->scale() : Scale();
    const int32_t inset = scale.length(kSurfaceInset);
    return insetBy(control.deviceRect(control.localBounds(), origin), inset, inset);
}

void fitAround(SurfaceStyle& style, int32_t room) {
    style.outlineWidth = std::min(style.outlineWidth, room);
    style.glowRadius = std::min(style.glowRadius, room);
    // A shadow reaches as far as it is moved and as it blurs.
    style.shadowOffsetX = std::clamp(style.shadowOffsetX, -room / 2, room / 2);
    style.shadowOffsetY = std::clamp(style.shadowOffsetY, -room / 2, room / 2);
    const int32_t blur = room - std::max(std::abs(style.shadowOffsetX), std::abs(style.shadowOffsetY));
    style.shadowReach = std::min(style.shadowReach, blur);
    style.showOutline = style.showOutline && style.outlineWidth > 0;
    style.showGlow = style.showGlow && style.glowRadius > 0;
    style.showShadow = style.showShadow && style.shadowReach > 0;
}

int32_t ControlLooks::dpi(const Control& control) {
    return control.window() != nullptr ? control.window()->scale().dpi() : kDesignDpi;
}

const std::wstring& ControlLooks::variantOf(const Appearance& appearance) {
    return appearance.variant.empty() ? appearance.styleName : appearance.variant;
}

void ControlLooks::refresh(const Control& control) const {
    const int32_t now = dpi(control);
    if (generation_ != skinGeneration() || dpi_ != now || appearance_ != control.appearance()) {
        looks_.clear();
        generation_ = skinGeneration();
        dpi_ = now;
        appearance_ = control.appearance();
    }
}

const StyleLook& ControlLooks::look(const Control& control, SurfaceState state, std::wstring_view part) const {
    refresh(control);
    auto key = std::pair(state, std::wstring(part));
    if (const auto kept = looks_.find(key); kept != looks_.end()) {
        return kept->second;
    }
    StyleLook look = resolveStyle(activeSkin(), type_, variantOf(appearance_), state, part);
    look.surface = scaledStyle(look.surface, dpi_ * 100 / kDesignDpi);
    if (state != SurfaceState::kDisabled) {
        look.text = appearance_.textColor.value_or(look.text);
    }
    if (part == kSurface && appearance_.fillColor) {
        look.surface.fill = *appearance_.fillColor;
        look.surface.drawFill = true;
        look.surface.useGradient = false;
    }
    if (part == kSurface && appearance_.borderColor) {
        look.surface.border = *appearance_.borderColor;
        look.surface.drawBorder = true;
    }
    return looks_.emplace(std::move(key), std::move(look)).first->second;
}

Color ControlLooks::focusColor(const Control& control) const {
    return tavi::focusColor(activeSkin(), type_, variantOf(control.appearance()));
}

TextFont ControlLooks::font(const Control& control) const {
    const Appearance& appearance = control.appearance();
    const Theme& theme = activeTheme();
    const TextFont own = variantOf(appearance) == kMono
                             ? TextFont{theme.monoFontFamily, theme.monoPointSize, theme.monoWeight}
                             : TextFont{theme.uiFontFamily, theme.uiPointSize, theme.uiWeight};
    return appearance.font.value_or(own);
}

void ControlLooks::paint(HDC target, const Control& control, Point origin, const Rect& local, SurfaceState state,
                         std::wstring_view part, bool focused) const {
    paintArea(target, control, origin, control.deviceRect(local, origin), state, part, focused);
}

void ControlLooks::paintArea(HDC target, const Control& control, Point origin, const Rect& area, SurfaceState state,
                             std::wstring_view part, bool focused) const {
    SurfaceStyle style = look(control, state, part).surface;
    if (focused) {
        const SurfaceStyle& marked = look(control, SurfaceState::kFocused, part).surface;
        style.showOutline = marked.showOutline;
        style.outline = marked.outline;
        style.outlineWidth = marked.outlineWidth;
    }
    fitAround(style, roomAround(control.deviceRect(control.localBounds(), origin), area));
    drawSurface(target, area, style);
}

void ControlLooks::paintDropDown(HDC target, const Control& control, Point origin) const {
    SurfaceStyle ground = look(control, SurfaceState::kNormal, L"dropdown").surface;
    ground.showShadow = ground.showGlow = false;
    drawSurface(target, control.deviceRect(control.localBounds(), origin), ground);
}

}  // namespace tavi
