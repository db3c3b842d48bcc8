#include "tavi/controls/style_sheet.h"

#include <algorithm>

#include "tavi/theme/control_types.h"
#include "tavi/theme/normalize_key.h"
#include "tavi/theme/skin_styles.h"

namespace tavi {

StyleSheet::StyleSheet(std::span<const StyleRule> rules, const SkinDefinition& skin) {
    for (const StyleRule& rule : rules) {
        const auto own = std::ranges::find_if(
            rule.variants, [&](const std::wstring& variant) { return hasStyle(skin, rule.controlType, variant); });
        const bool isDerived = own == rule.variants.end();
        std::wstring variant = !isDerived ? *own : rule.variants.empty() ? std::wstring() : rule.variants.back();
        styles_.push_back({.name = rule.name,
                           .controlType = rule.controlType,
                           .variant = std::move(variant),
                           .isDerived = isDerived,
                           .font = rule.font});
    }
}

const NamedStyle* StyleSheet::find(std::wstring_view name) const {
    const auto found = std::ranges::find(styles_, name, &NamedStyle::name);
    return found != styles_.end() ? &*found : nullptr;
}

void StyleSheet::apply(Control& root) const {
    const NamedStyle* const style = find(root.appearance().styleName);
    if (style != nullptr && root.matchesType(canonicalControlType(normalizeKey(style->controlType)))) {
        Appearance appearance = root.appearance();
        appearance.variant = style->variant;
        if (style->font) {
            appearance.font = style->font;
        }
        root.setAppearance(std::move(appearance));
    }
    for (Control* const child : root.childPointers()) {
        apply(*child);
    }
}

}  // namespace tavi
