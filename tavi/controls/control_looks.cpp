#include "tavi/controls/control_looks.h"

#include "tavi/theme/active_skin.h"
#include "tavi/theme/surface_drawing.h"

namespace tavi {

SurfaceState stateOf(const Interaction& interaction) {
    return !interaction.enabled  ? SurfaceState::kDisabled
           : interaction.pressed ? SurfaceState::kPressed
           : interaction.hot     ? SurfaceState::kHot
           : interaction.focused ? SurfaceState::kFocused
                                 : SurfaceState::kNormal;
}

int32_t ControlLooks::dpi(const Control& control) {
    return control.window() != nullptr ? control.window()->scale().dpi() : kDesignDpi;
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
    const auto key = std::pair(state, std::wstring(part));
    if (const auto kept = looks_.find(key); kept != looks_.end()) {
        return kept->second;
    }
    const std::wstring& variant = appearance_.variant.empty() ? appearance_.styleName : appearance_.variant;
    StyleLook look = resolveStyle(activeSkin(), type_, variant, state, part);
    look.surface = scaledStyle(look.surface, dpi_ * 100 / kDesignDpi);
    look.text = appearance_.textColor.value_or(look.text);
    look.surface.fill = appearance_.fillColor.value_or(look.surface.fill);
    look.surface.border = appearance_.borderColor.value_or(look.surface.border);
    return looks_.emplace(key, std::move(look)).first->second;
}

Color ControlLooks::focusColor(const Control& control) const {
    const Appearance& appearance = control.appearance();
    return tavi::focusColor(activeSkin(), type_,
                            appearance.variant.empty() ? appearance.styleName : appearance.variant);
}

TextFont ControlLooks::font(const Control& control) const {
    const Theme& theme = activeTheme();
    return control.appearance().font.value_or(TextFont{theme.uiFontFamily, theme.uiPointSize, theme.uiWeight});
}

void ControlLooks::paint(HDC target, const Control& control, Point origin, const Rect& local, SurfaceState state,
                         std::wstring_view part, bool focused) const {
    SurfaceStyle style = look(control, state, part).surface;
    if (focused) {
        const SurfaceStyle& marked = look(control, SurfaceState::kFocused, part).surface;
        style.showOutline = marked.showOutline;
        style.outline = marked.outline;
        style.outlineWidth = marked.outlineWidth;
    }
    drawSurface(target, control.deviceRect(local, origin), style);
}

}  // namespace tavi
