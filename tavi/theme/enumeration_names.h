// The names by which skins and settings choose: for each enumeration a table with a row for each value.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "tavi/theme/enumerations.h"
#include "tavi/theme/material_presets.h"
#include "tavi/theme/normalize_key.h"
#include "tavi/theme/spelling_index.h"

namespace tavi {

struct EnumerationRow {
    template <typename Enum>
    constexpr EnumerationRow(Enum enumerator, std::string_view words)
        : value(static_cast<uint8_t>(enumerator)), names(words) {}

    uint8_t value;
    std::string_view names;  // the value's own name first
};

// The table of one enumeration and how a text is made comparable before it is looked up.
class Enumeration {
public:
    Enumeration(std::string_view title, Fold fold, std::span<const EnumerationRow> rows)
        : title_(title), fold_(fold), rows_(rows), index_(rows) {}

    std::string_view title() const { return title_; }
    Fold fold() const { return fold_; }
    std::span<const EnumerationRow> rows() const { return rows_; }
    // The row for a text, UTF-8 or wide; null when it names no value.
    template <typename Text>
    const EnumerationRow* find(Text text) const {
        const auto found = index_.find(FoldedName(text, fold_).text());
        return found ? &rows_[found->row] : nullptr;
    }

private:
    std::string_view title_;
    Fold fold_;
    std::span<const EnumerationRow> rows_;
    SpellingIndex index_;
};

// Of SurfaceMode, ButtonShape, MaterialKind, MaterialFinish, MaterialMapping, GradientKind, GradientDirection,
// MaterialPreset and PerformanceProfile.
template <typename Enum>
const Enumeration& enumerationOf();

// The value that a text (std::string_view in UTF-8, or std::wstring_view) names; nothing when it names none.
template <typename Enum, typename Text>
std::optional<Enum> fromName(Text text) {
    const EnumerationRow* row = enumerationOf<Enum>().find(text);
    return row != nullptr ? std::optional(static_cast<Enum>(row->value)) : std::nullopt;
}

// A value's own name.
template <typename Enum>
std::string_view nameOf(Enum value) {
    const std::string_view names = enumerationOf<Enum>().rows()[static_cast<size_t>(value)].names;
    return names.substr(0, names.find(' '));
}

// "best-graphics", "balanced" or "maximum-performance", as settings store it; "balanced" for any text that names none.
std::wstring_view canonicalPerformanceProfile(std::wstring_view text);
PerformanceProfile performanceProfileFromName(std::wstring_view text);

}  // namespace tavi
