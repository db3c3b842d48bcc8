#include "core/configuration.h"
#include "fuzz/fuzz_input.h"
#include "localization/catalog.h"
#include "localization/languages.h"

using fuzz::require;

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const fuzz::Unterminated input(fuzz::units(fuzz::bytes(data, size)));
    const std::wstring_view tag = input.view();

    const std::wstring normalized = velquin::normalizeLanguageTag(tag);
    require(velquin::normalizeLanguageTag(normalized) == normalized, "a normalised tag stays");
    require(normalized.find(L'_') == std::wstring::npos, "a normalised tag has no underscore");
    require(velquin::findSupportedLanguage(normalized) == velquin::findSupportedLanguage(tag),
            "the spelling does not count");

    const std::wstring setting = velquin::canonicalLanguageSetting(tag);
    require(velquin::canonicalLanguageSetting(setting) == setting, "a stored setting stays");
    require((setting == velquin::kAutomaticLanguage) == (velquin::languageOfSetting(tag) < 0), "auto, or a language");

    velquin::ProductConfig config;
    config.language = tag;
    require(!velquin::localizedText(config, velquin::text::kClose, tag).empty(),
            "every setting and locale gives a text");
    const std::wstring english = velquin::translateText(tag, L"en-US");
    require(english.empty() || english.size() == tag.size(), "only a wording of ours is translated");
    return 0;
}
