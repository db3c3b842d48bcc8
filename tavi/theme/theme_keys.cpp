#include "tavi/theme/skin_keys.h"

namespace tavi {
namespace {

constexpr ThemeKey kThemeKeys[] = {
    {"frame", &Theme::frame, "Frames around windows and dialogs."},
    {"shell", &Theme::shell, "The ground of a window."},
    {"panel", &Theme::panel, "Panels and cards on it."},
    {"header", &Theme::header, "Title bars and headers."},
    {"control", &Theme::control, "Controls at rest."},
    {"control_hot controlHot", &Theme::controlHot, "Controls under the pointer."},
    {"control_pressed controlPressed", &Theme::controlPressed, "Controls while they are pressed."},
    {"border", &Theme::border, "Borders of controls and panels."},
    {"accent", &Theme::accent, "What stands out: default buttons, marks, progress."},
    {"accent_hot accentHot", &Theme::accentHot, "The same under the pointer."},
    {"text", &Theme::text, "Text."},
    {"text_hot textHot", &Theme::textHot, "Text under the pointer and on accents."},
    {"muted_text mutedText", &Theme::mutedText, "Secondary text."},
    {"disabled_text disabledText", &Theme::disabledText, "Text of controls that are disabled."},
    {"disabled_fill disabledFill", &Theme::disabledFill, "Controls that are disabled."},
    {"ui_font_family uiFontFamily", &Theme::uiFontFamily, "The font of the user interface."},
    {"ui_point_size uiPointSize", &Theme::uiPointSize, "Its size in points."},
    {"ui_weight uiWeight", &Theme::uiWeight, "Its weight: 400 is normal, 700 bold."},
    {"mono_font_family monoFontFamily", &Theme::monoFontFamily,
     "The font in which all characters are as wide, for paths and logs."},
    {"mono_point_size monoPointSize", &Theme::monoPointSize, "Its size in points."},
    {"mono_weight monoWeight", &Theme::monoWeight, "Its weight: 400 is normal, 700 bold."},
};

}  // namespace

std::span<const ThemeKey> themeKeys() {
    return kThemeKeys;
}

const SpellingIndex& themeKeyIndex() {
    static const SpellingIndex kIndex(themeKeys());
    return kIndex;
}

}  // namespace tavi
