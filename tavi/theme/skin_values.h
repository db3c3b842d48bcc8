// What the values of a skin's keys mean, whether they stand in a catalog as JSON or in a style as text. Every kind of
// value is read in one place, here; what does not fit its kind gives nothing, and the key keeps its default.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

#include "base/json.h"
#include "tavi/theme/color.h"
#include "tavi/theme/enumeration_names.h"

namespace tavi {

// "#RRGGBB" or "RRGGBB" in either case.
std::optional<Color> colorFromText(std::string_view text);
// Decimal, with white space around it and a sign if need be. What follows a decimal point is dropped; what is beyond
// the range of int becomes its end.
std::optional<int> integerFromText(std::string_view text);
// "true", "1", "yes", "on" and "false", "0", "no", "off" in either case.
std::optional<bool> boolFromText(std::string_view text);
// Truncated toward zero; what is beyond the range of int becomes its end.
int integerFromNumber(double number);

// What kind of value a member takes, for those who describe it.
enum class ValueKind : uint8_t { kColor, kByte, kInteger, kBool, kText, kName };

struct ValueType {
    ValueKind kind = ValueKind::kText;
    const Enumeration* names = nullptr;  // of kName
};

// The type of value that a member of type T takes.
template <typename T>
ValueType valueTypeOf() {
    if constexpr (std::is_same_v<T, Color>) {
        return {ValueKind::kColor};
    } else if constexpr (std::is_same_v<T, uint8_t>) {
        return {ValueKind::kByte};
    } else if constexpr (std::is_same_v<T, int>) {
        return {ValueKind::kInteger};
    } else if constexpr (std::is_same_v<T, bool>) {
        return {ValueKind::kBool};
    } else if constexpr (std::is_enum_v<T>) {
        return {ValueKind::kName, &enumerationOf<T>()};
    } else {
        return {};
    }
}

constexpr uint8_t clampedToByte(int value) {
    return static_cast<uint8_t>(value < 0 ? 0 : value > 255 ? 255 : value);
}

// A value of type T from a text in UTF-8.
template <typename T>
std::optional<T> valueFromText(std::string_view text) {
    if constexpr (std::is_same_v<T, Color>) {
        return colorFromText(text);
    } else if constexpr (std::is_same_v<T, uint8_t>) {
        return integerFromText(text).transform(clampedToByte);
    } else if constexpr (std::is_same_v<T, int>) {
        return integerFromText(text);
    } else if constexpr (std::is_same_v<T, bool>) {
        return boolFromText(text);
    } else {
        return fromName<T>(text);
    }
}

// The same from JSON: a string as above, a number for numbers and switches, true and false for switches.
template <typename T>
std::optional<T> valueFromJson(base::Json value) {
    if (const auto text = value.string()) {
        return valueFromText<T>(*text);
    }
    if constexpr (std::is_same_v<T, bool>) {
        return value.boolean() ? value.boolean() : value.number().transform([](double n) { return n != 0; });
    } else if constexpr (std::is_same_v<T, int>) {
        return value.number().transform(integerFromNumber);
    } else if constexpr (std::is_same_v<T, uint8_t>) {
        return value.number().transform(integerFromNumber).transform(clampedToByte);
    }
    return std::nullopt;
}

}  // namespace tavi
