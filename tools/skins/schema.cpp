// "skin_tool schema": the JSON Schema (draft 2020-12) of catalogs. Editors complete and check with it, so it
// wants the spellings and the ranges that the reference names, where the reader is more patient: it folds cases and
// clamps numbers. In styles anything may stand, since a program's own controls may read what is not known here.
#include <cstdio>
#include <optional>
#include <set>

#include "tavi/theme/control_types.h"
#include "tavi/theme/skin_styles.h"
#include "tools/skins/describe.h"
#include "tools/skins/json_writer.h"

namespace skin_tool {
namespace {

constexpr char kDecimal[] = R"(^\s*[-+]?[0-9]+(\.[0-9]*)?\s*$)";

// The name of the definition of a type of value.
std::string definitionOf(tavi::ValueType type) {
    constexpr const char* kNames[] = {"color", "byte", "integer", "switch", "text"};
    if (type.kind != tavi::ValueKind::kName) {
        return kNames[static_cast<size_t>(type.kind)];
    }
    std::string name(type.names->title());
    for (size_t at = name.find(' '); at != std::string::npos; at = name.find(' ', at)) {
        name.replace(at, 1, "_");
    }
    return name;
}

// A pattern for a spelling in either case and, where names are normalized, with "_" and "-" anywhere.
std::string patternOf(std::string_view spelling, tavi::Fold fold) {
    std::string pattern;
    for (const char c : spelling) {
        if (fold == tavi::Fold::kNormalized && !pattern.empty()) {
            pattern += "[_-]*";
        }
        const bool isLetter = c >= 'a' && c <= 'z';
        pattern += isLetter ? std::string{'[', c, static_cast<char>(c - 'a' + 'A'), ']'} : std::string(1, c);
    }
    return pattern;
}

class SchemaPrinter {
public:
    std::string print() {
        json_.object([this] {
            json_.key("$schema").text("https://json-schema.org/draft/2020-12/schema");
            json_.key("title").text("Catalog of skins");
            chooseForm();
            json_.key("$defs").object([this] { definitions(); });
        });
        return json_.document() + "\n";
    }

private:
    void reference(std::string_view definition) { json_.key("$ref").text("#/$defs/" + std::string(definition)); }
    void closed() { json_.key("additionalProperties").raw("false"); }
    void type(const char* name) { json_.key("type").text(name); }
    void required(std::string_view key) {
        json_.key("required").array([&] { json_.text(key); });
    }

    // A list of skins, an object with such a list or one skin in it, or a skin itself.
    void chooseForm() {
        const auto listOfSkins = [this] {
            type("array");
            json_.key("items").object([this] { reference("skin"); });
        };
        const auto when = [this](auto condition, auto then, auto otherwise) {
            json_.key("if").object(condition);
            json_.key("then").object(then);
            json_.key("else").object(otherwise);
        };
        const auto holding = [this](std::string_view key, auto content) {
            json_.key("properties").object([&] { json_.key(key).object(content); });
        };
        const auto hasSkin = [this] { required(tavi::kSkinKey); };
        const auto hasSkins = [this, holding] {
            required(tavi::kSkinsKey);
            holding(tavi::kSkinsKey, [this] { type("array"); });
        };
        when([this] { type("array"); }, listOfSkins,
             [&] {
                 when(
                     hasSkins, [&] { holding(tavi::kSkinsKey, listOfSkins); },
                     [&] {
                         when(
                             hasSkin, [&] { holding(tavi::kSkinKey, [this] { reference("skin"); }); },
                             [this] { reference("skin"); });
                     });
             });
    }

    void definitions() {
        values();
        names(tavi::valueTypeOf<tavi::SurfaceMode>());
        names(tavi::valueTypeOf<tavi::ButtonShape>());
        names(tavi::valueTypeOf<tavi::MaterialKind>());
        names(tavi::valueTypeOf<tavi::MaterialPreset>());
        names(tavi::valueTypeOf<tavi::MaterialFinish>());
        names(tavi::valueTypeOf<tavi::MaterialMapping>());
        names(tavi::valueTypeOf<tavi::GradientKind>());
        names(tavi::valueTypeOf<tavi::GradientDirection>());
        json_.key("skin").object([this] { skin(); });
        section("theme", tavi::themeKeys(), DefaultOf<tavi::Theme>());
        section("materials", tavi::materialKeys(), DefaultOf<tavi::MaterialProfile>());
        json_.key("shape_value").object([this] { shapeValue(); });
        json_.key("shapes").object([this] { shapes("", tavi::shapeKeys()); });
        for (const tavi::ShapeGroup& group : tavi::shapeGroups()) {
            json_.key(groupDefinition(group)).object([&] { shapeGroup(group); });
        }
        styles();
    }

