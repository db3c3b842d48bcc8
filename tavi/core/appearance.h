// A control's own look, where it differs from that of its style.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tavi/core/text_font.h"

namespace tavi {

// Colors are 0xBBGGRR; what is not given is the style's.
struct Appearance {
    std::wstring styleName = {};
    // The skin's variant that the style name stands for; empty: the name itself.
    std::wstring variant = {};
    std::optional<TextFont> font = {};
    std::optional<uint32_t> textColor = {};
    std::optional<uint32_t> fillColor = {};
    std::optional<uint32_t> borderColor = {};

    bool operator==(const Appearance&) const = default;
};

}  // namespace tavi
