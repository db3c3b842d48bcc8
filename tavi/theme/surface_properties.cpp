#include "tavi/theme/surface_properties.h"

#include <deque>
#include <string>

#include "tavi/theme/material_presets.h"
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

    std::optional<size_t> rowOf(std::wstring_view name) const {
        // Nothing is dropped here: the name comes normalized, and most of a path is looked up many times.
        const auto found = index_.find(FoldedName(name, Fold::kNone).text());
        return found ? std::optional<size_t>(found->row) : std::nullopt;
    }

private:
    template <typename Keys>
    void add(Keys keys, size_t firstRow) {
        for (const auto& key : keys) {
            for (const std::string_view name : spellings(key.names)) {
                std::string normalized;
                for (const wchar_t c : normalizeKey(std::wstring(name.begin(), name.end()))) {
                    normalized.push_back(static_cast<char>(c));
                }
                index_.add(names_.emplace_back(std::move(normalized)), static_cast<uint16_t>(firstRow));
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
bool setFromText(Record& record, T Record::* member, std::wstring_view text) {
    if constexpr (std::is_same_v<T, std::wstring>) {
        record.*member = text;
        return true;
    } else {
        // Every value that is no free text is in ASCII and short.
        const FoldedName narrow(text, Fold::kNone);
        const auto value = valueFromText<T>(narrow.text());
        if (value) {
            record.*member = *value;
        }
        return value.has_value();
    }
}

bool fillFromPreset(SurfaceStyle& style, std::wstring_view name) {
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
    std::wstring_view text;

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

bool setSurfaceProperty(SurfaceStyle& style, std::wstring_view normalizedName, std::wstring_view value) {
    const auto row = propertyNames().rowOf(normalizedName);
    if (!row) {
        return false;
    }
    const SurfaceSetter setter{style, value};
    const size_t own = surfaceKeys().size();
    return *row < own ? std::visit(setter, surfaceKeys()[*row].target)
                      : std::visit(setter, materialKeys()[*row - own].target);
}

bool isSurfacePreset(std::wstring_view normalizedName) {
    const auto row = propertyNames().rowOf(normalizedName);
    return row && *row < surfaceKeys().size() && std::holds_alternative<PresetFill>(surfaceKeys()[*row].target);
}

}  // namespace tavi
