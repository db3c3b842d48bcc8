#include "base/json.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <type_traits>

#include "base/text.h"

namespace base {
namespace {

using Encoding = std::conditional_t<sizeof(wchar_t) == 2, rapidjson::UTF16<wchar_t>, rapidjson::UTF32<wchar_t>>;

// RapidJSON calls these two classes by names of its own.
// NOLINTBEGIN(readability-identifier-naming)

// The text as a stream that ends where the text ends. The reader takes a zero for the end.
class TextStream {
public:
    using Ch = wchar_t;

    explicit TextStream(std::wstring_view text) : text_(text) {}

    Ch Peek() const { return at_ < text_.size() ? text_[at_] : L'\0'; }
    Ch Take() { return at_ < text_.size() ? text_[at_++] : L'\0'; }
    size_t Tell() const { return at_; }

    // The reader's interface has them for parsing in place, which is not done here.
    Ch* PutBegin() { return nullptr; }
    void Put(Ch) {}
    void Flush() {}
    size_t PutEnd(Ch*) { return 0; }

private:
    std::wstring_view text_;
    size_t at_ = 0;
};

// Puts the values that the reader meets into a tree.
class Builder {
public:
    bool Null() { return add(nullptr); }
    bool Bool(bool value) { return add(value); }
    bool Int(int value) { return add(static_cast<double>(value)); }
    bool Uint(unsigned value) { return add(static_cast<double>(value)); }
    bool Int64(int64_t value) { return add(static_cast<double>(value)); }
    bool Uint64(uint64_t value) { return add(static_cast<double>(value)); }
    bool Double(double value) { return add(value); }
    bool RawNumber(const wchar_t*, rapidjson::SizeType, bool) { return false; }
    bool String(const wchar_t* text, rapidjson::SizeType length, bool) { return add(std::wstring(text, length)); }
    bool Key(const wchar_t* text, rapidjson::SizeType length, bool) {
        std::get<Json::Object>(open_.back()->content).push_back({std::wstring(text, length), {}});
        return true;
    }
    bool StartObject() { return begin(Json::Object()); }
    bool StartArray() { return begin(Json::Array()); }
    bool EndObject(rapidjson::SizeType) { return end(); }
    bool EndArray(rapidjson::SizeType) { return end(); }

    Json take() { return std::move(root_); }

private:
    // Where the next value belongs. An open value stays in its place: nothing is added around it until it is closed.
    Json& place() {
        if (open_.empty()) {
            return root_;
        }
        Json::Value& around = open_.back()->content;
        auto* array = std::get_if<Json::Array>(&around);
        return array != nullptr ? array->emplace_back() : std::get<Json::Object>(around).back().value;
    }
    bool add(Json::Value value) {
        if (++count_ > kMaxJsonValues) {
            return false;
        }
        place().content = std::move(value);
        return true;
    }
    bool begin(Json::Value container) {
        if (open_.size() == kMaxJsonDepth || ++count_ > kMaxJsonValues) {
            return false;
        }
        Json& opened = place();
        opened.content = std::move(container);
        open_.push_back(&opened);
        return true;
    }
    bool end() {
        open_.pop_back();
        return true;
    }

    Json root_;
    std::vector<Json*> open_;
    size_t count_ = 0;
};

// NOLINTEND(readability-identifier-naming)

template <typename T>
std::optional<T> valueIf(const Json::Value& content) {
    const T* value = std::get_if<T>(&content);
    return value != nullptr ? std::optional(*value) : std::nullopt;
}

}  // namespace

const Json* Json::find(std::wstring_view key) const {
    const Object* members = object();
    if (members == nullptr) {
        return nullptr;
    }
    const auto found = std::ranges::find(*members, key, &Member::key);
    return found != members->end() ? &found->value : nullptr;
}

std::optional<double> Json::number() const {
    return valueIf<double>(content);
}

std::optional<bool> Json::boolean() const {
    return valueIf<bool>(content);
}

std::expected<Json, JsonError> parseJson(std::wstring_view text) {
    if (text.size() > kMaxJsonLength) {
        return std::unexpected(JsonError{kMaxJsonLength, L"Longer than any document."});
    }
    const size_t skipped = text.starts_with(L'\uFEFF') ? 1 : 0;
    TextStream stream(text.substr(skipped));
    Builder builder;
    rapidjson::GenericReader<Encoding, Encoding> reader;
    // Iterative: a hostile document must not decide how deep the stack grows.
    const rapidjson::ParseResult result = reader.Parse<rapidjson::kParseIterativeFlag>(stream, builder);
    if (result.IsError()) {
        const std::wstring reason = result.Code() == rapidjson::kParseErrorTermination
                                        ? L"Nested too deeply, or too many values."
                                        : toWide(rapidjson::GetParseError_En(result.Code()));
        return std::unexpected(JsonError{result.Offset() + skipped, reason});
    }
    if (stream.Tell() + skipped != text.size()) {
        return std::unexpected(JsonError{stream.Tell() + skipped, L"A zero character stands behind the document."});
    }
    return builder.take();
}

}  // namespace base
