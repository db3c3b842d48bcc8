#include "tavi/theme/style_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "base/text.h"
#include "tavi/theme/normalize_key.h"

namespace tavi {
namespace {

// Most values are short and in ASCII.
void assignWide(std::wstring& out, std::string_view utf8) {
    unsigned bits = 0;
    out.resize_and_overwrite(utf8.size(), [utf8, &bits](wchar_t* characters, size_t length) {
        for (size_t i = 0; i < length; ++i) {
            bits |= static_cast<unsigned char>(utf8[i]);
            characters[i] = static_cast<wchar_t>(utf8[i]);
        }
        return length;
    });
    if (bits >= 0x80) {
        out = base::toWide(utf8);
    }
}

void assignNumber(std::wstring& out, double number) {
    char text[40];
    constexpr double kExact = 1e15;
    if (number > -kExact && number < kExact && number == static_cast<double>(static_cast<int64_t>(number))) {
        const auto end = std::to_chars(std::begin(text), std::end(text), static_cast<int64_t>(number)).ptr;
        return assignWide(out, {text, end});
    }
    const int length = std::snprintf(text, sizeof(text), "%.15g", number);
    assignWide(out, {text, static_cast<size_t>(length)});
}

constexpr std::string_view kLeafKinds = "a text, a number, true or false";

// Collects the leaves of styles, one style after the other. Members are visited in the order of their normalized keys
// where that makes the paths come in order: sorting a few short keys at each level is far cheaper than sorting all
// paths, which begin alike.
class Flattener {
public:
    explicit Flattener(SkinReading& reading) : reading_(reading) {}

    // The properties of one style, valid until the next.
    const StyleProperties& flattenStyle(base::JsonObject style, const SkinPlace& place) {
        properties_.clear();
        inOrder_ = true;
        root_ = &place;
        flatten(style, place);
        if (!inOrder_) {
            properties_.settle();
        }
        return properties_;
    }

private:
    struct Member {
        size_t begin = 0;  // its key among keys_
        size_t length = 0;
        std::string_view name;
        base::Json value;
    };
    struct Turn {
        uint64_t order = 0;  // the first eight characters of its key, the first one highest
        size_t member = 0;
    };

    void flatten(base::JsonObject object, const SkinPlace& place) {
        const size_t first = members_.size();
        const size_t pathLength = path_.size();
        collect(object, first);
        for (size_t i = first, end = members_.size(); i < end; ++i) {
            const Member member = members_[turns_[i].member];
            path_.resize(pathLength);
            if (&place != root_) {
                path_ += L'.';
            }
            path_.append(keys_, member.begin, member.length);
            visit(member.value, {.around = &place, .key = member.name});
        }
        path_.resize(pathLength);
        members_.resize(first);
        turns_.resize(first);
    }

    // A key that was met, normalized. A skin has the same few dozen keys in every style.
    struct Key {
        std::string_view name;
        size_t begin = 0;  // among keys_
        size_t length = 0;
        uint64_t order = 0;
        bool isPlain = true;
    };

    void collect(base::JsonObject object, size_t first) {
        bool isPlain = true;
        for (const auto [name, value] : object) {
            const Key& key = keyOf(name);
            isPlain &= key.isPlain;
            turns_.push_back({key.order, members_.size()});
            members_.push_back({.begin = key.begin, .length = key.length, .name = name, .value = value});
        }
        if (isPlain) {
            sortTurns(first);
        }
    }

    const Key& keyOf(std::string_view name) {
        const auto at = [name](size_t index) { return static_cast<size_t>(static_cast<unsigned char>(name[index])); };
        const size_t place =
            name.empty() ? 0 : (at(0) + at(name.size() / 2) * 5 + at(name.size() - 1) * 11 + name.size());
        Key& key = known_[place % known_.size()];
        if (key.name != name || name.empty()) {
            key = {.name = name, .begin = keys_.size()};
            key.isPlain = appendPlainKey(name);
            if (!key.isPlain) {
                appendNormalizedKey(keys_, name);
            }
            key.length = keys_.size() - key.begin;
            key.order = orderOf(keys_.data() + key.begin, key.length);
        }
        return key;
    }

    // Normalizes what nearly all keys are, a few letters and digits of ASCII with separators. False, with nothing done,
    // for a key that holds anything else: a point, and characters that sort before one, would not come in the order of
    // paths.
    bool appendPlainKey(std::string_view name) {
        const size_t begin = keys_.size();
        bool isPlain = true;
        keys_.resize_and_overwrite(begin + name.size(), [&](wchar_t* characters, size_t) {
            wchar_t* end = characters + begin;
            for (const char c : name) {
                const auto unit = static_cast<unsigned char>(c);
                const bool isSeparator = c == '_' || c == '-';
                isPlain &= isSeparator || (unit > '.' && unit < 0x80);
                *end = static_cast<wchar_t>(unit >= 'A' && unit <= 'Z' ? unit | 0x20 : unit);
                end += isSeparator ? 0 : 1;
            }
            return isPlain ? static_cast<size_t>(end - characters) : begin;
        });
        return isPlain;
    }

