#include "tavi/theme/normalize_key.h"

#include <cstddef>
#include <type_traits>

#include "base/text.h"

namespace tavi {
namespace {

// What iswspace knows of ASCII.
template <typename Character>
constexpr bool isBlank(Character c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

template <typename Character>
constexpr bool isAscii(Character c) {
    return static_cast<std::make_unsigned_t<Character>>(c) < 0x80;
}

template <typename Character>
constexpr bool isAscii(std::basic_string_view<Character> text) {
    // Without a way out in between, so that the compiler takes many characters at once.
    unsigned bits = 0;
    for (const Character c : text) {
        bits |= static_cast<std::make_unsigned_t<Character>>(c);
    }
    return bits < 0x80;
}

template <typename Character>
constexpr Character loweredAscii(Character c) {
    return c >= 'A' && c <= 'Z' ? static_cast<Character>(c + ('a' - 'A')) : c;
}

template <typename Character>
constexpr std::basic_string_view<Character> trimmedAscii(std::basic_string_view<Character> text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Puts the normalized form of an ASCII text behind what `out` holds. False, with nothing done, for another text.
template <typename Character>
bool appendNormalizedAscii(std::basic_string<Character>& out, std::basic_string_view<Character> text) {
    const std::basic_string_view<Character> key = trimmedAscii(text);
    const size_t before = out.size();
    bool isPlain = true;
    out.resize_and_overwrite(before + key.size(), [before, key, &isPlain](Character* characters, size_t) {
        Character* end = characters + before;
        for (const Character c : key) {
            isPlain &= isAscii(c);
            *end = loweredAscii(c);
            end += c == '_' || c == '-' ? 0 : 1;
        }
        return isPlain ? static_cast<size_t>(end - characters) : before;
    });
    return isPlain;
}

}  // namespace

std::wstring normalizeKey(std::wstring_view text) {
    std::wstring key;
    if (appendNormalizedAscii(key, text)) {
        return key;
    }
    key = base::lowered(base::trimmed(text));
    std::erase_if(key, [](wchar_t c) { return c == L'_' || c == L'-'; });
    return key;
}

void appendNormalizedKey(std::string& out, std::string_view utf8) {
    if (!appendNormalizedAscii(out, utf8)) {
        out += base::toUtf8(normalizeKey(base::toWide(utf8)));
    }
}

template <typename Character>
bool FoldedName::foldAscii(std::basic_string_view<Character> text, Fold fold) {
    const auto name = fold == Fold::kNormalized ? trimmedAscii(text) : text;
    for (const Character c : name) {
        if (!isAscii(c)) {
            return false;
        }
        if (fold == Fold::kNormalized && (c == '_' || c == '-')) {
            continue;
        }
        if (length_ == characters_.size()) {
            length_ = 0;
            return true;
        }
        characters_[length_++] = static_cast<char>(fold == Fold::kNone ? c : loweredAscii(c));
    }
    return true;
}

void FoldedName::foldOther(std::wstring_view text, Fold fold) {
    // White space beyond ASCII may stand around a name, and there are letters beyond ASCII that are lower-cased into
    // it.
    const std::wstring folded = fold == Fold::kNormalized ? normalizeKey(text) : base::lowered(text);
    length_ = 0;
    if (fold != Fold::kNone && isAscii(std::wstring_view(folded))) {
        foldAscii(std::wstring_view(folded), Fold::kNone);
    }
}

FoldedName::FoldedName(std::string_view utf8, Fold fold) {
    if (!foldAscii(utf8, fold)) {
        foldOther(base::toWide(utf8), fold);
    }
}

FoldedName::FoldedName(std::wstring_view text, Fold fold) {
    if (!foldAscii(text, fold)) {
        foldOther(text, fold);
    }
}

}  // namespace tavi
