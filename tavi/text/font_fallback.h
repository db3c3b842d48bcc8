// Which fonts stand in for one that lacks a character: those that Windows ships for its script, then those of free
// desktops.
#pragma once

#include <cstdint>
#include <string_view>

namespace tavi {

// The shapes of ideographs differ between languages; a text without a sign of its language gets simplified Chinese.
enum class HanForm : uint8_t { kSimplified, kTraditional, kJapanese, kKorean };
HanForm hanFormOf(std::wstring_view text);

struct FallbackFonts {
    // Names of families, separated by '|', the best one first.
    std::wstring_view families = {};
    // Scripts of OpenType: a font that draws this one must know one of them; "" where characters need no shaping.
    std::string_view shapingTags = {};
};
// Families that stand in for one that is not installed, as in FallbackFonts; the system would choose by likeness, and
// that rarely looks like a user interface.
std::wstring_view substituteFamilies(std::wstring_view family);
// For a character that the font asked for does not have; `families` is empty for what belongs to no script.
FallbackFonts fallbackFonts(char32_t character, HanForm han);
// What is tried at last.
inline constexpr std::wstring_view kLastResortFamilies =
    L"Segoe UI|Segoe UI Symbol|Segoe UI Emoji|Segoe UI Historic|Noto Sans|Noto Sans Symbols|Noto Sans Symbols2|"
    L"Noto Sans Math|Noto Sans CJK SC";

}  // namespace tavi
