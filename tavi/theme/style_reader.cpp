#include "tavi/theme/style_reader.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "tavi/theme/normalize_key.h"

namespace tavi {
namespace {

constexpr size_t kLongestNumber = 40;

// Writes the text of a number into `buffer`.
std::string_view writeNumber(double number, char (&buffer)[kLongestNumber]) {
    constexpr double kExact = 1e15;
    if (number > -kExact && number < kExact && number == static_cast<double>(static_cast<int64_t>(number))) {
        return {buffer, std::to_chars(std::begin(buffer), std::end(buffer), static_cast<int64_t>(number)).ptr};
    }
    return {buffer, static_cast<size_t>(std::snprintf(buffer, sizeof(buffer), "%.15g", number))};
}

// Collects the leaves of styles, one style after the other.
class Flattener {
public:
    explicit Flattener(SkinReading& reading) : reading_(reading) {}

    // The properties of one style, valid until the next.
    const StyleProperties& flattenStyle(base::JsonObject style, const SkinPlace& place) {
        properties_.clear();
        path_.clear();
        root_ = &place;
        flatten(style, place);
        return properties_;
    }

private:
    void flatten(base::JsonObject object, const SkinPlace& place) {
        const size_t around = path_.size();
        for (const auto [name, value] : object) {
            path_.resize(around);
            if (&place != root_) {
                path_ += '.';
            }
            appendNormalizedKey(path_, name);
            visit(value, {.around = &place, .key = name});
        }
        path_.resize(around);
    }

    void visit(base::Json value, const SkinPlace& place) {
        if (path_.size() > kMaxStylePath) {
            tell(place, value, "a shorter path");
        } else if (const auto text = value.string()) {
            keep(*text);
        } else if (const auto object = value.object()) {
            flatten(*object, place);
        } else if (const auto boolean = value.boolean()) {
            keep(*boolean ? "true" : "false");
        } else if (const auto number = value.number()) {
            char buffer[kLongestNumber];
            keep(writeNumber(*number, buffer));
        } else {
            tell(place, value, "a text, a number, true or false");
        }
    }

    void keep(std::string_view value) {
        const size_t bytes = path_.size() + value.size();
        if (bytes > reading_.styleBytes) {
            reading_.styleBytes = 0;
            return;
        }
        reading_.styleBytes -= bytes;
        properties_.append(path_, value);
    }

    void tell(const SkinPlace& place, base::Json value, std::string_view expected) {
        if (reading_.listener != nullptr) {
            reading_.listener->wrongKind(place, value, expected);
        }
    }

    SkinReading& reading_;
    StyleProperties properties_;
    const SkinPlace* root_ = nullptr;
    std::string path_;
};

// The members of an object; anything else has none and is told to the listener.
base::JsonObject membersOf(base::Json value, const SkinPlace& place, SkinReading& reading) {
    if (!value.object() && reading.listener != nullptr) {
        reading.listener->wrongKind(place, value, "an object");
    }
    return value.members();
}

}  // namespace

std::string numberText(double number) {
    char buffer[kLongestNumber];
    return std::string(writeNumber(number, buffer));
}

void readStyles(SkinDefinition& skin, base::Json styles, const SkinPlace& place, SkinReading& reading) {
    size_t count = skin.styleOverrides.size();
    for (const auto [typeName, variants] : styles.members()) {
        count += variants.members().size();
    }
    skin.styleOverrides.reserve(count);
    Flattener flattener(reading);
    for (const auto [typeName, variants] : membersOf(styles, place, reading)) {
        const SkinPlace typePlace{&place, typeName};
        std::string type;
        appendNormalizedKey(type, typeName);
        for (const auto [variant, style] : membersOf(variants, typePlace, reading)) {
            const SkinPlace stylePlace{&typePlace, variant};
            const StyleProperties& properties =
                flattener.flattenStyle(membersOf(style, stylePlace, reading), stylePlace);
            if (!properties.empty()) {
                const std::string_view name = variant.empty() ? "default" : variant;
                skin.styleOverrides.push_back({type, std::string(name), properties});
            }
        }
    }
}

}  // namespace tavi
