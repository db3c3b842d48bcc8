// The values of JSON documents: views into the block of values that a document is, as cheap to copy as a pointer, with
// what loops over arrays and objects need. base/json.h reads documents.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

namespace base {

class JsonArray;
class JsonObject;

// A value of a document, null or missing. Valid as long as its document stays where it is. Texts are UTF-8 and as
// well-formed as the document was: base::toWide makes U+FFFD of what is not.
class Json {
    enum class Kind : uint8_t { kNull, kFalse, kTrue, kNumber, kString, kArray, kObject };
    // Values stand in the order of the document, what a container holds behind it. In an object each value follows its
    // key, which is a string.
    struct Text {
        uint32_t begin, length;
    };
    struct Container {
        uint32_t count;  // of its elements or members
        uint32_t nodes;  // that it is with all it holds
    };
    struct Node {
        union {
            double number;
            Text text;
            Container container;
        };
        Kind kind;
    };

public:
    Json() = default;

    // The value of a member, the first one where the key occurs more than once; missing for a missing key and for a
    // value that is no object. Keys are compared exactly.
    Json find(std::string_view key) const;

    // Whether there is a value at all; null is one.
    explicit operator bool() const { return node_ != nullptr; }

    // What the value holds; nothing when it is of another kind.
    std::optional<std::string_view> string() const {
        return is(Kind::kString) ? std::optional(textOf(node_)) : std::nullopt;
    }
    std::optional<JsonArray> array() const;
    std::optional<JsonObject> object() const;
    // For loops: what an array or an object holds, nothing for a value of another kind.
    JsonArray elements() const;
    JsonObject members() const;
    std::optional<double> number() const { return is(Kind::kNumber) ? std::optional(node_->number) : std::nullopt; }
    std::optional<bool> boolean() const {
        return is(Kind::kTrue) || is(Kind::kFalse) ? std::optional(is(Kind::kTrue)) : std::nullopt;
    }

private:
    friend class JsonDocument;
    friend class JsonArray;
    friend class JsonObject;
    friend class JsonBuilder;

    Json(const Node* node, const char* text) : node_(node), text_(text) {}
    bool is(Kind kind) const { return node_ != nullptr && node_->kind == kind; }
    std::string_view textOf(const Node* node) const { return {text_ + node->text.begin, node->text.length}; }
    static const Node* behind(const Node* node) {
        return node + (node->kind >= Kind::kArray ? node->container.nodes : 1);
    }

    const Node* node_ = nullptr;
    const char* text_ = nullptr;
};

// The elements of an array, none to begin with, for range-based loops.
class JsonArray {
public:
    class Iterator {
    public:
        using value_type = Json;
        using difference_type = ptrdiff_t;
        Json operator*() const { return at_; }
        Iterator& operator++() {
            at_.node_ = Json::behind(at_.node_);
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return at_.node_ == other.at_.node_; }

    private:
        friend class JsonArray;
        Json at_;
    };

    size_t size() const { return array_ ? array_.node_->container.count : 0; }
    bool empty() const { return size() == 0; }
    // Counted from 0, below size(). Walks past the elements before it.
    Json operator[](size_t index) const { return *std::next(begin(), static_cast<ptrdiff_t>(index)); }
    Iterator begin() const { return at(array_ ? array_.node_ + 1 : nullptr); }
    Iterator end() const { return at(array_ ? Json::behind(array_.node_) : nullptr); }

private:
    friend class Json;
    Iterator at(const Json::Node* node) const {
        Iterator iterator;
        iterator.at_ = Json(node, array_.text_);
        return iterator;
    }
    Json array_;
};

// The members of an object, none to begin with, in the order of the document, for range-based loops: `for (const auto
// [key, value] : object)`.
class JsonObject {
public:
    struct Member {
        std::string_view key;
        Json value;
    };
    class Iterator {
    public:
        using value_type = Member;
        using difference_type = ptrdiff_t;
        Member operator*() const { return {key_.textOf(key_.node_), Json(key_.node_ + 1, key_.text_)}; }
        Iterator& operator++() {
            key_.node_ = Json::behind(key_.node_ + 1);
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return key_.node_ == other.key_.node_; }

    private:
        friend class JsonObject;
        Json key_;
    };

    size_t size() const { return object_ ? object_.node_->container.count : 0; }
    bool empty() const { return size() == 0; }
    Iterator begin() const { return at(object_ ? object_.node_ + 1 : nullptr); }
    Iterator end() const { return at(object_ ? Json::behind(object_.node_) : nullptr); }

private:
    friend class Json;
    Iterator at(const Json::Node* node) const {
        Iterator iterator;
        iterator.key_ = Json(node, object_.text_);
        return iterator;
    }
    Json object_;
};

inline JsonArray Json::elements() const {
    JsonArray elements;
    if (is(Kind::kArray)) {
        elements.array_ = *this;
    }
    return elements;
}

inline JsonObject Json::members() const {
    JsonObject members;
    if (is(Kind::kObject)) {
        members.object_ = *this;
    }
    return members;
}

inline std::optional<JsonArray> Json::array() const {
    return is(Kind::kArray) ? std::optional(elements()) : std::nullopt;
}

inline std::optional<JsonObject> Json::object() const {
    return is(Kind::kObject) ? std::optional(members()) : std::nullopt;
}

}  // namespace base
