// "skin_tool keys": the reference of all keys, names and paths for authors of skins.
#include <cstdio>
#include <optional>

#include "tavi/theme/control_types.h"
#include "tavi/theme/skin_styles.h"
#include "tools/skins/describe.h"

namespace skin_tool {
namespace {

std::string code(std::string_view text) {
    return "`" + std::string(text) + "`";
}

// All words but the first, as code.
std::string others(std::string_view names, std::string_view before) {
    std::string list;
    for (const std::string_view name : tavi::spellings(names)) {
        if (name != firstName(names)) {
            list += (list.empty() ? std::string(before) : ", ") + code(name);
        }
    }
    return list;
}

std::string valueText(tavi::ValueType type) {
    switch (type.kind) {
        case tavi::ValueKind::kColor:
            return "color";
        case tavi::ValueKind::kByte:
            return "0 to 255";
        case tavi::ValueKind::kInteger:
            return "whole number";
        case tavi::ValueKind::kBool:
            return "true or false";
        case tavi::ValueKind::kText:
            return "text";
        case tavi::ValueKind::kName:
            break;
    }
    std::string anchor(type.names->title());
    for (char& c : anchor) {
        c = c == ' ' ? '-' : c;
    }
    return "[" + std::string(type.names->title()) + "](#" + anchor + ")";
}

void heading(const char* text) {
    std::printf("\n## %s\n\n", text);
}

void tableHead() {
    std::puts("| key | value | default | meaning | other spellings |\n|---|---|---|---|---|");
}

void row(std::string_view names, const std::string& value, const std::string& fallback, std::string_view description) {
    std::printf("| %s | %s | %s | %s | %s |\n", code(firstName(names)).c_str(), value.c_str(),
                fallback.empty() ? "" : code(fallback).c_str(), std::string(description).c_str(),
                others(names, "").c_str());
}

template <typename Keys, typename Defaults>
void table(Keys keys, const Defaults& defaults) {
    tableHead();
    for (const auto& key : keys) {
        row(key.names, valueText(typeOf(key)), std::visit(defaults, key.target), key.description);
    }
}

void skinTable() {
    constexpr const char* kSections[] = {"list of texts, or a text", "[object](#theme)", "[object](#materials)",
                                         "[object](#shapes)", "[object](#styles)"};
    tableHead();
    for (const tavi::SkinKey& key : tavi::skinKeys()) {
        const auto* section = std::get_if<tavi::SkinSection>(&key.target);
        const std::string value =
            section != nullptr ? kSections[static_cast<size_t>(*section)] : valueText(typeOf(key));
        row(key.names, value, std::visit(DefaultOf<tavi::SkinDefinition>(), key.target), key.description);
    }
}

void shapeTables() {
    table(tavi::shapeKeys(), DefaultOf<tavi::ShapeSet>());
    for (const tavi::ShapeGroup& group : tavi::shapeGroups()) {
        const std::string within = group.within.empty() ? "" : "`" + std::string(group.within) + "` → ";
        std::printf("\n### %s%s\n\n%s%s\n\n", within.c_str(), code(firstName(group.names)).c_str(),
                    std::string(group.description).c_str(), others(group.names, " Also written ").c_str());
        table(group.parts, DefaultOf<tavi::ShapeSet>());
    }
}

void words(const char* title, std::span<const std::string_view> list) {
    std::string text;
    for (const std::string_view word : list) {
        text += (text.empty() ? "" : ", ") + code(word);
    }
    std::printf("%s: %s.\n", title, text.c_str());
}

void typeTable() {
    std::puts("\n| control type | what it is | variants | other spellings |\n|---|---|---|---|");
    for (const tavi::ControlTypeRow& type : tavi::controlTypes()) {
        std::string variants;
        for (const std::string_view variant : tavi::spellings(type.variants)) {
            variants += (variants.empty() ? "" : ", ") + code(variant);
        }
        std::printf("| %s | %s | %s | %s |\n", code(firstName(type.names)).c_str(),
                    std::string(type.description).c_str(), variants.c_str(), others(type.names, "").c_str());
    }
}

void names(const tavi::Enumeration& enumeration) {
    std::printf("\n### %s\n\n| name | other spellings |\n|---|---|\n", std::string(enumeration.title()).c_str());
    for (const tavi::EnumerationRow& value : enumeration.rows()) {
        std::string spellings;
        for (const std::string_view name : tavi::spellings(value.names)) {
            // A spelling that no text can match is not for authors.
            if (enumeration.find(name) == &value) {
                spellings += (spellings.empty() ? "" : " ") + std::string(name);
            }
        }
        std::printf("| %s | %s |\n", code(firstName(spellings)).c_str(), others(spellings, "").c_str());
    }
}

}  // namespace

int printKeys() {
    std::puts(
        "# The keys of skins\n\n"
        "[skins.md](skins.md) tells how to write a skin. This page is printed from the tables that programs read skins "
        "by.\n"
        "Where a key has several spellings and a skin uses more than one, the one that stands first here counts. A "
        "value\n"
        "that does not fit leaves the default.");
    heading("Skin");
    skinTable();
    heading("Theme");
    table(tavi::themeKeys(), DefaultOf<tavi::Theme>());
    heading("Materials");
    table(tavi::materialKeys(), DefaultOf<tavi::MaterialProfile>());
    heading("Shapes");
    std::puts("A value is a [shape](#shape), or an object that holds it as `shape`, `surface` or `value`.\n");
    shapeTables();
    heading("Styles");
    std::puts(
        "Control type, variant, part, state and property, each an object in the one before. Upper and lower case, `_` "
        "and\n"
        "`-` make no difference. `text.<state>` is the color of the text, `focus.color` and `focus.width` are the "
        "mark\n"
        "around a control with the focus.\n");
    words("Parts", std::vector<std::string_view>(partNames().begin(), partNames().end()));
    words("States", tavi::kStateNames);
    typeTable();
    heading("Properties of surfaces");
    std::puts(
        "All keys of [materials](#materials) are properties, too, except where this table has one of the same name.\n");
    table(tavi::surfaceKeys(), DefaultOf<tavi::SurfaceStyle>());
    heading("Names");
    std::puts(
        "Upper and lower case make no difference, and in the names of materials and gradients `_` and `-` neither.");
    for (const tavi::Enumeration* each :
         {&tavi::enumerationOf<tavi::SurfaceMode>(), &tavi::enumerationOf<tavi::ButtonShape>(),
          &tavi::enumerationOf<tavi::MaterialKind>(), &tavi::enumerationOf<tavi::MaterialPreset>(),
          &tavi::enumerationOf<tavi::MaterialFinish>(), &tavi::enumerationOf<tavi::MaterialMapping>(),
          &tavi::enumerationOf<tavi::GradientKind>(), &tavi::enumerationOf<tavi::GradientDirection>()}) {
        names(*each);
    }
    return 0;
}

}  // namespace skin_tool
