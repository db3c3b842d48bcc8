#include "tavi/theme/skin_styles.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/text.h"
#include "tavi/core/geometry.h"
#include "tavi/theme/control_types.h"
#include "tavi/theme/derived_style.h"
#include "tavi/theme/normalize_key.h"
#include "tavi/theme/skin_values.h"
#include "tavi/theme/surface_properties.h"

namespace tavi {
namespace {

constexpr std::wstring_view kStates[kSurfaceStateCount] = {L"normal",   L"hot",     L"pressed",  L"focused",
                                                           L"disabled", L"checked", L"selected", L"readonly"};
// A canonical name, or the normalized one of a type that only a program knows.
std::wstring typeName(std::wstring_view controlType) {
    return std::wstring(canonicalControlType(normalizeKey(controlType)));
}

// Variants that come in two forms: "danger-action" is a louder "danger", and looks like it where a skin does not say
// how.
constexpr std::wstring_view kWithActions[] = {L"primary", L"success", L"warning", L"danger"};

// The normalized name without "-action".
std::wstring plainVariant(std::wstring_view variant) {
    std::wstring name = normalizeKey(variant);
    for (const std::wstring_view plain : kWithActions) {
        if (name.starts_with(plain) && std::wstring_view(name).substr(plain.size()) == L"action") {
            return std::wstring(plain);
        }
    }
    return name;
}

// The overrides of one control type in one variant.
class Overrides {
public:
    Overrides(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant) {
        // From the variant that is asked for to the one that every control has.
        for (const std::wstring& name : {normalizeKey(variant), plainVariant(variant), std::wstring(L"default")}) {
            if (found_.empty()) {
                found_ = collect(skin, controlType, name);
            }
        }
    }

    // The last one wins, as a later entry of a skin does.
    std::optional<std::wstring_view> value(std::wstring_view path) const {
        for (auto entry = found_.rbegin(); entry != found_.rend(); ++entry) {
            if (const auto text = (*entry)->properties.find(path)) {
                return text;
            }
        }
        return std::nullopt;
    }

    // Sets what stands below the path; true when there was anything. A preset fills the tuning that others change.
    bool apply(SurfaceStyle& style, std::wstring_view part, std::wstring_view state) const {
        std::wstring path(part);
        path.append(L".").append(state).append(L".");
        bool any = false;
        for (const bool presets : {true, false}) {
            for (const StyleOverride* const entry : found_) {
                for (size_t i = 0; i < entry->properties.size(); ++i) {
                    const StyleProperties::Property property = entry->properties.at(i);
                    if (!property.path.starts_with(path)) {
                        continue;
                    }
                    const std::wstring_view name = property.path.substr(path.size());
                    if (isSurfacePreset(name) == presets) {
                        any = true;
                        setSurfaceProperty(style, name, property.value);
                    }
                }
            }
        }
        return any;
    }

private:
    static std::vector<const StyleOverride*> collect(const SkinDefinition& skin, std::wstring_view controlType,
                                                     std::wstring_view variant) {
        std::vector<const StyleOverride*> found;
        for (const StyleOverride& entry : skin.styleOverrides) {
            if (canonicalControlType(entry.controlType) == controlType && normalizeKey(entry.variant) == variant) {
                found.push_back(&entry);
            }
        }
        return found;
    }

    std::vector<const StyleOverride*> found_;
};

void setColor(Color& color, const Overrides& overrides, std::wstring_view path) {
    if (const auto text = overrides.value(path)) {
        color = colorFromText(base::toUtf8(*text)).value_or(color);
    }
}

Color focusColorOf(const SkinDefinition& skin, const Overrides& overrides) {
    Color color = skin.theme.accentHot;
    setColor(color, overrides, L"focus.color");
    return color;
}

}  // namespace

StyleLook resolveStyle(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant,
                       SurfaceState state, std::wstring_view part) {
    const std::wstring type = typeName(controlType);
    const Overrides overrides(skin, type, variant);
    const StylePart& row = stylePart(type, part);
    StyleLook look = derivedLook(skin, row, plainVariant(variant));
    const bool changed = overrides.apply(look.surface, part, kStates[0]);
    setColor(look.text, overrides, L"text.normal");
    if (state == SurfaceState::kNormal) {
        return look;
    }
    const std::wstring_view name = kStates[static_cast<size_t>(state)];
    enterState(look, skin, row, state, !changed);
    if (state == SurfaceState::kFocused) {
        look.surface.showOutline = true;
        look.surface.outline = focusColorOf(skin, overrides);
        if (const auto width = overrides.value(L"focus.width")) {
            look.surface.outlineWidth = integerFromText(base::toUtf8(*width)).value_or(look.surface.outlineWidth);
        }
    }
    overrides.apply(look.surface, part, name);
    setColor(look.text, overrides, std::wstring(L"text.").append(name));
    return look;
}

bool hasStyle(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant) {
    const std::wstring type = typeName(controlType);
    const std::wstring name = normalizeKey(variant);
    return std::ranges::any_of(skin.styleOverrides, [&](const StyleOverride& entry) {
        return canonicalControlType(entry.controlType) == type && normalizeKey(entry.variant) == name;
    });
}

Color focusColor(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant) {
    return focusColorOf(skin, Overrides(skin, typeName(controlType), variant));
}

SurfaceStyle scaledStyle(const SurfaceStyle& style, int percent) {
    SurfaceStyle scaled = style;
    const auto scale = [percent](int length) {
        return saturate((int64_t{length} * percent + (length < 0 ? -50 : 50)) / 100);
    };
    for (int* const length :
         {&scaled.shadowOffsetX, &scaled.shadowOffsetY, &scaled.glowRadius, &scaled.outlineWidth, &scaled.shadowReach,
          &scaled.tuning.innerShadowSize, &scaled.tuning.scale, &scaled.tuning.lightBlobScale, &scaled.tuning.uvScale,
          &scaled.tuning.uvOffsetX, &scaled.tuning.uvOffsetY}) {
        *length = scale(*length);
    }
    // Rounded down: a hairline stays one until it would be two whole pixels.
    scaled.scalePercent = saturate(int64_t{style.scalePercent} * percent / 100);
    scaled.borderWidth = std::max(1, static_cast<int>(int64_t{style.borderWidth} * percent / 100));
    return scaled;
}

}  // namespace tavi
