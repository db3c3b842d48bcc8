// One entry of a skin's "styles" section: properties of a control type in one variant.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavi {

// Texts by property path ("surface.normal.gradientstart"), in order of their paths. All of them stand in one text,
// since a catalog has thousands and each is short.
class StyleProperties {
public:
    struct Property {
        std::wstring_view path;
        std::wstring_view value;

        bool operator==(const Property&) const = default;
    };

    // Adds or replaces one. Paths are segments of normalized keys joined by dots.
    void set(std::wstring_view path, std::wstring_view value);
    // For many at once: append() each, in whatever order, false when it is out of order; then settle() once if any was.
    bool append(std::wstring_view path, std::wstring_view value);
    void settle();
    // Keeps its memory.
    void clear();

    std::optional<std::wstring_view> find(std::wstring_view path) const;
    size_t size() const { return places_.size(); }
    bool empty() const { return places_.empty(); }
    // Views into this object, valid until it changes.
    Property at(size_t index) const;

    bool operator==(const StyleProperties& other) const;

private:
    struct Place {
        uint32_t begin;
        uint32_t pathLength;
        uint32_t valueLength;
    };
    std::wstring texts_;
    std::vector<Place> places_;
};

struct StyleOverride {
    std::wstring controlType;  // normalized, as the skin has it; control_types.h knows its canonical name
    std::wstring variant;
    StyleProperties properties;

    bool operator==(const StyleOverride&) const = default;
};

}  // namespace tavi
