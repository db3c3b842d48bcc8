// The languages that the user interface speaks: tags such as "de-DE" (BCP 47), how a tag that people or Windows give
// finds the supported one, and the column of texts behind each. The list itself stands in languages.inc.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace velquin {

struct ProductConfig;

// The setting that follows Windows.
inline constexpr wchar_t kAutomaticLanguage[] = L"auto";

// Plain characters rather than pointers, so that the table needs no relocations.
struct SupportedLanguage {
    char tag[16];
    std::uint8_t column;  // of the texts, in the order of languages.inc
};
// In the order in which a tag without an exact match is offered to them.
std::span<const SupportedLanguage> supportedLanguages();

// The tag trimmed, in lower case, with "-" for every "_"; Hong Kong, and Serbia and Montenegro, become the supported
// neighbours that share their script.
std::wstring normalizeLanguageTag(std::wstring_view tag);

// The normalised tag up to its first "-"; both written forms of Norwegian are "no".
std::wstring primaryLanguageSubtag(std::wstring_view tag);

// Index into supportedLanguages(): the one of this tag, else the first of the same primary subtag, else -1.
int findSupportedLanguage(std::wstring_view tag);

// How a setting is stored: as a supported tag, or as "auto" when it is empty, says so, or names no language we have.
std::wstring canonicalLanguageSetting(std::wstring_view value);

// The supported language that matches the user's locale in Windows, as a tag; "en-US" when none does.
std::wstring windowsLanguage();

// The supported tag in force: the one of the configuration, or that of Windows where it says "auto".
std::wstring effectiveLanguage(const ProductConfig& config);

// The same as indices. `localeName` is what Windows calls the user's locale, empty where it could not say.
int languageOfSetting(std::wstring_view value);  // -1 where canonicalLanguageSetting gives "auto"
int languageOfLocale(std::wstring_view localeName);
int effectiveLanguageIndex(const ProductConfig& config, std::wstring_view localeName);

// Whether a language is written from right to left, whatever its region. Texts begin and windows are laid out there.
bool isRightToLeftLanguage(std::wstring_view tag);

// The tag of an index of supportedLanguages(), which -1 is not.
std::wstring languageTag(int index);

}  // namespace velquin
