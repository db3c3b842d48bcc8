#include "base/json.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include "base/text.h"

namespace base {

// RapidJSON calls this class by names of its own.
// NOLINTBEGIN(readability-identifier-naming)

// Puts the values that the reader meets one behind the other.
class JsonBuilder {
public:
    using Ch = char;
    using Node = Json::Node;
    using Kind = Json::Kind;

    JsonBuilder(std::vector<Node>& nodes, const char* text) : nodes_(nodes), text_(text) {}

    bool Null() { return addPlain(Kind::kNull); }
    bool Bool(bool value) { return addPlain(value ? Kind::kTrue : Kind::kFalse); }
    bool Int(int value) { return Double(value); }
    bool Uint(unsigned value) { return Double(value); }
    bool Int64(int64_t value) { return Double(static_cast<double>(value)); }
    bool Uint64(uint64_t value) { return Double(static_cast<double>(value)); }
    bool Double(double value) {
        Node node{.number = value, .kind = Kind::kNumber};
        return add(node);
    }
    bool RawNumber(const char*, rapidjson::SizeType, bool) { return false; }
    bool String(const char* text, rapidjson::SizeType length, bool) { return add(textNode(text, length)); }
    bool Key(const char* text, rapidjson::SizeType length, bool) {
        // Its value counts.
        nodes_.push_back(textNode(text, length));
        return true;
    }
    // The reader calls itself for a container, so refusing one that is too deep also bounds the stack.
    bool StartObject() { return begin(Kind::kObject); }
    bool StartArray() { return begin(Kind::kArray); }
    bool EndObject(rapidjson::SizeType count) { return end(count); }
    bool EndArray(rapidjson::SizeType count) { return end(count); }

private:
    Node textNode(const char* text, uint32_t length) const {
        Node node{.number = 0, .kind = Kind::kString};
        node.text = {static_cast<uint32_t>(text - text_), length};
        return node;
    }
    bool add(const Node& node) {
        nodes_.push_back(node);
        return ++count_ <= kMaxJsonValues;
    }
    bool addPlain(Kind kind) {
        Node node{.number = 0, .kind = kind};
        return add(node);
    }
    bool begin(Kind kind) {
        if (depth_ == kMaxJsonDepth) {
            return false;
        }
        open_[depth_++] = static_cast<uint32_t>(nodes_.size());
        return addPlain(kind);
    }
    bool end(uint32_t count) {
        const uint32_t opened = open_[--depth_];
        nodes_[opened].container = {count, static_cast<uint32_t>(nodes_.size()) - opened};
        return true;
    }

    std::vector<Node>& nodes_;
    const char* text_;
    size_t count_ = 0;
    size_t depth_ = 0;
    uint32_t open_[kMaxJsonDepth];
};

// NOLINTEND(readability-identifier-naming)

Json Json::find(std::string_view key) const {
    for (const auto [name, value] : members()) {
        if (name == key) {
            return value;
        }
    }
    return {};
}

std::expected<JsonDocument, JsonError> parseJson(std::string_view utf8) {
    if (utf8.size() > kMaxJsonLength) {
        return std::unexpected(JsonError{kMaxJsonLength, L"Longer than any document."});
    }
    JsonDocument document;
    document.length_ = utf8.size();
    document.text_ = utf8;
    const size_t skipped = document.text_.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    // Enough for most documents, and no more memory than their text.
    document.nodes_.reserve(document.length_ / 16 + 16);
    JsonBuilder builder(document.nodes_, document.text_.data());
    rapidjson::InsituStringStream stream(document.text_.data() + skipped);
    rapidjson::Reader reader;
    const rapidjson::ParseResult result = reader.Parse<rapidjson::kParseInsituFlag>(stream, builder);
    if (result.IsError()) {
        const std::wstring reason = result.Code() == rapidjson::kParseErrorTermination
                                        ? L"Nested too deeply, or too many values."
                                        : toWide(rapidjson::GetParseError_En(result.Code()));
        return std::unexpected(JsonError{result.Offset() + skipped, reason});
    }
    if (stream.Tell() + skipped != document.length_) {
        return std::unexpected(JsonError{stream.Tell() + skipped, L"A zero character stands behind the document."});
    }
    return document;
}

}  // namespace base
