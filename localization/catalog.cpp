#include "localization/catalog.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "core/configuration.h"
#include "localization/catalog_data.h"
#include "localization/languages.h"

namespace velquin {
namespace {

using namespace catalog_data;

const char* wording(std::uint32_t place) {
    return kPool + place;
}

// English wordings are ASCII, so its case is all there is.
constexpr wchar_t lowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + (L'a' - L'A')) : c;
}

bool equalsIgnoringCase(std::string_view wording, std::wstring_view text) {
    return std::ranges::equal(
        wording, text, {}, [](char c) { return lowerAscii(static_cast<unsigned char>(c)); }, lowerAscii);
}

const char* cell(int language, std::size_t row) {
    return wording(kCells[supportedLanguages()[static_cast<std::size_t>(language)].column][row]);
}

}  // namespace

const char* shownWording(const char* cell, int language, const char* english, const char* czech) {
    if (*cell != '\0') {
        return cell;
    }
    return primaryLanguageSubtag(languageTag(language)) == L"cs" ? czech : english;
}

std::wstring translateText(std::wstring_view englishText, std::wstring_view tag) {
    const auto* text = std::ranges::find_if(kBuiltIn, [englishText](const BuiltInText& candidate) {
        return equalsIgnoringCase(wording(candidate.english), englishText);
    });
    if (text == std::end(kBuiltIn)) {
        return {};
    }
    return base::toWide(cell(languageOfLocale(tag), static_cast<std::size_t>(text - kBuiltIn)));
}

std::wstring localizedText(const ProductConfig& config, int textId, std::wstring_view localeName) {
    if (textId < 0 || textId >= kTextCount) {
        return {};
    }
    const auto row = static_cast<std::size_t>(textId);
    const int language = effectiveLanguageIndex(config, localeName);
    return base::toWide(
        shownWording(cell(language, row), language, wording(kBuiltIn[row].english), wording(kBuiltIn[row].czech)));
}

}  // namespace velquin
