#include "tavi/theme/skin_reader.h"

#include <algorithm>
#include <ranges>
#include <utility>
#include <vector>

#include "base/text.h"
#include "tavi/theme/material_presets.h"
#include "tavi/theme/skin_keys.h"
#include "tavi/theme/style_reader.h"

namespace tavi {
namespace {

// Walks an object by the table of its keys, whose rows come in the order of the table: `apply(row, value, place)` for
// each that the object has, with the value of the first of its spellings.
template <typename Apply>
void walkSection(base::Json section, const SkinPlace& place, const SpellingIndex& index, SkinReading& reading,
                 Apply apply) {
    const auto members = section.object();
    if (!members) {
        if (reading.listener != nullptr) {
            reading.listener->wrongKind(place, section, "an object");
        }
        return;
    }
    struct Found {
        base::Json value;
        std::string_view key;
        uint16_t rank = 0;
    };
    std::vector<Found> found;  // by the rows of the table
    for (const auto [key, value] : *members) {
        const auto spelling = index.find(key);
        if (!spelling) {
            if (reading.listener != nullptr) {
                reading.listener->unknownKey({&place, key}, value, index);
            }
            continue;
        }
        found.resize(std::max(found.size(), spelling->row + size_t{1}));
        Found loser{value, key, spelling->rank};
        Found& best = found[spelling->row];
        if (!best.value || spelling->rank < best.rank) {
            std::swap(best, loser);
        }
        if (loser.value && reading.listener != nullptr) {
            reading.listener->secondSpelling({&place, loser.key}, loser.value);
        }
    }
    for (size_t row = 0; row < found.size(); ++row) {
        if (found[row].value) {
            apply(row, found[row].value, SkinPlace{&place, found[row].key});
        }
    }
}

template <typename T>
std::optional<T> memberValue(base::Json value) {
    if constexpr (std::is_same_v<T, std::wstring>) {
        return value.string().transform(base::toWide);
    } else {
        return valueFromJson<T>(value);
    }
}

// The shape that a value names, or holds under one of kShapeWithin.
std::optional<ButtonShape> shapeOf(base::Json value) {
    while (value.object()) {
        const auto inner = kShapeWithin | std::views::transform([value](auto name) { return value.find(name); });
        const auto first = std::ranges::find_if(inner, [](base::Json found) { return static_cast<bool>(found); });
        value = first != inner.end() ? *first : base::Json();
    }
    return valueFromJson<ButtonShape>(value);
}
template <>
std::optional<ButtonShape> memberValue<ButtonShape>(base::Json value) {
    return shapeOf(value);
}

// Sets members from JSON, whatever their type, and tells the listener of values that do not fit.
struct MemberSetter {
    SkinReading& reading;
    const SkinPlace& place;
    base::Json value;

    template <typename Record, typename T>
    void set(Record& record, T Record::* member) const {
        if (auto read = memberValue<T>(value)) {
            record.*member = std::move(*read);
        } else if (reading.listener != nullptr) {
            reading.listener->unfitValue(place, value, valueTypeOf<T>());
        }
    }
};

void readTheme(Theme& theme, base::Json section, const SkinPlace& around, SkinReading& reading) {
    walkSection(section, around, themeKeyIndex(), reading, [&](size_t row, base::Json value, const SkinPlace& place) {
        const MemberSetter setter{reading, place, value};
        std::visit([&](auto member) { setter.set(theme, member); }, themeKeys()[row].target);
    });
}

struct MaterialSetter : MemberSetter {
    MaterialProfile& profile;

    void operator()(PresetFill) const {
        if (const auto preset = memberValue<MaterialPreset>(value)) {
            profile = materialPreset(*preset);
        } else if (reading.listener != nullptr) {
            reading.listener->unfitValue(place, value, valueTypeOf<MaterialPreset>());
        }
    }
    template <typename T>
    void operator()(T MaterialProfile::* member) const {
        set(profile, member);
    }
};

// The preset has the first row, so the other keys change what it filled.
void readMaterials(MaterialProfile& profile, base::Json section, const SkinPlace& around, SkinReading& reading) {
    walkSection(section, around, materialKeyIndex(), reading,
                [&](size_t row, base::Json value, const SkinPlace& place) {
                    std::visit(MaterialSetter{{reading, place, value}, profile}, materialKeys()[row].target);
                });
}

// The keys of the section of shapes, or of a group in it: shapes first, then groups.
struct ShapeLevel {
    std::string_view name;
    std::span<const ShapeKey> keys;
    std::vector<const ShapeGroup*> groups;
    SpellingIndex index;

