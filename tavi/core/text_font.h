// A font as themes and styles ask for it. Which fonts draw a text in the end follows from its scripts.
#pragma once

#include <string>

namespace tavi {

struct TextFont {
    std::wstring family;  // empty: the system's own
    int points = 9;       // 1/72 inch
    int weight = 400;     // as GDI counts: 400 normal, 700 bold

    bool operator==(const TextFont&) const = default;
};

}  // namespace tavi
