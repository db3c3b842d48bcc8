#include "localization/languages.h"

#include <algorithm>
#include <array>
#include <compare>
#include <cstdint>

#include "base/text.h"
#include "core/configuration.h"
#include "localization/text_ids.h"

namespace velquin {
namespace {

constexpr char kColumns[][8] = {
#define COLUMN(code, name) code,
#define LANGUAGE(tag, column)
#include "localization/languages.inc"
#undef LANGUAGE
#undef COLUMN
};

static_assert(std::size(kColumns) == kColumnCount, "the texts were compiled for these columns");

// A language of a column that does not exist is an error of the compiler.
consteval std::uint8_t columnOf(std::string_view code) {
    for (std::size_t i = 0; i < std::size(kColumns); ++i) {
        if (kColumns[i] == code) {
            return static_cast<std::uint8_t>(i);
        }
    }
    throw "no such column";
}

constexpr SupportedLanguage kLanguages[] = {
#define COLUMN(code, name)
#define LANGUAGE(tag, column) {tag, columnOf(column)},
#include "localization/languages.inc"
#undef LANGUAGE
#undef COLUMN
};

// A tag or subtag of at most 16 characters, normalised, in a form that compares in a moment. One that cannot be ours,
// for its length or its characters, becomes some key that is not ours either.
struct Key {
    static constexpr std::size_t kSize = 16;
    std::uint64_t head = 0;
    std::uint64_t tail = 0;

    auto operator<=>(const Key&) const = default;

    constexpr void put(std::size_t i, unsigned char c) {
        (i < 8 ? head : tail) |= std::uint64_t{c} << (56 - 8 * (i % 8));
    }
    constexpr char at(std::size_t i) const { return static_cast<char>((i < 8 ? head : tail) >> (56 - 8 * (i % 8))); }
};

template <typename Char>
constexpr Key keyOf(std::basic_string_view<Char> tag) {
    Key key;
    for (std::size_t i = 0; i < std::min(tag.size(), Key::kSize); ++i) {
        const Char c = tag[i];
        const bool isUpper = c >= Char{'A'} && c <= Char{'Z'};
        const bool isPlain = c > Char{0} && c < Char{0x7F};
        key.put(i, static_cast<unsigned char>(isUpper ? c + ('a' - 'A') : c == Char{'_'} ? '-' : isPlain ? c : '?'));
    }
    return key;
}
constexpr Key keyOf(const char* tag) {
    return keyOf(std::string_view(tag));
}

std::wstring widened(const Key& key) {
    std::wstring text;
    for (std::size_t i = 0; i < Key::kSize && key.at(i) != '\0'; ++i) {
        text.push_back(static_cast<wchar_t>(key.at(i)));
    }
    return text;
}

struct Renamed {
    Key from;
    Key to;
};
// Tags that earlier versions of Windows gave, or that have no texts of their own.
constexpr Renamed kLegacyTags[] = {
    {keyOf("zh-hk"), keyOf("zh-tw")},
    {keyOf("sr-latn-cs"), keyOf("sr-latn-rs")},
    {keyOf("sr-cyrl-cs"), keyOf("sr-cyrl-rs")},
};
constexpr Key kRightToLeft[] = {keyOf("ar"), keyOf("he"), keyOf("fa"), keyOf("ur"), keyOf("ug")};
constexpr Renamed kPrimarySubtags[] = {{keyOf("nb"), keyOf("no")}, {keyOf("nn"), keyOf("no")}};

constexpr Key renamed(const Key& key, std::span<const Renamed> table) {
    const auto row = std::ranges::find(table, key, &Renamed::from);
    return row == table.end() ? key : row->to;
}

std::wstring renamed(const std::wstring& text, std::span<const Renamed> table) {
    const Key key = keyOf(std::wstring_view(text));
    const Key successor = renamed(key, table);
    return successor == key ? text : widened(successor);
}

constexpr Key primaryOf(const Key& tag) {
    Key primary;
    for (std::size_t i = 0; i < Key::kSize && tag.at(i) != '-'; ++i) {
        primary.put(i, static_cast<unsigned char>(tag.at(i)));
    }
    return renamed(primary, kPrimarySubtags);
}

// The supported languages in the order of their keys; those of the same key in their own order.
struct Entry {
    Key key;
    int index;
    auto operator<=>(const Entry&) const = default;
};
template <typename KeyOfTag>
consteval auto sortedBy(KeyOfTag keyOfTag) {
    std::array<Entry, std::size(kLanguages)> entries{};
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i] = {keyOfTag(kLanguages[i].tag), static_cast<int>(i)};
    }
    std::ranges::sort(entries);
    return entries;
}
constexpr auto kByTag = sortedBy([](const char* tag) { return keyOf(tag); });
constexpr auto kByPrimary = sortedBy([](const char* tag) { return primaryOf(keyOf(tag)); });

int firstOf(std::span<const Entry> entries, const Key& key) {
    const auto entry = std::ranges::lower_bound(entries, key, {}, &Entry::key);
    return entry == entries.end() || entry->key != key ? -1 : entry->index;
}

int languageOfKey(const Key& key) {
    const Key tag = renamed(key, kLegacyTags);
    const int exact = firstOf(kByTag, tag);
    return exact >= 0 ? exact : firstOf(kByPrimary, primaryOf(tag));
}

}  // namespace

std::span<const SupportedLanguage> supportedLanguages() {
    return kLanguages;
}

std::wstring normalizeLanguageTag(std::wstring_view tag) {
    std::wstring normalized = base::lowered(base::trimmed(tag));
    std::ranges::replace(normalized, L'_', L'-');
    return renamed(normalized, kLegacyTags);
}

std::wstring primaryLanguageSubtag(std::wstring_view tag) {
    const std::wstring normalized = normalizeLanguageTag(tag);
    return renamed(normalized.substr(0, normalized.find(L'-')), kPrimarySubtags);
}

int findSupportedLanguage(std::wstring_view tag) {
    return languageOfKey(keyOf(base::trimmed(tag)));
}

int languageOfSetting(std::wstring_view value) {
    const Key key = keyOf(base::trimmed(value));
    return key == keyOf(std::wstring_view(kAutomaticLanguage)) ? -1 : languageOfKey(key);
}

int languageOfLocale(std::wstring_view localeName) {
    const int index = languageOfSetting(localeName);
    return index >= 0 ? index : findSupportedLanguage(L"en-US");
}

std::wstring canonicalLanguageSetting(std::wstring_view value) {
    const int index = languageOfSetting(value);
    return index < 0 ? kAutomaticLanguage : languageTag(index);
}

int effectiveLanguageIndex(const ProductConfig& config, std::wstring_view localeName) {
    const int index = languageOfSetting(config.language);
    return index < 0 ? languageOfLocale(localeName) : index;
}

bool isRightToLeftLanguage(std::wstring_view tag) {
    return std::ranges::contains(kRightToLeft, primaryOf(keyOf(base::trimmed(tag))));
}

std::wstring languageTag(int index) {
    const std::string_view tag = kLanguages[index].tag;
    return {tag.begin(), tag.end()};
}

}  // namespace velquin
