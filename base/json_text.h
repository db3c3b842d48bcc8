// Helpers for the product's own small JSON files, which are read by looking up keys in the text. This is not a JSON
// parser: a lookup takes the first occurrence of the quoted key anywhere in the text and ignores nesting, so a key must
// not occur earlier as a value or as a nested key. They never fail and take time linear in the text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace base {

// The string value of `key`: what stands between the first double quote after the first colon after the quoted key, and
// the next double quote that no backslash precedes; unescaped. Nothing when a step finds nothing.
std::optional<std::wstring> readJsonString(std::wstring_view text, std::wstring_view key);

// As readJsonString, with `fallback` where that gives nothing.
std::wstring readJsonStringOr(std::wstring_view text, std::wstring_view key, std::wstring_view fallback);

// The eight characters after the colon of `key`, trimmed and lower-cased: true or false when they begin so, else
// `fallback`.
bool readJsonBool(std::wstring_view text, std::wstring_view key, bool fallback);

// The object or array that is the value of `key`, as it is written, from its opening to its closing bracket: `open` is
// '{' or '['. Brackets within strings do not count, those of both kinds are counted together. Nothing when the value
// begins otherwise or does not end.
std::optional<std::wstring_view> readJsonRaw(std::wstring_view text, std::wstring_view key, wchar_t open);

// The elements of an array that readJsonRaw gave, as they are written. What stands between commas is an element,
// whatever it is; blank ones are left out.
std::vector<std::wstring_view> jsonElements(std::wstring_view array);

// The strings of an array, unescaped. Elements of other kinds are left out; nothing when there is no array.
std::optional<std::vector<std::wstring>> readJsonStringArray(std::wstring_view text, std::wstring_view key);

// Resolves the escapes of RFC 8259. Any other escape stays as it is written, and so does a \u that lacks four
// hexadecimal digits; half of a surrogate pair becomes U+FFFD.
std::wstring unescapeJson(std::wstring_view text);

// The text with the escapes that a JSON string needs (RFC 8259, section 7), without surrounding quotes: the inverse of
// unescapeJson for text without lone surrogates.
std::wstring escapeJson(std::wstring_view text);

}  // namespace base
