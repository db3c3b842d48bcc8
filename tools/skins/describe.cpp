#include "tools/skins/describe.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "base/text.h"
#include "tavi/theme/normalize_key.h"
#include "tavi/theme/skin_styles.h"
#include "tavi/theme/style_parts.h"

namespace skin_tool {

std::string narrow(std::wstring_view text) {
    return base::toUtf8(text);
}

std::string colorText(tavi::Color color) {
    char text[8];
    std::snprintf(text, sizeof(text), "#%02X%02X%02X", static_cast<unsigned>(tavi::redOf(color)),
                  static_cast<unsigned>(tavi::greenOf(color)), static_cast<unsigned>(tavi::blueOf(color)));
    return text;
}

std::string firstName(std::string_view names) {
    return std::string(names.substr(0, names.find(' ')));
}

std::string describeType(tavi::ValueType type) {
    switch (type.kind) {
        case tavi::ValueKind::kColor:
            return "a color, #RRGGBB";
        case tavi::ValueKind::kByte:
            return "a number from 0 to 255";
        case tavi::ValueKind::kInteger:
            return "a whole number";
        case tavi::ValueKind::kBool:
            return "true or false";
        case tavi::ValueKind::kText:
            return "a text";
        case tavi::ValueKind::kName:
            break;
    }
    std::string text = "a " + std::string(type.names->title()) + ": ";
    for (const tavi::EnumerationRow& row : type.names->rows()) {
        text += (row.value == 0 ? "" : ", ") + firstName(row.names);
    }
    return text;
}

const std::vector<std::string>& partNames() {
    static const std::vector<std::string> kNames = [] {
        std::vector<std::string> names;
        for (const tavi::StylePart& row : tavi::styleParts()) {
            if (!std::ranges::contains(names, narrow(row.part))) {
                names.push_back(narrow(row.part));
            }
        }
        return names;
    }();
    return kNames;
}

const std::vector<Property>& surfaceProperties() {
    static const std::vector<Property> kProperties = [] {
        std::vector<Property> all;
        for (const tavi::SurfaceKey& key : tavi::surfaceKeys()) {
            all.push_back({key.names, typeOf(key), key.description});
        }
        for (const tavi::MaterialKey& key : tavi::materialKeys()) {
            all.push_back({key.names, typeOf(key), key.description});
        }
        return all;
    }();
    return kProperties;
}

namespace {

std::optional<tavi::ValueType> typeOfProperty(std::string_view name) {
    for (const Property& property : surfaceProperties()) {
        for (const std::string_view spelling : tavi::spellings(property.names)) {
            std::string normalized;
            tavi::appendNormalizedKey(normalized, spelling);
            if (normalized == name) {
                return property.type;
            }
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<StylePath> stylePath(std::string_view path) {
    if (path == "focus.color") {
        return StylePath{"", {tavi::ValueKind::kColor}};
    }
    if (path == "focus.width") {
        return StylePath{"", {tavi::ValueKind::kInteger}};
    }
    const size_t first = path.find('.');
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view part = path.substr(0, first);
    const size_t second = std::min(path.find('.', first + 1), path.size());
    if (!std::ranges::contains(tavi::kStateNames, path.substr(first + 1, second - first - 1))) {
        return std::nullopt;
    }
    if (part == "text") {
        return second == path.size() ? std::optional(StylePath{"", {tavi::ValueKind::kColor}}) : std::nullopt;
    }
    const std::string_view property = second < path.size() ? path.substr(second + 1) : "";
    const auto type = std::ranges::contains(partNames(), part) ? typeOfProperty(property) : std::nullopt;
    return type ? std::optional(StylePath{std::string(property), *type}) : std::nullopt;
}

WrongSegment wrongSegment(std::string_view controlType, std::string_view path) {
    const size_t first = std::min(path.find('.'), path.size());
    const size_t second = std::min(path.find('.', first + 1), path.size());
    const std::string part(path.substr(0, first));
    const std::string state(path.substr(std::min(first + 1, path.size()), second - std::min(first + 1, second)));
    std::vector<std::string> parts{"text", "focus"};
    for (const tavi::StylePart& row : tavi::styleParts()) {
        if (narrow(row.controlType) == controlType) {
            parts.push_back(narrow(row.part));
        }
    }
    if (!std::ranges::contains(parts, part)) {
        return {part, parts};
    }
    if (part == "focus") {
        return stylePath(path) ? WrongSegment() : WrongSegment{state, {"color", "width"}};
    }
    if (!std::ranges::contains(tavi::kStateNames, state)) {
        return {state, {std::begin(tavi::kStateNames), std::end(tavi::kStateNames)}};
    }
    if (stylePath(path)) {
        return {};
    }
    WrongSegment wrong{std::string(path.substr(std::min(second + 1, path.size()))), {}};
    for (const Property& property : surfaceProperties()) {
        wrong.known.push_back(firstName(property.names));
    }
    return wrong;
}

}  // namespace skin_tool
