#include "tavi/theme/skin_styles.h"

#include <algorithm>
#include <optional>
#include <string>
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

// Whether the entry is one of that type and variant. Its own texts are as the skin has them.
bool isOf(const StyleOverride& entry, std::string_view canonicalType, std::string_view normalizedVariant) {
    std::string variant;
    appendNormalizedKey(variant, entry.variant);
    return canonicalControlType(entry.controlType) == canonicalType && variant == normalizedVariant;
}

// The overrides of one control type in one variant.
class Overrides {
public:
    Overrides(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant) {
        // From the variant that is asked for to the one that every control has.
        const std::string type = base::toUtf8(controlType);
        for (const std::wstring& name : {normalizeKey(variant), plainVariant(variant), std::wstring(L"default")}) {
            if (found_.empty()) {
                collect(skin, type, base::toUtf8(name));
            }
        }
    }

    // The last one wins, as a later entry of a skin does.
    std::optional<std::string_view> value(std::string_view path) const {
        for (auto entry = found_.rbegin(); entry != found_.rend(); ++entry) {
            if (const auto text = (*entry)->properties.find(path)) {
                return text;
            }
        }
        return std::nullopt;
    }

    // Sets what stands below the path; true when there was anything. A preset fills the tuning that others change.
    bool apply(SurfaceStyle& style, std::wstring_view part, std::string_view state) const {
        const std::string path = base::toUtf8(part).append(".").append(state).append(".");
        bool any = false;
        for (const bool presets : {true, false}) {
            for (const StyleOverride* const entry : found_) {
                for (const StyleProperties::Property property : entry->properties) {
                    if (!property.path.starts_with(path)) {
                        continue;
                    }
                    const std::string_view name = property.path.substr(path.size());
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
    void collect(const SkinDefinition& skin, std::string_view canonicalType, std::string_view normalizedVariant) {
        for (const StyleOverride& entry : skin.styleOverrides) {
            if (isOf(entry, canonicalType, normalizedVariant)) {
                found_.push_back(&entry);
            }
        }
    }

    std::vector<const StyleOverride*> found_;
};

void setColor(Color& color, const Overrides& overrides, std::string_view path) {
    if (const auto text = overrides.value(path)) {
        color = colorFromText(*text).value_or(color);
    }
}

Color focusColorOf(const SkinDefinition& skin, const Overrides& overrides) {
    Color color = skin.theme.accentHot;
    setColor(color, overrides, "focus.color");
    return color;
}

}  // namespace

StyleLook resolveStyle(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant,
                       SurfaceState state, std::wstring_view part) {
    const std::wstring type = typeName(controlType);
    const Overrides overrides(skin, type, variant);
    const StylePart& row = stylePart(type, part);
    StyleLook look = derivedLook(skin, row, plainVariant(variant));
    const bool changed = overrides.apply(look.surface, part, kStateNames[0]);
    setColor(look.text, overrides, "text.normal");
    if (state == SurfaceState::kNormal) {
        return look;
    }
    const std::string_view name = kStateNames[static_cast<size_t>(state)];
    enterState(look, skin, row, state, !changed);
    if (state == SurfaceState::kFocused) {
        look.surface.showOutline = true;
        look.surface.outline = focusColorOf(skin, overrides);
        if (const auto width = overrides.value("focus.width")) {
            look.surface.outlineWidth = integerFromText(*width).value_or(look.surface.outlineWidth);
        }
    }
    overrides.apply(look.surface, part, name);
    setColor(look.text, overrides, std::string("text.").append(name));
    return look;
}

bool hasStyle(const SkinDefinition& skin, std::wstring_view controlType, std::wstring_view variant) {
    const std::string type = base::toUtf8(typeName(controlType));
    const std::string name = base::toUtf8(normalizeKey(variant));
    return std::ranges::any_of(skin.styleOverrides,
                               [&](const StyleOverride& entry) { return isOf(entry, type, name); });
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
