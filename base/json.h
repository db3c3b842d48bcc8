// JSON documents (RFC 8259) as trees of values. For files and answers that others write, in which nesting counts; the
// product's own small files are read with base/json_text.
#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace base {

// One value with all it holds. Members of an object keep their order.
struct Json {
    struct Member;
    using Array = std::vector<Json>;
    using Object = std::vector<Member>;
    using Value = std::variant<std::nullptr_t, bool, double, std::wstring, Array, Object>;

    // The value of a member, the first one where the key occurs more than once; null for a missing key and for a value
    // that is no object. Keys are compared exactly.
    const Json* find(std::wstring_view key) const;

    // What the value holds; null, or nothing, when it is of another kind.
    const std::wstring* string() const { return std::get_if<std::wstring>(&content); }
    const Array* array() const { return std::get_if<Array>(&content); }
    const Object* object() const { return std::get_if<Object>(&content); }
    std::optional<double> number() const;
    std::optional<bool> boolean() const;

    Value content;  // null, to begin with
};

struct Json::Member {
    std::wstring key;
    Json value;
};

struct JsonError {
    size_t offset = 0;  // in units of the text
    std::wstring reason;
};

// No document that a person or a program means is nested more deeply, holds more values or is longer (in units):
// reading one that does would only cost memory.
inline constexpr size_t kMaxJsonDepth = 256;
inline constexpr size_t kMaxJsonValues = 200'000;
inline constexpr size_t kMaxJsonLength = size_t{1} << 24;

// Reads a whole document, which may begin with a byte-order mark. Anything behind it but white space, a zero character
// anywhere, half of a surrogate pair as an escape, a number beyond a double and what is beyond the limits above are
// errors. Numbers become doubles.
std::expected<Json, JsonError> parseJson(std::wstring_view text);

}  // namespace base
