// What the tool's commands share: the tables of keys as texts for people and for editors.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tavi/theme/skin_keys.h"
#include "tavi/theme/skin_values.h"

namespace skin_tool {

// The type of value that a key takes, of a row of any table.
template <typename Record, typename T>
tavi::ValueType typeOfTarget(T Record::*) {
    return tavi::valueTypeOf<T>();
}
inline tavi::ValueType typeOfTarget(tavi::PresetFill) {
    return tavi::valueTypeOf<tavi::MaterialPreset>();
}
inline tavi::ValueType typeOfTarget(tavi::SkinSection) {
    return {};
}
template <typename Row>
tavi::ValueType typeOf(const Row& row) {
    return std::visit([](auto target) { return typeOfTarget(target); }, row.target);
}

// "a color, #RRGGBB", "one of linear, radial", …
std::string describeType(tavi::ValueType type);

// The value that a default-made record has for a key, as a skin would write it; empty for a preset.
template <typename Record>
struct DefaultOf {
    Record record;

    template <typename T>
    std::string operator()(T Record::* member) const {
        return text(record.*member);
    }
    std::string operator()(int tavi::NineSlice::*) const { return "0"; }
    std::string operator()(tavi::PresetFill) const { return ""; }
    std::string operator()(tavi::SkinSection) const { return ""; }
    template <typename T>
    std::string operator()(T tavi::ScrollBarShapes::* member) const {
        return text(tavi::ScrollBarShapes().*member);
    }

private:
    static std::string text(tavi::Color color);
    static std::string text(uint8_t value) { return std::to_string(value); }
    static std::string text(int value) { return std::to_string(value); }
    static std::string text(bool value) { return value ? "true" : "false"; }
    static std::string text(const std::wstring& value);
    template <typename Enum>
        requires std::is_enum_v<Enum>
    static std::string text(Enum value) {
        return std::string(tavi::nameOf(value));
    }
};

std::string colorText(tavi::Color color);
std::string narrow(std::wstring_view text);

template <typename Record>
std::string DefaultOf<Record>::text(tavi::Color color) {
    return colorText(color);
}
template <typename Record>
std::string DefaultOf<Record>::text(const std::wstring& value) {
    return narrow(value);
}

std::string firstName(std::string_view names);

// The parts of controls that are painted, each once.
const std::vector<std::string>& partNames();

// What a style path leads to: a surface's property, the color of a text, the mark of the focus.
struct StylePath {
    std::string property;  // normalized, of a surface; empty for the others
    tavi::ValueType type;
};
// Nothing for a path that no control reads.
std::optional<StylePath> stylePath(std::string_view path);

// The segments that a path of this control type (its canonical name) can have where `path` leaves what is known: its
// parts, the states or the properties. Empty when it leads to something that the type has.
struct WrongSegment {
    std::string segment;
    std::vector<std::string> known;
};
WrongSegment wrongSegment(std::string_view controlType, std::string_view path);

// All properties of surfaces with their types, those of materials behind the style's own.
struct Property {
    std::string_view names;
    tavi::ValueType type;
    std::string_view description;
};
const std::vector<Property>& surfaceProperties();

int printSchema();
int printKeys();
int printLimits();
int checkFiles(const std::vector<std::string>& files);

}  // namespace skin_tool
