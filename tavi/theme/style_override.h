// One entry of a skin's "styles" section: properties of a control type in one variant. Its texts are UTF-8, as they
// stand in catalogs: those who read a property look for a name, a number or a color in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace tavi {

// Texts by property path ("surface.normal.gradientstart"), in the order of the catalog; of equal paths the last one
// counts. All of them stand in one text, since catalogs have thousands and each is short.
class StyleProperties {
public:
    struct Property {
        std::string_view path;
        std::string_view value;

        bool operator==(const Property&) const = default;
    };
    class Iterator;

    // Paths are segments of normalized keys joined by dots. Neither text may be a view into this object.
    void append(std::string_view path, std::string_view value);
    // Keeps its memory.
    void clear() { records_.clear(); }

    // The value that counts. Looks at all properties.
    std::optional<std::string_view> find(std::string_view path) const;
    bool empty() const { return records_.empty(); }
    // For range-based loops. Views into this object, valid until it changes.
    Iterator begin() const;
    Iterator end() const;

    bool operator==(const StyleProperties&) const = default;

private:
    // Each property is its lengths, its path and its value.
    struct Lengths {
        uint32_t path;
        uint32_t value;
    };
    std::string records_;
};

class StyleProperties::Iterator {
public:
    Property operator*() const {
        const Lengths length = lengths();
        return {{record_ + sizeof(Lengths), length.path}, {record_ + sizeof(Lengths) + length.path, length.value}};
    }
    Iterator& operator++() {
        const Lengths length = lengths();
        record_ += sizeof(Lengths) + length.path + length.value;
        return *this;
    }
    bool operator==(const Iterator&) const = default;

private:
    friend class StyleProperties;
    explicit Iterator(const char* record) : record_(record) {}
    Lengths lengths() const {
        Lengths lengths;
        std::memcpy(&lengths, record_, sizeof(lengths));
        return lengths;
    }

    const char* record_;
};

inline StyleProperties::Iterator StyleProperties::begin() const {
    return Iterator(records_.data());
}

inline StyleProperties::Iterator StyleProperties::end() const {
    return Iterator(records_.data() + records_.size());
}

struct StyleOverride {
    std::string controlType;  // normalized, as the skin has it; control_types.h knows its canonical name
    std::string variant;
    StyleProperties properties;

    bool operator==(const StyleOverride&) const = default;
};

}  // namespace tavi
