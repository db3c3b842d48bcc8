#include "tavi/theme/surface_properties.h"

#include <deque>
#include <string>

#include "base/text.h"
#include "tavi/theme/material_presets.h"
#include "tavi/theme/normalize_key.h"
#include "tavi/theme/skin_keys.h"
#include "tavi/theme/skin_values.h"

namespace tavi {
namespace {

// All names of surfaceKeys(), then those of materialKeys(), normalized. A name of both is the style's.
class PropertyNames {
public:
    PropertyNames() {
        add(surfaceKeys(), 0);
        add(materialKeys(), surfaceKeys().size());
    }

    std::optional<size_t> rowOf(std::string_view name) const {
        const auto found = index_.find(name);
        return found ? std::optional<size_t>(found->row) : std::nullopt;
    }

private:
    template <typename Keys>
    void add(Keys keys, size_t firstRow) {
        for (const auto& key : keys) {
            for (const std::string_view name : spellings(key.names)) {
                std::string& normalized = names_.emplace_back();
                appendNormalizedKey(normalized, name);
                index_.add(normalized, static_cast<uint16_t>(firstRow));
            }
            ++firstRow;
        }
    }

    std::deque<std::string> names_;  // which the index looks into
    SpellingIndex index_;
};

const PropertyNames& propertyNames() {
    static const PropertyNames kNames;
    return kNames;
}

// Sets a member of `record`, of whatever type it is, from a text.
template <typename Record, typename T>
bool setFromText(Record& record, T Record::* member, std::string_view text) {
    if constexpr (std::is_same_v<T, std::wstring>) {
        record.*member = base::toWide(text);
        return true;
    } else {
        const auto value = valueFromText<T>(text);
        if (value) {
            record.*member = *value;
        }
        return value.has_value();
    }
}

bool fillFromPreset(SurfaceStyle& style, std::string_view name) {
    const auto preset = fromName<MaterialPreset>(name);
    if (!preset) {
        return false;
    }
    const MaterialProfile kinds = style.tuning;
    style.tuning = materialPreset(*preset);
    style.material = style.tuning.control;
    style.tuning.surface = kinds.surface;
    style.tuning.control = kinds.control;
    style.tuning.accent = kinds.accent;
    return true;
}

struct SurfaceSetter {
    SurfaceStyle& style;
    std::string_view text;

    bool operator()(PresetFill) const { return fillFromPreset(style, text); }
    template <typename T>
    bool operator()(T SurfaceStyle::* member) const {
        return setFromText(style, member, text);
    }
    bool operator()(int NineSlice::* member) const { return setFromText(style.nineSlice, member, text); }
    template <typename T>
    bool operator()(T MaterialProfile::* member) const {
        return setFromText(style.tuning, member, text);
    }
};

}  // namespace

bool setSurfaceProperty(SurfaceStyle& style, std::string_view normalizedName, std::string_view value) {
    const auto row = propertyNames().rowOf(normalizedName);
    if (!row) {
        return false;
    }
    const SurfaceSetter setter{style, value};
    const size_t own = surfaceKeys().size();
    return *row < own ? std::visit(setter, surfaceKeys()[*row].target)
                      : std::visit(setter, materialKeys()[*row - own].target);
}

bool isSurfacePreset(std::string_view normalizedName) {
    const auto row = propertyNames().rowOf(normalizedName);
    return row && *row < surfaceKeys().size() && std::holds_alternative<PresetFill>(surfaceKeys()[*row].target);
}

}  // namespace tavi