    void values() {
        const auto decimal = [this] {
            json_.key("type").raw(R"(["number", "string"])");
            json_.key("pattern").text(kDecimal);
        };
        json_.key("text").object([this] { type("string"); });
        json_.key("color").object([this] {
            type("string");
            json_.key("pattern").text("^#?[0-9A-Fa-f]{6}$");
        });
        json_.key("integer").object(decimal);
        json_.key("byte").object([&] {
            decimal();
            json_.key("minimum").raw("0");
            json_.key("maximum").raw("255");
        });
        json_.key("switch").object([this] {
            json_.key("anyOf").array([this] {
                json_.object([this] { json_.key("type").raw(R"(["boolean", "number"])"); });
                json_.object(
                    [this] { json_.key("enum").raw(R"(["true", "1", "yes", "on", "false", "0", "no", "off"])"); });
            });
        });
    }

    void names(tavi::ValueType type) {
        json_.key(definitionOf(type)).object([&] {
            json_.key("anyOf").array([&] {
                std::string pattern;
                json_.object([&] {
                    json_.key("enum").array([&] {
                        for (const tavi::EnumerationRow& row : type.names->rows()) {
                            for (const std::string_view spelling : tavi::spellings(row.names)) {
                                if (type.names->find(spelling) == &row) {
                                    json_.text(spelling);
                                    pattern += (pattern.empty() ? "" : "|") + patternOf(spelling, type.names->fold());
                                }
                            }
                        }
                    });
                });
                json_.object([&] {
                    json_.key("type").text("string");
                    json_.key("pattern").text("^(" + pattern + ")$");
                });
            });
        });
    }

    // A property under each of its spellings, described under the first.
    template <typename Content>
    void property(std::string_view spellings, std::string_view description, Content content) {
        const std::string first = firstName(spellings);
        for (const std::string_view name : tavi::spellings(spellings)) {
            json_.key(name).object([&] {
                json_.key("description").text(name == first ? std::string(description) : "The same as " + first + ".");
                content();
            });
        }
    }

    template <typename Keys, typename Defaults>
    void section(std::string_view name, Keys keys, const Defaults& defaults) {
        json_.key(name).object([&] {
            type("object");
            json_.key("properties").object([&] {
                for (const auto& key : keys) {
                    const std::string value = std::visit(defaults, key.target);
                    const std::string ending = value.empty() ? "" : " Default: " + value + ".";
                    property(key.names, std::string(key.description) + ending,
                             [&] { reference(definitionOf(typeOf(key))); });
                }
            });
            closed();
        });
    }

    void skin() {
        type("object");
        json_.key("required").raw(R"(["id", "name"])");
        json_.key("properties").object([this] {
            json_.key("$schema").object([this] { type("string"); });
            for (const tavi::SkinKey& key : tavi::skinKeys()) {
                property(key.names, key.description, [&] { skinValue(key); });
            }
        });
        closed();
    }

    void skinValue(const tavi::SkinKey& key) {
        const auto* part = std::get_if<tavi::SkinSection>(&key.target);
        if (part == nullptr) {
            reference(definitionOf(typeOf(key)));
            const std::string name = firstName(key.names);
            if (name == "id" || name == "name") {
                json_.key("minLength").raw("1");
            }
            return;
        }
        if (*part == tavi::SkinSection::kTags) {
            json_.key("type").raw(R"(["array", "string"])");
            json_.key("items").object([this] { type("string"); });
            return;
        }
        constexpr const char* kDefinitions[] = {"", "theme", "materials", "shapes", "styles"};
        reference(kDefinitions[static_cast<size_t>(*part)]);
    }

    void shapeValue() {
        json_.key("anyOf").array([this] {
            json_.object([this] { reference("shape"); });
            json_.object([this] {
                type("object");
                json_.key("minProperties").raw("1");
                json_.key("properties").object([this] {
                    for (const std::string_view name : tavi::kShapeWithin) {
                        json_.key(name).object([this] { reference("shape_value"); });
                    }
                });
                closed();
            });
        });
    }

