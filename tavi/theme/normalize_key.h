// How skins and code compare names: in the form in which they are looked up. Names are ASCII, so a text is folded into
// a few bytes on the stack, and what is not ASCII or longer than any name matches none.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tavi {

// The form in which style paths, control types and the names of materials are compared: without white space around it,
// lower-cased, without "_" and "-". "Gradient_Start" and "gradientStart" become the same.
std::wstring normalizeKey(std::wstring_view text);
// The same of a UTF-8 text, put behind what `out` holds.
void appendNormalizedKey(std::string& out, std::string_view utf8);

enum class Fold : uint8_t { kNone, kLowered, kNormalized };

// A name as it is compared.
class FoldedName {
public:
    FoldedName(std::string_view utf8, Fold fold);
    FoldedName(std::wstring_view text, Fold fold);

    // Empty when it can match no name. Valid as long as this object.
    std::string_view text() const { return {characters_.data(), length_}; }

private:
    template <typename Character>
    bool foldAscii(std::basic_string_view<Character> text, Fold fold);
    void foldOther(std::wstring_view text, Fold fold);

    std::array<char, 64> characters_;
    size_t length_ = 0;
};

}  // namespace tavi
