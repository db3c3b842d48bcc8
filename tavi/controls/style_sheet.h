// Named styles: what a program calls the looks of its controls ("vc-input"), and what of the active skin they stand
// for. Controls carry the name (Appearance::styleName); applying a sheet gives each the skin's variant behind it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/core/control.h"
#include "tavi/theme/skin_definition.h"

namespace tavi {

// One row of a sheet: the first of the variants that the skin has styles for, else the last one, whose look is derived
// from the theme.
struct StyleRule {
    std::wstring name;
    std::wstring controlType;  // in any of its spellings
    std::vector<std::wstring> variants;
    std::optional<TextFont> font = {};
};

struct NamedStyle {
    std::wstring name;
    std::wstring controlType;
    std::wstring variant;
    bool isDerived = false;  // the skin has nothing of its own for it
    std::optional<TextFont> font = {};

    bool operator==(const NamedStyle&) const = default;
};

class StyleSheet {
public:
    StyleSheet() = default;
    // The rules as they come out for a skin, in their order.
    StyleSheet(std::span<const StyleRule> rules, const SkinDefinition& skin);

    const std::vector<NamedStyle>& styles() const { return styles_; }
    // Null for a name that it does not have.
    const NamedStyle* find(std::wstring_view name) const;
    // Gives every control below `root`, and `root` itself, whose style name is in the sheet and whose type matches, the
    // style's variant and, where it names one, its font. The others keep what the skin has for their name, or their
    // default look.
    void apply(Control& root) const;

private:
    std::vector<NamedStyle> styles_;
};

}  // namespace tavi