    void shapes(std::string_view group, std::span<const tavi::ShapeKey> keys) {
        type("object");
        json_.key("properties").object([&] {
            for (const tavi::ShapeKey& key : keys) {
                const tavi::ValueType value = typeOf(key);
                property(key.names, key.description, [&] {
                    reference(value.kind == tavi::ValueKind::kName ? "shape_value" : definitionOf(value));
                });
            }
            for (const tavi::ShapeGroup& inner : tavi::shapeGroups()) {
                if (inner.within == group) {
                    property(inner.names, inner.description, [&] { reference(groupDefinition(inner)); });
                }
            }
        });
        closed();
    }

    static std::string groupDefinition(const tavi::ShapeGroup& group) {
        return "shapes_" + std::string(group.within) + (group.within.empty() ? "" : "_") + firstName(group.names);
    }

    void shapeGroup(const tavi::ShapeGroup& group) {
        if (!group.takesShape) {
            return shapes(firstName(group.names), group.parts);
        }
        json_.key("anyOf").array([&] {
            json_.object([this] { reference("shape"); });
            json_.object([&] { shapes(firstName(group.names), group.parts); });
        });
    }

    void styles() {
        json_.key("styles").object([this] {
            type("object");
            json_.key("properties").object([this] {
                for (const tavi::ControlTypeRow& row : tavi::controlTypes()) {
                    property(row.names, row.description, [&] { reference("styles_" + firstName(row.names)); });
                }
            });
            json_.key("additionalProperties").object([this] { variants(""); });
        });
        for (const tavi::ControlTypeRow& row : tavi::controlTypes()) {
            json_.key("styles_" + firstName(row.names)).object([&] { variants(row.variants); });
        }
        json_.key("style").object([this] { style(); });
        json_.key("part").object([this] { states("surface_style"); });
        json_.key("text_style").object([this] { states("color"); });
        json_.key("surface_style").object([this] { surfaceStyle(); });
    }

    void variants(std::string_view names) {
        type("object");
        json_.key("properties").object([&] {
            for (const std::string_view name : tavi::spellings(names)) {
                json_.key(name).object([this] { reference("style"); });
            }
        });
        json_.key("additionalProperties").object([this] { reference("style"); });
    }

    void style() {
        type("object");
        json_.key("properties").object([this] {
            for (const std::string_view part : partNames()) {
                json_.key(part).object([this] { reference("part"); });
            }
            json_.key("text").object([this] { reference("text_style"); });
            json_.key("focus").object([this] {
                type("object");
                json_.key("properties").object([this] {
                    json_.key("color").object([this] { reference("color"); });
                    json_.key("width").object([this] { reference("integer"); });
                });
            });
        });
    }

    void states(std::string_view definition) {
        type("object");
        json_.key("properties").object([&] {
            for (const std::string_view state : tavi::kStateNames) {
                json_.key(state).object([&] { reference(definition); });
            }
        });
    }

    void surfaceStyle() {
        std::set<std::string_view> seen;
        std::vector<Property> nested;
        type("object");
        json_.key("properties").object([&] {
            for (const Property& each : surfaceProperties()) {
                if (each.names.find('.') != std::string_view::npos) {
                    nested.push_back(each);
                    continue;
                }
                // What the style has of its own hides the key of the material.
                std::string names;
                for (const std::string_view name : tavi::spellings(each.names)) {
                    if (seen.insert(name).second) {
                        names += (names.empty() ? "" : " ") + std::string(name);
                    }
                }
                property(names, each.description, [&] { reference(definitionOf(each.type)); });
            }
            nestedProperties(nested);
        });
    }

    // "nine_slice.left" and the like, as objects; all of them stand in the same one.
    void nestedProperties(const std::vector<Property>& nested) {
        for (size_t spelling = 0; spelling < tavi::spellings(nested.front().names).size(); ++spelling) {
            const std::string_view name = tavi::spellings(nested.front().names)[spelling];
            json_.key(name.substr(0, name.find('.'))).object([&] {
                type("object");
                json_.key("properties").object([&] {
                    for (const Property& each : nested) {
                        const std::string_view path = tavi::spellings(each.names)[spelling];
                        property(path.substr(path.find('.') + 1), each.description,
                                 [&] { reference(definitionOf(each.type)); });
                    }
                });
            });
        }
    }

    JsonWriter json_;
};

}  // namespace

int printSchema() {
    std::fputs(SchemaPrinter().print().c_str(), stdout);
    return 0;
}

}  // namespace skin_tool
