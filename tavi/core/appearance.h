// A control's own look, where it differs from that of its style.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tavi {

// Colors are 0xBBGGRR; what is not given is the style's.
struct Appearance {
    std::wstring styleName;
    std::optional<uint32_t> textColor;
    std::optional<uint32_t> fillColor;
    std::optional<uint32_t> borderColor;

    bool operator==(const Appearance&) const = default;
};

}  // namespace tavi
