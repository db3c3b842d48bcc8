// The types of controls that a skin's styles name, and the variants in which controls of each come.
#pragma once

#include <span>
#include <string_view>

namespace tavi {

struct ControlTypeRow {
    std::string_view names;     // normalized; the canonical one first
    std::string_view variants;  // that controls ask for
    std::string_view description;
};
std::span<const ControlTypeRow> controlTypes();

// The canonical name for a type in any spelling ("Check_Box", "tabs"), or `type` itself where it is none that is known.
std::wstring_view canonicalControlType(std::wstring_view type);
std::string_view canonicalControlType(std::string_view type);

}  // namespace tavi
