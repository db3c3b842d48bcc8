// JSON documents (RFC 8259) in UTF-8. For files and answers that others write, in which nesting counts; the product's
// own small files are read with base/json_text. A document is two blocks of memory, its text and its values one behind
// the other.
#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>
#include <vector>

#include "base/json_value.h"

namespace base {

// Owns what its values are views of.
class JsonDocument {
public:
    Json root() const { return {nodes_.data(), text_.data()}; }
    // The bytes that it was read from, and those of memory that it holds.
    size_t length() const { return length_; }
    size_t bytes() const { return text_.capacity() + nodes_.capacity() * sizeof(Json::Node); }

private:
    friend class JsonBuilder;
    friend std::expected<JsonDocument, struct JsonError> parseJson(std::string_view utf8);

    size_t length_ = 0;
    std::string text_;  // what was read, with the texts of strings without their escapes in their places
    std::vector<Json::Node> nodes_;
};

struct JsonError {
    size_t offset = 0;  // in bytes of the text
    std::wstring reason;
};

// No document that a person or a program means is nested more deeply, holds more values or is longer (in bytes):
// reading one that does would only cost memory.
inline constexpr size_t kMaxJsonDepth = 256;
inline constexpr size_t kMaxJsonValues = 200'000;
inline constexpr size_t kMaxJsonLength = size_t{1} << 24;

// Reads a whole document, which may begin with a byte-order mark, and keeps a copy of its text. Anything behind the
// document but white space, a zero character anywhere but as an escape, half of a surrogate pair as an escape, a number
// beyond a double and what is beyond the limits above are errors. Numbers become doubles.
std::expected<JsonDocument, JsonError> parseJson(std::string_view utf8);

}  // namespace base