    ShapeLevel(std::string_view group, std::span<const ShapeKey> shapes) : name(group), keys(shapes), index(shapes) {
        for (const ShapeGroup& inner : shapeGroups()) {
            if (inner.within == group) {
                index.add(inner.names, static_cast<uint16_t>(keys.size() + groups.size()));
                groups.push_back(&inner);
            }
        }
    }
};

std::string_view firstName(const ShapeGroup& group) {
    return group.names.substr(0, group.names.find(' '));
}

const ShapeLevel& shapeLevel(const ShapeGroup* group) {
    static const std::vector<ShapeLevel> kLevels = [] {
        std::vector<ShapeLevel> levels{{"", shapeKeys()}};
        for (const ShapeGroup& each : shapeGroups()) {
            levels.emplace_back(firstName(each), each.parts);
        }
        return levels;
    }();
    return kLevels[group != nullptr ? static_cast<size_t>(group - shapeGroups().data()) + 1 : 0];
}

struct ShapeSetter : MemberSetter {
    ShapeSet& shapes;

    template <typename T>
    void operator()(T ShapeSet::* member) const {
        set(shapes, member);
    }
    template <typename T>
    void operator()(T ScrollBarShapes::* member) const {
        set(shapes.scrollbar, member);
    }
};

void readShapes(ShapeSet& shapes, base::Json section, const SkinPlace& around, SkinReading& reading,
                const ShapeGroup* group = nullptr) {
    const ShapeLevel& level = shapeLevel(group);
    if (group != nullptr && group->takesShape && section.string()) {
        const size_t told = shapeOf(section) ? level.keys.size() : 1;
        for (const ShapeKey& part : level.keys.first(told)) {
            std::visit(ShapeSetter{{reading, around, section}, shapes}, part.target);
        }
        return;
    }
    walkSection(section, around, level.index, reading, [&](size_t row, base::Json value, const SkinPlace& place) {
        if (row < level.keys.size()) {
            std::visit(ShapeSetter{{reading, place, value}, shapes}, level.keys[row].target);
        } else {
            readShapes(shapes, value, place, reading, level.groups[row - level.keys.size()]);
        }
    });
}

void readTags(SkinDefinition& skin, base::Json value, const SkinPlace& place, SkinReading& reading) {
    const auto add = [&](base::Json tag) {
        if (const auto text = tag.string()) {
            skin.tags.push_back(base::toWide(*text));
        } else if (reading.listener != nullptr) {
            reading.listener->wrongKind(place, tag, "a text or a list of texts");
        }
    };
    if (const auto elements = value.array()) {
        std::ranges::for_each(*elements, add);
    } else {
        add(value);
    }
}

struct SkinSetter : MemberSetter {
    SkinDefinition& skin;

    void operator()(SkinSection section) const {
        switch (section) {
            case SkinSection::kTags:
                return readTags(skin, value, place, reading);
            case SkinSection::kTheme:
                return readTheme(skin.theme, value, place, reading);
            case SkinSection::kMaterials:
                return readMaterials(skin.materials, value, place, reading);
            case SkinSection::kShapes:
                return readShapes(skin.shapes, value, place, reading);
            case SkinSection::kStyles:
                return readStyles(skin, value, place, reading);
        }
    }
    template <typename T>
    void operator()(T SkinDefinition::* member) const {
        set(skin, member);
    }
};

bool hasText(base::Json value) {
    const auto text = value.string();
    return text && !text->empty();
}

}  // namespace

std::optional<SkinDefinition> parseSkin(base::Json value, SkinReading& reading) {
    const SkinPlace root;
    for (const std::string_view required : {"id", "name"}) {
        if (!hasText(value.find(required))) {
            if (reading.listener != nullptr) {
                const SkinPlace place{&root, required};
                reading.listener->wrongKind(place, value.find(required), "a text that is not empty");
            }
            return std::nullopt;
        }
    }
    SkinDefinition skin;
    walkSection(value, root, skinKeyIndex(), reading, [&](size_t row, base::Json member, const SkinPlace& place) {
        std::visit(SkinSetter{{reading, place, member}, skin}, skinKeys()[row].target);
    });
    skin.tags.push_back(skin.category);
    skin.tags.push_back(skin.harmony);
    skin.tags.emplace_back(kExternalTag);
    return skin;
}

std::vector<base::Json> skinsOf(base::Json root) {
    const auto array = root.array() ? root.array() : root.find(kSkinsKey).array();
    if (array) {
        return {array->begin(), array->end()};
    }
    const base::Json one = root.find(kSkinKey);
    return {one ? one : root};
}

std::vector<SkinDefinition> parseSkins(const base::JsonDocument& document, std::wstring_view source,
                                       SkinReadListener* listener) {
    SkinReading reading{document.length() * kStyleBytesPerByte, listener};
    std::vector<SkinDefinition> skins;
    for (const base::Json value : skinsOf(document.root())) {
        if (auto skin = parseSkin(value, reading)) {
            skin->source = source;
            skins.push_back(std::move(*skin));
        }
    }
    return skins;
}

std::vector<SkinDefinition> parseCatalog(std::string_view utf8, std::wstring_view source) {
    const auto document = base::parseJson(utf8);
    return document ? parseSkins(*document, source) : std::vector<SkinDefinition>();
}

}  // namespace tavi
