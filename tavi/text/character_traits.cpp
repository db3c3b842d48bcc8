#include "tavi/text/character_traits.h"

#include <algorithm>

#include "base/text.h"

namespace tavi {
namespace {

// Where a range begins, and its traits in the low eleven bits.
constexpr uint32_t kRanges[] = {
#include "tavi/text/character_traits_data.inc"
};
constexpr int kTraitBits = 11;

struct CharacterRange {
    char32_t first;
    char32_t last;
};
constexpr CharacterRange kInvisible[] = {
    {0x00AD, 0x00AD}, {0x034F, 0x034F}, {0x061C, 0x061C}, {0x17B4, 0x17B5}, {0x180B, 0x180F}, {0x200B, 0x200F},
    {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE0FFF},
};

}  // namespace

CodePoint codePointAt(std::wstring_view text, size_t position) {
    const auto first = static_cast<char32_t>(text[position]);
    if (base::isHighSurrogate(first) && position + 1 < text.size()) {
        const auto second = static_cast<char32_t>(text[position + 1]);
        if (base::isLowSurrogate(second)) {
            return {base::joinSurrogates(first, second), 2};
        }
    }
    return {first, 1};
}

CodePoint codePointBefore(std::wstring_view text, size_t position) {
    return codePointAt(text, codePointStart(text, position - 1));
}

size_t codePointStart(std::wstring_view text, size_t position) {
    const bool isMiddle = position > 0 && position < text.size() &&
                          base::isLowSurrogate(static_cast<char32_t>(text[position])) &&
                          base::isHighSurrogate(static_cast<char32_t>(text[position - 1]));
    return isMiddle ? position - 1 : position;
}

CharacterTraits traitsOf(char32_t character) {
    const auto at =
        std::ranges::upper_bound(kRanges, character, {}, [](uint32_t range) { return range >> kTraitBits; });
    const uint32_t bits = *(at - 1);
    return {.cluster = static_cast<ClusterClass>(bits >> 7 & 15),
            .lineBreak = static_cast<BreakClass>(bits >> 4 & 7),
            .word = static_cast<WordClass>(bits >> 2 & 3),
            .direction = static_cast<Direction>(bits & 3)};
}

bool isInvisible(char32_t character) {
    return std::ranges::any_of(kInvisible, [character](const CharacterRange& range) {
        return character >= range.first && character <= range.last;
    });
}

bool endsLine(char32_t character) {
    return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 || character == 0x2029;
}

}  // namespace tavi