    static uint64_t orderOf(const wchar_t* key, size_t length) {
        constexpr size_t kCharacters = 8;
        uint64_t order = 0;
        for (size_t i = 0; i < std::min(length, kCharacters); ++i) {
            order |= uint64_t{static_cast<unsigned char>(key[i])} << (56 - 8 * i);
        }
        return order;
    }

    bool isBefore(const Turn& a, const Turn& b) const {
        if (a.order != b.order) {
            return a.order < b.order;
        }
        const auto keyOf = [this](const Turn& turn) {
            return std::wstring_view(keys_).substr(members_[turn.member].begin, members_[turn.member].length);
        };
        return keyOf(a) < keyOf(b);
    }

    // Stable: of two spellings of a key the later one counts.
    void sortTurns(size_t first) {
        constexpr size_t kFew = 32;
        if (turns_.size() - first > kFew) {
            std::stable_sort(turns_.begin() + static_cast<ptrdiff_t>(first), turns_.end(),
                             [this](const Turn& a, const Turn& b) { return isBefore(a, b); });
            return;
        }
        for (size_t next = first + 1; next < turns_.size(); ++next) {
            const Turn turn = turns_[next];
            size_t at = next;
            for (; at > first && isBefore(turn, turns_[at - 1]); --at) {
                turns_[at] = turns_[at - 1];
            }
            turns_[at] = turn;
        }
    }

    void visit(base::Json value, const SkinPlace& place) {
        if (path_.size() > kMaxStylePath) {
            tell(place, value, "a shorter path");
        } else if (const auto object = value.object()) {
            flatten(*object, place);
        } else if (readText(value)) {
            keep();
        } else {
            tell(place, value, kLeafKinds);
        }
    }

    bool readText(base::Json value) {
        if (const auto text = value.string()) {
            assignWide(value_, *text);
        } else if (const auto number = value.number()) {
            assignNumber(value_, *number);
        } else if (const auto boolean = value.boolean()) {
            value_ = *boolean ? L"true" : L"false";
        } else {
            return false;
        }
        return true;
    }

    void keep() {
        const size_t characters = path_.size() + value_.size();
        if (characters > reading_.styleCharacters) {
            reading_.styleCharacters = 0;
            return;
        }
        reading_.styleCharacters -= characters;
        inOrder_ = properties_.append(path_, value_) && inOrder_;
    }

    void tell(const SkinPlace& place, base::Json value, std::string_view expected) {
        if (reading_.listener != nullptr) {
            reading_.listener->wrongKind(place, value, expected);
        }
    }

    SkinReading& reading_;
    StyleProperties properties_;
    const SkinPlace* root_ = nullptr;
    std::vector<Member> members_;  // of the objects that are open
    std::vector<Turn> turns_;      // the order in which they are visited
    std::array<Key, 128> known_;
    std::wstring keys_;
    std::wstring path_;
    std::wstring value_;
    bool inOrder_ = true;
};

// The members of an object; anything else has none and is told to the listener.
base::JsonObject membersOf(base::Json value, const SkinPlace& place, SkinReading& reading) {
    if (!value.object() && reading.listener != nullptr) {
        reading.listener->wrongKind(place, value, "an object");
    }
    return value.members();
}

}  // namespace

std::wstring numberText(double number) {
    std::wstring text;
    assignNumber(text, number);
    return text;
}

void readStyles(SkinDefinition& skin, base::Json styles, const SkinPlace& place, SkinReading& reading) {
    Flattener flattener(reading);
    std::wstring type;
    const auto readStyle = [&](std::string_view variant, base::Json style, const SkinPlace& stylePlace) {
        const StyleProperties& properties = flattener.flattenStyle(membersOf(style, stylePlace, reading), stylePlace);
        if (!properties.empty()) {
            skin.styleOverrides.push_back({type, variant.empty() ? L"default" : base::toWide(variant), properties});
        }
    };
    size_t count = skin.styleOverrides.size();
    for (const auto [typeName, variants] : styles.members()) {
        count += variants.members().size();
    }
    skin.styleOverrides.reserve(count);
    for (const auto [typeName, variants] : membersOf(styles, place, reading)) {
        const SkinPlace typePlace{&place, typeName};
        type.clear();
        appendNormalizedKey(type, typeName);
        for (const auto [variant, style] : membersOf(variants, typePlace, reading)) {
            readStyle(variant, style, {&typePlace, variant});
        }
    }
}

}  // namespace tavi
