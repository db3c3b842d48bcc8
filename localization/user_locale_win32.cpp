#include <windows.h>

#include <string>

#include "localization/catalog.h"
#include "localization/languages.h"

namespace velquin {
namespace {

// What Windows calls the user's locale, "de-AT" for one; empty when it does not say.
std::wstring userLocaleName() {
    wchar_t name[LOCALE_NAME_MAX_LENGTH];
    return GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH) > 0 ? name : L"";
}

}  // namespace

std::wstring windowsLanguage() {
    return languageTag(languageOfLocale(userLocaleName()));
}

std::wstring effectiveLanguage(const ProductConfig& config) {
    return languageTag(effectiveLanguageIndex(config, userLocaleName()));
}

std::wstring localizedText(const ProductConfig& config, int textId) {
    return localizedText(config, textId, userLocaleName());
}

}  // namespace velquin
