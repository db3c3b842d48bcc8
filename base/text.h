// Text: UTF-8 and wide strings, trimming and comparing. A wide string holds UTF-16 code units where wchar_t is 16 bits
// wide (Windows) and code points where it is 32 bits wide; every function here takes both.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

// Encodes as UTF-8. An unpaired surrogate or a value beyond U+10FFFF becomes U+FFFD, as WideCharToMultiByte does it.
std::string toUtf8(std::wstring_view text);

// Decodes UTF-8. Each maximal ill-formed part becomes one U+FFFD (Unicode 15, section 3.9, "substitution of maximal
// subparts").
std::wstring toWide(std::string_view utf8);

// As toWide, but nothing when any part is ill-formed, as MultiByteToWideChar with MB_ERR_INVALID_CHARS decodes it. A
// byte-order mark stays in the text.
std::optional<std::wstring> toWideStrict(std::string_view utf8);

struct DecodedText {
    std::wstring text;
    bool isWellFormed = true;
};
// The text of a file: UTF-16 in either byte order where it begins with that byte-order mark, else UTF-8. The mark is
// dropped, and what is ill-formed becomes U+FFFD.
DecodedText decodeTextFile(std::string_view bytes);

// Halves of the surrogate pairs that UTF-16 has for code points from U+10000 on, and the code point of a pair.
constexpr bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr char32_t joinSurrogates(char32_t high, char32_t low) {
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

// Appends one code point to `out` in the platform's wide encoding.
void appendCodePoint(std::wstring& out, char32_t codePoint);

// The text without leading and trailing white space (iswspace).
std::wstring_view trimmed(std::wstring_view text);

// towlower character by character, as option names and executable names are compared.
std::wstring lowered(std::wstring_view text);
bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b);
bool endsWithIgnoringCase(std::wstring_view text, std::wstring_view suffix);

// `value` in decimal, with leading zeros up to `width` digits.
std::wstring zeroPadded(unsigned value, int width);

}  // namespace base
